// Reports composed with Rapport, written by ExportPdf to each destination and read
// back with QtPdf: names and places, what is left behind when something fails, the
// alerts, French amounts, long tables over many pages with their footers, texts that
// wrap rather than being cut, fonts and page setup.

#include "commun/Cas.h"
#include "exchange/ExportPdf.h"
#include "exchange/Rapport.h"
#include "exchange/Tampon.h"
#include "exchange/test_pdf_lecture.h"
#include "store/Dialogues.h"
#include "store/Horloge.h"
#include "store/Reglages.h"

#include <QDirIterator>
#include <QFontDatabase>
#include <QPdfDocument>
#include <QPdfSelection>
#include <QProcess>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

namespace {

// Every file under a folder, relative to it.
QStringList fichiers(const QString& dossier)
{
    QStringList trouves;
    QDirIterator it(dossier, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (it.hasNext())
        trouves << QDir(dossier).relativeFilePath(it.next());
    trouves.sort();
    return trouves;
}

bool resteUnTemporaire(const QString& dossier)
{
    for (const QString& f : fichiers(dossier))
        if (f.endsWith(QLatin1String(".temp")))
            return true;
    return false;
}

QString ligneDuTableau(int i)
{
    return QStringLiteral("R%1").arg(i, 4, 10, QLatin1Char('0'));
}

QList<ColonneRapport> colonnesContrats()
{
    return {ColonneRapport::texte(QStringLiteral("Début"), 15),  ColonneRapport::texte(QStringLiteral("Employeur")),
            ColonneRapport::montant(QStringLiteral("Jours"), 9), ColonneRapport::montant(QStringLiteral("Heures"), 10),
            ColonneRapport::montant(QStringLiteral("Brut"), 16), ColonneRapport::montant(QStringLiteral("Net"), 16)};
}

QList<QStringList> lignesContrats(int nombre)
{
    QList<QStringList> lignes;
    for (int i = 0; i < nombre; ++i)
        lignes << QStringList{ligneDuTableau(i),           QStringLiteral("Théâtre d'Orléans"),
                              QString::number(i % 12 + 1), QString::number(8 * (i % 12 + 1)),
                              Rapport::montant(100.5 + i), Rapport::montant(80.25 + i)};
    return lignes;
}

// The text without any blank: a cell that wraps reads back with line breaks where
// it was broken.
QString sansBlancs(QString texte)
{
    texte.removeIf([](QChar c) { return c.isSpace(); });
    return texte;
}

// A report with every kind of content.
void composer(Rapport& r)
{
    r.titre(QStringLiteral("Relevé d'informations"));
    r.separateur();
    r.section(QStringLiteral("Etat civil"));
    r.ligne(QStringLiteral("Nom"), QStringLiteral("Dupont"));
    r.ligne(QStringLiteral("Salaire de référence"), Rapport::montant(1234.56));
    r.sousSection(QStringLiteral("Coordonnées"));
    r.paragraphe(QStringLiteral("Un paragraphe de texte courant."));
    r.tableau(colonnesContrats(), lignesContrats(12),
              {QString(), QStringLiteral("Totaux"), QStringLiteral("78"), QStringLiteral("624"),
               Rapport::montant(1272.0), Rapport::montant(1029.0)});
    r.paragraphe(QStringLiteral("Fin du relevé."));
    r.ajouteTamponDans(QStringLiteral("Jeanne Dupont"));
}

} // namespace

class TestPdf : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_dossier;
    QTemporaryDir m_maison; // the settings file, apart from the folders looked at
    int m_numero = 0;
    std::unique_ptr<Reglages> m_reglages;
    QString m_stockage;
    QString m_document;
    Rapport m_rapport;

    QString exporter(DialoguesScriptes& dialogues, const QString& nom, DestinationPdf destination,
                     const QString& document)
    {
        ExportPdf export_(*m_reglages, dialogues, document);
        return export_.exportPDF(m_rapport.document(), nom, destination);
    }

private slots:
    void initTestCase()
    {
        Horloge::fixer(QDate(2026, 11, 23));
        composer(m_rapport);
    }

    void cleanupTestCase() { Horloge::reinitialiser(); }

    void init()
    {
        m_dossier = std::make_unique<QTemporaryDir>();
        QVERIFY(m_dossier->isValid());
        m_stockage = m_dossier->filePath(QStringLiteral("Corvane"));
        QVERIFY(QDir().mkpath(m_stockage));
        m_reglages = std::make_unique<Reglages>(m_maison.filePath(QStringLiteral("reglages%1.ini").arg(++m_numero)));
        m_reglages->ecrire(Reglages::Cle::PrefsStockage, m_stockage);
        m_document = m_dossier->filePath(QStringLiteral("Jeanne Dupont.v2.cv4"));
    }

