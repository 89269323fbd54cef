#include "app/tableaudebord/ModeleActivite.h"

#include "store/FormatFrancais.h"

#include <QFont>

namespace corvane::app {

namespace {

const QStringList& clesColonnes()
{
    static const QStringList cles{"Date Debut", "Date Fin",      "Type", "Note", "Nombre Jours", "Nombre Heures",
                                  "Bruts",      "Net imposable", "Net",  "Paye", "GUSO"};
    return cles;
}

bool estMontant(int colonne)
{
    return colonne == ModeleActivite::Brut || colonne == ModeleActivite::NetImposable || colonne == ModeleActivite::Net;
}

} // namespace

ModeleActivite::ModeleActivite(QObject* parent) : QAbstractTableModel(parent) {}

void ModeleActivite::setListe(Table liste, QList<bool> arrets)
{
    beginResetModel();
    m_liste = std::move(liste);
    m_arrets = std::move(arrets);
    m_colonnes.clear();
    for (const QString& cle : clesColonnes())
        m_colonnes << m_liste.colonne(cle);
    endResetModel();
}

void ModeleActivite::setCouleurs(const QColor& arrets, const QColor& negatifs)
{
    m_couleurArrets = arrets;
    m_couleurNegatifs = negatifs;
    if (rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, NombreColonnes - 1), {Qt::ForegroundRole});
}

int ModeleActivite::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_liste.size());
}

int ModeleActivite::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : NombreColonnes;
}

QVariant ModeleActivite::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_liste.size() || index.column() >= NombreColonnes)
        return {};
    const int colonne = index.column();
    const QVariant v = m_liste.valeur(index.row(), m_colonnes.at(colonne));
    const bool total = estTotal(index.row());
    switch (role) {
    case Qt::DisplayRole:
        if (estMontant(colonne))
            return enEuros(v.toDouble());
        if (colonne == Jours || colonne == Heures)
            return enNombre(v.toDouble());
        if (colonne == Paye)
            return !total && v.toInt() != 0 ? QStringLiteral("✓") : QString();
        if (colonne == Guso)
            return v.toString() == QStringLiteral("CHECKED_GUSO") ? QStringLiteral("✓") : QString();
        return v.toString().simplified();
    case Qt::TextAlignmentRole:
        if (estMontant(colonne) || colonne == Jours || colonne == Heures)
            return int(Qt::AlignRight | Qt::AlignVCenter);
        if (colonne == Paye || colonne == Guso)
            return int(Qt::AlignCenter);
        return {};
    case Qt::ForegroundRole:
        if (estMontant(colonne) && v.toDouble() < 0 && m_couleurNegatifs.isValid())
            return m_couleurNegatifs;
        if (estArret(index.row()) && m_couleurArrets.isValid())
            return m_couleurArrets;
        return {};
    case Qt::FontRole:
        if (total) {
            QFont gras;
            gras.setBold(true);
            return gras;
        }
        return {};
    case Qt::ToolTipRole:
        if (colonne == Paye && !total)
            return estArret(index.row()) ? (v.toInt() != 0 ? QStringLiteral("Remboursé") : QStringLiteral("En attente"))
                                         : (v.toInt() != 0 ? QStringLiteral("Payé") : QStringLiteral("Non payé"));
        if (colonne == Guso && !v.toString().isEmpty())
            return QStringLiteral("Employeur passant par le Guso");
        if (colonne == Note)
            return v.toString();
        return {};
    default:
        return {};
    }
}

QVariant ModeleActivite::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    static const QStringList titres{
        "Début", "Fin", "Type", "Employeur ou note", "Jours", "Heures", "Brut", "Net imposable", "Net", "Payé", "GUSO"};
    if (role == Qt::DisplayRole)
        return titres.value(section);
    if (role == Qt::ToolTipRole && section == Net)
        return QStringLiteral("Net à payer");
    return {};
}

} // namespace corvane::app
