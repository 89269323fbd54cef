#pragma once

#include "store/BaseDeDonnees.h"

#include <QByteArrayView>

namespace corvane {

// One value of a listing as read in place, without a QVariant or a UTF-16 copy.
struct Cellule
{
    enum class Genre
    {
        Entier,
        Reel,
        ReelSimple, // a single-precision amount, widened in `reel`
        Texte,
    };
    Genre genre = Genre::Entier;
    qint64 entier = 0;
    double reel = 0.0;
    // Valid UTF-8, the very text that valeur() gives; it lasts until the next call.
    QByteArrayView texte;
};

// A listing read one row at a time, for a writer that streams it instead of holding a
// Table: the same header, and for each column either the Table's value or a cell.
class LectureListe
{
public:
    virtual ~LectureListe() = default;

    virtual const QStringList& cles() const = 0;
    // Moves to the next row: false once they are all read.
    virtual bool suivante() = 0;
    // The current row's value in the header's order, as the Table holds it.
    virtual QVariant valeur(int colonne) const = 0;
    virtual Cellule cellule(int colonne) const = 0;
};

// Reads every remaining row into a Table.
Table lireLaListe(LectureListe& lecture);

} // namespace corvane
