#pragma once

#include "app/kit/ModeleTableau.h"

#include <QAbstractItemModel>
#include <QList>

namespace corvane::app {

// The mime type of employees dragged from their list: their ids joined by ",".
inline const QString kMimeEmployes = QStringLiteral("application/x-corvane-employes");

// The list of every employee, whose rows are dragged onto the structures' outline.
class ModeleEmployes : public ModeleTableau
{
    Q_OBJECT

public:
    explicit ModeleEmployes(QObject* parent = nullptr);

    int idEmploye(int rangee) const;
    int rangeeDe(int id) const;

    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    Qt::DropActions supportedDragActions() const override { return Qt::CopyAction; }
};

// The outline of the structures, each with its employees under it. Employees dropped on a
// structure (or on one of its employees) are handed to the tab, which attaches them; a
// structure's name is edited in place.
class ModeleStructures : public QAbstractItemModel
{
    Q_OBJECT

public:
    explicit ModeleStructures(QObject* parent = nullptr);

    // The structures ("id", "nom", "employes") and the employees ("Id", "Prénom", "Nom") that
    // give the names under them.
    void charger(const Table& structures, const Table& employes);

    // The structure of a row, or of the employee row's parent; 0 for none.
    int structureId(const QModelIndex& index) const;
    // The employee of a child row; 0 for a structure row.
    int employeId(const QModelIndex& index) const;
    QModelIndex indexStructure(int id) const;
    QModelIndex indexEmploye(int structureId, int employeId) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

    QStringList mimeTypes() const override;
    Qt::DropActions supportedDropActions() const override { return Qt::CopyAction; }
    bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                         const QModelIndex& parent) const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

signals:
    // Employees dropped on a structure: the tab attaches them (and reads the outline again).
    void rattachementDemande(int structureId, const QList<int>& employes);
    // A structure's name edited in place.
    void renommageDemande(int structureId, const QString& nom);

private:
    struct Membre
    {
        int id = 0;
        QString nom;
    };
    struct Structure
    {
        int id = 0;
        QString nom;
        QList<Membre> employes;
    };
    // The structure a drop lands on: the row dropped on, or the parent of the employee dropped on.
    int cibleDuDepot(const QModelIndex& parent) const;

    QList<Structure> m_structures;
};

} // namespace corvane::app
