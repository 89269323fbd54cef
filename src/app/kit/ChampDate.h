#pragma once

#include <QDateEdit>

namespace corvane::app {

// A date typed or picked the French way ("dd/MM/yyyy", calendar popup, weeks from Monday),
// within the records' bounds (1950-01-01 to 2100-12-31 unless set otherwise). Tab leaves
// the field, as in every other field: the day, month and year are reached with the arrow
// keys or by typing on.
class ChampDate : public QDateEdit
{
    Q_OBJECT

public:
    explicit ChampDate(QWidget* parent = nullptr);

    void setBornes(const QDate& premier, const QDate& dernier) { setDateRange(premier, dernier); }

protected:
    bool focusNextPrevChild(bool suivant) override;
};

} // namespace corvane::app
