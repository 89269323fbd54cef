// The main window's title follows the open document; a file that cannot be opened
// is reported and leaves the open document as it was.

#include "app/FenetrePrincipale.h"
#include "commun/OutilsDocument.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

class TestFenetre : public QObject
{
    Q_OBJECT

private slots:
    void titre()
    {
        QTemporaryDir dossier;
        const QString chemin = dossier.filePath("Mon dossier.cv4");
        Fichiers creation(parametresParDefaut(chemin));
        QVERIFY(creation.nouveauV4());

        app::FenetrePrincipale fenetre;
        auto* dialogues = new DialoguesScriptes;
        fenetre.setDialogues(std::unique_ptr<Dialogues>(dialogues));
        fenetre.show();
        QCOMPARE(fenetre.windowTitle(), QStringLiteral("Aucun fichier ouvert..."));

        QVERIFY(fenetre.ouvrirDocument(chemin));
        QCOMPARE(fenetre.windowTitle(), QStringLiteral("Mon dossier.cv4"));
        QCOMPARE(fenetre.documentOuvert(), chemin);

        const QString texte = dossier.filePath("notes.txt");
        QFile f(texte);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write("pas un document");
        f.close();
        QVERIFY(!fenetre.ouvrirDocument(texte));
        QCOMPARE(fenetre.windowTitle(), QStringLiteral("Mon dossier.cv4"));
        QCOMPARE(dialogues->echanges().size(), 1);
        QCOMPARE(dialogues->echanges().first().titre, QStringLiteral("Ouverture de fichier"));
        QVERIFY(dialogues->echanges().first().message.contains(QStringLiteral("n'est pas un fichier Corvane")));
    }
};

QTEST_MAIN(TestFenetre)
#include "test_fenetre.moc"
