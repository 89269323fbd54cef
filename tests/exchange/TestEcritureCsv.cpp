#include "OutilsCsv.h"

#include "exchange/Csv.h"
#include "exchange/CsvWriter.h"

#include <QBuffer>
#include <QTemporaryDir>
#include <QTest>

using namespace corvane;

namespace {

using Enregistrements = QList<QStringList>;

QString ecrireTexte(const Enregistrements& enregistrements, QChar delimiter)
{
    QBuffer tampon;
    auto writer = CsvWriter::initWithOutputStream(&tampon, CsvEncodage::Utf8, delimiter);
    for (const QStringList& enregistrement : enregistrements)
        writer->writeLineOfFields(enregistrement);
    return QString::fromUtf8(tampon.data());
}

} // namespace

class TestEcritureCsv : public QObject
{
    Q_OBJECT

private slots:
    void ecriture_data()
    {
        QTest::addColumn<Enregistrements>("enregistrements");
        QTest::addColumn<QChar>("delimiter");
        QTest::addColumn<QString>("attendu");

        const QChar v = u',';
        QTest::newRow("plain fields") << Enregistrements{{"a", "b"}, {"c"}} << v << "a,b\nc\n";
        QTest::newRow("delimiter quoted") << Enregistrements{{"a,b", "c"}} << v << "\"a,b\",c\n";
        QTest::newRow("quote doubled") << Enregistrements{{"say \"hi\""}} << v << "\"say \"\"hi\"\"\"\n";
        QTest::newRow("line feed quoted") << Enregistrements{{"l1\nl2"}} << v << "\"l1\nl2\"\n";
        QTest::newRow("carriage return quoted") << Enregistrements{{"a\rb", "c"}} << v << "\"a\rb\",c\n";
        QTest::newRow("line separator quoted") << Enregistrements{{"a\u2028b"}} << v << "\"a\u2028b\"\n";
        QTest::newRow("empty middle field") << Enregistrements{{"a", "", "b"}} << v << "a,,b\n";
        QTest::newRow("lone empty field quoted") << Enregistrements{{""}, {"x"}} << v << "\"\"\nx\n";
        QTest::newRow("two empty fields") << Enregistrements{{"", ""}} << v << ",\n";
        QTest::newRow("leading hash quoted") << Enregistrements{{"#a", "#b"}} << v << "\"#a\",#b\n";
        QTest::newRow("backslash left alone") << Enregistrements{{"a\\b"}} << v << "a\\b\n";
        QTest::newRow("spaces left alone") << Enregistrements{{" a ", "\t"}} << v << " a ,\t\n";
        QTest::newRow("other delimiter") << Enregistrements{{"a,b", "c;d"}} << QChar(u';') << "a,b;\"c;d\"\n";
        QTest::newRow("tab delimiter") << Enregistrements{{"a b", "c\td"}} << QChar(u'\t') << "a b\t\"c\td\"\n";
        QTest::newRow("records of different lengths") << Enregistrements{{"a"}, {"b", "c", "d"}} << v << "a\nb,c,d\n";
        QTest::newRow("unicode") << Enregistrements{{"é", "😀"}} << v << "é,😀\n";
    }

    void ecriture()
    {
        QFETCH(Enregistrements, enregistrements);
        QFETCH(QChar, delimiter);
        QFETCH(QString, attendu);
        QCOMPARE(ecrireTexte(enregistrements, delimiter), attendu);
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
    }

    void allerRetour_data()
    {
        QTest::addColumn<Enregistrements>("enregistrements");

        QTest::newRow("delimiters") << Enregistrements{{"a,b", "c;d", "e\tf", ",", ";"}};
        QTest::newRow("quotes") << Enregistrements{{"\"", "\"\"", "a\"b", "\"start", "end\""}};
        QTest::newRow("newlines") << Enregistrements{{"l1\nl2", "l1\r\nl2", "\r", "\n\n", "a\u2028b"}};
        QTest::newRow("backslashes") << Enregistrements{{"\\", "a\\b", "\\\"", "end\\"}};
        QTest::newRow("empty fields") << Enregistrements{{"x", "", ""}, {""}, {"", "y"}};
        QTest::newRow("unicode") << Enregistrements{{"é", "日本語", "😀", "\u00A0", "€", "\uFEFF"}};
        QTest::newRow("comment-like") << Enregistrements{{"#x", "y"}, {"# z"}};
        QTest::newRow("spaces") << Enregistrements{{" a ", "  "}, {"\t"}};
        QTest::newRow("different lengths") << Enregistrements{{"a"}, {"b", "c", "d"}, {"e", "f"}};
    }

