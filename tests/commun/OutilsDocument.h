#pragma once

// Helpers shared by the tests: documents made from fixtures, fingerprints and dumps.

#include "commun/Cas.h"
#include "store/BaseDeDonnees.h"
#include "store/Document.h"
#include "store/Fichiers.h"

#include <QCryptographicHash>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStringList>
#include <QtTest>

namespace corvane::test {

// The document at `chemin` opened as the program opens it, owned by `parent`; none for an empty path.
inline Document* documentOuvert(const QString& chemin, QObject* parent)
{
    if (chemin.isEmpty())
        return nullptr;
    auto* document = new Document(parent);
    if (!document->ouvrir(chemin)) {
        delete document;
        return nullptr;
    }
    return document;
}

inline QString donnee(const QString& nom)
{
    return QStringLiteral(CORVANE_DONNEES_TEST "/") + nom;
}

// Builds a database at `chemin` from an SQL script of tests/data.
inline void documentDepuisScript(const QString& script, const QString& chemin)
{
    QFile f(donnee(script));
    QVERIFY2(f.open(QIODevice::ReadOnly), qPrintable(script));
    BaseDeDonnees base;
    QVERIFY(base.creer(chemin));
    QCOMPARE(base.exec(QString::fromUtf8(f.readAll())), 0);
}

inline QByteArray lire(const QString& chemin)
{
    QFile f(chemin);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

inline void ecrire(const QString& chemin, const QByteArray& octets)
{
    QFile f(chemin);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write(octets);
}

inline NouveauDocument parametresParDefaut(const QString& chemin)
{
    NouveauDocument p;
    p.nomDuFichier = chemin;
    p.nom = QStringLiteral("Dupont");
    p.prenom = QStringLiteral("Jeanne");
    p.emploiId = 1;
    p.civiliteId = 1;
    p.taux = 57.4;
    p.dateOuvertureDesDroits = QDate(2024, 3, 1);
    return p;
}

// Creates a document as the program does; returns its path (a failure is reported and the test's checks then fail).
inline QString creerDocument(const NouveauDocument& parametres)
{
    Fichiers fichiers(parametres);
    if (!fichiers.nouveauV4())
        qWarning() << fichiers.erreur();
    return parametres.nomDuFichier;
}

// Opens a document as the program does (so the upgrade pass runs); returns the path opened.
inline QString ouvrirDocument(const QString& chemin)
{
    DialoguesScriptes dialogues;
    return Fichiers().ouvertureSQLite(chemin, QString(), dialogues);
}

// The first value a query gives, as text.
inline QString valeur(const QString& chemin, const QString& sql)
{
    BaseDeDonnees base;
    if (!base.ouvrirEnLecture(chemin))
        return QStringLiteral("<illisible>");
    return base.texte(sql);
}

// The first value a query gives, as a number.
inline qint64 nombre(const QString& chemin, const QString& sql)
{
    BaseDeDonnees base;
    return base.ouvrirEnLecture(chemin) ? base.entier(sql) : -1;
}

// Runs SQL text on the document as another program would; a statement that fails fails the test.
inline void executerSql(const QString& chemin, const QString& sql)
{
    BaseDeDonnees base;
    QVERIFY(base.ouvrir(chemin));
    QCOMPARE(base.exec(sql), 0);
}

inline QByteArray empreinte(const QString& chemin)
{
    QFile f(chemin);
    if (chemin.isEmpty() || !f.open(QIODevice::ReadOnly))
        return {};
    return QCryptographicHash::hash(f.readAll(), QCryptographicHash::Sha256).toHex();
}

// The schema and every row of every table, as text: two dumps are equal when the
// documents hold the same thing.
inline QString dump(const QString& chemin)
{
    BaseDeDonnees base;
    if (!base.ouvrirEnLecture(chemin))
        return QStringLiteral("<illisible>");
    QStringList lignes = base.colonne(QStringLiteral("SELECT sql FROM sqlite_master ORDER BY name;"));
    for (const QString& table : base.tables()) {
        Requete r(base, QStringLiteral("SELECT * FROM \"%1\" ORDER BY rowid;").arg(table));
        while (r.suivante()) {
            QStringList valeurs;
            for (int i = 0; i < r.nombreColonnes(); ++i)
                valeurs << (r.estNul(i) ? QStringLiteral("NULL") : r.texte(i));
            lignes << table + QLatin1Char('|') + valeurs.join(QLatin1Char('|'));
        }
    }
    return lignes.join(QLatin1Char('\n'));
}

struct ResultatCli
{
    int code = -1;
    QByteArray sortie;
    QString erreurs;
};

// Runs a program; a crash or a hang gives the code -1.
inline ResultatCli lancerProgramme(const QString& programme, const QStringList& arguments)
{
    QProcess processus;
    processus.start(programme, arguments);
    if (!processus.waitForFinished(60000)) {
        processus.kill();
        processus.waitForFinished();
        return {};
    }
    return {processus.exitStatus() == QProcess::NormalExit ? processus.exitCode() : -1,
            processus.readAllStandardOutput(), QString::fromUtf8(processus.readAllStandardError())};
}

inline ResultatCli lancerCli(const QStringList& arguments)
{
    return lancerProgramme(QStringLiteral(CORVANE_CLI_EXE), arguments);
}

// The one JSON document a command printed.
inline QJsonObject lireJson(const ResultatCli& resultat)
{
    QJsonParseError erreur;
    const QJsonDocument document = QJsonDocument::fromJson(resultat.sortie, &erreur);
    if (erreur.error != QJsonParseError::NoError || !document.isObject())
        qWarning() << "JSON illisible :" << erreur.errorString() << resultat.sortie << resultat.erreurs;
    return document.object();
}

} // namespace corvane::test
