#include "cli/Cli.h"

#include <QCoreApplication>
#include <QTextStream>
#include <cstdio>

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    QTextStream sortie(stdout);
    QTextStream erreurs(stderr);
    return corvane::cli::Cli().executer(application.arguments().mid(1), sortie, erreurs);
}
