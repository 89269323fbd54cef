#include "app/MemoireColonnes.h"

#include <QHeaderView>
#include <QTableView>

#include <memory>

namespace corvane::app {

namespace {

constexpr int kLargeurMaximale = 280;
constexpr int kLignesMesurees = 300;

} // namespace

void ajusterColonnes(QTableView* vue)
{
    QHeaderView* entete = vue->horizontalHeader();
    entete->setResizeContentsPrecision(kLignesMesurees);
    const int derniere = entete->logicalIndex(entete->count() - 1);
    for (int colonne = 0; colonne < entete->count(); ++colonne) {
        if (vue->isColumnHidden(colonne) || (colonne == derniere && entete->stretchLastSection()) ||
            entete->sectionResizeMode(colonne) == QHeaderView::Stretch)
            continue;
        vue->resizeColumnToContents(colonne);
        if (vue->columnWidth(colonne) > kLargeurMaximale)
            vue->setColumnWidth(colonne, kLargeurMaximale);
    }
}

void memoriserColonnes(QTableView* vue, Reglages& reglages, Reglages::Cle cle)
{
    QHeaderView* entete = vue->horizontalHeader();
    const QByteArray etat = reglages.valeur(cle).toByteArray();
    // Our own fitting is not the user's choice and is not written.
    auto ajustement = std::make_shared<bool>(false);
    if ((etat.isEmpty() || !entete->restoreState(etat)) && vue->model()) {
        auto ajuster = [vue, ajustement, &reglages, cle] {
            if (!reglages.valeur(cle).toByteArray().isEmpty())
                return;
            *ajustement = true;
            ajusterColonnes(vue);
            *ajustement = false;
        };
        // Tied to the header, which goes first when the list is destroyed and its model cleared.
        QObject::connect(vue->model(), &QAbstractItemModel::modelReset, entete, ajuster);
        QObject::connect(vue->model(), &QAbstractItemModel::layoutChanged, entete, ajuster);
        ajuster();
    }
    auto enregistrer = [entete, ajustement, &reglages, cle] {
        if (!*ajustement)
            reglages.ecrire(cle, entete->saveState());
    };
    // A stretched column (the last one, or one set to stretch) follows the window, not the user.
    QObject::connect(entete, &QHeaderView::sectionResized, vue, [entete, enregistrer](int colonne) {
        const bool suitLaFenetre =
            entete->sectionResizeMode(colonne) == QHeaderView::Stretch ||
            (entete->stretchLastSection() && entete->visualIndex(colonne) == entete->count() - 1);
        if (!suitLaFenetre)
            enregistrer();
    });
    QObject::connect(entete, &QHeaderView::sectionMoved, vue, enregistrer);
    QObject::connect(entete, &QHeaderView::sortIndicatorChanged, vue, enregistrer);
}

} // namespace corvane::app
