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

namespace {

using Sauvegarde = std::function<bool(Profil&, const QVariant&)>;

// Every per-field save, by its column.
const QMap<QString, Sauvegarde>& sauvegardes()
{
    static const QMap<QString, Sauvegarde> table{
        {"u_emploi_id", [](Profil& p, const QVariant& v) { return p.saveJobId(v.toInt()); }},
        {"u_civilite_id", [](Profil& p, const QVariant& v) { return p.saveCivilityId(v.toInt()); }},
        {"u_prenom", [](Profil& p, const QVariant& v) { return p.saveFirstName(v.toString()); }},
        {"u_nom", [](Profil& p, const QVariant& v) { return p.saveLastName(v.toString()); }},
        {"u_adresse", [](Profil& p, const QVariant& v) { return p.saveAddress(v.toString()); }},
        {"u_codepostal", [](Profil& p, const QVariant& v) { return p.savePostalCode(v.toString()); }},
        {"u_commune", [](Profil& p, const QVariant& v) { return p.saveCity(v.toString()); }},
        {"u_pays", [](Profil& p, const QVariant& v) { return p.saveCountry(v.toString()); }},
        {"u_nationalite", [](Profil& p, const QVariant& v) { return p.saveNationality(v.toString()); }},
        {"u_pseudonyme", [](Profil& p, const QVariant& v) { return p.saveNickname(v.toString()); }},
        {"u_lieu_naissance", [](Profil& p, const QVariant& v) { return p.savePlaceOfBirth(v.toString()); }},
        {"u_telephone_mobile", [](Profil& p, const QVariant& v) { return p.saveMobilePhone(v.toString()); }},
        {"u_telephone", [](Profil& p, const QVariant& v) { return p.saveLandline(v.toString()); }},
        {"u_email", [](Profil& p, const QVariant& v) { return p.saveEmail(v.toString()); }},
        {"u_fax", [](Profil& p, const QVariant& v) { return p.saveFax(v.toString()); }},
        {"u_web", [](Profil& p, const QVariant& v) { return p.saveWebsite(v.toString()); }},
        {"u_nbre_enfants", [](Profil& p, const QVariant& v) { return p.saveChildren(v.toInt()); }},
        {"u_pas", [](Profil& p, const QVariant& v) { return p.savePas(v.toDouble()); }},
        {"u_ae_siret", [](Profil& p, const QVariant& v) { return p.saveAeSiret(v.toString()); }},
        {"u_ae_password", [](Profil& p, const QVariant& v) { return p.saveAePassword(v.toString()); }},
        {"u_autoentrepreneur_flag", [](Profil& p, const QVariant& v) { return p.saveAeFlag(v.toInt()); }},
        {"u_ae_categoriepro", [](Profil& p, const QVariant& v) { return p.saveAeCategoryId(v.toInt()); }},
        {"u_autoentrepreneur_periode", [](Profil& p, const QVariant& v) { return p.saveAePeriodicity(v.toInt()); }},
        {"u_ae_prelevementliberatoire", [](Profil& p, const QVariant& v) { return p.saveAeTaxFlag(v.toInt()); }},
        {"u_vehicule_type", [](Profil& p, const QVariant& v) { return p.saveVehicleType(v.toInt()); }},
        {"u_vehicule_puissance", [](Profil& p, const QVariant& v) { return p.saveVehiclePower(v.toInt()); }},
        {"u_identifiant_assedic", [](Profil& p, const QVariant& v) { return p.savePeId(v.toString()); }},
        {"u_poleemploi_password", [](Profil& p, const QVariant& v) { return p.savePePassword(v.toString()); }},
        {"u_taux_valide", [](Profil& p, const QVariant& v) { return p.savePeAllocation(v.toDouble()); }},
        {"u_srj_valide", [](Profil& p, const QVariant& v) { return p.savePeSRJ(v.toDouble()); }},
        {"u_conges_spectacles", [](Profil& p, const QVariant& v) { return p.saveCsNumber(v.toString()); }},
        {"u_conges_password", [](Profil& p, const QVariant& v) { return p.saveCsPassword(v.toString()); }},
        {"u_nir", [](Profil& p, const QVariant& v) { return p.saveSsNumber(v.toString()); }},
        {"u_carte_identite", [](Profil& p, const QVariant& v) { return p.saveIdentityCardNumber(v.toString()); }},
        {"u_permis_conduire", [](Profil& p, const QVariant& v) { return p.saveDrivingLicenceNumber(v.toString()); }},
        {"u_guso", [](Profil& p, const QVariant& v) { return p.saveGusoId(v.toString()); }},
        {"u_audiens", [](Profil& p, const QVariant& v) { return p.saveAudiensId(v.toString()); }},
        {"u_rib_etablissement", [](Profil& p, const QVariant& v) { return p.saveRibEstablishment(v.toString()); }},
        {"u_rib_guichet", [](Profil& p, const QVariant& v) { return p.saveRibDesk(v.toString()); }},
        {"u_rib_compte", [](Profil& p, const QVariant& v) { return p.saveRibAccount(v.toString()); }},
        {"u_rib_cle", [](Profil& p, const QVariant& v) { return p.saveRibKey(v.toString()); }},
        {"u_rib_iban", [](Profil& p, const QVariant& v) { return p.saveRibIban(v.toString()); }},
        {"u_abattement", [](Profil& p, const QVariant& v) { return p.saveFallId(v.toInt()); }},
        {"u_sacem", [](Profil& p, const QVariant& v) { return p.saveSacemNumber(v.toString()); }},
    };
    return table;
}

bool estTexte(const QString& colonne)
{
    static const QStringList nombres{"u_emploi_id",
                                     "u_civilite_id",
                                     "u_nbre_enfants",
                                     "u_pas",
                                     "u_autoentrepreneur_flag",
                                     "u_ae_categoriepro",
                                     "u_autoentrepreneur_periode",
                                     "u_ae_prelevementliberatoire",
                                     "u_vehicule_type",
                                     "u_vehicule_puissance",
                                     "u_taux_valide",
                                     "u_srj_valide",
                                     "u_abattement"};
    return !nombres.contains(colonne);
}

} // namespace

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

    void champParChamp_data()
    {
        QTest::addColumn<QString>("colonne");
        QTest::addColumn<QVariant>("valeur");
        for (auto it = sauvegardes().cbegin(); it != sauvegardes().cend(); ++it) {
            const QString& colonne = it.key();
            if (estTexte(colonne)) {
                cas(qPrintable(colonne + ", with a quote"), colonne, QVariant("L'Hôte d'\"Orsay\""));
                cas(qPrintable(colonne + ", emptied"), colonne, QVariant(QString()));
                cas(qPrintable(colonne + ", injection"), colonne, QVariant("x'; DROP TABLE utilisateur; --"));
            } else if (colonne == "u_pas" || colonne == "u_taux_valide" || colonne == "u_srj_valide") {
                cas(qPrintable(colonne), colonne, QVariant(12.345));
            } else {
                cas(qPrintable(colonne), colonne, QVariant(3));
            }
        }
    }

    void champParChamp()
    {
        QFETCH(QString, colonne);
        QFETCH(QVariant, valeur);
        const auto ligne = [this] { return Intermittent(m_champs).db().lignes("SELECT * FROM utilisateur;"); };
        Ligne avant = ligne().value(0);
        {
            Profil profil(m_champs);
            QVERIFY(sauvegardes().value(colonne)(profil, valeur));
        }
        QString type;
        const QVariant lu = lire(m_champs, colonne, &type);
        if (estTexte(colonne)) {
            // Never NULL: an emptied field is the empty text.
            QCOMPARE(type, QStringLiteral("text"));
            QCOMPARE(lu.toString(), valeur.toString());
        } else {
            QCOMPARE(lu.toDouble(), valeur.toDouble());
        }
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
