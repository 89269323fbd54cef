#include "OutilsCsv.h"
#include "commun/Cas.h"

#include "exchange/Csv.h"
#include "exchange/CsvWriter.h"

#include <QBuffer>
#include <QTemporaryDir>
#include <QTest>

using namespace corvane;
using namespace corvane::test;

namespace {

using Enregistrements = QList<QStringList>;

constexpr int Brut = 0;
constexpr int Propre = int(CsvOption::SanitizesFields);
constexpr int Echappe = int(CsvOption::RecognizesBackslashesAsEscapes);
constexpr int Commentaires = int(CsvOption::RecognizesComments);
constexpr int Rogne = int(CsvOption::StripsLeadingAndTrailingWhitespace);

JournalCsv lireTexte(const QString& texte, int options, QChar delimiter = u',', bool* reussi = nullptr)
{
    JournalCsv journal;
    auto parser = CsvParser::initWithCSVString(texte, delimiter);
    if (!parser)
        return journal;
    parser->setOptions(CsvOptions(options));
    parser->setDelegate(&journal);
    const bool resultat = parser->parse();
    if (reussi)
        *reussi = resultat;
    return journal;
}

// Cancels the parse when a given event is reported.
class JournalAnnulant : public JournalCsv
{
public:
    explicit JournalAnnulant(QString evenement) : m_evenement(std::move(evenement)) {}
    void parserDidBeginDocument(CsvParser& p) override
    {
        JournalCsv::parserDidBeginDocument(p);
        verifier(p);
    }
    void parserDidBeginLine(CsvParser& p, qsizetype n) override
    {
        JournalCsv::parserDidBeginLine(p, n);
        verifier(p);
    }
    void parserDidReadFieldAtIndex(CsvParser& p, const QString& c, qsizetype i) override
    {
        JournalCsv::parserDidReadFieldAtIndex(p, c, i);
        verifier(p);
    }
    void parserDidReadComment(CsvParser& p, const QString& c) override
    {
        JournalCsv::parserDidReadComment(p, c);
        verifier(p);
    }
    void parserDidEndLine(CsvParser& p, qsizetype n) override
    {
        JournalCsv::parserDidEndLine(p, n);
        verifier(p);
    }

private:
    void verifier(CsvParser& parser)
    {
        if (evenements.last() == m_evenement)
            parser.cancelParsing();
    }
    QString m_evenement;
};

} // namespace

