#pragma once

#include "store/BaseDeDonnees.h"

#include <QAbstractTableModel>

namespace corvane::app {

// The social-security list: one row per record, its three reimbursement and ALD flags as
// check boxes that the user ticks in place.
class ModeleSecuriteSociale : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Colonne
    {
        Debut,
        Fin,
        Type,
        JoursSuspendus,
        TotalIJ,
        Rembourse,
        Mutuelle,
        Ald,
        Note,
        NombreColonnes
    };

    explicit ModeleSecuriteSociale(QObject* parent = nullptr);

    void setTable(Table table);
    const Table& table() const { return m_table; }
    int idPeriode(int rangee) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& valeur, int role = Qt::EditRole) override;

    static bool estCoche(int colonne) { return colonne == Rembourse || colonne == Mutuelle || colonne == Ald; }

signals:
    // A flag was ticked or cleared in a row: that flag's column only is to be written.
    void cocheModifiee(int id, int colonne, bool coche);

private:
    QVariant valeur(const QVariantList& rangee, int colonne) const;

    Table m_table;
    // The listing's column behind each of ours, found once per listing.
    QList<int> m_colonnes;
    int m_id = -1;
};

} // namespace corvane::app
