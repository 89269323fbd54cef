#include "unemployment/PoleEmploi.h"

#include "store/Dates.h"
#include "store/FormatFrancais.h"
#include "store/Horloge.h"

#include <QMap>
#include <QStringList>
#include <cmath>

namespace corvane {

namespace {

// The 2016 coefficients of an annex.
struct Coefficients_2016
{
    double seuilA;
    double pourcentageA;
    double seuilB;
    double pourcentageC;
    double allocationMinimale;
    int heuresParJourSJR;
};

constexpr Coefficients_2016 annexe10{13700, 0.36, 690, 0.70, 44, 10};
constexpr Coefficients_2016 annexe8{14400, 0.42, 720, 0.40, 38, 8};

// The allowance's fixed unit and the net floor.
constexpr double partFixe = 31.36;

QString jour(const QDate& date)
{
    return date.toString(QStringLiteral("dd/MM/yyyy"));
}

} // namespace

QString texteDuCompteRendu(const CompteRendu& compteRendu)
{
    QString texte;
    for (const LigneCompteRendu& ligne : compteRendu)
        texte += ligne.texte;
    return texte;
}

PoleEmploi::PoleEmploi(const QString& chemin) : ComptageHeures(chemin) {}

PoleEmploi::PoleEmploi(BaseDeDonnees& connexion) : ComptageHeures(connexion) {}

double PoleEmploi::arrondi(double montant)
{
    return std::round(montant * 100.0) / 100.0;
}

void PoleEmploi::calculs_2016()
{
    SMIC_Horaire = smicHoraireEnCours(dernierJourDernierContrat);
    CGS_CRDS_Plafond = CsgCrdsPlafondEnCours(dernierJourDernierContrat);

    // Pay lost to maternity, paternity or long illness is made up over the whole period; the
    // hours of those days are taken off and added back at the same rate, so they stay as they are.
    double salaires = salaires_2016;
    if (nbreMaterPaterALD > 0 && joursPeriodeDeReference > nbreMaterPaterALD)
        salaires = salaires / (joursPeriodeDeReference - nbreMaterPaterALD) * joursPeriodeDeReference;
    salairesRetenus = salaires;
    const double heures = nbreHeures;

    const int indexAnnexe = int(professionsAnnexes().indexOf(annexe));
    if (indexAnnexe < 0)
        return;
    const Coefficients_2016& c = indexAnnexe == 0 ? annexe10 : annexe8;

    if (salaires > c.seuilA) {
        salairesAuDessus = salaires - c.seuilA;
        A_2016 = partFixe * (c.pourcentageA * c.seuilA + 0.05 * salairesAuDessus) / 5000.0;
    } else {
        salairesAuDessus = 0.0;
        A_2016 = partFixe * (c.pourcentageA * salaires) / 5000.0;
    }
    if (heures > c.seuilB) {
        heuresAuDessus = heures - c.seuilB;
        B_2016 = partFixe * (0.26 * c.seuilB + 0.08 * heuresAuDessus) / 507.0;
    } else {
        heuresAuDessus = 0.0;
        B_2016 = partFixe * (0.26 * heures) / 507.0;
    }
    C_2016 = partFixe * c.pourcentageC;

    AJ_2016 = arrondi(A_2016 + B_2016 + C_2016);
    if (AJ_2016 < c.allocationMinimale)
        AJ_2016 = c.allocationMinimale;
    const double plafond = plafondAllocationJournaliereEnCours(dernierJourDernierContrat);
    if (AJ_2016 > plafond)
        AJ_2016 = plafond;

    // The daily reference wage, over the days the hours make at the annex's rate.
    joursSJR = nbreHeures > 0 ? (nbreHeures + c.heuresParJourSJR - 1) / c.heuresParJourSJR : 0;
    SJR_2016 = joursSJR > 0 ? arrondi(salaires / joursSJR) : 0.0;

    retRetraiteComp_08_2016 = arrondi(0.0093 * SJR_2016);
    AJ_2016_Net = AJ_2016 - retRetraiteComp_08_2016;
    if (AJ_2016_Net < partFixe)
        AJ_2016_Net = partFixe;

    // The CRDS is withheld whatever the allowance; the CSG only above the threshold.
    const double assiette = AJ_2016 - arrondi(0.0175 * AJ_2016);
    csg_2016 = AJ_2016 > CGS_CRDS_Plafond ? float(arrondi(0.062 * assiette)) : 0.0f;
    crds_2016 = float(arrondi(0.005 * assiette));
    AJ_2016_Net = AJ_2016_Net - csg_2016 - crds_2016;
    retCsgRds_2016 = csg_2016 + crds_2016;

    supAlsaceMoselle_08_2016 = 0.0;
    const bool alsaceMoselle = codePostal.size() == 5 &&
                               (codePostal.startsWith(QStringLiteral("57")) ||
                                codePostal.startsWith(QStringLiteral("67")) || codePostal.startsWith(QStringLiteral("68")));
    if (alsaceMoselle && AJ_2016 > CGS_CRDS_Plafond) {
        supAlsaceMoselle_08_2016 = arrondi(supplementAlsaceMoselle(dernierJourDernierContrat) / 100.0 * AJ_2016);
        AJ_2016_Net -= supAlsaceMoselle_08_2016;
    }

    franchiseCongesPayes = std::min(30, int(std::ceil(nbreJours / 24.0 * 2.5)));
    franchiseCongesPayesParMois = franchiseCongesPayes < 24 ? 2 : 3;

    const double smicMensuel = arrondi(151.67 * SMIC_Horaire);
    const double smicJournalier = arrondi(5 * SMIC_Horaire);
    differeIndemnisation = smicMensuel > 0 && smicJournalier > 0
                               ? (salaires / smicMensuel) * (SJR_2016 / (3 * smicJournalier)) - 27
                               : 0.0;
    if (differeIndemnisation < 0)
        differeIndemnisation = 0.0;
}

void PoleEmploi::ajoute(const QString& texte, LigneCompteRendu::Couleur couleur, bool gras)
{
    compteRendu.append({texte, couleur, gras});
}

void PoleEmploi::ajouteAuDelaDuDernierPalier()
{
    ajoute(messagePeriodeAuDelaDuDernierPalier(protocoleAccord), LigneCompteRendu::Rouge);
}

void PoleEmploi::ajouteEnTeteDePeriode()
{
    ajoute(QStringLiteral("Recherche des heures sur une période de référence de %1 jours, du %2 au %3.\n")
               .arg(PRA_Debut.daysTo(PRA_Fin) + 1)
               .arg(jour(PRA_Debut), jour(PRA_Fin)));
    const QDate ouverture = retrouveDateOuvertureDroits().date();
    if (ouverture.isValid() && PRA_Debut < ouverture)
        ajoute(QStringLiteral("ATTENTION: vos droits sont ouverts depuis le %1.\n").arg(jour(ouverture)),
               LigneCompteRendu::Rouge);
}

void PoleEmploi::ajouteSuiteOuverture_2016()
{
    ajoute(QStringLiteral("S'ils n'ont pas déjà expiré, la date de réexamen de vos droits pourra être fixée au %1 ou "
                          "à leur expiration.\n")
               .arg(jour(dernierJourDernierContrat.addDays(1))));
    ajoute(QStringLiteral("Votre franchise de Congés Payés est de %1 jour(s). Elle vous sera retenue à raison de %2 "
                          "jours maximum par mois.\n")
               .arg(franchiseCongesPayes)
               .arg(franchiseCongesPayesParMois));
    const int differe = int(differeIndemnisation);
    ajoute(QStringLiteral("Votre franchise d'indemnisation est de %1 jour(s).").arg(differe) +
           (differe > 0 ? QStringLiteral(" Elle sera réparti sur les huit premiers mois de la période "
                                         "d’indemnisation.\n")
                        : QStringLiteral("\n")));
    ajoute(QStringLiteral("Votre délai d'attente sera de 7 jours au maximum.\n"));
    ajoute(QStringLiteral("Contactez Pôle Emploi au %1 !\n").arg(numeroTelephone), LigneCompteRendu::Verte);
    ajoute(QStringLiteral("Notez que selon votre situation fiscale, il est possible d'être exonéré des contributions "
                          "sociales (CSG et CRDS)."));
}

void PoleEmploi::remplitTableauAllocations_2016()
{
    tableauAllocations = {
        {QStringLiteral("Allocation brute"), AJ_2016},
        {QStringLiteral("Ret. Compl."), -retRetraiteComp_08_2016},
        {QStringLiteral("Allocation brute retenue"), AJ_2016 - retRetraiteComp_08_2016},
        {QStringLiteral("Csg / Crds"), -retCsgRds_2016},
        {QStringLiteral("Allocation nette"), AJ_2016_Net},
    };
}

void PoleEmploi::protocole_2016_simulation_OK(int palier)
{
    compteRendu.clear();
    remplitTableauAllocations_2016();
    if (palier < 1) {
        ajouteAuDelaDuDernierPalier();
        return;
    }
    ajouteEnTeteDePeriode();
    const QString plafond = verifiePlafondHeuresMensuel(PRA_Debut, PRA_Fin, QStringLiteral("simulation"));
    if (!plafond.isEmpty())
        ajoute(plafond);
    ajoute(QStringLiteral("Vous aurez effectué suffisamment d'heures (%1) au cours de cette période pour prétendre "
                          "à une réouverture de vos droits.\n")
               .arg(nbreHeures),
           LigneCompteRendu::Verte, false);
    ajouteSuiteOuverture_2016();
}

void PoleEmploi::protocole_2016_simulation_HS(int palier, int heuresRequises)
{
    compteRendu.clear();
    tableauAllocations.clear();
    if (palier < 1) {
        ajouteAuDelaDuDernierPalier();
        return;
    }
    ajouteEnTeteDePeriode();
    const QString plafond = verifiePlafondHeuresMensuel(PRA_Debut, PRA_Fin, QStringLiteral("simulation"));
    if (!plafond.isEmpty())
        ajoute(plafond);
    ajoute(QStringLiteral("Vous n'aurez effectué que %1 heure(s) au cours de cette période : il vous en manquera %2 "
                          "pour atteindre les %3 heures requises pour une réouverture de vos droits.\n")
               .arg(nbreHeures)
               .arg(heuresRequises - nbreHeures)
               .arg(heuresRequises),
           LigneCompteRendu::Rouge, false);
    ajoute(QStringLiteral("Aucune allocation ne peut donc être calculée sur cette période.\n"));
    ajoute(QStringLiteral("Contactez Pôle Emploi au %1 !\n").arg(numeroTelephone), LigneCompteRendu::Verte);
}

void PoleEmploi::protocole_2016_analyses_OK(int palier)
{
    compteRendu.clear();
    remplitTableauAllocations_2016();
    if (palier < 1) {
        ajouteAuDelaDuDernierPalier();
        return;
    }
    ajouteEnTeteDePeriode();
    const QString plafond = verifiePlafondHeuresMensuel(PRA_Debut, PRA_Fin, QStringLiteral("analyses"));
    if (!plafond.isEmpty())
        ajoute(plafond);
    ajoute(QStringLiteral("Vous avez effectué suffisamment d'heures (%1) au cours de cette période pour prétendre à "
                          "une réouverture de vos droits.\n")
               .arg(nbreHeures),
           LigneCompteRendu::Verte, false);
    ajouteSuiteOuverture_2016();
}

void PoleEmploi::protocole_2016_analyses_HS(int palier, int heuresRequises)
{
    compteRendu.clear();
    tableauAllocations.clear();
    if (palier < 1) {
        ajouteAuDelaDuDernierPalier();
        return;
    }
    ajouteEnTeteDePeriode();
    const QString plafond = verifiePlafondHeuresMensuel(PRA_Debut, PRA_Fin, QStringLiteral("analyses"));
    if (!plafond.isEmpty())
        ajoute(plafond);
    const int manquantes = heuresRequises - nbreHeures;
    ajoute(QStringLiteral("À ce jour, vous avez effectué %1 heure(s) sur les %2 requises : il vous en manque %3 d'ici "
                          "le %4, fin de votre période de référence.\n")
               .arg(nbreHeures)
               .arg(heuresRequises)
               .arg(manquantes)
               .arg(jour(PRA_Fin)),
           LigneCompteRendu::Rouge, false);
    const QDate aujourdhui = Horloge::aujourdhui();
    if (PRA_Fin >= aujourdhui) {
        ajoute(QStringLiteral("Il vous reste %1 jour(s), aujourd'hui compris, pour les effectuer.\n")
                   .arg(aujourdhui.daysTo(PRA_Fin) + 1));
        // What the planned contracts of the rest of the period would bring.
        const TableauHeures prevues = compteHeuresParEmploiEtParType(
            QStringLiteral("analyses"), aujourdhui, PRA_Fin, conditionsDesContrats().at(2));
        int heuresPrevues = 0;
        for (int i = 0; i < 9; ++i)
            heuresPrevues += prevues[size_t(i)];
        if (heuresPrevues > 0)
            ajoute(heuresPrevues >= manquantes
                       ? QStringLiteral("Vos contrats prévus d'ici là en apporteraient %1, ce qui suffirait.\n")
                             .arg(heuresPrevues)
                       : QStringLiteral("Vos contrats prévus d'ici là en apporteraient %1 : il en manquerait encore "
                                        "%2.\n")
                             .arg(heuresPrevues)
                             .arg(manquantes - heuresPrevues));
    } else {
        ajoute(QStringLiteral("Cette période de référence est terminée : ces heures ne peuvent plus y être "
                              "effectuées.\n"));
    }
    ajoute(QStringLiteral("Contactez Pôle Emploi au %1 !\n").arg(numeroTelephone), LigneCompteRendu::Verte);
}

void PoleEmploi::protocole_2007(const QString& mode, int palier, int heuresRequises, double salairesBruts)
{
    compteRendu.clear();
    tableauAllocations.clear();
    if (palier < 1) {
        ajouteAuDelaDuDernierPalier();
        return;
    }
    ajouteEnTeteDePeriode();
    const bool analyse = mode == QStringLiteral("analyses");
    if (nbreHeures >= heuresRequises)
        ajoute(analyse ? QStringLiteral("Vous avez effectué suffisamment d'heures (%1) au cours de cette période pour "
                                        "prétendre à une réouverture de vos droits.\n")
                             .arg(nbreHeures)
                       : QStringLiteral("Vous aurez effectué suffisamment d'heures (%1) au cours de cette période pour "
                                        "prétendre à une réouverture de vos droits.\n")
                             .arg(nbreHeures),
               LigneCompteRendu::Verte, false);
    else
        ajoute(QStringLiteral("Avec %1 heure(s) sur les %2 requises, il manque %3 heure(s) pour une réouverture de vos "
                              "droits.\n")
                   .arg(nbreHeures)
                   .arg(heuresRequises)
                   .arg(heuresRequises - nbreHeures),
               LigneCompteRendu::Rouge, false);
    ajoute(QStringLiteral("Votre dernier contrat pris en compte s'achève le %1 : les règles du protocole %2 "
                          "s'appliquent. Corvane ne calcule pas l'allocation journalière de ce protocole ; seuls "
                          "les heures, les journées et les salaires de la période sont indiqués.\n")
               .arg(jour(dernierJourDernierContrat), protocoleAccord));
    ajoute(QStringLiteral("Journées travaillées : %1. Salaires bruts : %2. Salaires retenus : %3.\n")
               .arg(nbreJours)
               .arg(enEuros(salairesBruts), enEuros(salaires_2016)),
           LigneCompteRendu::Normale, false);
    ajoute(QStringLiteral("Contactez Pôle Emploi au %1 !\n").arg(numeroTelephone), LigneCompteRendu::Verte);
}

QString PoleEmploi::verifiePlafondHeuresMensuel(const QDate& debut, const QDate& fin, const QString& mode)
{
    Q_UNUSED(mode) // the same lines in both modes
    const QString profession = retrouveEmploiUtilisateur();
    if (profession != QStringLiteral("Ouvrier") && profession != QStringLiteral("Technicien"))
        return {};
    // The ceiling is only reported up to this day; on any later day the check says nothing.
    if (Horloge::aujourdhui() > QDate(2009, 2, 18))
        return {};

    const QString du = Dates::versSQLite(debut);
    const QString au = Dates::versSQLite(fin);
    QMap<QPair<int, int>, qint64> heuresParMois; // (year, month)
    {
        Requete r(m_db, QStringLiteral("SELECT SUM(c_nbre_heures) AS totalHeures, strftime('%Y', c_debut_contrat) AS "
                                       "annee, strftime('%m', c_debut_contrat) AS mois FROM contrats WHERE "
                                       "((c_debut_contrat BETWEEN '%1' AND '%2') AND (strftime('%m', c_debut_contrat) = "
                                       "strftime('%m', c_fin_contrat)) AND (c_type=1)) GROUP BY annee, mois ORDER BY "
                                       "annee ASC, mois ASC;")
                            .arg(du, au));
        while (r.suivante())
            heuresParMois[{int(r.entier(1)), int(r.entier(2))}] += r.entier(0);
    }
    {
        Requete r(m_db, QStringLiteral("SELECT c_debut_contrat, c_dates_travaillees, c_nbre_heures, c_nbre_jours, "
                                       "strftime('%Y', c_debut_contrat) AS annee, strftime('%m', c_debut_contrat) AS "
                                       "mois FROM contrats WHERE ((c_debut_contrat BETWEEN '%1' AND '%2') AND "
                                       "(strftime('%m', c_debut_contrat) != strftime('%m', c_fin_contrat)) AND "
                                       "(c_type=1)) ORDER BY c_debut_contrat;")
                            .arg(du, au));
        while (r.suivante()) {
            const qint64 jours = r.entier(3);
            const qint64 heuresParJour = jours != 0 ? r.entier(2) / jours : 0;
            const QStringList dates = r.texte(1).split(QLatin1Char(','), Qt::SkipEmptyParts);
            int premierMois = 0;
            int precedent = 0;
            for (const QString& date : dates) {
                const int numero = date.section(QLatin1Char('/'), 0, 0).toInt();
                if (numero < precedent)
                    break;
                precedent = numero;
                ++premierMois;
            }
            const int annee = int(r.entier(4));
            const int mois = int(r.entier(5));
            heuresParMois[{annee, mois}] += premierMois * heuresParJour;
            const QPair<int, int> suivant = mois == 12 ? qMakePair(annee + 1, 1) : qMakePair(annee, mois + 1);
            heuresParMois[suivant] += (dates.size() - premierMois) * heuresParJour;
        }
    }

    QString texte;
    for (auto it = heuresParMois.cbegin(); it != heuresParMois.cend(); ++it) {
        if (it.value() <= nbreHeuresMaxiParMois)
            continue;
        if (texte.isEmpty())
            texte = QStringLiteral("ATTENTION :\n");
        texte += QStringLiteral("En %1 %2, vous dépassez le plafond d'heures mensuelles (%3 heures au lieu de %4 "
                                "heures).\n")
                     .arg(Intermittent::moisEnMinuscules().value(it.key().second - 1))
                     .arg(it.key().first)
                     .arg(it.value())
                     .arg(nbreHeuresMaxiParMois);
    }
    if (!texte.isEmpty())
        texte += QStringLiteral("Notez que ce plafond peut être élevé jusqu'à %1 heures mensuelles par dérogation.\n\n")
                     .arg(nbreHeuresMaxiParMoisParDerogation);
    return texte;
}

} // namespace corvane
