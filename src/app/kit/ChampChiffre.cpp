#include "app/kit/ChampChiffre.h"

#include "store/FormatFrancais.h"

#include <QKeyEvent>
#include <QLocale>

namespace corvane::app {

namespace {

// The invalid look: a red frame, whatever the style.
const QString kCadreInvalide = QStringLiteral("border: 2px solid #c01c28; border-radius: 3px;");

} // namespace

ChampChiffre::ChampChiffre(const Bornes& bornes, QWidget* parent) : QLineEdit(parent), m_bornes(bornes)
{
    setAlignment(Qt::AlignRight);
    connect(this, &QLineEdit::textChanged, this, &ChampChiffre::lire);
    lire();
}

void ChampChiffre::setBornes(const Bornes& bornes)
{
    m_bornes = bornes;
    lire();
}

void ChampChiffre::setVideVautZero(bool vide)
{
    m_videVautZero = vide;
    lire();
}

void ChampChiffre::afficher(double valeur)
{
    m_affiche = valeur;
    if (m_videVautZero && valeur == 0.0) {
        setText(QString());
    } else {
        setText(localeFrancaise().toString(valeur, 'f', m_bornes.decimales));
    }
    // Forms refresh their fields with signals blocked: the look follows all the same.
    lire();
}

void ChampChiffre::actualiser(double valeur)
{
    if (!estValide() && (m_affiche == valeur || m_dernierLu == valeur))
        return;
    afficher(valeur);
}

Lecture<double> ChampChiffre::lecture() const
{
    if (m_videVautZero && text().trimmed().isEmpty())
        return {0.0, {}};
    return SaisieFrancaise::nombre(text(), m_bornes);
}

void ChampChiffre::lire()
{
    const std::optional<double> lu = nombre();
    const bool valide = lu.has_value();
    if (valide)
        m_dernierLu = lu;
    majApparence();
    if (valide != m_valide) {
        m_valide = valide;
        emit validiteChangee(valide);
    }
}

void ChampChiffre::setCouleur(const QString& couleur)
{
    m_couleur = couleur;
    majApparence();
}

void ChampChiffre::setBulle(const QString& bulle)
{
    m_bulle = bulle;
    majApparence();
}

void ChampChiffre::majApparence()
{
    QString style;
    if (!m_couleur.isEmpty())
        style += QStringLiteral("color: %1;").arg(m_couleur);
    const Lecture<double> lu = lecture();
    if (!lu.ok())
        style += kCadreInvalide;
    const QString feuille = style.isEmpty() ? QString() : QStringLiteral("QLineEdit { %1 }").arg(style);
    if (styleSheet() != feuille)
        setStyleSheet(feuille);
    setToolTip(lu.ok() ? m_bulle : lu.erreur);
}

void ChampChiffre::keyPressEvent(QKeyEvent* evenement)
{
    // Whole numbers step with the arrow keys, as a spin box would.
    const bool haut = evenement->key() == Qt::Key_Up;
    const std::optional<double> actuel = nombre();
    if (m_bornes.decimales == 0 && (haut || evenement->key() == Qt::Key_Down) && actuel) {
        const double suivant = *actuel + (haut ? 1.0 : -1.0);
        if (suivant >= m_bornes.minimum && suivant <= m_bornes.maximum) {
            afficher(suivant);
            emit textEdited(text());
        }
        return;
    }
    QLineEdit::keyPressEvent(evenement);
}

ChampMontant::ChampMontant(QWidget* parent, const Bornes& bornes) : ChampChiffre(bornes, parent)
{
    setVideVautZero(true);
    setPlaceholderText(bornes.decimales == 2 ? QStringLiteral("0,00") : QStringLiteral("0"));
}

ChampNombre::ChampNombre(int minimum, int maximum, QWidget* parent)
    : ChampChiffre(Bornes{double(minimum), double(maximum), 0, false}, parent)
{
    setMaximumWidth(110);
    afficher(qBound(minimum, 0, maximum));
}

void ChampNombre::setRange(int minimum, int maximum)
{
    setBornes(Bornes{double(minimum), double(maximum), 0, false});
}

std::optional<int> ChampNombre::entier() const
{
    if (const auto lu = nombre())
        return int(*lu);
    return std::nullopt;
}

} // namespace corvane::app
