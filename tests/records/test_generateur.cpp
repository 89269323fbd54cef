// The career generator behind corvane-genere and `make demo`: its documents must be
// ones the program could have written, and the same seed must give the same content.

#include "GenerateurCarriere.h"
#include "commun/OutilsDocument.h"
#include "store/Dates.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace corvane;
using namespace corvane::bench;

namespace {

struct Carriere
{
    const char* nom;
    int annees;
    int contrats;
    quint32 graine;
    QDate fin;
};

// Two short careers on both sides of the 2016 rules and of withholding, and a long one
// (with a maternity leave and several periods).
const Carriere kCarrieres[] = {
    {"deux ans, 2024", 2, 300, 42, QDate(2024, 6, 15)},
    {"deux ans, 2017", 2, 300, 7, QDate(2017, 1, 31)},
    {"dix ans, 2025", 10, 1500, 3, QDate(2025, 1, 10)},
};

ParametresCarriere parametres(const Carriere& c, const QString& chemin)
{
    ParametresCarriere p;
    p.chemin = chemin;
    p.annees = c.annees;
    p.contrats = c.contrats;
    p.graine = c.graine;
    p.fin = c.fin;
    return p;
}

test::ResultatCli lancerGenerateur(const QStringList& arguments)
{
    return test::lancerProgramme(QStringLiteral(CORVANE_GENERE_EXE), arguments);
}

} // namespace

