#pragma once

#include "cli/Arguments.h"

#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QTextStream>
#include <memory>
#include <optional>

namespace corvane::cli {

// What every command receives: its output streams and the global options.
struct Contexte
{
    QTextStream& sortie;
    QTextStream& erreurs;
    bool json = false;
    QString motDePasse;
    bool motDePasseDonne = false;
};

enum CodeSortie
{
    Succes = 0,
    ErreurUtilisateur = 1,
    MauvaisUsage = 2,
};

class Commande
{
public:
    virtual ~Commande() = default;
    virtual QString nom() const = 0;
    // One line of usage, shown by the help.
    virtual QString usage() const = 0;
    virtual int executer(Contexte& contexte, const QStringList& arguments) = 0;
    // Whether the command lays text out (a report), which takes a QGuiApplication; the
    // others run on a QCoreApplication, without any display platform.
    virtual bool metEnPage() const { return false; }

protected:
    // An error the user can fix: the message on stderr, exit 1.
    static int echec(Contexte& contexte, const QString& message);
    // Bad usage: the message and the command's usage on stderr, exit 2.
    int mauvaisUsage(Contexte& contexte, const QString& message) const;
    // Parses the arguments; on failure reports bad usage and returns false.
    bool analyser(Contexte& contexte, Arguments& arguments, const QStringList& liste,
                  const QList<OptionAttendue>& options, int positionnels, int* code) const;
    // Writes exactly one JSON document on stdout.
    static void ecrireJson(Contexte& contexte, const QJsonObject& objet);
    // A document protected by a password is refused unless the right one is given.
    static bool verifierMotDePasse(Contexte& contexte, const QString& chemin, int* code);
    struct Verrouillage
    {
        bool verrouille = false; // f_locked = 1
        bool accessible = true;  // not protected, or the right password given
    };
    // Empty, with the message reported, when the lock flag cannot be read.
    static std::optional<Verrouillage> lireVerrouillage(Contexte& contexte, const QString& chemin, int* code);

    // The span and contract choice of the rights commands: --du and --au, both required and in
    // order, and --contrats tous|effectues|planifies ("tous" when absent) as its SQL condition.
    struct PlageDeDroits
    {
        QDate du;
        QDate au;
        QString conditionDesContrats;
    };
    std::optional<PlageDeDroits> lirePlageDeDroits(Contexte& contexte, Arguments& arguments, int* code) const;
};

using Commandes = std::vector<std::unique_ptr<Commande>>;

} // namespace corvane::cli
