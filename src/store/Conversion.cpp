// Conversion of the earlier product's generations 1, 2 and 2.5 into a generation-3
// document beside the original; the upgrade pass brings the copy to generation 4
// when it is opened. The original is only ever read.

#include "store/Dates.h"
#include "store/Fichiers.h"
#include "store/Horloge.h"
#include "store/Schema.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <sqlite3.h>

namespace corvane {

namespace {

QVariant champ(const Ligne& ligne, const char* colonne, const QVariant& defaut = QString())
{
    const QVariant v = ligne.value(QLatin1String(colonne));
    return v.isNull() ? defaut : v;
}

QString texte(const Ligne& ligne, const char* colonne)
{
    return champ(ligne, colonne).toString();
}

// Old dates were written as date descriptions ("2005-03-14 00:00:00 +0100").
QString dateConvertie(const Ligne& ligne, const char* colonne)
{
    const QString ancienne = texte(ligne, colonne);
    return Dates::depuisSQLite(ancienne).isValid() ? Dates::conversionNSDateDescriptionEnSQLite(ancienne) : QString();
}

// The rows of an old table in ROWID order; none when the table is absent.
Lignes lignesAnciennes(BaseDeDonnees& ancienne, const QString& table)
{
    if (!ancienne.tableExiste(table))
        return {};
    return ancienne.lignes(QStringLiteral("SELECT * FROM %1 ORDER BY ROWID;").arg(table));
}

} // namespace

QString Fichiers::cheminConversion(const QString& chemin)
{
    const QFileInfo info(chemin);
    return QStringLiteral("%1/V%2_%3.%4")
        .arg(info.absolutePath(), QStringLiteral("3"), info.completeBaseName(), QStringLiteral("or3"));
}

QString Fichiers::conversionFichier(const QString& chemin, const QString& generation)
{
    m_erreur.clear();
    const QString cible = cheminConversion(chemin);
    if (QFileInfo::exists(cible)) {
        echouer(QStringLiteral("Le fichier « %1 » existe déjà à côté de l'original : déplacez-le ou renommez-le avant "
                               "de convertir à nouveau.")
                    .arg(QDir::toNativeSeparators(cible)));
        return {};
    }
    if (generation != QStringLiteral("1") && generation != QStringLiteral("2") && generation != QStringLiteral("2.5")) {
        echouer(QStringLiteral("Seuls les fichiers Orvia 1, 2 et 2.5 peuvent être convertis."));
        return {};
    }

    BaseDeDonnees ancienne;
    if (!ancienne.ouvrirEnLecture(chemin)) {
        echouer(QStringLiteral("Le fichier « %1 » ne peut pas être lu.").arg(QDir::toNativeSeparators(chemin)));
        return {};
    }
    BaseDeDonnees nouvelle;
    if (!nouvelle.creer(cible)) {
        echouer(QStringLiteral("Le fichier « %1 » n'a pas pu être créé : %2")
                    .arg(QDir::toNativeSeparators(cible), nouvelle.derniereErreur()));
        return {};
    }
    nouvelle.exec(QStringLiteral("BEGIN;"));
    nouvelle.exec(Schema::texte(Schema::creationV3()));

    // Employers first: contracts find theirs by name.
    for (const Ligne& e : lignesAnciennes(ancienne, QStringLiteral("etablissements"))) {
        nouvelle.executer("INSERT INTO employeurs (e_raison_sociale, e_adresse, e_codepostal, e_commune, e_email, "
                          "e_interlocuteur, e_telephone, e_fax, e_contratmodele_id, e_conventionne) VALUES (?, ?, ?, "
                          "?, ?, ?, ?, ?, 0, 1);",
                          {texte(e, "et_nom"), texte(e, "et_adresse"), texte(e, "et_codepostal"),
                           texte(e, "et_commune"), texte(e, "et_email"), texte(e, "et_contact"),
                           texte(e, "et_telephone"), texte(e, "et_fax")});
    }

    // The profile.
    const Lignes profils = lignesAnciennes(ancienne, QStringLiteral("utilisateur"));
    const Ligne profil = profils.value(0);
    auto idPar = [&nouvelle](const char* sql, const QVariant& valeur, int defaut) {
        const qint64 id = nouvelle.entier(QString::fromUtf8(sql), {valeur});
        return id > 0 ? int(id) : defaut;
    };
    const int emploiId = idPar("SELECT e_id FROM emplois WHERE e_emploi=?;", texte(profil, "u_job"), 1);
    const int abattementId =
        idPar("SELECT a_id FROM abattements WHERE a_pourcentage=?;", champ(profil, "u_abattement", 20), 2);
    QDate ouverture = Dates::depuisSQLite(texte(profil, "u_date_ouverture"));
    if (!ouverture.isValid())
        ouverture = Horloge::aujourdhui();
    nouvelle.executer(
        "INSERT INTO utilisateur (u_id, u_nom, u_prenom, u_pseudonyme, u_telephone, u_nir, u_naissance, u_adresse, "
        "u_codepostal, u_commune, u_emploi_id, u_identifiant_assedic, u_date_debut_dossier, u_conges_spectacles, "
        "u_guso, u_civilite_id, u_audiens, u_email, u_lieu_naissance, u_nationalite, u_pays, u_fax, u_photo, "
        "u_srj_valide, u_taux_valide, u_abattement, u_periode_en_cours, u_nbre_enfants, u_carte_identite, "
        "u_permis_conduire, u_telephone_mobile, u_rib_etablissement, u_rib_guichet, u_rib_compte, u_rib_cle) VALUES "
        "(1, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, '', ?, '', ?, ?, ?, 1, 0, '', '', ?, '', '', '', "
        "'');",
        {texte(profil, "u_nom"),
         texte(profil, "u_prenom"),
         texte(profil, "u_nomusage"),
         texte(profil, "u_telephone"),
         texte(profil, "u_nir"),
         dateConvertie(profil, "u_naissance"),
         texte(profil, "u_adresse"),
         texte(profil, "u_codepostal"),
         texte(profil, "u_commune"),
         emploiId,
         texte(profil, "u_identifiant"),
         Dates::versSQLite(ouverture),
         texte(profil, "u_conges_spectacles"),
         texte(profil, "u_guso"),
         idPar("SELECT c_id FROM civilites WHERE c_civilite_courte=?;", texte(profil, "u_civilite"), 1),
         texte(profil, "u_audiens"),
         texte(profil, "u_email"),
         texte(profil, "u_lieu_naissance"),
         texte(profil, "u_nationalite"),
         texte(profil, "u_fax"),
         champ(profil, "u_srj", 0.0).toDouble(),
         champ(profil, "u_taux", 0.0).toDouble(),
         abattementId,
         texte(profil, "u_mobile")});

    // Expenses: the category is found by its label; an unknown label goes to 'Divers'.
    const int divers = idPar("SELECT ft_id FROM fraistypes WHERE ft_type=?;", QStringLiteral("Divers"), 6);
    for (const Ligne& f : lignesAnciennes(ancienne, QStringLiteral("frais"))) {
        const int categorie =
            idPar("SELECT ft_id AS ft_id_retrouve FROM fraistypes WHERE ft_type=?;", texte(f, "f_categorie"), divers);
        nouvelle.executer(QStringLiteral("INSERT INTO frais (f_categorie, f_details, f_montant, f_date, f_fichier) "
                                         "VALUES (%1, ?, %2, ?, '');")
                              .arg(uint(categorie))
                              .arg(champ(f, "f_montant", 0.0).toDouble(), 0, 'f', 2),
                          {texte(f, "f_libelle"), dateConvertie(f, "f_date")});
    }

    // Contracts carried out, then the planned engagements (not yet carried out).
    auto employeurDe = [&](const Ligne& ancienContrat, const char* colonne) {
        const QString nom = ancienne.texte(QStringLiteral("SELECT et_nom FROM etablissements WHERE et_id = ?;"),
                                           {champ(ancienContrat, colonne, 0)});
        return idPar("SELECT e_id FROM employeurs WHERE e_raison_sociale=?;", nom, 1);
    };
    const QString insertionContrat = QStringLiteral(
        "INSERT INTO contrats (c_employeur_id, c_emploi_id, c_debut_contrat, c_fin_contrat, c_nbre_heures, "
        "c_salaire_brut, c_salaire_net, c_abattement, c_nbre_jours, c_liste_dates, c_effectue, c_paye, c_note, "
        "c_type, c_fonction, c_conges) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?);");
    for (const Ligne& d : lignesAnciennes(ancienne, QStringLiteral("declarations"))) {
        nouvelle.executer(
            insertionContrat,
            {employeurDe(d, "d_etablissement_id"),
             idPar("SELECT e_id FROM emplois WHERE e_emploi=?;", texte(d, "d_emploi"), emploiId),
             dateConvertie(d, "d_debut"), dateConvertie(d, "d_fin"), champ(d, "d_heures", 0).toLongLong(),
             champ(d, "d_brut", 0.0).toDouble(), champ(d, "d_net", 0.0).toDouble(),
             idPar("SELECT a_id FROM abattements WHERE a_pourcentage=?;", champ(d, "d_abattement", -1), abattementId),
             champ(d, "d_jours", 0).toLongLong(), texte(d, "d_dates"), 1, champ(d, "d_paye", 0).toLongLong(),
             texte(d, "d_note"), idPar("SELECT ct_id FROM contratstypes WHERE ct_type=?;", texte(d, "d_type"), 1),
             texte(d, "d_fonction"), champ(d, "d_conges", 1).toLongLong()});
    }
    for (const Ligne& c : lignesAnciennes(ancienne, QStringLiteral("cachets_planifies"))) {
        nouvelle.executer(insertionContrat,
                          {employeurDe(c, "cp_etablissement_id"), emploiId, dateConvertie(c, "cp_debut"),
                           dateConvertie(c, "cp_fin"), champ(c, "cp_heures", 0).toLongLong(),
                           champ(c, "cp_brut", 0.0).toDouble(), 0.0, abattementId, champ(c, "cp_jours", 1).toLongLong(),
                           QString(), 0, 0, texte(c, "cp_note"), 1, QString(), 1});
    }

    // Past periods from the archives, then the current one.
    const QString insertionPeriode =
        QStringLiteral("INSERT INTO periodes (p_date_debut, p_date_fin, p_libelle, p_notes) VALUES (?, ?, ?, ?);");
    for (const Ligne& a : lignesAnciennes(ancienne, QStringLiteral("archives"))) {
        const QString debut = dateConvertie(a, "a_debut");
        const QString fin = dateConvertie(a, "a_fin");
        nouvelle.executer(
            insertionPeriode,
            {debut, fin, libellePeriode(Dates::depuisSQLite(debut), Dates::depuisSQLite(fin)), QString()});
    }
    const QDate finPeriode = finPremierePeriode(emploiId, ouverture);
    nouvelle.executer(insertionPeriode, {ouverture, finPeriode, libellePeriode(ouverture, finPeriode),
                                         QStringLiteral("Période initiale")});
    nouvelle.executer(QStringLiteral("UPDATE utilisateur SET u_periode_en_cours = %1 WHERE u_id = 1;")
                          .arg(nouvelle.dernierIdInsere()));

    const auto preferees = datesPrefereesInitiales(ouverture, finPeriode);
    for (const auto& [element, date] : preferees)
        nouvelle.executer("INSERT INTO datesPeriodesPreferees (dpp_element, dpp_date) VALUES (?, ?);", {element, date});

    if (nouvelle.exec(QStringLiteral("COMMIT;")) != SQLITE_OK) {
        const QString raison = nouvelle.derniereErreur();
        nouvelle.fermer();
        QFile::remove(cible);
        echouer(QStringLiteral("La conversion du fichier « %1 » a échoué : %2")
                    .arg(QDir::toNativeSeparators(chemin), raison));
        return {};
    }
    return cible;
}

} // namespace corvane