class TestGenerateur : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;

    QString chemin(const QString& nom) const { return m_dossier.filePath(nom + QStringLiteral(".cv4")); }

    static void colonneCarriere()
    {
        QTest::addColumn<int>("indice");
        for (int i = 0; i < int(std::size(kCarrieres)); ++i)
            QTest::newRow(kCarrieres[i].nom) << i;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_dossier.isValid());
        for (const Carriere& c : kCarrieres) {
            BilanCarriere bilan;
            QVERIFY2(genererCarriere(parametres(c, chemin(QString::fromUtf8(c.nom))), bilan), qPrintable(bilan.erreur));
            QCOMPARE(bilan.contrats, c.contrats);
        }
    }

    // Each worked-day list agrees with the contract's dates and counts, as the contract form writes them.
    void contrats_data() { colonneCarriere(); }
    void contrats()
    {
        QFETCH(int, indice);
        const Carriere& c = kCarrieres[indice];
        BaseDeDonnees base;
        QVERIFY(base.ouvrirEnLecture(chemin(QString::fromUtf8(c.nom))));
        const QRegularExpression format(QStringLiteral("^\\d\\d/\\d\\d/\\d{4}$"));
        Requete r(base,
                  QStringLiteral("SELECT c_id, c_debut_contrat, c_fin_contrat, c_nbre_jours, c_dates_travaillees, "
                                 "c_type, c_emploi_id, c_nbre_heures, c_salaire_brut, c_salaire_net, "
                                 "c_salaire_net_a_payer, c_effectue, c_liste_dates, c_annee_encaissement "
                                 "FROM contrats;"));
        int lus = 0;
        while (r.suivante()) {
            ++lus;
            const QString id = QStringLiteral("contrat %1").arg(r.entier(0));
            const QDate debut = Dates::depuisSQLite(r.texte(1));
            const QDate fin = Dates::depuisSQLite(r.texte(2));
            QVERIFY2(debut.isValid() && fin.isValid() && debut <= fin, qPrintable(id));
            const QStringList items = r.texte(4).split(QLatin1Char(','));
            QCOMPARE(items.size(), r.entier(3));
            QDate precedent;
            for (const QString& item : items) {
                QVERIFY2(format.match(item).hasMatch(), qPrintable(id + QStringLiteral(" : ") + item));
                const QDate jour = Dates::depuisAffichage(item);
                QVERIFY2(jour.isValid() && (!precedent.isValid() || jour > precedent), qPrintable(id));
                precedent = jour;
            }
            QCOMPARE(Dates::depuisAffichage(items.first()), debut);
            QCOMPARE(Dates::depuisAffichage(items.last()), fin);
            const int type = int(r.entier(5));
            if (type == 2)
                QVERIFY2(debut.year() == fin.year() && debut.month() == fin.month(), qPrintable(id));
            if (type == 4)
                QCOMPARE(r.entier(6), 4);
            QVERIFY2(r.entier(7) > 0, qPrintable(id));
            QVERIFY2(r.reel(10) <= r.reel(9) && r.reel(9) <= r.reel(8), qPrintable(id));
            QCOMPARE(r.entier(11), debut > c.fin ? 0 : 1);
            QCOMPARE(r.texte(12), QString());
            QVERIFY2(qAbs(r.entier(13) - fin.year()) <= 1, qPrintable(id));
        }
        QCOMPARE(lus, c.contrats);
    }

    // Every key points at a row that exists, and both sides of an expense link agree.
    void references_data()
    {
        QTest::addColumn<int>("indice");
        QTest::addColumn<QString>("sql");
        const QPair<const char*, const char*> requetes[] = {
            {"employeur", "SELECT COUNT(*) FROM contrats WHERE c_employeur_id NOT IN (SELECT e_id FROM employeurs) "
                          "OR c_employeur_id = 1;"},
            {"emploi", "SELECT COUNT(*) FROM contrats WHERE c_emploi_id NOT IN (SELECT e_id FROM emplois);"},
            {"type", "SELECT COUNT(*) FROM contrats WHERE c_type NOT IN (SELECT ct_id FROM contratstypes);"},
            {"abattement", "SELECT COUNT(*) FROM contrats WHERE c_abattement NOT IN (SELECT a_id FROM abattements);"},
            {"catégorie de frais",
             "SELECT COUNT(*) FROM frais WHERE f_categorie NOT IN (SELECT ft_id FROM fraistypes);"},
            {"lien sans contrat", "SELECT COUNT(*) FROM contrats_frais WHERE contrat_id NOT IN (SELECT c_id FROM "
                                  "contrats) OR frais_id NOT IN (SELECT f_id FROM frais);"},
            {"lien et frais", "SELECT COUNT(*) FROM contrats_frais JOIN frais ON f_id = frais_id WHERE f_contrat_lie "
                              "!= CAST(contrat_id AS TEXT);"},
            {"frais et lien", "SELECT COUNT(*) FROM frais WHERE f_contrat_lie != '' AND f_id NOT IN (SELECT frais_id "
                              "FROM contrats_frais);"},
            {"liste du contrat", "SELECT COUNT(*) FROM contrats_frais JOIN contrats ON c_id = contrat_id WHERE ',' || "
                                 "c_frais_lies || ',' NOT LIKE '%,' || frais_id || ',%';"},
            {"arrêt", "SELECT COUNT(*) FROM securitesociale WHERE ss_type_id NOT IN (SELECT sst_id FROM "
                      "securitesocialetypes) OR ss_fin < ss_debut;"},
            {"arrêt pendant un contrat", "SELECT COUNT(*) FROM securitesociale JOIN contrats ON c_debut_contrat <= "
                                         "ss_fin AND c_fin_contrat >= ss_debut;"},
            {"droits voisins", "SELECT COUNT(*) FROM droitsvoisins WHERE dv_categorie NOT IN (SELECT dvt_id FROM "
                               "droitsvoisinstypes) OR dv_organisme_id NOT IN (SELECT dvo_id FROM "
                               "droitsvoisinsorganismes);"},
            {"qualité", "SELECT COUNT(*) FROM employeurs WHERE e_qualite_id NOT IN (SELECT q_id FROM qualites);"},
            {"modèle d'employeur", "SELECT COUNT(*) FROM employeurs WHERE e_contratmodele_id != 0 AND "
                                   "e_contratmodele_id NOT IN (SELECT cm_id FROM contratsmodeles);"},
            {"employeur du modèle", "SELECT COUNT(*) FROM contratsmodeles WHERE cm_employeur NOT IN (SELECT e_id "
                                    "FROM employeurs) OR cm_fraistype_id NOT IN (SELECT ft_id FROM fraistypes);"},
            {"période en cours", "SELECT COUNT(*) FROM utilisateur WHERE u_periode_en_cours != (SELECT p_id FROM "
                                 "periodes ORDER BY p_date_debut DESC LIMIT 1) OR u_date_debut_dossier != (SELECT "
                                 "p_date_debut FROM periodes WHERE p_id = u_periode_en_cours);"},
            {"périodes qui se chevauchent", "SELECT COUNT(*) FROM periodes A JOIN periodes B ON A.p_id < B.p_id AND "
                                            "A.p_date_fin >= B.p_date_debut AND A.p_date_debut <= B.p_date_fin;"},
        };
        for (int i = 0; i < int(std::size(kCarrieres)); ++i)
            for (const auto& [nom, sql] : requetes)
                QTest::newRow(qPrintable(QStringLiteral("%1 : %2").arg(kCarrieres[i].nom, QString::fromUtf8(nom))))
                    << i << QString::fromUtf8(sql);
    }
    void references()
    {
        QFETCH(int, indice);
        QFETCH(QString, sql);
        BaseDeDonnees base;
        QVERIFY(base.ouvrirEnLecture(chemin(QString::fromUtf8(kCarrieres[indice].nom))));
        QCOMPARE(base.lignes(sql).size(), 1);
        QCOMPARE(base.entier(sql), 0);
    }

    // Every stored date is in the document's own text form, and the periods carry their usual labels.
    void dates_data() { colonneCarriere(); }
    void dates()
    {
        QFETCH(int, indice);
        BaseDeDonnees base;
        QVERIFY(base.ouvrirEnLecture(chemin(QString::fromUtf8(kCarrieres[indice].nom))));
        const QStringList colonnes{"contrats.c_debut_contrat",
                                   "contrats.c_fin_contrat",
                                   "frais.f_date",
                                   "periodes.p_date_debut",
                                   "periodes.p_date_fin",
                                   "securitesociale.ss_debut",
                                   "securitesociale.ss_fin",
                                   "assedichistorique.ah_date",
                                   "congeshistorique.ch_date",
                                   "fiscalitehistorique.fh_date",
                                   "droitsvoisins.dv_date",
                                   "utilisateur.u_naissance",
                                   "utilisateur.u_date_debut_dossier",
                                   "datesPeriodesPreferees.dpp_date"};
        for (const QString& colonne : colonnes) {
            const QStringList partie = colonne.split(QLatin1Char('.'));
            for (const QString& texte :
                 base.colonne(QStringLiteral("SELECT %1 FROM %2;").arg(partie.at(1), partie.at(0)))) {
                const QDate jour = Dates::depuisSQLite(texte);
                QVERIFY2(jour.isValid() && Dates::versSQLite(jour) == texte, qPrintable(colonne + " " + texte));
            }
        }
        Requete r(base, QStringLiteral("SELECT p_date_debut, p_date_fin, p_libelle FROM periodes;"));
        while (r.suivante())
            QCOMPARE(r.texte(2),
                     Fichiers::libellePeriode(Dates::depuisSQLite(r.texte(0)), Dates::depuisSQLite(r.texte(1))));
    }

    void memeGraineMemeContenu()
    {
        const Carriere& c = kCarrieres[0];
        BilanCarriere bilan;
        QVERIFY(genererCarriere(parametres(c, chemin(QStringLiteral("encore"))), bilan));
        const QString reference = test::dump(chemin(QString::fromUtf8(c.nom)));
        QCOMPARE(test::dump(chemin(QStringLiteral("encore"))), reference);

        ParametresCarriere autre = parametres(c, chemin(QStringLiteral("autre graine")));
        autre.graine += 1;
        QVERIFY(genererCarriere(autre, bilan));
        QVERIFY(test::dump(autre.chemin) != reference);
    }

    // The document is already up to date: opening it as the program does changes nothing.
    void ouvertureSansChangement()
    {
        const QString document = chemin(QString::fromUtf8(kCarrieres[2].nom));
        const QString avant = test::dump(document);
        QCOMPARE(test::ouvrirDocument(document), document);
        QCOMPARE(test::dump(document), avant);
    }

    // corvane-genere run as a program: an existing file is never replaced, bad usage is exit 2.
    void programme_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("message");
        QTest::newRow("existing text file") << QStringList{"--contrats", "20", "existant.txt"} << 1 << "existe déjà";
        QTest::newRow("existing empty file") << QStringList{"--contrats", "20", "vide.cv4"} << 1 << "existe déjà";
        QTest::newRow("no file") << QStringList{"--annees", "3"} << 2 << "";
        QTest::newRow("contracts not a number") << QStringList{"--contrats", "beaucoup", "x.cv4"} << 2 << "";
        QTest::newRow("unknown option") << QStringList{"--vite", "x.cv4"} << 2 << "";
        QTest::newRow("created") << QStringList{"--annees", "1",     "--contrats", "40",      "--graine",
                                                "5",        "--fin", "2020-03-01", "cree.cv4"}
                                 << 0 << "";
        QTest::newRow("created with the manager's records")
            << QStringList{"--annees", "1", "--contrats", "40", "--fin", "2020-03-01", "--manager", "manager.cv4"} << 0
            << "";
    }
    void programme()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, code);
        QFETCH(QString, message);
        QDir::setCurrent(m_dossier.path());
        test::ecrire(QStringLiteral("existant.txt"), "des notes\n");
        test::ecrire(QStringLiteral("vide.cv4"), {});
        const QByteArray avant = test::empreinte(QStringLiteral("existant.txt"));
        const auto r = lancerGenerateur(arguments);
        QCOMPARE(r.code, code);
        QVERIFY2(code == 0 ? r.erreurs.isEmpty()
                           : r.erreurs.startsWith("corvane-genere: ") || r.erreurs.startsWith("usage"),
                 qPrintable(r.erreurs));
        QVERIFY2(r.erreurs.contains(message), qPrintable(r.erreurs));
        QCOMPARE(test::empreinte(QStringLiteral("existant.txt")), avant);
        QCOMPARE(QFileInfo(QStringLiteral("vide.cv4")).size(), 0);
        QVERIFY(!QFile::exists(QStringLiteral("x.cv4")));
        if (code == 0) {
            QVERIFY(r.sortie.contains("40 contrats"));
            BaseDeDonnees base;
            QVERIFY(base.ouvrirEnLecture(arguments.last()));
            QCOMPARE(base.entier("SELECT COUNT(*) FROM contrats;"), 40);
            QVERIFY(base.texte("SELECT MAX(c_debut_contrat) FROM contrats WHERE c_effectue = 1;") <=
                    QStringLiteral("2020-03-01 00:00:00.000"));
            // The back office only when asked for, each employee's structures matching the structures' staff.
            const bool manager = arguments.contains(QStringLiteral("--manager"));
            QCOMPARE(base.entier("SELECT COUNT(*) FROM propositionslibelles WHERE pl_statut IN (0, 2, 1, -1, 3);"),
                     manager ? 5 : 0);
            QCOMPARE(base.entier("SELECT COUNT(*) FROM evenementspaiements WHERE ep_payes <> '';"), manager ? 3 : 0);
            QCOMPARE(base.texte("SELECT group_concat(s_employes, ';') FROM structures;"),
                     manager ? QStringLiteral("1,2,3,4;4,5,6") : QString());
            QCOMPARE(base.texte("SELECT group_concat(e_structures, ';') FROM employes;"),
                     manager ? QStringLiteral("1;1;1;1,2;2;2") : QString());
        }
    }
};

QTEST_GUILESS_MAIN(TestGenerateur)
#include "test_generateur.moc"
