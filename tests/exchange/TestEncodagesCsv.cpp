#include "OutilsCsv.h"
#include "commun/Cas.h"

#include "exchange/CsvWriter.h"

#include <QBuffer>
#include <QStringEncoder>
#include <QTemporaryDir>
#include <QTest>

using namespace corvane;
using namespace corvane::test;

namespace {

using Enregistrements = QList<QStringList>;

constexpr int Detecter = int(CsvEncodage::ADetecter);
constexpr int Utf8 = int(CsvEncodage::Utf8);
constexpr int Utf16BE = int(CsvEncodage::Utf16BigEndian);
constexpr int Utf16LE = int(CsvEncodage::Utf16LittleEndian);
constexpr int Utf32BE = int(CsvEncodage::Utf32BigEndian);
constexpr int Utf32LE = int(CsvEncodage::Utf32LittleEndian);
constexpr int MacRoman = int(CsvEncodage::MacRoman);
constexpr int Windows1252 = int(CsvEncodage::Windows1252);

struct Lecture
{
    JournalCsv journal;
    CsvEncodage encodage = CsvEncodage::ADetecter;
    qint64 octetsLus = 0;
    bool reussi = false;
};

Lecture lireFichierCsv(const QString& chemin, CsvEncodage encodage)
{
    Lecture lecture;
    QFile fichier(chemin);
    auto parser = CsvParser::initWithInputStream(&fichier, encodage, u',');
    parser->setSanitizesFields(true);
    parser->setDelegate(&lecture.journal);
    lecture.reussi = parser->parse();
    lecture.encodage = parser->encodage();
    lecture.octetsLus = parser->totalBytesRead();
    return lecture;
}

} // namespace

class TestEncodagesCsv : public QObject
{
    Q_OBJECT

private slots:
    void lecture_data()
    {
        QTest::addColumn<QByteArray>("octets");
        QTest::addColumn<int>("donne");
        QTest::addColumn<int>("attenduEncodage");
        QTest::addColumn<Enregistrements>("attendu");

        const auto hex = [](const char* texte) { return QByteArray::fromHex(texte); };
        cas("UTF-8 with mark", hex("EFBBBF 636166C3A9 2C 62 0A"), Detecter, Utf8, Enregistrements{{"café", "b"}});
        cas("UTF-8 without mark", hex("636166C3A9 2C E282AC"), Detecter, Utf8, Enregistrements{{"café", "€"}});
        cas("UTF-16 BE with mark", hex("FEFF 0061 002C 00E9"), Detecter, Utf16BE, Enregistrements{{"a", "é"}});
        cas("UTF-16 LE with mark", hex("FFFE 6100 2C00 E900 0A00"), Detecter, Utf16LE, Enregistrements{{"a", "é"}});
        cas("UTF-32 BE with mark", hex("0000FEFF 00000061 0000002C 0001F600"), Detecter, Utf32BE,
            Enregistrements{{"a", "😀"}});
        cas("UTF-32 LE with mark", hex("FFFE0000 61000000 2C000000 00F60100"), Detecter, Utf32LE,
            Enregistrements{{"a", "😀"}});
        cas("UTF-16 BE without mark", hex("0061 002C 0062"), Detecter, Utf16BE, Enregistrements{{"a", "b"}});
        cas("UTF-16 LE without mark", hex("6100 2C00 6200"), Detecter, Utf16LE, Enregistrements{{"a", "b"}});
        cas("UTF-32 BE without mark", hex("00000061 0000002C 00000062"), Detecter, Utf32BE,
            Enregistrements{{"a", "b"}});
        cas("UTF-32 LE without mark", hex("61000000 2C000000 62000000"), Detecter, Utf32LE,
            Enregistrements{{"a", "b"}});
        cas("Windows-1252 when not UTF-8", hex("636166E9 2C 80203132"), Detecter, Windows1252,
            Enregistrements{{"café", "€ 12"}});
        cas("one byte", hex("61"), Detecter, Utf8, Enregistrements{{"a"}});
        cas("empty file", QByteArray(), Detecter, Utf8, Enregistrements{});
        cas("Mac Roman given", hex("6361668E 2C DB203132 2C D278D3"), MacRoman, MacRoman,
            Enregistrements{{"café", "€ 12", "“x”"}});
        cas("given encoding wins over a mark", hex("EFBBBF 61"), MacRoman, MacRoman, Enregistrements{{"Ôªøa"}});
        cas("mark skipped when the encoding is given", hex("FFFE 6100"), Utf16LE, Utf16LE, Enregistrements{{"a"}});
        cas("cut UTF-16 at the end", hex("6100 62"), Utf16LE, Utf16LE, Enregistrements{{"a\uFFFD"}});
        cas("cut UTF-8 at the end", hex("61 C3"), Utf8, Utf8, Enregistrements{{"a\uFFFD"}});
        cas("invalid UTF-8 byte replaced", hex("61 FF 62"), Utf8, Utf8, Enregistrements{{"a\uFFFDb"}});
    }

