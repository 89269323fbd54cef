#pragma once

#include "store/BaseDeDonnees.h"

#include <QAbstractTableModel>

namespace corvane::app {

// A read-only list over a listing: each column shows one key of the rows, formatted the French
// way. RoleTri gives the value a column sorts by (a day for a date, a number for an amount), so
// that a QSortFilterProxyModel sorts dates and amounts as such.
class ModeleTableau : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum class Format
    {
        Texte,
        Entier,      // "1 234"
        Nombre,      // "14,5"
        Montant,     // "1 234,56 €"
        DateSQLite,  // the stored text, shown "dd/MM/yyyy"
        DateAffichee // already "dd/MM/yyyy"
    };
    struct Colonne
    {
        QString titre;
        QString cle;
        Format format = Format::Texte;
    };
    static constexpr int RoleTri = Qt::UserRole;

    explicit ModeleTableau(QList<Colonne> colonnes, QObject* parent = nullptr);

    void setTable(Table table);
    const Table& table() const { return m_table; }
    // The text a cell shows.
    QString texte(int rangee, int colonne) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    QList<Colonne> m_colonnes;
    Table m_table;
    // The listing's column behind each of ours, found once per listing.
    QList<int> m_index;
};

} // namespace corvane::app

class QTableView;
class QWidget;

namespace corvane::app {

// A list of `modele` sorted by a click on a column title (by RoleTri), rows selected whole,
// nothing edited in place. `extensible` is the column that takes the width the others leave
// (a name, elided when too long), -1 for the last one.
QTableView* vueTriee(ModeleTableau* modele, QWidget* parent, const QString& nom, int extensible = -1);

} // namespace corvane::app
