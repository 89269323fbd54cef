// corvane-cli's commands run in-process from stored scenarios (tests/data/reference/cli_*.txt),
// each a list of command lines with the output they give, compared whole:
//   $ ARGUMENTS         a command; "$D" is the scenario's own temporary folder
//   | ...  ! ...  [n]   what it wrote on stdout, on stderr, and its exit code when not 0
//   % DIRECTIVE ...     a step outside the command line (see directive() below)
//   # ...               a comment
// Whatever a scenario says, a refused command must exit 1 or 2 with a French message on
// stderr, print nothing on stdout and leave every file of the folder as it was; a
// command that succeeds says nothing on stderr. The day is 2024-06-15 unless a command
// gives --aujourdhui. cli_fuseaux*.txt run in every time zone of the suite, the others in
// Paris. After an intended change of output, run with CORVANE_REGENERER=1 and review the
// difference (see commun/Reference.h).

#include "commun/OutilsCli.h"
#include "commun/Reference.h"

#ifdef CORVANE_AVEC_PDF
#include "exchange/test_pdf_lecture.h"
#endif

#include <QDirIterator>
#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

namespace {

// Blanks separate arguments; "..." and '...' keep them together ('' is an empty argument).
QStringList decouper(const QString& ligne)
{
    QStringList arguments;
    QString courant;
    bool enCours = false;
    QChar guillemet;
    for (const QChar c : ligne) {
        if (!guillemet.isNull()) {
            if (c == guillemet)
                guillemet = QChar();
            else
                courant += c;
        } else if (c == QLatin1Char('"') || c == QLatin1Char('\'')) {
            guillemet = c;
            enCours = true;
        } else if (c.isSpace()) {
            if (enCours)
                arguments << courant;
            courant.clear();
            enCours = false;
        } else {
            courant += c;
            enCours = true;
        }
    }
    if (enCours)
        arguments << courant;
    return arguments;
}

// Every file under the folder with its fingerprint: a refused command must leave it as it was.
QStringList etatDuDossier(const QString& dossier)
{
    QStringList etat;
    QDirIterator it(dossier, QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System | QDir::Hidden,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString chemin = it.next();
        etat << chemin + QLatin1Char(' ') + QString::fromLatin1(empreinte(chemin));
    }
    etat.sort();
    return etat;
}

} // namespace

class TestCliScenarios : public QObject
{
    Q_OBJECT

private:
    QString m_dossier;
    QStringList m_transcription;
    QHash<QByteArray, int> m_empreintes;

    QString chemin(QString texte) const { return texte.replace(QStringLiteral("$D"), m_dossier); }

    void noter(const QString& prefixe, const QString& texte)
    {
        QString t = texte;
        t.replace(m_dossier, QStringLiteral("$D"));
        if (t.endsWith(QLatin1Char('\n')))
            t.chop(1);
        for (const QString& ligne : t.split(QLatin1Char('\n')))
            m_transcription << (ligne.isEmpty() ? prefixe.trimmed() : prefixe + ligne);
    }

    void commande(const QString& ligne)
    {
        QStringList arguments = decouper(ligne);
        for (QString& argument : arguments)
            argument = chemin(argument);
        const QStringList avant = etatDuDossier(m_dossier);
        const ResultatCli r = executerCli(arguments);
        if (!r.sortie.isEmpty())
            noter(QStringLiteral("| "), QString::fromUtf8(r.sortie));
        if (!r.erreurs.isEmpty())
            noter(QStringLiteral("! "), r.erreurs);
        if (r.code != 0)
            m_transcription << QStringLiteral("[%1]").arg(r.code);
        const QByteArray contexte = ligne.toUtf8();
        if (r.code == 0) {
            QVERIFY2(r.erreurs.isEmpty(), contexte.constData());
            return;
        }
        QVERIFY2(r.code == 1 || r.code == 2, contexte.constData());
        QVERIFY2(r.sortie.isEmpty(), contexte.constData());
        QVERIFY2(r.erreurs.startsWith(QStringLiteral("corvane-cli: ")) || r.erreurs.startsWith(QStringLiteral("usage")),
                 contexte.constData());
        QVERIFY2(etatDuDossier(m_dossier) == avant, contexte.constData());
    }

