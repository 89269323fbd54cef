// The pages of the profile window.

#include "app/Environnement.h"
#include "app/kit/ChampChiffre.h"
#include "app/kit/ChampDate.h"
#include "app/kit/MessageSaisie.h"
#include "app/profil/FenetreProfil.h"
#include "store/FormatFrancais.h"
#include "store/Horloge.h"
#include "store/Reglages.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>

namespace corvane::app {

namespace {

QFormLayout* nouvelleForme(QWidget* page)
{
    auto* forme = new QFormLayout(page);
    forme->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    forme->setLabelAlignment(Qt::AlignRight);
    return forme;
}

} // namespace

QWidget* FenetreProfil::pageEtatCivil()
{
    auto* page = new QWidget(this);
    auto* mise = new QHBoxLayout(page);
    auto* champs = new QWidget(page);
    auto* forme = nouvelleForme(champs);
    auto* civilite = champChoix(forme, QStringLiteral("Civilité"), QStringLiteral("champCivilite"),
                                {{"Madame", 1}, {"Mademoiselle", 2}, {"Monsieur", 3}}, &Profil::saveCivilityId,
                                &DonneesProfil::civiliteId);
    connect(civilite, &QComboBox::activated, this, [this] { afficherPhoto(); });
    champTexte(forme, QStringLiteral("Nom"), QStringLiteral("champNom"), &Profil::saveLastName, &DonneesProfil::nom);
    champTexte(forme, QStringLiteral("Prénom"), QStringLiteral("champPrenom"), &Profil::saveFirstName,
               &DonneesProfil::prenom);
    champTexte(forme, QStringLiteral("Pseudonyme"), QStringLiteral("champPseudonyme"), &Profil::saveNickname,
               &DonneesProfil::pseudonyme);

    auto* naissance = new ChampDate(champs);
    m_naissance = naissance;
    m_naissance->setObjectName(QStringLiteral("champNaissance"));
    const int ageMaxi = m_environnement.reglages.entier(Reglages::Cle::ProfilLimiteAge);
    naissance->setBornes(qMax(Limites::premiereNaissance(), Profil::aujourdhuiMoinsAgeMaxi(ageMaxi)),
                         Horloge::aujourdhui());
    forme->addRow(QStringLiteral("Date de naissance"), m_naissance);
    auto enregistrerNaissance = [this] {
        if (m_naissance->date() == m_profil->donnees().naissance)
            return;
        if (m_profil->saveDob(m_naissance->date())) {
            m_profil->donnees().naissance = m_naissance->date();
            apresEnregistrement();
        }
    };
    connect(m_naissance, &QDateEdit::editingFinished, this, enregistrerNaissance);
    connect(m_naissance->calendarWidget(), &QCalendarWidget::clicked, this, enregistrerNaissance);
    m_chargeurs << [this] {
        const QSignalBlocker blocage(m_naissance);
        const QDate naissance = m_profil->donnees().naissance;
        // A date the picker cannot show stays as stored until the user picks another one.
        if (naissance.isValid() && naissance >= m_naissance->minimumDate())
            m_naissance->setDate(naissance);
    };

    champTexte(forme, QStringLiteral("Lieu de naissance"), QStringLiteral("champLieuNaissance"),
               &Profil::savePlaceOfBirth, &DonneesProfil::lieuNaissance);
    champTexte(forme, QStringLiteral("Nationalité"), QStringLiteral("champNationalite"), &Profil::saveNationality,
               &DonneesProfil::nationalite);

    auto* enfants = new ChampNombre(0, Profil::kEnfantsMaximum, champs);
    enfants->setObjectName(QStringLiteral("champEnfants"));
    forme->addRow(QStringLiteral("Enfants à charge"), enfants);
    // A count that cannot be read is not saved: the field stays as typed, in red, with the reason.
    connect(enfants, &QLineEdit::editingFinished, this, [this, enfants] {
        const std::optional<int> nombre = enfants->entier();
        if (nombre && *nombre != m_profil->donnees().nombreEnfants && m_profil->saveChildren(*nombre)) {
            m_profil->donnees().nombreEnfants = *nombre;
            apresEnregistrement();
        }
    });
    m_chargeurs << [this, enfants] {
        const QSignalBlocker blocage(enfants);
        enfants->setValue(m_profil->donnees().nombreEnfants);
    };
    auto* message = new MessageSaisie(champs);
    message->surveiller(enfants, QStringLiteral("Enfants à charge"));
    forme->addRow(message);

    mise->addWidget(champs, 1);
    mise->addWidget(cadrePhoto());
    return page;
}

QWidget* FenetreProfil::pageCoordonnees()
{
    auto* page = new QWidget(this);
    auto* forme = nouvelleForme(page);
    champTexte(forme, QStringLiteral("Adresse"), QStringLiteral("champAdresse"), &Profil::saveAddress,
               &DonneesProfil::adresse);
    champTexte(forme, QStringLiteral("Code postal"), QStringLiteral("champCodePostal"), &Profil::savePostalCode,
               &DonneesProfil::codePostal);
    champTexte(forme, QStringLiteral("Commune"), QStringLiteral("champCommune"), &Profil::saveCity,
               &DonneesProfil::commune);
    champTexte(forme, QStringLiteral("Pays"), QStringLiteral("champPays"), &Profil::saveCountry, &DonneesProfil::pays);
    champTexte(forme, QStringLiteral("Téléphone"), QStringLiteral("champTelephone"), &Profil::saveLandline,
               &DonneesProfil::telephone);
    champTexte(forme, QStringLiteral("Mobile"), QStringLiteral("champMobile"), &Profil::saveMobilePhone,
               &DonneesProfil::telephoneMobile);
    champTexte(forme, QStringLiteral("Fax"), QStringLiteral("champFax"), &Profil::saveFax, &DonneesProfil::fax);
    champTexte(forme, QStringLiteral("Adresse électronique"), QStringLiteral("champEmail"), &Profil::saveEmail,
               &DonneesProfil::email);
    champTexte(forme, QStringLiteral("Site web"), QStringLiteral("champWeb"), &Profil::saveWebsite,
               &DonneesProfil::web);
    return page;
}

QWidget* FenetreProfil::pageNumeros()
{
    auto* page = new QWidget(this);
    auto* forme = nouvelleForme(page);
    champTexte(forme, QStringLiteral("No Sécurité Sociale"), QStringLiteral("champNir"), &Profil::saveSsNumber,
               &DonneesProfil::nir);
    champTexte(forme, QStringLiteral("No Carte d'identité"), QStringLiteral("champCarteIdentite"),
               &Profil::saveIdentityCardNumber, &DonneesProfil::carteIdentite);
    champTexte(forme, QStringLiteral("No Permis de conduire"), QStringLiteral("champPermis"),
               &Profil::saveDrivingLicenceNumber, &DonneesProfil::permisConduire);

    QList<QPair<QString, int>> emplois;
    const QStringList libelles = m_profil->tousLesEmplois();
    for (int i = 0; i < libelles.size(); ++i)
        emplois << qMakePair(libelles[i], i + 1);
    champChoix(forme, QStringLiteral("Emploi"), QStringLiteral("champEmploi"), emplois, &Profil::saveJobId,
               &DonneesProfil::emploiId);
    champTexte(forme, QStringLiteral("Identifiant Pôle Emploi"), QStringLiteral("champIdentifiantPe"),
               &Profil::savePeId, &DonneesProfil::identifiantAssedic);
    champTexte(forme, QStringLiteral("Mot de passe Pôle Emploi"), QStringLiteral("champMotDePassePe"),
               &Profil::savePePassword, &DonneesProfil::poleEmploiPassword, true);
    champTexte(forme, QStringLiteral("No Congés Spectacles"), QStringLiteral("champCongesSpectacles"),
               &Profil::saveCsNumber, &DonneesProfil::congesSpectacles);
    champTexte(forme, QStringLiteral("Mot de passe Congés Spectacles"), QStringLiteral("champMotDePasseCs"),
               &Profil::saveCsPassword, &DonneesProfil::congesPassword, true);
    champTexte(forme, QStringLiteral("No Guso"), QStringLiteral("champGuso"), &Profil::saveGusoId,
               &DonneesProfil::guso);
    champTexte(forme, QStringLiteral("No Audiens"), QStringLiteral("champAudiens"), &Profil::saveAudiensId,
               &DonneesProfil::audiens);
    champTexte(forme, QStringLiteral("No Sacem"), QStringLiteral("champSacem"), &Profil::saveSacemNumber,
               &DonneesProfil::sacem);

    // The abatement: the list reaches every rate; the box toggles between 0 % and 20 % only.
    m_abattement =
        champChoix(forme, QStringLiteral("Abattement"), QStringLiteral("champAbattement"),
                   {{"0 %", 1}, {"20 %", 2}, {"25 %", 3}}, &Profil::saveFallId, &DonneesProfil::abattementId);
    connect(m_abattement, &QComboBox::activated, this, [this] { majAbattement(m_abattement->currentData().toInt()); });
    m_renoncer = new QCheckBox(QStringLiteral("Je renonce à l'abattement pour frais professionnels"), page);
    m_renoncer->setObjectName(QStringLiteral("champRenoncerAbattement"));
    forme->addRow(QString(), m_renoncer);
    connect(m_renoncer, &QCheckBox::clicked, this, [this](bool coche) {
        majAbattement(m_profil->renoncerAbattement(coche));
        apresEnregistrement();
    });
    m_chargeurs << [this] { majAbattement(m_profil->donnees().abattementId); };
    return page;
}

QWidget* FenetreProfil::pageBanque()
{
    auto* page = new QWidget(this);
    auto* forme = nouvelleForme(page);
    champTexte(forme, QStringLiteral("Établissement"), QStringLiteral("champRibEtablissement"),
               &Profil::saveRibEstablishment, &DonneesProfil::ribEtablissement);
    champTexte(forme, QStringLiteral("Guichet"), QStringLiteral("champRibGuichet"), &Profil::saveRibDesk,
               &DonneesProfil::ribGuichet);
    champTexte(forme, QStringLiteral("No de compte"), QStringLiteral("champRibCompte"), &Profil::saveRibAccount,
               &DonneesProfil::ribCompte);
    champTexte(forme, QStringLiteral("Clé RIB"), QStringLiteral("champRibCle"), &Profil::saveRibKey,
               &DonneesProfil::ribCle);
    champTexte(forme, QStringLiteral("IBAN"), QStringLiteral("champIban"), &Profil::saveRibIban,
               &DonneesProfil::ribIban);
    return page;
}

QWidget* FenetreProfil::pageAutres()
{
    auto* page = new QWidget(this);
    auto* forme = nouvelleForme(page);
    champChoix(forme, QStringLiteral("Véhicule"), QStringLiteral("champVehicule"),
               {{"Voiture", 1}, {"Moto", 2}, {"Cyclomoteur", 3}}, &Profil::saveVehicleType,
               &DonneesProfil::vehiculeType);
    champChoix(forme, QStringLiteral("Puissance fiscale"), QStringLiteral("champPuissance"),
               {{"Non précisée", 0},
                {"1 CV", 1},
                {"2 CV", 2},
                {"3 CV", 3},
                {"4 CV", 4},
                {"5 CV", 5},
                {"6 CV", 6},
                {"7 CV et plus", 7}},
               &Profil::saveVehiclePower, &DonneesProfil::vehiculePuissance);

    auto* pas = new ChampMontant(page, Limites::kPourcentage);
    pas->setObjectName(QStringLiteral("champPas"));
    pas->setMaximumWidth(140);
    forme->addRow(QStringLiteral("Taux de prélèvement à la source (%)"), pas);
    connect(pas, &QLineEdit::editingFinished, this, [this, pas] {
        const std::optional<double> taux = pas->nombre();
        if (taux && *taux != m_profil->donnees().pas && m_profil->savePas(*taux)) {
            m_profil->donnees().pas = *taux;
            apresEnregistrement();
        }
    });
    m_chargeurs << [this, pas] {
        const QSignalBlocker blocage(pas);
        pas->setValue(m_profil->donnees().pas);
    };
    auto* message = new MessageSaisie(page);
    message->surveiller(pas, QStringLiteral("Taux de prélèvement à la source"));
    forme->addRow(message);

    auto* titre = new QLabel(QStringLiteral("<b>Auto-entreprise</b>"), page);
    forme->addRow(titre);
    champCoche(forme, QStringLiteral("Je suis aussi auto-entrepreneur"), QStringLiteral("champAutoEntrepreneur"),
               &Profil::saveAeFlag, &DonneesProfil::autoEntrepreneurFlag);
    champTexte(forme, QStringLiteral("SIRET"), QStringLiteral("champAeSiret"), &Profil::saveAeSiret,
               &DonneesProfil::aeSiret);
    champTexte(forme, QStringLiteral("Mot de passe"), QStringLiteral("champAeMotDePasse"), &Profil::saveAePassword,
               &DonneesProfil::aePassword, true);
    champChoix(forme, QStringLiteral("Catégorie professionnelle"), QStringLiteral("champAeCategorie"),
               {{"Commerçant", 1}, {"Artisan", 2}, {"Profession libérale", 3}}, &Profil::saveAeCategoryId,
               &DonneesProfil::aeCategoriePro);
    champChoix(forme, QStringLiteral("Déclarations"), QStringLiteral("champAePeriodicite"),
               {{"Mensuelles", 1}, {"Trimestrielles", 3}}, &Profil::saveAePeriodicity,
               &DonneesProfil::autoEntrepreneurPeriode);
    champCoche(forme, QStringLiteral("Versement libératoire de l'impôt sur le revenu"),
               QStringLiteral("champAeLiberatoire"), &Profil::saveAeTaxFlag, &DonneesProfil::aePrelevementLiberatoire);
    return page;
}

} // namespace corvane::app
