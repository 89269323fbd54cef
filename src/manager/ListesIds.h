#pragma once

#include <QList>
#include <QString>

namespace corvane {

// The lists of record ids kept in one text column (`s_employes`, `e_structures`,
// `ep_salaries`, `ep_payes`): decimal ids joined by ",", without blanks, "" when empty.
namespace ListesIds {

// The ids of the list, in its order; a piece that is not a number is left out.
QList<int> ids(const QString& liste);
// Whether the id is in the list, compared as a number ("03" holds 3).
bool contient(const QString& liste, int id);
// The id appended ("7" to "" gives "7", to "3,12" gives "3,12,7"); the list unchanged when
// the id is in it already.
QString ajoute(const QString& liste, int id);
// The list split on ",", the pieces equal to the id's text dropped, the rest joined again.
QString retire(const QString& liste, int id);
// The ids of `liste` that `retires` does not hold, in the order of `liste`.
QList<int> sauf(const QString& liste, const QString& retires);
// The LIKE pattern that finds the lists holding the id's digits anywhere ("%1%" also finds
// "12"): the structures, employees and events match their lists as text, on purpose.
QString motifTexte(int id);

} // namespace ListesIds
} // namespace corvane
