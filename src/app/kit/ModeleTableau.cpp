#include "app/kit/ModeleTableau.h"

#include "store/Dates.h"
#include "store/FormatFrancais.h"

namespace corvane::app {

ModeleTableau::ModeleTableau(QList<Colonne> colonnes, QObject* parent)
    : QAbstractTableModel(parent), m_colonnes(std::move(colonnes))
{
}

void ModeleTableau::setTable(Table table)
{
    beginResetModel();
    m_table = std::move(table);
    m_index.clear();
    for (const Colonne& c : m_colonnes)
        m_index << m_table.colonne(c.cle);
    endResetModel();
}

int ModeleTableau::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_table.size());
}

int ModeleTableau::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_colonnes.size());
}

QString ModeleTableau::texte(int rangee, int colonne) const
{
    if (rangee < 0 || rangee >= m_table.size() || colonne < 0 || colonne >= m_colonnes.size())
        return {};
    const QVariant v = m_table.valeur(rangee, m_index.at(colonne));
    switch (m_colonnes.at(colonne).format) {
    case Format::Entier:
        return enEntier(v.toLongLong());
    case Format::Nombre:
        return enNombre(v.toDouble());
    case Format::Montant:
        return enEuros(v.toDouble());
    case Format::DateSQLite:
        return Dates::versAffichage(Dates::depuisSQLite(v.toString()));
    case Format::Texte:
    case Format::DateAffichee:
        break;
    }
    return v.toString().simplified();
}

QVariant ModeleTableau::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_table.size() || index.column() >= m_colonnes.size())
        return {};
    const Format format = m_colonnes.at(index.column()).format;
    const bool chiffre = format == Format::Entier || format == Format::Nombre || format == Format::Montant;
    switch (role) {
    case Qt::DisplayRole:
        return texte(index.row(), index.column());
    case Qt::ToolTipRole:
        // A cut name is read whole.
        return format == Format::Texte ? QVariant(texte(index.row(), index.column())) : QVariant();
    case Qt::TextAlignmentRole:
        return chiffre ? QVariant(int(Qt::AlignRight | Qt::AlignVCenter)) : QVariant();
    case RoleTri: {
        const QVariant v = m_table.valeur(index.row(), m_index.at(index.column()));
        if (chiffre)
            return v.toDouble();
        if (format == Format::DateSQLite)
            return Dates::depuisSQLite(v.toString());
        if (format == Format::DateAffichee)
            return Dates::depuisAffichage(v.toString());
        return v.toString().simplified().toLower();
    }
    default:
        return {};
    }
}

QVariant ModeleTableau::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= m_colonnes.size())
        return {};
    return m_colonnes.at(section).titre;
}

} // namespace corvane::app

#include <QHeaderView>
#include <QSortFilterProxyModel>
#include <QTableView>

namespace corvane::app {

QTableView* vueTriee(ModeleTableau* modele, QWidget* parent, const QString& nom, int extensible)
{
    auto* tri = new QSortFilterProxyModel(modele);
    tri->setSourceModel(modele);
    tri->setSortRole(ModeleTableau::RoleTri);
    tri->setSortLocaleAware(true);
    auto* vue = new QTableView(parent);
    vue->setObjectName(nom);
    vue->setModel(tri);
    vue->setSelectionBehavior(QAbstractItemView::SelectRows);
    vue->setSelectionMode(QAbstractItemView::ExtendedSelection);
    vue->setEditTriggers(QAbstractItemView::NoEditTriggers);
    vue->setAlternatingRowColors(true);
    vue->setWordWrap(false);
    vue->verticalHeader()->hide();
    vue->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    vue->verticalHeader()->setDefaultSectionSize(vue->fontMetrics().height() + 10);
    vue->setTextElideMode(Qt::ElideRight);
    vue->horizontalHeader()->setStretchLastSection(extensible < 0);
    if (extensible >= 0)
        vue->horizontalHeader()->setSectionResizeMode(extensible, QHeaderView::Stretch);
    vue->horizontalHeader()->setSectionsMovable(true);
    // Unsorted until the user or the remembered header says otherwise: the listing's own order.
    vue->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    vue->setSortingEnabled(true);
    return vue;
}

} // namespace corvane::app
