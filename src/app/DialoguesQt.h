#pragma once

#include "store/Dialogues.h"

class QWidget;

namespace corvane::app {

// The core's questions as message boxes over a window.
class DialoguesQt : public Dialogues
{
public:
    explicit DialoguesQt(QWidget* parent = nullptr) : m_parent(parent) {}
    // Message boxes are centred over this window.
    void setParent(QWidget* parent) { m_parent = parent; }
    QString question(const QString& titre, const QString& message, const QStringList& boutons) override;
    void information(const QString& titre, const QString& message, const QString& bouton) override;
    QString choisirFichierAEnregistrer(const QString& titre, const QString& dossier, const QString& nomPropose,
                                       const QString& extension) override;
    QString choisirFichierAOuvrir(const QString& titre, const QString& dossier, const QStringList& extensions) override;

private:
    QWidget* m_parent;
};

} // namespace corvane::app
