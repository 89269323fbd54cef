// The CSV codec: records read with each option, the events and errors a parse reports,
// the refused delimiters, cancelling, the caller's streams, records written and read back in
// every encoding, encodings found from the bytes, and files many times the read size.

#include "commun/Cas.h"
#include "exchange/Csv.h"
#include "exchange/CsvWriter.h"

#include <QBuffer>
#include <QStringEncoder>
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

constexpr int Detecter = int(CsvEncodage::ADetecter);
constexpr int Utf8 = int(CsvEncodage::Utf8);
constexpr int Utf16BE = int(CsvEncodage::Utf16BigEndian);
constexpr int Utf16LE = int(CsvEncodage::Utf16LittleEndian);
constexpr int Utf32BE = int(CsvEncodage::Utf32BigEndian);
constexpr int Utf32LE = int(CsvEncodage::Utf32LittleEndian);
constexpr int MacRoman = int(CsvEncodage::MacRoman);
constexpr int Windows1252 = int(CsvEncodage::Windows1252);

// Keeps every event of a parse, in order, and the records it builds; cancels the parse at
// the event named `annulerA`.
class JournalCsv : public CsvParserDelegate
{
public:
    void parserDidBeginDocument(CsvParser& p) override { noter(p, QStringLiteral("debut")); }
    void parserDidBeginLine(CsvParser& p, qsizetype numero) override
    {
        enCours.clear();
        noter(p, QStringLiteral("ligne %1").arg(numero));
    }
    void parserDidReadFieldAtIndex(CsvParser& p, const QString& champ, qsizetype index) override
    {
        enCours << champ;
        noter(p, QStringLiteral("champ %1 [%2]").arg(index).arg(champ));
    }
    void parserDidReadComment(CsvParser& p, const QString& commentaire) override
    {
        noter(p, QStringLiteral("commentaire [%1]").arg(commentaire));
    }
    void parserDidEndLine(CsvParser& p, qsizetype numero) override
    {
        enregistrements << enCours;
        noter(p, QStringLiteral("fin ligne %1").arg(numero));
    }
    void parserDidEndDocument(CsvParser& p) override { noter(p, QStringLiteral("fin")); }
    void parserDidFailWithError(CsvParser&, const CsvErreur& e) override
    {
        evenements << QStringLiteral("erreur %1").arg(e.code);
        erreurs << e;
    }

    QString annulerA;
    QStringList evenements;
    Enregistrements enregistrements;
    QList<CsvErreur> erreurs;

private:
    void noter(CsvParser& parser, const QString& evenement)
    {
        evenements << evenement;
        if (evenement == annulerA)
            parser.cancelParsing();
    }
    QStringList enCours;
};

JournalCsv lireTexte(const QString& texte, int options, QChar delimiter = u',', bool* reussi = nullptr)
{
    JournalCsv journal;
    auto parser = CsvParser::initWithCSVString(texte, delimiter);
    parser->setOptions(CsvOptions(options));
    parser->setDelegate(&journal);
    const bool resultat = parser->parse();
    if (reussi)
        *reussi = resultat;
    return journal;
}

struct Lecture
{
    JournalCsv journal;
    CsvEncodage encodage = CsvEncodage::ADetecter;
    qint64 octetsLus = 0;
    bool reussi = false;
};

Lecture lireOctets(const QByteArray& octets, CsvEncodage encodage)
{
    Lecture lecture;
    QBuffer tampon;
    tampon.setData(octets);
    auto parser = CsvParser::initWithInputStream(&tampon, encodage, u',');
    parser->setSanitizesFields(true);
    parser->setDelegate(&lecture.journal);
    lecture.reussi = parser->parse();
    lecture.encodage = parser->encodage();
    lecture.octetsLus = parser->totalBytesRead();
    return lecture;
}

QByteArray ecrireOctets(const Enregistrements& enregistrements, CsvEncodage encodage, QChar delimiter = u',')
{
    QBuffer tampon;
    auto writer = CsvWriter::initWithOutputStream(&tampon, encodage, delimiter);
    for (const QStringList& enregistrement : enregistrements)
        writer->writeLineOfFields(enregistrement);
    return tampon.data();
}

QByteArray hex(const char* texte)
{
    return QByteArray::fromHex(texte);
}

} // namespace