class TestLectureCsv : public QObject
{
    Q_OBJECT

private slots:
    void lecture_data()
    {
        QTest::addColumn<QString>("texte");
        QTest::addColumn<QChar>("delimiter");
        QTest::addColumn<int>("options");
        QTest::addColumn<Enregistrements>("attendu");

        const QChar v = u',';
        cas("simple record", "a,b,c\n", v, Brut, Enregistrements{{"a", "b", "c"}});
        cas("empty middle field", "a,,b", v, Brut, Enregistrements{{"a", "", "b"}});
        cas("trailing delimiter", "a,b,\n", v, Brut, Enregistrements{{"a", "b", ""}});
        cas("lone delimiter", ",", v, Brut, Enregistrements{{"", ""}});
        cas("no final newline", "a\nb", v, Brut, Enregistrements{{"a"}, {"b"}});
        cas("blank lines are not records", "\n\na\n\n\r\n\nb\n\n", v, Brut, Enregistrements{{"a"}, {"b"}});
        cas("CR LF", "a,b\r\nc,d\r\n", v, Brut, Enregistrements{{"a", "b"}, {"c", "d"}});
        cas("lone CR", "a\rb", v, Brut, Enregistrements{{"a"}, {"b"}});
        cas("line separator", "a\u2028b\u0085c", v, Brut, Enregistrements{{"a"}, {"b"}, {"c"}});
        cas("records of different lengths", "a\nb,c,d\ne,f", v, Brut,
            Enregistrements{{"a"}, {"b", "c", "d"}, {"e", "f"}});
        cas("quoted field raw", "\"a,b\",c", v, Brut, Enregistrements{{"\"a,b\"", "c"}});
        cas("quoted field sanitised", "\"a,b\",c", v, Propre, Enregistrements{{"a,b", "c"}});
        cas("doubled quote raw", "\"x\"\"y\"", v, Brut, Enregistrements{{"\"x\"\"y\""}});
        cas("doubled quote sanitised", "\"say \"\"hi\"\"\"", v, Propre, Enregistrements{{"say \"hi\""}});
        cas("newline inside quotes", "\"l1\r\nl2\",x\ny", v, Propre, Enregistrements{{"l1\r\nl2", "x"}, {"y"}});
        cas("empty quoted fields", "\"\",\"\"", v, Propre, Enregistrements{{"", ""}});
        cas("open quote takes the rest", "a,\"b\nc,d", v, Propre, Enregistrements{{"a", "b\nc,d"}});
        cas("backslash is plain without escapes", "a\\,b", v, Propre, Enregistrements{{"a\\", "b"}});
        cas("backslash keeps the delimiter", "a\\,b,c", v, (Echappe | Propre), Enregistrements{{"a,b", "c"}});
        cas("escape kept raw", "a\\,b", v, Echappe, Enregistrements{{"a\\,b"}});
        cas("escaped newline", "a\\\nb", v, (Echappe | Propre), Enregistrements{{"a\nb"}});
        cas("escaped quote in quoted field", "\"a\\\"b\",c", v, (Echappe | Propre), Enregistrements{{"a\"b", "c"}});
        cas("escaped quote raw", "\"a\\\"b\"", v, Echappe, Enregistrements{{"\"a\\\"b\""}});
        cas("backslash at the end", "a\\", v, (Echappe | Propre), Enregistrements{{"a\\"}});
        cas("backslash delimiter wins", "a\\b", QChar(u'\\'), (Echappe | Propre), Enregistrements{{"a", "b"}});
        cas("hash is data without comments", "#x,y", v, Brut, Enregistrements{{"#x", "y"}});
        cas("comment lines skipped", "#c1\na,b\n#c2\n", v, Commentaires, Enregistrements{{"a", "b"}});
        cas("hash inside a line is data", "a,#b", v, Commentaires, Enregistrements{{"a", "#b"}});
        cas("spaces kept by default", " a , b ", v, Brut, Enregistrements{{" a ", " b "}});
        cas("spaces stripped", "  a  ,\t b c \t\n", v, Rogne, Enregistrements{{"a", "b c"}});
        cas("quoted content not stripped", "  \" a \"  , b", v, (Rogne | Propre), Enregistrements{{" a ", "b"}});
        cas("whitespace-only line skipped when stripping", "a\n   \nb", v, Rogne, Enregistrements{{"a"}, {"b"}});
        cas("whitespace-only line kept otherwise", "a\n  \nb", v, Brut, Enregistrements{{"a"}, {"  "}, {"b"}});
        cas("escaped trailing space kept", "a\\  ,b", v, (Rogne | Echappe | Propre), Enregistrements{{"a ", "b"}});
        cas("indented comment when stripping", "  #c\na", v, (Rogne | Commentaires), Enregistrements{{"a"}});
        cas("tab delimiter not stripped", "a\t\t b ", QChar(u'\t'), Rogne, Enregistrements{{"a", "", "b"}});
        cas("semicolon delimiter", "a;b,c", QChar(u';'), Brut, Enregistrements{{"a", "b,c"}});
        cas("unicode fields", "é,日本,😀\n", v, Brut, Enregistrements{{"é", "日本", "😀"}});
        cas("non-ASCII delimiter", "a§b", QChar(u'§'), Brut, Enregistrements{{"a", "b"}});
    }

    void lecture()
    {
        QFETCH(QString, texte);
        QFETCH(QChar, delimiter);
        QFETCH(int, options);
        QFETCH(Enregistrements, attendu);

        bool reussi = false;
        const JournalCsv journal = lireTexte(texte, options, delimiter, &reussi);
        QVERIFY(reussi);
        QCOMPARE(journal.enregistrements, attendu);
        QVERIFY(journal.erreurs.isEmpty());
    }

