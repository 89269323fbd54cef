#include "app/kit/ChampDate.h"

#include "store/SaisieFrancaise.h"

#include <QCalendarWidget>
#include <QLocale>

namespace corvane::app {

ChampDate::ChampDate(QWidget* parent) : QDateEdit(parent)
{
    const QLocale francais(QLocale::French, QLocale::France);
    setLocale(francais);
    setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
    setCalendarPopup(true);
    setDateRange(Limites::premierJour(), Limites::dernierJour());
    calendarWidget()->setLocale(francais);
    calendarWidget()->setFirstDayOfWeek(Qt::Monday);
    setMaximumWidth(160);
}

bool ChampDate::focusNextPrevChild(bool suivant)
{
    // A date edit would move Tab from section to section: three stops for one field.
    return QWidget::focusNextPrevChild(suivant);
}

} // namespace corvane::app
