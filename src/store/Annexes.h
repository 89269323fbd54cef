#pragma once

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>
#include <array>
#include <optional>

namespace corvane {

// The per-annex constants of the unemployment rules: annex 10 (performers) and
// annex 8 (workers and technicians). Plain holders; the document creation already
// needs their reference-period lengths, so they live with the store.
struct Palier
{
    quint32 jours;  // length of the (extended) reference period, in days
    quint32 heures; // hours to reach in it
};
using TableauPaliers = std::array<Palier, 5>;

struct Annexe
{
    quint32 periodeDeReference;
    quint32 periodeDeReference_2016;
    quint32 heuresParJour;
    quint32 heuresDeReference;
    quint32 palier1, palier2, palier3, palier4;
    quint32 palier1_2016, palier2_2016, palier3_2016, palier4_2016;
    TableauPaliers tableauPaliers;
    TableauPaliers tableauPaliers_2016;
};

// clang-format off
struct Artiste : Annexe
{
    Artiste()
        : Annexe{319, 366, 12, 507, 531, 579, 627, 675, 549, 591, 633, 675,
                 {{{319, 507}, {335, 531}, {365, 579}, {395, 627}, {425, 675}}},
                 {{{365, 507}, {395, 549}, {425, 591}, {455, 633}, {485, 675}}}}
    {
    }
};

struct OuvrierTechnicien : Annexe
{
    OuvrierTechnicien()
        : Annexe{304, 366, 8, 507, 557, 607, 657, 707, 549, 591, 633, 675,
                 {{{304, 507}, {335, 557}, {365, 607}, {395, 657}, {425, 707}}},
                 {{{365, 507}, {395, 549}, {425, 591}, {455, 633}, {485, 675}}}}
    {
    }
};
// clang-format on

// The reference-period length in days on a given day: the 2016 rules lengthened it from 1 August 2016.
// The first period of a new document and the new-period assistant both take it from here.
inline int joursPeriodeDeReference(const Annexe& annexe, const QDate& jour)
{
    return int(jour >= QDate(2016, 8, 1) ? annexe.periodeDeReference_2016 : annexe.periodeDeReference);
}

// "Artiste", "Ouvrier", "Technicien": index 0 selects annex 10, 1 and 2 annex 8.
inline const QStringList& professionsAnnexes()
{
    static const QStringList liste{QStringLiteral("Artiste"), QStringLiteral("Ouvrier"), QStringLiteral("Technicien")};
    return liste;
}

// The holder of a profession, compared by exact, case-sensitive equality; none for any other text.
inline std::optional<Annexe> annexePourProfession(const QString& profession)
{
    const int index = professionsAnnexes().indexOf(profession);
    if (index == 0)
        return Artiste();
    if (index == 1 || index == 2)
        return OuvrierTechnicien();
    return std::nullopt;
}

} // namespace corvane
