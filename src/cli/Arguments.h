#pragma once

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

    // Typed readers: nullopt when the option is absent; erreur() set when it is malformed.
    std::optional<QDate> date(const QString& option);
    std::optional<double> montant(const QString& option);
    std::optional<int> entier(const QString& option);

    // A required option: its absence sets erreur().
    bool exiger(const QStringList& options);

    QString erreur() const { return m_erreur; }
    bool enErreur() const { return !m_erreur.isEmpty(); }

private:
    QStringList m_positionnels;
    QMap<QString, QString> m_valeurs;
    QString m_erreur;
};

// "1 234,56", "1234.56", "-3,5": blanks (also non-breaking) as thousands separators,
// a decimal comma or point.
std::optional<double> lireMontant(const QString& texte);

} // namespace corvane::cli
