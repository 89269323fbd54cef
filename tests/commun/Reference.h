#pragma once

// Stored reference outputs under tests/data/reference/: an output is compared whole with
// its stored copy, so that a change no single assertion names still shows. After an
// intended change, run the tests with CORVANE_REGENERER=1 to rewrite the stored copies,
// then review the difference (git diff tests/data) before committing it.

#include "commun/OutilsDocument.h"

#include <QFile>
#include <QtTest>

namespace corvane::test {

inline bool regenererReferences()
{
    return qEnvironmentVariableIntValue("CORVANE_REGENERER") == 1;
}

// Fails the calling test, naming the first line that differs; rewrites the stored copy instead
// when asked to.
#define CORVANE_COMPARER_REFERENCE(obtenu, nom)                                                                        \
    do {                                                                                                               \
        if (!corvane::test::comparerReference((obtenu), (nom)))                                                        \
            return;                                                                                                    \
    } while (false)

inline bool comparerReference(const QByteArray& obtenu, const QString& nom)
{
    const QString chemin = donnee(QStringLiteral("reference/") + nom);
    QFile fichier(chemin);
    if (regenererReferences()) {
        if (!fichier.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
            QTest::qFail(qPrintable(chemin + " cannot be written"), __FILE__, __LINE__);
            return false;
        }
        fichier.write(obtenu);
        return true;
    }
    if (!fichier.open(QIODevice::ReadOnly)) {
        QTest::qFail(qPrintable(chemin + " missing: run with CORVANE_REGENERER=1"), __FILE__, __LINE__);
        return false;
    }
    const QByteArray attendu = fichier.readAll();
    if (obtenu == attendu)
        return true;
    const QList<QByteArray> a = attendu.split('\n'), o = obtenu.split('\n');
    qsizetype i = 0;
    while (i < qMin(a.size(), o.size()) && a[i] == o[i])
        ++i;
    const QString message = QStringLiteral("%1, line %2\n   got: %3\n  want: %4")
                                .arg(nom)
                                .arg(i + 1)
                                .arg(QString::fromUtf8(o.value(i, "<end>")), QString::fromUtf8(a.value(i, "<end>")));
    QTest::qFail(qPrintable(message), __FILE__, __LINE__);
    return false;
}

// A listing as text, one line per row, its keys first: compared whole with a stored copy.
inline QByteArray texteTable(const Table& table)
{
    QStringList lignes{table.cles.join(QLatin1Char('|'))};
    for (const QVariantList& rangee : table.rangees) {
        QStringList valeurs;
        for (const QVariant& v : rangee)
            valeurs << (v.isNull() ? QStringLiteral("NULL") : v.toString());
        lignes << valeurs.join(QLatin1Char('|'));
    }
    return (lignes.join(QLatin1Char('\n')) + QLatin1Char('\n')).toUtf8();
}

// Rows keyed by name as text: the keys of the first row, then one line per row.
inline QByteArray texteLignes(const Lignes& lignes)
{
    Table table;
    if (!lignes.isEmpty())
        table.cles = lignes.first().keys();
    for (const Ligne& ligne : lignes) {
        QVariantList rangee;
        for (const QString& cle : table.cles)
            rangee << ligne.value(cle);
        table.rangees << rangee;
    }
    return texteTable(table);
}

// The rows a query gives, with its column names first: NULL shows as NULL, an empty text as nothing.
inline QByteArray texteRequete(const QString& chemin, const QString& sql)
{
    BaseDeDonnees base;
    if (!base.ouvrirEnLecture(chemin))
        return "<illisible>";
    Requete r(base, sql);
    QStringList lignes;
    while (r.suivante()) {
        QStringList valeurs, noms;
        for (int i = 0; i < r.nombreColonnes(); ++i) {
            noms << r.nomColonne(i);
            valeurs << (r.estNul(i) ? QStringLiteral("NULL") : r.texte(i));
        }
        if (lignes.isEmpty())
            lignes << noms.join(QLatin1Char('|'));
        lignes << valeurs.join(QLatin1Char('|'));
    }
    return (lignes.join(QLatin1Char('\n')) + QLatin1Char('\n')).toUtf8();
}

} // namespace corvane::test
