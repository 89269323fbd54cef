#include "store/Sauvegardes.h"

#include "store/Dates.h"
#include "store/ErreursSQLite.h"
#include "store/Horloge.h"
#include "store/Intermittent.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <sqlite3.h>

namespace corvane::Sauvegardes {

QString constructionNomFichierSauvegarde(bool prefixe, bool nom, bool date, const QString& chemin, int formatDate)
{
    if (chemin.isEmpty())
        return QStringLiteral("aucun fichier ouvert...");
    if (!prefixe && !nom && !date)
        return QStringLiteral("sauvegarde");
    const QString surnom = Intermittent(chemin).retrouveNomUtilisateur();
    QString resultat;
    if (prefixe)
        resultat += QStringLiteral("Corvane");
    if (!surnom.isEmpty() && nom)
        resultat += prefixe ? QStringLiteral("_") + surnom : surnom;
    if (surnom.isEmpty() && nom && !prefixe && !date)
        resultat += QStringLiteral("...");
    if (date) {
        const QDate jour = Horloge::aujourdhui();
        QString texte;
        if (formatDate == 0)
            texte = QStringLiteral("%1%2%3")
                        .arg(jour.year())
                        .arg(jour.month(), 2, 10, QLatin1Char('0'))
                        .arg(jour.day(), 2, 10, QLatin1Char('0'));
        else if (formatDate == 1)
            texte = QStringLiteral("%1%2%3")
                        .arg(jour.day(), 2, 10, QLatin1Char('0'))
                        .arg(jour.month(), 2, 10, QLatin1Char('0'))
                        .arg(jour.year());
        const bool unSeul = prefixe != nom;
        const bool separe = (prefixe && nom) || (unSeul && (!surnom.isEmpty() || prefixe));
        resultat += separe ? QStringLiteral("_") + texte : texte;
    }
    return resultat;
}

bool copier(const QString& source, const QString& destination, QString* erreur)
{
    auto echec = [erreur](const QString& raison) {
        if (erreur)
            *erreur = raison;
        return false;
    };
    // An empty name would make Qt warn on stderr and put the copy in the current folder.
    if (destination.isEmpty())
        return echec(QStringLiteral("aucun fichier de destination n'a été indiqué."));
    if (QFileInfo(source).absoluteFilePath() == QFileInfo(destination).absoluteFilePath())
        return echec(QStringLiteral("la copie ne peut pas remplacer le fichier lui-même."));
    BaseDeDonnees origine;
    if (!origine.ouvrirEnLecture(source))
        return echec(QStringLiteral("le fichier « %1 » ne peut pas être lu.").arg(QDir::toNativeSeparators(source)));
    const QFileInfo cible(destination);
    if (!cible.absoluteDir().exists())
        return echec(
            QStringLiteral("le dossier « %1 » n'existe pas.").arg(QDir::toNativeSeparators(cible.absolutePath())));
    // Only an ordinary file is replaced: a device or a pipe under that name is not the user's
    // old backup, and removing it (as an administrator can) breaks the system.
    if (cible.exists() && !cible.isFile() && !cible.isDir())
        return echec(QStringLiteral("« %1 » n'est pas un fichier ordinaire : choisissez un autre nom.")
                         .arg(QDir::toNativeSeparators(destination)));

    // Written beside the destination first, then put in its place: a copy that fails
    // never leaves a half-written file under the chosen name.
    const QString provisoire = destination + QStringLiteral(".copie-en-cours");
    QFile::remove(provisoire);
    sqlite3* copie = nullptr;
    int rc =
        sqlite3_open_v2(provisoire.toUtf8().constData(), &copie, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    if (rc == SQLITE_OK) {
        sqlite3_backup* sauvegarde = sqlite3_backup_init(copie, "main", origine.handle(), "main");
        if (!sauvegarde) {
            rc = sqlite3_errcode(copie);
        } else {
            rc = sqlite3_backup_step(sauvegarde, -1);
            const int fin = sqlite3_backup_finish(sauvegarde);
            rc = rc == SQLITE_DONE ? fin : rc;
        }
    }
    const QString raison = ErreursSQLite::raison(copie ? sqlite3_extended_errcode(copie) : rc);
    sqlite3_close(copie);
    if (rc != SQLITE_OK) {
        QFile::remove(provisoire);
        return echec(QStringLiteral("l'écriture dans « %1 » a échoué (%2).")
                         .arg(QDir::toNativeSeparators(cible.absolutePath()), raison));
    }
    if (QFileInfo::exists(destination) && !QFile::remove(destination)) {
        QFile::remove(provisoire);
        return echec(
            QStringLiteral("le fichier « %1 » ne peut pas être remplacé.").arg(QDir::toNativeSeparators(destination)));
    }
    if (!QFile::rename(provisoire, destination)) {
        QFile::remove(provisoire);
        return echec(
            QStringLiteral("le fichier « %1 » ne peut pas être écrit.").arg(QDir::toNativeSeparators(destination)));
    }
    return true;
}

bool enregistrerDateSauvegarde(const QString& chemin, QString* erreur)
{
    Intermittent document(chemin);
    BaseDeDonnees& db = document.db();
    const QString aujourdhui = Dates::versSQLite(Horloge::aujourdhui());
    // BEGIN IMMEDIATE waits (busy timeout) for another program's write to finish; a date
    // that still cannot be written is reported, not dropped.
    int rc = db.exec(QStringLiteral("BEGIN IMMEDIATE;"));
    if (rc == SQLITE_OK) {
        db.executer(QStringLiteral("INSERT INTO fichiersauvegardes (fs_date) SELECT ? WHERE NOT EXISTS (SELECT 1 FROM "
                                   "fichiersauvegardes);"),
                    {aujourdhui});
        db.executer(QStringLiteral("UPDATE fichiersauvegardes SET fs_date = ? WHERE fs_id = 1;"), {aujourdhui});
        rc = db.exec(QStringLiteral("COMMIT;"));
        if (rc != SQLITE_OK)
            db.exec(QStringLiteral("ROLLBACK;"));
    }
    if (rc != SQLITE_OK && erreur)
        *erreur = ErreursSQLite::raison(rc, chemin);
    return rc == SQLITE_OK;
}

bool sauvegardeDe(const QString& source, const QString& destination, QString* erreur)
{
    return copier(source, destination, erreur) && enregistrerDateSauvegarde(source, erreur);
}

QDate dateDerniereSauvegarde(const QString& chemin)
{
    Intermittent document(chemin);
    return Dates::convertionDateSQLiteEnNSDate(
               document.db().texte(QStringLiteral("SELECT fs_date FROM fichiersauvegardes WHERE fs_id = 1;")))
        .date();
}

void copieDeSauvegardeWithFile(const QString& chemin, Dialogues& dialogues, Reglages& reglages)
{
    const int existantes = Intermittent(chemin).compteLesEnregistrements(QStringLiteral("fichiersauvegardes"));
    const QString dernierDossier = reglages.texte(Reglages::Cle::FilesLastPath);
    const QString dossier =
        dernierDossier.isEmpty()
            ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) + QStringLiteral("/Corvane")
            : dernierDossier;
    const QString nom = constructionNomFichierSauvegarde(reglages.booleen(Reglages::Cle::FichierSauvegardePrefixe),
                                                         reglages.booleen(Reglages::Cle::FichierSauvegardeNom),
                                                         reglages.booleen(Reglages::Cle::FichierSauvegardeDate), chemin,
                                                         reglages.entier(Reglages::Cle::SaveDateFormat));
    QString destination = dialogues.choisirFichierAEnregistrer(QStringLiteral("Copie de sauvegarde"), dossier, nom,
                                                               QStringLiteral("cv4"));
    if (destination.isEmpty())
        return;
    if (QFileInfo(destination).suffix().isEmpty())
        destination += QStringLiteral(".cv4");
    if (QFileInfo(destination).absoluteFilePath() == QFileInfo(chemin).absoluteFilePath()) {
        dialogues.information(QStringLiteral("Sauvegardes"),
                              QStringLiteral("Vous ne pouvez pas enregistrer une copie de sauvegarde en écrasant le "
                                             "fichier en cours.\n\nToutes vos informations sont déjà enregistrées dans "
                                             "celui-ci."),
                              QStringLiteral("Fermer"));
        return;
    }
    QString raison;
    if (!copier(chemin, destination, &raison)) {
        dialogues.information(QStringLiteral("Sauvegardes"),
                              QStringLiteral("La copie de sauvegarde n'a pas pu être effectuée : %1").arg(raison),
                              QStringLiteral("Fermer"));
        return;
    }
    reglages.ecrire(Reglages::Cle::FilesLastPath, QFileInfo(destination).absolutePath());
    const QString aujourdhui = Dates::versSQLite(Horloge::aujourdhui());
    Intermittent document(chemin);
    // The update carries a stray ")" and fails: this path records only the first backup's
    // date, while sauvegardeDe() records every one.
    if (existantes == 0)
        document.db().exec(QStringLiteral("INSERT INTO fichiersauvegardes (fs_date) VALUES ('%1');").arg(aujourdhui));
    else
        document.db().exec(
            QStringLiteral("UPDATE fichiersauvegardes SET fs_date='%1' WHERE fs_id=1);").arg(aujourdhui));
    dialogues.information(QStringLiteral("Sauvegardes"),
                          QStringLiteral("La sauvegarde de votre fichier a été effectuée."), QStringLiteral("Fermer"));
}

bool sauvegardePrevueAujourdhui(const QString& chemin, const Reglages& reglages)
{
    const QDate derniere = dateDerniereSauvegarde(chemin);
    return derniere.isValid() &&
           derniere.addDays(reglages.entier(Reglages::Cle::FichierSauvegardeJours)) == Horloge::aujourdhui();
}

void addFileToPreferences(const QString& chemin, Reglages& reglages)
{
    QStringList connus = reglages.liste(Reglages::Cle::Files);
    if (!connus.contains(chemin))
        connus.append(chemin);
    reglages.ecrire(Reglages::Cle::Files, connus);
    reglages.synchroniser();
}

void removeFileFromPreferences(const QString& chemin, Reglages& reglages)
{
    QStringList connus = reglages.liste(Reglages::Cle::Files);
    if (connus.removeAll(chemin) > 0)
        reglages.ecrire(Reglages::Cle::Files, connus);
}

} // namespace corvane::Sauvegardes