    // Written to a file in each Unicode encoding, then read back with the encoding found from the file.
    void allerRetour()
    {
        QFETCH(Enregistrements, enregistrements);

        QTemporaryDir dossier;
        const QString chemin = dossier.filePath("aller-retour.csv");
        const QList<CsvEncodage> encodages{CsvEncodage::Utf8, CsvEncodage::Utf16BigEndian,
                                           CsvEncodage::Utf16LittleEndian, CsvEncodage::Utf32BigEndian,
                                           CsvEncodage::Utf32LittleEndian};
        for (const CsvEncodage encodage : encodages) {
            for (const QChar delimiter : {u',', u';', u'\t'}) {
                const QString cas = QStringLiteral("encoding %1, delimiter %2").arg(int(encodage)).arg(delimiter);
                {
                    QFile fichier(chemin);
                    auto writer = CsvWriter::initWithOutputStream(&fichier, encodage, delimiter);
                    QVERIFY2(writer, qPrintable(cas));
                    writer->writeComment(QStringLiteral("en-tête"));
                    for (const QStringList& enregistrement : enregistrements)
                        writer->writeLineOfFields(enregistrement);
                    QVERIFY2(writer->closeStream(), qPrintable(cas));
                }
                CsvErreur erreur;
                const Enregistrements lus = arrayWithContentsOfCSVFile(
                    chemin, delimiter, CsvOption::SanitizesFields | CsvOption::RecognizesComments, &erreur);
                QVERIFY2(erreur.code == 0, qPrintable(cas + u' ' + erreur.description));
                QVERIFY2(lus == enregistrements, qPrintable(cas));
            }
        }
        QCOMPARE(CSVComponents(CSVString(enregistrements)), enregistrements);
    }

    void fichier()
    {
        QTemporaryDir dossier;
        const QString chemin = dossier.filePath("export.csv");
        QVERIFY(ecrireFichier(chemin, "an older and much longer content\n"));

        auto writer = CsvWriter::initForWritingToCSVFile(chemin);
        QVERIFY(writer);
        writer->writeLineOfFields(QStringList{"Dupont, fils", "Lyon"});
        writer->writeField(QStringLiteral("open line"));
        writer.reset(); // the writer's own file is closed with it, and its open line ended
        QCOMPARE(lireFichier(chemin), QByteArray("\"Dupont, fils\",Lyon\nopen line\n"));

        QVERIFY(!CsvWriter::initForWritingToCSVFile(dossier.filePath("missing/export.csv")));
    }

    void fluxDejaOuvert()
    {
        QBuffer tampon;
        QVERIFY(tampon.open(QIODevice::ReadOnly));
        QVERIFY(!CsvWriter::initWithOutputStream(&tampon, CsvEncodage::Utf8, u','));
        tampon.close();
        QVERIFY(tampon.open(QIODevice::WriteOnly));
        tampon.write("kept\n");
        auto writer = CsvWriter::initWithOutputStream(&tampon, CsvEncodage::Utf8, u',');
        writer->writeLineOfFields(QStringList{"a"});
        writer.reset(); // a stream the caller gave is not closed
        QVERIFY(tampon.isOpen());
        QCOMPARE(tampon.data(), QByteArray("kept\na\n"));
    }

    void echecEcriture()
    {
        if (!QFile::exists(QStringLiteral("/dev/full")))
            QSKIP("no /dev/full here");
        QFile plein(QStringLiteral("/dev/full"));
        auto writer = CsvWriter::initWithOutputStream(&plein, CsvEncodage::Utf8, u',');
        QVERIFY(writer);
        writer->writeLineOfFields(QStringList{"a", "b"});
        QVERIFY(!writer->closeStream());
        QVERIFY(writer->aEchoue());
    }

    void composants()
    {
        const QString texte = QStringLiteral("\"a,b\";c\n\"d\";e");
        // Whole-text readers give field values unless told otherwise.
        QCOMPARE(CSVComponents(QStringLiteral("\"a,b\",c")), (Enregistrements{{"a,b", "c"}}));
        QCOMPARE(CSVComponentsWithDelimiter(texte, u';'), (Enregistrements{{"a,b", "c"}, {"d", "e"}}));
        QCOMPARE(CSVComponentsWithOptions(texte, {}, u';'), (Enregistrements{{"\"a,b\"", "c"}, {"\"d\"", "e"}}));
        QCOMPARE(CSVString({{"a,b", "c"}, {"\"", ""}}), QStringLiteral("\"a,b\",c\n\"\"\"\",\n"));

        CsvErreur erreur;
        QCOMPARE(CSVComponents(QStringLiteral("a\n\"b\"c,d\ne"), &erreur), (Enregistrements{{"a"}}));
        QCOMPARE(erreur.code, int(CsvErreur::DelimiteurInattendu));
        QCOMPARE(erreur.details, QStringLiteral("Line 2, column 4"));
    }
};

QObject* creerTestEcritureCsv()
{
    return new TestEcritureCsv;
}

#include "TestEcritureCsv.moc"