class TestCsv : public QObject
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
        cas("trailing delimiter", "a,,\n", v, Brut, Enregistrements{{"a", "", ""}});
        cas("blank lines are not records", "\n\na\n\n\r\n\nb", v, Brut, Enregistrements{{"a"}, {"b"}});
        cas("CR LF, lone CR, line separators", "a,b\r\nc\rd\u2028e\u0085f", v, Brut,
            Enregistrements{{"a", "b"}, {"c"}, {"d"}, {"e"}, {"f"}});
        cas("quoted field raw", "\"a,b\",c", v, Brut, Enregistrements{{"\"a,b\"", "c"}});
        cas("doubled quote sanitised", "\"say \"\"hi\"\"\"", v, Propre, Enregistrements{{"say \"hi\""}});
        cas("newline inside quotes", "\"l1\r\nl2\",x\ny", v, Propre, Enregistrements{{"l1\r\nl2", "x"}, {"y"}});
        cas("empty quoted fields", "\"\",\"\"", v, Propre, Enregistrements{{"", ""}});
        cas("open quote takes the rest", "a,\"b\nc,d", v, Propre, Enregistrements{{"a", "b\nc,d"}});
        cas("backslash is plain without escapes", "a\\,b", v, Propre, Enregistrements{{"a\\", "b"}});
        cas("backslash keeps the delimiter", "a\\,b,c", v, (Echappe | Propre), Enregistrements{{"a,b", "c"}});
        cas("escape kept raw", "a\\,b", v, Echappe, Enregistrements{{"a\\,b"}});
        cas("escaped quote in quoted field", "\"a\\\"b\",c", v, (Echappe | Propre), Enregistrements{{"a\"b", "c"}});
        cas("backslash at the end", "a\\", v, (Echappe | Propre), Enregistrements{{"a\\"}});
        cas("backslash delimiter wins", "a\\b", QChar(u'\\'), (Echappe | Propre), Enregistrements{{"a", "b"}});
        cas("hash is data without comments", "#x,y", v, Brut, Enregistrements{{"#x", "y"}});
        cas("comment lines skipped, hash inside a line kept", "#c1\na,#b\n#c2\n", v, Commentaires,
            Enregistrements{{"a", "#b"}});
        cas("spaces kept by default", " a , b \n  \nc", v, Brut, Enregistrements{{" a ", " b "}, {"  "}, {"c"}});
        cas("spaces stripped, blank line skipped", "  a  ,\t b c \t\n   \nd", v, Rogne,
            Enregistrements{{"a", "b c"}, {"d"}});
        cas("quoted content not stripped", "  \" a \"  , b", v, (Rogne | Propre), Enregistrements{{" a ", "b"}});
        cas("escaped trailing space kept", "a\\  ,b", v, (Rogne | Echappe | Propre), Enregistrements{{"a ", "b"}});
        cas("indented comment when stripping", "  #c\na", v, (Rogne | Commentaires), Enregistrements{{"a"}});
        cas("tab delimiter not stripped", "a\t\t b ", QChar(u'\t'), Rogne, Enregistrements{{"a", "", "b"}});
        cas("unicode, non-ASCII delimiter", "é§日本§😀", QChar(u'§'), Brut, Enregistrements{{"é", "日本", "😀"}});
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
        QCOMPARE(CSVComponentsWithOptions(texte, CsvOptions(options), delimiter), attendu);
    }

    void evenements_data()
    {
        QTest::addColumn<QString>("texte");
        QTest::addColumn<int>("options");
        QTest::addColumn<QStringList>("attendu");
        cas("empty document", "\n\r\n", Brut, QStringList{"debut", "fin"});
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
        cas("quote inside an unquoted field", "ab\"c\"", QChar(u','), Propre,
            "Unexpected delimiter. Expected ',' (0x2C), but got '\"' (0x22)", "Line 1, column 3", Enregistrements{});
        cas("stripping does not excuse text", "\"a\"  x", QChar(u','), Rogne,
            "Unexpected delimiter. Expected ',' (0x2C), but got 'x' (0x78)", "Line 1, column 6", Enregistrements{});
        cas("tab expected, on line 2", "x\n\"a\"\"\"b", QChar(u'\t'), Brut,
            "Unexpected delimiter. Expected '\t' (0x9), but got 'b' (0x62)", "Line 2, column 6",
            Enregistrements{{"x"}});
        cas("character outside the BMP", "\"a\"😀", QChar(u','), Brut,
            "Unexpected delimiter. Expected ',' (0x2C), but got '😀' (0x1F600)", "Line 1, column 4", Enregistrements{});
        cas("unescaped quote after an escaped one", "a\\\"b\"", QChar(u','), (Echappe | Propre),
            "Unexpected delimiter. Expected ',' (0x2C), but got '\"' (0x22)", "Line 1, column 5", Enregistrements{});
        cas("lines counted across quoted newlines", "a,b\r\nc,d\r\n\"e\nf\"g", QChar(u','), Propre,
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
        QCOMPARE(journal.enregistrements, avant);
        CsvErreur erreur;
        QCOMPARE(CSVComponentsWithOptions(texte, CsvOptions(options), delimiter, &erreur), avant);
        QCOMPARE(erreur.details, details);
    }

    // A newline, a quote or a hash cannot separate fields: every way in refuses it.
    void refus_data()
    {
        QTest::addColumn<QChar>("delimiter");
        QTest::addColumn<QString>("message");
        cas("line feed", QChar(u'\n'), "The field delimiter may not be a newline");
        cas("paragraph separator", QChar(u'\u2029'), "The field delimiter may not be a newline");
        cas("double quote", QChar(u'"'), "The field delimiter may not be a double quote");
        cas("octothorpe", QChar(u'#'), "The field delimiter may not be an octothorpe");
        cas("space accepted", QChar(u' '), "");
    }

    void refus()
    {
        QFETCH(QChar, delimiter);
        QFETCH(QString, message);
        QCOMPARE(CsvParser::refusDelimiteur(delimiter), message);
        const bool refuse = !message.isEmpty();
        QTemporaryDir dossier;
        const QString chemin = dossier.filePath("a.csv");
        QFile fichier(chemin);
        QVERIFY(fichier.open(QIODevice::WriteOnly) && fichier.write("a\n") == 2);
        fichier.close();
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
        QCOMPARE(arrayWithContentsOfCSVFile(chemin, delimiter, CsvOption::SanitizesFields, &erreur).isEmpty(), refuse);
        QCOMPARE(erreur.code, refuse ? int(CsvErreur::DelimiteurRefuse) : 0);
        QCOMPARE(erreur.description, message);
    }

    void annulation_data()
    {
        QTest::addColumn<QString>("evenement");
        QTest::addColumn<QStringList>("attendu");
        cas("at the start", "debut", QStringList{"debut"});
        cas("at a comment", "commentaire [c]", QStringList{"debut", "commentaire [c]"});
        cas("at a field", "champ 0 [a]", QStringList{"debut", "commentaire [c]", "ligne 1", "champ 0 [a]"});
        cas("at the end of a record", "fin ligne 1",
            QStringList{"debut", "commentaire [c]", "ligne 1", "champ 0 [a]", "champ 1 [b]", "fin ligne 1"});
    }

    void annulation()
    {
        QFETCH(QString, evenement);
        QFETCH(QStringList, attendu);
        JournalCsv journal;
        journal.annulerA = evenement;
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
        CsvErreur erreur;
        QVERIFY(arrayWithContentsOfCSVFile(chemin, u',', CsvOption::SanitizesFields, &erreur).isEmpty());
        QCOMPARE(erreur.code, int(CsvErreur::FluxIllisible));
    }

    // A stream the parser opened is closed again; one the caller opened is left open, and is read once.
    void fluxDuDemandeur()
    {
        QTemporaryDir dossier;
        const QString chemin = dossier.filePath("a.csv");
        QFile ecrit(chemin);
        QVERIFY(ecrit.open(QIODevice::WriteOnly) && ecrit.write("# x\n\"a;1\";b\n") > 0);
        ecrit.close();
        QCOMPARE(arrayWithContentsOfCSVFile(chemin, u';', CsvOption::SanitizesFields | CsvOption::RecognizesComments),
                 (Enregistrements{{"a;1", "b"}}));

        QFile fichier(chemin);
        auto parser = CsvParser::initWithInputStream(&fichier, CsvEncodage::ADetecter, u';');
        QVERIFY(parser->parse());
        QVERIFY(!fichier.isOpen());
        QCOMPARE(parser->totalBytesRead(), qint64(12));

        QBuffer tampon;
        tampon.setData("x\n");
        QVERIFY(tampon.open(QIODevice::ReadOnly));
        auto second = CsvParser::initWithInputStream(&tampon, CsvEncodage::Utf8, u',');
        QVERIFY(second->parse());
        QVERIFY(tampon.isOpen());
        JournalCsv rien;
        second->setDelegate(&rien);
        QVERIFY(!second->parse());
        QVERIFY(rien.evenements.isEmpty());
    }

    void ecriture_data()
    {
        QTest::addColumn<Enregistrements>("enregistrements");
        QTest::addColumn<QChar>("delimiter");
        QTest::addColumn<QString>("attendu");
        const QChar v = u',';
        cas("delimiter and quote quoted", Enregistrements{{"a,b", "say \"hi\""}}, v, "\"a,b\",\"say \"\"hi\"\"\"\n");
        cas("line breaks quoted", Enregistrements{{"l1\nl2", "a\rb", "a\u2028b"}}, v,
            "\"l1\nl2\",\"a\rb\",\"a\u2028b\"\n");
        cas("lone empty field quoted", Enregistrements{{""}, {"", ""}}, v, "\"\"\n,\n");
        cas("leading hash quoted", Enregistrements{{"#a", "b#"}}, v, "\"#a\",b#\n");
        cas("backslash and spaces left alone", Enregistrements{{"a\\b", " a ", "\t"}}, v, "a\\b, a ,\t\n");
        cas("other delimiter", Enregistrements{{"a,b", "c;d"}}, QChar(u';'), "a,b;\"c;d\"\n");
        cas("records of different lengths", Enregistrements{{"é"}, {"b", "😀"}}, v, "é\nb,😀\n");
    }

    void ecriture()
    {
        QFETCH(Enregistrements, enregistrements);
        QFETCH(QChar, delimiter);
        QFETCH(QString, attendu);
        QCOMPARE(QString::fromUtf8(ecrireOctets(enregistrements, CsvEncodage::Utf8, delimiter)), attendu);
    }

    void ligneEtCommentaires()
    {
        QBuffer tampon;
        auto writer = CsvWriter::initWithOutputStream(&tampon, CsvEncodage::Utf8, u',');
        writer->writeField(QStringLiteral("a"));
        writer->writeField(QVariant());
        writer->writeLineOfFields(QVariantList{42, 2.5, QVariant(), QStringLiteral("x,y")});
        writer->writeField(QStringLiteral("z"));
        writer->writeComment(QStringLiteral("un\r\ndeux"));
        writer->writeComment(QString());
        writer->writeField(QStringLiteral("fin"));
        QVERIFY(writer->closeStream());
        QVERIFY(!tampon.isOpen());
        QCOMPARE(QString::fromUtf8(tampon.data()), QStringLiteral("a,\n42,2.5,,\"x,y\"\nz\n#un\n#deux\n#\nfin\n"));
        QCOMPARE(CSVString({{"a,b", "c"}, {"\"", ""}}), QStringLiteral("\"a,b\",c\n\"\"\"\",\n"));
        QCOMPARE(CSVComponentsWithDelimiter(QStringLiteral("\"a;b\";c"), u';'), (Enregistrements{{"a;b", "c"}}));
    }

    // Written to a file in each Unicode encoding, then read back with the encoding found from the file.
    void allerRetour_data()
    {
        QTest::addColumn<Enregistrements>("enregistrements");
        cas("delimiters and quotes", Enregistrements{{"a,b", "c;d", "e\tf", "\"", "a\"b", "\"start"}});
        cas("newlines and backslashes", Enregistrements{{"l1\nl2", "l1\r\nl2", "\r", "a\u2028b", "\\", "end\\"}});
        cas("empty fields", Enregistrements{{"x", "", ""}, {""}, {"", "y"}});
        cas("unicode", Enregistrements{{"é", "日本語", "😀", "\u00A0", "€", "\uFEFF"}});
        cas("comment-like and spaces", Enregistrements{{"#x", " a "}, {"# z"}, {"\t"}});
    }

    void allerRetour()
    {
        QFETCH(Enregistrements, enregistrements);
        QTemporaryDir dossier;
        const QString chemin = dossier.filePath("aller-retour.csv");
        for (const int encodage : {Utf8, Utf16BE, Utf16LE, Utf32BE, Utf32LE}) {
            for (const QChar delimiter : {u',', u';', u'\t'}) {
                const QString cas = QStringLiteral("encoding %1, delimiter %2").arg(encodage).arg(delimiter);
                {
                    QFile fichier(chemin);
                    auto writer = CsvWriter::initWithOutputStream(&fichier, CsvEncodage(encodage), delimiter);
                    writer->writeComment(QStringLiteral("en-tête"));
                    for (const QStringList& enregistrement : enregistrements)
                        writer->writeLineOfFields(enregistrement);
                    QVERIFY2(writer->closeStream(), qPrintable(cas));
                }
                CsvErreur erreur;
                const Enregistrements lus = arrayWithContentsOfCSVFile(
                    chemin, delimiter, CsvOption::SanitizesFields | CsvOption::RecognizesComments, &erreur);
                QVERIFY2(erreur.code == 0 && lus == enregistrements, qPrintable(cas + u' ' + erreur.description));
            }
        }
        QCOMPARE(CSVComponents(CSVString(enregistrements)), enregistrements);
    }

    // The writer's own file replaces an older one and is closed with it; a stream the caller gave
    // is left open, and one open for reading only is refused; a full disk is reported.
    void fluxEcrits()
    {
        QTemporaryDir dossier;
        const QString chemin = dossier.filePath("export.csv");
        QFile ancien(chemin);
        QVERIFY(ancien.open(QIODevice::WriteOnly) && ancien.write("an older and much longer content\n") > 0);
        ancien.close();
        auto writer = CsvWriter::initForWritingToCSVFile(chemin);
        writer->writeLineOfFields(QStringList{"Dupont, fils", "Lyon"});
        writer->writeField(QStringLiteral("open line"));
        writer.reset();
        QVERIFY(ancien.open(QIODevice::ReadOnly));
        QCOMPARE(ancien.readAll(), QByteArray("\"Dupont, fils\",Lyon\nopen line\n"));
        QVERIFY(!CsvWriter::initForWritingToCSVFile(dossier.filePath("missing/export.csv")));

        QBuffer tampon;
        QVERIFY(tampon.open(QIODevice::ReadOnly));
        QVERIFY(!CsvWriter::initWithOutputStream(&tampon, CsvEncodage::Utf8, u','));
        tampon.close();
        QVERIFY(tampon.open(QIODevice::WriteOnly));
        tampon.write("kept\n");
        writer = CsvWriter::initWithOutputStream(&tampon, CsvEncodage::Utf8, u',');
        writer->writeLineOfFields(QStringList{"a"});
        writer.reset();
        QVERIFY(tampon.isOpen());
        QCOMPARE(tampon.data(), QByteArray("kept\na\n"));

        if (!QFile::exists(QStringLiteral("/dev/full")))
            QSKIP("no /dev/full here");
        QFile plein(QStringLiteral("/dev/full"));
        writer = CsvWriter::initWithOutputStream(&plein, CsvEncodage::Utf8, u',');
        writer->writeLineOfFields(QStringList{"a", "b"});
        QVERIFY(!writer->closeStream());
        QVERIFY(writer->aEchoue());
    }

    void encodagesLus_data()
    {
        QTest::addColumn<QByteArray>("octets");
        QTest::addColumn<int>("donne");
        QTest::addColumn<int>("attenduEncodage");
        QTest::addColumn<Enregistrements>("attendu");
        cas("UTF-8 with mark", hex("EFBBBF 636166C3A9 2C 62 0A"), Detecter, Utf8, Enregistrements{{"café", "b"}});
        cas("UTF-8 without mark", hex("636166C3A9 2C E282AC"), Detecter, Utf8, Enregistrements{{"café", "€"}});
        cas("UTF-16 BE with mark", hex("FEFF 0061 002C 00E9"), Detecter, Utf16BE, Enregistrements{{"a", "é"}});
        cas("UTF-16 LE with mark", hex("FFFE 6100 2C00 E900 0A00"), Detecter, Utf16LE, Enregistrements{{"a", "é"}});
        cas("UTF-32 BE with mark", hex("0000FEFF 00000061 0000002C 0001F600"), Detecter, Utf32BE,
            Enregistrements{{"a", "😀"}});
        cas("UTF-32 LE with mark", hex("FFFE0000 61000000 2C000000 00F60100"), Detecter, Utf32LE,
            Enregistrements{{"a", "😀"}});
        cas("UTF-16 BE without mark", hex("0061 002C 0062"), Detecter, Utf16BE, Enregistrements{{"a", "b"}});
        cas("UTF-32 LE without mark", hex("61000000 2C000000 62000000"), Detecter, Utf32LE,
            Enregistrements{{"a", "b"}});
        cas("Windows-1252 when not UTF-8", hex("636166E9 2C 80203132"), Detecter, Windows1252,
            Enregistrements{{"café", "€ 12"}});
        cas("empty file", QByteArray(), Detecter, Utf8, Enregistrements{});
        cas("Mac Roman given, over a mark", hex("EFBBBF 6361668E 2C DB 2C D2D3"), MacRoman, MacRoman,
            Enregistrements{{"Ôªøcafé", "€", "“”"}});
        cas("mark skipped when the encoding is given", hex("FFFE 6100"), Utf16LE, Utf16LE, Enregistrements{{"a"}});
        cas("cut UTF-16 at the end", hex("6100 62"), Utf16LE, Utf16LE, Enregistrements{{"a\uFFFD"}});
        cas("invalid UTF-8 bytes replaced", hex("61 FF 62 C3"), Utf8, Utf8, Enregistrements{{"a\uFFFDb\uFFFD"}});
    }

    void encodagesLus()
    {
        QFETCH(QByteArray, octets);
        QFETCH(int, donne);
        QFETCH(int, attenduEncodage);
        QFETCH(Enregistrements, attendu);
        const Lecture lecture = lireOctets(octets, CsvEncodage(donne));
        QVERIFY(lecture.reussi);
        QCOMPARE(int(lecture.encodage), attenduEncodage);
        QCOMPARE(lecture.journal.enregistrements, attendu);
        QCOMPARE(lecture.octetsLus, qint64(octets.size()));
    }

    // A file many times the read size, whose multi-byte characters and quoted newlines fall across
    // every kind of chunk boundary.
    void morceaux_data()
    {
        QTest::addColumn<int>("encodage");
        QTest::addColumn<QByteArray>("nomQt");
        cas("UTF-8", Utf8, QByteArray("UTF-8"));
        cas("UTF-16 LE", Utf16LE, QByteArray("UTF-16LE"));
        cas("UTF-32 LE", Utf32LE, QByteArray("UTF-32LE"));
    }

    void morceaux()
    {
        QFETCH(int, encodage);
        QFETCH(QByteArray, nomQt);
        Enregistrements attendu;
        QString texte;
        for (int i = 0; i < 6000; ++i) {
            const QString long_ = QString(i % 37, u'é') + QStringLiteral("😀");
            attendu << QStringList{QString::number(i), long_, QStringLiteral("l1\nl2, \"%1\"").arg(i)};
            texte += QStringLiteral("%1,%2,\"l1\nl2, \"\"%3\"\"\"\r\n").arg(i).arg(long_).arg(i);
        }
        QStringEncoder encodeur(nomQt.constData());
        const QByteArray octets = encodeur.encode(texte);
        QVERIFY(octets.size() > 4 * 64 * 1024);
        const Lecture lecture = lireOctets(octets, CsvEncodage(encodage));
        QVERIFY(lecture.reussi);
        QCOMPARE(lecture.journal.enregistrements, attendu);
        QCOMPARE(lecture.octetsLus, qint64(octets.size()));
    }

    void encodagesEcrits_data()
    {
        QTest::addColumn<int>("encodage");
        QTest::addColumn<QString>("texte");
        QTest::addColumn<QByteArray>("attendu");
        cas("UTF-8 has no mark", Utf8, "é", hex("C3A9 0A"));
        cas("UTF-16 BE", Utf16BE, "é", hex("FEFF 00E9 000A"));
        cas("UTF-32 LE", Utf32LE, "😀", hex("FFFE0000 00F60100 0A000000"));
        cas("Mac Roman", MacRoman, "café €“”", hex("6361668E 20 DB D2D3 0A"));
        cas("Mac Roman lacks a character", MacRoman, "a😀ſb", hex("61 3F 3F 62 0A"));
        cas("Windows-1252", Windows1252, "café €", hex("636166E9 20 80 0A"));
    }

    void encodagesEcrits()
    {
        QFETCH(int, encodage);
        QFETCH(QString, texte);
        QFETCH(QByteArray, attendu);
        const QByteArray octets = ecrireOctets({{texte}}, CsvEncodage(encodage));
        QCOMPARE(octets.toHex(' '), attendu.toHex(' '));
        // Mac Roman has no byte-order mark to find it by: it is read back when it is asked for.
        if (!texte.contains(QStringLiteral("😀")))
            QCOMPARE(lireOctets(octets, CsvEncodage(encodage)).journal.enregistrements, Enregistrements{{texte}});
    }
};

QTEST_GUILESS_MAIN(TestCsv)
#include "test_csv.moc"
