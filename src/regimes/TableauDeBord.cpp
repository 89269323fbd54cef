#include "regimes/TableauDeBord.h"

#include "records/Periodes.h"
#include "store/Dates.h"
#include "store/Horloge.h"
#include "unemployment/ActualisationMensuelle.h"
#include "unemployment/ParametresPoleEmploi.h"

#include <sqlite3.h>

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

double auCentime(double montant)
{
    return std::round(montant * 100.0) / 100.0;
}

// The hours a sickness incidence day counts for.
int heuresParJourDArret()
{
    return int(ParametresIntermittent().assimilationTravailSecuriteSociale);
}

// The allowance days of rights opened before this day are 243; from it, those of the 2016 rules.
const QDate debutDesRegles2016(2016, 8, 1);

} // namespace

const QStringList& TableauDeBord_v4::clesStatistiques()
{
    static const QStringList cles{"Libellé", "Jours",       "Heures",   "Bruts",          "Net imposable",
                                  "Net",     "Pôle Emploi", "Jours SS", "Jours suspendus"};
    return cles;
}

const QStringList& TableauDeBord_v4::clesContrats()
{
    static const QStringList cles{"Date Debut", "Date Fin", "Type",          "Note", "Paye",           "Nombre Jours",
                                  "Nombre Heures", "Bruts", "Net imposable", "Net",  "Raison Sociale", "GUSO"};
    return cles;
}

QDate TableauDeBord_v4::finDesStatistiques()
{
    return bloquePeriode ? retrouveDateFinDePeriodeEnCours() : Horloge::aujourdhui();
}

Table TableauDeBord_v4::statistiques()
{
    const QDate aujourdhui = Horloge::aujourdhui();
    const QDate debutDuMois(aujourdhui.year(), aujourdhui.month(), 1);
    const QDate finDuMois(aujourdhui.year(), aujourdhui.month(), aujourdhui.daysInMonth());
    const QString ouverture = Dates::versSQLite(retrouveDateOuvertureDroitsUtilisateur().date());
    const QString fin = Dates::versSQLite(finDesStatistiques());

    // Each row takes two bounds at once: never after tomorrow, never after the month's or the
    // period's end.
    const auto clause = [&](const QString& colonne, bool periode) {
        if (!periode)
            return QStringLiteral("(%1 BETWEEN '%2' AND '%3') AND (%1 BETWEEN '%2' AND date('now', '+1 day'))")
                .arg(colonne, Dates::versSQLite(debutDuMois), Dates::versSQLite(finDuMois));
        return QStringLiteral("(%1 BETWEEN '%2' AND date('now', '+1 day')) AND (%1 BETWEEN '%2' AND date('%3', '+1 "
                              "day'))")
            .arg(colonne, ouverture, fin);
    };

    Table table{clesStatistiques(), {}};
    for (const bool periode : {false, true}) {
        QVariantList rangee{periode ? QStringLiteral("Période") : QStringLiteral("Ce mois-ci")};
        double heures = 0;
        {
            Requete r(m_db, QStringLiteral("SELECT SUM(c_nbre_jours) AS compteurJours, SUM(c_nbre_heures) AS "
                                           "compteurHeures, SUM(c_salaire_brut) AS compteurSalairesBruts, "
                                           "SUM(c_salaire_net) AS compteurSalairesNets, SUM(c_salaire_net_a_payer) AS "
                                           "compteurSalairesNetsAPayer FROM contrats WHERE %1 AND (c_effectue=1);")
                                .arg(clause(QStringLiteral("c_debut_contrat"), periode)));
            const bool ligne = r.suivante();
            heures = ligne ? r.reel(1) : 0;
            heures += m_db.reel(QStringLiteral("SELECT SUM(ss_incidence_heures) * %1 FROM securitesociale WHERE %2;")
                                    .arg(heuresParJourDArret())
                                    .arg(clause(QStringLiteral("ss_debut"), periode)));
            rangee << (ligne ? r.entier(0) : 0) << heures << auCentime(ligne ? r.reel(2) : 0)
                   << auCentime(ligne ? r.reel(3) : 0) << auCentime(ligne ? r.reel(4) : 0);
        }
        rangee << auCentime(m_db.reel(QStringLiteral("SELECT SUM(ah_montant) AS totalPoleEmploi FROM "
                                                     "assedichistorique WHERE %1;")
                                          .arg(clause(QStringLiteral("ah_date"), periode))));
        Requete r(m_db, QStringLiteral("SELECT SUM(ss_nbre_jours) AS nbreJours, SUM(ss_nbre_jours_suspendus) AS "
                                       "nbreJoursSuspendus FROM securitesociale WHERE %1;")
                            .arg(clause(QStringLiteral("ss_debut"), periode)));
        const bool ligne = r.suivante();
        rangee << (ligne ? r.entier(0) : 0) << (ligne ? r.entier(1) : 0);
        table.rangees << rangee;
        if (periode)
            heuresBarre = int(heures);
    }

    heuresRequises = int(ParametresIntermittent().nombreHeuresMiniPourDossier);
    heuresBarreLbl = QStringLiteral("%1 heures effectuées sur %2").arg(heuresBarre).arg(heuresRequises);
    heuresManquantes = heuresBarre < heuresRequises;
    if (heuresManquantes) {
        const int manquantes = heuresRequises - heuresBarre;
        dossierValidable = QStringLiteral("%1 %2 à réaliser avant le réexamen des droits")
                               .arg(manquantes)
                               .arg(manquantes < 2 ? QStringLiteral("heure") : QStringLiteral("heures"));
    } else {
        dossierValidable = QStringLiteral("Vous pouvez prétendre à une réouverture de droits.");
    }
    return table;
}

