// The profile: reading the row, one save per field (an emptied field stays '' and a
// quote is kept), the date of birth, the whole-block save, the new rights period and
// the photo (the abatement box is tested on the profile screen).

#include "commun/Reference.h"
#include "records/Profil.h"
#include "store/Horloge.h"
#include "store/Intermittent.h"

#include <QTemporaryDir>
#include <QtTest>
#include <functional>

using namespace corvane;
using namespace corvane::test;

class TestProfil : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    int m_numero = 0;
    QString m_champs; // the document every per-field save writes to

    // A document as the program has it: created, then opened (the upgrade pass adds the last columns).
    QString document(bool ouvert = true)
    {
        const QString chemin =
            creerDocument(parametresParDefaut(m_dossier.filePath(QStringLiteral("p%1.cv4").arg(++m_numero))));
        if (ouvert)
            ouvrirDocument(chemin);
        return chemin;
    }

    static QVariant lire(const QString& chemin, const QString& colonne, QString* type = nullptr)
    {
        BaseDeDonnees base;
        if (!base.ouvrirEnLecture(chemin))
            return {};
        if (type)
            *type = base.texte(QStringLiteral("SELECT typeof(%1) FROM utilisateur WHERE u_id = 1;").arg(colonne));
        const Lignes l = base.lignes(QStringLiteral("SELECT %1 AS v FROM utilisateur WHERE u_id = 1;").arg(colonne));
        return l.isEmpty() ? QVariant() : l.first().value("v");
    }

