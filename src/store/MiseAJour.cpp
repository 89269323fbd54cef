// The upgrade pass, run on every opening of a generation 3 or 4 document. It finds
// what to do only from failing probes and row counts, so a second run changes nothing.

#include "store/Dates.h"
#include "store/ErreursSQLite.h"
#include "store/Fichiers.h"
#include "store/SaisieFrancaise.h"
#include "store/Schema.h"

#include <sqlite3.h>

namespace corvane {

namespace {

// Day numbers of a legacy list ("3,4,12"); blanks and non-numbers are skipped.
QList<int> joursDeLaListe(const QString& liste)
{
    QList<int> jours;
    for (const QString& morceau : liste.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        bool ok = false;
        const int jour = morceau.trimmed().toInt(&ok);
        if (ok)
            jours << jour;
    }
    return jours;
}

// A broken date must not make the worked-dates list endless: the longest contract a
// form may save.
constexpr qint64 kJoursMaximum = Limites::kJoursContratMaximum;

} // namespace

bool Fichiers::colonneManquante(const QString& table, const QString& colonne)
{
    Requete probe(m_db, QStringLiteral("SELECT %1 FROM %2;").arg(colonne, table));
    return !probe.estPreparee();
}

void Fichiers::ajouterColonneSiManquante(const QString& table, const QString& colonne, const QString& definition)
{
    if (colonneManquante(table, colonne))
        m_db.exec(QStringLiteral("ALTER TABLE %1 ADD COLUMN %2 %3;").arg(table, colonne, definition));
}

void Fichiers::executerChacune(const QStringList& instructions)
{
    for (const QString& instruction : instructions)
        m_db.exec(instruction);
}

void Fichiers::remplirDatesTravailleesDepuisListe()
{
    const qint64 maximum = m_db.entier(QStringLiteral("SELECT MAX(c_id) FROM contrats;"));
    Requete lecture(m_db, QStringLiteral("SELECT c_liste_dates, c_debut_contrat, c_fin_contrat FROM contrats WHERE "
                                         "c_id = ? AND c_dates_travaillees = '';"));
    Requete ecriture(m_db, QStringLiteral("UPDATE contrats SET c_dates_travaillees = ? WHERE c_id = ?;"));
    for (qint64 id = 1; id <= maximum; ++id) {
        lecture.reinitialiser();
        lecture.lier(1, id);
        if (!lecture.suivante())
            continue;
        const QDate debut = Dates::depuisSQLite(lecture.texte(1));
        const QDate fin = Dates::depuisSQLite(lecture.texte(2));
        if (!debut.isValid() || !fin.isValid())
            continue;
        QList<int> jours = joursDeLaListe(lecture.texte(0));
        if (jours.isEmpty())
            jours << debut.day();
        const int plusGrand = *std::max_element(jours.cbegin(), jours.cend());
        QStringList dates;
        for (int jour : jours) {
            // The largest day is taken to fall in the end's month, every other in the start's.
            const QDate& reference = jour == plusGrand ? fin : debut;
            dates << QStringLiteral("%1/%2/%3").arg(jour).arg(reference.month()).arg(reference.year());
        }
        ecriture.reinitialiser();
        ecriture.lier(1, dates.join(QLatin1Char(','))).lier(2, id);
        ecriture.executer();
    }
}

void Fichiers::remplirAnneeEncaissementDepuisDebut()
{
    const Lignes contrats = m_db.lignes(QStringLiteral("SELECT c_id, c_debut_contrat FROM contrats;"));
    for (const Ligne& contrat : contrats) {
        const QDate debut = Dates::depuisSQLite(contrat.value(QStringLiteral("c_debut_contrat")).toString());
        m_db.exec(QStringLiteral("UPDATE contrats SET c_annee_encaissement = %1  WHERE c_id = %2;")
                      .arg(debut.isValid() ? debut.year() : 0)
                      .arg(contrat.value(QStringLiteral("c_id")).toUInt()));
    }
}

void Fichiers::remplirDatesTravailleesEtAnnee()
{
    if (m_db.entier(QStringLiteral("SELECT COUNT(*) FROM contrats WHERE c_dates_travaillees = '';")) <= 0)
        return;
    const Lignes contrats = m_db.lignes(QStringLiteral("SELECT c_id, c_debut_contrat, c_fin_contrat FROM contrats "
                                                       "WHERE c_dates_travaillees = '' OR c_annee_encaissement is "
                                                       "null;"));
    Requete ecriture(m_db, QStringLiteral("UPDATE contrats SET c_annee_encaissement = ?, c_dates_travaillees = ? "
                                          "WHERE c_id = ?;"));
    for (const Ligne& contrat : contrats) {
        const QDate debut = Dates::depuisSQLite(contrat.value(QStringLiteral("c_debut_contrat")).toString());
        const QDate fin = Dates::depuisSQLite(contrat.value(QStringLiteral("c_fin_contrat")).toString());
        if (!debut.isValid() || !fin.isValid())
            continue;
        const qint64 nombre = qMin(Dates::joursEntre(debut, fin) + 1, kJoursMaximum);
        QStringList dates;
        for (qint64 i = 0; i < nombre; ++i)
            dates << Dates::versAffichage(debut.addDays(i));
        ecriture.reinitialiser();
        ecriture.lier(1, fin.year()).lier(2, dates.join(QLatin1Char(','))).lier(3, contrat.value("c_id"));
        ecriture.executer();
    }
}

void Fichiers::nouveautesVerif()
{
    m_erreur.clear();
    if (!m_db.estOuverte())
        return;
    // One transaction: an interrupted upgrade leaves the document as it was.
    if (const int rc = m_db.exec(QStringLiteral("BEGIN IMMEDIATE;")); rc != SQLITE_OK) {
        echouer(ErreursSQLite::estOccupe(rc) ? ErreursSQLite::fichierUtilise(m_cheminDuFichier)
                                             : QStringLiteral("Le fichier « %1 » n'a pas pu être mis à jour : %2")
                                                   .arg(m_cheminDuFichier, m_db.derniereErreur()));
        return;
    }

    // 1 to 4
    ajouterColonneSiManquante("contratsmodeles", "cm_employeur", "INTEGER DEFAULT 1");
    ajouterColonneSiManquante("securitesociale", "ss_total_ij", "REAL DEFAULT 0");
    ajouterColonneSiManquante("securitesociale", "ss_ald", "INTEGER DEFAULT 0");
    ajouterColonneSiManquante("employeurs", "e_conventionne", "INTEGER DEFAULT 1");
    // 5 and 6
    if (m_db.entier(QStringLiteral("SELECT COUNT(*) FROM emplois;")) == 3)
        m_db.exec(QStringLiteral("INSERT INTO emplois (e_emploi) VALUES ('Régime Général');"));
    if (m_db.entier(QStringLiteral("SELECT COUNT(*) FROM contratstypes;")) == 3)
        m_db.exec(QStringLiteral("INSERT INTO contratstypes (ct_type) VALUES ('Régime Général');"));
    // 7
    if (colonneManquante("employeurs", "e_latitude")) {
        m_db.exec(QStringLiteral("ALTER TABLE employeurs ADD COLUMN e_latitude REAL DEFAULT 0;"));
        m_db.exec(QStringLiteral("ALTER TABLE employeurs ADD COLUMN e_longitude REAL DEFAULT 0;"));
    }
    // 8: the generation-4 content, for a program of version 4.
    if (versionProgramme().startsWith(QLatin1Char('4'))) {
        if (m_db.entier(QStringLiteral("SELECT COUNT(*) FROM emplois;")) == 4) {
            executerChacune(Schema::miseAJourV4AvantDatesTravaillees());
            remplirDatesTravailleesDepuisListe();
            executerChacune(Schema::miseAJourV4AvantAnneeEncaissement());
            remplirAnneeEncaissementDepuisDebut();
            executerChacune(Schema::miseAJourV4Fin());
        }
        ajouterColonneSiManquante("contratsmodeles", "cm_salaire_net_a_payer", "REAL DEFAULT 0");
    }
    // 9
    ajouterColonneSiManquante("contrats", "c_aem_fp", "INTEGER DEFAULT 1");
    // 10
    remplirDatesTravailleesEtAnnee();
    // 11
    ajouterColonneSiManquante("utilisateur", "u_rib_iban", "VARCHAR DEFAULT ''");
    if (m_db.entier(QStringLiteral("SELECT COUNT(*) FROM droitsvoisinsorganismes;")) == 6)
        m_db.exec(QStringLiteral("INSERT INTO droitsvoisinsorganismes (dvo_nom) VALUES ('Agessa');"));
    ajouterColonneSiManquante("periodes", "p_conges", "TINYINT DEFAULT 0");
    ajouterColonneSiManquante("periodes", "p_franchise_salaires", "TINYINT DEFAULT 0");
    if (m_db.entier(QStringLiteral("SELECT COUNT(*) FROM droitsvoisinsorganismes;")) == 7)
        m_db.exec(QStringLiteral("INSERT INTO droitsvoisinsorganismes (dvo_nom) VALUES ('SACD');"));
    ajouterColonneSiManquante("periodes", "p_attente", "TINYINT DEFAULT 7");
    // 12: the link table between contracts and expenses, from the links each expense names.
    if (colonneManquante("contrats_frais", "id")) {
        m_db.exec(Schema::creationContratsFrais());
        const QString orphelins =
            QStringLiteral("NOT EXISTS (SELECT C.c_id, C.c_frais_lies FROM contrats C WHERE C.c_frais_lies = f_id OR "
                           "C.c_frais_lies LIKE f_id || ',%' OR C.c_frais_lies LIKE '%,' || f_id || ',%' OR "
                           "C.c_frais_lies LIKE '%,' || f_id)");
        if (m_db.entier(QStringLiteral("SELECT COUNT(*) FROM frais F LEFT JOIN contrats C ON C.c_id = F.f_contrat_lie "
                                       "WHERE F.f_contrat_lie != '' AND ") +
                        orphelins + QLatin1Char(';')) > 0)
            m_db.exec(QStringLiteral("UPDATE frais SET f_contrat_lie = '' WHERE f_contrat_lie != '' AND ") + orphelins +
                      QLatin1Char(';'));
        m_db.exec(QStringLiteral("INSERT INTO contrats_frais (contrat_id, frais_id) SELECT f_contrat_lie, f_id FROM "
                                 "frais WHERE f_contrat_lie != '';"));
    }
    // 15 and 16
    if (colonneManquante("utilisateur", "u_pas")) {
        m_db.exec(QStringLiteral("ALTER TABLE utilisateur ADD COLUMN u_pas REAL DEFAULT 0;"));
        m_db.exec(QStringLiteral("ALTER TABLE contrats ADD COLUMN c_pas REAL DEFAULT 0;"));
    }
    if (colonneManquante("utilisateur", "u_annee_blanche"))
        m_db.exec(QStringLiteral("ALTER TABLE utilisateur ADD COLUMN u_annee_blanche TINYINT DEFAULT 0;"));

    if (const int rc = m_db.exec(QStringLiteral("COMMIT;")); rc != SQLITE_OK) {
        const QString raison = m_db.derniereErreur();
        m_db.exec(QStringLiteral("ROLLBACK;"));
        // A reader holding the document makes the commit wait: in use, as for a writer.
        echouer(
            ErreursSQLite::estOccupe(rc)
                ? ErreursSQLite::fichierUtilise(m_cheminDuFichier)
                : QStringLiteral("Le fichier « %1 » n'a pas pu être mis à jour : %2").arg(m_cheminDuFichier, raison));
    }
}

} // namespace corvane
