#pragma once

#include "store/BaseDeDonnees.h"

#include <QAbstractTableModel>

namespace corvane::app {

// The neighbouring-rights list: one row per payment.
class ModeleDroitsVoisins : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Colonne
    {
        Date,
        Organisme,
        Categorie,
        Montant,
        Details,
        NombreColonnes
    };

    explicit ModeleDroitsVoisins(QObject* parent = nullptr);

    void setTable(Table table);
    const Table& table() const { return m_table; }
    int idDroit(int rangee) const;
    int rangeeDe(int id) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    Table m_table;
    // The listing's column behind each of ours, found once per listing.
    QList<int> m_colonnes;
    int m_id = -1;
};

} // namespace corvane::app
