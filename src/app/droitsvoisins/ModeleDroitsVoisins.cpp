#include "app/droitsvoisins/ModeleDroitsVoisins.h"

#include "store/FormatFrancais.h"

namespace corvane::app {

ModeleDroitsVoisins::ModeleDroitsVoisins(QObject* parent) : QAbstractTableModel(parent) {}

void ModeleDroitsVoisins::setTable(Table table)
{
    static const QStringList cles{"Date", "Organism", "Category", "Amount", "Details"};
    beginResetModel();
    m_table = std::move(table);
    m_colonnes.clear();
    for (const QString& cle : cles)
        m_colonnes << m_table.colonne(cle);
    m_id = m_table.colonne(QStringLiteral("Id"));
    endResetModel();
}

int ModeleDroitsVoisins::idDroit(int rangee) const
{
    if (rangee < 0 || rangee >= m_table.size() || m_id < 0)
        return 0;
    return m_table.rangees.at(rangee).at(m_id).toInt();
}

int ModeleDroitsVoisins::rangeeDe(int id) const
{
    for (int rangee = 0; rangee < m_table.size(); ++rangee)
        if (idDroit(rangee) == id)
            return rangee;
    return -1;
}

int ModeleDroitsVoisins::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_table.size());
}

int ModeleDroitsVoisins::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : NombreColonnes;
}

QVariant ModeleDroitsVoisins::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_table.size() || index.column() >= NombreColonnes)
        return {};
    const int c = m_colonnes.value(index.column(), -1);
    const QVariant v = c < 0 ? QVariant() : m_table.rangees.at(index.row()).at(c);
    if (role == Qt::TextAlignmentRole)
        return index.column() == Montant ? QVariant(int(Qt::AlignRight | Qt::AlignVCenter)) : QVariant();
    // Cut details are read whole in their tooltip.
    if (role == Qt::ToolTipRole && index.column() == Details)
        return v.toString();
    if (role != Qt::DisplayRole)
        return {};
    if (index.column() == Montant)
        return enEuros(v.toDouble());
    if (index.column() == Details)
        return v.toString().simplified();
    return v;
}

QVariant ModeleDroitsVoisins::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    static const QStringList titres{"Date", "Organisme", "Catégorie", "Montant", "Détails"};
    return titres.value(section);
}

} // namespace corvane::app
