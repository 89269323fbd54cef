#pragma once

#include "store/BaseDeDonnees.h"

#include <QAbstractTableModel>
#include <QColor>
#include <QList>

namespace corvane::app {

// The dashboard's list: the done contracts and sickness periods of the period, then the
// "Totaux" row in bold. Sickness periods are drawn in their colour, negative amounts in
// theirs; "Payé" and "GUSO" show a tick.
class ModeleActivite : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Colonne
    {
        Debut,
        Fin,
        Type,
        Note,
        Jours,
        Heures,
        Brut,
        NetImposable,
        Net,
        Paye,
        Guso,
        NombreColonnes
    };

    explicit ModeleActivite(QObject* parent = nullptr);

    // `liste` as TableauDeBord_v4::listeContrats gives it, `arrets` telling its sickness rows.
    void setListe(Table liste, QList<bool> arrets);
    void setCouleurs(const QColor& arrets, const QColor& negatifs);
    const Table& liste() const { return m_liste; }
    bool estArret(int rangee) const { return m_arrets.value(rangee); }
    bool estTotal(int rangee) const { return rangee == rowCount() - 1 && rangee >= 0; }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    Table m_liste;
    QList<bool> m_arrets;
    QList<int> m_colonnes; // the listing's column behind each of ours
    QColor m_couleurArrets;
    QColor m_couleurNegatifs;
};

} // namespace corvane::app