    // % sql FICHIER TEXTE            runs the text; a SELECT prints its rows
    // % script NOM FICHIER           a document from an SQL script of tests/data
    // % ecrire FICHIER [TEXTE]       a file holding the text (an empty one without); "\n" is a line break
    // % contenu FICHIER              the text a file holds (the rest of the line is the path)
    // % dossier CHEMIN               a folder
    // % tronquer FICHIER OCTETS      the file cut to its first bytes
    // % lecture-seule FICHIER        the file made read-only
    // % pdf FICHIER                  the text of each page of a PDF
    // % empreinte FICHIER            a number for the file's content: the same number, the same bytes
    // % fichiers                     the files of the folder
    void directive(const QString& ligne)
    {
        const QString nom = ligne.section(QLatin1Char(' '), 0, 0);
        const QString fichier = chemin(ligne.section(QLatin1Char(' '), 1, 1));
        const QString reste = ligne.section(QLatin1Char(' '), 2);
        if (nom == QStringLiteral("sql")) {
            BaseDeDonnees base;
            QVERIFY2(base.ouvrir(fichier), qPrintable(fichier));
            if (!reste.startsWith(QStringLiteral("SELECT"))) {
                QVERIFY2(base.exec(reste) == 0, qPrintable(base.derniereErreur()));
                return;
            }
            Requete r(base, reste);
            while (r.suivante()) {
                QStringList valeurs;
                for (int i = 0; i < r.nombreColonnes(); ++i)
                    valeurs << (r.estNul(i) ? QStringLiteral("NULL") : r.texte(i));
                noter(QStringLiteral("| "), valeurs.join(QLatin1Char('|')));
            }
        } else if (nom == QStringLiteral("script")) {
            documentDepuisScript(ligne.section(QLatin1Char(' '), 1, 1), chemin(reste));
        } else if (nom == QStringLiteral("ecrire")) {
            ecrire(fichier, QString(reste).replace(QStringLiteral("\\n"), QStringLiteral("\n")).toUtf8());
        } else if (nom == QStringLiteral("contenu")) {
            const QString entier = chemin(ligne.section(QLatin1Char(' '), 1));
            QVERIFY2(QFileInfo::exists(entier), qPrintable(entier));
            noter(QStringLiteral("| "), QString::fromUtf8(lire(entier)));
        } else if (nom == QStringLiteral("dossier")) {
            QVERIFY(QDir().mkpath(fichier));
        } else if (nom == QStringLiteral("tronquer")) {
            QVERIFY(QFile::resize(fichier, reste.toLongLong()));
        } else if (nom == QStringLiteral("lecture-seule")) {
            QVERIFY(QFile::setPermissions(fichier, QFile::ReadOwner | QFile::ReadGroup));
        } else if (nom == QStringLiteral("empreinte")) {
            const QByteArray e = empreinte(fichier);
            if (!m_empreintes.contains(e))
                m_empreintes.insert(e, int(m_empreintes.size()) + 1);
            noter(QStringLiteral("| "), QStringLiteral("empreinte %1").arg(m_empreintes.value(e)));
        } else if (nom == QStringLiteral("fichiers")) {
            QDirIterator it(m_dossier, QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden,
                            QDirIterator::Subdirectories);
            QStringList noms;
            while (it.hasNext())
                noms << it.next();
            noms.sort();
            noter(QStringLiteral("| "), noms.join(QLatin1Char('\n')));
        } else if (nom == QStringLiteral("pdf")) {
#ifdef CORVANE_AVEC_PDF
            const QStringList pages = pagesPdf(fichier);
            QVERIFY2(!pages.isEmpty(), qPrintable(fichier));
            for (int i = 0; i < pages.size(); ++i)
                // The reader ends some lines with a carriage return: the stored text keeps plain lines.
                noter(QStringLiteral("| "),
                      QStringLiteral("--- page %1\n").arg(i + 1) + QString(pages.at(i)).remove(QLatin1Char('\r')));
#endif
        } else {
            QFAIL(qPrintable("unknown directive: " + ligne));
        }
    }

private slots:
    void init()
    {
        Horloge::fixer(QDate(2024, 6, 15));
    }
    void cleanup()
    {
        Horloge::reinitialiser();
    }

    void scenario_data()
    {
        QTest::addColumn<QString>("nom");
        const QStringList noms = QDir(donnee(QStringLiteral("reference"))).entryList({QStringLiteral("cli_*.txt")});
        QVERIFY(!noms.isEmpty());
        // In the other time zones, only the scenarios whose output must not depend on the zone.
        const bool paris = qgetenv("TZ") == "Europe/Paris";
        for (const QString& nom : noms)
            if (paris || nom.startsWith(QStringLiteral("cli_fuseaux")))
                QTest::newRow(qPrintable(nom)) << nom;
    }

    void scenario()
    {
        QFETCH(QString, nom);
        QFile fichier(donnee(QStringLiteral("reference/") + nom));
        QVERIFY(fichier.open(QIODevice::ReadOnly));
        const QStringList lignes = QString::fromUtf8(fichier.readAll()).split(QLatin1Char('\n'));
#ifndef CORVANE_AVEC_PDF
        if (!lignes.filter(QRegularExpression(QStringLiteral("^% pdf "))).isEmpty())
            QSKIP("QtPdf is not available");
#endif
        QTemporaryDir dossier;
        m_dossier = dossier.path();
        m_transcription.clear();
        m_empreintes.clear();
        for (const QString& ligne : lignes) {
            const bool estCommande = ligne == QStringLiteral("$") || ligne.startsWith(QStringLiteral("$ "));
            const bool estDirective = ligne.startsWith(QStringLiteral("% "));
            if (!estCommande && !estDirective && !ligne.startsWith(QLatin1Char('#')) && !ligne.isEmpty())
                continue; // the output of the last run
            m_transcription << ligne;
            if (estCommande)
                commande(ligne.mid(2));
            else if (estDirective)
                directive(ligne.mid(2));
            if (QTest::currentTestFailed())
                return;
        }
        while (m_transcription.size() > 1 && m_transcription.last().isEmpty())
            m_transcription.removeLast();
        CORVANE_COMPARER_REFERENCE((m_transcription.join(QLatin1Char('\n')) + QLatin1Char('\n')).toUtf8(), nom);
    }
};

QTEST_MAIN(TestCliScenarios)
#include "test_cli_scenarios.moc"
