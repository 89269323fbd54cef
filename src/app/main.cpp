#include "app/FenetrePrincipale.h"
#include "store/Intermittent.h"

#include <QApplication>
#include <QFileInfo>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Corvane"));
    QApplication::setOrganizationName(QStringLiteral("Corvane"));
    corvane::app::FenetrePrincipale fenetre;
    fenetre.show();
    // The document named on the command line, or else the default one when it exists.
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() > 1)
        fenetre.ouvrirDocument(arguments.at(1));
    else if (QFileInfo::exists(corvane::Intermittent::fichierTravailParDefaut()))
        fenetre.ouvrirDocument(corvane::Intermittent::fichierTravailParDefaut());
    return QApplication::exec();
}
