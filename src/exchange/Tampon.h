#pragma once

#include <QImage>
#include <QString>

class QTextCursor;

namespace corvane {

// The stamp printed at the foot of a report: a round rubber-stamp mark in blue ink
// bearing the user's name around its edge and the initials in the middle, slightly
// tilted. `diametre` in pixels; 600 gives about 380 dpi at the printed size.
QImage dessineTampon(const QString& titulaire, int diametre = 600);

// The printed size of the stamp, in points (4 cm).
constexpr double DiametreTamponPoints = 113.4;

// Inserts "\n\n", a tab, then the stamp at the cursor. The picture is kept in the
// cursor's document as the resource "tampon.png".
void ajouteTamponDans(QTextCursor& curseur, const QString& titulaire);

} // namespace corvane
