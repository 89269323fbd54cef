#include "GenerateurDocument.h"

#include "store/Dates.h"
#include "store/Fichiers.h"
#include "store/Horloge.h"
#include "store/Schema.h"

#include <QRandomGenerator>

namespace corvane::bench {

namespace {

const char* const kEmployeurs[] = {
    "Théâtre de l'Odéon",    "Opéra de Lyon",  "Radio France", "Festival d'Avignon", "Le Splendid",
    "Compagnie du Ruisseau", "TF1 Production", "La Cigale",    "Zénith de Nantes",   "Comédie-Française"};

void remplir(BaseDeDonnees& base, int contrats, bool generation4)
{
    QRandomGenerator hasard(20240615);
    base.exec(QStringLiteral("BEGIN;"));
    for (int i = 0; i < 40; ++i) {
        base.executer("INSERT INTO employeurs (e_raison_sociale, e_adresse, e_codepostal, e_commune, e_email, "
                      "e_interlocuteur, e_telephone, e_fax, e_contratmodele_id) VALUES (?, ?, ?, ?, '', ?, '', '', 0);",
                      {QStringLiteral("%1 %2").arg(QString::fromUtf8(kEmployeurs[i % 10])).arg(i / 10 + 1),
                       QStringLiteral("%1 rue de la Paix").arg(i + 1), QStringLiteral("750%1").arg(i % 20 + 10),
                       QStringLiteral("Paris"), QStringLiteral("Régie")});
    }
    QDate debut(2012, 1, 3);
    const QString insertion =
        generation4
            ? QStringLiteral("INSERT INTO contrats (c_employeur_id, c_emploi_id, c_debut_contrat, c_fin_contrat, "
                             "c_nbre_heures, c_salaire_brut, c_salaire_net, c_abattement, c_nbre_jours, "
                             "c_liste_dates, c_effectue, c_paye, c_note, c_type, c_fonction, c_conges, "
                             "c_dates_travaillees, c_annee_encaissement) VALUES (?, 1, ?, ?, ?, ?, ?, 2, ?, ?, "
                             "1, ?, ?, 1, 'Comédienne', 1, ?, ?);")
            : QStringLiteral("INSERT INTO contrats (c_employeur_id, c_emploi_id, c_debut_contrat, c_fin_contrat, "
                             "c_nbre_heures, c_salaire_brut, c_salaire_net, c_abattement, c_nbre_jours, "
                             "c_liste_dates, c_effectue, c_paye, c_note, c_type, c_fonction, c_conges) VALUES "
                             "(?, 1, ?, ?, ?, ?, ?, 2, ?, ?, 1, ?, ?, 1, 'Comédienne', 1);");
    Requete requete(base, insertion);
    for (int i = 0; i < contrats; ++i) {
        const int jours = 1 + int(hasard.bounded(4));
        const QDate fin = debut.addDays(jours - 1);
        QStringList liste, dates;
        for (int j = 0; j < jours; ++j) {
            liste << QString::number(debut.addDays(j).day());
            dates << Dates::versAffichage(debut.addDays(j));
        }
        const double brut = 150.0 + double(hasard.bounded(30000)) / 100.0;
        QVariantList valeurs{2 + int(hasard.bounded(40)),
                             debut,
                             fin,
                             12 * jours,
                             brut * jours,
                             std::round(brut * jours * 78.0) / 100.0,
                             jours,
                             liste.join(','),
                             int(hasard.bounded(2)),
                             QStringLiteral("Représentation n°%1").arg(i + 1)};
        if (generation4)
            valeurs << dates.join(',') << fin.year();
        requete.reinitialiser();
        requete.lierTout(valeurs);
        requete.executer();
        debut = fin.addDays(1 + int(hasard.bounded(3)));
    }
    base.exec(QStringLiteral("COMMIT;"));
}

} // namespace

bool genererDocumentV4(const QString& chemin, int contrats)
{
    NouveauDocument p;
    p.nomDuFichier = chemin;
    p.nom = QStringLiteral("Dupré");
    p.prenom = QStringLiteral("Hélène");
    p.dateOuvertureDesDroits = QDate(2023, 10, 1);
    p.taux = 61.2;
    Fichiers fichiers(p);
    if (!fichiers.nouveauV4())
        return false;
    BaseDeDonnees base;
    if (!base.ouvrir(chemin))
        return false;
    remplir(base, contrats, true);
    return true;
}

bool genererDocumentV3(const QString& chemin, int contrats)
{
    BaseDeDonnees base;
    if (!base.creer(chemin))
        return false;
    base.exec(QStringLiteral("BEGIN;"));
    base.exec(Schema::texte(Schema::creationV3()));
    base.exec(QStringLiteral(
        "INSERT INTO utilisateur (u_id, u_nom, u_prenom, u_emploi_id, u_date_debut_dossier, u_civilite_id, "
        "u_srj_valide, u_taux_valide, u_abattement, u_periode_en_cours, u_nbre_enfants) VALUES (1, 'Dupré', "
        "'Hélène', 1, '2013-10-01 00:00:00.000', 1, 98.5, 52.73, 2, 1, 0);"
        "INSERT INTO periodes (p_date_debut, p_date_fin, p_libelle, p_notes) VALUES ('2013-10-01 00:00:00.000', "
        "'2014-08-15 00:00:00.000', 'Période du 01/10/2013 au 15/08/2014', 'Période initiale');"));
    base.exec(QStringLiteral("COMMIT;"));
    remplir(base, contrats, false);
    return true;
}

} // namespace corvane::bench
