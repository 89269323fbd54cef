#pragma once

#include <QFont>
#include <QList>
#include <QObject>
#include <QTextFormat>
#include <QTextObjectInterface>

class QTextBlock;
class QTextDocument;

namespace corvane {

// Draws the rows of a report's tables. A row is one object character whose format
// carries the row's texts already broken into lines and placed in their columns (see
// Rapport::tableau): the text layout only stacks rows of a known height, and painting
// a row draws its few texts in one font. A paragraph of tab stops per row cost a font
// lookup for every cell and every tab, each time it was laid out and painted.
class RangeesTableau : public QObject, public QTextObjectInterface
{
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    static constexpr int TypeObjet = QTextFormat::UserObject + 1;

    // The row's properties. Lengths are in the document's layout units.
    enum Propriete
    {
        Textes = QTextFormat::UserProperty + 0x110, // QStringList: every line of every cell
        Abscisses,                                  // QVariantList of double: each text's left edge
        Lignes,                                     // QVariantList of int: each text's line, from 0
        Largeur,                                    // double: the table's width
        Hauteur,                                    // double: the row's height, margins included
        PremiereLigne,                              // double: the first baseline, from the row's top
        Interligne,                                 // double: from one baseline to the next
        Taille,                                     // double: the font's size in points
        Gras,                                       // bool
        Numero,                                     // int: one per row, so that formats stay apart
    };

    // Lets the document's layout size and draw the rows (once per layout).
    static void installer(QTextDocument& document);

    // The row's height as the layout will make it, or -1 when the block holds no row.
    static double hauteur(const QTextBlock& bloc);

    QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
    void drawObject(QPainter* peintre, const QRectF& cadre, QTextDocument* document, int position,
                    const QTextFormat& format) override;

private:
    explicit RangeesTableau(QObject* parent) : QObject(parent) {}

    // The report font at the row's size, made once for each size.
    const QFont& police(double taille, bool gras);

    struct Police
    {
        double taille;
        bool gras;
        QFont police;
    };
    QList<Police> m_polices;
};

} // namespace corvane