private slots:
    void initTestCase()
    {
        Horloge::fixer(QDate(2024, 6, 15));
        m_champs = document();
    }

    void lecture()
    {
        const QString chemin = document();
        Profil profil(chemin);
        QVERIFY(profil.initDepuisLaTableV4());
        const DonneesProfil& d = profil.donnees();
        QCOMPARE(d.nom, QStringLiteral("Dupont"));
        QCOMPARE(d.prenom, QStringLiteral("Jeanne"));
        QCOMPARE(d.emploi, QStringLiteral("Artiste"));
        QCOMPARE(d.civilite, QStringLiteral("Mme"));
        QCOMPARE(d.abattement, QStringLiteral("20"));
        QCOMPARE(d.dateDebutDossier, QDate(2024, 3, 1));
        QCOMPARE(d.periodeEnCours, 1);
        QCOMPARE(d.autoEntrepreneurPeriode, 3);
        QCOMPARE(d.vehiculeType, 1);
        QCOMPARE(profil.colonnes().value("u_date_debut_dossier").toString(), QStringLiteral("2024-03-01 00:00:00.000"));
        QCOMPARE(profil.colonnes().size(), Profil::nomsDesColonnes().size());
    }

    void lectureAvantLaMiseAJour()
    {
        // A freshly created document lacks the columns the upgrade pass adds: the rest is still read.
        Profil profil(document(false));
        QVERIFY(profil.initDepuisLaTableV4());
        QCOMPARE(profil.donnees().nom, QStringLiteral("Dupont"));
        QCOMPARE(profil.colonnes().value("u_rib_iban"), QVariant(QStringLiteral("")));
        QCOMPARE(profil.colonnes().size(), Profil::nomsDesColonnes().size());
        QCOMPARE(profil.donnees().pas, 0.0);
    }

    void sansDocument()
    {
        Profil profil;
        QVERIFY(!profil.initDepuisLaTableV4());
        QVERIFY(!profil.saveLastName("X"));
    }

    // A field saved alone: a text is bound as it is (never NULL), a number is kept within its
    // bounds, and no other column changes. One row per kind of field, and the periodicity,
    // whose column once differed from the one the profile reads.
    void champParChamp_data()
    {
        QTest::addColumn<QString>("colonne");
        QTest::addColumn<QVariant>("valeur");
        QTest::addColumn<bool>("accepte");
        cas("text with quotes", "u_nom", QVariant("L'Hôte d'\"Orsay\""), true);
        cas("text emptied", "u_email", QVariant(QString()), true);
        cas("text, injection", "u_rib_iban", QVariant("x'; DROP TABLE utilisateur; --"), true);
        cas("whole number", "u_nbre_enfants", QVariant(3), true);
        cas("whole number beyond its bound", "u_nbre_enfants", QVariant(31), false);
        cas("amount", "u_srj_valide", QVariant(12.345), true);
        cas("rate beyond 100", "u_pas", QVariant(100.5), false);
        cas("periodicity", "u_autoentrepreneur_periode", QVariant(1), true);
    }

    void champParChamp()
    {
        QFETCH(QString, colonne);
        QFETCH(QVariant, valeur);
        QFETCH(bool, accepte);
        const QMap<QString, std::function<bool(Profil&)>> sauvegardes{
            {"u_nom", [&](Profil& p) { return p.saveLastName(valeur.toString()); }},
            {"u_email", [&](Profil& p) { return p.saveEmail(valeur.toString()); }},
            {"u_rib_iban", [&](Profil& p) { return p.saveRibIban(valeur.toString()); }},
            {"u_nbre_enfants", [&](Profil& p) { return p.saveChildren(valeur.toInt()); }},
            {"u_srj_valide", [&](Profil& p) { return p.savePeSRJ(valeur.toDouble()); }},
            {"u_pas", [&](Profil& p) { return p.savePas(valeur.toDouble()); }},
            {"u_autoentrepreneur_periode", [&](Profil& p) { return p.saveAePeriodicity(valeur.toInt()); }},
        };
        const auto ligne = [this] { return Intermittent(m_champs).db().lignes("SELECT * FROM utilisateur;"); };
        Ligne avant = ligne().value(0);
        {
            Profil profil(m_champs);
            QCOMPARE(sauvegardes.value(colonne)(profil), accepte);
        }
        QString type;
        const QVariant lu = lire(m_champs, colonne, &type);
        if (!accepte)
            QCOMPARE(lu, avant.value(colonne));
        else if (valeur.typeId() == QMetaType::QString)
            QCOMPARE(type + '|' + lu.toString(), "text|" + valeur.toString());
        else
            QCOMPARE(lu.toDouble(), valeur.toDouble());
        // Nothing else changed: the one row, every other column as it was.
        Lignes apres = ligne();
        QCOMPARE(apres.size(), 1);
        avant.remove(colonne);
        apres[0].remove(colonne);
        QCOMPARE(apres[0], avant);
    }

    void dateDeNaissance_data()
    {
        QTest::addColumn<QDate>("naissance");
        QTest::addColumn<QString>("texte");
        cas("ordinary", QDate(1985, 3, 12), "1985-03-12 00:00:00.000");
        cas("summer-time day", QDate(2014, 3, 30), "2014-03-30 00:00:00.000");
        cas("leap day", QDate(1964, 2, 29), "1964-02-29 00:00:00.000");
    }

    void dateDeNaissance()
    {
        QFETCH(QDate, naissance);
        QFETCH(QString, texte);
        const QString chemin = document();
        Profil profil(chemin);
        QVERIFY(profil.saveDob(naissance));
        QCOMPARE(lire(chemin, "u_naissance").toString(), texte);
        QVERIFY(profil.initDepuisLaTableV4());
        QCOMPARE(profil.donnees().naissance, naissance);
    }

    void enregistrementComplet()
    {
        const QString chemin = document();
        Profil profil(chemin);
        QVERIFY(profil.initDepuisLaTableV4());
        DonneesProfil& d = profil.donnees();
        d.nom = "L'Hermite";
        d.prenom = "Anne-Marie d'Arc";
        d.pseudonyme = "La \"Môme\"";
        d.adresse = "3 rue de l'Église";
        d.commune = "L'Haÿ-les-Roses";
        d.codePostal = "94240";
        d.lieuNaissance = "Villeneuve-d'Ascq";
        d.ribCle = "4'2";
        d.srjValide = 98.456;
        d.tauxValide = 52.734;
        d.naissance = QDate(1980, 1, 31);
        d.abattementId = 3;
        d.nombreEnfants = 2;
        d.email = QString(); // an empty field
        QVERIFY(profil.enregistrement());

        // Quotes kept, amounts to two decimals, the empty e-mail '' (never NULL).
        CORVANE_COMPARER_REFERENCE(texteRequete(chemin, "SELECT * FROM utilisateur;"), "profil_enregistre.txt");
        Profil relu(chemin);
        QVERIFY(relu.initDepuisLaTableV4());
        QCOMPARE(relu.donnees().abattement, QStringLiteral("25"));
        QCOMPARE(relu.donnees().srjValide, 98.46);
    }

    void nouvellePeriodeDeDroits()
    {
        const QString chemin = document();
        Profil profil(chemin);
        QVERIFY(profil.majNouvellePeriodeDu(QDate(2025, 1, 15), 101.005, 57.456));
        QCOMPARE(lire(chemin, "u_date_debut_dossier").toString(), QStringLiteral("2025-01-15 00:00:00.000"));
        QCOMPARE(lire(chemin, "u_srj_valide").toDouble(), 101.0); // "%2.2f" of the binary value
        QCOMPARE(lire(chemin, "u_taux_valide").toDouble(), 57.46);
    }

    void ageMaxi_data()
    {
        QTest::addColumn<QDate>("aujourdhui");
        QTest::addColumn<int>("annees");
        QTest::addColumn<QDate>("attendu");
        cas("sixty years", QDate(2024, 6, 15), 60, QDate(1964, 6, 15));
        cas("from a leap day", QDate(2024, 2, 29), 1, QDate(2023, 2, 28));
        cas("none", QDate(2024, 2, 29), 0, QDate(2024, 2, 29));
    }

    void ageMaxi()
    {
        QFETCH(QDate, aujourdhui);
        QFETCH(int, annees);
        QFETCH(QDate, attendu);
        Horloge::fixer(aujourdhui);
        QCOMPARE(Profil::aujourdhuiMoinsAgeMaxi(annees), attendu);
        Horloge::fixer(QDate(2024, 6, 15));
    }

    void photo()
    {
        const QString chemin = document();
        Profil profil(chemin);
        QVERIFY(profil.ajouteUnePhoto("/home/l'artiste/photo d'identité.jpg"));
        QCOMPARE(lire(chemin, "u_photo").toString(), QStringLiteral("/home/l'artiste/photo d'identité.jpg"));
        QVERIFY(profil.supprimeLaPhoto());
        QString type;
        QCOMPARE(lire(chemin, "u_photo", &type).toString(), QString());
        QCOMPARE(type, QStringLiteral("text"));
    }
};

QTEST_GUILESS_MAIN(TestProfil)
#include "test_profil.moc"
