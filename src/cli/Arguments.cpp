#include "cli/Arguments.h"

#include "store/Dates.h"

namespace corvane::cli {

bool Arguments::analyser(const QStringList& arguments, const QList<OptionAttendue>& options)
{
    m_positionnels.clear();
    m_valeurs.clear();
    m_erreur.clear();
    for (int i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments.at(i);
        if (!argument.startsWith(QStringLiteral("--")) || argument == QStringLiteral("--")) {
            m_positionnels << argument;
            continue;
        }
        QString nom = argument.mid(2);
        QString valeur;
        bool valeurJointe = false;
        if (const int egal = nom.indexOf(QLatin1Char('=')); egal >= 0) {
            valeur = nom.mid(egal + 1);
            nom = nom.left(egal);
            valeurJointe = true;
        }
        auto attendue =
            std::find_if(options.cbegin(), options.cend(), [&nom](const OptionAttendue& o) { return o.nom == nom; });
        if (attendue == options.cend()) {
            m_erreur = QStringLiteral("option inconnue : --%1").arg(nom);
            return false;
        }
        if (attendue->avecValeur && !valeurJointe) {
            if (i + 1 >= arguments.size()) {
                m_erreur = QStringLiteral("l'option --%1 attend une valeur").arg(nom);
                return false;
            }
            valeur = arguments.at(++i);
        } else if (!attendue->avecValeur && valeurJointe) {
            m_erreur = QStringLiteral("l'option --%1 ne prend pas de valeur").arg(nom);
            return false;
        }
        m_valeurs.insert(nom, valeur);
    }
    return true;
}

std::optional<QDate> Arguments::date(const QString& option, const QDate& premier, const QDate& dernier)
{
    if (!contient(option))
        return std::nullopt;
    const QDate jour = Dates::depuisIso(valeur(option));
    if (!jour.isValid()) {
        m_erreur = QStringLiteral("date invalide pour --%1 : « %2 » (format attendu : AAAA-MM-JJ)")
                       .arg(option, valeur(option));
        return std::nullopt;
    }
    if (const QString refus = SaisieFrancaise::refusDate(jour, premier, dernier); !refus.isEmpty()) {
        m_erreur = QStringLiteral("date refusée pour --%1 : « %2 » : %3").arg(option, valeur(option), refus);
        return std::nullopt;
    }
    return jour;
}

std::optional<double> Arguments::montant(const QString& option, const Bornes& bornes)
{
    if (!contient(option))
        return std::nullopt;
    const Lecture<double> lu = SaisieFrancaise::nombre(valeur(option), bornes);
    if (!lu.ok())
        m_erreur = QStringLiteral("%1 invalide pour --%2 : « %3 » : %4")
                       .arg(bornes.euros ? QStringLiteral("montant") : QStringLiteral("nombre"), option, valeur(option),
                            lu.erreur);
    return lu.valeur;
}

std::optional<int> Arguments::entier(const QString& option, int minimum, int maximum)
{
    if (!contient(option))
        return std::nullopt;
    const Lecture<int> lu = SaisieFrancaise::entier(valeur(option), minimum, maximum);
    if (!lu.ok())
        m_erreur =
            QStringLiteral("nombre entier invalide pour --%1 : « %2 » : %3").arg(option, valeur(option), lu.erreur);
    return lu.valeur;
}

bool Arguments::exiger(const QStringList& options)
{
    for (const QString& option : options) {
        if (!contient(option)) {
            m_erreur = QStringLiteral("l'option --%1 est obligatoire").arg(option);
            return false;
        }
    }
    return true;
}

} // namespace corvane::cli
