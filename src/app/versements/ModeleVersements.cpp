#include "app/versements/ModeleVersements.h"

#include "store/FormatFrancais.h"

namespace corvane::app {

ModeleVersements::ModeleVersements(const QString& titreCoche, QObject* parent)
    : QAbstractTableModel(parent), m_titreCoche(titreCoche)
{
}

void ModeleVersements::setTable(Table table)
{
    beginResetModel();
    m_table = std::move(table);
    m_id = m_table.colonne(QStringLiteral("Id"));
    m_date = m_table.colonne(QStringLiteral("Date"));
    m_montant = m_table.colonne(QStringLiteral("Montant"));
    // The tick is the listing's last key.
    m_coche = m_table.cles.isEmpty() ? -1 : int(m_table.cles.size() - 1);
    endResetModel();
}

int ModeleVersements::idVersement(int rangee) const
{
    return rangee < 0 || rangee >= m_table.size() ? 0 : m_table.valeur(rangee, m_id).toInt();
}

double ModeleVersements::montant(int rangee) const
{
    return rangee < 0 || rangee >= m_table.size() ? 0.0 : m_table.valeur(rangee, m_montant).toDouble();
}

bool ModeleVersements::estCoche(int rangee) const
{
    return rangee >= 0 && rangee < m_table.size() && m_table.valeur(rangee, m_coche).toInt() != 0;
}

int ModeleVersements::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_table.size());
}

int ModeleVersements::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : NombreColonnes;
}

QVariant ModeleVersements::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_table.size())
        return {};
    const int r = index.row();
    switch (index.column()) {
    case Date:
        return role == Qt::DisplayRole ? m_table.valeur(r, m_date) : QVariant();
    case Montant:
        if (role == Qt::TextAlignmentRole)
            return int(Qt::AlignRight | Qt::AlignVCenter);
        return role == Qt::DisplayRole ? QVariant(enEuros(montant(r))) : QVariant();
    case Coche:
        return role == Qt::CheckStateRole ? QVariant(estCoche(r) ? Qt::Checked : Qt::Unchecked) : QVariant();
    default:
        return {};
    }
}

QVariant ModeleVersements::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Date:
        return QStringLiteral("Date");
    case Montant:
        return QStringLiteral("Montant");
    case Coche:
        return m_titreCoche;
    default:
        return {};
    }
}

Qt::ItemFlags ModeleVersements::flags(const QModelIndex& index) const
{
    Qt::ItemFlags f = QAbstractTableModel::flags(index);
    if (index.isValid() && index.column() == Coche)
        f |= Qt::ItemIsUserCheckable;
    return f;
}

bool ModeleVersements::setData(const QModelIndex& index, const QVariant& valeur, int role)
{
    if (!index.isValid() || index.column() != Coche || role != Qt::CheckStateRole || index.row() >= m_table.size())
        return false;
    const bool coche = valeur.toInt() == Qt::Checked;
    if (coche == estCoche(index.row()))
        return true;
    m_table.rangees[index.row()][m_coche] = int(coche);
    emit dataChanged(index, index, {Qt::CheckStateRole});
    emit cocheModifiee(idVersement(index.row()), coche);
    return true;
}

} // namespace corvane::app
