#include "app/Captures.h"
#include "app/ControleurApplication.h"
#include "app/DialoguesQt.h"
#include "app/FenetrePrincipale.h"
#include "app/InstanceUnique.h"
#include "app/Langue.h"
#include "app/VueCarte.h"
#include "store/Reglages.h"

#include <QApplication>
#include <QFileInfo>
#include <QIcon>

#include <cstdio>

int main(int argc, char* argv[])
{
    corvane::app::preparerMoteurWeb();
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Corvane"));
    QApplication::setOrganizationName(QStringLiteral("Corvane"));
    QApplication::setDesktopFileName(QStringLiteral("org.corvane.corvane"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icones/corvane.png")));
    if (!corvane::app::parlerFrancais(application))
        std::fputs("corvane: les traductions de Qt sont introuvables (paquet qt6-translations-l10n) ; "
                   "les boîtes de dialogue standard resteront en anglais.\n",
                   stderr);

    // A document given while Corvane already runs opens there: this launch hands it over and ends.
    const QString argument = QApplication::arguments().value(1);
    const QString demande = argument.isEmpty() ? QString() : QFileInfo(argument).absoluteFilePath();
    corvane::app::InstanceUnique instance;
    // The start-up measure and the screenshots run on their own.
    if (!qEnvironmentVariableIsSet("CORVANE_MESURE_DEMARRAGE") && !qEnvironmentVariableIsSet("CORVANE_CAPTURE")) {
        if (instance.transmettre(demande))
            return 0;
        instance.ecouter();
    }

    corvane::Reglages reglages;
    corvane::app::DialoguesQt dialogues;
    corvane::app::Environnement environnement{reglages, dialogues};
    corvane::app::FenetrePrincipale fenetre(environnement);
    dialogues.setParent(&fenetre);
    corvane::app::ControleurApplication controleur(reglages, dialogues, fenetre);
    QObject::connect(&instance, &corvane::app::InstanceUnique::documentRecu, &controleur,
                     &corvane::app::ControleurApplication::documentTransmis);
    if (!controleur.demarrer(demande))
        return 0;
    fenetre.show();
    instance.setPret();
    // For the start-up benchmark (bench/mesures.py): say when the first picture is on screen, then quit.
    if (qEnvironmentVariableIsSet("CORVANE_MESURE_DEMARRAGE"))
        corvane::app::quitterApresPremierePeinture(fenetre);
    // For the documentation's screenshots (make screenshots): save pictures of the window and quit.
    if (const QString capture = qEnvironmentVariable("CORVANE_CAPTURE"); !capture.isEmpty())
        corvane::app::programmerCaptures(fenetre, capture);
    return QApplication::exec();
}
