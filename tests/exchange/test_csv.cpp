#include <QCoreApplication>
#include <QTest>

#include <memory>

QObject* creerTestLectureCsv();
QObject* creerTestEcritureCsv();

// Reading and writing are two test classes in one executable.
int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    int resultat = 0;
    for (auto creer : {creerTestLectureCsv, creerTestEcritureCsv}) {
        std::unique_ptr<QObject> test(creer());
        resultat |= QTest::qExec(test.get(), argc, argv);
    }
    return resultat;
}
