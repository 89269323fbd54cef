#pragma once

#include "store/Document.h"

#include "app/Sections.h"

#include <QPointer>
#include <QSet>
#include <QWidget>

class QVBoxLayout;

namespace corvane::app {

// A page of the main window: its title, and the document it shows. A page reads only
// some tables: when one of them is written it becomes stale, and it reloads when it is
// next shown (at once if it is on screen). A hidden page costs nothing.
class PageSection : public QWidget
{
    Q_OBJECT

public:
    PageSection(Section section, QWidget* parent = nullptr);
    Section section() const { return m_section; }
    // The open document (none: nullptr); the page reloads from it when it is shown.
    void setDocument(Document* document);
    Document* document() const { return m_document; }
    QString cheminDuFichier() const;
    bool estPerimee() const { return m_perimee; }
    // The page has just read again what it wrote itself: the news of that write is not news.
    void ignorerProchainesModifications() { m_ignorer = true; }

protected:
    QVBoxLayout* contenu() const { return m_contenu; }
    // The tables the page shows; a write to any other one leaves it alone.
    virtual QSet<QString> tablesLues() const { return {}; }
    // Reads the document (or clears the page when there is none).
    virtual void recharger() {}
    // What the page shows is out of date for another reason than a write (the day changed).
    void perimer();
    void showEvent(QShowEvent* evenement) override;

private:
    void tablesModifiees(const QSet<QString>& tables);
    void rechargerSiVisible();

    Section m_section;
    QPointer<Document> m_document;
    bool m_perimee = true;
    bool m_ignorer = false;
    QVBoxLayout* m_contenu;
};

} // namespace corvane::app
