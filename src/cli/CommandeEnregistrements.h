#pragma once

#include "cli/Arguments.h"
#include "cli/Commande.h"
#include "store/BaseDeDonnees.h"

#include <QJsonArray>
#include <QJsonObject>

#include <functional>
#include <optional>

namespace corvane::cli {

// Base of the commands that read or change a document's records (profil, employeur,
// modele, periode): the sub-command word, the document's checks, and the upgrade pass
// that the program runs at each opening, run here only once a change is sure to be made.
class CommandeEnregistrements : public Commande
{
public:
    int executer(Contexte& contexte, const QStringList& liste) final;

    // A current-generation document, with its password when it is protected. Nothing is
    // written, and the pages are not checked (preparerEcriture does before a write). The
    // commands that only read a document use it too.
    static bool documentAccessible(Contexte& contexte, const QString& chemin, int* code);

protected:
    // The sub-commands, in the order the usage lists them.
    virtual QStringList actions() const = 0;
    virtual int executerAction(Contexte& contexte, const QString& action, const QStringList& arguments) = 0;

    // The upgrade pass, as at every opening by the program; called just before writing.
    static bool preparerEcriture(Contexte& contexte, const QString& chemin, int* code);

    // The record number given after the document; 0, with bad usage reported as
    // "numéro de <quoi> invalide", when it is not one.
    int lireNumero(Contexte& contexte, const Arguments& arguments, const QString& quoi, int* code) const;

    // The span options of a listing: --periode (tous, periode_reference, annee, periode, "tous" when
    // absent) and --du/--au given together in order. Nothing, with bad usage reported, when they are not.
    struct Intervalle
    {
        QString periode;
        std::optional<QDate> du;
        std::optional<QDate> au;
    };
    std::optional<Intervalle> lireIntervalle(Contexte& contexte, Arguments& arguments, int* code) const;

    // The document named first, as an absolute path.
    static QString cheminDocument(const Arguments& arguments);
    // `ACTION FICHIER` and nothing else, for a listing that only reads: the document's path once
    // it is found readable; otherwise *code is what to return (bad usage, document refused).
    QString documentALire(Contexte& contexte, const QStringList& liste, int* code) const;

    // `ACTION FICHIER ID` that removes one record: the number read as `quoi`'s, the record
    // checked, the upgrade pass run, then removed; {"id": n} or the `fait` sentence ("%1" the
    // number). `inconnu` words the refusal of a number no record carries, `echec` a failed write;
    // `refus`, when given, the record's own reason not to be removed ("" when it may be).
    struct Suppression
    {
        QString quoi;
        std::function<bool(const QString& chemin, int id)> existe;
        std::function<bool(const QString& chemin, int id)> supprime;
        std::function<QString(int id)> inconnu;
        QString echec;
        QString fait;
        std::function<QString(const QString& chemin, int id)> refus = {};
    };
    int supprimerEnregistrement(Contexte& contexte, const QStringList& liste, const Suppression& s) const;

    static QJsonObject versJson(const Ligne& ligne);
    static QJsonArray versJson(const Lignes& lignes);
};

} // namespace corvane::cli
