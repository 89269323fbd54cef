#include <QCoreApplication>
#include <QTest>

#include <memory>

QObject* creerTestLectureCsv();
QObject* creerTestEcritureCsv();
QObject* creerTestEncodagesCsv();

// Reading, writing and encodings are three test classes in one executable.
int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    int resultat = 0;
    for (auto creer : {creerTestLectureCsv, creerTestEcritureCsv, creerTestEncodagesCsv}) {
        std::unique_ptr<QObject> test(creer());
        resultat |= QTest::qExec(test.get(), argc, argv);
    }
    return resultat;
}
