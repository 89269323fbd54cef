#include "OutilsCsv.h"

#include "exchange/Csv.h"
#include "exchange/CsvWriter.h"

#include <QBuffer>
#include <QTemporaryDir>
#include <QTest>

using namespace corvane;

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
        QTest::newRow("simple record") << "a,b,c\n" << v << Brut << Enregistrements{{"a", "b", "c"}};
        QTest::newRow("empty middle field") << "a,,b" << v << Brut << Enregistrements{{"a", "", "b"}};
        QTest::newRow("trailing delimiter") << "a,b,\n" << v << Brut << Enregistrements{{"a", "b", ""}};
        QTest::newRow("lone delimiter") << "," << v << Brut << Enregistrements{{"", ""}};
        QTest::newRow("no final newline") << "a\nb" << v << Brut << Enregistrements{{"a"}, {"b"}};
        QTest::newRow("blank lines are not records") << "\n\na\n\n\r\n\nb\n\n"
                                                     << v << Brut << Enregistrements{{"a"}, {"b"}};
        QTest::newRow("CR LF") << "a,b\r\nc,d\r\n" << v << Brut << Enregistrements{{"a", "b"}, {"c", "d"}};
        QTest::newRow("lone CR") << "a\rb" << v << Brut << Enregistrements{{"a"}, {"b"}};
        QTest::newRow("line separator") << "a\u2028b\u0085c" << v << Brut << Enregistrements{{"a"}, {"b"}, {"c"}};
        QTest::newRow("records of different lengths")
            << "a\nb,c,d\ne,f" << v << Brut << Enregistrements{{"a"}, {"b", "c", "d"}, {"e", "f"}};
        QTest::newRow("quoted field raw") << "\"a,b\",c" << v << Brut << Enregistrements{{"\"a,b\"", "c"}};
        QTest::newRow("quoted field sanitised") << "\"a,b\",c" << v << Propre << Enregistrements{{"a,b", "c"}};
        QTest::newRow("doubled quote raw") << "\"x\"\"y\"" << v << Brut << Enregistrements{{"\"x\"\"y\""}};
        QTest::newRow("doubled quote sanitised")
            << "\"say \"\"hi\"\"\"" << v << Propre << Enregistrements{{"say \"hi\""}};
        QTest::newRow("newline inside quotes")
            << "\"l1\r\nl2\",x\ny" << v << Propre << Enregistrements{{"l1\r\nl2", "x"}, {"y"}};
        QTest::newRow("empty quoted fields") << "\"\",\"\"" << v << Propre << Enregistrements{{"", ""}};
        QTest::newRow("open quote takes the rest") << "a,\"b\nc,d" << v << Propre << Enregistrements{{"a", "b\nc,d"}};
        QTest::newRow("backslash is plain without escapes") << "a\\,b" << v << Propre << Enregistrements{{"a\\", "b"}};
        QTest::newRow("backslash keeps the delimiter")
            << "a\\,b,c" << v << (Echappe | Propre) << Enregistrements{{"a,b", "c"}};
        QTest::newRow("escape kept raw") << "a\\,b" << v << Echappe << Enregistrements{{"a\\,b"}};
        QTest::newRow("escaped newline") << "a\\\nb" << v << (Echappe | Propre) << Enregistrements{{"a\nb"}};
        QTest::newRow("escaped quote in quoted field")
            << "\"a\\\"b\",c" << v << (Echappe | Propre) << Enregistrements{{"a\"b", "c"}};
        QTest::newRow("escaped quote raw") << "\"a\\\"b\"" << v << Echappe << Enregistrements{{"\"a\\\"b\""}};
        QTest::newRow("backslash at the end") << "a\\" << v << (Echappe | Propre) << Enregistrements{{"a\\"}};
        QTest::newRow("backslash delimiter wins")
            << "a\\b" << QChar(u'\\') << (Echappe | Propre) << Enregistrements{{"a", "b"}};
        QTest::newRow("hash is data without comments") << "#x,y" << v << Brut << Enregistrements{{"#x", "y"}};
        QTest::newRow("comment lines skipped") << "#c1\na,b\n#c2\n" << v << Commentaires << Enregistrements{{"a", "b"}};
        QTest::newRow("hash inside a line is data") << "a,#b" << v << Commentaires << Enregistrements{{"a", "#b"}};
        QTest::newRow("spaces kept by default") << " a , b " << v << Brut << Enregistrements{{" a ", " b "}};
        QTest::newRow("spaces stripped") << "  a  ,\t b c \t\n" << v << Rogne << Enregistrements{{"a", "b c"}};
        QTest::newRow("quoted content not stripped")
            << "  \" a \"  , b" << v << (Rogne | Propre) << Enregistrements{{" a ", "b"}};
        QTest::newRow("whitespace-only line skipped when stripping")
            << "a\n   \nb" << v << Rogne << Enregistrements{{"a"}, {"b"}};
        QTest::newRow("whitespace-only line kept otherwise")
            << "a\n  \nb" << v << Brut << Enregistrements{{"a"}, {"  "}, {"b"}};
        QTest::newRow("escaped trailing space kept")
            << "a\\  ,b" << v << (Rogne | Echappe | Propre) << Enregistrements{{"a ", "b"}};
        QTest::newRow("indented comment when stripping")
            << "  #c\na" << v << (Rogne | Commentaires) << Enregistrements{{"a"}};
        QTest::newRow("tab delimiter not stripped")
            << "a\t\t b " << QChar(u'\t') << Rogne << Enregistrements{{"a", "", "b"}};
        QTest::newRow("semicolon delimiter") << "a;b,c" << QChar(u';') << Brut << Enregistrements{{"a", "b,c"}};
        QTest::newRow("unicode fields") << "é,日本,😀\n" << v << Brut << Enregistrements{{"é", "日本", "😀"}};
        QTest::newRow("non-ASCII delimiter") << "a§b" << QChar(u'§') << Brut << Enregistrements{{"a", "b"}};
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

        QTest::newRow("empty document") << "" << Brut << QStringList{"debut", "fin"};
        QTest::newRow("only blank lines") << "\n\r\n\n" << Brut << QStringList{"debut", "fin"};
        QTest::newRow("one record") << "a,b" << Brut << QStringList{"debut",       "ligne 1",     "champ 0 [a]",
                                                                    "champ 1 [b]", "fin ligne 1", "fin"};
        QTest::newRow("comments in document order")
            << "#début\na\n#x,y\nb" << Commentaires
            << QStringList{
                   "debut",   "commentaire [début]", "ligne 1",     "champ 0 [a]", "fin ligne 1", "commentaire [x,y]",
                   "ligne 2", "champ 0 [b]",         "fin ligne 2", "fin"};
        QTest::newRow("hash inside a quoted field")
            << "\"x\n#y\"" << (Commentaires | Propre)
            << QStringList{"debut", "ligne 1", "champ 0 [x\n#y]", "fin ligne 1", "fin"};
        QTest::newRow("error stops the parse")
            << "a\n\"b\"c\nd" << Brut
            << QStringList{"debut", "ligne 1", "champ 0 [a]", "fin ligne 1", "ligne 2", "champ 0 [\"b\"]", "erreur 1"};
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
        QTest::newRow("text after a closing quote")
            << "\"a\"b" << v << Brut << "Unexpected delimiter. Expected ',' (0x2C), but got 'b' (0x62)"
            << "Line 1, column 4" << Enregistrements{};
        QTest::newRow("quote inside an unquoted field")
            << "ab\"c\"" << v << Propre << "Unexpected delimiter. Expected ',' (0x2C), but got '\"' (0x22)"
            << "Line 1, column 3" << Enregistrements{};
        QTest::newRow("space after a closing quote")
            << "\"a\" ,b" << v << Propre << "Unexpected delimiter. Expected ',' (0x2C), but got ' ' (0x20)"
            << "Line 1, column 4" << Enregistrements{};
        QTest::newRow("stripping does not excuse text")
            << "\"a\"  x" << v << Rogne << "Unexpected delimiter. Expected ',' (0x2C), but got 'x' (0x78)"
            << "Line 1, column 6" << Enregistrements{};
        QTest::newRow("semicolon expected")
            << "\"a\",b" << QChar(u';') << Brut << "Unexpected delimiter. Expected ';' (0x3B), but got ',' (0x2C)"
            << "Line 1, column 4" << Enregistrements{};
        QTest::newRow("tab expected") << "x\n\"a\"\"\"b" << QChar(u'\t') << Brut
                                      << "Unexpected delimiter. Expected '\t' (0x9), but got 'b' (0x62)"
                                      << "Line 2, column 6" << Enregistrements{{"x"}};
        QTest::newRow("character outside the BMP")
            << "\"a\"😀" << v << Brut << "Unexpected delimiter. Expected ',' (0x2C), but got '😀' (0x1F600)"
            << "Line 1, column 4" << Enregistrements{};
        QTest::newRow("unescaped quote after an escaped one")
            << "a\\\"b\"" << v << (Echappe | Propre) << "Unexpected delimiter. Expected ',' (0x2C), but got '\"' (0x22)"
            << "Line 1, column 5" << Enregistrements{};
        QTest::newRow("error on a later line keeps earlier records")
            << "a,b\r\nc,d\r\n\"e\nf\"g" << v << Propre
            << "Unexpected delimiter. Expected ',' (0x2C), but got 'g' (0x67)"
            << "Line 4, column 3" << Enregistrements{{"a", "b"}, {"c", "d"}};
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

        QTest::newRow("line feed") << QChar(u'\n') << "The field delimiter may not be a newline";
        QTest::newRow("carriage return") << QChar(u'\r') << "The field delimiter may not be a newline";
        QTest::newRow("form feed") << QChar(u'\f') << "The field delimiter may not be a newline";
        QTest::newRow("next line") << QChar(u'\u0085') << "The field delimiter may not be a newline";
        QTest::newRow("paragraph separator") << QChar(u'\u2029') << "The field delimiter may not be a newline";
        QTest::newRow("double quote") << QChar(u'"') << "The field delimiter may not be a double quote";
        QTest::newRow("octothorpe") << QChar(u'#') << "The field delimiter may not be an octothorpe";
        QTest::newRow("comma accepted") << QChar(u',') << "";
        QTest::newRow("tab accepted") << QChar(u'\t') << "";
        QTest::newRow("space accepted") << QChar(u' ') << "";
        QTest::newRow("backslash accepted") << QChar(u'\\') << "";
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

        QTest::newRow("at the start") << "debut" << QStringList{"debut"};
        QTest::newRow("at a record") << "ligne 2"
                                     << QStringList{"debut",       "commentaire [c]", "ligne 1", "champ 0 [a]",
                                                    "champ 1 [b]", "fin ligne 1",     "ligne 2"};
        QTest::newRow("at a field") << "champ 0 [a]"
                                    << QStringList{"debut", "commentaire [c]", "ligne 1", "champ 0 [a]"};
        QTest::newRow("at a comment") << "commentaire [c]" << QStringList{"debut", "commentaire [c]"};
        QTest::newRow("at the end of a record")
            << "fin ligne 1"
            << QStringList{"debut", "commentaire [c]", "ligne 1", "champ 0 [a]", "champ 1 [b]", "fin ligne 1"};
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