    void evenements_data()
    {
        QTest::addColumn<QString>("texte");
        QTest::addColumn<int>("options");
        QTest::addColumn<QStringList>("attendu");

        cas("empty document", "", Brut, QStringList{"debut", "fin"});
        cas("only blank lines", "\n\r\n\n", Brut, QStringList{"debut", "fin"});
        cas("one record", "a,b", Brut,
            QStringList{"debut", "ligne 1", "champ 0 [a]", "champ 1 [b]", "fin ligne 1", "fin"});
        cas("comments in document order", "#début\na\n#x,y\nb", Commentaires,
            QStringList{"debut", "commentaire [début]", "ligne 1", "champ 0 [a]", "fin ligne 1", "commentaire [x,y]",
                        "ligne 2", "champ 0 [b]", "fin ligne 2", "fin"});
        cas("hash inside a quoted field", "\"x\n#y\"", (Commentaires | Propre),
            QStringList{"debut", "ligne 1", "champ 0 [x\n#y]", "fin ligne 1", "fin"});
        cas("error stops the parse", "a\n\"b\"c\nd", Brut,
            QStringList{"debut", "ligne 1", "champ 0 [a]", "fin ligne 1", "ligne 2", "champ 0 [\"b\"]", "erreur 1"});
    }

    void evenements()
    {
        QFETCH(QString, texte);
        QFETCH(int, options);
        QFETCH(QStringList, attendu);
        QCOMPARE(lireTexte(texte, options).evenements, attendu);
    }

    void erreurs_data()
    {
        QTest::addColumn<QString>("texte");
        QTest::addColumn<QChar>("delimiter");
        QTest::addColumn<int>("options");
        QTest::addColumn<QString>("description");
        QTest::addColumn<QString>("details");
        QTest::addColumn<Enregistrements>("avant");

        const QChar v = u',';
        cas("text after a closing quote", "\"a\"b", v, Brut,
            "Unexpected delimiter. Expected ',' (0x2C), but got 'b' (0x62)", "Line 1, column 4", Enregistrements{});
        cas("quote inside an unquoted field", "ab\"c\"", v, Propre,
            "Unexpected delimiter. Expected ',' (0x2C), but got '\"' (0x22)", "Line 1, column 3", Enregistrements{});
        cas("space after a closing quote", "\"a\" ,b", v, Propre,
            "Unexpected delimiter. Expected ',' (0x2C), but got ' ' (0x20)", "Line 1, column 4", Enregistrements{});
        cas("stripping does not excuse text", "\"a\"  x", v, Rogne,
            "Unexpected delimiter. Expected ',' (0x2C), but got 'x' (0x78)", "Line 1, column 6", Enregistrements{});
        cas("semicolon expected", "\"a\",b", QChar(u';'), Brut,
            "Unexpected delimiter. Expected ';' (0x3B), but got ',' (0x2C)", "Line 1, column 4", Enregistrements{});
        cas("tab expected", "x\n\"a\"\"\"b", QChar(u'\t'), Brut,
            "Unexpected delimiter. Expected '\t' (0x9), but got 'b' (0x62)", "Line 2, column 6",
            Enregistrements{{"x"}});
        cas("character outside the BMP", "\"a\"😀", v, Brut,
            "Unexpected delimiter. Expected ',' (0x2C), but got '😀' (0x1F600)", "Line 1, column 4", Enregistrements{});
        cas("unescaped quote after an escaped one", "a\\\"b\"", v, (Echappe | Propre),
            "Unexpected delimiter. Expected ',' (0x2C), but got '\"' (0x22)", "Line 1, column 5", Enregistrements{});
        cas("error on a later line keeps earlier records", "a,b\r\nc,d\r\n\"e\nf\"g", v, Propre,
            "Unexpected delimiter. Expected ',' (0x2C), but got 'g' (0x67)", "Line 4, column 3",
            Enregistrements{{"a", "b"}, {"c", "d"}});
    }

