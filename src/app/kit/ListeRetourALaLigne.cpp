#include "app/kit/ListeRetourALaLigne.h"

#include <QApplication>
#include <QListView>
#include <QStyledItemDelegate>

namespace corvane::app {

namespace {

// A list view asks its rows' size without a width; this one gives the list's, so that the text wraps.
class DelegueRetour : public QStyledItemDelegate
{
public:
    explicit DelegueRetour(QListView* liste) : QStyledItemDelegate(liste), m_liste(liste) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QStyleOptionViewItem opt(option);
        initStyleOption(&opt, index);
        opt.features |= QStyleOptionViewItem::WrapText;
        const int largeur = m_liste->viewport()->width() - 2 * m_liste->spacing();
        opt.rect = QRect(0, 0, qMax(largeur, 80), 1 << 16);
        const QStyle* style = m_liste->style() ? m_liste->style() : QApplication::style();
        QSize taille = style->sizeFromContents(QStyle::CT_ItemViewItem, &opt, QSize(), m_liste);
        taille.setWidth(qMax(largeur, 80));
        return taille;
    }

private:
    QListView* m_liste;
};

} // namespace

void retourALaLigne(QListView* liste)
{
    liste->setWordWrap(true);
    liste->setUniformItemSizes(false);
    liste->setResizeMode(QListView::Adjust);
    liste->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    liste->setSpacing(2);
    liste->setItemDelegate(new DelegueRetour(liste));
}

} // namespace corvane::app
