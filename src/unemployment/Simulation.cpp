#include "unemployment/Simulation.h"

#include "records/Periodes.h"
#include "records/Profil.h"
#include "store/Dates.h"
#include "store/Horloge.h"

#include <algorithm>

namespace corvane {

namespace {

// The contracts that count for the rights: performances, training, and teaching at an
// approved employer; never general-regime or self-employment work.
const QString contratsComptes = QStringLiteral(
    "((c_type = 2 AND e_conventionne = 1) OR c_type = 1 OR c_type = 3) AND (c_type <> 4) AND (c_type <> 100) AND "
    "(c_type <> 101) AND (c_type <> 102)");

// The abatement stops applying to contracts ending on this day or later.
const QDate finDeLAbattement(2017, 7, 1);

} // namespace

Simulation::Simulation(const QString& chemin, const QDate& debut, const QDate& fin)
    : PoleEmploi(chemin), dateDebut(debut), dateFin(fin)
{
    PRA_Debut = debut;
    PRA_Fin = fin;
    PRA_Palier = int(nombreHeuresMiniPourDossier);
    dateFinDeDossier = Horloge::aujourdhui();
}

Simulation::Simulation(BaseDeDonnees& connexion, const QDate& debut, const QDate& fin)
    : PoleEmploi(connexion), dateDebut(debut), dateFin(fin)
{
    PRA_Debut = debut;
    PRA_Fin = fin;
    PRA_Palier = int(nombreHeuresMiniPourDossier);
    dateFinDeDossier = Horloge::aujourdhui();
}

QDate Simulation::dernierJourDernierContratCompte()
{
    return Dates::depuisSQLite(m_db.texte(
        QStringLiteral("SELECT c_fin_contrat, c_type, e_conventionne FROM contrats JOIN employeurs ON c_employeur_id = "
                       "e_id WHERE (c_debut_contrat BETWEEN '%1' AND '%2') AND %3 AND %4 ORDER BY c_debut_contrat "
                       "DESC LIMIT 1;")
            .arg(Dates::versSQLite(dateDebut), Dates::versSQLite(dateFin), triDesContrats, contratsComptes)));
}

void Simulation::determineDureePeriodeDeReference(const QString& protocole)
{
    const std::optional<Annexe> holder = annexePourProfession(annexe);
    if (!holder)
        return;
    const PeriodeEtPaliers p = periodeEtPaliersPour(*holder, protocole);
    periodeDeReference = p.periodeDeReference;
    paliers = p.paliers;
    tableauPaliers = p.tableauPaliers;
}

void Simulation::determineLePalier()
{
    numeroPalier = 1;
    if (protocoleAccord == Protocoles::juin2003) {
        PRA_Palier = int(nombreHeuresMiniPourDossier);
        return;
    }
    // Without an annex there is no step table: the base threshold stays.
    if (periodeDeReference == 0)
        return;
    const qint64 jours = dateDebut.daysTo(dateFin) - joursAllongementPRA;
    for (size_t i = 0; i < tableauPaliers.size(); ++i) {
        if (jours <= qint64(tableauPaliers[i].jours)) {
            PRA_Palier = int(i == 0 ? nombreHeuresMiniPourDossier : paliers[i - 1]);
            numeroPalier = int(i) + 1;
            return;
        }
    }
    PRA_Palier = 0;
    numeroPalier = 0;
}

void Simulation::dispatcheLesHeures()
{
    tableauHeures = compteHeuresParEmploiEtParType(QStringLiteral("simulation"), dateDebut, dateFin, triDesContrats);
    nbreHeuresArtiste = tableauHeures[0];
    nbreHeuresOuvrier = tableauHeures[3];
    nbreHeuresTechnicien = tableauHeures[6];

    const int enseignements = tableauHeures[1] + tableauHeures[4] + tableauHeures[7];
    nbreHeuresEnseignements = std::min(enseignements, int(plafondHeuresEnseignement));
    nbreHeuresEnseignementsRejetees = enseignements - nbreHeuresEnseignements;
    const int formations = tableauHeures[2] + tableauHeures[5] + tableauHeures[8];
    nbreHeuresFormations = std::min(formations, int(plafondHeuresFormations));
    nbreHeuresFormationsRejetees = formations - nbreHeuresFormations;

    // Sickness, maternity and paternity leave count as worked days; work accidents do not here.
    const qint64 incidence = m_db.entier(
        QStringLiteral("SELECT SUM(ss_incidence_heures) AS totalHeures FROM securitesociale WHERE (ss_debut BETWEEN "
                       "'%1' AND '%2') AND (ss_type_id = 2 OR ss_type_id = 3 OR ss_type_id = 4) ORDER BY ss_debut ASC;")
            .arg(Dates::versSQLite(dateDebut), Dates::versSQLite(dateFin)));
    nbreHeuresSecuriteSociale = int(incidence * assimilationTravailSecuriteSociale);

    nbreHeures = nbreHeuresArtiste + nbreHeuresOuvrier + nbreHeuresTechnicien + nbreHeuresEnseignements +
                 nbreHeuresFormations + nbreHeuresSecuriteSociale;
}

void Simulation::totaux()
{
    const QString du = Dates::versSQLite(dateDebut);
    const QString au = Dates::versSQLite(dateFin);
    double bruts = 0.0;
    double brutsAbattus = 0.0;
    int jours = 0;
    {
        Requete r(m_db, QStringLiteral("SELECT a_pourcentage, SUM(c_nbre_jours) AS nombreJours, SUM(c_salaire_brut) AS "
                                       "salairesBruts, SUM(c_salaire_brut - (c_salaire_brut * a_pourcentage) / 100) AS "
                                       "salairesBrutsAbattus, c_type, e_conventionne FROM contrats JOIN abattements ON "
                                       "c_abattement = a_id JOIN employeurs ON c_employeur_id = e_id WHERE "
                                       "(c_debut_contrat BETWEEN '%1' AND '%2') AND (c_effectue=1) AND %3 ORDER BY "
                                       "c_debut_contrat ASC;")
                            .arg(du, au, contratsComptes));
        if (r.suivante()) {
            if (r.entier(1) != -1)
                jours = int(r.entier(1));
            if (r.reel(2) != -1)
                bruts = r.reel(2);
            if (r.reel(3) != -1)
                brutsAbattus = r.reel(3);
        }
    }
    totalIJ = 0.0;
    if (ajouteIndemnitesJournalieres) {
        totalIJ = m_db.reel(QStringLiteral("SELECT SUM(ss_total_ij) AS totalIJ FROM securitesociale WHERE (ss_debut "
                                           "BETWEEN '%1' AND '%2') ORDER BY ss_debut ASC;")
                                .arg(du, au));
        bruts += totalIJ;
        brutsAbattus += totalIJ;
    }
    salaireBrutDossierTotal = bruts;
    salaireBrutAbattuDossierTotal = brutsAbattus;
    salaires_2016 = dernierJourDernierContrat < finDeLAbattement ? brutsAbattus : bruts;
    salairesRetenus = salaires_2016;
    nbreJours = jours;
    nbrePeriodesGroupees = 0;
    dateFinDeDossier = dernierJourDernierContrat;
    nombreCachetsDuDossier = jours;
    nombreHeuresDuDossier = nbreHeures;

    // Maternity, paternity and long-illness days inside the range, which the pay is made up over.
    nbreMaterPaterALD = 0;
    Requete r(m_db, QStringLiteral("SELECT ss_debut, ss_fin FROM securitesociale WHERE (ss_debut BETWEEN '%1' AND '%2') "
                                   "AND (ss_type_id = 3 OR ss_type_id = 4 OR (ss_type_id = 2 AND ss_ald = 1));")
                        .arg(du, au));
    while (r.suivante()) {
        const QDate debut = Dates::depuisSQLite(r.texte(0));
        const QDate fin = std::min(Dates::depuisSQLite(r.texte(1)), dateFin);
        if (debut.isValid() && fin >= debut)
            nbreMaterPaterALD += int(debut.daysTo(fin)) + 1;
    }
}

bool Simulation::lance(Mode mode)
{
    const bool analyse = mode == Mode::Analyse;
    QDate dernier = dernierJourDernierContratCompte();
    // Without any contract the analysis still tells what is missing, under today's rules.
    if (!dernier.isValid() && analyse)
        dernier = std::min(Horloge::aujourdhui(), dateFin);
    const QString protocole = protocolePour(dernier);
    // No rule set before 1 April 2007: the simulation says nothing.
    if (protocole.isEmpty() || (!analyse && protocole == Protocoles::juin2003))
        return false;

    PRA_Debut = dateDebut;
    PRA_Fin = dateFin;
    dernierJourDernierContrat = dernier;
    protocoleAccord = protocole;
    annexe = retrouveEmploiUtilisateur();
    Profil profil(m_db);
    codePostal = profil.initDepuisLaTableV4() ? profil.donnees().codePostal : QString();
    joursPeriodeDeReference = int(dateDebut.daysTo(dateFin)) + 1;

    determineDureePeriodeDeReference(protocoleAccord);
    determineLePalier();
    dispatcheLesHeures();
    totaux();

    // Beyond the last step nothing is required, and the report says the period is too long.
    const bool ouverts = nbreHeures >= PRA_Palier;
    if (protocoleAccord == Protocoles::aout2016) {
        calculs_2016();
        if (analyse)
            ouverts ? protocole_2016_analyses_OK(numeroPalier) : protocole_2016_analyses_HS(numeroPalier, PRA_Palier);
        else
            ouverts ? protocole_2016_simulation_OK(numeroPalier)
                    : protocole_2016_simulation_HS(numeroPalier, PRA_Palier);
    } else {
        protocole_2007(analyse ? QStringLiteral("analyses") : QStringLiteral("simulation"), numeroPalier, PRA_Palier,
                       salaireBrutDossierTotal);
    }
    if (!annexePourProfession(annexe))
        compteRendu.prepend({QStringLiteral("Votre profession (« %1 ») ne relève pas des annexes 8 et 10 : "
                                            "l'allocation d'intermittent ne peut pas être calculée. Choisissez "
                                            "« Artiste », « Ouvrier » ou « Technicien » dans votre profil.\n")
                                 .arg(annexe.isEmpty() ? QStringLiteral("aucune") : annexe),
                             LigneCompteRendu::Rouge, true});
    simulee = true;
    return true;
}

bool Simulation::analyse()
{
    Periodes periodes(m_db);
    const std::optional<Periode> periode = periodes.periode(periodes.idPeriodeEnCours());
    if (!periode)
        return false;
    dateDebut = periode->debut;
    dateFin = retrouveDateFinDePeriodeEnCours();
    joursAllongementPRA = allongementPeriodeDeReference;
    triDesContrats = conditionsDesContrats().at(1);
    return lance(Mode::Analyse);
}

QList<LignePeriode> Simulation::affichePeriode() const
{
    const QString format = QStringLiteral("dd/MM/yyyy");
    return {
        {QStringLiteral("Depuis le"), dateDebut.toString(format)},
        {QStringLiteral("Jusqu'au"), dateFin.toString(format)},
        {QStringLiteral("Journées analysées"), QString::number(dateDebut.daysTo(dateFin) + 1)},
        {QStringLiteral("Journées retenues"), QString::number(nbreJours)},
        {QStringLiteral("Périodes groupées"), QString::number(nbrePeriodesGroupees)},
    };
}

} // namespace corvane
