#pragma once

#include <QColor>
#include <QDate>
#include <QFrame>
#include <QString>
#include <QWidget>

class QPalette;

namespace corvane::app {

// The dashboard's colours, readable on the palette in use (light or dark).
namespace CouleursTdb {
// The gauges' dark blue (red 0, green 0, blue 0.5), lightened on a dark background.
QColor bleuJauge(const QPalette& palette);
// The blue of good news ("Vous pouvez prétendre à une réouverture de droits.").
QColor bleu(const QPalette& palette);
// A colour of the settings (negative amounts, sickness rows), lightened when it would be too
// dark to read on a dark background.
QColor lisible(const QColor& couleur, const QPalette& palette);
bool sombre(const QPalette& palette);
} // namespace CouleursTdb

// A rounded panel in the base colour of the palette, which groups one figure of the dashboard.
class Carte : public QFrame
{
    Q_OBJECT

public:
    explicit Carte(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* evenement) override;
};

// A ring filled in proportion to a value, with a text in its middle (first line larger).
class JaugeCirculaire : public QWidget
{
    Q_OBJECT

public:
    explicit JaugeCirculaire(QWidget* parent = nullptr);

    // `proportion` between 0 and 1 (outside: clamped).
    void setValeur(double proportion, const QString& texte, const QColor& couleur);
    double proportion() const { return m_proportion; }
    QString texte() const { return m_texte; }
    QColor couleur() const { return m_couleur; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* evenement) override;

private:
    double m_proportion = 0;
    QString m_texte;
    QColor m_couleur;
};

// The benefit timeline: a bar from the opening of rights to their end, filled up to today,
// with today's mark.
class BarreDroits : public QWidget
{
    Q_OBJECT

public:
    explicit BarreDroits(QWidget* parent = nullptr);

    // Invalid dates: an empty bar.
    void setDates(const QDate& ouverture, const QDate& fin, const QDate& aujourdhui);
    void setCouleur(const QColor& couleur);
    double proportion() const { return m_proportion; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* evenement) override;

private:
    double m_proportion = 0;
    bool m_vide = true;
    QColor m_couleur;
};

} // namespace corvane::app
