#include "app/poleemploi/SectionPoleEmploi.h"

#include "app/ActionsRapport.h"
#include "app/ControleurApplication.h"
#include "app/Environnement.h"
#include "app/kit/ChampDate.h"
#include "app/poleemploi/FenetreVersementsPoleEmploi.h"
#include "app/poleemploi/VueDeclaration.h"
#include "app/poleemploi/VueDroits.h"
#include "exchange/ExportPdf.h"
#include "exchange/RapportSimulation.h"
#include "store/Dialogues.h"
#include "store/Document.h"
#include "store/Horloge.h"
#include "store/Intermittent.h"
#include "store/Reglages.h"
#include "unemployment/Simulation.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace corvane::app {

namespace {

const QString kDebut = QStringLiteral("simulation_debut");
const QString kFin = QStringLiteral("simulation_fin");

QComboBox* liste(QWidget* parent, const QString& nom, const QStringList& entrees)
{
    auto* combo = new QComboBox(parent);
    combo->setObjectName(nom);
    combo->addItems(entrees);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    return combo;
}

} // namespace

SectionPoleEmploi::SectionPoleEmploi(Environnement& environnement, QWidget* parent)
    : PageSection(Section::PoleEmploi, parent), m_environnement(environnement)
{
    m_mode = liste(this, QStringLiteral("choixModeDroits"),
                   {QStringLiteral("Simulation des droits"), QStringLiteral("Analyse de la période en cours"),
                    QStringLiteral("Déclaration mensuelle")});
    m_plage = new QWidget(this);
    auto* plage = new QHBoxLayout(m_plage);
    plage->setContentsMargins(0, 0, 0, 0);
    m_du = new ChampDate(m_plage);
    m_du->setObjectName(QStringLiteral("simulationDu"));
    m_au = new ChampDate(m_plage);
    m_au->setObjectName(QStringLiteral("simulationAu"));
    m_contrats = liste(
        m_plage, QStringLiteral("choixContratsDroits"),
        {QStringLiteral("Tous les contrats"), QStringLiteral("Contrats effectués"), QStringLiteral("Contrats prévus")});
    plage->addWidget(new QLabel(QStringLiteral("du"), m_plage));
    plage->addWidget(m_du);
    plage->addSpacing(4);
    plage->addWidget(new QLabel(QStringLiteral("au"), m_plage));
    plage->addWidget(m_au);
    plage->addSpacing(12);
    plage->addWidget(m_contrats);
    m_pages = new QStackedWidget(this);
    m_droits = new VueDroits(m_pages);
    m_droits->setObjectName(QStringLiteral("vueDroits"));
    m_declaration = new VueDeclaration(m_pages);
    m_declaration->setObjectName(QStringLiteral("vueDeclaration"));
    m_pages->addWidget(m_droits);
    m_pages->addWidget(m_declaration);

    // One row of choices: the range and the contracts, or the month declared.
    auto* ligne1 = new QHBoxLayout;
    ligne1->addWidget(new QLabel(QStringLiteral("Calcul :"), this));
    ligne1->addWidget(m_mode);
    ligne1->addSpacing(8);
    ligne1->addWidget(m_plage);
    ligne1->addWidget(m_declaration->choix());
    ligne1->addStretch(1);
    contenu()->addLayout(ligne1);

    m_indemnites =
        new QCheckBox(QStringLiteral("Ajouter les indemnités journalières de la Sécurité Sociale aux salaires"), this);
    m_indemnites->setObjectName(QStringLiteral("caseIndemnitesJournalieres"));
    m_calculer = new QPushButton(QStringLiteral("Calculer"), this);
    m_calculer->setObjectName(QStringLiteral("boutonCalculerDroits"));
    m_calculer->setDefault(true);
    auto* ligne2 = new QHBoxLayout;
    ligne2->addWidget(m_indemnites);
    ligne2->addStretch(1);
    ligne2->addWidget(m_calculer);
    contenu()->addLayout(ligne2);

    contenu()->addWidget(m_pages, 1);

    auto* bas = new QHBoxLayout;
    auto* versements = new QPushButton(QStringLiteral("Versements Pôle Emploi…"), this);
    versements->setObjectName(QStringLiteral("boutonVersements"));
    bas->addWidget(versements);
    bas->addStretch(1);
    // The report is the one on screen, computed again from the choices shown.
    ajouterBoutonsRapport(
        bas, this, m_environnement,
        [this] {
            const DemandeDroits d = demande();
            const ChoixRapportDroits choix = ChoixRapportDroits::depuis(m_environnement.reglages);
            const QString document = cheminDuFichier();
            return RapportEcran{
                document, nomRapportDroits(d.analyse, Horloge::aujourdhui()), ExportPdf::titreAlertes(),
                [document, choix, d](Rapport& rapport) { return composerRapportDroits(rapport, document, choix, d); }};
        },
        QStringLiteral("PoleEmploi"));
    m_imprimer = findChild<QPushButton*>(QStringLiteral("boutonImprimerPoleEmploi"));
    m_exporter = findChild<QPushButton*>(QStringLiteral("boutonExporterPdfPoleEmploi"));
    contenu()->addLayout(bas);

    m_du->setDate(Horloge::aujourdhui());
    m_au->setDate(Horloge::aujourdhui());
    connect(m_mode, &QComboBox::activated, this, &SectionPoleEmploi::modeChange);
    connect(m_calculer, &QPushButton::clicked, this, &SectionPoleEmploi::calculer);
    connect(versements, &QPushButton::clicked, this, &SectionPoleEmploi::ouvrirVersements);
    modeChange();
}

