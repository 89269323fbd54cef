#pragma once

#include "store/BaseDeDonnees.h"

#include <QAbstractTableModel>

namespace corvane::app {

// The expenses list: one row per expense, its amount with its unit (euros, or kilometres for the
// mileage category), its receipt by file name and the contract it is linked to.
class ModeleFrais : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Colonne
    {
        Date,
        Categorie,
        Montant,
        ContratLie,
        Justificatif,
        Rembourse,
        Note, // last: it takes what the others leave
        NombreColonnes
    };

    explicit ModeleFrais(QObject* parent = nullptr);

    // The listing's rows, and the amount column's title for its category filter.
    void setTable(Table table, const QString& titreMontant);
    const Table& table() const { return m_table; }
    int idFrais(int rangee) const;
    // The receipt's path, "" when the expense has none.
    QString fichier(int rangee) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    QVariant valeur(const QVariantList& rangee, int colonne) const;

    Table m_table;
    QString m_titreMontant;
    // The listing's column behind each of ours, found once per listing.
    QList<int> m_colonnes;
    int m_id = -1;
    int m_unite = -1;
};

} // namespace corvane::app
