#include "app/csv/ModeleGrilleCsv.h"

namespace corvane::app {

void ModeleGrilleCsv::setLecture(LectureCsv lecture)
{
    beginResetModel();
    m_lecture = std::move(lecture);
    m_entetes = m_entetes.mid(0, m_lecture.colonnes.size());
    while (m_entetes.size() < m_lecture.colonnes.size())
        m_entetes << ImportCsv::nePasImporter();
    endResetModel();
}

void ModeleGrilleCsv::setEntete(int colonne, const QString& entete)
{
    if (colonne < 0 || colonne >= m_entetes.size() || !ImportCsv::entetes().contains(entete))
        return;
    m_entetes[colonne] = entete;
    emit headerDataChanged(Qt::Horizontal, colonne, colonne);
}

int ModeleGrilleCsv::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_lecture.rangees.size());
}

int ModeleGrilleCsv::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_lecture.colonnes.size());
}

QVariant ModeleGrilleCsv::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    return m_lecture.rangees.at(index.row()).value(m_lecture.colonnes.at(index.column())).toString();
}

QVariant ModeleGrilleCsv::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical)
        return role == Qt::DisplayRole ? QVariant(section + 1) : QVariant();
    if (section < 0 || section >= m_entetes.size())
        return {};
    if (role == Qt::DisplayRole)
        return m_entetes.at(section) + QLatin1Char('\n') + m_lecture.titres.at(section);
    if (role == Qt::ToolTipRole)
        return QStringLiteral("Cliquez pour choisir ce que contient la colonne « %1 »")
            .arg(m_lecture.titres.at(section));
    return {};
}

} // namespace corvane::app
