#pragma once

#include "store/SaisieFrancaise.h"

#include <QLineEdit>
#include <optional>

namespace corvane::app {

// A field for one figure typed the French way ("1 977,50"), read by SaisieFrancaise within
// its bounds. Text that cannot be read stays as typed, with a red border and the reason in
// its tooltip; it is never read as 0 nor silently replaced. The amount and number fields
// of the kit are this field with their bounds.
class ChampChiffre : public QLineEdit
{
    Q_OBJECT

public:
    explicit ChampChiffre(const Bornes& bornes, QWidget* parent = nullptr);

    void setBornes(const Bornes& bornes);
    const Bornes& bornes() const { return m_bornes; }
    // An empty field reads as 0 and 0 shows as an empty field (an amount left blank is none).
    // Off, an empty field is refused.
    void setVideVautZero(bool vide);

    // The figure typed, or nullopt when it cannot be read (erreur() says why). Saving code
    // reads this.
    std::optional<double> nombre() const { return lecture().valeur; }
    QString erreur() const { return lecture().erreur; }
    bool estValide() const { return nombre().has_value(); }

    // The form's own text colour ("#rrggbb", "" for none) and tooltip, kept beside the
    // invalid look and the reason shown while the text cannot be read.
    void setCouleur(const QString& couleur);
    void setBulle(const QString& bulle);

    // Shows a figure in the French format.
    void afficher(double valeur);
    // Shows a figure, unless the field holds text that cannot be read and the figure is the
    // one it showed or read last: refreshing a form never hides a mistake the user has not
    // fixed (a form reads the valid beginnings of what is being typed, "1.97" of "1.977,00").
    void actualiser(double valeur);

signals:
    // The text became readable, or stopped being so.
    void validiteChangee(bool valide);

protected:
    void keyPressEvent(QKeyEvent* evenement) override;
    // The figure shown last by afficher(), for the fields' value().
    double affiche() const { return m_affiche.value_or(0.0); }

private:
    Lecture<double> lecture() const;
    void lire();
    void majApparence();

    Bornes m_bornes;
    bool m_videVautZero = false;
    bool m_valide = true;
    std::optional<double> m_affiche;
    std::optional<double> m_dernierLu;
    QString m_couleur;
    QString m_bulle;
};

// An amount in euros (never negative by default), "0,00" as placeholder; empty means none.
class ChampMontant : public ChampChiffre
{
    Q_OBJECT

public:
    explicit ChampMontant(QWidget* parent = nullptr, const Bornes& bornes = Limites::kMontant);

    // The amount typed, or the one shown last while the text cannot be read (display code);
    // saving code reads nombre().
    double value() const { return nombre().value_or(affiche()); }
    void setValue(double montant) { afficher(montant); }
};

// A whole number (days, hours, counts) within its range; the Up and Down keys step by one.
class ChampNombre : public ChampChiffre
{
    Q_OBJECT

public:
    ChampNombre(int minimum, int maximum, QWidget* parent = nullptr);

    void setRange(int minimum, int maximum);
    std::optional<int> entier() const;
    // The number typed, or the one shown last while the text cannot be read (display code);
    // saving code reads entier().
    int value() const { return entier().value_or(int(affiche())); }
    void setValue(int nombre) { afficher(nombre); }
};

} // namespace corvane::app
