#include "store/Verrou.h"

#include "store/Intermittent.h"

namespace corvane::Verrou {

bool isFileLocked(const QString& chemin)
{
    return Intermittent(chemin).isFileLocked();
}

QString motDePasse(const QString& chemin)
{
    Intermittent document(chemin);
    const QString enregistre = document.db().texte(QStringLiteral("SELECT f_password FROM file WHERE f_id = 1;"));
    return QString::fromUtf8(QByteArray::fromBase64(enregistre.toLatin1()));
}

bool estLeMotDePasse(const QString& chemin, const QString& tape)
{
    return tape == motDePasse(chemin);
}

void enregistrerVerrouillage(const QString& chemin, bool verrouille)
{
    Intermittent document(chemin);
    document.db().exec(verrouille ? QStringLiteral("UPDATE file SET f_locked = 1;")
                                  : QStringLiteral("UPDATE file SET f_locked = 0;"));
}

void changerMotDePasse(const QString& chemin, const QString& nouveau)
{
    Intermittent document(chemin);
    document.db().executer(QStringLiteral("UPDATE file SET f_password = ? WHERE f_id = 1;"), {encoder(nouveau)});
}

QString encoder(const QString& motDePasse)
{
    return QString::fromLatin1(motDePasse.toUtf8().toBase64());
}

} // namespace corvane::Verrou
