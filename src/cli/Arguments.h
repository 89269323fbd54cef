#pragma once

#include "store/SaisieFrancaise.h"

#include <QDate>
#include <QMap>
#include <QString>
#include <QStringList>
#include <optional>

namespace corvane::cli {

// The options a command accepts: "--nom" takes a value, a flag does not.
struct OptionAttendue
{
    QString nom; // without the leading "--"
    bool avecValeur = true;
};

// A command's arguments, parsed with French error messages.
class Arguments
{
public:
    // False, with erreur() set, on an unknown option or a missing value.
    bool analyser(const QStringList& arguments, const QList<OptionAttendue>& options);

    const QStringList& positionnels() const { return m_positionnels; }
    bool contient(const QString& option) const { return m_valeurs.contains(option); }
    QString valeur(const QString& option, const QString& defaut = QString()) const
    {
        return m_valeurs.value(option, defaut);
    }

    // Typed readers, through the French input rules of SaisieFrancaise: nullopt when the
    // option is absent; erreur() set when it is malformed or out of its bounds (bad usage).
    // A date is "AAAA-MM-JJ" between 1950-01-01 and 2100-12-31.
    std::optional<QDate> date(const QString& option, const QDate& premier = Limites::premierJour(),
                              const QDate& dernier = Limites::dernierJour());
    std::optional<double> montant(const QString& option, const Bornes& bornes = Limites::kMontant);
    std::optional<int> entier(const QString& option, int minimum, int maximum);
    // A year between 1950 and 2100.
    std::optional<int> annee(const QString& option)
    {
        return entier(option, Limites::kAnneeMinimum, Limites::kAnneeMaximum);
    }

    // A required option: its absence sets erreur().
    bool exiger(const QStringList& options);

    QString erreur() const { return m_erreur; }
    bool enErreur() const { return !m_erreur.isEmpty(); }

private:
    QStringList m_positionnels;
    QMap<QString, QString> m_valeurs;
    QString m_erreur;
};

} // namespace corvane::cli