QString TableauDeBord_v4::jaugeHeures() const
{
    return QStringLiteral("%1 heures\nsur %2").arg(heuresBarre).arg(heuresRequises);
}

void TableauDeBord_v4::droits()
{
    const QDate aujourdhui = Horloge::aujourdhui();
    ouvertureDesDroits = retrouveDateOuvertureDroitsUtilisateur().date();
    finDesDroits = retrouveDateFinDePeriodeEnCours();
    periodeIndemniseeTerminee = finDesDroits.isValid() && aujourdhui >= finDesDroits;
    if (periodeIndemniseeTerminee || !ouvertureDesDroits.isValid()) {
        joursAllocations = periodeIndemniseeTerminee ? QStringLiteral("Période indemnisée") : QString();
        joursRestants.clear();
        return;
    }
    joursIndemnises = ActualisationMensuelle(m_db).nombreJoursIndemnisesDepuisLOuverture();
    joursDepuisLOuverture = std::max(0, int(ouvertureDesDroits.daysTo(aujourdhui)) + 1);
    const int restants = ouvertureDesDroits < debutDesRegles2016
                             ? 243 - joursIndemnises
                             : int(ParametresPoleEmploi().nombreJoursARE_2016) - joursDepuisLOuverture;
    joursRestants = QStringLiteral("%1 jours d'ARE restants").arg(std::max(0, restants));
    joursAllocations =
        QStringLiteral("%1 jours d'ARE (%2 allocations)").arg(joursDepuisLOuverture).arg(joursIndemnises);
}

QString TableauDeBord_v4::libelleOuverture() const
{
    return QStringLiteral("Ouverture des droits au %1").arg(ouvertureDesDroits.toString(QStringLiteral("dd/MM/yyyy")));
}

QString TableauDeBord_v4::libelleFinDeDroits() const
{
    return QStringLiteral("Fin de droits au %1").arg(finDesDroits.toString(QStringLiteral("dd/MM/yyyy")));
}

void TableauDeBord_v4::periodeDeReference()
{
    const QDate aujourdhui = Horloge::aujourdhui();
    const QDate ouverture = retrouveDateOuvertureDroitsUtilisateur().date();
    Periodes periodes(m_db);
    const std::optional<Periode> periode = periodes.periode(periodes.idPeriodeEnCours());
    allongementLbl.clear();
    if (!ouverture.isValid() || !periode) {
        joursEcoules = joursDeLaPeriode = 0;
        periodeTerminee = false;
        periodeReferenceLbl.clear();
        return;
    }
    // Both count today and the first day.
    joursEcoules = std::max(0, int(ouverture.daysTo(aujourdhui)) + 1);
    joursDeLaPeriode = std::max(1, int(ouverture.daysTo(periode->fin)) + 1);
    periodeTerminee = joursEcoules > joursDeLaPeriode;
    if (periodeTerminee) {
        periodeReferenceLbl = QStringLiteral("Terminée !");
        return;
    }
    periodeReferenceLbl =
        QStringLiteral("%1 jours restants\ndans la PRA").arg(joursDeLaPeriode - joursEcoules);
    if (allongementPRA() > 0)
        allongementLbl = QStringLiteral("Allongement possible jusqu'au %1")
                             .arg(retrouveDateFinDePeriodeEnCours().toString(QStringLiteral("dd/MM/yyyy")));
}