    void tampon()
    {
        const QImage image = dessineTampon(QStringLiteral("Jeanne Dupont"), 400);
        QCOMPARE(image.size(), QSize(400, 400));
        // Transparent corners, blue half-transparent ink on the outer ring.
        QCOMPARE(qAlpha(image.pixel(2, 2)), 0);
        int encre = 0;
        for (int x = 0; x < 200; ++x) {
            const QColor c = image.pixelColor(x, 200);
            if (c.alpha() > 100) {
                ++encre;
                QVERIFY(c.blue() > c.red() && c.alpha() < 255);
            }
        }
        QVERIFY(encre > 5);

        // "\n\n", a tab, then the picture, at the insertion point.
        QTextDocument document;
        QTextCursor curseur(&document);
        curseur.insertText(QStringLiteral("Fait à Lyon"));
        ajouteTamponDans(curseur, QStringLiteral("Jeanne Dupont"));
        QCOMPARE(document.toPlainText(),
                 QStringLiteral("Fait à Lyon\n\n\t") + QChar(QChar::ObjectReplacementCharacter));
        QTextBlock dernier = document.lastBlock();
        QTextFormat objet;
        for (auto it = dernier.begin(); !it.atEnd(); ++it)
            if (it.fragment().charFormat().isImageFormat())
                objet = it.fragment().charFormat();
        QCOMPARE(objet.toImageFormat().name(), QStringLiteral("tampon.png"));
    }

    void montants_data()
    {
        QTest::addColumn<double>("euros");
        QTest::addColumn<QString>("texte");
        QTest::newRow("milliers") << 1234.56 << "1 234,56 €";
        QTest::newRow("million") << 1000000.0 << "1 000 000,00 €";
        QTest::newRow("négatif") << -12.5 << "-12,50 €";
        QTest::newRow("négatif arrondi à zéro") << -0.001 << "0,00 €";
        QTest::newRow("arrondi au centime") << 2.345 << "2,35 €";
    }

    void montants()
    {
        QFETCH(double, euros);
        QFETCH(QString, texte);
        const QString montant = Rapport::montant(euros);
        QCOMPARE(espacesSimples(montant), texte);
        // The blanks are no-break ones: an amount never splits over two lines.
        QVERIFY(!montant.contains(QLatin1Char(' ')));
    }

