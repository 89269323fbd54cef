#pragma once

#include "app/Sections.h"

#include <QWidget>

class QVBoxLayout;

namespace corvane::app {

// A page of the main window: its title, and the document it shows.
class PageSection : public QWidget
{
    Q_OBJECT

public:
    PageSection(Section section, QWidget* parent = nullptr);
    Section section() const { return m_section; }
    // Every page is told which document is open ("" when none) and reloads from it.
    virtual void setFile(const QString& chemin);
    const QString& cheminDuFichier() const { return m_chemin; }

protected:
    QVBoxLayout* contenu() const { return m_contenu; }

private:
    Section m_section;
    QString m_chemin;
    QVBoxLayout* m_contenu;
};

// A section whose screens are not part of this version yet: its title and a plain note.
class PageAVenir : public PageSection
{
    Q_OBJECT

public:
    PageAVenir(Section section, QWidget* parent = nullptr);
};

} // namespace corvane::app
