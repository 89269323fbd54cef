#pragma once

#include "store/BaseDeDonnees.h"

#include <QAbstractTableModel>
#include <QDate>

namespace corvane::app {

// The allowances received, as the payments listing gives them: date and amount.
class ModeleVersementsPoleEmploi : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Colonne
    {
        Date,
        Montant,
        NombreColonnes
    };

    explicit ModeleVersementsPoleEmploi(QObject* parent = nullptr);

    void setTable(const Table& table);
    int idDeLaLigne(int rangee) const;
    int rangeeDeLId(int id) const;
    QDate date(int rangee) const;
    double montant(int rangee) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    Table m_table;
    int m_id = -1;
    int m_date = -1;
    int m_dateSQLite = -1;
    int m_montant = -1;
};

} // namespace corvane::app