    // Where a report is written: the storage folder, the save panel's choice (".pdf" added), or the
    // document's own sub-folder; a "/" in the name is no folder; an older file is replaced.
    void destinations_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<QString>("nom");
        QTest::addColumn<QString>("choisi");  // the panel's answer, relative to the temporary folder
        QTest::addColumn<QString>("attendu"); // relative to the temporary folder
        const QString releve = QStringLiteral("Relevé d'informations 21 11 2026");
        cas("0 dossier de stockage", 0, releve, "", "Corvane/" + releve + ".pdf");
        cas("1 panneau", 1, releve, "ailleurs/choisi.pdf", "ailleurs/choisi.pdf");
        cas("1 panneau sans extension", 1, releve, "ailleurs/choisi", "ailleurs/choisi.pdf");
        cas("2 dossier du document", 2, releve, "", "Corvane/Jeanne Dupont.v2/" + releve + ".pdf");
        cas("déjà .pdf, remplace l'ancien", 0, "Liste.pdf", "", "Corvane/Liste.pdf");
        cas("une barre oblique", 0, "Relevé 21/11/2026", "", "Corvane/Relevé 21-11-2026.pdf");
    }

    void destinations()
    {
        QFETCH(int, mode);
        QFETCH(QString, nom);
        QFETCH(QString, choisi);
        QFETCH(QString, attendu);
        QVERIFY(QDir().mkpath(m_dossier->filePath("ailleurs")));
        ecrire(m_stockage + QStringLiteral("/Liste.pdf"), "ancien");
        DialoguesScriptes dialogues;
        dialogues.choisirChemins({m_dossier->filePath(choisi)});
        ExportPdf export_(*m_reglages, dialogues, m_document);
        const QString chemin = export_.exportPDF(m_rapport.document(), nom, mode);
        QCOMPARE(chemin, m_dossier->filePath(attendu));
        QVERIFY(dialogues.echanges().isEmpty());
        QStringList fichiersAttendus{attendu, "Corvane/Liste.pdf"};
        fichiersAttendus.removeDuplicates();
        fichiersAttendus.sort();
        QCOMPARE(fichiers(m_dossier->path()), fichiersAttendus);
        QCOMPARE(dialogues.panneaux().size(), mode == 1 ? 1 : 0);
        if (mode == 1) {
            QCOMPARE(dialogues.panneaux()[0].dossier, m_stockage);
            QCOMPARE(dialogues.panneaux()[0].nomPropose, nom);
            QCOMPARE(dialogues.panneaux()[0].extension, QStringLiteral("pdf"));
        }
        const QStringList pages = pagesPdf(chemin);
        QCOMPARE(pages.size(), 1);
        QVERIFY2(pages[0].contains("Salaire de référence : 1 234,56 €"), qPrintable(pages[0]));
        QVERIFY(pages[0].contains("Fin du relevé."));
    }

    // Nothing written, nothing left behind, and the user told why (nothing, for a cancelled panel).
    void refus_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<bool>("avecDocument");
        QTest::addColumn<bool>("avecStockage");
        QTest::addColumn<QString>("obstacle"); // what stands in the way, relative to the temporary folder
        QTest::addColumn<bool>("dossier");     // the obstacle is a folder (else a file)
        QTest::addColumn<QString>("choisi");   // the panel's answer, for mode 1
        QTest::addColumn<QString>("message");  // the start of the alert
        const QString sansDocument = QStringLiteral("Avant toute nouvelle opération, il est nécessaire de créer un "
                                                    "nouveau fichier, ou d'en ouvrir un.");
        const QString sansStockage = QStringLiteral("Vous n'avez pas encore précisé de dossier de stockage.");
        const QString nonEnregistre = QStringLiteral("Le fichier PDF n'a pas pu être enregistré :");
        cas("panneau annulé", 1, true, true, "", false, "", "");
        cas("sans document, 0", 0, false, true, "", false, "", sansDocument);
        cas("sans document, 1", 1, false, true, "", false, "choisi.pdf", sansDocument);
        cas("sans dossier de stockage, 0", 0, true, false, "", false, "", sansStockage);
        cas("sans dossier de stockage, 2", 2, true, false, "", false, "", sansStockage);
        cas("un dossier porte le nom final", 0, true, true, "Corvane/Liste.pdf", true, "", nonEnregistre);
        cas("un fichier porte le nom du sous-dossier", 2, true, true, "Corvane/Jeanne Dupont.v2", false, "",
            "Le dossier « ");
        cas("dossier choisi absent", 1, true, true, "", false, "absent/Liste.pdf", nonEnregistre);
    }

    void refus()
    {
        QFETCH(int, mode);
        QFETCH(bool, avecDocument);
        QFETCH(bool, avecStockage);
        QFETCH(QString, obstacle);
        QFETCH(bool, dossier);
        QFETCH(QString, choisi);
        QFETCH(QString, message);
        if (!avecStockage)
            m_reglages->ecrire(Reglages::Cle::PrefsStockage, QString());
        if (dossier)
            QVERIFY(QDir().mkpath(m_dossier->filePath(obstacle)));
        else if (!obstacle.isEmpty())
            ecrire(m_dossier->filePath(obstacle), "occupé");
        const QStringList avant = fichiers(m_dossier->path());
        DialoguesScriptes dialogues;
        if (!choisi.isEmpty())
            dialogues.choisirChemins({m_dossier->filePath(choisi)});
        QVERIFY(exporter(dialogues, "Liste", DestinationPdf(mode), avecDocument ? m_document : QString()).isEmpty());
        if (!avecDocument)
            QVERIFY(dialogues.panneaux().isEmpty());
        QCOMPARE(dialogues.echanges().size(), message.isEmpty() ? 0 : 1);
        if (!message.isEmpty()) {
            QCOMPARE(dialogues.echanges()[0].titre, QStringLiteral("Exports PDF"));
            QVERIFY2(dialogues.echanges()[0].message.startsWith(message), qPrintable(dialogues.echanges()[0].message));
            QCOMPARE(dialogues.echanges()[0].boutons, QStringList{"Fermer"});
        }
        QCOMPARE(fichiers(m_dossier->path()), avant);
        if (!obstacle.isEmpty())
            QCOMPARE(QFileInfo(m_dossier->filePath(obstacle)).isDir(), dossier);
    }

    void fichierExistantIndelebile()
    {
        // A file that even its owner cannot remove (immutable): the copy over it fails,
        // the user is told, the old file stays and the temporary one goes.
        const QString chemin = m_stockage + QStringLiteral("/Liste.pdf");
        ecrire(chemin, "ancien");
        if (QProcess::execute(QStringLiteral("chattr"), {QStringLiteral("+i"), chemin}) != 0)
            QSKIP("chattr +i is not allowed here");
        const auto retablir = qScopeGuard([&] { QProcess::execute(QStringLiteral("chattr"), {"-i", chemin}); });
        DialoguesScriptes dialogues;
        QVERIFY(exporter(dialogues, "Liste", DestinationPdf::DossierDeStockage, m_document).isEmpty());
        QCOMPARE(dialogues.echanges().size(), 1);
        QVERIFY(dialogues.echanges()[0].message.contains("Le fichier existant ne peut pas être remplacé."));
        QCOMPARE(octetsPdf(chemin), QByteArray("ancien"));
        QCOMPARE(fichiers(m_stockage), QStringList{"Liste.pdf"});
    }

    void ecrireSansAlerte()
    {
        // The command line writes where it is told, through the same temporary file.
        const QString chemin = m_dossier->filePath("sortie.pdf");
        QString erreur;
        QVERIFY(ExportPdf::ecrirePdf(m_rapport.document(), chemin, &erreur));
        QVERIFY(erreur.isEmpty());
        QCOMPARE(fichiers(m_dossier->path()), QStringList{"sortie.pdf"});
        QVERIFY(!ExportPdf::ecrirePdf(m_rapport.document(), m_stockage, &erreur));
        QVERIFY(!erreur.isEmpty());
        QVERIFY(!resteUnTemporaire(m_dossier->path()));
    }

    void totauxJamaisSeuls()
    {
        // Whatever the length of the list, the totals row shares its page with a row.
        for (int nombre = 20; nombre < 60; ++nombre) {
            Rapport r;
            composer(r);
            r.tableau(colonnesContrats(), lignesContrats(nombre),
                      {QString(), QStringLiteral("Totaux"), QString(), QString(), QString(), QString()});
            const QString chemin = m_dossier->filePath(QStringLiteral("totaux%1.pdf").arg(nombre));
            QVERIFY(ExportPdf::ecrirePdf(r.document(), chemin));
            const QString derniere = pagesPdf(chemin).last();
            QVERIFY2(derniere.contains("Totaux"), qPrintable(QString::number(nombre)));
            QVERIFY2(derniere.contains(ligneDuTableau(nombre - 1)), qPrintable(QString::number(nombre)));
        }
    }

    void rangeesPlusHautes()
    {
        // Rows made taller by a name that wraps are placed from their own heights:
        // still each row once, the header on every page.
        const int nombre = 400;
        QList<QStringList> lignes = lignesContrats(nombre);
        for (int i = 50; i < 200; ++i)
            lignes[i][1] = QStringLiteral("Association culturelle des amis du théâtre de la ville de Saint-Étienne");
        Rapport r;
        r.tableau(colonnesContrats(), lignes);
        const QString chemin = m_dossier->filePath("hautes.pdf");
        QVERIFY(ExportPdf::ecrirePdf(r.document(), chemin));
        const QStringList pages = pagesPdf(chemin);
        QVERIFY(pages.size() > 6);
        const QRegularExpression etiquette(QStringLiteral("\\bR(\\d{4})\\b"));
        QList<int> vues(nombre, 0);
        for (int p = 0; p < pages.size(); ++p) {
            QVERIFY2(pages[p].contains("Début"), qPrintable(QString("page %1").arg(p + 1)));
            int lignes = 0;
            for (auto it = etiquette.globalMatch(pages[p]); it.hasNext(); ++lignes)
                ++vues[it.next().captured(1).toInt()];
            QVERIFY2(lignes > 5, qPrintable(QString("page %1 : %2 lignes").arg(p + 1).arg(lignes)));
        }
        QCOMPARE(vues, QList<int>(nombre, 1));
    }

    void rienNEstCoupe_data()
    {
        QTest::addColumn<QString>("nom");
        QTest::addColumn<QString>("adresse");
        QTest::addColumn<QString>("courriel");
        const QString nom = QStringLiteral("Association culturelle des amis du théâtre de la ville de Saint-Étienne");
        const QString adresse = QStringLiteral("3 chemin du Moulin, 13210\u00a0Saint-Rémy-de-Provence");
        const QString courriel = QStringLiteral("administration.billetterie@association-culturelle-saint-etienne.fr");
        QTest::newRow("rien de très long") << "Opéra"
                                           << "1 place de la Comédie, 69001\u00a0Lyon"
                                           << "contact@opera.fr";
        QTest::newRow("tout est long") << nom << adresse << courriel;
    }

    void rienNEstCoupe()
    {
        // Every text is printed whole: the widest text columns wrap their cells onto more
        // lines, and the amount columns, asked too narrow, widen to their longest amount.
        QFETCH(QString, nom);
        QFETCH(QString, adresse);
        QFETCH(QString, courriel);
        Rapport r;
        r.tableau({ColonneRapport::texte("Employeur"), ColonneRapport::texte("Adresse", 25),
                   ColonneRapport::texte("Courriel", 20), ColonneRapport::montant("Brut", 5),
                   ColonneRapport::montant("Net à payer", 5)},
                  {{nom, adresse, courriel, Rapport::montant(1234567.89), Rapport::montant(-12.5)},
                   {"Radio France", "116 avenue du Président Kennedy, 75016\u00a0Paris", "contact@radiofrance.fr",
                    Rapport::montant(987654.32), Rapport::montant(0)}},
                  {"Totaux", "", "", Rapport::montant(1234567.89), Rapport::montant(-12.5)});
        const QString chemin = m_dossier->filePath("entiers.pdf");
        QVERIFY(ExportPdf::ecrirePdf(r.document(), chemin));
        const QString page = pagesPdf(chemin).value(0);
        for (const QString& texte : {nom, adresse, courriel})
            QVERIFY2(sansBlancs(page).contains(sansBlancs(texte)), qPrintable(texte + "\n---\n" + page));
        QVERIFY(!page.contains(QStringLiteral("…")));
        QCOMPARE(page.count("1 234 567,89 €"), 2);
        QCOMPARE(page.count("987 654,32 €"), 1);
        QCOMPARE(page.count("-12,50 €"), 2);
        QVERIFY(page.contains("Net à payer"));
    }

    void policesIncorporees()
    {
        const QString chemin = m_dossier->filePath("polices.pdf");
        QVERIFY(ExportPdf::ecrirePdf(m_rapport.document(), chemin));
        const QByteArray pdf = octetsPdf(chemin);
        QVERIFY(test::policesIncorporees(pdf));
        if (!QFontDatabase::hasFamily("Lucida Grande") && QFontDatabase::hasFamily("DejaVu Sans"))
            QVERIFY(pdf.contains("/BaseFont /DejaVuSans") || pdf.contains("DejaVuSans"));
    }

    void miseEnPage()
    {
        const QString chemin = m_dossier->filePath("page.pdf");
        QVERIFY(ExportPdf::ecrirePdf(m_rapport.document(), chemin));
        QPdfDocument pdf;
        QCOMPARE(pdf.load(chemin), QPdfDocument::Error::None);
        const QSizeF a4 = pdf.pagePointSize(0);
        QVERIFY(qAbs(a4.width() - 595.28) < 1 && qAbs(a4.height() - 841.89) < 1);
        // Text starts at the 20-point margins, on the left, not centred.
        const QRectF texte = pdf.getAllText(0).boundingRectangle();
        QVERIFY2(texte.left() >= 19 && texte.left() < 26, qPrintable(QString::number(texte.left())));
        QVERIFY2(texte.top() >= 19 && texte.top() < 30, qPrintable(QString::number(texte.top())));
        // The table's right-aligned column ends at the right margin.
        QVERIFY2(texte.right() > 595.28 - 20 - 8 && texte.right() <= 595.28 - 19,
                 qPrintable(QString::number(texte.right())));
    }

    void documentInchange()
    {
        const int blocs = m_rapport.document().blockCount();
        const QString texte = m_rapport.document().toPlainText();
        QVERIFY(ExportPdf::ecrirePdf(m_rapport.document(), m_dossier->filePath("a.pdf")));
        QVERIFY(ExportPdf::ecrirePdf(m_rapport.document(), m_dossier->filePath("b.pdf")));
        QCOMPARE(m_rapport.document().blockCount(), blocs);
        QCOMPARE(m_rapport.document().toPlainText(), texte);
        QVERIFY(!m_rapport.document().pageSize().isValid());
        QCOMPARE(pagesPdf(m_dossier->filePath("a.pdf")), pagesPdf(m_dossier->filePath("b.pdf")));
    }

private:
    static void ecrire(const QString& chemin, const QByteArray& octets)
    {
        QFile f(chemin);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(octets);
    }
};

QTEST_MAIN(TestPdf)
#include "test_pdf.moc"
