#include "app/manager/ModelePaiements.h"

namespace corvane::app {

ModelePaiements::ModelePaiements(QObject* parent) : QAbstractTableModel(parent) {}

void ModelePaiements::setTable(Table table)
{
    beginResetModel();
    m_table = std::move(table);
    m_id = m_table.colonne(QStringLiteral("id"));
    m_prenom = m_table.colonne(QStringLiteral("prenom"));
    m_nom = m_table.colonne(QStringLiteral("nom"));
    m_paye = m_table.colonne(QStringLiteral("paye"));
    endResetModel();
}

int ModelePaiements::idEmploye(int rangee) const
{
    return rangee >= 0 && rangee < m_table.size() ? m_table.valeur(rangee, m_id).toInt() : 0;
}

bool ModelePaiements::estPaye(int rangee) const
{
    return rangee >= 0 && rangee < m_table.size() && m_table.valeur(rangee, m_paye).toString() == QStringLiteral("1");
}

void ModelePaiements::marquerPaye(int employeId, bool paye)
{
    for (int rangee = 0; rangee < m_table.size() && m_paye >= 0; ++rangee)
        if (idEmploye(rangee) == employeId) {
            m_table.rangees[rangee][m_paye] = paye ? QStringLiteral("1") : QStringLiteral("0");
            emit dataChanged(index(rangee, Paye), index(rangee, Paye));
        }
}

int ModelePaiements::nonPayes() const
{
    int n = 0;
    for (int rangee = 0; rangee < m_table.size(); ++rangee)
        n += estPaye(rangee) ? 0 : 1;
    return n;
}

int ModelePaiements::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_table.size());
}

int ModelePaiements::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : NombreColonnes;
}

QVariant ModelePaiements::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_table.size())
        return {};
    const int rangee = index.row();
    if (index.column() == Paye)
        return role == Qt::CheckStateRole ? QVariant(estPaye(rangee) ? Qt::Checked : Qt::Unchecked) : QVariant();
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    const QString prenom = m_table.valeur(rangee, m_prenom).toString();
    const QString nom = m_table.valeur(rangee, m_nom).toString();
    // An employee deleted since the event was saved is still on its staff, by number only.
    if (prenom.isEmpty() && nom.isEmpty())
        return index.column() == Nom ? QStringLiteral("Employé n° %1 (supprimé)").arg(idEmploye(rangee)) : QString();
    return index.column() == Prenom ? prenom : nom;
}

QVariant ModelePaiements::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    static const QStringList titres{"Prénom", "Nom", "Payé"};
    return titres.value(section);
}

Qt::ItemFlags ModelePaiements::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags f = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return index.column() == Paye ? f | Qt::ItemIsUserCheckable : f;
}

bool ModelePaiements::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid() || index.column() != Paye || role != Qt::CheckStateRole)
        return false;
    const bool paye = value.toInt() == Qt::Checked;
    if (paye == estPaye(index.row()))
        return false;
    emit basculeDemandee(idEmploye(index.row()));
    return true;
}

} // namespace corvane::app
