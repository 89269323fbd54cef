#pragma once

#include <QDate>
#include <QDateTime>
#include <QTimeZone>
#include <initializer_list>
#include <vector>

namespace corvane {

// One row of a dated legal parameter: the value in force from a switch day on.
struct LigneDatee
{
    QDate depuis; // the switch day itself already takes the new value
    double valeur;
    // The row's test has no upper bound: it answers for every later day, so the rows
    // after it are never reached.
    bool sansFin = false;
};

// A legal parameter that changes with time: the value before the first switch day,
// then one row per switch day, in ascending order.
class TableDatee
{
public:
    TableDatee(double valeurInitiale, std::vector<LigneDatee> lignes)
        : m_valeurInitiale(valeurInitiale), m_lignes(std::move(lignes))
    {
    }

    // The value in force on a day. An invalid day comes before every switch day.
    double valeurAu(const QDate& jour) const
    {
        double valeur = m_valeurInitiale;
        for (const LigneDatee& ligne : m_lignes) {
            if (jour < ligne.depuis)
                break;
            valeur = ligne.valeur;
            if (ligne.sansFin)
                break;
        }
        return valeur;
    }

    double valeurInitiale() const { return m_valeurInitiale; }
    const std::vector<LigneDatee>& lignes() const { return m_lignes; }

private:
    double m_valeurInitiale;
    std::vector<LigneDatee> m_lignes;
};

// The day an instant falls on at the fixed offset +01:00, the offset of the legal switch
// dates. A stored day read at 01:00 local time stays on its own day in France, summer
// time included (any zone up to +02:00); the day itself is the safer argument.
inline QDate jourLegal(const QDateTime& instant)
{
    if (!instant.isValid())
        return {};
    return instant.toTimeZone(QTimeZone(3600)).date();
}

} // namespace corvane
