#include "app/tableaudebord/SectionTableauDeBord.h"

#include "app/Environnement.h"
#include "app/tableaudebord/GraphiqueNets.h"
#include "app/tableaudebord/Jauges.h"
#include "app/tableaudebord/ModeleActivite.h"
#include "exchange/ExportPdf.h"
#include "exchange/RapportTableauDeBord.h"
#include "exchange/RapportsEnregistrements.h"
#include "regimes/TableauDeBord.h"
#include "store/Document.h"
#include "store/FormatFrancais.h"
#include "store/Horloge.h"
#include "store/Reglages.h"

#include <QEvent>
#include <QLabel>
#include <QTimer>
#include <QToolButton>

#include <algorithm>

namespace corvane::app {

using Cle = Reglages::Cle;

namespace {

bool estMontant(const QString& cle)
{
    return cle == QStringLiteral("Bruts") || cle == QStringLiteral("Net imposable") || cle == QStringLiteral("Net") ||
           cle == QStringLiteral("Pôle Emploi");
}

// The text in `couleur`; an invalid colour gives the widget back its parent's palette.
void colorer(QWidget* widget, const QColor& couleur)
{
    if (!couleur.isValid()) {
        widget->setPalette(QPalette());
        return;
    }
    QPalette p;
    p.setColor(QPalette::WindowText, couleur);
    widget->setPalette(p);
}

} // namespace

const QStringList& SectionTableauDeBord::clesAffichees()
{
    static const QStringList cles{"Jours", "Heures",      "Bruts",    "Net imposable",
                                  "Net",   "Pôle Emploi", "Jours SS", "Jours suspendus"};
    return cles;
}

const QStringList& SectionTableauDeBord::libellesStatistiques()
{
    static const QStringList libelles{QStringLiteral("Ce mois-ci"), QStringLiteral("Période")};
    return libelles;
}

QSet<QString> SectionTableauDeBord::tablesLues() const
{
    // The figures, the list's names and kinds, and what the periods and the rights are made of.
    return {"contrats", "securitesociale", "assedichistorique", "utilisateur",
            "periodes", "employeurs",      "contratstypes",     "securitesocialetypes"};
}

QString SectionTableauDeBord::statistique(const QString& libelle, const QString& cle) const
{
    const QLabel* valeur = m_statistiques.value(libelle + QLatin1Char('/') + cle);
    return valeur ? valeur->text() : QString();
}

void SectionTableauDeBord::vider()
{
    m_etendue->clear();
    for (QLabel* valeur : std::as_const(m_statistiques)) {
        valeur->clear();
        valeur->setProperty("negatif", false);
    }
    m_heuresManquantes = m_periodeTerminee = false;
    m_proportionHeures = m_proportionPeriode = 0;
    m_jaugeHeures->setValeur(0, QString(), QColor());
    m_jaugePeriode->setValeur(0, QString(), QColor());
    for (QLabel* l : {m_etatHeures, m_ouverture, m_finDroits, m_allocations, m_restants, m_allongement})
        l->clear();
    m_barreDroits->setDates({}, {}, {});
    m_modele->setListe({}, {});
    m_graphique->setListe({}, {});
    m_titreGraphique->setText(m_graphique->titre());
    appliquerCouleurs();
}

void SectionTableauDeBord::recharger()
{
    m_jour = Horloge::aujourdhui();
    programmerMinuit();
    Document* doc = document();
    if (!doc || !doc->estOuvert()) {
        vider();
        return;
    }
    TableauDeBord_v4 tdb(doc->base());
    tdb.bloquePeriode = m_environnement.reglages.booleen(Cle::TdbBloquePeriode);
    const Table statistiques = tdb.statistiques();
    tdb.droits();
    tdb.periodeDeReference();
    QList<bool> arrets;
    Table liste = tdb.listeContrats(m_environnement.reglages.texte(Cle::TdbSens), &arrets);

    const auto [du, au] = periodeDuTableauDeBord(tdb);
    m_etendue->setText(
        du.isValid() ? QStringLiteral("Période de référence du %1 au %2")
                           .arg(du.toString(QStringLiteral("dd/MM/yyyy")), au.toString(QStringLiteral("dd/MM/yyyy")))
                     : QString());
    for (qsizetype r = 0; r < statistiques.size(); ++r) {
        const QString libelle = statistiques.valeur(r, QStringLiteral("Libellé")).toString();
        for (const QString& cle : clesAffichees()) {
            QLabel* valeur = m_statistiques.value(libelle + QLatin1Char('/') + cle);
            if (!valeur)
                continue;
            const double nombre = statistiques.valeur(r, cle).toDouble();
            valeur->setText(estMontant(cle) ? enEuros(nombre) : enNombre(nombre));
            valeur->setProperty("negatif", estMontant(cle) && valeur->text().startsWith(QLatin1Char('-')));
        }
    }

    m_heuresManquantes = tdb.heuresManquantes;
    m_proportionHeures = tdb.heuresRequises > 0 ? double(tdb.heuresBarre) / tdb.heuresRequises : 1.0;
    m_etatHeures->setText(tdb.dossierValidable);
    m_jaugeHeures->setToolTip(tdb.heuresBarreLbl);

    m_ouverture->setText(tdb.ouvertureDesDroits.isValid() ? tdb.libelleOuverture() : QString());
    m_finDroits->setText(tdb.finDesDroits.isValid() ? tdb.libelleFinDeDroits() : QString());
    // "347 jours d'ARE" over "(56 allocations)", rather than a break inside the parentheses.
    m_allocations->setText(QString(tdb.joursAllocations).replace(QStringLiteral(" ("), QStringLiteral("\n(")));
    m_restants->setText(tdb.joursRestants);
    m_barreDroits->setDates(tdb.ouvertureDesDroits, tdb.finDesDroits, m_jour);

    m_periodeTerminee = tdb.periodeTerminee;
    m_proportionPeriode = tdb.periodeTerminee || tdb.joursDeLaPeriode <= 0
                              ? (tdb.periodeTerminee ? 1.0 : 0.0)
                              : double(tdb.joursEcoules) / tdb.joursDeLaPeriode;
    m_allongement->setText(tdb.allongementLbl);

    m_modele->setListe(liste, arrets);
    m_graphique->setListe(liste, arrets);
    m_titreGraphique->setText(m_graphique->titre());
    // The gauges' texts with their colours.
    m_jaugeHeures->setValeur(m_proportionHeures, tdb.jaugeHeures(), QColor());
    m_jaugePeriode->setValeur(m_proportionPeriode, tdb.periodeReferenceLbl, QColor());
    appliquerCouleurs();
}

void SectionTableauDeBord::appliquerCouleurs()
{
    const QPalette& p = palette();
    const QColor negatifs =
        CouleursTdb::lisible(QColor(m_environnement.reglages.texte(Cle::CouleursMontantsNegatifs)), p);
    const QColor arrets =
        CouleursTdb::lisible(QColor(m_environnement.reglages.texte(Cle::CouleursSecuriteSocialeTdb)), p);
    const QColor bleu = CouleursTdb::bleuJauge(p);
    // Softer than the figures, on either appearance (the palette's placeholder colour is not).
    QColor discret = p.color(QPalette::WindowText);
    discret.setAlphaF(0.6);
    for (QLabel* l : std::as_const(m_discrets))
        colorer(l, discret);
    for (QLabel* valeur : std::as_const(m_statistiques))
        colorer(valeur, valeur->property("negatif").toBool() ? negatifs : QColor());
    colorer(m_etatHeures, m_heuresManquantes ? negatifs : CouleursTdb::bleu(p));
    m_jaugeHeures->setValeur(m_proportionHeures, m_jaugeHeures->texte(), bleu);
    m_jaugePeriode->setValeur(m_proportionPeriode, m_jaugePeriode->texte(), m_periodeTerminee ? negatifs : bleu);
    m_barreDroits->setCouleur(bleu);
    m_modele->setCouleurs(arrets, negatifs);
}

void SectionTableauDeBord::majTri()
{
    const bool ancienDabord = m_environnement.reglages.texte(Cle::TdbSens) != QStringLiteral("DESC");
    m_tri->setArrowType(ancienDabord ? Qt::UpArrow : Qt::DownArrow);
    m_tri->setText(ancienDabord ? QStringLiteral("Plus anciens d'abord") : QStringLiteral("Plus récents d'abord"));
    m_tri->setToolTip(ancienDabord ? QStringLiteral("Du plus ancien au plus récent (cliquer pour inverser)")
                                   : QStringLiteral("Du plus récent au plus ancien (cliquer pour inverser)"));
}

void SectionTableauDeBord::programmerMinuit()
{
    // A second past midnight, by the program's clock; at worst a day later, never in a loop.
    const QDateTime maintenant = Horloge::maintenant();
    const QDateTime minuit(Horloge::aujourdhui().addDays(1), QTime(0, 0));
    const qint64 attente = std::clamp<qint64>(maintenant.msecsTo(minuit) + 1000, 1000, 25LL * 3600 * 1000);
    m_minuit->start(int(attente));
}

void SectionTableauDeBord::showEvent(QShowEvent* evenement)
{
    // Back after the night (or a sleep the timer slept through): today's figures.
    if (m_jour.isValid() && m_jour != Horloge::aujourdhui())
        perimer();
    PageSection::showEvent(evenement);
}

void SectionTableauDeBord::changeEvent(QEvent* evenement)
{
    PageSection::changeEvent(evenement);
    if (evenement->type() == QEvent::PaletteChange)
        appliquerCouleurs();
}

RapportEcran SectionTableauDeBord::rapport() const
{
    const QString document = cheminDuFichier();
    const ChoixImpressions choix = ChoixImpressions::depuis(m_environnement.reglages);
    const bool bloque = m_environnement.reglages.booleen(Cle::TdbBloquePeriode);
    const QString sens = m_environnement.reglages.texte(Cle::TdbSens);
    return RapportEcran{document, nomRapportTableauDeBord(Horloge::aujourdhui()), ExportPdf::titreAlertes(),
                        [document, choix, bloque, sens](Rapport& r) {
                            return composerRapportTableauDeBord(r, document, choix, bloque, sens);
                        }};
}

} // namespace corvane::app
