#include "app/fiscalite/FenetreAutoEntrepreneur.h"

#include "app/Environnement.h"
#include "app/SitesInternet.h"
#include "app/kit/Raccourcis.h"
#include "records/Profil.h"
#include "store/Document.h"
#include "store/Reglages.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace corvane::app {

const QList<QPair<QString, int>>& FenetreAutoEntrepreneur::categories()
{
    static const QList<QPair<QString, int>> liste{
        {QStringLiteral("Commerçant"), 1}, {QStringLiteral("Artisan"), 2}, {QStringLiteral("Profession libérale"), 3}};
    return liste;
}

const QList<QPair<QString, int>>& FenetreAutoEntrepreneur::periodicites()
{
    static const QList<QPair<QString, int>> liste{{QStringLiteral("Mensuelles"), 1},
                                                  {QStringLiteral("Trimestrielles"), 3}};
    return liste;
}

FenetreAutoEntrepreneur::FenetreAutoEntrepreneur(Environnement& environnement, Document* document, QWidget* parent)
    : QDialog(parent), m_environnement(environnement)
{
    setObjectName(QStringLiteral("fenetreAutoEntrepreneur"));
    setWindowTitle(QStringLiteral("Auto-entrepreneur"));
    if (document && document->estOuvert())
        m_profil = std::make_unique<Profil>(document->base());

    auto* mise = new QVBoxLayout(this);
    auto* explication = new QLabel(QStringLiteral("Vos réglages de micro-entrepreneur. L'écran Fiscalité en tire les "
                                                  "charges sociales à payer sur votre chiffre d'affaires."),
                                   this);
    explication->setWordWrap(true);
    mise->addWidget(explication);
    auto* forme = new QFormLayout;
    mise->addLayout(forme);
    Profil* p = m_profil.get();
    auto donnees = [p]() -> DonneesProfil& { return p->donnees(); };

    ajouterCoche(
        forme, QStringLiteral("Je suis aussi auto-entrepreneur"), QStringLiteral("caseAutoEntrepreneur"),
        [p](int v) { return p->saveAeFlag(v); }, [donnees] { return donnees().autoEntrepreneurFlag; });
    ajouterChoix(
        forme, QStringLiteral("Catégorie professionnelle"), QStringLiteral("choixCategorieAE"), categories(),
        [p](int v) { return p->saveAeCategoryId(v); }, [donnees] { return donnees().aeCategoriePro; });
    QList<QPair<QString, int>> activites;
    if (p) {
        Requete r(p->db(),
                  QStringLiteral("SELECT aea_id, aea_activite FROM autoentrepreneuractivites ORDER BY aea_id;"));
        while (r.suivante())
            activites << qMakePair(r.texte(1), int(r.entier(0)));
    }
    ajouterChoix(
        forme, QStringLiteral("Activité"), QStringLiteral("choixActiviteAE"), activites,
        [p](int v) { return p->saveAeActivity(v); }, [donnees] { return donnees().aeActivite; });
    ajouterChoix(
        forme, QStringLiteral("Déclarations"), QStringLiteral("choixPeriodiciteAE"), periodicites(),
        [p](int v) { return p->saveAePeriodicity(v); }, [donnees] { return donnees().autoEntrepreneurPeriode; });
    ajouterCoche(
        forme, QStringLiteral("Versement libératoire de l'impôt sur le revenu"), QStringLiteral("caseLiberatoireAE"),
        [p](int v) { return p->saveAeTaxFlag(v); }, [donnees] { return donnees().aePrelevementLiberatoire; });
    ajouterTexte(
        forme, QStringLiteral("SIRET"), QStringLiteral("champSiretAE"), false,
        [p](const QString& t) { return p->saveAeSiret(t); }, [donnees] { return donnees().aeSiret; });
    ajouterTexte(
        forme, QStringLiteral("Mot de passe du site"), QStringLiteral("champMotDePasseAE"), true,
        [p](const QString& t) { return p->saveAePassword(t); }, [donnees] { return donnees().aePassword; });

    auto* site = new QHBoxLayout;
    auto* ouvrir = new QPushButton(QStringLiteral("Déclarer en ligne…"), this);
    ouvrir->setObjectName(QStringLiteral("boutonSiteAutoEntrepreneurProfil"));
    ouvrir->setAutoDefault(false);
    ouvrir->setToolTip(QStringLiteral("Ouvre le site des déclarations dans votre navigateur"));
    auto* copier = new QPushButton(QStringLiteral("Copier le SIRET"), this);
    copier->setObjectName(QStringLiteral("boutonCopierSiret"));
    copier->setAutoDefault(false);
    site->addWidget(ouvrir);
    site->addWidget(copier);
    site->addStretch(1);
    mise->addLayout(site);
    auto* note = new QLabel(QStringLiteral("Le site s'ouvre dans votre navigateur ; Corvane ne lui transmet ni votre "
                                           "SIRET ni votre mot de passe."),
                            this);
    note->setWordWrap(true);
    note->setEnabled(false);
    mise->addWidget(note);

    auto* boutons = new QDialogButtonBox(this);
    auto* fermer = boutons->addButton(QStringLiteral("Fermer"), QDialogButtonBox::AcceptRole);
    fermer->setObjectName(QStringLiteral("boutonFermerAutoEntrepreneur"));
    fermer->setAutoDefault(false);
    connect(boutons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    mise->addWidget(boutons);

    connect(ouvrir, &QPushButton::clicked, this,
            [this] { ouvrirSite(m_environnement, Reglages::Cle::AutoEntrepreneurSiteInternet, windowTitle()); });
    connect(copier, &QPushButton::clicked, this, [this] {
        if (m_profil)
            QApplication::clipboard()->setText(m_profil->donnees().aeSiret.trimmed());
    });
    attribuerRaccourcis(this, QString());
    recharger();
    setEnabled(m_profil != nullptr);
}

FenetreAutoEntrepreneur::~FenetreAutoEntrepreneur() = default;

void FenetreAutoEntrepreneur::recharger()
{
    if (!m_profil || !m_profil->initDepuisLaTableV4())
        return;
    for (const auto& charger : m_chargeurs)
        charger();
}

void FenetreAutoEntrepreneur::ajouterChoix(QFormLayout* forme, const QString& libelle, const QString& nom,
                                           const QList<QPair<QString, int>>& choix, std::function<bool(int)> sauvegarde,
                                           std::function<int()> valeur)
{
    auto* liste = new QComboBox(this);
    liste->setObjectName(nom);
    for (const auto& [texte, id] : choix)
        liste->addItem(texte, id);
    forme->addRow(libelle, liste);
    connect(liste, &QComboBox::activated, this, [this, liste, sauvegarde] {
        if (m_profil && sauvegarde(liste->currentData().toInt()))
            recharger();
    });
    m_chargeurs << [liste, valeur] {
        const QSignalBlocker blocage(liste);
        liste->setCurrentIndex(liste->findData(valeur()));
    };
}

void FenetreAutoEntrepreneur::ajouterTexte(QFormLayout* forme, const QString& libelle, const QString& nom, bool secret,
                                           std::function<bool(const QString&)> sauvegarde,
                                           std::function<QString()> valeur)
{
    auto* edition = new QLineEdit(this);
    edition->setObjectName(nom);
    if (secret)
        edition->setEchoMode(QLineEdit::PasswordEchoOnEdit);
    forme->addRow(libelle, edition);
    // Written when the field is left with a new text.
    connect(edition, &QLineEdit::editingFinished, this, [this, edition, sauvegarde, valeur] {
        if (m_profil && edition->text() != valeur() && sauvegarde(edition->text()))
            recharger();
    });
    m_chargeurs << [edition, valeur] {
        const QSignalBlocker blocage(edition);
        edition->setText(valeur());
    };
}

void FenetreAutoEntrepreneur::ajouterCoche(QFormLayout* forme, const QString& texte, const QString& nom,
                                           std::function<bool(int)> sauvegarde, std::function<int()> valeur)
{
    auto* coche = new QCheckBox(texte, this);
    coche->setObjectName(nom);
    forme->addRow(QString(), coche);
    connect(coche, &QCheckBox::clicked, this, [this, sauvegarde](bool c) {
        if (m_profil && sauvegarde(c ? 1 : 0))
            recharger();
    });
    m_chargeurs << [coche, valeur] {
        const QSignalBlocker blocage(coche);
        coche->setChecked(valeur() != 0);
    };
}

} // namespace corvane::app
