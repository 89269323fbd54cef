#include "app/poleemploi/ModeleVersementsPoleEmploi.h"

#include "store/Dates.h"
#include "store/FormatFrancais.h"

namespace corvane::app {

ModeleVersementsPoleEmploi::ModeleVersementsPoleEmploi(QObject* parent) : QAbstractTableModel(parent) {}

void ModeleVersementsPoleEmploi::setTable(const Table& table)
{
    beginResetModel();
    m_table = table;
    m_id = m_table.colonne(QStringLiteral("Id"));
    m_date = m_table.colonne(QStringLiteral("Date"));
    m_dateSQLite = m_table.colonne(QStringLiteral("Date SQLite"));
    m_montant = m_table.colonne(QStringLiteral("Montant"));
    endResetModel();
}

int ModeleVersementsPoleEmploi::idDeLaLigne(int rangee) const
{
    return rangee < 0 || rangee >= rowCount() ? 0 : m_table.valeur(rangee, m_id).toInt();
}

int ModeleVersementsPoleEmploi::rangeeDeLId(int id) const
{
    for (int r = 0; r < rowCount(); ++r)
        if (idDeLaLigne(r) == id)
            return r;
    return -1;
}

QDate ModeleVersementsPoleEmploi::date(int rangee) const
{
    return Dates::depuisSQLite(m_table.valeur(rangee, m_dateSQLite).toString());
}

double ModeleVersementsPoleEmploi::montant(int rangee) const
{
    return m_table.valeur(rangee, m_montant).toDouble();
}

int ModeleVersementsPoleEmploi::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_table.size());
}

int ModeleVersementsPoleEmploi::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : NombreColonnes;
}

QVariant ModeleVersementsPoleEmploi::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    if (role == Qt::TextAlignmentRole)
        return index.column() == Montant ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
    if (role != Qt::DisplayRole)
        return {};
    if (index.column() == Date)
        return m_table.valeur(index.row(), m_date);
    return enEuros(montant(index.row()));
}

QVariant ModeleVersementsPoleEmploi::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole)
        return section == Montant ? QVariant(Qt::AlignRight | Qt::AlignVCenter)
                                  : QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == Date ? QStringLiteral("Date") : QStringLiteral("Montant");
}

} // namespace corvane::app
