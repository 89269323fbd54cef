#include "manager/ListesIds.h"

#include <QStringList>

namespace corvane::ListesIds {

QList<int> ids(const QString& liste)
{
    QList<int> resultat;
    for (const QString& morceau : liste.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        bool ok = false;
        const int id = morceau.trimmed().toInt(&ok);
        if (ok)
            resultat << id;
    }
    return resultat;
}

bool contient(const QString& liste, int id)
{
    return ids(liste).contains(id);
}

QString ajoute(const QString& liste, int id)
{
    if (liste.isEmpty())
        return QString::number(id);
    if (contient(liste, id))
        return liste;
    return liste + QLatin1Char(',') + QString::number(id);
}

QString retire(const QString& liste, int id)
{
    QStringList morceaux = liste.split(QLatin1Char(','));
    morceaux.removeAll(QString::number(id));
    return morceaux.join(QLatin1Char(','));
}

QList<int> sauf(const QString& liste, const QString& retires)
{
    const QList<int> exclus = ids(retires);
    QList<int> resultat;
    for (const int id : ids(liste))
        if (!exclus.contains(id))
            resultat << id;
    return resultat;
}

QString motifTexte(int id)
{
    return QLatin1Char('%') + QString::number(id) + QLatin1Char('%');
}

} // namespace corvane::ListesIds
