#include "app/manager/ModelesPersonnel.h"

#include "manager/ListesIds.h"

#include <QFont>
#include <QHash>
#include <QMimeData>

namespace corvane::app {

ModeleEmployes::ModeleEmployes(QObject* parent)
    : ModeleTableau({{QStringLiteral("Nom"), QStringLiteral("Nom")},
                     {QStringLiteral("Prénom"), QStringLiteral("Prénom")},
                     {QStringLiteral("Fonction"), QStringLiteral("Fonction")},
                     {QStringLiteral("Ville"), QStringLiteral("Ville")},
                     {QStringLiteral("Naissance"), QStringLiteral("DOB"), Format::DateAffichee}},
                    parent)
{
}

int ModeleEmployes::idEmploye(int rangee) const
{
    if (rangee < 0 || rangee >= table().size())
        return 0;
    return table().valeur(rangee, QStringLiteral("Id")).toInt();
}

int ModeleEmployes::rangeeDe(int id) const
{
    for (int rangee = 0; rangee < table().size(); ++rangee)
        if (idEmploye(rangee) == id)
            return rangee;
    return -1;
}

Qt::ItemFlags ModeleEmployes::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags f = ModeleTableau::flags(index);
    return index.isValid() ? f | Qt::ItemIsDragEnabled : f;
}

QStringList ModeleEmployes::mimeTypes() const
{
    return {kMimeEmployes};
}

QMimeData* ModeleEmployes::mimeData(const QModelIndexList& indexes) const
{
    QString liste;
    for (const QModelIndex& index : indexes)
        if (index.isValid())
            liste = ListesIds::ajoute(liste, idEmploye(index.row()));
    if (liste.isEmpty())
        return nullptr;
    auto* donnees = new QMimeData;
    donnees->setData(kMimeEmployes, liste.toLatin1());
    return donnees;
}

// --- The outline ----------------------------------------------------------------------------------

namespace {

// A structure row carries 0, an employee row its structure's row + 1.
constexpr quintptr kRacine = 0;

} // namespace

ModeleStructures::ModeleStructures(QObject* parent) : QAbstractItemModel(parent) {}

void ModeleStructures::charger(const Table& structures, const Table& employes)
{
    QHash<int, QString> noms;
    for (qsizetype i = 0; i < employes.size(); ++i)
        noms.insert(employes.valeur(i, QStringLiteral("Id")).toInt(),
                    employes.valeur(i, QStringLiteral("Prénom")).toString() + QLatin1Char(' ') +
                        employes.valeur(i, QStringLiteral("Nom")).toString());
    beginResetModel();
    m_structures.clear();
    for (qsizetype i = 0; i < structures.size(); ++i) {
        Structure s{structures.valeur(i, QStringLiteral("id")).toInt(),
                    structures.valeur(i, QStringLiteral("nom")).toString(),
                    {}};
        for (const int id : ListesIds::ids(structures.valeur(i, QStringLiteral("employes")).toString()))
            s.employes.append({id, noms.value(id, QStringLiteral("Employé n° %1").arg(id))});
        m_structures.append(s);
    }
    endResetModel();
}

int ModeleStructures::structureId(const QModelIndex& index) const
{
    if (!index.isValid())
        return 0;
    const int rangee = index.internalId() == kRacine ? index.row() : int(index.internalId()) - 1;
    return rangee < m_structures.size() ? m_structures.at(rangee).id : 0;
}

int ModeleStructures::employeId(const QModelIndex& index) const
{
    if (!index.isValid() || index.internalId() == kRacine)
        return 0;
    const Structure& s = m_structures.at(int(index.internalId()) - 1);
    return index.row() < s.employes.size() ? s.employes.at(index.row()).id : 0;
}

QModelIndex ModeleStructures::indexStructure(int id) const
{
    for (int rangee = 0; rangee < m_structures.size(); ++rangee)
        if (m_structures.at(rangee).id == id)
            return index(rangee, 0);
    return {};
}

QModelIndex ModeleStructures::indexEmploye(int structureId, int employeId) const
{
    const QModelIndex parent = indexStructure(structureId);
    if (!parent.isValid())
        return {};
    const QList<Membre>& employes = m_structures.at(parent.row()).employes;
    for (int rangee = 0; rangee < employes.size(); ++rangee)
        if (employes.at(rangee).id == employeId)
            return index(rangee, 0, parent);
    return {};
}

QModelIndex ModeleStructures::index(int row, int column, const QModelIndex& parent) const
{
    if (column != 0 || row < 0)
        return {};
    if (!parent.isValid())
        return row < m_structures.size() ? createIndex(row, 0, kRacine) : QModelIndex();
    if (parent.internalId() != kRacine || parent.row() >= m_structures.size() ||
        row >= m_structures.at(parent.row()).employes.size())
        return {};
    return createIndex(row, 0, quintptr(parent.row()) + 1);
}

QModelIndex ModeleStructures::parent(const QModelIndex& index) const
{
    if (!index.isValid() || index.internalId() == kRacine)
        return {};
    return createIndex(int(index.internalId()) - 1, 0, kRacine);
}

int ModeleStructures::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return int(m_structures.size());
    if (parent.internalId() != kRacine || parent.column() != 0)
        return 0;
    return int(m_structures.at(parent.row()).employes.size());
}

int ModeleStructures::columnCount(const QModelIndex&) const
{
    return 1;
}

QVariant ModeleStructures::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    if (index.internalId() == kRacine) {
        const Structure& s = m_structures.at(index.row());
        if (role == Qt::DisplayRole)
            return s.employes.isEmpty() ? s.nom : QStringLiteral("%1 (%2)").arg(s.nom).arg(s.employes.size());
        if (role == Qt::EditRole || role == Qt::ToolTipRole)
            return s.nom;
        if (role == Qt::FontRole) {
            QFont police;
            police.setBold(true);
            return police;
        }
        return {};
    }
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return m_structures.at(int(index.internalId()) - 1).employes.at(index.row()).nom;
    return {};
}

QVariant ModeleStructures::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (section != 0 || orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return QStringLiteral("Structures et leurs employés");
}

Qt::ItemFlags ModeleStructures::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags f = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDropEnabled;
    return index.internalId() == kRacine ? f | Qt::ItemIsEditable : f;
}

bool ModeleStructures::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !index.isValid() || index.internalId() != kRacine)
        return false;
    const Structure& s = m_structures.at(index.row());
    if (value.toString() == s.nom)
        return false;
    emit renommageDemande(s.id, value.toString());
    return true;
}

QStringList ModeleStructures::mimeTypes() const
{
    return {kMimeEmployes};
}

int ModeleStructures::cibleDuDepot(const QModelIndex& parent) const
{
    return structureId(parent);
}

bool ModeleStructures::canDropMimeData(const QMimeData* data, Qt::DropAction action, int, int,
                                       const QModelIndex& parent) const
{
    return data && data->hasFormat(kMimeEmployes) && (action == Qt::CopyAction || action == Qt::MoveAction) &&
           cibleDuDepot(parent) > 0;
}

bool ModeleStructures::dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                                    const QModelIndex& parent)
{
    if (!canDropMimeData(data, action, row, column, parent))
        return false;
    const QList<int> employes = ListesIds::ids(QString::fromLatin1(data->data(kMimeEmployes)));
    if (employes.isEmpty())
        return false;
    emit rattachementDemande(cibleDuDepot(parent), employes);
    return true;
}

} // namespace corvane::app
