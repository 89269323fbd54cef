#include "app/contrats/ModeleTableContrats.h"

#include "store/Dates.h"
#include "store/FormatFrancais.h"

namespace corvane::app {

ModeleTableContrats::ModeleTableContrats(QObject* parent) : QAbstractTableModel(parent) {}

namespace {

// The listing key behind each column ("" for the type, shown by its label).
const QStringList& clesColonnes()
{
    static const QStringList cles{"Date Debut", "Date Fin",     "Employeur",   "Emploi",   "Type", "Jours",
                                  "Heures",     "Salaire Brut", "Salaire Net", "Effectue", "Paye", "Conges",
                                  "AEM - FP",   "Lieu",         "Fonction",    "Note"};
    return cles;
}

} // namespace

void ModeleTableContrats::setTable(Table table, const QMap<int, QString>& types)
{
    beginResetModel();
    m_table = std::move(table);
    m_types = types;
    m_colonnes.clear();
    for (const QString& cle : clesColonnes())
        m_colonnes << m_table.colonne(cle);
    m_id = m_table.colonne(QStringLiteral("Id Contrat"));
    m_debutSQLite = m_table.colonne(QStringLiteral("Date Debut SQLite"));
    m_finSQLite = m_table.colonne(QStringLiteral("Date Fin SQLite"));
    endResetModel();
}

QVariant ModeleTableContrats::valeur(const QVariantList& rangee, int colonneListe) const
{
    return colonneListe < 0 ? QVariant() : rangee.at(colonneListe);
}

int ModeleTableContrats::idContrat(int rangee) const
{
    if (rangee < 0 || rangee >= m_table.size())
        return 0;
    return valeur(m_table.rangees.at(rangee), m_id).toInt();
}

int ModeleTableContrats::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_table.size());
}

int ModeleTableContrats::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : NombreColonnes;
}

QString ModeleTableContrats::cleCoche(int colonne)
{
    switch (colonne) {
    case Effectue:
        return QStringLiteral("Effectue");
    case Paye:
        return QStringLiteral("Paye");
    case Conges:
        return QStringLiteral("Conges");
    case AemFp:
        return QStringLiteral("AEM - FP");
    default:
        return {};
    }
}

bool ModeleTableContrats::estGroupee(const QVariantList& rangee) const
{
    const QDate debut = Dates::depuisSQLite(valeur(rangee, m_debutSQLite).toString());
    const QDate fin = Dates::depuisSQLite(valeur(rangee, m_finSQLite).toString());
    return debut.isValid() && fin.isValid() && debut.daysTo(fin) + 1 >= 5;
}

QVariant ModeleTableContrats::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_table.size() || index.column() >= NombreColonnes)
        return {};
    const QVariantList& l = m_table.rangees.at(index.row());
    const QVariant v = valeur(l, m_colonnes.at(index.column()));
    if (!cleCoche(index.column()).isEmpty()) {
        if (role == Qt::CheckStateRole)
            return v.toInt() != 0 ? Qt::Checked : Qt::Unchecked;
        return {};
    }
    if (role == Qt::ForegroundRole && (index.column() == Heures || index.column() == Jours) && estGroupee(l) &&
        m_couleurGroupee.isValid())
        return m_couleurGroupee;
    if (role == Qt::TextAlignmentRole) {
        if (index.column() == Jours || index.column() == Heures || index.column() == Brut || index.column() == Net)
            return int(Qt::AlignRight | Qt::AlignVCenter);
        return {};
    }
    if (role == Qt::ToolTipRole && index.column() == Heures && estGroupee(l))
        return QStringLiteral("Période groupée (cinq jours ou plus)");
    // A cut text is read whole in its tooltip.
    if (role == Qt::ToolTipRole && (index.column() == Employeur || index.column() == Lieu || index.column() == Note))
        return data(index, Qt::DisplayRole);
    if (role != Qt::DisplayRole)
        return {};
    switch (index.column()) {
    case Type:
        return m_types.value(v.toInt());
    case Brut:
    case Net:
        return enEuros(v.toDouble());
    case Note:
        return v.toString().simplified();
    default:
        return v;
    }
}

QVariant ModeleTableContrats::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    static const QStringList titres{"Début",    "Fin",  "Employeur", "Emploi",   "Type", "Jours",
                                    "Heures",   "Brut", "Net",       "Effectué", "Payé", "Congés",
                                    "AEM - FP", "Lieu", "Fonction",  "Note"};
    return titres.value(section);
}

Qt::ItemFlags ModeleTableContrats::flags(const QModelIndex& index) const
{
    Qt::ItemFlags drapeaux = QAbstractTableModel::flags(index);
    if (!cleCoche(index.column()).isEmpty())
        drapeaux |= Qt::ItemIsUserCheckable;
    return drapeaux;
}

bool ModeleTableContrats::setData(const QModelIndex& index, const QVariant& nouvelle, int role)
{
    if (role != Qt::CheckStateRole || cleCoche(index.column()).isEmpty() || index.row() >= m_table.size() ||
        m_colonnes.at(index.column()) < 0)
        return false;
    QVariantList& l = m_table.rangees[index.row()];
    l[m_colonnes.at(index.column())] = nouvelle.toInt() == Qt::Checked ? 1 : 0;
    emit dataChanged(index, index, {Qt::CheckStateRole});
    const auto coche = [&](int colonne) { return valeur(l, m_colonnes.at(colonne)).toInt(); };
    emit cochesModifiees(valeur(l, m_id).toInt(), coche(Effectue), coche(Paye), coche(Conges), coche(AemFp));
    return true;
}

} // namespace corvane::app