    void lecture()
    {
        QFETCH(QByteArray, octets);
        QFETCH(int, donne);
        QFETCH(int, attenduEncodage);
        QFETCH(Enregistrements, attendu);

        QTemporaryDir dossier;
        const QString chemin = dossier.filePath("donnees.csv");
        QVERIFY(ecrireFichier(chemin, octets));
        const Lecture lecture = lireFichierCsv(chemin, CsvEncodage(donne));
        QVERIFY(lecture.reussi);
        QCOMPARE(int(lecture.encodage), attenduEncodage);
        QCOMPARE(lecture.journal.enregistrements, attendu);
        QCOMPARE(lecture.octetsLus, qint64(octets.size()));
    }

    void morceaux_data()
    {
        QTest::addColumn<int>("encodage");
        QTest::addColumn<QByteArray>("nomQt");

        cas("UTF-8", Utf8, QByteArray("UTF-8"));
        cas("UTF-16 LE", Utf16LE, QByteArray("UTF-16LE"));
        cas("UTF-16 BE", Utf16BE, QByteArray("UTF-16BE"));
        cas("UTF-32 LE", Utf32LE, QByteArray("UTF-32LE"));
    }

    // A file many times the read size, whose multi-byte characters and quoted newlines fall across
    // every kind of chunk boundary.
    void morceaux()
    {
        QFETCH(int, encodage);
        QFETCH(QByteArray, nomQt);

        Enregistrements attendu;
        QString texte;
        for (int i = 0; i < 6000; ++i) {
            const QString long_ = QString(i % 37, u'é') + QStringLiteral("😀");
            const QStringList enregistrement{QString::number(i), long_, QStringLiteral("l1\nl2, \"%1\"").arg(i)};
            attendu << enregistrement;
            texte += QStringLiteral("%1,%2,\"l1\nl2, \"\"%3\"\"\"\r\n").arg(i).arg(long_).arg(i);
        }
        QStringEncoder encodeur(nomQt.constData());
        const QByteArray octets = encodeur.encode(texte);
        QVERIFY(octets.size() > 4 * 64 * 1024);

        QTemporaryDir dossier;
        const QString chemin = dossier.filePath("grand.csv");
        QVERIFY(ecrireFichier(chemin, octets));
        const Lecture lecture = lireFichierCsv(chemin, CsvEncodage(encodage));
        QVERIFY(lecture.reussi);
        QCOMPARE(lecture.journal.enregistrements.size(), attendu.size());
        QCOMPARE(lecture.journal.enregistrements, attendu);
        QCOMPARE(lecture.octetsLus, qint64(octets.size()));
    }

    void ecriture_data()
    {
        QTest::addColumn<int>("encodage");
        QTest::addColumn<QString>("texte");
        QTest::addColumn<QByteArray>("attendu");

        const auto hex = [](const char* texte) { return QByteArray::fromHex(texte); };
        cas("UTF-8 has no mark", Utf8, "é", hex("C3A9 0A"));
        cas("UTF-16 BE", Utf16BE, "é", hex("FEFF 00E9 000A"));
        cas("UTF-16 LE", Utf16LE, "é", hex("FFFE E900 0A00"));
        cas("UTF-32 BE", Utf32BE, "😀", hex("0000FEFF 0001F600 0000000A"));
        cas("UTF-32 LE", Utf32LE, "😀", hex("FFFE0000 00F60100 0A000000"));
        cas("Mac Roman", MacRoman, "café €“”", hex("6361668E 20 DB D2D3 0A"));
        cas("Mac Roman lacks a character", MacRoman, "a😀ſb", hex("61 3F 3F 62 0A"));
        cas("Windows-1252", Windows1252, "café €", hex("636166E9 20 80 0A"));
    }

    void ecriture()
    {
        QFETCH(int, encodage);
        QFETCH(QString, texte);
        QFETCH(QByteArray, attendu);

        QBuffer tampon;
        auto writer = CsvWriter::initWithOutputStream(&tampon, CsvEncodage(encodage), u',');
        writer->writeLineOfFields(QStringList{texte});
        QCOMPARE(tampon.data().toHex(' '), attendu.toHex(' '));
    }

    // Mac Roman has no byte-order mark to find it by: it is read back when it is asked for.
    void macRomanAllerRetour()
    {
        QTemporaryDir dossier;
        const QString chemin = dossier.filePath("mac.csv");
        const Enregistrements enregistrements{{"Société Générale", "Père-Lachaise, Paris"}, {"Œuvre", "“guillemets”"}};
        {
            QFile fichier(chemin);
            auto writer = CsvWriter::initWithOutputStream(&fichier, CsvEncodage::MacRoman, u',');
            for (const QStringList& enregistrement : enregistrements)
                writer->writeLineOfFields(enregistrement);
            QVERIFY(writer->closeStream());
        }
        QCOMPARE(lireFichierCsv(chemin, CsvEncodage::MacRoman).journal.enregistrements, enregistrements);
    }
};

QObject* creerTestEncodagesCsv()
{
    return new TestEncodagesCsv;
}

#include "TestEncodagesCsv.moc"
