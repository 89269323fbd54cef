// The printed summary of the profile ("Relevé d'informations").

#include "exchange/Rapport.h"
#include "exchange/RapportsEnregistrements.h"

#include "records/Profil.h"
#include "store/Horloge.h"
#include "store/Reglages.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>

#include <algorithm>

namespace corvane {

namespace {

// Printed width of the photo, in points (about 4 cm).
constexpr double largeurPhoto = 113;

// A label line, left out when there is nothing to say.
void ligneRenseignee(Rapport& rapport, const QString& libelle, const QString& valeur)
{
    if (!valeur.trimmed().isEmpty())
        rapport.ligne(libelle, valeur.trimmed());
}

QString joindre(const QStringList& morceaux, const QString& separateur)
{
    QStringList pleins;
    for (const QString& m : morceaux)
        if (!m.trimmed().isEmpty())
            pleins << m.trimmed();
    return pleins.join(separateur);
}

// The photo is kept as a path; a relative one is read from the document's folder.
QImage photo(const QString& chemin, const QString& document)
{
    if (chemin.isEmpty())
        return {};
    const QString complet =
        QFileInfo(chemin).isRelative() ? QFileInfo(document).absoluteDir().filePath(chemin) : chemin;
    return QImage(complet);
}

void etatCivil(Rapport& rapport, const DonneesProfil& d)
{
    rapport.section(QStringLiteral("Etat civil"));
    ligneRenseignee(rapport, QStringLiteral("Nom"), d.nom);
    ligneRenseignee(rapport, QStringLiteral("Prénom"), d.prenom);
    ligneRenseignee(rapport, QStringLiteral("Pseudonyme"), d.pseudonyme);
    ligneRenseignee(rapport, QStringLiteral("Nationalité"), d.nationalite);
    // "Né le 14/05/1980 à Lyon" reads as one sentence: no colon here.
    const QString lieu = d.lieuNaissance.trimmed();
    if (d.naissance.isValid())
        rapport.paragraphe(QStringLiteral("Né le %1").arg(d.naissance.toString(QStringLiteral("dd/MM/yyyy"))) +
                           (lieu.isEmpty() ? QString() : QStringLiteral(" à ") + lieu));
    else if (!lieu.isEmpty())
        rapport.paragraphe(QStringLiteral("Né à ") + lieu);
    rapport.ligne(QStringLiteral("Enfants à charge"), QString::number(d.nombreEnfants));
}

void personnelles(Rapport& rapport, const DonneesProfil& d)
{
    rapport.section(QStringLiteral("Informations personnelles"));
    ligneRenseignee(rapport, QStringLiteral("Adresse"),
                    joindre({d.adresse.simplified(), joindre({d.codePostal, d.commune}, QStringLiteral(" ")), d.pays},
                            QStringLiteral(", ")));
    ligneRenseignee(rapport, QStringLiteral("Téléphone"), d.telephone);
    ligneRenseignee(rapport, QStringLiteral("Mobile"), d.telephoneMobile);
    ligneRenseignee(rapport, QStringLiteral("Fax"), d.fax);
    ligneRenseignee(rapport, QStringLiteral("Adresse électronique"), d.email);
}

void administratives(Rapport& rapport, const DonneesProfil& d)
{
    rapport.section(QStringLiteral("Coordonnées administratives"));
    ligneRenseignee(rapport, QStringLiteral("No Carte d'identité"), d.carteIdentite);
    ligneRenseignee(rapport, QStringLiteral("No Permis de conduire"), d.permisConduire);
    ligneRenseignee(rapport, QStringLiteral("No Sécurité Sociale"), d.nir);
    ligneRenseignee(rapport, QStringLiteral("Identifiant Pôle Emploi"), d.identifiantAssedic);
    ligneRenseignee(rapport, QStringLiteral("No Congés Spectacles"), d.congesSpectacles);
    ligneRenseignee(rapport, QStringLiteral("No Guso"), d.guso);
    ligneRenseignee(rapport, QStringLiteral("No Audiens"), d.audiens);
    if (!d.abattement.isEmpty())
        rapport.ligne(QStringLiteral("Abattement"), d.abattement + QStringLiteral("\u00a0%"));
}

void autoEntrepreneur(Rapport& rapport, Profil& profil)
{
    const DonneesProfil& d = profil.donnees();
    rapport.section(QStringLiteral("Auto-entrepreneur"));
    ligneRenseignee(rapport, QStringLiteral("Type d'activité"),
                    profil.db().texte(QStringLiteral("SELECT aea_activite FROM autoentrepreneuractivites WHERE "
                                                     "aea_id = %1;")
                                          .arg(d.aeActivite)));
    ligneRenseignee(rapport, QStringLiteral("SIRET"), d.aeSiret);
}

// The IBAN as it is written on paper: capitals in groups of four ("FR76 3000 6000 …").
QString ibanGroupe(const QString& iban)
{
    QString compact;
    for (const QChar c : iban)
        if (!c.isSpace())
            compact += c.toUpper();
    QStringList groupes;
    for (qsizetype i = 0; i < compact.size(); i += 4)
        groupes << compact.mid(i, 4);
    return groupes.join(QLatin1Char(' '));
}

void releveBancaire(Rapport& rapport, const DonneesProfil& d)
{
    // Without any bank detail there is nothing to print, and no page to start for it.
    const QString iban = ibanGroupe(d.ribIban);
    const QStringList details{d.ribEtablissement, d.ribGuichet, d.ribCompte, d.ribCle, iban};
    if (std::all_of(details.cbegin(), details.cend(), [](const QString& s) { return s.trimmed().isEmpty(); }))
        return;
    rapport.sautDePage();
    rapport.section(QStringLiteral("RELEVE D'IDENTITE BANCAIRE"));
    ligneRenseignee(rapport, QStringLiteral("Titulaire"), joindre({d.civilite, d.prenom, d.nom}, QStringLiteral(" ")));
    ligneRenseignee(rapport, QStringLiteral("Code banque"), d.ribEtablissement);
    ligneRenseignee(rapport, QStringLiteral("Code guichet"), d.ribGuichet);
    ligneRenseignee(rapport, QStringLiteral("No de compte"), d.ribCompte);
    ligneRenseignee(rapport, QStringLiteral("Clé RIB"), d.ribCle);
    if (!iban.isEmpty())
        rapport.paragraphe(QStringLiteral("IBAN %1").arg(iban));
}

} // namespace

ChoixImpressions ChoixImpressions::depuis(const Reglages& reglages)
{
    using Cle = Reglages::Cle;
    ChoixImpressions c;
    c.compteRenduTdb = reglages.booleen(Cle::TdbImpressionsCompteRendu);
    c.jourJTdb = reglages.booleen(Cle::TdbImpressionsJourJ);
    c.listeTdb = reglages.booleen(Cle::TdbImpressionsListeContrats);
    c.joursHeuresTdb = reglages.booleen(Cle::TdbImpressionsJoursHeures);
    c.photo = reglages.booleen(Cle::ProfilImpressionsPhoto);
    c.etatCivil = reglages.booleen(Cle::ProfilImpressionsEtatCivil);
    c.personnelles = reglages.booleen(Cle::ProfilImpressionsPersonnelles);
    c.administratives = reglages.booleen(Cle::ProfilImpressionsAdministratives);
    c.autoEntrepreneur = reglages.booleen(Cle::ProfilImpressionsAe);
    c.rib = reglages.booleen(Cle::ProfilImpressionsRib);
    c.listeEmployeurs = reglages.booleen(Cle::EmployeursImpressionsListe);
    c.cumulsEmployeurs = reglages.booleen(Cle::EmployeursImpressionsCumuls);
    c.listeContrats = reglages.booleen(Cle::ContratsImpressionsListe);
    c.verificationDroits = reglages.booleen(Cle::SecuriteSocialeImpressionsVerificationDroits);
    c.listePeriodes = reglages.booleen(Cle::SecuriteSocialeImpressionsListePeriodes);
    c.congesCompteRendu = reglages.booleen(Cle::CongesImpressionsCompteRendu);
    c.congesListeContrats = reglages.booleen(Cle::CongesImpressionsListeContrats);
    c.fiscaliteCompteRendu = reglages.booleen(Cle::FiscaliteImpressionsCompteRendu);
    c.fiscaliteTotauxEmployeurs = reglages.booleen(Cle::FiscaliteImpressionsTotauxParEmployeurs);
    c.fiscaliteListeContrats = reglages.booleen(Cle::FiscaliteImpressionsListeContrats);
    c.listeFrais = reglages.booleen(Cle::FraisImpressionsListe);
    c.categoriesFrais = reglages.booleen(Cle::FraisImpressionsCategories);
    c.compteRenduDroitsVoisins = reglages.booleen(Cle::DroitsVoisinsImpressionsCompteRendu);
    c.listeVersementsDroitsVoisins = reglages.booleen(Cle::DroitsVoisinsImpressionsListeVersements);
    return c;
}

QString nomDuTitulaire(const DonneesProfil& profil)
{
    return joindre({profil.prenom, profil.nom}, QStringLiteral(" "));
}

QString nomRapportProfil(const QDate& jour)
{
    return QStringLiteral("Relevé d'informations %1 %2 %3").arg(jour.day()).arg(jour.month()).arg(jour.year());
}

bool composerRapportProfil(Rapport& rapport, const QString& document, const ChoixImpressions& choix)
{
    Profil profil(document);
    if (!profil.estOuvert() || !profil.initDepuisLaTableV4())
        return false;
    const DonneesProfil& d = profil.donnees();

    rapport.nommer(nomRapportProfil(Horloge::aujourdhui()));
    rapport.attribuer(nomDuTitulaire(d));
    rapport.titre(QStringLiteral("Relevé d'informations"));
    rapport.separateur();
    if (choix.photo)
        rapport.image(photo(d.photo, document), QStringLiteral("photo"), largeurPhoto);
    if (choix.etatCivil)
        etatCivil(rapport, d);
    if (choix.personnelles)
        personnelles(rapport, d);
    if (choix.administratives)
        administratives(rapport, d);
    // A user who is not self-employed has nothing to show there.
    if (choix.autoEntrepreneur && (d.autoEntrepreneurFlag != 0 || !d.aeSiret.trimmed().isEmpty()))
        autoEntrepreneur(rapport, profil);
    if (choix.rib)
        releveBancaire(rapport, d);
    rapport.ajouteTamponDans(nomDuTitulaire(d));
    return true;
}

} // namespace corvane