    void erreurs()
    {
        QFETCH(QString, texte);
        QFETCH(QChar, delimiter);
        QFETCH(int, options);
        QFETCH(QString, description);
        QFETCH(QString, details);
        QFETCH(Enregistrements, avant);

        bool reussi = true;
        const JournalCsv journal = lireTexte(texte, options, delimiter, &reussi);
        QVERIFY(!reussi);
        QCOMPARE(journal.erreurs.size(), 1);
        QCOMPARE(journal.erreurs[0].code, int(CsvErreur::DelimiteurInattendu));
        QCOMPARE(journal.erreurs[0].description, description);
        QCOMPARE(journal.erreurs[0].details, details);
        QCOMPARE(journal.evenements.last(), QStringLiteral("erreur 1"));
        QCOMPARE(journal.enregistrements, avant);

        CsvErreur erreur;
        QCOMPARE(CSVComponentsWithOptions(texte, CsvOptions(options), delimiter, &erreur), avant);
        QCOMPARE(erreur.description, description);
    }

    void refus_data()
    {
        QTest::addColumn<QChar>("delimiter");
        QTest::addColumn<QString>("message");

        cas("line feed", QChar(u'\n'), "The field delimiter may not be a newline");
        cas("carriage return", QChar(u'\r'), "The field delimiter may not be a newline");
        cas("form feed", QChar(u'\f'), "The field delimiter may not be a newline");
        cas("next line", QChar(u'\u0085'), "The field delimiter may not be a newline");
        cas("paragraph separator", QChar(u'\u2029'), "The field delimiter may not be a newline");
        cas("double quote", QChar(u'"'), "The field delimiter may not be a double quote");
        cas("octothorpe", QChar(u'#'), "The field delimiter may not be an octothorpe");
        cas("comma accepted", QChar(u','), "");
        cas("tab accepted", QChar(u'\t'), "");
        cas("space accepted", QChar(u' '), "");
        cas("backslash accepted", QChar(u'\\'), "");
    }

    void refus()
    {
        QFETCH(QChar, delimiter);
        QFETCH(QString, message);

        QCOMPARE(CsvParser::refusDelimiteur(delimiter), message);
        const bool refuse = !message.isEmpty();
        QTemporaryDir dossier;
        const QString chemin = dossier.filePath("a.csv");
        QVERIFY(ecrireFichier(chemin, "a\n"));
        QBuffer tampon;
        if (refuse) {
            for (int i = 0; i < 5; ++i)
                QTest::ignoreMessage(QtWarningMsg, message.toUtf8());
        }
        QCOMPARE(CsvParser::initWithCSVString("a", delimiter) == nullptr, refuse);
        QCOMPARE(CsvParser::initWithContentsOfCSVFile(chemin, delimiter) == nullptr, refuse);
        QCOMPARE(CsvParser::initWithInputStream(&tampon, CsvEncodage::Utf8, delimiter) == nullptr, refuse);
        QCOMPARE(CsvWriter::initWithOutputStream(&tampon, CsvEncodage::Utf8, delimiter) == nullptr, refuse);

        CsvErreur erreur;
        const Enregistrements lus = arrayWithContentsOfCSVFile(chemin, delimiter, CsvOption::SanitizesFields, &erreur);
        QCOMPARE(lus.isEmpty(), refuse);
        QCOMPARE(erreur.code, refuse ? int(CsvErreur::DelimiteurRefuse) : 0);
        QCOMPARE(erreur.description, message);
    }

