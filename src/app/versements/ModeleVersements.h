#pragma once

#include "store/BaseDeDonnees.h"

#include <QAbstractTableModel>

namespace corvane::app {

// A payments history: date, amount, and the tick ("Encaissé" or "Crédit") that the user
// ticks in place.
class ModeleVersements : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Colonne
    {
        Date,
        Montant,
        Coche,
        NombreColonnes
    };

    explicit ModeleVersements(const QString& titreCoche, QObject* parent = nullptr);

    void setTable(Table table);
    const Table& table() const { return m_table; }
    int idVersement(int rangee) const;
    double montant(int rangee) const;
    bool estCoche(int rangee) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& valeur, int role = Qt::EditRole) override;

signals:
    // The tick of a payment was changed: that column only is to be written.
    void cocheModifiee(int id, bool coche);

private:
    QString m_titreCoche;
    Table m_table;
    int m_id = -1, m_date = -1, m_montant = -1, m_coche = -1;
};

} // namespace corvane::app
