#include "app/kit/ChampDate.h"

#include "store/SaisieFrancaise.h"

#include "store/FormatFrancais.h"

#include <QCalendarWidget>
#include <QLocale>

namespace corvane::app {

ChampDate::ChampDate(QWidget* parent) : QDateEdit(parent)
{
    setLocale(localeFrancaise());
    setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
    setCalendarPopup(true);
    setDateRange(Limites::premierJour(), Limites::dernierJour());
    calendarWidget()->setLocale(localeFrancaise());
    calendarWidget()->setFirstDayOfWeek(Qt::Monday);
    setMaximumWidth(160);
}

bool ChampDate::focusNextPrevChild(bool suivant)
{
    // A date edit would move Tab from section to section: three stops for one field.
    return QWidget::focusNextPrevChild(suivant);
}

} // namespace corvane::app
