#pragma once

// Documents for the rights computations: the current period, the opening of rights, the
// user's job, contracts at an approved or a non-approved employer, and sickness-type
// leave, written in plain SQL.

#include "records/OutilsContrats.h"

#include <QList>
#include <QMetaType>

namespace corvane::test {

struct ContratHeures
{
    ContratHeures(int emploi, int type, double heures, const QDate& debut, bool conventionne = true, int effectue = 1,
                  const QDate& fin = {})
        : emploi(emploi), type(type), heures(heures), debut(debut), conventionne(conventionne), effectue(effectue),
          fin(fin.isValid() ? fin : debut)
    {
    }
    int emploi;
    int type;
    double heures;
    QDate debut;
    bool conventionne; // at an approved employer
    int effectue;
    QDate fin;
    double brut = 0;
    int abattementId = 1; // 1: none, 2: 20 %, 3: 25 %
    int jours = 1;
    int conges = 0; // subject to the paid-leave fund
    ContratHeures& paye(double montant, int nombreJours, int abattement = 1)
    {
        brut = montant;
        jours = nombreJours;
        abattementId = abattement;
        return *this;
    }
};
using ContratsHeures = QList<ContratHeures>;

// Sickness-type leave: its start, its incidence in hours and in days of the period; then,
// for the simulation, its kind, end, long-illness flag and daily allowances.
struct Arret
{
    QDate debut;
    int incidenceHeures = 0;
    int incidencePeriode = 0;
    int type = 2;
    QDate fin = {};
    bool ald = false;
    double totalIJ = 0;
};
using Arrets = QList<Arret>;

struct DossierDroits
{
    DossierDroits(const ContratsHeures& contrats = {}, const Arrets& arrets = {}, int emploiId = 1,
                  const QDate& ouverture = QDate(2024, 3, 1), const QDate& debut = QDate(2024, 3, 1),
                  const QDate& fin = QDate(2024, 12, 31))
        : contrats(contrats), arrets(arrets), emploiId(emploiId), ouverture(ouverture), debut(debut), fin(fin)
    {
    }
    ContratsHeures contrats;
    Arrets arrets;
    int emploiId;
    QDate ouverture; // u_date_debut_dossier
    QDate debut;     // the current period
    QDate fin;
};

inline QString documentDroits(const QTemporaryDir& dossier, const QString& nom, const DossierDroits& d)
{
    const QString chemin = documentContrats(dossier, nom, d.emploiId);
    const int conventionne = ajouterEmployeur(chemin, QStringLiteral("Opéra"));
    const int nonConventionne = ajouterEmployeur(chemin, QStringLiteral("Cours privé"));
    BaseDeDonnees base;
    if (!base.ouvrir(chemin))
        return {};
    base.executer("UPDATE employeurs SET e_conventionne = 0 WHERE e_id = ?;", {nonConventionne});
    base.executer("UPDATE utilisateur SET u_date_debut_dossier = ? WHERE u_id = 1;", {jourSQLite(d.ouverture)});
    base.executer("UPDATE periodes SET p_date_debut = ?, p_date_fin = ? WHERE p_id = (SELECT u_periode_en_cours FROM "
                  "utilisateur WHERE u_id = 1);",
                  {jourSQLite(d.debut), jourSQLite(d.fin)});
    for (const ContratHeures& c : d.contrats)
        base.executer("INSERT INTO contrats (c_employeur_id, c_emploi_id, c_type, c_nbre_heures, c_debut_contrat, "
                      "c_fin_contrat, c_effectue, c_nbre_jours, c_salaire_brut, c_salaire_net, c_abattement, "
                      "c_liste_dates, c_paye, c_note, c_fonction, c_conges) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, 0, ?, "
                      "'', 0, '', '', ?);",
                      {c.conventionne ? conventionne : nonConventionne, c.emploi, c.type, c.heures, jourSQLite(c.debut),
                       jourSQLite(c.fin), c.effectue, c.jours, c.brut, c.abattementId, c.conges});
    for (const Arret& a : d.arrets)
        base.executer("INSERT INTO securitesociale (ss_debut, ss_fin, ss_type_id, ss_note, ss_rembourse, "
                      "ss_nbre_jours, ss_nbre_jours_suspendus, ss_incidence_heures, ss_incidence_periode, ss_ald, "
                      "ss_total_ij) VALUES (?, ?, ?, '', 0, 0, 0, ?, ?, ?, ?);",
                      {jourSQLite(a.debut), jourSQLite(a.fin.isValid() ? a.fin : a.debut), a.type, a.incidenceHeures,
                       a.incidencePeriode, int(a.ald), a.totalIJ});
    return chemin;
}

} // namespace corvane::test

Q_DECLARE_METATYPE(corvane::test::ContratsHeures)
Q_DECLARE_METATYPE(corvane::test::Arrets)
Q_DECLARE_METATYPE(corvane::test::DossierDroits)
