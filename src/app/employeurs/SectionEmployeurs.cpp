#include "app/employeurs/SectionEmployeurs.h"

#include "app/ActionsRapport.h"
#include "app/Environnement.h"
#include "app/FenetreTrajets.h"
#include "app/MemoireColonnes.h"
#include "app/employeurs/CarteEmployeur.h"
#include "app/employeurs/CumulsEmployeurs.h"
#include "app/employeurs/FenetreModeles.h"
#include "app/employeurs/ModeleEmployeurs.h"
#include "app/employeurs/PanneauEmployeur.h"
#include "exchange/ExportPdf.h"
#include "exchange/RapportsEnregistrements.h"
#include "records/Employeurs.h"
#include "store/Dialogues.h"
#include "store/Document.h"
#include "store/Reglages.h"

#include <QAction>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QSortFilterProxyModel>
#include <QSplitter>
#include <QTabWidget>
#include <QTableView>

namespace corvane::app {

namespace {

const QString kTitre = QStringLiteral("Gestion des employeurs");
const QString kSansDocument =
    QStringLiteral("Avant toute nouvelle opération, il est nécessaire de créer un nouveau fichier, ou d'en ouvrir un.");

QPushButton* bouton(QWidget* parent, const QString& texte, const QString& nom)
{
    auto* b = new QPushButton(texte, parent);
    b->setObjectName(nom);
    return b;
}

} // namespace

SectionEmployeurs::SectionEmployeurs(Environnement& environnement, QWidget* parent)
    : PageSection(Section::Employeurs, parent), m_environnement(environnement)
{
    auto* barre = new QHBoxLayout;
    auto* nouveau = bouton(this, QStringLiteral("Nouvel employeur"), QStringLiteral("boutonNouvelEmployeur"));
    auto* importer = bouton(this, QStringLiteral("Importer…"), QStringLiteral("boutonImporterEmployeurs"));
    auto* modeles = bouton(this, QStringLiteral("Modèles de contrat…"), QStringLiteral("boutonModeles"));
    m_nombre = new QLabel(this);
    m_nombre->setObjectName(QStringLiteral("nombreEmployeurs"));
    barre->addWidget(nouveau);
    barre->addWidget(importer);
    barre->addWidget(modeles);
    auto* trajets = bouton(this, QStringLiteral("Trajets…"), QStringLiteral("boutonTrajets"));
    trajets->setToolTip(QStringLiteral("L'itinéraire de votre domicile à cet employeur"));
    barre->addWidget(trajets);
    barre->addStretch(1);
    barre->addWidget(m_nombre);
    ajouterBoutonsRapport(
        barre, this, m_environnement,
        [this] {
            const QString document = cheminDuFichier();
            const ChoixImpressions choix = ChoixImpressions::depuis(m_environnement.reglages);
            return RapportEcran{
                document, nomRapportEmployeurs(), ExportPdf::titreAlertes(),
                [document, choix](Rapport& rapport) { return composerRapportEmployeurs(rapport, document, choix); }};
        },
        QStringLiteral("Employeurs"));
    contenu()->addLayout(barre);

    auto* partage = new QSplitter(Qt::Horizontal, this);
    m_modele = new ModeleEmployeurs(this);
    m_tri = new QSortFilterProxyModel(this);
    m_tri->setSourceModel(m_modele);
    m_tri->setSortLocaleAware(true);
    m_tri->setSortCaseSensitivity(Qt::CaseInsensitive);
    m_liste = new QTableView(partage);
    m_liste->setObjectName(QStringLiteral("listeEmployeurs"));
    m_liste->setModel(m_tri);
    m_liste->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_liste->setSelectionMode(QAbstractItemView::SingleSelection);
    m_liste->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_liste->verticalHeader()->hide();
    m_liste->setSortingEnabled(true);
    m_liste->sortByColumn(ModeleEmployeurs::Enseigne, Qt::AscendingOrder);
    m_liste->horizontalHeader()->setStretchLastSection(true);
    memoriserColonnes(m_liste, m_environnement.reglages, Reglages::Cle::EmployeursColonnes);
    auto* effacer = new QAction(QStringLiteral("Supprimer"), m_liste);
    effacer->setShortcut(QKeySequence::Delete);
    effacer->setShortcutContext(Qt::WidgetShortcut);
    m_liste->addAction(effacer);
    connect(effacer, &QAction::triggered, this, &SectionEmployeurs::supprimer);

    auto* onglets = new QTabWidget(partage);
    onglets->setObjectName(QStringLiteral("ongletsEmployeur"));
    m_panneau = new PanneauEmployeur(environnement);
    auto* defilement = new QScrollArea;
    defilement->setWidgetResizable(true);
    defilement->setFrameShape(QFrame::NoFrame);
    defilement->setWidget(m_panneau);
    onglets->addTab(defilement, QStringLiteral("Fiche"));
    m_cumuls = new CumulsEmployeurs;
    onglets->addTab(m_cumuls, QStringLiteral("Cumuls"));
    m_carte = new CarteEmployeur(environnement);
    onglets->addTab(m_carte, QStringLiteral("Carte"));
    partage->addWidget(m_liste);
    partage->addWidget(onglets);
    partage->setStretchFactor(0, 3);
    partage->setStretchFactor(1, 2);
    // The list gets what the form's short fields leave.
    partage->setSizes({520, 480});
    contenu()->addWidget(partage, 1);

    connect(nouveau, &QPushButton::clicked, this, &SectionEmployeurs::nouvelEmployeur);
    connect(importer, &QPushButton::clicked, this, &SectionEmployeurs::importer);
    connect(modeles, &QPushButton::clicked, this, &SectionEmployeurs::gererModeles);
    connect(trajets, &QPushButton::clicked, this, &SectionEmployeurs::ouvrirTrajets);
    connect(m_panneau, &PanneauEmployeur::enregistrementDemande, this, &SectionEmployeurs::enregistrer);
    connect(m_panneau, &PanneauEmployeur::suppressionDemandee, this, &SectionEmployeurs::supprimer);
    connect(m_liste->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &SectionEmployeurs::selectionChangee);
    connect(m_modele, &QAbstractItemModel::dataChanged, this, [this] { selectionChangee(); });
}

SectionEmployeurs::~SectionEmployeurs() = default;

QSet<QString> SectionEmployeurs::tablesLues() const
{
    // The list, the form's choices, and each employer's totals and chart.
    return {"employeurs", "contrats", "contratsmodeles", "qualites"};
}

void SectionEmployeurs::recharger()
{
    if (document() != m_documentAffiche) {
        m_documentAffiche = document();
        m_modele->setEmployeurs(nullptr);
        m_employeurs.reset(document() && document()->estOuvert() ? new Employeurs(document()->base()) : nullptr);
        m_panneau->setDocument(document());
        afficherListe(0);
        return;
    }
    afficherListe(idSelectionne());
}

bool SectionEmployeurs::documentOuvert()
{
    if (m_employeurs)
        return true;
    m_environnement.dialogues.information(kTitre, kSansDocument, QStringLiteral("Fermer"));
    return false;
}

void SectionEmployeurs::afficherListe(int idASelectionner)
{
    m_modele->setEmployeurs(m_employeurs.get());
    const int nombre = m_modele->rowCount();
    m_nombre->setText(nombre > 1 ? QStringLiteral("%1 employeurs").arg(nombre)
                                 : QStringLiteral("%1 employeur").arg(nombre));
    m_cumuls->afficherGraphique(m_employeurs.get());
    if (idASelectionner != 0)
        selectionner(idASelectionner);
    else if (m_tri->rowCount() > 0)
        m_liste->selectRow(0);
    else {
        m_panneau->vider();
        m_carte->vider();
    }
    majCumuls();
}

int SectionEmployeurs::idSelectionne() const
{
    const QModelIndexList lignes = m_liste->selectionModel()->selectedRows();
    if (lignes.isEmpty())
        return 0;
    return m_modele->idDeLaLigne(m_tri->mapToSource(lignes.first()).row());
}

void SectionEmployeurs::selectionner(int id)
{
    const int rangee = m_modele->rangeeDeLId(id);
    if (rangee < 0)
        return;
    const QModelIndex index = m_tri->mapFromSource(m_modele->index(rangee, ModeleEmployeurs::Enseigne));
    m_liste->selectRow(index.row());
    m_liste->scrollTo(index);
}

void SectionEmployeurs::selectionChangee()
{
    const QModelIndexList lignes = m_liste->selectionModel()->selectedRows();
    if (lignes.isEmpty()) {
        m_panneau->vider();
        m_carte->vider();
    } else {
        const Employeur employeur = Employeurs::depuisLigne(m_modele->ligne(m_tri->mapToSource(lignes.first()).row()));
        m_panneau->afficher(employeur);
        m_carte->afficher(employeur);
    }
    majCumuls();
}

void SectionEmployeurs::majCumuls()
{
    const int id = idSelectionne();
    const int rangee = m_modele->rangeeDeLId(id);
    m_cumuls->afficherCumuls(m_employeurs.get(), id,
                             rangee < 0 ? QString() : m_modele->ligne(rangee).value("Enseigne").toString());
}

void SectionEmployeurs::nouvelEmployeur()
{
    if (!documentOuvert())
        return;
    m_liste->clearSelection();
    m_panneau->vider();
    if (QWidget* premier = m_panneau->findChild<QWidget*>(QStringLiteral("champEnseigne")))
        premier->setFocus();
}

void SectionEmployeurs::enregistrer()
{
    if (!documentOuvert())
        return;
    Employeur employeur = m_panneau->saisie();
    const QString refus = m_employeurs->refusEnregistrement(employeur);
    if (!refus.isEmpty()) {
        m_environnement.dialogues.information(kTitre, refus, QStringLiteral("Fermer"));
        return;
    }
    if (employeur.id == 0) {
        employeur.id = m_employeurs->enregistreEmployeur(employeur);
        if (employeur.id == 0)
            return;
    } else {
        m_employeurs->modifieEmployeur(employeur);
    }
    m_employeurs->enregistreComplements(employeur);
    afficherListe(employeur.id);
    ignorerProchainesModifications();
}

void SectionEmployeurs::supprimer()
{
    if (!documentOuvert())
        return;
    const int id = m_panneau->idAffiche();
    if (id == 0)
        return;
    // With contracts, the question of the two paths is the confirmation.
    if (m_employeurs->compteLesContrats(id) == 0 && m_environnement.reglages.booleen(Reglages::Cle::DeleteAlerts)) {
        const QString reponse = m_environnement.dialogues.question(
            kTitre,
            QStringLiteral("Souhaitez-vous supprimer l'employeur « %1 » ?").arg(m_panneau->saisie().raisonSociale),
            {QStringLiteral("Supprimer"), QStringLiteral("Annuler")});
        if (reponse != QStringLiteral("Supprimer"))
            return;
    }
    if (m_employeurs->supprimeEmployeurAvecVerification(id, m_environnement.dialogues)) {
        afficherListe(0);
        ignorerProchainesModifications();
    }
}

void SectionEmployeurs::importer()
{
    if (!documentOuvert())
        return;
    const QString source = m_environnement.dialogues.choisirFichierAOuvrir(
        Employeurs::titreImport(), QFileInfo(cheminDuFichier()).absolutePath(), {"cv4", "or3"});
    if (source.isEmpty())
        return;
    QString refus;
    const int nombre = m_employeurs->importeEmployeursDepuis(source, &refus);
    if (nombre < 0) {
        m_environnement.dialogues.information(Employeurs::titreImport(), refus, QStringLiteral("Fermer"));
        return;
    }
    afficherListe(idSelectionne());
    ignorerProchainesModifications();
    m_environnement.dialogues.information(
        Employeurs::titreImport(),
        nombre == 0   ? QStringLiteral("Aucun nouvel employeur : ils sont tous déjà dans ce fichier.")
        : nombre == 1 ? QStringLiteral("Un employeur a été importé.")
                      : QStringLiteral("%1 employeurs ont été importés.").arg(nombre),
        QStringLiteral("Fermer"));
}

void SectionEmployeurs::gererModeles()
{
    if (!documentOuvert())
        return;
    auto* fenetre = new FenetreModeles(m_environnement, *document(), this);
    fenetre->setAttribute(Qt::WA_DeleteOnClose);
    fenetre->open();
}

void SectionEmployeurs::ouvrirTrajets()
{
    FenetreTrajets::ouvrir(m_environnement, m_employeurs ? document() : nullptr, idSelectionne(), this);
}

} // namespace corvane::app