QSet<QString> SectionPoleEmploi::tablesLues() const
{
    // The contracts and what they count with, sickness records, the profile (job, opening of
    // rights, postcode) and the current period.
    return {"contrats", "employeurs", "abattements", "securitesociale", "utilisateur", "periodes", "emplois"};
}

SectionPoleEmploi::Mode SectionPoleEmploi::mode() const
{
    return Mode(m_mode->currentIndex());
}

void SectionPoleEmploi::choisirMode(Mode mode)
{
    m_mode->setCurrentIndex(mode);
    modeChange();
}

DemandeDroits SectionPoleEmploi::demande() const
{
    DemandeDroits d;
    d.analyse = mode() == Analyse;
    d.du = m_du->date();
    d.au = m_au->date();
    d.contrats = m_contrats->currentIndex();
    d.indemnitesJournalieres = m_indemnites->isChecked();
    return d;
}

void SectionPoleEmploi::recharger()
{
    if (document() != m_documentAffiche) {
        // Another document: its remembered dates, and the month to declare now.
        m_documentAffiche = document();
        m_declaration->setDocument(document());
        m_declaration->choisirMoisADeclarer(m_environnement.reglages.entier(Reglages::Cle::AlerteActualisationDebut),
                                            m_environnement.reglages.entier(Reglages::Cle::AlerteActualisationFin));
        m_debutSimulation = m_finSimulation = Horloge::aujourdhui();
        if (document() && document()->estOuvert()) {
            Intermittent dates(document()->base());
            const QDate debut = dates.retrouveDatePreferee(kDebut).date();
            const QDate fin = dates.retrouveDatePreferee(kFin).date();
            if (debut.isValid() && fin.isValid()) {
                m_debutSimulation = debut;
                m_finSimulation = fin;
            }
        }
        if (mode() == Simulation) {
            m_du->setDate(m_debutSimulation);
            m_au->setDate(m_finSimulation);
        }
    }
    lancer();
}

void SectionPoleEmploi::modeChange()
{
    const Mode nouveau = mode();
    // The simulation's own dates come back when the analysis leaves.
    if (m_modeAffiche == Simulation && nouveau != Simulation) {
        m_debutSimulation = m_du->date();
        m_finSimulation = m_au->date();
    } else if (m_modeAffiche != Simulation && nouveau == Simulation) {
        m_du->setDate(m_debutSimulation);
        m_au->setDate(m_finSimulation);
    }
    m_modeAffiche = nouveau;

    const bool simulation = nouveau == Simulation;
    // The month declared is computed as soon as it is chosen: nothing else to set.
    m_plage->setVisible(nouveau != Declaration);
    m_declaration->choix()->setVisible(nouveau == Declaration);
    m_indemnites->setVisible(nouveau != Declaration);
    m_calculer->setVisible(nouveau != Declaration);
    // The analysis looks at the current reference period, on carried-out contracts only.
    m_du->setEnabled(simulation);
    m_au->setEnabled(simulation);
    m_contrats->setEnabled(simulation);
    m_pages->setCurrentWidget(nouveau == Declaration ? static_cast<QWidget*>(m_declaration) : m_droits);
    // Only the rights have a printed report.
    for (QPushButton* b : {m_imprimer, m_exporter})
        if (b)
            b->setEnabled(nouveau != Declaration);
    if (isVisible())
        lancer();
}

void SectionPoleEmploi::calculer()
{
    if (mode() == Simulation) {
        if (m_au->date() < m_du->date()) {
            m_environnement.dialogues.information(titreRapportDroits(false),
                                                  QStringLiteral("La date de fin de la simulation ne peut pas "
                                                                 "précéder sa date de début."),
                                                  QStringLiteral("Fermer"));
            return;
        }
        m_debutSimulation = m_du->date();
        m_finSimulation = m_au->date();
        if (document() && document()->estOuvert()) {
            Intermittent dates(document()->base());
            dates.enregistreDatePreferee(kDebut, m_debutSimulation);
            dates.enregistreDatePreferee(kFin, m_finSimulation);
        }
    }
    lancer();
}

void SectionPoleEmploi::lancer()
{
    if (mode() == Declaration) {
        m_declaration->calculer();
        return;
    }
    if (!document() || !document()->estOuvert()) {
        m_droits->afficherMessage(ControleurApplication::messageSansDocument());
        return;
    }
    const DemandeDroits d = demande();
    corvane::Simulation simulation(document()->base(), d.du, d.au);
    const IssueDroits issue = lanceDemande(simulation, d);
    switch (issue) {
    case IssueDroits::Calculee:
        m_droits->afficher(simulation);
        if (d.analyse) {
            // The analysis shows the period it looked at.
            m_du->setDate(simulation.dateDebut);
            m_au->setDate(simulation.dateFin);
        }
        break;
    case IssueDroits::SansProtocole:
        // Nothing before April 2007: the screen stays as it was, on purpose.
        break;
    case IssueDroits::AucunContrat:
    case IssueDroits::SansPeriode:
        m_droits->afficherMessage(messageIssue(issue, d));
        break;
    }
}

void SectionPoleEmploi::ouvrirVersements()
{
    if (!document() || !document()->estOuvert()) {
        m_environnement.dialogues.information(FenetreVersementsPoleEmploi::titre(), ControleurApplication::messageSansDocument(),
                                              QStringLiteral("Fermer"));
        return;
    }
    auto* fenetre = new FenetreVersementsPoleEmploi(m_environnement, *document(), this);
    fenetre->setAttribute(Qt::WA_DeleteOnClose);
    fenetre->open();
}

} // namespace corvane::app
