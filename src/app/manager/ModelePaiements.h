#pragma once

#include "store/BaseDeDonnees.h"

#include <QAbstractTableModel>

namespace corvane::app {

// The staff of one event, each employee with its "Payé" box. Ticking a box asks the tab to
// write it; the row follows once it is written.
class ModelePaiements : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Colonne
    {
        Prenom,
        Nom,
        Paye,
        NombreColonnes
    };

    explicit ModelePaiements(QObject* parent = nullptr);

    // The rows "id", "prenom", "nom", "paye" of one event.
    void setTable(Table table);
    const Table& table() const { return m_table; }
    int idEmploye(int rangee) const;
    bool estPaye(int rangee) const;
    // The row of an employee shown paid or not, once its tick is written.
    void marquerPaye(int employeId, bool paye);
    int nonPayes() const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

signals:
    void basculeDemandee(int employeId);

private:
    Table m_table;
    // The listing's columns, found once per listing.
    int m_id = -1;
    int m_prenom = -1;
    int m_nom = -1;
    int m_paye = -1;
};

} // namespace corvane::app
