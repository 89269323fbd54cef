#include "app/FenetrePrincipale.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Corvane"));
    QApplication::setOrganizationName(QStringLiteral("Corvane"));
    corvane::app::FenetrePrincipale fenetre;
    fenetre.show();
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() > 1)
        fenetre.ouvrirDocument(arguments.at(1));
    return QApplication::exec();
}
