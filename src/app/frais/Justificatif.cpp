#include "app/frais/Justificatif.h"

#include "store/Dialogues.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

namespace corvane::app {

bool ouvrirJustificatif(const QString& chemin, Dialogues& dialogues)
{
    const QString fermer = QStringLiteral("Fermer");
    if (chemin.isEmpty())
        return false;
    if (!QFileInfo(chemin).isFile()) {
        dialogues.information(kTitreAlertesFrais,
                              QStringLiteral("Le justificatif « %1 » est introuvable : il a peut-être été déplacé ou "
                                             "supprimé.")
                                  .arg(QDir::toNativeSeparators(chemin)),
                              fermer);
        return false;
    }
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(chemin))) {
        dialogues.information(kTitreAlertesFrais,
                              QStringLiteral("Aucun programme ne peut afficher le justificatif « %1 ».")
                                  .arg(QDir::toNativeSeparators(chemin)),
                              fermer);
        return false;
    }
    return true;
}

} // namespace corvane::app
