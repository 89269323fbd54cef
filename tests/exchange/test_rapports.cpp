// The three record reports (profile summary, employers, contracts) composed from real
// documents, written to PDF and read back: the parts each setting prints, the texts
// and French amounts, long texts printed whole, every page's footer, the file names,
// and a long career whose contracts are each listed exactly once.

#include "GenerateurCarriere.h"
#include "exchange/ExportPdf.h"
#include "exchange/Rapport.h"
#include "exchange/RapportTableauDeBord.h"
#include "exchange/RapportsEnregistrements.h"
#include "exchange/test_pdf_lecture.h"
#include "records/Contrats.h"
#include "records/OutilsContrats.h"
#include "records/Profil.h"
#include "store/BaseDeDonnees.h"
#include "store/Horloge.h"
#include "store/Reglages.h"

#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

namespace {

// The number of pictures the PDF carries (separator, stamp, photo).
int nombreImages(const QString& chemin)
{
    return int(octetsPdf(chemin).count("/Subtype /Image"));
}

QString sansBlancs(QString texte)
{
    texte.removeIf([](QChar c) { return c.isSpace(); });
    return texte;
}

// Every page ends with its footer: the owner, the day it is printed, "page / pages".
void verifierPieds(const QStringList& pages, const QString& titulaire = QStringLiteral("Jeanne Dupont"))
{
    for (int i = 0; i < pages.size(); ++i) {
        const QString pied =
            QStringLiteral("%1 Imprimé le 23/11/2026 %2 / %3").arg(titulaire).arg(i + 1).arg(pages.size());
        QVERIFY2(pages[i].trimmed().endsWith(pied), qPrintable(pages[i].right(80)));
    }
}

// An employer whose name, address and e-mail are each too long for their column.
const QString nomLong = QStringLiteral("Association culturelle des amis du théâtre de la ville de Saint-Étienne");
const QString villeLongue = QStringLiteral("13210 Saint-Rémy-de-Provence");
const QString courrielLong = QStringLiteral("administration.billetterie@association-culturelle-saint-etienne.fr");

} // namespace

class TestRapports : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    int m_numero = 0;
    QString m_profil;  // a document with a full profile
    QString m_emplois; // a document with three employers and their contracts

    QString chemin(const QString& nom) { return m_dossier.filePath(QStringLiteral("%1-%2").arg(++m_numero).arg(nom)); }

    // Composes with `composer`, writes the PDF, and gives its pages' text.
    template <typename Composer>
    QStringList pages(Composer composer, QString* fichier = nullptr)
    {
        Rapport rapport;
        if (!composer(rapport))
            return {QStringLiteral("<illisible>")};
        const QString pdf = chemin(QStringLiteral("rapport.pdf"));
        if (!ExportPdf::ecrirePdf(rapport.document(), pdf))
            return {QStringLiteral("<non écrit>")};
        if (fichier)
            *fichier = pdf;
        return pagesPdf(pdf);
    }

