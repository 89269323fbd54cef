#include "app/contrats/ModeleTableContrats.h"

#include "store/Dates.h"
#include "store/FormatFrancais.h"

namespace corvane::app {

ModeleTableContrats::ModeleTableContrats(QObject* parent) : QAbstractTableModel(parent) {}

void ModeleTableContrats::setLignes(const Lignes& lignes, const QMap<int, QString>& types)
{
    beginResetModel();
    m_lignes = lignes;
    m_types = types;
    endResetModel();
}

int ModeleTableContrats::idContrat(int rangee) const
{
    return m_lignes.value(rangee).value(QStringLiteral("Id Contrat")).toInt();
}

int ModeleTableContrats::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_lignes.size());
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

bool ModeleTableContrats::estGroupee(const Ligne& ligne)
{
    const QDate debut = Dates::depuisSQLite(ligne.value(QStringLiteral("Date Debut SQLite")).toString());
    const QDate fin = Dates::depuisSQLite(ligne.value(QStringLiteral("Date Fin SQLite")).toString());
    return debut.isValid() && fin.isValid() && debut.daysTo(fin) + 1 >= 5;
}

QVariant ModeleTableContrats::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_lignes.size())
        return {};
    const Ligne& l = m_lignes.at(index.row());
    const QString cle = cleCoche(index.column());
    if (!cle.isEmpty()) {
        if (role == Qt::CheckStateRole)
            return l.value(cle).toInt() != 0 ? Qt::Checked : Qt::Unchecked;
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
    if (role != Qt::DisplayRole)
        return {};
    switch (index.column()) {
    case Debut:
        return l.value(QStringLiteral("Date Debut"));
    case Fin:
        return l.value(QStringLiteral("Date Fin"));
    case Employeur:
        return l.value(QStringLiteral("Employeur"));
    case Emploi:
        return l.value(QStringLiteral("Emploi"));
    case Type:
        return m_types.value(l.value(QStringLiteral("Type")).toInt());
    case Jours:
        return l.value(QStringLiteral("Jours"));
    case Heures:
        return l.value(QStringLiteral("Heures"));
    case Brut:
        return enEuros(l.value(QStringLiteral("Salaire Brut")).toDouble());
    case Net:
        return enEuros(l.value(QStringLiteral("Salaire Net")).toDouble());
    case Lieu:
        return l.value(QStringLiteral("Lieu"));
    case Fonction:
        return l.value(QStringLiteral("Fonction"));
    case Note:
        return l.value(QStringLiteral("Note")).toString().simplified();
    default:
        return {};
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

bool ModeleTableContrats::setData(const QModelIndex& index, const QVariant& valeur, int role)
{
    const QString cle = cleCoche(index.column());
    if (role != Qt::CheckStateRole || cle.isEmpty() || index.row() >= m_lignes.size())
        return false;
    Ligne& l = m_lignes[index.row()];
    l.insert(cle, valeur.toInt() == Qt::Checked ? 1 : 0);
    emit dataChanged(index, index, {Qt::CheckStateRole});
    emit cochesModifiees(l.value(QStringLiteral("Id Contrat")).toInt(), l.value(QStringLiteral("Effectue")).toInt(),
                         l.value(QStringLiteral("Paye")).toInt(), l.value(QStringLiteral("Conges")).toInt(),
                         l.value(QStringLiteral("AEM - FP")).toInt());
    return true;
}

} // namespace corvane::app
