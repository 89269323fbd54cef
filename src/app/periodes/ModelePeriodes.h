#pragma once

#include "store/BaseDeDonnees.h"

#include <QAbstractTableModel>

namespace corvane {
class Periodes;
}

namespace corvane::app {

// The periods, newest first, with a box marking the active one. Checking another
// period's box asks for its activation; clearing the active one is refused through
// activationDemandee / desactivationRefusee, which the window answers.
class ModelePeriodes : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Colonne
    {
        Active,
        Libelle,
        Debut,
        Fin,
        Conges,
        Franchise,
        Attente,
        Notes,
        NombreColonnes
    };

    explicit ModelePeriodes(QObject* parent = nullptr);

    void setPeriodes(Periodes* periodes);
    void recharger();
    const Ligne& ligne(int rangee) const { return m_lignes.at(rangee); }
    int idDeLaLigne(int rangee) const;
    int rangeeDeLId(int id) const;
    int idActif() const { return m_idActif; }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& valeur, int role = Qt::EditRole) override;

signals:
    void activationDemandee(int id);
    void desactivationDemandee(int id);

private:
    Periodes* m_periodes = nullptr;
    Lignes m_lignes;
    int m_idActif = 0;
};

} // namespace corvane::app