    void annulation_data()
    {
        QTest::addColumn<QString>("evenement");
        QTest::addColumn<QStringList>("attendu");

        cas("at the start", "debut", QStringList{"debut"});
        cas("at a record", "ligne 2",
            QStringList{"debut", "commentaire [c]", "ligne 1", "champ 0 [a]", "champ 1 [b]", "fin ligne 1", "ligne 2"});
        cas("at a field", "champ 0 [a]", QStringList{"debut", "commentaire [c]", "ligne 1", "champ 0 [a]"});
        cas("at a comment", "commentaire [c]", QStringList{"debut", "commentaire [c]"});
        cas("at the end of a record", "fin ligne 1",
            QStringList{"debut", "commentaire [c]", "ligne 1", "champ 0 [a]", "champ 1 [b]", "fin ligne 1"});
    }

    void annulation()
    {
        QFETCH(QString, evenement);
        QFETCH(QStringList, attendu);

        JournalAnnulant journal(evenement);
        auto parser = CsvParser::initWithCSVString("#c\na,b\nc,d\n");
        parser->setRecognizesComments(true);
        parser->setDelegate(&journal);
        QVERIFY(parser->parse());
        QVERIFY(parser->estAnnule());
        QCOMPARE(journal.evenements, attendu);
    }

    void fichierAbsent()
    {
        QTemporaryDir dossier;
        const QString chemin = dossier.filePath("absent.csv");
        JournalCsv journal;
        auto parser = CsvParser::initWithContentsOfCSVFile(chemin);
        parser->setDelegate(&journal);
        QVERIFY(!parser->parse());
        QCOMPARE(journal.evenements, QStringList{"erreur 2"});
        QCOMPARE(parser->erreur().description, QStringLiteral("The input stream could not be opened"));
        QCOMPARE(CsvErreur::domaine(), QStringLiteral("corvane.csv"));

        CsvErreur erreur;
        QVERIFY(arrayWithContentsOfCSVFile(chemin, u',', CsvOption::SanitizesFields, &erreur).isEmpty());
        QCOMPARE(erreur.code, int(CsvErreur::FluxIllisible));
    }

    void fluxDuDemandeur()
    {
        QTemporaryDir dossier;
        const QString chemin = dossier.filePath("a.csv");
        QVERIFY(ecrireFichier(chemin, "a;b\n"));

        // A closed stream is opened, then closed again; an open one is left open.
        QFile fichier(chemin);
        auto parser = CsvParser::initWithInputStream(&fichier, CsvEncodage::ADetecter, u';');
        JournalCsv journal;
        parser->setDelegate(&journal);
        QVERIFY(parser->parse());
        QVERIFY(!fichier.isOpen());
        QCOMPARE(journal.enregistrements, (Enregistrements{{"a", "b"}}));
        QCOMPARE(parser->totalBytesRead(), qint64(4));

        QBuffer tampon;
        tampon.setData("x\n");
        QVERIFY(tampon.open(QIODevice::ReadOnly));
        auto second = CsvParser::initWithInputStream(&tampon, CsvEncodage::Utf8, u',');
        QVERIFY(second->parse());
        QVERIFY(tampon.isOpen());
        // A parser reads its stream once.
        JournalCsv rien;
        second->setDelegate(&rien);
        QVERIFY(!second->parse());
        QVERIFY(rien.evenements.isEmpty());
    }

    void lectureDeFichier()
    {
        QTemporaryDir dossier;
        const QString chemin = dossier.filePath("employeurs.csv");
        QVERIFY(ecrireFichier(chemin, "# export\n\"Dupont, fils\";Lyon\nMartin\\;Cie;Paris\n"));

        QCOMPARE(arrayWithContentsOfCSVFile(chemin, u';',
                                            CsvOption::SanitizesFields | CsvOption::RecognizesComments |
                                                CsvOption::RecognizesBackslashesAsEscapes),
                 (Enregistrements{{"Dupont, fils", "Lyon"}, {"Martin;Cie", "Paris"}}));
        QCOMPARE(arrayWithContentsOfCSVFile(chemin, u';', {}),
                 (Enregistrements{{"# export"}, {"\"Dupont, fils\"", "Lyon"}, {"Martin\\", "Cie", "Paris"}}));
    }
};

QObject* creerTestLectureCsv()
{
    return new TestLectureCsv;
}

#include "TestLectureCsv.moc"