private slots:
    void initTestCase()
    {
        Horloge::fixer(QDate(2026, 11, 23));
        m_profil = documentContrats(m_dossier, QStringLiteral("profil.cv4"));
        Profil p(m_profil);
        QVERIFY(p.saveDob(QDate(1980, 5, 14)));
        QVERIFY(p.savePlaceOfBirth(QStringLiteral("Lyon")));
        QVERIFY(p.saveNickname(QStringLiteral("La Dupont")));
        QVERIFY(p.saveNationality(QStringLiteral("française")));
        QVERIFY(p.saveChildren(2));
        QVERIFY(p.saveAddress(QStringLiteral("12 rue des Lilas")));
        QVERIFY(p.savePostalCode(QStringLiteral("69001")));
        QVERIFY(p.saveCity(QStringLiteral("Lyon")));
        QVERIFY(p.saveLandline(QStringLiteral("04 78 00 00 00")));
        QVERIFY(p.saveMobilePhone(QStringLiteral("06 12 34 56 78")));
        QVERIFY(p.saveEmail(QStringLiteral("jeanne@example.org")));
        QVERIFY(p.saveSsNumber(QStringLiteral("2800569123456")));
        QVERIFY(p.saveGusoId(QStringLiteral("G-4242")));
        QVERIFY(p.saveFallId(2));
        QVERIFY(p.saveAeFlag(1));
        QVERIFY(p.saveAeSiret(QStringLiteral("123 456 789 00012")));
        // Printed in groups of four, however it was typed.
        QVERIFY(p.saveRibIban(QStringLiteral("fr76 30006000 0112345678 90189")));
        QImage photo(60, 80, QImage::Format_RGB32);
        photo.fill(Qt::darkCyan);
        const QString cheminPhoto = m_dossier.filePath(QStringLiteral("photo.jpg"));
        QVERIFY(photo.save(cheminPhoto));
        QVERIFY(p.ajouteUnePhoto(cheminPhoto));

        m_emplois = documentContrats(m_dossier, QStringLiteral("employeurs.cv4"));
        const int orly = ajouterEmployeur(m_emplois, QStringLiteral("Théâtre d'Orly"));
        const int opera = ajouterEmployeur(m_emplois, QStringLiteral("Opéra de Lyon"));
        ajouterEmployeur(m_emplois, QStringLiteral("Sans contrat"));
        const int long_ = ajouterEmployeur(m_emplois, nomLong);
        BaseDeDonnees base;
        QVERIFY(base.ouvrir(m_emplois));
        base.executer(
            "UPDATE employeurs SET e_adresse = ?, e_codepostal = ?, e_commune = ?, e_email = ? WHERE "
            "e_id = ?;",
            {QStringLiteral("12 chemin des Oliviers"), villeLongue.left(5), villeLongue.mid(6), courrielLong, long_});
        ajouterContrat(m_emplois, {orly, QDate(2024, 1, 8), QDate(2024, 1, 10), 36, 3, 1234.56, 950.5, 1, 1});
        ajouterContrat(m_emplois, {orly, QDate(2024, 2, 5), QDate(2024, 2, 5), 12, 1, 200.0, 155.25, 1, 1});
        ajouterContrat(m_emplois, {opera, QDate(2024, 3, 4), QDate(2024, 3, 8), 60, 5, 2500.0, 1950.0, 1, 0});
    }

    void cleanupTestCase() { Horloge::reinitialiser(); }

    void nomDuReleve_data()
    {
        QTest::addColumn<QDate>("jour");
        QTest::addColumn<QString>("nom");
        QTest::newRow("deux chiffres") << QDate(2026, 11, 21) << "Relevé d'informations 21 11 2026";
        QTest::newRow("sans zéro devant") << QDate(2026, 3, 5) << "Relevé d'informations 5 3 2026";
        QTest::newRow("premier janvier") << QDate(2027, 1, 1) << "Relevé d'informations 1 1 2027";
    }

    void nomDuReleve()
    {
        QFETCH(QDate, jour);
        QFETCH(QString, nom);
        QCOMPARE(nomRapportProfil(jour), nom);
        QCOMPARE(nomRapportEmployeurs(), QStringLiteral("Liste des employeurs"));
        QCOMPARE(nomRapportContrats(), QStringLiteral("Liste des contrats"));
    }

    void choixDepuisLesReglages()
    {
        QTemporaryDir maison;
        Reglages reglages(maison.filePath(QStringLiteral("r.ini")));
        const ChoixImpressions tout = ChoixImpressions::depuis(reglages);
        QVERIFY(tout.photo && tout.etatCivil && tout.personnelles && tout.administratives && tout.autoEntrepreneur &&
                tout.rib && tout.listeEmployeurs && tout.cumulsEmployeurs && tout.listeContrats);
        reglages.ecrire(Reglages::Cle::ProfilImpressionsRib, false);
        reglages.ecrire(Reglages::Cle::EmployeursImpressionsCumuls, false);
        reglages.ecrire(Reglages::Cle::ContratsImpressionsListe, false);
        const ChoixImpressions choix = ChoixImpressions::depuis(reglages);
        QVERIFY(!choix.rib && !choix.cumulsEmployeurs && !choix.listeContrats);
        QVERIFY(choix.photo && choix.listeEmployeurs);
    }

    void textesDuReleve()
    {
        QString fichier;
        const QStringList p =
            pages([this](Rapport& r) { return composerRapportProfil(r, m_profil, ChoixImpressions()); }, &fichier);
        QCOMPARE(p.size(), 2);
        const QString texte = p[0];
        for (const char* attendu : {"Relevé d'informations",
                                    "Etat civil",
                                    "Nom : Dupont",
                                    "Prénom : Jeanne",
                                    "Pseudonyme : La Dupont",
                                    "Nationalité : française",
                                    "Né le 14/05/1980 à Lyon",
                                    "Enfants à charge : 2",
                                    "Informations personnelles",
                                    "Adresse : 12 rue des Lilas, 69001 Lyon",
                                    "Téléphone : 04 78 00 00 00",
                                    "Mobile : 06 12 34 56 78",
                                    "Adresse électronique : jeanne@example.org",
                                    "Coordonnées administratives",
                                    "No Sécurité Sociale : 2800569123456",
                                    "No Guso : G-4242",
                                    "Abattement : 20 %",
                                    "Auto-entrepreneur",
                                    "Type d'activité : Prestations de services",
                                    "SIRET : 123 456 789 00012"})
            QVERIFY2(texte.contains(QString::fromUtf8(attendu)),
                     qPrintable(QString::fromUtf8(attendu) + "\n---\n" + texte));
        // Empty fields print nothing.
        QVERIFY(!texte.contains("Fax"));
        QVERIFY(!texte.contains("No Audiens"));
        // The bank details on their own page, with the stamp at the end.
        QVERIFY2(p[1].startsWith("RELEVE D'IDENTITE BANCAIRE"), qPrintable(p[1]));
        QVERIFY(p[1].contains("IBAN FR76 3000 6000 0112 3456 7890 189"));
        QVERIFY(!texte.contains("IBAN"));
        // The separator and the stamp (each with its transparency mask), the photo.
        QCOMPARE(nombreImages(fichier), 5);
    }

    void partiesDuReleve_data()
    {
        QTest::addColumn<QString>("partie");
        QTest::addColumn<QStringList>("absents");
        QTest::addColumn<int>("images");
        QTest::addColumn<int>("nombrePages");
        QTest::newRow("photo") << "photo" << QStringList{} << 4 << 2;
        QTest::newRow("état civil") << "etatCivil" << QStringList{"Etat civil", "Né le", "Nom : Dupont"} << 5 << 2;
        QTest::newRow("personnelles") << "personnelles"
                                      << QStringList{"Informations personnelles", "Adresse :", "Mobile"} << 5 << 2;
        QTest::newRow("administratives") << "administratives"
                                         << QStringList{"Coordonnées administratives", "Abattement", "No Guso"} << 5
                                         << 2;
        QTest::newRow("auto-entrepreneur")
            << "autoEntrepreneur" << QStringList{"Auto-entrepreneur", "SIRET", "Type d'activité"} << 5 << 2;
        QTest::newRow("RIB") << "rib" << QStringList{"RELEVE D'IDENTITE BANCAIRE", "IBAN"} << 5 << 1;
    }

    void partiesDuReleve()
    {
        QFETCH(QString, partie);
        QFETCH(QStringList, absents);
        QFETCH(int, images);
        QFETCH(int, nombrePages);
        ChoixImpressions choix;
        const QMap<QString, bool ChoixImpressions::*> membres{{"photo", &ChoixImpressions::photo},
                                                              {"etatCivil", &ChoixImpressions::etatCivil},
                                                              {"personnelles", &ChoixImpressions::personnelles},
                                                              {"administratives", &ChoixImpressions::administratives},
                                                              {"autoEntrepreneur", &ChoixImpressions::autoEntrepreneur},
                                                              {"rib", &ChoixImpressions::rib}};
        QVERIFY(membres.contains(partie));
        choix.*membres.value(partie) = false;
        QString fichier;
        const QStringList p = pages([&](Rapport& r) { return composerRapportProfil(r, m_profil, choix); }, &fichier);
        QCOMPARE(p.size(), nombrePages);
        const QString texte = p.join("\n");
        for (const QString& absent : absents)
            QVERIFY2(!texte.contains(absent), qPrintable(absent));
        // The other parts are still there, in their order.
        QStringList titres{"Etat civil", "Informations personnelles", "Coordonnées administratives",
                           "Auto-entrepreneur", "RELEVE D'IDENTITE BANCAIRE"};
        titres.removeIf([&](const QString& t) { return absents.contains(t); });
        qsizetype avant = -1;
        for (const QString& t : titres) {
            const qsizetype ici = texte.indexOf(t);
            QVERIFY2(ici > avant, qPrintable(t));
            avant = ici;
        }
        QCOMPARE(nombreImages(fichier), images);
        verifierPieds(p);
    }

    void pasAutoEntrepreneur()
    {
        // Nothing to print for a user who is not self-employed, nor for one without
        // bank details: no page of its own for an empty part.
        const QString document = documentContrats(m_dossier, QStringLiteral("salarie.cv4"));
        const QStringList p = pages([&](Rapport& r) { return composerRapportProfil(r, document, ChoixImpressions()); });
        QCOMPARE(p.size(), 1);
        QVERIFY(p[0].contains("Etat civil"));
        QVERIFY(!p[0].contains("Auto-entrepreneur"));
        QVERIFY(!p[0].contains("IBAN"));
        QVERIFY(!p[0].contains("RELEVE D'IDENTITE BANCAIRE"));
    }

    void documentIllisible()
    {
        Rapport r;
        QVERIFY(!composerRapportProfil(r, m_dossier.filePath("absent.cv4"), ChoixImpressions()));
        QVERIFY(!composerRapportEmployeurs(r, m_dossier.filePath("absent.cv4"), ChoixImpressions()));
        QVERIFY(!composerRapportContrats(r, m_dossier.filePath("absent.cv4"), ChoixImpressions(), FiltreContrats()));
        QVERIFY(!QFileInfo::exists(m_dossier.filePath("absent.cv4")));
        QVERIFY(r.document().isEmpty());
    }

    void employeurs_data()
    {
        QTest::addColumn<bool>("liste");
        QTest::addColumn<bool>("cumuls");
        QTest::newRow("les deux") << true << true;
        QTest::newRow("liste seule") << true << false;
        QTest::newRow("cumuls seuls") << false << true;
        QTest::newRow("aucun") << false << false;
    }

    void employeurs()
    {
        QFETCH(bool, liste);
        QFETCH(bool, cumuls);
        ChoixImpressions choix;
        choix.listeEmployeurs = liste;
        choix.cumulsEmployeurs = cumuls;
        const QStringList p = pages([&](Rapport& r) { return composerRapportEmployeurs(r, m_emplois, choix); });
        const QString texte = p.join("\n");
        QVERIFY(texte.startsWith("Liste des employeurs"));
        QCOMPARE(texte.contains("Courriel"), liste);
        QCOMPARE(texte.contains("Cumuls par employeur"), cumuls);
        QCOMPARE(texte.contains("Salaires bruts"), cumuls);
        QCOMPARE(p.size(), liste && cumuls ? 2 : 1);
        verifierPieds(p);
        QCOMPARE(texte.contains("Sans contrat"), liste || cumuls);
        // Long texts wrap in their cells, whole.
        QCOMPARE(sansBlancs(texte).contains(sansBlancs(nomLong)), liste || cumuls);
        QVERIFY(!texte.contains(QStringLiteral("…")));
        if (liste) {
            QVERIFY2(sansBlancs(texte).contains(sansBlancs("12 chemin des Oliviers, " + villeLongue)),
                     qPrintable(texte));
            QVERIFY(sansBlancs(texte).contains(sansBlancs(courrielLong)));
        }
        if (cumuls) {
            const QString page = p.last();
            // Orly: 4 days, 48 hours; the opera: 5 days, 60 hours; the totals.
            QVERIFY2(page.contains("Théâtre d'Orly 4 48 1 434,56 € 1 105,75 €"), qPrintable(page));
            QVERIFY(page.contains("Opéra de Lyon 5 60 2 500,00 € 1 950,00 €"));
            QVERIFY(page.contains("Sans contrat 0 0 0,00 € 0,00 €"));
            QVERIFY(page.simplified().contains("Saint-Étienne 0 0 0,00 € 0,00 €"));
            QVERIFY(page.contains("Totaux 9 108 3 934,56 € 3 055,75 €"));
        }
    }

    void contratsFiltres_data()
    {
        QTest::addColumn<QString>("employeur");
        QTest::addColumn<int>("paye");
        QTest::addColumn<QStringList>("presents");
        QTest::addColumn<QStringList>("absents");
        QTest::newRow("tous") << QString() << 0
                              << QStringList{"08/01/2024", "05/02/2024", "04/03/2024",
                                             "Totaux 9 108 3 934,56 € 3 055,75 €", "Nombre de contrats : 3"}
                              << QStringList{};
        QTest::newRow("un employeur") << "Théâtre d'Orly" << 0
                                      << QStringList{"08/01/2024", "05/02/2024", "employeur « Théâtre d'Orly »",
                                                     "Totaux 4 48 1 434,56 € 1 105,75 €", "Nombre de contrats : 2"}
                                      << QStringList{"04/03/2024", "Opéra"};
        QTest::newRow("non payés") << QString() << 2 << QStringList{"04/03/2024", "non payés"}
                                   << QStringList{"08/01/2024", "05/02/2024"};
    }

    void contratsFiltres()
    {
        QFETCH(QString, employeur);
        QFETCH(int, paye);
        QFETCH(QStringList, presents);
        QFETCH(QStringList, absents);
        FiltreContrats filtre;
        filtre.filtreEmployeur = !employeur.isEmpty();
        filtre.employeur = employeur;
        filtre.paye = paye;
        const QString texte = pages([&](Rapport& r) {
                                  return composerRapportContrats(r, m_emplois, ChoixImpressions(), filtre);
                              }).join("\n");
        QVERIFY(texte.startsWith("Liste des contrats"));
        for (const QString& present : presents)
            QVERIFY2(texte.contains(present), qPrintable(present + "\n---\n" + texte));
        for (const QString& absent : absents)
            QVERIFY2(!texte.contains(absent), qPrintable(absent));
    }

    void contratsSansLaListe()
    {
        ChoixImpressions choix;
        choix.listeContrats = false;
        const QString texte = pages([&](Rapport& r) {
                                  return composerRapportContrats(r, m_emplois, choix, FiltreContrats());
                              }).join("\n");
        QVERIFY(!texte.contains("08/01/2024"));
        QVERIFY(!texte.contains("Employeur"));
        for (const char* attendu :
             {"Contrats : 3", "Jours : 9", "Heures : 108", "Salaires bruts : 3 934,56 €", "Salaires nets : 3 055,75 €"})
            QVERIFY2(texte.contains(QString::fromUtf8(attendu)),
                     qPrintable(QString::fromUtf8(attendu) + "\n---\n" + texte));
    }

    void rechercheEtTitre_data()
    {
        QTest::addColumn<bool>("contrats");
        QTest::addColumn<QString>("titre");
        QTest::newRow("employeurs") << false << "Liste des employeurs";
        QTest::newRow("contrats") << true << "Liste des contrats";
    }

    // Set as one ligature glyph, "ffi" reads back as "Oﬃce" in poppler, which the
    // viewers built on it search (QtPdf's reader undoes ligatures, so it cannot tell).
    void rechercheEtTitre()
    {
        QFETCH(bool, contrats);
        QFETCH(QString, titre);
        const QString document = documentContrats(m_dossier, QStringLiteral("office-%1.cv4").arg(++m_numero));
        const int office = ajouterEmployeur(document, QStringLiteral("Office de tourisme"));
        ajouterContrat(document, {office, QDate(2024, 5, 6), QDate(2024, 5, 6), 12, 1, 300.0, 234.0, 1, 1});
        QString fichier;
        pages(
            [&](Rapport& r) {
                return contrats ? composerRapportContrats(r, document, ChoixImpressions(), FiltreContrats())
                                : composerRapportEmployeurs(r, document, ChoixImpressions());
            },
            &fichier);
        QPdfDocument pdf;
        QCOMPARE(pdf.load(fichier), QPdfDocument::Error::None);
        QCOMPARE(pdf.metaData(QPdfDocument::MetaDataField::Title).toString(), titre);
        QProcess pdftotext;
        pdftotext.start(QStringLiteral("pdftotext"), {fichier, QStringLiteral("-")});
        QVERIFY2(pdftotext.waitForFinished(), "pdftotext (poppler-utils) est introuvable");
        const QString texte = QString::fromUtf8(pdftotext.readAllStandardOutput());
        QVERIFY2(texte.contains(QStringLiteral("Office de tourisme")), qPrintable(texte));
    }

    void longueCarriere()
    {
        // 2,000 contracts over many pages: each listed once, in the listing's order,
        // the header on every page and the totals at the end.
        bench::ParametresCarriere parametres;
        parametres.chemin = chemin(QStringLiteral("carriere.cv4"));
        parametres.contrats = 2000;
        parametres.annees = 10;
        parametres.fin = QDate(2024, 6, 30);
        bench::BilanCarriere bilan;
        QVERIFY2(bench::genererCarriere(parametres, bilan), qPrintable(bilan.erreur));
        QCOMPARE(bilan.contrats, 2000);

        Contrats contrats(parametres.chemin);
        QStringList attendus;
        const Table liste = contrats.listeLesContrats(FiltreContrats(), false);
        for (qsizetype i = 0; i < liste.size(); ++i)
            attendus << liste.valeur(i, "Date Debut").toString() + " " + liste.valeur(i, "Date Fin").toString();
        QCOMPARE(attendus.size(), 2000);

        const QStringList p =
            pages([&](Rapport& r) { return composerRapportContrats(r, parametres.chemin, ChoixImpressions(), {}); });
        QVERIFY2(p.size() > 40, qPrintable(QString::number(p.size())));
        // A row starts with its two dates; no record number is printed.
        const QRegularExpression rangee(QStringLiteral("(\\d\\d/\\d\\d/\\d{4} \\d\\d/\\d\\d/\\d{4}) \\D"));
        QStringList lus;
        for (int i = 0; i < p.size(); ++i) {
            QVERIFY2(p[i].contains("Début Fin Employeur Jours Heures Brut Net"), qPrintable(QString::number(i)));
            QVERIFY(!p[i].contains("N°"));
            for (auto it = rangee.globalMatch(p[i]); it.hasNext();)
                lus << it.next().captured(1);
        }
        QCOMPARE(lus, attendus);
        verifierPieds(p, QStringLiteral("Claire Martin"));
        QCOMPARE(p.join("\n").count("Totaux"), 1);
        QVERIFY(p.last().contains(QStringLiteral("Totaux")));
        QVERIFY(p.last().contains(QStringLiteral("Nombre de contrats : 2 000")));
        QVERIFY(p.last().contains(espacesSimples(Rapport::montant(contrats.totalBruts))));
    }

    // "Activité dans la période de référence" and its four parts. Rights opened 2024-03-01 and
    // ended 2025-03-01: only the opera's March contract is in the period.
    void tableauDeBord_data()
    {
        QTest::addColumn<QList<bool>>("parties"); // compte rendu, jour J, liste, jours et heures
        QTest::addColumn<QStringList>("presents");
        QTest::addColumn<QStringList>("absents");
        const QString ligne = QStringLiteral("04/03/2024 08/03/2024 Prestations Opéra de Lyon");
        cas("every part", QList<bool>{true, true, true, true},
            QStringList{"Du 01/03/2024 au 23/11/2026", "Compte rendu", "Jours : 5", "Bruts : 2 500,00 €",
                        "Nets : 1 950,00 €", "Jours suspendus : 0", "Situation au 23/11/2026",
                        "60 heures effectuées sur 507", "447 heures à réaliser avant le réexamen des droits",
                        "Fin de droits au 01/03/2025", "Période indemnisée", "Terminée !",
                        "Début Fin Type Note Jours Heures", ligne + " 5 jours 60 heures", "Totaux 5 jours 60 heures"},
            QStringList{"08/01/2024", "Théâtre"});
        cas("no figures", QList<bool>{false, true, true, true}, QStringList{"Situation au", ligne},
            QStringList{"Compte rendu", "Nets"});
        cas("no situation", QList<bool>{true, false, true, true}, QStringList{"Jours : 5", ligne},
            QStringList{"Situation au", "effectuées", "Terminée"});
        cas("no list", QList<bool>{true, true, false, true}, QStringList{"Jours : 5"},
            QStringList{"Activité détaillée", "04/03/2024", "Totaux"});
        cas("no days nor hours", QList<bool>{true, true, true, false}, QStringList{ligne, "Début Fin Type Note"},
            QStringList{"5 jours 60 heures", "Totaux"});
    }

    void tableauDeBord()
    {
        QFETCH(QList<bool>, parties);
        QFETCH(QStringList, presents);
        QFETCH(QStringList, absents);
        ChoixImpressions choix;
        choix.compteRenduTdb = parties[0];
        choix.jourJTdb = parties[1];
        choix.listeTdb = parties[2];
        choix.joursHeuresTdb = parties[3];
        const QStringList p = pages([&](Rapport& r) { return composerRapportTableauDeBord(r, m_emplois, choix); });
        const QString texte = p.join("\n");
        QVERIFY2(texte.startsWith("Activité dans la période de référence"), qPrintable(texte));
        for (const QString& present : presents)
            QVERIFY2(texte.contains(present), qPrintable(present + "\n---\n" + texte));
        for (const QString& absent : absents)
            QVERIFY2(!texte.contains(absent), qPrintable(absent + "\n---\n" + texte));
        verifierPieds(p);
        QCOMPARE(nomRapportTableauDeBord(QDate(2026, 3, 5)),
                 QStringLiteral("Activité dans la période de référence 2026 3 5"));
    }
};

QTEST_MAIN(TestRapports)
#include "test_rapports.moc"
