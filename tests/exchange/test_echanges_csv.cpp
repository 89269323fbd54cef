// The document's lists written as CSV files and read back, by the codec and by Python's csv
// module; an employer's name with a comma, a quote and a line break taken there and back; the
// import's encodings, uneven records, titles, a file that stops being readable halfway, and the
// refusals, which leave the document as it was, byte for byte.

#include "commun/Cas.h"
#include "commun/OutilsDocument.h"
#include "exchange/Csv.h"
#include "exchange/ExportCsv.h"
#include "exchange/ImportCsv.h"

#include <QJsonArray>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <optional>

using namespace corvane;
using namespace corvane::test;

namespace {

using Enregistrements = QList<QStringList>;

const QString kNomDifficile = QStringLiteral("Théâtre \"Le Rond-Point\", Paris\n8e");

// Each row's values in the grid's column order, as far as the row goes.
Enregistrements valeurs(const LectureCsv& lecture)
{
    Enregistrements liste;
    for (const Ligne& rangee : lecture.rangees) {
        QStringList champs;
        for (const QString& colonne : lecture.colonnes)
            if (rangee.contains(colonne))
                champs << rangee.value(colonne).toString();
        liste << champs;
    }
    return liste;
}

// The records as Python's csv module reads them ("excel" dialect); empty when Python is missing.
std::optional<Enregistrements> lirePython(const QString& chemin)
{
    const QString python = QStandardPaths::findExecutable(QStringLiteral("python3"));
    if (python.isEmpty())
        return std::nullopt;
    const ResultatCli r = lancerProgramme(
        python, {QStringLiteral("-c"),
                 QStringLiteral("import csv, json, sys; print(json.dumps(list(csv.reader(open(sys.argv[1], "
                                "newline='', encoding='utf-8', errors='strict')))))"),
                 chemin});
    if (r.code != 0)
        return Enregistrements{{QStringLiteral("python3 a échoué : ") + r.erreurs}};
    Enregistrements liste;
    for (const QJsonValue& enregistrement : QJsonDocument::fromJson(r.sortie).array()) {
        QStringList champs;
        for (const QJsonValue& champ : enregistrement.toArray())
            champs << champ.toString();
        liste << champs;
    }
    return liste;
}

} // namespace

class TestEchangesCsv : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dossier;
    QString m_document;

    QString fichier(const QString& nom) const { return m_dossier.filePath(nom); }

    QString fichierCsv(const QString& nom, const QByteArray& octets) const
    {
        const QString chemin = fichier(nom);
        QFile f(chemin);
        if (f.open(QIODevice::WriteOnly))
            f.write(octets);
        return chemin;
    }

