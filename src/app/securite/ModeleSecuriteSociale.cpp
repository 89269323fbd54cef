#include "app/securite/ModeleSecuriteSociale.h"

#include "store/Dates.h"
#include "store/FormatFrancais.h"

namespace corvane::app {

namespace {

// The listing key behind each column.
const QStringList& clesColonnes()
{
    static const QStringList cles{"Date Debut SQLite",
                                  "Date Fin SQLite",
                                  "Type Detail",
                                  "Journees Suspendues",
                                  "Total I.J.",
                                  "Rembourse",
                                  "Remboursement Mutuelle",
                                  "ALD",
                                  "Note"};
    return cles;
}

const QString kOui = QStringLiteral("Oui");

} // namespace

ModeleSecuriteSociale::ModeleSecuriteSociale(QObject* parent) : QAbstractTableModel(parent) {}

void ModeleSecuriteSociale::setTable(Table table)
{
    beginResetModel();
    m_table = std::move(table);
    m_colonnes.clear();
    for (const QString& cle : clesColonnes())
        m_colonnes << m_table.colonne(cle);
    m_id = m_table.colonne(QStringLiteral("Id Securite Sociale"));
    endResetModel();
}

QVariant ModeleSecuriteSociale::valeur(const QVariantList& rangee, int colonne) const
{
    const int c = m_colonnes.value(colonne, -1);
    return c < 0 ? QVariant() : rangee.at(c);
}

int ModeleSecuriteSociale::idPeriode(int rangee) const
{
    if (rangee < 0 || rangee >= m_table.size() || m_id < 0)
        return 0;
    return m_table.rangees.at(rangee).at(m_id).toInt();
}

int ModeleSecuriteSociale::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_table.size());
}

int ModeleSecuriteSociale::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : NombreColonnes;
}

QVariant ModeleSecuriteSociale::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_table.size() || index.column() >= NombreColonnes)
        return {};
    const QVariant v = valeur(m_table.rangees.at(index.row()), index.column());
    if (estCoche(index.column()))
        return role == Qt::CheckStateRole ? QVariant(v.toString() == kOui ? Qt::Checked : Qt::Unchecked) : QVariant();
    if (role == Qt::TextAlignmentRole)
        return index.column() == JoursSuspendus || index.column() == TotalIJ
                   ? QVariant(int(Qt::AlignRight | Qt::AlignVCenter))
                   : QVariant();
    // A cut note is read whole in its tooltip.
    if (role == Qt::ToolTipRole && index.column() == Note)
        return v.toString();
    if (role != Qt::DisplayRole)
        return {};
    switch (index.column()) {
    case Debut:
    case Fin:
        return Dates::versAffichage(Dates::depuisSQLite(v.toString()));
    case TotalIJ:
        return enEuros(v.toDouble());
    case Note:
        return v.toString().simplified();
    default:
        return v;
    }
}

QVariant ModeleSecuriteSociale::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    static const QStringList titres{"Début",    "Fin", "Type", "Jours suspendus", "Total I.J.", "Remboursé",
                                    "Mutuelle", "ALD", "Note"};
    return titres.value(section);
}

Qt::ItemFlags ModeleSecuriteSociale::flags(const QModelIndex& index) const
{
    Qt::ItemFlags drapeaux = QAbstractTableModel::flags(index);
    if (estCoche(index.column()))
        drapeaux |= Qt::ItemIsUserCheckable;
    return drapeaux;
}

bool ModeleSecuriteSociale::setData(const QModelIndex& index, const QVariant& nouvelle, int role)
{
    if (role != Qt::CheckStateRole || !estCoche(index.column()) || index.row() >= m_table.size() ||
        m_colonnes.value(index.column(), -1) < 0)
        return false;
    const bool coche = nouvelle.toInt() == Qt::Checked;
    m_table.rangees[index.row()][m_colonnes.at(index.column())] = coche ? kOui : QStringLiteral("Non");
    emit dataChanged(index, index, {Qt::CheckStateRole});
    emit cocheModifiee(idPeriode(index.row()), index.column(), coche);
    return true;
}

} // namespace corvane::app
