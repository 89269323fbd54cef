// The unemployment screen's report: the rights simulation, or the analysis of the current
// reference period.

#include "exchange/RapportSimulation.h"

#include "exchange/Rapport.h"
#include "exchange/RapportsEnregistrements.h"
#include "records/Profil.h"
#include "store/Dates.h"
#include "store/FormatFrancais.h"
#include "store/Reglages.h"

namespace corvane {

namespace {

// Dark enough to read on paper, and told apart from each other in grey.
const QColor kRouge(0xb0, 0x1c, 0x1c);
const QColor kVert(0x17, 0x6f, 0x2c);

QString descriptionDemande(const DemandeDroits& demande, const Simulation& simulation)
{
    if (demande.analyse)
        return QStringLiteral("Période de référence en cours, contrats effectués");
    static const QStringList contrats{QStringLiteral("tous les contrats"), QStringLiteral("contrats effectués"),
                                      QStringLiteral("contrats prévus")};
    QString texte = QStringLiteral("Du %1 au %2, %3")
                        .arg(Dates::versAffichage(simulation.dateDebut), Dates::versAffichage(simulation.dateFin),
                             contrats.value(demande.contrats));
    if (demande.indemnitesJournalieres)
        texte += QStringLiteral(", indemnités journalières de la Sécurité Sociale ajoutées aux salaires");
    return texte;
}

void compteRendu(Rapport& rapport, const CompteRendu& lignes)
{
    rapport.section(QStringLiteral("Compte rendu"));
    for (const LigneCompteRendu& ligne : lignes) {
        const QColor couleur = ligne.couleur == LigneCompteRendu::Rouge   ? kRouge
                               : ligne.couleur == LigneCompteRendu::Verte ? kVert
                                                                          : QColor(Qt::black);
        // A line of the report is a paragraph; the blank lines between them are the layout's.
        for (const QString& morceau : ligne.texte.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
            rapport.paragraphe(morceau, ligne.gras, couleur);
    }
}

} // namespace

ChoixRapportDroits ChoixRapportDroits::depuis(const Reglages& reglages)
{
    using Cle = Reglages::Cle;
    ChoixRapportDroits c;
    c.compteRendu = reglages.booleen(Cle::PoleEmploiImpressionsCompteRendu);
    c.allocations = reglages.booleen(Cle::PoleEmploiImpressionsAllocations);
    c.periode = reglages.booleen(Cle::PoleEmploiImpressionsPeriode);
    c.heures = reglages.booleen(Cle::PoleEmploiImpressionsHeures);
    return c;
}

QString titreRapportDroits(bool analyse)
{
    return analyse ? QStringLiteral("Analyse des droits") : QStringLiteral("Simulation des droits");
}

QString nomRapportDroits(bool analyse, const QDate& jour)
{
    return QStringLiteral("%1 %2 %3 %4")
        .arg(titreRapportDroits(analyse))
        .arg(jour.day())
        .arg(jour.month())
        .arg(jour.year());
}

const QStringList& colonnesHeuresParEmploi()
{
    static const QStringList colonnes{QStringLiteral("Emploi"), QStringLiteral("Prestations"),
                                      QStringLiteral("Enseignements"), QStringLiteral("Formations")};
    return colonnes;
}

QList<QStringList> heuresParEmploi(const Simulation& s)
{
    static const QStringList emplois{QStringLiteral("Artiste"), QStringLiteral("Ouvrier"),
                                     QStringLiteral("Technicien")};
    QList<QStringList> rangees;
    for (int i = 0; i < int(emplois.size()); ++i)
        rangees << QStringList{emplois.at(i), enEntier(s.tableauHeures[3 * i]), enEntier(s.tableauHeures[3 * i + 1]),
                               enEntier(s.tableauHeures[3 * i + 2])};
    return rangees;
}

QList<LignePeriode> decompteDesHeures(const Simulation& s)
{
    return {
        {QStringLiteral("Enseignements retenus (%1 h au plus)").arg(s.plafondHeuresEnseignement),
         enEntier(s.nbreHeuresEnseignements)},
        {QStringLiteral("Enseignements rejetés"), enEntier(s.nbreHeuresEnseignementsRejetees)},
        {QStringLiteral("Formations retenues (%1 h au plus)").arg(s.plafondHeuresFormations),
         enEntier(s.nbreHeuresFormations)},
        {QStringLiteral("Formations rejetées"), enEntier(s.nbreHeuresFormationsRejetees)},
        {QStringLiteral("Arrêts maladie, maternité, paternité"), enEntier(s.nbreHeuresSecuriteSociale)},
        {QStringLiteral("Total des heures retenues"), enEntier(s.nbreHeures)},
        {QStringLiteral("Heures requises"), enEntier(s.PRA_Palier)},
    };
}

bool composerRapportDroits(Rapport& rapport, const QString& document, const ChoixRapportDroits& choix,
                           const DemandeDroits& demande)
{
    Simulation simulation(document, demande.du, demande.au);
    if (!simulation.estOuvert() || !simulation.db().tableExiste(QStringLiteral("contrats")))
        return false;
    const IssueDroits issue = lanceDemande(simulation, demande);

    const QString titre = titreRapportDroits(demande.analyse);
    rapport.nommer(titre);
    {
        Profil profil(simulation.db());
        if (profil.initDepuisLaTableV4())
            rapport.attribuer(nomDuTitulaire(profil.donnees()));
    }
    rapport.titre(titre);
    rapport.separateur();
    if (issue != IssueDroits::Calculee) {
        if (!demande.analyse)
            rapport.paragraphe(descriptionDemande(demande, simulation));
        rapport.paragraphe(messageIssue(issue, demande));
        return true;
    }
    rapport.paragraphe(descriptionDemande(demande, simulation));

    if (choix.compteRendu)
        compteRendu(rapport, simulation.compteRendu);
    if (choix.allocations && !simulation.tableauAllocations.isEmpty()) {
        rapport.section(QStringLiteral("Allocation journalière"));
        QList<QStringList> lignes;
        for (const LigneAllocation& a : simulation.tableauAllocations)
            lignes << QStringList{a.libelle, Rapport::montant(a.montant)};
        rapport.tableau(
            {ColonneRapport::texte(QStringLiteral("Libellé")), ColonneRapport::montant(QStringLiteral("Montant"), 25)},
            lignes);
    }
    if (choix.periode) {
        rapport.section(QStringLiteral("Période analysée"));
        QList<QStringList> lignes;
        for (const LignePeriode& p : simulation.affichePeriode())
            lignes << QStringList{p.libelle, p.valeur};
        rapport.tableau(
            {ColonneRapport::texte(QStringLiteral("Libellé")), ColonneRapport::montant(QStringLiteral("Valeur"), 25)},
            lignes);
    }
    if (choix.heures) {
        rapport.section(QStringLiteral("Heures par emploi"));
        const QStringList& titres = colonnesHeuresParEmploi();
        rapport.tableau({ColonneRapport::texte(titres.at(0)), ColonneRapport::montant(titres.at(1), 22),
                         ColonneRapport::montant(titres.at(2), 22), ColonneRapport::montant(titres.at(3), 22)},
                        heuresParEmploi(simulation));
        rapport.section(QStringLiteral("Décompte des heures"));
        QList<QStringList> lignes;
        for (const LignePeriode& l : decompteDesHeures(simulation))
            lignes << QStringList{l.libelle, l.valeur};
        rapport.tableau(
            {ColonneRapport::texte(QStringLiteral("Libellé")), ColonneRapport::montant(QStringLiteral("Heures"), 25)},
            lignes);
    }
    return true;
}

} // namespace corvane
