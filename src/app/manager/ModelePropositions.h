#pragma once

#include "app/kit/ModeleTableau.h"

#include <QIcon>

namespace corvane::app {

// The propositions' list: a first column showing the status as a small picture (none while the
// proposition is being prepared, its label as tooltip), then the title, organiser, date, place
// and total amount.
class ModelePropositions : public ModeleTableau
{
    Q_OBJECT

public:
    enum ColonneProposition
    {
        Statut,
        Libelle,
        Organisateur,
        Date,
        Commune,
        Montant,
    };

    explicit ModelePropositions(QObject* parent = nullptr);

    // The picture of a status ("ENVOYEE", "ACCEPTEE", …): a coloured disc bearing the status's
    // initial; a null icon for a proposition in preparation.
    static QIcon iconeStatut(int statut);

    int idDeLaRangee(int rangee) const;
    int statutDeLaRangee(int rangee) const;
    int rangeeDeLId(int id) const;

    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
};

} // namespace corvane::app
