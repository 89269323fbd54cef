#include "store/ErreursSQLite.h"

#include <QDir>
#include <sqlite3.h>

namespace corvane::ErreursSQLite {

bool estOccupe(int code)
{
    const int primaire = code & 0xFF;
    return primaire == SQLITE_BUSY || primaire == SQLITE_LOCKED;
}

QString raison(int code)
{
    switch (code & 0xFF) {
    case SQLITE_OK:
    case SQLITE_ROW:
    case SQLITE_DONE:
        return {};
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return QStringLiteral("le fichier est utilisé par un autre programme");
    case SQLITE_NOMEM:
        return QStringLiteral("la mémoire est insuffisante");
    case SQLITE_READONLY:
        if (code == SQLITE_READONLY_ROLLBACK)
            return QStringLiteral("le fichier doit être réparé après un enregistrement interrompu, mais lui ou son "
                                  "dossier est protégé en écriture");
        return QStringLiteral("le fichier est protégé en écriture");
    case SQLITE_IOERR:
        return QStringLiteral("une erreur de lecture ou d'écriture sur le disque s'est produite");
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return QStringLiteral("le fichier est endommagé");
    case SQLITE_FULL:
        return QStringLiteral("le disque est plein");
    case SQLITE_CANTOPEN:
        return QStringLiteral("le fichier ne peut pas être ouvert");
    case SQLITE_PERM:
    case SQLITE_AUTH:
        return QStringLiteral("l'accès au fichier est refusé");
    case SQLITE_CONSTRAINT:
        return QStringLiteral("une valeur n'est pas acceptée par le fichier");
    case SQLITE_TOOBIG:
        return QStringLiteral("une valeur est trop grande");
    default:
        return QStringLiteral("le fichier a refusé l'opération (erreur SQLite %1)").arg(code);
    }
}

QString raison(int code, const QString& chemin)
{
    const QString texte = raison(code);
    const QString fichier = QStringLiteral("le fichier « %1 »").arg(QDir::toNativeSeparators(chemin));
    return chemin.isEmpty() || !texte.startsWith(QStringLiteral("le fichier "))
               ? texte
               : fichier + texte.mid(QStringLiteral("le fichier").size());
}

QString fichierUtilise(const QString& chemin)
{
    return QStringLiteral("Le fichier « %1 » est utilisé par un autre programme.")
        .arg(QDir::toNativeSeparators(chemin));
}

} // namespace corvane::ErreursSQLite
