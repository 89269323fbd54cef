#pragma once

#include "store/Dialogues.h"

#include <QMainWindow>
#include <memory>

namespace corvane::app {

// The main window. For now it opens the document it is given and shows its name.
class FenetrePrincipale : public QMainWindow
{
    Q_OBJECT

public:
    explicit FenetrePrincipale(QWidget* parent = nullptr);

    // Opens a document through the version check, conversion and upgrade pass.
    // An error is reported in a message box; the open document stays as it was.
    bool ouvrirDocument(const QString& chemin);
    QString documentOuvert() const { return m_document; }
    // Questions and messages go through this; tests replace it with scripted answers.
    void setDialogues(std::unique_ptr<Dialogues> dialogues) { m_dialogues = std::move(dialogues); }

private:
    void majTitre();

    QString m_document;
    std::unique_ptr<Dialogues> m_dialogues;
};

} // namespace corvane::app
