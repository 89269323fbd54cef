#pragma once

// corvane-cli's commands run in-process through the command library, their streams
// captured; the clock is put back afterwards, as a new process would find it.

#include "cli/Cli.h"
#include "commun/OutilsDocument.h"
#include "store/Horloge.h"

namespace corvane::test {

inline ResultatCli executerCli(const QList<QByteArray>& arguments)
{
    QString sortie;
    QString erreurs;
    QTextStream fluxSortie(&sortie);
    QTextStream fluxErreurs(&erreurs);
    const bool fixee = Horloge::estFixee();
    const QDate jour = Horloge::aujourdhui();
    const int code = cli::Cli().executer(arguments, fluxSortie, fluxErreurs);
    fluxSortie.flush();
    fluxErreurs.flush();
    if (fixee)
        Horloge::fixer(jour);
    else
        Horloge::reinitialiser();
    return {code, sortie.toUtf8(), erreurs};
}

inline ResultatCli executerCli(const QStringList& arguments)
{
    QList<QByteArray> octets;
    for (const QString& argument : arguments)
        octets << argument.toUtf8();
    return executerCli(octets);
}

} // namespace corvane::test
