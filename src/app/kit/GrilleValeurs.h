#pragma once

#include <QList>
#include <QPair>
#include <QString>
#include <QWidget>

class QGridLayout;
class QLabel;

namespace corvane::app {

// A summary: one label and its value per line, the values right-aligned and selectable. Without
// any line it shows a short note instead.
class GrilleValeurs : public QWidget
{
    Q_OBJECT

public:
    explicit GrilleValeurs(QWidget* parent = nullptr);

    void setLignes(const QList<QPair<QString, QString>>& lignes);
    const QList<QPair<QString, QString>>& lignes() const { return m_lignes; }
    // The value shown beside a label ("" when there is none).
    QString valeur(const QString& libelle) const;
    void setTexteVide(const QString& texte);
    // Lines shown side by side in that many columns, filled one column after the other.
    void setColonnes(int colonnes);

private:
    QGridLayout* m_grille = nullptr;
    QLabel* m_vide = nullptr;
    int m_colonnes = 1;
    QList<QLabel*> m_etiquettes;
    QList<QPair<QString, QString>> m_lignes;
};

} // namespace corvane::app
