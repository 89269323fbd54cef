#include "app/tableaudebord/Jauges.h"

#include <QPainter>
#include <QPainterPath>
#include <QPalette>

#include <algorithm>

namespace corvane::app {

namespace CouleursTdb {

bool sombre(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < 128;
}

QColor bleuJauge(const QPalette& palette)
{
    // Navy is unreadable on a dark grey: the same hue, lighter.
    return sombre(palette) ? QColor(122, 152, 255) : QColor::fromRgbF(0, 0, 0.5);
}

QColor bleu(const QPalette& palette)
{
    return sombre(palette) ? QColor(130, 170, 255) : QColor(0, 0, 230);
}

QColor lisible(const QColor& couleur, const QPalette& palette)
{
    if (!couleur.isValid() || !sombre(palette) || couleur.lightness() >= 150)
        return couleur;
    QColor claire = couleur.toHsl();
    claire.setHsl(claire.hslHue(), claire.hslSaturation(), 170);
    return claire.toRgb();
}

} // namespace CouleursTdb

Carte::Carte(QWidget* parent) : QFrame(parent) {}

void Carte::paintEvent(QPaintEvent*)
{
    // Drawn from the palette at each paint, so that a change of appearance needs nothing more.
    QPainter peintre(this);
    peintre.setRenderHint(QPainter::Antialiasing);
    const QRectF cadre = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QColor bord = palette().color(QPalette::WindowText);
    bord.setAlpha(CouleursTdb::sombre(palette()) ? 60 : 40);
    peintre.setPen(QPen(bord, 1));
    peintre.setBrush(palette().color(QPalette::Base));
    peintre.drawRoundedRect(cadre, 8, 8);
}

JaugeCirculaire::JaugeCirculaire(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize JaugeCirculaire::sizeHint() const
{
    return {136, 136};
}

QSize JaugeCirculaire::minimumSizeHint() const
{
    return {120, 120};
}

void JaugeCirculaire::setValeur(double proportion, const QString& texte, const QColor& couleur)
{
    m_proportion = std::clamp(proportion, 0.0, 1.0);
    m_texte = texte;
    m_couleur = couleur;
    setToolTip(QString(texte).replace(QLatin1Char('\n'), QLatin1Char(' ')));
    update();
}

void JaugeCirculaire::paintEvent(QPaintEvent*)
{
    QPainter peintre(this);
    peintre.setRenderHint(QPainter::Antialiasing);
    const double cote = std::min(width(), height()) - 4.0;
    const double epaisseur = std::max(8.0, cote * 0.085);
    const QRectF anneau((width() - cote) / 2 + epaisseur / 2, (height() - cote) / 2 + epaisseur / 2, cote - epaisseur,
                        cote - epaisseur);

    QColor piste = palette().color(QPalette::Text);
    piste.setAlpha(35);
    peintre.setPen(QPen(piste, epaisseur, Qt::SolidLine, Qt::FlatCap));
    peintre.drawEllipse(anneau);
    if (m_proportion > 0) {
        peintre.setPen(QPen(m_couleur, epaisseur, Qt::SolidLine, m_proportion < 1 ? Qt::RoundCap : Qt::FlatCap));
        // From the top, clockwise.
        peintre.drawArc(anneau, 90 * 16, -int(m_proportion * 360 * 16));
    }

    // The figure of the first line large on its own, the rest of the text small under it:
    // "199" / "jours restants" / "dans la PRA".
    QStringList lignes = m_texte.split(QLatin1Char('\n'));
    QString chiffre;
    if (!lignes.isEmpty()) {
        const QString premiere = lignes.first();
        const qsizetype espace = premiere.indexOf(QLatin1Char(' '));
        const QString debut = espace < 0 ? premiere : premiere.left(espace);
        bool nombre = false;
        debut.toInt(&nombre);
        if (nombre) {
            chiffre = debut;
            lignes.first() = espace < 0 ? QString() : premiere.mid(espace + 1);
            lignes.removeAll(QString());
        }
    }
    const double interieur = cote - 2.6 * epaisseur;
    QFont grande = font();
    grande.setBold(true);
    grande.setPointSizeF(font().pointSizeF() * (chiffre.isEmpty() ? 1.25 : 1.9));
    QFont petite = font();
    petite.setPointSizeF(font().pointSizeF() * 0.92);
    // Shrunk to fit inside the ring, for long words and large system fonts.
    double largeur = chiffre.isEmpty() ? 0 : QFontMetricsF(grande).horizontalAdvance(chiffre);
    for (const QString& l : lignes)
        largeur = std::max(largeur, QFontMetricsF(chiffre.isEmpty() ? grande : petite).horizontalAdvance(l));
    if (largeur > interieur && largeur > 0) {
        const double facteur = interieur / largeur;
        grande.setPointSizeF(grande.pointSizeF() * facteur);
        petite.setPointSizeF(petite.pointSizeF() * facteur);
    }
    struct Morceau
    {
        QString texte;
        QFont police;
    };
    QList<Morceau> morceaux;
    if (!chiffre.isEmpty())
        morceaux.append({chiffre, grande});
    for (const QString& l : lignes)
        morceaux.append({l, chiffre.isEmpty() ? grande : petite});
    double hauteur = 0;
    for (const Morceau& m : morceaux)
        hauteur += QFontMetricsF(m.police).height();
    double y = (height() - hauteur) / 2;
    // Without a figure the text is the news itself ("Terminée !"): in the gauge's colour.
    peintre.setPen(chiffre.isEmpty() ? m_couleur : palette().color(QPalette::Text));
    for (const Morceau& m : morceaux) {
        const double h = QFontMetricsF(m.police).height();
        peintre.setFont(m.police);
        peintre.drawText(QRectF(0, y, width(), h), Qt::AlignCenter, m.texte);
        y += h;
        peintre.setPen(palette().color(QPalette::Text));
    }
}

BarreDroits::BarreDroits(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize BarreDroits::sizeHint() const
{
    return {240, 22};
}

QSize BarreDroits::minimumSizeHint() const
{
    return {80, 22};
}

void BarreDroits::setCouleur(const QColor& couleur)
{
    m_couleur = couleur;
    update();
}

void BarreDroits::setDates(const QDate& ouverture, const QDate& fin, const QDate& aujourdhui)
{
    m_vide = !ouverture.isValid() || !fin.isValid() || fin <= ouverture;
    m_proportion =
        m_vide ? 0 : std::clamp(double(ouverture.daysTo(aujourdhui)) / double(ouverture.daysTo(fin)), 0.0, 1.0);
    update();
}

void BarreDroits::paintEvent(QPaintEvent*)
{
    QPainter peintre(this);
    peintre.setRenderHint(QPainter::Antialiasing);
    const double hauteur = 10;
    const double marge = 8; // room for today's mark at both ends
    const QRectF barre(marge, (height() - hauteur) / 2, width() - 2 * marge, hauteur);
    QColor piste = palette().color(QPalette::Text);
    piste.setAlpha(35);
    peintre.setPen(Qt::NoPen);
    peintre.setBrush(piste);
    peintre.drawRoundedRect(barre, hauteur / 2, hauteur / 2);
    if (m_vide)
        return;
    QRectF plein = barre;
    plein.setWidth(std::max(hauteur, barre.width() * m_proportion));
    peintre.setBrush(m_couleur);
    peintre.drawRoundedRect(plein, hauteur / 2, hauteur / 2);
    // Today.
    const QPointF repere(barre.left() + barre.width() * m_proportion, barre.center().y());
    peintre.setPen(QPen(palette().color(QPalette::Base), 2));
    peintre.setBrush(m_couleur);
    peintre.drawEllipse(repere, 7, 7);
}

} // namespace corvane::app
