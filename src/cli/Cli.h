#pragma once

#include "cli/Commande.h"

namespace corvane::cli {

// corvane-cli [--aujourdhui AAAA-MM-JJ] [--json] [--mot-de-passe M] COMMANDE [ARGUMENTS]
class Cli
{
public:
    Cli();
    int executer(const QStringList& arguments, QTextStream& sortie, QTextStream& erreurs);
    // Whether the command these arguments name lays text out (see Commande::metEnPage).
    bool metEnPage(const QStringList& arguments) const;
    // The arguments as the system gives them: each must be valid UTF-8, kept whole (a
    // leading byte-order mark too); otherwise bad usage, nothing read.
    int executer(const QList<QByteArray>& octets, QTextStream& sortie, QTextStream& erreurs);

private:
    void afficherAide(QTextStream& flux) const;
    Commandes m_commandes;
};

} // namespace corvane::cli
