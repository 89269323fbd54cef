#include "app/FenetreGuide.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

namespace corvane::app {

FenetreGuide::FenetreGuide(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("fenetreGuide"));
    setWindowTitle(QStringLiteral("Guide d'utilisation de Corvane"));
    resize(820, 680);

    auto* mise = new QVBoxLayout(this);
    auto* texte = new QTextBrowser(this);
    texte->setObjectName(QStringLiteral("texteGuide"));
    // The guide's own links move within it; a web address goes to the browser.
    texte->setOpenExternalLinks(true);
    texte->setSource(QUrl(QStringLiteral("qrc:/aide/guide.html")));
    mise->addWidget(texte, 1);

    auto* boutons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    boutons->button(QDialogButtonBox::Close)->setText(QStringLiteral("Fermer"));
    connect(boutons, &QDialogButtonBox::rejected, this, &QDialog::close);
    mise->addWidget(boutons);
}

} // namespace corvane::app
