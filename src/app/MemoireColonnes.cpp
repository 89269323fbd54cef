#include "app/MemoireColonnes.h"

#include <QHeaderView>
#include <QTableView>

namespace corvane::app {

void memoriserColonnes(QTableView* vue, Reglages& reglages, Reglages::Cle cle)
{
    QHeaderView* entete = vue->horizontalHeader();
    const QByteArray etat = reglages.valeur(cle).toByteArray();
    if (!etat.isEmpty())
        entete->restoreState(etat);
    auto enregistrer = [entete, &reglages, cle] { reglages.ecrire(cle, entete->saveState()); };
    QObject::connect(entete, &QHeaderView::sectionResized, vue, enregistrer);
    QObject::connect(entete, &QHeaderView::sectionMoved, vue, enregistrer);
    QObject::connect(entete, &QHeaderView::sortIndicatorChanged, vue, enregistrer);
}

} // namespace corvane::app
