#include "exchange/Tampon.h"

#include "exchange/Rapport.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QRandomGenerator>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextImageFormat>
#include <QUrl>
#include <QtMath>

namespace corvane {

namespace {

const QColor encreTampon(22, 44, 128, 210);

QString initiales(const QString& titulaire)
{
    QString resultat;
    for (const QString& mot : titulaire.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        if (resultat.size() == 3)
            break;
        resultat += mot.at(0).toUpper();
    }
    return resultat;
}

// Writes `texte` along the top of a circle of radius `rayon` (its baseline on the
// circle), centred on twelve o'clock, shrinking the font until it fits.
void texteEnArc(QPainter& peintre, const QString& texte, double rayon, QFont police, double arcMaximum)
{
    if (texte.isEmpty())
        return;
    const double espacement = 0.12;
    double longueur = 0;
    for (int essai = 0; essai < 12; ++essai) {
        const QFontMetricsF mesures(police);
        longueur = 0;
        for (const QChar c : texte)
            longueur += mesures.horizontalAdvance(c) + espacement * police.pixelSize();
        if (longueur / rayon <= arcMaximum)
            break;
        police.setPixelSize(qMax(4, int(police.pixelSize() * 0.9)));
    }
    const QFontMetricsF mesures(police);
    peintre.setFont(police);
    double parcouru = 0;
    for (const QChar c : texte) {
        const double avance = mesures.horizontalAdvance(c) + espacement * police.pixelSize();
        const double angle = (parcouru + avance / 2 - longueur / 2) / rayon;
        peintre.save();
        peintre.rotate(qRadiansToDegrees(angle));
        peintre.translate(0, -rayon);
        peintre.drawText(QPointF(-mesures.horizontalAdvance(c) / 2, 0), QString(c));
        peintre.restore();
        parcouru += avance;
    }
}

// Worn ink: small specks where the stamp did not take, the same on every print.
void usure(QImage& image)
{
    QRandomGenerator hasard(0x5a17);
    QPainter peintre(&image);
    peintre.setRenderHint(QPainter::Antialiasing);
    peintre.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    peintre.setPen(Qt::NoPen);
    const int taille = image.width();
    const int nombre = taille * taille / 250;
    for (int i = 0; i < nombre; ++i) {
        const double x = hasard.bounded(double(taille));
        const double y = hasard.bounded(double(taille));
        const double r = 0.4 + hasard.bounded(taille / 300.0);
        peintre.setBrush(QColor(0, 0, 0, 60 + hasard.bounded(160)));
        peintre.drawEllipse(QPointF(x, y), r, r);
    }
}

} // namespace

QImage dessineTampon(const QString& titulaire, int diametre)
{
    QImage image(diametre, diametre, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const double r = diametre / 2.0 * 0.94;
    {
        QPainter peintre(&image);
        peintre.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
        peintre.translate(diametre / 2.0, diametre / 2.0);
        peintre.rotate(-12);

        QPen trait(encreTampon);
        trait.setWidthF(diametre * 0.024);
        peintre.setPen(trait);
        peintre.setBrush(Qt::NoBrush);
        peintre.drawEllipse(QPointF(0, 0), r, r);
        trait.setWidthF(diametre * 0.009);
        peintre.setPen(trait);
        peintre.drawEllipse(QPointF(0, 0), r * 0.90, r * 0.90);
        peintre.drawEllipse(QPointF(0, 0), r * 0.60, r * 0.60);

        QFont police = Rapport::police(12, true);
        police.setPixelSize(int(r * 0.19));
        texteEnArc(peintre, titulaire.toUpper(), r * 0.66, police, qDegreesToRadians(250.0));

        // Stars along the bottom, between the two circles.
        police.setPixelSize(int(r * 0.14));
        peintre.setFont(police);
        const QFontMetricsF mesures(police);
        const QString etoile(QChar(0x2605));
        for (const double degres : {150.0, 180.0, 210.0}) {
            peintre.save();
            peintre.rotate(degres);
            peintre.translate(0, -r * 0.75);
            peintre.rotate(180);
            peintre.drawText(QPointF(-mesures.horizontalAdvance(etoile) / 2, mesures.ascent() / 2.5), etoile);
            peintre.restore();
        }

        // The initials in the middle, between two rules.
        const QString lettres = initiales(titulaire);
        police.setPixelSize(int(r * (lettres.size() > 2 ? 0.34 : 0.42)));
        peintre.setFont(police);
        const QFontMetricsF grandes(police);
        const QRectF boite = grandes.tightBoundingRect(lettres);
        peintre.drawText(QPointF(-boite.width() / 2 - boite.left(), -boite.top() - boite.height() / 2), lettres);
        trait.setWidthF(diametre * 0.012);
        peintre.setPen(trait);
        const double y = r * 0.33;
        peintre.drawLine(QPointF(-r * 0.44, -y), QPointF(r * 0.44, -y));
        peintre.drawLine(QPointF(-r * 0.44, y), QPointF(r * 0.44, y));
    }
    usure(image);
    return image;
}

void ajouteTamponDans(QTextCursor& curseur, const QString& titulaire)
{
    QTextDocument* document = curseur.document();
    if (!document)
        return;
    document->addResource(QTextDocument::ImageResource, QUrl(Rapport::NomTampon), dessineTampon(titulaire));
    curseur.insertText(QStringLiteral("\n\n\t"));
    QTextImageFormat format;
    format.setName(Rapport::NomTampon);
    format.setWidth(Rapport::points(DiametreTamponPoints));
    format.setHeight(Rapport::points(DiametreTamponPoints));
    curseur.insertImage(format);
}

} // namespace corvane
