#pragma once

#include "exchange/ImportCsv.h"

#include <QAbstractTableModel>

namespace corvane::app {

// The import grid: the rows read from the file, and each column's header, the employer's field it
// goes to ("- Ne pas importer -" until the user chooses). A header shows that choice above the
// column's title.
class ModeleGrilleCsv : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    // A new reading; the columns it still has keep their headers.
    void setLecture(LectureCsv lecture);
    const LectureCsv& lecture() const { return m_lecture; }
    // One per column, in the grid's order.
    const QStringList& entetes() const { return m_entetes; }
    void setEntete(int colonne, const QString& entete);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    LectureCsv m_lecture;
    QStringList m_entetes;
};

} // namespace corvane::app
