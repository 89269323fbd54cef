#pragma once

#include <QDialog>

namespace corvane::app {

// The user guide (docs/guide/guide.html, built into the program), in a window of its own
// that stays open beside the main one.
class FenetreGuide : public QDialog
{
    Q_OBJECT

public:
    explicit FenetreGuide(QWidget* parent = nullptr);
};

} // namespace corvane::app
