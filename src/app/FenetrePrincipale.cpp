#include "app/FenetrePrincipale.h"

#include "app/DialoguesQt.h"
#include "store/Fichiers.h"

#include <QFileInfo>

namespace corvane::app {

FenetrePrincipale::FenetrePrincipale(QWidget* parent) : QMainWindow(parent)
{
    setObjectName(QStringLiteral("fenetrePrincipale"));
    resize(1100, 720);
    m_dialogues = std::make_unique<DialoguesQt>(this);
    majTitre();
}

bool FenetrePrincipale::ouvrirDocument(const QString& chemin)
{
    Fichiers fichiers;
    const QString ouvert = fichiers.ouvertureSQLite(QFileInfo(chemin).absoluteFilePath(), m_document, *m_dialogues);
    if (!fichiers.erreur().isEmpty()) {
        m_dialogues->information(QStringLiteral("Ouverture de fichier"), fichiers.erreur(), QStringLiteral("Fermer"));
        return false;
    }
    m_document = ouvert;
    majTitre();
    return !ouvert.isEmpty();
}

void FenetrePrincipale::majTitre()
{
    setWindowTitle(m_document.isEmpty() ? QStringLiteral("Aucun fichier ouvert...") : QFileInfo(m_document).fileName());
}

} // namespace corvane::app
