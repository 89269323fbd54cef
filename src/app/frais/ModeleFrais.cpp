#include "app/frais/ModeleFrais.h"

#include "store/FormatFrancais.h"

#include <QFileInfo>

namespace corvane::app {

namespace {

// The listing key behind each column.
const QStringList& clesColonnes()
{
    static const QStringList cles{"Date", "Categorie", "Montant", "Contrat Lie", "Fichier", "Rembourse", "Note"};
    return cles;
}

} // namespace

ModeleFrais::ModeleFrais(QObject* parent) : QAbstractTableModel(parent) {}

void ModeleFrais::setTable(Table table, const QString& titreMontant)
{
    beginResetModel();
    m_table = std::move(table);
    m_titreMontant = titreMontant;
    m_colonnes.clear();
    for (const QString& cle : clesColonnes())
        m_colonnes << m_table.colonne(cle);
    m_id = m_table.colonne(QStringLiteral("Id Frais"));
    m_unite = m_table.colonne(QStringLiteral("KmOuEuro"));
    endResetModel();
}

QVariant ModeleFrais::valeur(const QVariantList& rangee, int colonne) const
{
    const int c = m_colonnes.value(colonne, -1);
    return c < 0 ? QVariant() : rangee.at(c);
}

int ModeleFrais::idFrais(int rangee) const
{
    if (rangee < 0 || rangee >= m_table.size() || m_id < 0)
        return 0;
    return m_table.rangees.at(rangee).at(m_id).toInt();
}

QString ModeleFrais::fichier(int rangee) const
{
    if (rangee < 0 || rangee >= m_table.size())
        return {};
    return valeur(m_table.rangees.at(rangee), Justificatif).toString();
}

int ModeleFrais::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_table.size());
}

int ModeleFrais::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : NombreColonnes;
}

QVariant ModeleFrais::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_table.size() || index.column() >= NombreColonnes)
        return {};
    const QVariantList& rangee = m_table.rangees.at(index.row());
    const QVariant v = valeur(rangee, index.column());
    if (role == Qt::TextAlignmentRole)
        return index.column() == Montant ? QVariant(int(Qt::AlignRight | Qt::AlignVCenter)) : QVariant();
    // A cut note, or a receipt shown by its name, is read whole in its tooltip.
    if (role == Qt::ToolTipRole && (index.column() == Note || index.column() == Justificatif))
        return v.toString();
    if (role != Qt::DisplayRole)
        return {};
    switch (index.column()) {
    case Montant: {
        const bool km = m_unite >= 0 && rangee.at(m_unite).toString() == QStringLiteral("km");
        return km ? enNombre(v.toDouble()) + QStringLiteral(" km") : enEuros(v.toDouble());
    }
    case Note:
        return v.toString().simplified();
    case Justificatif:
        return v.toString().isEmpty() ? QString() : QFileInfo(v.toString()).fileName();
    case Rembourse:
        return v.toInt() != 0 ? QStringLiteral("Oui") : QString();
    default:
        return v;
    }
}

QVariant ModeleFrais::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    if (section == Montant)
        return m_titreMontant.isEmpty() ? QStringLiteral("Montant") : m_titreMontant;
    static const QStringList titres{"Date", "Catégorie", "Montant", "Contrat lié", "Justificatif", "Remboursé", "Note"};
    return titres.value(section);
}

} // namespace corvane::app
