#include "app/SitesInternet.h"

#include "app/Environnement.h"
#include "store/Dialogues.h"

#include <QDesktopServices>
#include <QUrl>

namespace corvane::app {

const QList<SiteInternet>& sitesInternet()
{
    static const QList<SiteInternet> liste{
        {Reglages::Cle::CongesSiteInternet, QStringLiteral("Congés Spectacles")},
        {Reglages::Cle::AutoEntrepreneurSiteInternet, QStringLiteral("Déclarations d'auto-entrepreneur")},
    };
    return liste;
}

QString refusAdresse(const QString& adresse)
{
    const QUrl url(adresse.trimmed(), QUrl::StrictMode);
    if (adresse.trimmed().isEmpty())
        return QStringLiteral("Indiquez l'adresse du site.");
    if (!url.isValid() || url.host().isEmpty() ||
        (url.scheme() != QStringLiteral("https") && url.scheme() != QStringLiteral("http")))
        return QStringLiteral("« %1 » n'est pas une adresse de site : elle commence par « https:// ».")
            .arg(adresse.trimmed());
    return {};
}

bool ouvrirSite(Environnement& environnement, Reglages::Cle cle, const QString& titre)
{
    const QString adresse = environnement.reglages.texte(cle).trimmed();
    if (const QString refus = refusAdresse(adresse); !refus.isEmpty()) {
        environnement.dialogues.information(
            titre, refus + QStringLiteral(" Corrigez-la dans les préférences, rubrique « Sites internet »."),
            QStringLiteral("Fermer"));
        return false;
    }
    if (QDesktopServices::openUrl(QUrl(adresse)))
        return true;
    environnement.dialogues.information(
        titre, QStringLiteral("Le navigateur n'a pas pu être ouvert sur %1.").arg(adresse), QStringLiteral("Fermer"));
    return false;
}

} // namespace corvane::app