Table TableauDeBord_v4::listeContrats(const QString& sens, QList<bool>* arrets)
{
    const QString ouverture = Dates::versSQLite(retrouveDateOuvertureDroitsUtilisateur().date());
    const QString fin = Dates::versSQLite(finDesStatistiques());
    const QStringList typesArrets = m_db.colonne(QStringLiteral("SELECT sst_type FROM securitesocialetypes;"));
    Requete r(m_db, QStringLiteral("SELECT c_debut_contrat AS debut, c_fin_contrat AS fin, c_type, ct_type AS type, "
                                   "c_employeur_id, e_raison_sociale AS note, c_paye AS paye, c_nbre_jours AS jours, "
                                   "c_nbre_heures AS heures, c_salaire_brut AS brut, c_salaire_net AS net, "
                                   "c_salaire_net_a_payer AS netAPayer, e_guso AS guso FROM contrats JOIN "
                                   "contratstypes ON c_type = ct_id JOIN employeurs ON c_employeur_id = e_id WHERE "
                                   "(c_debut_contrat BETWEEN '%1' AND date('now', '+1 day')) AND (c_debut_contrat "
                                   "BETWEEN '%1' AND date('%2', '+1 day')) AND (c_effectue=1) UNION ALL SELECT "
                                   "ss_debut AS debut, ss_fin AS fin, ss_type_id, sst_type AS type, ss_id, ss_note AS "
                                   "note, ss_rembourse AS paye, ss_nbre_jours AS jours, ss_incidence_heures * %3 AS "
                                   "heures, 0 AS brut, 0 AS net, 0 AS netAPayer, 0 AS guso FROM securitesociale JOIN "
                                   "securitesocialetypes ON ss_type_id=sst_id WHERE (ss_debut BETWEEN '%1' AND "
                                   "date('now', '+1 day')) AND (ss_debut BETWEEN '%1' AND date('%2', '+1 day')) ORDER "
                                   "BY debut %4;")
                        .arg(ouverture, fin)
                        .arg(heuresParJourDArret())
                        .arg(sens == QStringLiteral("DESC") ? QStringLiteral("DESC") : QStringLiteral("ASC")));
    Table table{clesContrats(), {}};
    if (arrets)
        arrets->clear();
    qint64 jours = 0;
    double heures = 0, bruts = 0, nets = 0, netsAPayer = 0;
    while (r.suivante()) {
        const bool arret = typesArrets.contains(r.texte(3));
        const QString note = r.texte(5);
        table.rangees << QVariantList{Dates::versAffichage(Dates::depuisSQLite(r.texte(0))),
                                      Dates::versAffichage(Dates::depuisSQLite(r.texte(1))),
                                      r.texte(3),
                                      note,
                                      r.entier(6),
                                      r.entier(7),
                                      r.reel(8),
                                      r.reel(9),
                                      r.reel(10),
                                      r.reel(11),
                                      arret ? QString() : note,
                                      r.entier(12) == 1 ? QStringLiteral("CHECKED_GUSO") : QString()};
        if (arrets)
            arrets->append(arret);
        jours += r.entier(7);
        heures += r.reel(8);
        bruts += r.reel(9);
        nets += r.reel(10);
        netsAPayer += r.reel(11);
    }
    table.rangees << QVariantList{QStringLiteral("Totaux"), QString(), QString(), QString(), QString(), jours,
                                  heures, auCentime(bruts), auCentime(nets), auCentime(netsAPayer), QString(), QString()};
    if (arrets)
        arrets->append(false);
    return table;
}

bool TableauDeBord_v4::anneeBlancheProposee()
{
    if (m_db.entier(QStringLiteral("SELECT u_annee_blanche FROM utilisateur WHERE u_id = 1;")) == 1)
        return false;
    Periodes periodes(m_db);
    const std::optional<Periode> periode = periodes.periode(periodes.idPeriodeEnCours());
    return periode && periode->fin >= QDate(2020, 3, 1) && periode->fin <= QDate(2021, 8, 31);
}

bool TableauDeBord_v4::accepteAnneeBlanche()
{
    Periodes periodes(m_db);
    const int id = periodes.idPeriodeEnCours();
    const std::optional<Periode> periode = periodes.periode(id);
    if (!periode)
        return false;
    if (m_db.exec(QStringLiteral("BEGIN IMMEDIATE;")) != SQLITE_OK)
        return false;
    const bool ok =
        m_db.executer(QStringLiteral("UPDATE utilisateur SET u_annee_blanche = 1 WHERE u_id = 1;")) == SQLITE_DONE &&
        m_db.executer(QStringLiteral("UPDATE periodes SET p_libelle = ?, p_date_fin = '2021-08-31 00:00:00.000' WHERE "
                                     "p_id = %1;")
                          .arg(id),
                      {QStringLiteral("%1, étendue au 31/08/2021 (année blanche)").arg(periode->libelle)}) ==
            SQLITE_DONE;
    m_db.exec(ok ? QStringLiteral("COMMIT;") : QStringLiteral("ROLLBACK;"));
    return ok;
}

QString TableauDeBord_v4::questionAnneeBlanche()
{
    return QStringLiteral("Vous êtes éligible à la mesure d'urgence dite de l'année blanche. Souhaitez-vous en "
                          "bénéficier ?");
}

QString TableauDeBord_v4::detailAnneeBlanche()
{
    return QStringLiteral("Vous pouvez ainsi repousser votre date anniversaire au 31 aout 2021, tout en maintenant vos "
                          "allocations actuelles.");
}

TableauDeBord_v4::AnneeBlanche TableauDeBord_v4::proposeAnneeBlanche(Dialogues& dialogues)
{
    if (!anneeBlancheProposee())
        return AnneeBlanche::NonProposee;
    const QString reponse =
        dialogues.question(QStringLiteral("Année blanche"), questionAnneeBlanche() + QStringLiteral("\n\n") + detailAnneeBlanche(),
                           {QStringLiteral("Oui"), QStringLiteral("Non")});
    if (reponse == QStringLiteral("Oui"))
        return accepteAnneeBlanche() ? AnneeBlanche::Acceptee : AnneeBlanche::Proposee;
    return reponse == QStringLiteral("Non") ? AnneeBlanche::Refusee : AnneeBlanche::Proposee;
}

} // namespace corvane
