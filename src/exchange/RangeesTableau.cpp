#include "exchange/RangeesTableau.h"

#include "exchange/Rapport.h"

#include <QAbstractTextDocumentLayout>
#include <QPaintDevice>
#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>

#include <cmath>

namespace corvane {

namespace {

// From the layout's units to the device's: the layout counts at the default resolution
// until it is given a device, then in the device's pixels.
double echelle(const QTextDocument* document)
{
    const QPaintDevice* appareil = document->documentLayout()->paintDevice();
    return appareil ? appareil->logicalDpiY() / Rapport::points(72) : 1.0;
}

} // namespace

void RangeesTableau::installer(QTextDocument& document)
{
    QAbstractTextDocumentLayout* mise = document.documentLayout();
    if (!mise->handlerForObject(TypeObjet))
        mise->registerHandler(TypeObjet, new RangeesTableau(&document));
}

// The row's height on the device, whole pixels: the layout rounds a line's height up
// to one, and the export places the rows from these heights before it lays them out.
double hauteurSur(const QTextFormat& format, double echelle)
{
    return std::ceil(format.doubleProperty(RangeesTableau::Hauteur) * echelle - 1e-6);
}

double RangeesTableau::hauteur(const QTextBlock& bloc)
{
    const auto fragment = bloc.begin();
    if (fragment.atEnd())
        return -1;
    const QTextCharFormat format = fragment.fragment().charFormat();
    return format.objectType() == TypeObjet ? hauteurSur(format, echelle(bloc.document())) : -1;
}

QSizeF RangeesTableau::intrinsicSize(QTextDocument* document, int, const QTextFormat& format)
{
    return {format.doubleProperty(Largeur) * echelle(document), hauteurSur(format, echelle(document))};
}

const QFont& RangeesTableau::police(double taille, bool gras)
{
    for (const Police& p : m_polices)
        if (p.taille == taille && p.gras == gras)
            return p.police;
    m_polices.append({taille, gras, Rapport::police(taille, gras)});
    return m_polices.last().police;
}

void RangeesTableau::drawObject(QPainter* peintre, const QRectF& cadre, QTextDocument* document, int,
                                const QTextFormat& format)
{
    const double e = echelle(document);
    const QFont& voulue = police(format.doubleProperty(Taille), format.boolProperty(Gras));
    // Setting a font makes the painter look it up again for the device: the rows that
    // follow keep it.
    if (peintre->font() != voulue)
        peintre->setFont(voulue);
    if (peintre->pen().color() != Qt::black || peintre->pen().style() != Qt::SolidLine)
        peintre->setPen(Qt::black);
    const QStringList textes = format.property(Textes).toStringList();
    const QVariantList abscisses = format.property(Abscisses).toList();
    const QVariantList lignes = format.property(Lignes).toList();
    const double premiere = format.doubleProperty(PremiereLigne);
    const double interligne = format.doubleProperty(Interligne);
    for (qsizetype i = 0; i < textes.size() && i < abscisses.size() && i < lignes.size(); ++i) {
        const QPointF base(cadre.left() + abscisses[i].toDouble() * e,
                           cadre.top() + (premiere + lignes[i].toInt() * interligne) * e);
        peintre->drawText(base, textes[i]);
    }
}

} // namespace corvane
