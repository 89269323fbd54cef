#pragma once

#include "store/BaseDeDonnees.h"

#include <QAbstractTableModel>

namespace corvane {
class Employeurs;
}

namespace corvane::app {

// The employers' list: the rows of listeLesEmployeurs, with the "conventionné" box
// editable in place (written at once).
class ModeleEmployeurs : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Colonne
    {
        Conventionne,
        Enseigne,
        CodePostal,
        Commune,
        Interlocuteur,
        Telephone,
        Email,
        NombreColonnes
    };

    explicit ModeleEmployeurs(QObject* parent = nullptr);

    // The model the rows are read from and the box written to (none: an empty list).
    void setEmployeurs(Employeurs* employeurs);
    void recharger();
    Ligne ligne(int rangee) const { return m_table.ligne(rangee); }
    int idDeLaLigne(int rangee) const;
    int rangeeDeLId(int id) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& valeur, int role = Qt::EditRole) override;

private:
    QVariant valeur(int rangee, int colonne) const;

    Employeurs* m_employeurs = nullptr;
    Table m_table;
    // The listing's column behind each of ours, and the id's, found once per listing.
    QList<int> m_colonnes;
    int m_id = -1;
};

} // namespace corvane::app
