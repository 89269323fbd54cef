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
    m_lignes = m_employeurs ? m_employeurs->listeLesEmployeurs() : Lignes();
    endResetModel();
}

int ModeleEmployeurs::idDeLaLigne(int rangee) const
{
    return rangee >= 0 && rangee < m_lignes.size() ? m_lignes.at(rangee).value("Id").toInt() : 0;
}

int ModeleEmployeurs::rangeeDeLId(int id) const
{
    for (int i = 0; i < m_lignes.size(); ++i) {
        if (m_lignes.at(i).value("Id").toInt() == id)
            return i;
    }
    return -1;
}

int ModeleEmployeurs::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_lignes.size());
}

int ModeleEmployeurs::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : NombreColonnes;
}

QVariant ModeleEmployeurs::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_lignes.size())
        return {};
    const Ligne& l = m_lignes.at(index.row());
    if (index.column() == Conventionne) {
        if (role == Qt::CheckStateRole)
            return l.value("Conventionne").toInt() != 0 ? Qt::Checked : Qt::Unchecked;
        if (role == Qt::ToolTipRole)
            return QStringLiteral("Employeur conventionné");
        return {};
    }
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return l.value(cle(index.column())).toString();
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
    m_lignes[index.row()].insert("Conventionne", coche ? 1 : 0);
    emit dataChanged(index, index, {Qt::CheckStateRole});
    return true;
}

} // namespace corvane::app
