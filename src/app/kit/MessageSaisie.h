#pragma once

#include <QLabel>
#include <QList>
#include <QPair>

namespace corvane::app {

class ChampChiffre;

// The line of a form that says which of its fields holds what cannot be read, and why;
// hidden while every field reads. The form asks refus() before saving.
class MessageSaisie : public QLabel
{
    Q_OBJECT

public:
    explicit MessageSaisie(QWidget* parent = nullptr);

    void surveiller(ChampChiffre* champ, const QString& libelle);
    // A field watched already, now named otherwise (an amount that becomes a distance).
    void renommer(ChampChiffre* champ, const QString& libelle);
    // "Salaire brut : le caractère « O » n'est pas permis (…)." for the first field that
    // cannot be read (in the order watched), or "".
    QString refus() const;
    // Follows the fields (also called by a form after it refreshed them with signals blocked).
    void actualiser();

private:
    QList<QPair<ChampChiffre*, QString>> m_champs;
};

} // namespace corvane::app