private slots:
    // A current document with two paid contracts and an unpaid one, an expense and one payment
    // in each history.
    void initTestCase()
    {
        m_document = ouvrirDocument(creerDocument(parametresParDefaut(fichier(QStringLiteral("echanges.cv4")))));
        QVERIFY(!m_document.isEmpty());
        BaseDeDonnees base;
        QVERIFY(base.ouvrir(m_document));
        QCOMPARE(base.executer(QStringLiteral("INSERT INTO employeurs (e_raison_sociale, e_commune) VALUES (?, "
                                              "'Paris'), ('Opéra', 'Lyon');"),
                               {kNomDifficile}),
                 101);
        QCOMPARE(base.exec(QStringLiteral(
                     "INSERT INTO contrats (c_employeur_id, c_debut_contrat, c_fin_contrat, c_nbre_heures, "
                     "c_salaire_brut, c_salaire_net, c_salaire_net_a_payer, c_paye) VALUES "
                     "(2, '2024-03-04 00:00:00.000', '2024-03-08 00:00:00.000', 60, 2500.5, 1950, 1800.25, 1), "
                     "(3, '2024-04-01 00:00:00.000', '2024-04-01 00:00:00.000', 12, 300, 230, 230, 0), "
                     "(3, '2024-05-02 00:00:00.000', '2024-05-03 00:00:00.000', 24, 1000000, 0.1, 0, 1);"
                     "INSERT INTO frais (f_categorie, f_details, f_montant, f_date, f_rembourse) VALUES "
                     "(1, 'Tournée, « été »', 1250.5, '2024-03-05 00:00:00.000', 1);"
                     "INSERT INTO assedichistorique (ah_date, ah_montant) VALUES ('2024-04-05 00:00:00.000', 1234.56);"
                     "INSERT INTO congeshistorique (ch_date, ch_montant, ch_encaisse) VALUES "
                     "('2024-06-01 00:00:00.000', 850, 1);"
                     "INSERT INTO fiscalitehistorique (fh_date, fh_montant, fh_credit) VALUES "
                     "('2024-09-15 00:00:00.000', -120.4, 0);")),
                 0);
    }

    void exporter_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<bool>("entetes");
        QTest::addColumn<Enregistrements>("attendu");
        cas("expenses", "Frais", true,
            Enregistrements{{"Catégorie", "Note", "Montant", "Date", "Remboursé"},
                            {"Kilométrage", "Tournée, « été »", "1250.5", "2024-03-05 00:00:00.000", "1"}});
        cas("paid contracts", "Contrats payés", true,
            Enregistrements{
                {"Employeur", "Date début", "Date fin", "Heures", "Salaire brut", "Salaire net", "Salaire net à payer"},
                {kNomDifficile, "2024-03-04 00:00:00.000", "2024-03-08 00:00:00.000", "60", "2500.5", "1950",
                 "1800.25"},
                {"Opéra", "2024-05-02 00:00:00.000", "2024-05-03 00:00:00.000", "24", "1000000", "0.1", "0"}});
        cas("paid contracts without header", "Contrats payés", false,
            Enregistrements{
                {kNomDifficile, "2024-03-04 00:00:00.000", "2024-03-08 00:00:00.000", "60", "2500.5", "1950",
                 "1800.25"},
                {"Opéra", "2024-05-02 00:00:00.000", "2024-05-03 00:00:00.000", "24", "1000000", "0.1", "0"}});
        cas("benefit payments", "Historique Pôle Emploi", true,
            Enregistrements{{"Date", "Montant"}, {"2024-04-05 00:00:00.000", "1234.56"}});
        cas("paid-leave payments", "Historique Congés Spectacles", true,
            Enregistrements{{"Date", "Montant"}, {"2024-06-01 00:00:00.000", "850"}});
        cas("tax payments", "Historique Fiscalité", false, Enregistrements{{"2024-09-15 00:00:00.000", "-120.4"}});
    }

    // Written over an older file of the same name, read back by the codec and by Python.
    void exporter()
    {
        QFETCH(QString, source);
        QFETCH(bool, entetes);
        QFETCH(Enregistrements, attendu);
        const QString dossier = fichier(QStringLiteral("export"));
        const QString chemin = dossier + QLatin1Char('/') + source + QStringLiteral(".csv");
        QVERIFY(QDir().mkpath(dossier));
        ecrire(chemin,
               QByteArrayLiteral("ancien contenu, bien plus long que le nouveau ne le sera jamais\n").repeated(50));

        BaseDeDonnees base;
        QVERIFY(base.ouvrirEnLecture(m_document));
        const ResultatExportCsv resultat = ExportCsv(base).exporter(source, dossier, entetes);
        QVERIFY2(resultat.reussi(), qPrintable(resultat.erreur));
        QCOMPARE(resultat.fichier, chemin);
        QCOMPARE(resultat.lignes, attendu.size() - (entetes ? 1 : 0));

        const QByteArray octets = lire(chemin);
        QVERIFY(octets.endsWith("\n#Généré par Corvane\n"));
        QCOMPARE(arrayWithContentsOfCSVFile(chemin, u',', CsvOption::SanitizesFields | CsvOption::RecognizesComments),
                 attendu);
        const std::optional<Enregistrements> python = lirePython(chemin);
        if (!python)
            QSKIP("python3 is not installed: the file was only read back by our parser");
        QCOMPARE(*python, attendu + Enregistrements{{"#Généré par Corvane"}});
    }

    // A document the statement cannot read: the file already there stays whole.
    void exportSansEcraser()
    {
        const QString dossier = fichier(QStringLiteral("echec"));
        QVERIFY(QDir().mkpath(dossier));
        const QString chemin = dossier + QStringLiteral("/Frais.csv");
        ecrire(chemin, "bon,fichier\n");
        BaseDeDonnees vide;
        QVERIFY(vide.creer(fichier(QStringLiteral("vide.sqlite"))));
        const ResultatExportCsv resultat = ExportCsv(vide).exporter(QStringLiteral("Frais"), dossier, true);
        QVERIFY(!resultat.reussi());
        QCOMPARE(lire(chemin), QByteArray("bon,fichier\n"));
        QCOMPARE(QDir(dossier).entryList(QDir::Files), QStringList{"Frais.csv"});
    }

    // The paid contracts exported, then their first column imported as employers.
    void allerRetour()
    {
        const QString copie = fichier(QStringLiteral("aller-retour.cv4"));
        QVERIFY(QFile::copy(m_document, copie));
        BaseDeDonnees base;
        QVERIFY(base.ouvrir(copie));
        const ResultatExportCsv export_ =
            ExportCsv(base).exporter(QStringLiteral("Contrats payés"), fichier(QStringLiteral("aller-retour")), true);
        QVERIFY(export_.reussi());

        const LectureCsv lecture = ImportCsv::lire(export_.fichier, u',', CsvEncodage::Utf8, true);
        QVERIFY(lecture.estComplete());
        QCOMPARE(lecture.titres.mid(0, 2), (QStringList{"Employeur", "Date début"}));
        QString erreur;
        QCOMPARE(ImportCsv::importer(base, lecture, {"Raison Sociale", "Commune", "- Ne pas importer -", "Code Postal"},
                                     &erreur),
                 2);
        QCOMPARE(base.colonne(QStringLiteral("SELECT e_raison_sociale || '|' || e_adresse || '|' || e_codepostal || "
                                             "'|' || e_commune || '|' || e_fax || '|' || e_contratmodele_id || '|' || "
                                             "e_conventionne FROM employeurs WHERE e_id > 3 ORDER BY e_id;")),
                 (QStringList{kNomDifficile + "||60|2024-03-04 00:00:00.000||0|1",
                              "Opéra||24|2024-05-02 00:00:00.000||0|1"}));
    }

    void encodages_data()
    {
        QTest::addColumn<int>("ecrit");
        QTest::addColumn<bool>("marque");
        QTest::addColumn<int>("choisi");
        cas("Mac Roman", 0, false, 0);
        cas("UTF-8", 1, false, 1);
        cas("UTF-8 with its mark", 1, true, 1);
        cas("UTF-16 BE", 2, false, 2);
        cas("UTF-16 BE with its mark", 2, true, 2);
        cas("UTF-16 LE", 3, false, 3);
        cas("UTF-16 LE with its mark", 3, true, 3);
        cas("UTF-32 BE", 4, false, 4);
        cas("UTF-32 BE with its mark", 4, true, 4);
        cas("UTF-32 LE", 5, false, 5);
        cas("UTF-32 LE with its mark", 5, true, 5);
        cas("a UTF-8 mark wins over Mac Roman", 1, true, 0);
        cas("a UTF-16 LE mark wins over UTF-8", 3, true, 1);
    }

    void encodages()
    {
        QFETCH(int, ecrit);
        QFETCH(bool, marque);
        QFETCH(int, choisi);
        const Enregistrements attendu{{"Théâtre du Châtelet", "Paris"}, {"L'Œil écoute", "Lyon – 2e"}};
        // The marks, in the list's order (Mac Roman has none).
        const QByteArray marques[] = {"",
                                      QByteArray::fromHex("EFBBBF"),
                                      QByteArray::fromHex("FEFF"),
                                      QByteArray::fromHex("FFFE"),
                                      QByteArray::fromHex("0000FEFF"),
                                      QByteArray::fromHex("FFFE0000")};
        QByteArray octets = EncodeurCsv(ImportCsv::encodage(ecrit)).encoder(CSVString(attendu));
        // The codec writes UTF-16 and UTF-32 with their mark.
        if (ecrit >= 2)
            octets.remove(0, marques[ecrit].size());
        if (marque)
            octets.prepend(marques[ecrit]);
        const QString chemin = fichierCsv(QStringLiteral("encodage.csv"), octets);
        const LectureCsv lecture = ImportCsv::lire(chemin, u',', ImportCsv::encodage(choisi), false);
        QVERIFY2(lecture.estComplete(), qPrintable(lecture.erreur));
        QCOMPARE(valeurs(lecture), attendu);
    }

    void lecture_data()
    {
        QTest::addColumn<QByteArray>("texte");
        QTest::addColumn<QString>("separateur");
        QTest::addColumn<bool>("titres");
        QTest::addColumn<QStringList>("titresAttendus");
        QTest::addColumn<Enregistrements>("rangees");
        QTest::addColumn<int>("ligneErreur");
        cas("uneven records", QByteArray("a,b\nc,d,e,f\ng\n"), ",", false,
            QStringList{"Col_0", "Col_1", "Col_2", "Col_3"}, Enregistrements{{"a", "b"}, {"c", "d", "e", "f"}, {"g"}},
            0);
        cas("titles on the first line", QByteArray("Nom,Ville\nOpéra,Lyon,69001\n"), ",", true,
            QStringList{"Nom", "Ville", "Col_2"}, Enregistrements{{"Opéra", "Lyon", "69001"}}, 0);
        cas("escapes, quotes and comments", QByteArray("a\\,b,\"c\"\"d\"\n# une note\n\"e\nf\",g\n"), ",", false,
            QStringList{"Col_0", "Col_1"}, Enregistrements{{"a,b", "c\"d"}, {"e\nf", "g"}}, 0);
        cas("semicolons", QByteArray("Opéra;Lyon, 1er\n"), "; (point-virgule)", false, QStringList{"Col_0", "Col_1"},
            Enregistrements{{"Opéra", "Lyon, 1er"}}, 0);
        cas("tabs", QByteArray("Opéra\tLyon, 1er\n"), "Tabulation", false, QStringList{"Col_0", "Col_1"},
            Enregistrements{{"Opéra", "Lyon, 1er"}}, 0);
        cas("stops at line 5", QByteArray("a,b\nc,d\n\"e\nf\",g\nh\"i,j\nk,l\n"), ",", false,
            QStringList{"Col_0", "Col_1"}, Enregistrements{{"a", "b"}, {"c", "d"}, {"e\nf", "g"}}, 5);
    }

    void lecture()
    {
        QFETCH(QByteArray, texte);
        QFETCH(QString, separateur);
        QFETCH(bool, titres);
        QFETCH(QStringList, titresAttendus);
        QFETCH(Enregistrements, rangees);
        QFETCH(int, ligneErreur);
        const QString chemin = fichierCsv(QStringLiteral("lecture.csv"), texte);
        const LectureCsv lecture =
            ImportCsv::lire(chemin, ImportCsv::separateur(separateur), CsvEncodage::Utf8, titres);
        QCOMPARE(lecture.titres, titresAttendus);
        QCOMPARE(lecture.colonnes.size(), titresAttendus.size());
        QCOMPARE(valeurs(lecture), rangees);
        QCOMPARE(lecture.ligneErreur, qint64(ligneErreur));
        QCOMPARE(lecture.estComplete(), ligneErreur == 0);
        if (ligneErreur > 0)
            QVERIFY2(lecture.erreur.contains(QStringLiteral("ligne %1,").arg(ligneErreur)), qPrintable(lecture.erreur));
    }

    void refus_data()
    {
        QTest::addColumn<QByteArray>("texte");
        QTest::addColumn<QStringList>("entetes");
        QTest::addColumn<QString>("message");
        const QString enDouble =
            QStringLiteral("Veuillez choisir une en-tête DIFFERENTE pour chacune des colonnes à importer.");
        const QString raisonEtCommune = QStringLiteral(
            "Pour importer des employeurs, vous devez sélectionner au moins une Raison Sociale et une Commune.");
        cas("a header twice", QByteArray("a,b,c\n"), QStringList{"Raison Sociale", "Commune", "Commune"}, enDouble);
        cas("twice before the missing town", QByteArray("a,b\n"), QStringList{"Adresse", "Adresse"}, enDouble);
        cas("no town", QByteArray("a,b\n"), QStringList{"Raison Sociale", "- Ne pas importer -"}, raisonEtCommune);
        cas("no name", QByteArray("a,b\n"), QStringList{"Fax", "Commune"}, raisonEtCommune);
        cas("no row", QByteArray("# rien\n"), QStringList{"Raison Sociale", "Commune"},
            QStringLiteral("Aucune donnée à importer..."));
    }

    void refus()
    {
        QFETCH(QByteArray, texte);
        QFETCH(QStringList, entetes);
        QFETCH(QString, message);
        const QString copie = fichier(QStringLiteral("refus.cv4"));
        QFile::remove(copie);
        QVERIFY(QFile::copy(m_document, copie));
        const QByteArray avant = lire(copie);
        {
            BaseDeDonnees base;
            QVERIFY(base.ouvrir(copie));
            const LectureCsv lecture =
                ImportCsv::lire(fichierCsv(QStringLiteral("refus.csv"), texte), u',', CsvEncodage::Utf8, false);
            QString erreur;
            QCOMPARE(ImportCsv::importer(base, lecture, entetes, &erreur), -1);
            QCOMPARE(erreur, message);
        }
        QCOMPARE(lire(copie), avant);
    }
};

QTEST_GUILESS_MAIN(TestEchangesCsv)
#include "test_echanges_csv.moc"
