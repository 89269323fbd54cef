#pragma once

// Documents with employers, templates, contracts and sickness periods written in plain SQL,
// for the contract tests.

#include "commun/OutilsDocument.h"
#include "store/BaseDeDonnees.h"

#include <QDate>
#include <QTemporaryDir>

namespace corvane::test {

// A current-generation document, opened once so that the upgrade pass has added its columns.
inline QString documentContrats(const QTemporaryDir& dossier, const QString& nom, int emploiId = 1)
{
    NouveauDocument p = parametresParDefaut(dossier.filePath(nom));
    p.emploiId = emploiId;
    const QString chemin = creerDocument(p);
    return ouvrirDocument(chemin);
}

inline QString jourSQLite(const QDate& jour)
{
    return jour.toString(QStringLiteral("yyyy-MM-dd")) + QStringLiteral(" 00:00:00.000");
}

inline int ajouterEmployeur(const QString& chemin, const QString& nom, int modeleId = 0, int guso = 0)
{
    BaseDeDonnees base;
    if (!base.ouvrir(chemin))
        return 0;
    base.executer("INSERT INTO employeurs (e_raison_sociale, e_adresse, e_codepostal, e_commune, e_contratmodele_id, "
                  "e_guso) VALUES (?, '', '', 'Paris', ?, ?);",
                  {nom, modeleId, guso});
    return int(base.dernierIdInsere());
}

inline int ajouterModele(const QString& chemin, const QString& libelle, int emploi, int type, int jours, int heures,
                         double brut, double net)
{
    BaseDeDonnees base;
    if (!base.ouvrir(chemin))
        return 0;
    base.executer("INSERT INTO contratsmodeles (cm_libelle, cm_emploi_id, cm_type_id, cm_nbre_jours, cm_nbre_heures, "
                  "cm_salaire_brut, cm_salaire_net) VALUES (?, ?, ?, ?, ?, ?, ?);",
                  {libelle, emploi, type, jours, heures, brut, net});
    return int(base.dernierIdInsere());
}

struct ContratTest
{
    int employeur = 1;
    QDate debut;
    QDate fin;
    int heures = 0;
    int jours = 1;
    double brut = 0.0;
    double net = 0.0;
    int effectue = 1;
    int paye = 0;
    int type = 1;
    int emploi = 1;
};

inline int ajouterContrat(const QString& chemin, const ContratTest& c)
{
    BaseDeDonnees base;
    if (!base.ouvrir(chemin))
        return 0;
    base.executer("INSERT INTO contrats (c_employeur_id, c_emploi_id, c_debut_contrat, c_fin_contrat, c_nbre_heures, "
                  "c_salaire_brut, c_salaire_net, c_abattement, c_nbre_jours, c_liste_dates, c_effectue, c_paye, "
                  "c_note, c_type, c_fonction, c_conges) VALUES (?, ?, ?, ?, ?, ?, ?, 1, ?, '', ?, ?, '', ?, '', 0);",
                  {c.employeur, c.emploi, jourSQLite(c.debut), jourSQLite(c.fin), c.heures, c.brut, c.net, c.jours,
                   c.effectue, c.paye, c.type});
    return int(base.dernierIdInsere());
}

inline int ajouterArretMaladie(const QString& chemin, const QDate& debut, const QDate& fin, int incidencePeriode = 0)
{
    BaseDeDonnees base;
    if (!base.ouvrir(chemin))
        return 0;
    base.executer("INSERT INTO securitesociale (ss_debut, ss_fin, ss_type_id, ss_note, ss_rembourse, ss_nbre_jours, "
                  "ss_nbre_jours_suspendus, ss_incidence_heures, ss_incidence_periode) VALUES (?, ?, 2, '', 0, 0, 0, "
                  "0, ?);",
                  {jourSQLite(debut), jourSQLite(fin), incidencePeriode});
    return int(base.dernierIdInsere());
}

inline int ajouterFrais(const QString& chemin, const QString& details, double montant)
{
    BaseDeDonnees base;
    if (!base.ouvrir(chemin))
        return 0;
    base.executer("INSERT INTO frais (f_categorie, f_details, f_montant, f_date, f_fichier) VALUES (6, ?, ?, "
                  "'2024-03-10 00:00:00.000', '');",
                  {details, montant});
    return int(base.dernierIdInsere());
}

} // namespace corvane::test
