// The record reports (profile summary, employers, contracts, expenses), the social-security, paid-leave and
// income-tax reports composed from real documents, written to PDF and read back and compared whole with their
// stored text: the parts each setting prints, the filters, the file names, the search in other
// viewers, and a long career whose contracts are each listed exactly once.

#include "GenerateurCarriere.h"
#include "commun/Reference.h"
#include "exchange/ExportPdf.h"
#include "exchange/Rapport.h"
#include "exchange/RapportConges.h"
#include "exchange/RapportDroitsVoisins.h"
#include "exchange/RapportFiscalite.h"
#include "exchange/RapportFrais.h"
#include "exchange/RapportSecuriteSociale.h"
#include "exchange/RapportSimulation.h"
#include "exchange/RapportTableauDeBord.h"
#include "exchange/RapportsEnregistrements.h"
#include "exchange/test_pdf_lecture.h"
#include "records/Contrats.h"
#include "records/DroitsVoisins.h"
#include "records/Frais.h"
#include "records/OutilsContrats.h"
#include "records/Profil.h"
#include "regimes/SecuriteSociale.h"
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

// Every page ends with its footer: the owner, the day it is printed, "page / pages".
void verifierPieds(const QStringList& pages, const QString& titulaire)
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
        // Expenses in euros and in kilometres, one with a note too long for its column.
        Frais frais(m_emplois);
        const QList<std::tuple<int, QDate, double, QString>> depenses{
            {13, QDate(2024, 1, 8), 45.5, QStringLiteral("Train Paris – Orly")},
            {1, QDate(2024, 3, 4), 1250.5, QStringLiteral("Tournée")},
            {8, QDate(2024, 3, 5), 1234.56, nomLong},
            {13, QDate(2026, 2, 2), 12.0, QStringLiteral("Métro")}};
        for (const auto& [categorie, date, montant, note] : depenses) {
            Depense d;
            d.categorieId = categorie;
            d.date = date;
            d.montant = montant;
            d.details = note;
            QVERIFY(frais.enregistreFrais(d) > 0);
        }
    }

    void cleanupTestCase() { Horloge::reinitialiser(); }

    void nomDuReleve()
    {
        QCOMPARE(nomRapportProfil(QDate(2026, 11, 21)), QStringLiteral("Relevé d'informations 21 11 2026"));
        QCOMPARE(nomRapportProfil(QDate(2027, 1, 1)), QStringLiteral("Relevé d'informations 1 1 2027"));
        QCOMPARE(nomRapportSecuriteSociale(QDate(2026, 3, 5)), QStringLiteral("Sécurité Sociale 2026 3 5"));
        QCOMPARE(nomRapportConges(QDate(2026, 3, 5)), QStringLiteral("Congés Spectacles 2026 3 5"));
        QCOMPARE(nomRapportFiscalite(QDate(2026, 3, 5)), QStringLiteral("Fiscalité 2026 3 5"));
        QCOMPARE(nomRapportFrais(QDate(2026, 3, 5)), QStringLiteral("Frais professionnels 5 3 2026"));
        // The neighbouring-rights report keeps the expenses' name, day first.
        QCOMPARE(nomRapportDroitsVoisins(QDate(2026, 3, 5)), QStringLiteral("Frais professionnels 5 3 2026"));
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

    // The three reports, for each part the settings leave out and each filter, read back and
    // compared whole with their stored text (tests/data/reference/rapports.txt): the parts in
    // their order and the empty ones left out, French amounts and totals, long texts wrapped
    // whole, every page's footer, and the pictures (separator, stamp, photo) each report carries.
    void rapports()
    {
        const auto sans = [](bool ChoixImpressions::*partie) {
            ChoixImpressions choix;
            choix.*partie = false;
            return choix;
        };
        FiltreContrats orly;
        orly.filtreEmployeur = true;
        orly.employeur = QStringLiteral("Théâtre d'Orly");
        FiltreContrats nonPayes;
        nonPayes.paye = 2;
        FiltreFrais km;
        km.filtre = QStringLiteral("PERIODE");
        km.du = QDate(2024, 1, 1);
        km.au = QDate(2024, 12, 31);
        km.categorie = Frais::kCategorieKilometrage;
        FiltreFrais anciensDabord;
        anciensDabord.sens = QStringLiteral("DESC");
        ChoixImpressions aucunEmployeur = sans(&ChoixImpressions::listeEmployeurs);
        aucunEmployeur.cumulsEmployeurs = false;
        const QString salarie = documentContrats(m_dossier, QStringLiteral("salarie.cv4"));
        const QList<QPair<QString, std::function<bool(Rapport&)>>> rapports{
            {"relevé", [&](Rapport& r) { return composerRapportProfil(r, m_profil, {}); }},
            {"relevé sans photo",
             [&](Rapport& r) { return composerRapportProfil(r, m_profil, sans(&ChoixImpressions::photo)); }},
            {"relevé sans état civil",
             [&](Rapport& r) { return composerRapportProfil(r, m_profil, sans(&ChoixImpressions::etatCivil)); }},
            {"relevé sans personnelles",
             [&](Rapport& r) { return composerRapportProfil(r, m_profil, sans(&ChoixImpressions::personnelles)); }},
            {"relevé sans administratives",
             [&](Rapport& r) { return composerRapportProfil(r, m_profil, sans(&ChoixImpressions::administratives)); }},
            {"relevé sans auto-entrepreneur",
             [&](Rapport& r) { return composerRapportProfil(r, m_profil, sans(&ChoixImpressions::autoEntrepreneur)); }},
            {"relevé sans RIB",
             [&](Rapport& r) { return composerRapportProfil(r, m_profil, sans(&ChoixImpressions::rib)); }},
            {"relevé d'un salarié sans RIB", [&](Rapport& r) { return composerRapportProfil(r, salarie, {}); }},
            {"employeurs", [&](Rapport& r) { return composerRapportEmployeurs(r, m_emplois, {}); }},
            {"employeurs, liste seule",
             [&](Rapport& r) {
                 return composerRapportEmployeurs(r, m_emplois, sans(&ChoixImpressions::cumulsEmployeurs));
             }},
            {"employeurs, cumuls seuls",
             [&](Rapport& r) {
                 return composerRapportEmployeurs(r, m_emplois, sans(&ChoixImpressions::listeEmployeurs));
             }},
            {"employeurs, ni l'un ni l'autre",
             [&](Rapport& r) { return composerRapportEmployeurs(r, m_emplois, aucunEmployeur); }},
            {"contrats", [&](Rapport& r) { return composerRapportContrats(r, m_emplois, {}, {}); }},
            {"contrats d'un employeur", [&](Rapport& r) { return composerRapportContrats(r, m_emplois, {}, orly); }},
            {"contrats non payés", [&](Rapport& r) { return composerRapportContrats(r, m_emplois, {}, nonPayes); }},
            {"contrats sans la liste",
             [&](Rapport& r) {
                 return composerRapportContrats(r, m_emplois, sans(&ChoixImpressions::listeContrats), {});
             }},
            {"frais", [&](Rapport& r) { return composerRapportFrais(r, m_emplois, {}, {}); }},
            {"frais kilométriques d'une période",
             [&](Rapport& r) { return composerRapportFrais(r, m_emplois, {}, km); }},
            {"frais, les plus anciens d'abord, sans les catégories",
             [&](Rapport& r) {
                 return composerRapportFrais(r, m_emplois, sans(&ChoixImpressions::categoriesFrais), anciensDabord);
             }},
            {"frais sans la liste",
             [&](Rapport& r) { return composerRapportFrais(r, m_emplois, sans(&ChoixImpressions::listeFrais), {}); }},
        };
        QStringList texte;
        for (const auto& [nom, composer] : rapports) {
            QString fichier;
            const QStringList p = pages(composer, &fichier);
            texte << QStringLiteral("=== %1 : %2 image(s)").arg(nom).arg(nombreImages(fichier));
            for (int i = 0; i < p.size(); ++i)
                texte << QStringLiteral("--- page %1").arg(i + 1) << QString(p[i]).remove(QLatin1Char('\r')).trimmed();
        }
        CORVANE_COMPARER_REFERENCE((texte.join(QLatin1Char('\n')) + QLatin1Char('\n')).toUtf8(), "rapports.txt");
    }

    void documentIllisible()
    {
        Rapport r;
        QVERIFY(!composerRapportProfil(r, m_dossier.filePath("absent.cv4"), ChoixImpressions()));
        QVERIFY(!composerRapportEmployeurs(r, m_dossier.filePath("absent.cv4"), ChoixImpressions()));
        QVERIFY(!composerRapportContrats(r, m_dossier.filePath("absent.cv4"), ChoixImpressions(), FiltreContrats()));
        QVERIFY(!composerRapportSecuriteSociale(r, m_dossier.filePath("absent.cv4"), ChoixImpressions(), {}));
        QVERIFY(!composerRapportConges(r, m_dossier.filePath("absent.cv4"), ChoixImpressions(), "COMPLET"));
        DemandeFiscalite annee;
        annee.annee = 2026;
        QVERIFY(!composerRapportFiscalite(r, m_dossier.filePath("absent.cv4"), ChoixImpressions(), annee));
        QVERIFY(!composerRapportFrais(r, m_dossier.filePath("absent.cv4"), ChoixImpressions(), {}));
        QVERIFY(!composerRapportDroitsVoisins(r, m_dossier.filePath("absent.cv4"), ChoixImpressions()));
        QVERIFY(!QFileInfo::exists(m_dossier.filePath("absent.cv4")));
        QVERIFY(r.document().isEmpty());
    }

    void securiteSociale_data()
    {
        QTest::addColumn<bool>("contrat");
        QTest::addColumn<bool>("droits");
        QTest::addColumn<bool>("liste");
        QTest::addColumn<QStringList>("presents");
        QTest::addColumn<QStringList>("absents");
        const QString grille = QStringLiteral("Maladie (<= 6 mois) Non Remboursement de frais médicaux Oui");
        const QStringList periodes{"Debut Fin Type Rembourse Note", "02/04/2024 11/04/2024 Maladie Remboursé Grippe",
                                   "15/04/2024 15/04/2024 Pharmacie En attente"};
        cas("both parts", true, true, true,
            QStringList{"Vérification des droits au 31/03/2024", "Indemnités journalières Prises en charge possibles",
                        grille, "Maternité / Paternité Non Maladie professionnelle Oui"} +
                periodes,
            QStringList{});
        cas("rights only", true, true, false, QStringList{grille},
            QStringList{"Liste de toutes les périodes", "Grippe"});
        cas("periods only", true, false, true, periodes, QStringList{"Vérification des droits", grille});
        cas("no contract", false, true, true,
            QStringList{"Vos droits sociaux ne peuvent pas être calculés, car vous n'avez déclaré aucun contrat."} +
                periodes,
            QStringList{grille});
    }

    void securiteSociale()
    {
        QFETCH(bool, contrat);
        QFETCH(bool, droits);
        QFETCH(bool, liste);
        QFETCH(QStringList, presents);
        QFETCH(QStringList, absents);
        const QString document = documentContrats(m_dossier, QStringLiteral("securite-%1.cv4").arg(++m_numero));
        if (contrat)
            ajouterContrat(document, {ajouterEmployeur(document, QStringLiteral("Opéra")), QDate(2024, 3, 4),
                                      QDate(2024, 3, 8), 60, 5, 2500.0, 1950.0});
        SecuriteSociale modele(document);
        PeriodeSecuriteSociale pharmacie;
        pharmacie.debut = pharmacie.fin = QDate(2024, 4, 15);
        pharmacie.typeId = SecuriteSociale::Pharmacie;
        QVERIFY(modele.enregistreSecuriteSociale(pharmacie) > 0);
        PeriodeSecuriteSociale grippe;
        grippe.debut = QDate(2024, 4, 2);
        grippe.fin = QDate(2024, 4, 11);
        grippe.note = QStringLiteral("Grippe");
        grippe.rembourse = true;
        QVERIFY(modele.enregistreSecuriteSociale(grippe) > 0);
        ChoixImpressions choix;
        choix.verificationDroits = droits;
        choix.listePeriodes = liste;
        const QStringList p =
            pages([&](Rapport& r) { return composerRapportSecuriteSociale(r, document, choix, QDate(2024, 3, 31)); });
        const QString texte = p.join("\n");
        QVERIFY2(texte.startsWith("Compte rendu de Sécurité Sociale"), qPrintable(texte));
        for (const QString& present : presents)
            QVERIFY2(texte.contains(present), qPrintable(present + "\n---\n" + texte));
        for (const QString& absent : absents)
            QVERIFY2(!texte.contains(absent), qPrintable(absent));
        verifierPieds(p, QStringLiteral("Jeanne Dupont"));
    }

    // The paid-leave fund's report for the leave year or a period, and the income-tax report for a
    // year or a period, each part behind its switch, ending with the stamp.
    void regimes_data()
    {
        QTest::addColumn<bool>("fiscalite");
        QTest::addColumn<QDate>("du");
        QTest::addColumn<QDate>("au");
        QTest::addColumn<bool>("compteRendu");
        QTest::addColumn<bool>("cumuls");
        QTest::addColumn<bool>("liste");
        QTest::addColumn<QStringList>("presents");
        QTest::addColumn<QStringList>("absents");
        const QStringList conges{"Congés Spectacles", "Du 01/04/2026 au 31/03/2027"};
        const QStringList resumeConges{"Compte rendu",
                                       "Libellé Valeur",
                                       "Journées retenues 5",
                                       "Salaires bruts 1 244,00 €",
                                       "Journées acquises 1",
                                       "Indemnité brute 124,00 €",
                                       "Indemnité nette estimée 99,00 €"};
        const QStringList contratsConges{"Liste des contrats", "06/04/2026 au 08/04/2026", "24 heure(s) 3 jour(s)",
                                         "salaire brut: 1 234,99 €"};
        cas("paid leave", false, QDate(), QDate(), true, true, true, conges + resumeConges + contratsConges,
            QStringList{"Cumuls par employeur", "Aucune"});
        cas("paid leave, summary only", false, QDate(), QDate(), true, true, false, conges + resumeConges,
            QStringList{"Liste des contrats", "salaire brut"});
        cas("paid leave, contracts only", false, QDate(), QDate(), false, true, true, conges + contratsConges,
            QStringList{"Compte rendu", "Indemnité brute"});
        cas("paid leave, a period without any day", false, QDate(2026, 6, 1), QDate(2026, 6, 30), true, true, true,
            QStringList{"Du 01/06/2026 au 30/06/2026", "Aucune journée retenue sur la période.",
                        "Aucun contrat sur la période."},
            QStringList{"Journées retenues"});
        const QStringList resumeImpots{"Fiscalité", "Du 01/01/2026 au 31/12/2026", "Compte rendu",        "Journées 5",
                                       "Heures 40", "Net Imp. 958,60 €",           "Dist. parcourue 0 km"};
        const QStringList cumuls{"Cumuls par employeur", "Employeurs Heures Montants PAS",
                                 "Opéra de Lyon 40 h 958,60 € 95,86 €", "Totaux 40 h 958,60 € 95,86 €"};
        cas("tax year", true, QDate(), QDate(), true, true, true,
            resumeImpots + cumuls + QStringList{"Liste des contrats", "salaire net: 950,50 €"}, QStringList{});
        cas("tax year, no totals per employer", true, QDate(), QDate(), true, false, true, resumeImpots,
            QStringList{"Cumuls par employeur", "95,86"});
        cas("tax, a defined period", true, QDate(2026, 5, 1), QDate(2026, 5, 31), true, true, false,
            QStringList{"Du 01/05/2026 au 31/05/2026", "Net Imp. 8,10 €", "Opéra de Lyon 16 h 8,10 € 0,81 €"},
            QStringList{"Liste des contrats", "950,50"});
    }

    void regimes()
    {
        QFETCH(bool, fiscalite);
        QFETCH(QDate, du);
        QFETCH(QDate, au);
        QFETCH(bool, compteRendu);
        QFETCH(bool, cumuls);
        QFETCH(bool, liste);
        QFETCH(QStringList, presents);
        QFETCH(QStringList, absents);
        const QString document = documentContrats(m_dossier, QStringLiteral("regimes-%1.cv4").arg(++m_numero));
        const int opera = ajouterEmployeur(document, QStringLiteral("Opéra de Lyon"));
        ajouterContrat(document, {opera, QDate(2026, 4, 6), QDate(2026, 4, 8), 24, 3, 1234.99, 950.5});
        ajouterContrat(document, {opera, QDate(2026, 5, 4), QDate(2026, 5, 5), 16, 2, 10.5, 8.1});
        BaseDeDonnees base;
        QVERIFY(base.ouvrir(document));
        base.executer("UPDATE contrats SET c_conges = 1, c_annee_encaissement = 2026, c_pas = 10;");
        ChoixImpressions choix;
        choix.congesCompteRendu = choix.fiscaliteCompteRendu = compteRendu;
        choix.fiscaliteTotauxEmployeurs = cumuls;
        choix.congesListeContrats = choix.fiscaliteListeContrats = liste;
        QString fichier;
        const QStringList p = pages(
            [&](Rapport& r) {
                if (!fiscalite)
                    return du.isValid() ? composerRapportConges(r, document, choix, "PERIODE", du, au)
                                        : composerRapportConges(r, document, choix, "COMPLET");
                DemandeFiscalite demande;
                demande.annee = 2026;
                demande.du = du;
                demande.au = au;
                return composerRapportFiscalite(r, document, choix, demande);
            },
            &fichier);
        const QString texte = p.join("\n");
        for (const QString& present : presents)
            QVERIFY2(texte.contains(present), qPrintable(present + "\n---\n" + texte));
        for (const QString& absent : absents)
            QVERIFY2(!texte.contains(absent), qPrintable(absent));
        verifierPieds(p, QStringLiteral("Jeanne Dupont"));
        // The separator and the stamp.
        QVERIFY(nombreImages(fichier) >= 2);
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

    // The rights report read back: the demand, the report's lines, the allocation and period
    // tables and the hours, each behind its switch; and why nothing was computed.
    void rapportDesDroits_data()
    {
        QTest::addColumn<QString>("sans");
        QTest::addColumn<int>("contrats");
        QTest::addColumn<QStringList>("presents");
        QTest::addColumn<QStringList>("absents");
        const QStringList compteRendu{"Compte rendu",
                                      "Recherche des heures sur une période de référence de 365 jours, du 01/03/2024 "
                                      "au 28/02/2025.",
                                      "Vous aurez effectué suffisamment d'heures (600) au cours de cette période"};
        const QStringList allocations{"Allocation journalière", "Libellé Montant", "Allocation brute 62,94 €"};
        const QStringList periode{"Période analysée", "Depuis le 01/03/2024", "Jusqu'au 28/02/2025",
                                  "Journées retenues 50"};
        const QStringList heures{"Heures par emploi",
                                 "Emploi Prestations Enseignements Formations",
                                 "Artiste 600 0 0",
                                 "Décompte des heures",
                                 "Total des heures retenues 600",
                                 "Heures requises 507"};
        QTest::newRow("tout") << QString() << 0 << compteRendu + allocations + periode + heures << QStringList{};
        QTest::newRow("sans compte rendu") << "compteRendu" << 0 << allocations + periode + heures << compteRendu;
        QTest::newRow("sans allocations") << "allocations" << 0 << compteRendu + periode + heures << allocations;
        QTest::newRow("sans période") << "periode" << 0 << compteRendu + allocations + heures << periode;
        QTest::newRow("sans heures") << "heures" << 0 << compteRendu + allocations + periode << heures;
        QTest::newRow("aucun contrat prévu")
            << QString() << 2
            << QStringList{"Du 01/03/2024 au 28/02/2025, contrats prévus",
                           "Aucun contrat prévu pris en compte pour vos droits ne commence entre le 01/03/2024 et le "
                           "28/02/2025"}
            << QStringList{"Compte rendu", "Allocation brute"};
    }

    void rapportDesDroits()
    {
        QFETCH(QString, sans);
        QFETCH(int, contrats);
        QFETCH(QStringList, presents);
        QFETCH(QStringList, absents);
        // A performer's ten 60-hour performances of 1 500 € from April to December 2024.
        static const QString document = [this] {
            const QString chemin = documentContrats(m_dossier, QStringLiteral("droits.cv4"));
            for (int i = 0; i < 10; ++i) {
                const QDate jour = QDate(2024, 4, 2).addDays(25 * i);
                ajouterContrat(chemin, {1, jour, jour.addDays(4), 60, 5, 1500.0, 1170.0});
            }
            return chemin;
        }();
        ChoixRapportDroits choix;
        const QMap<QString, bool ChoixRapportDroits::*> membres{{"compteRendu", &ChoixRapportDroits::compteRendu},
                                                                {"allocations", &ChoixRapportDroits::allocations},
                                                                {"periode", &ChoixRapportDroits::periode},
                                                                {"heures", &ChoixRapportDroits::heures}};
        if (!sans.isEmpty())
            choix.*membres.value(sans) = false;
        DemandeDroits demande;
        demande.du = QDate(2024, 3, 1);
        demande.au = QDate(2025, 2, 28);
        demande.contrats = contrats;
        QString fichier;
        const QStringList p =
            pages([&](Rapport& r) { return composerRapportDroits(r, document, choix, demande); }, &fichier);
        // Lines wrapped in the page read back as one.
        const QString texte = p.join("\n").simplified();
        QVERIFY2(texte.startsWith("Simulation des droits"), qPrintable(texte));
        for (const QString& present : presents)
            QVERIFY2(texte.contains(present), qPrintable(present + "\n---\n" + texte));
        for (const QString& absent : absents)
            QVERIFY2(!texte.contains(absent), qPrintable(absent + "\n---\n" + texte));
        verifierPieds(p, QStringLiteral("Jeanne Dupont"));
        QPdfDocument pdf;
        QCOMPARE(pdf.load(fichier), QPdfDocument::Error::None);
        QCOMPARE(pdf.metaData(QPdfDocument::MetaDataField::Title).toString(), QStringLiteral("Simulation des droits"));
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
        verifierPieds(p, QStringLiteral("Jeanne Dupont"));
        QCOMPARE(nomRapportTableauDeBord(QDate(2026, 3, 5)),
                 QStringLiteral("Activité dans la période de référence 2026 3 5"));
    }

    void droitsVoisins_data()
    {
        QTest::addColumn<bool>("versements");
        QTest::addColumn<bool>("compteRendu");
        QTest::addColumn<bool>("liste");
        QTest::addColumn<QStringList>("presents");
        QTest::addColumn<QStringList>("absents");
        // Every body is listed in the summary, those without payment with a dash.
        const QStringList resume{"Compte rendu", "Organisme Montant", "Adami 1 234,56 €",
                                 "Agessa —",     "Spedidam 0,30 €",   "Total 1 234,86 €"};
        const QStringList versements{"Liste des versements", "Date Organisme Catégorie Montant Détails",
                                     "05/01/2023 Spedidam Chanteur 0,30 € Rediffusion",
                                     "12/03/2024 Adami Musicien 1 234,56 € Disque « Été »", "Total 1 234,86 €"};
        cas("both parts", true, true, true, resume + versements, QStringList{});
        cas("summary only", true, true, false, resume, QStringList{"Liste des versements", "Rediffusion"});
        cas("payments only", true, false, true, versements, QStringList{"Compte rendu", "Agessa"});
        cas("no payment", false, true, true, QStringList{"Adami —", "Total 0,00 €", "Aucun versement."},
            QStringList{"Date Organisme"});
    }

    void droitsVoisins()
    {
        QFETCH(bool, versements);
        QFETCH(bool, compteRendu);
        QFETCH(bool, liste);
        QFETCH(QStringList, presents);
        QFETCH(QStringList, absents);
        const QString document = documentContrats(m_dossier, QStringLiteral("dv-%1.cv4").arg(++m_numero));
        if (versements) {
            DroitsVoisins droits(document);
            QVERIFY(droits.enregistreDroitVoisin({QDate(2024, 3, 12), 1, 8, 1234.56, "Disque « Été »"}) > 0);
            QVERIFY(droits.enregistreDroitVoisin({QDate(2023, 1, 5), 6, 3, 0.3, "Rediffusion"}) > 0);
        }
        ChoixImpressions choix;
        choix.compteRenduDroitsVoisins = compteRendu;
        choix.listeVersementsDroitsVoisins = liste;
        QString fichier;
        const QStringList p =
            pages([&](Rapport& r) { return composerRapportDroitsVoisins(r, document, choix); }, &fichier);
        const QString texte = espacesSimples(p.join("\n"));
        QVERIFY2(texte.startsWith("Droits voisins"), qPrintable(texte));
        for (const QString& present : presents)
            QVERIFY2(texte.contains(present), qPrintable(present + "\n---\n" + texte));
        for (const QString& absent : absents)
            QVERIFY2(!texte.contains(absent), qPrintable(absent));
        verifierPieds(p, QStringLiteral("Jeanne Dupont"));
        // The separator and the stamp, as in the profile summary without its photo.
        QCOMPARE(nombreImages(fichier), 4);
    }
};

QTEST_MAIN(TestRapports)
#include "test_rapports.moc"
