#include "app/employeurs/ModeleEmployeurs.h"

#include "records/Employeurs.h"

namespace corvane::app {

namespace {

// The display key shown in each column.
QString cle(int colonne)
{
    switch (colonne) {
    case ModeleEmployeurs::Conventionne:
        return QStringLiteral("Conventionne");
    case ModeleEmployeurs::Enseigne:
        return QStringLiteral("Enseigne");
    case ModeleEmployeurs::CodePostal:
        return QStringLiteral("Code Postal");
    case ModeleEmployeurs::Commune:
        return QStringLiteral("Commune");
    case ModeleEmployeurs::Interlocuteur:
        return QStringLiteral("Interlocuteur");
    case ModeleEmployeurs::Telephone:
        return QStringLiteral("Telephone");
    default:
        return QStringLiteral("Email");
    }
}

} // namespace

ModeleEmployeurs::ModeleEmployeurs(QObject* parent) : QAbstractTableModel(parent) {}

void ModeleEmployeurs::setEmployeurs(Employeurs* employeurs)
{
    m_employeurs = employeurs;
    recharger();
}

void ModeleEmployeurs::recharger()
{
    beginResetModel();
    m_table = m_employeurs ? m_employeurs->listeLesEmployeurs() : Table();
    m_colonnes.clear();
    for (int colonne = 0; colonne < NombreColonnes; ++colonne)
        m_colonnes << m_table.colonne(cle(colonne));
    m_id = m_table.colonne(QStringLiteral("Id"));
    endResetModel();
}

QVariant ModeleEmployeurs::valeur(int rangee, int colonne) const
{
    return colonne < 0 || rangee < 0 || rangee >= m_table.size() ? QVariant() : m_table.rangees.at(rangee).at(colonne);
}

int ModeleEmployeurs::idDeLaLigne(int rangee) const
{
    return valeur(rangee, m_id).toInt();
}

int ModeleEmployeurs::rangeeDeLId(int id) const
{
    for (int i = 0; i < m_table.size(); ++i) {
        if (valeur(i, m_id).toInt() == id)
            return i;
    }
    return -1;
}

int ModeleEmployeurs::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_table.size());
}

int ModeleEmployeurs::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : NombreColonnes;
}

QVariant ModeleEmployeurs::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_table.size() || index.column() >= NombreColonnes)
        return {};
    const QVariant v = valeur(index.row(), m_colonnes.at(index.column()));
    if (index.column() == Conventionne) {
        if (role == Qt::CheckStateRole)
            return v.toInt() != 0 ? Qt::Checked : Qt::Unchecked;
        if (role == Qt::ToolTipRole)
            return QStringLiteral("Employeur conventionné");
        return {};
    }
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return v.toString();
    return {};
}

QVariant ModeleEmployeurs::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    static const QStringList titres{QStringLiteral("Conv."),
                                    QStringLiteral("Enseigne"),
                                    QStringLiteral("Code postal"),
                                    QStringLiteral("Commune"),
                                    QStringLiteral("Interlocuteur"),
                                    QStringLiteral("Téléphone"),
                                    QStringLiteral("Adresse électronique")};
    return titres.value(section);
}

Qt::ItemFlags ModeleEmployeurs::flags(const QModelIndex& index) const
{
    Qt::ItemFlags f = QAbstractTableModel::flags(index);
    if (index.column() == Conventionne)
        f |= Qt::ItemIsUserCheckable;
    return f;
}

bool ModeleEmployeurs::setData(const QModelIndex& index, const QVariant& valeur, int role)
{
    if (!m_employeurs || index.column() != Conventionne || role != Qt::CheckStateRole)
        return false;
    const bool coche = valeur.toInt() == Qt::Checked;
    const int id = idDeLaLigne(index.row());
    if (!m_employeurs->enregistreLesCochesPourId(id, coche))
        return false;
    if (const int colonne = m_colonnes.at(Conventionne); colonne >= 0)
        m_table.rangees[index.row()][colonne] = coche ? 1 : 0;
    emit dataChanged(index, index, {Qt::CheckStateRole});
    return true;
}

} // namespace corvane::app
