#pragma once

#include "store/BaseDeDonnees.h"

#include <QAbstractTableModel>
#include <QColor>
#include <QMap>

namespace corvane::app {

// The contracts list: one row per listing row, its four flags as check boxes.
class ModeleTableContrats : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Colonne
    {
        Debut,
        Fin,
        Employeur,
        Emploi,
        Type,
        Jours,
        Heures,
        Brut,
        Net,
        Effectue,
        Paye,
        Conges,
        AemFp,
        Lieu,
        Fonction,
        Note,
        NombreColonnes
    };

    explicit ModeleTableContrats(QObject* parent = nullptr);

    // `types`: the label of each type key, contract and self-employment types together.
    void setTable(Table table, const QMap<int, QString>& types);
    void setCouleurGroupee(const QColor& couleur) { m_couleurGroupee = couleur; }
    const Table& table() const { return m_table; }
    Ligne ligne(int rangee) const { return m_table.ligne(rangee); }
    int idContrat(int rangee) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& valeur, int role = Qt::EditRole) override;

    // The listing key a check-box column edits.
    static QString cleCoche(int colonne);

signals:
    // A flag was ticked or cleared in a row: the four flags as they now are.
    void cochesModifiees(int id, int effectue, int paye, int conges, int aemFp);

private:
    // Five calendar days or more: what the grouped count under the list counts.
    bool estGroupee(const QVariantList& rangee) const;
    QVariant valeur(const QVariantList& rangee, int colonneListe) const;

    Table m_table;
    // The listing's column behind each of ours (and the keys read for the flags and dates), found once per listing.
    QList<int> m_colonnes;
    int m_id = -1;
    int m_debutSQLite = -1;
    int m_finSQLite = -1;
    QMap<int, QString> m_types;
    QColor m_couleurGroupee;
};

} // namespace corvane::app
