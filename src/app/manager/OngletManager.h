#pragma once

#include <QSet>
#include <QString>
#include <QWidget>

namespace corvane {
class Document;
}

namespace corvane::app {

struct Environnement;

// One tab of the Manager section. The section hands it the open document (nullptr: none)
// and asks it to read again when one of the tables it shows has been written.
class OngletManager : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;
    virtual void setDocument(Document* document) = 0;
    virtual void actualiser() = 0;
    virtual QSet<QString> tablesLues() const = 0;

signals:
    // The tab has written the document and read it again itself.
    void ecrit();
};

} // namespace corvane::app
