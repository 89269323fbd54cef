#include "app/periodes/ModelePeriodes.h"

#include "records/Periodes.h"

namespace corvane::app {

ModelePeriodes::ModelePeriodes(QObject* parent) : QAbstractTableModel(parent) {}

void ModelePeriodes::setPeriodes(Periodes* periodes)
{
    m_periodes = periodes;
    recharger();
}

void ModelePeriodes::recharger()
{
    beginResetModel();
    m_lignes = m_periodes ? m_periodes->listeLesPeriodes() : Lignes();
    m_idActif = m_periodes ? m_periodes->idPeriodeEnCours() : 0;
    endResetModel();
}

int ModelePeriodes::idDeLaLigne(int rangee) const
{
    return rangee >= 0 && rangee < m_lignes.size() ? m_lignes.at(rangee).value("Id").toInt() : 0;
}

int ModelePeriodes::rangeeDeLId(int id) const
{
    for (int i = 0; i < m_lignes.size(); ++i) {
        if (m_lignes.at(i).value("Id").toInt() == id)
            return i;
    }
    return -1;
}

int ModelePeriodes::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_lignes.size());
}

int ModelePeriodes::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : NombreColonnes;
}

QVariant ModelePeriodes::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_lignes.size())
        return {};
    const Ligne& l = m_lignes.at(index.row());
    if (index.column() == Active) {
        if (role == Qt::CheckStateRole)
            return l.value("Id").toInt() == m_idActif ? Qt::Checked : Qt::Unchecked;
        if (role == Qt::ToolTipRole)
            return QStringLiteral("Période en cours");
        return {};
    }
    if (role == Qt::TextAlignmentRole && index.column() >= Conges && index.column() <= Attente)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    switch (index.column()) {
    case Libelle:
        return l.value("Libelle");
    case Debut:
        return l.value("Début");
    case Fin:
        return l.value("Fin");
    case Conges:
        return l.value("Congés");
    case Franchise:
        return l.value("Franchise salaires");
    case Attente:
        return l.value("Délai d'attente");
    default:
        return l.value("Notes");
    }
}

QVariant ModelePeriodes::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    static const QStringList titres{QStringLiteral("Active"),          QStringLiteral("Libellé"),
                                    QStringLiteral("Début"),           QStringLiteral("Fin"),
                                    QStringLiteral("Congés"),          QStringLiteral("Franchise salaires"),
                                    QStringLiteral("Délai d'attente"), QStringLiteral("Notes")};
    return titres.value(section);
}

Qt::ItemFlags ModelePeriodes::flags(const QModelIndex& index) const
{
    Qt::ItemFlags f = QAbstractTableModel::flags(index);
    if (index.column() == Active)
        f |= Qt::ItemIsUserCheckable;
    return f;
}

bool ModelePeriodes::setData(const QModelIndex& index, const QVariant& valeur, int role)
{
    if (index.column() != Active || role != Qt::CheckStateRole)
        return false;
    const int id = idDeLaLigne(index.row());
    // The window decides, and reloads the list.
    if (valeur.toInt() == Qt::Checked)
        emit activationDemandee(id);
    else
        emit desactivationDemandee(id);
    return false;
}

} // namespace corvane::app
