#include "exchange/ExportPdf.h"

#include "store/Dialogues.h"
#include "store/Reglages.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPdfWriter>
#include <QScopeGuard>
#include <QStandardPaths>
#include <QTextDocument>

namespace corvane {

namespace {

const QString extensionPdf = QStringLiteral(".pdf");

// The final file name: no folder separators or characters other systems refuse, and
// always ".pdf", so that the file opens in a viewer.
QString nomPdf(const QString& nom)
{
    QString propre = nom.trimmed();
    for (const QChar interdit : QStringLiteral("/\\:*?\"<>|"))
        propre.replace(interdit, QLatin1Char('-'));
    if (propre.isEmpty())
        propre = QStringLiteral("Rapport");
    if (!propre.endsWith(extensionPdf, Qt::CaseInsensitive))
        propre += extensionPdf;
    return propre;
}

} // namespace

ExportPdf::ExportPdf(Reglages& reglages, Dialogues& dialogues, const QString& documentOuvert)
    : m_reglages(reglages), m_dialogues(dialogues), m_documentOuvert(documentOuvert)
{
}

QString ExportPdf::titreAlertes()
{
    return QStringLiteral("Exports PDF");
}

QString ExportPdf::messageSansStockage()
{
    return QStringLiteral("Vous n'avez pas encore précisé de dossier de stockage.");
}

QString ExportPdf::messageSansDocument()
{
    return QStringLiteral("Avant toute nouvelle opération, il est nécessaire de créer un nouveau fichier, ou d'en "
                          "ouvrir un.");
}

QPageLayout ExportPdf::miseEnPage()
{
    return QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(20, 20, 20, 20), QPageLayout::Point);
}

QString ExportPdf::dossierDuDocument() const
{
    const QString stockage = m_reglages.texte(Reglages::Cle::PrefsStockage);
    if (stockage.isEmpty() || m_documentOuvert.isEmpty())
        return {};
    return QStringLiteral("%1/%2").arg(stockage, QFileInfo(m_documentOuvert).completeBaseName());
}

QString ExportPdf::exportPDF(const QTextDocument& document, const QString& nomFichier, DestinationPdf destination)
{
    const QString fermer = QStringLiteral("Fermer");
    if (m_documentOuvert.isEmpty()) {
        m_dialogues.information(titreAlertes(), messageSansDocument(), fermer);
        return {};
    }
    const QString stockage = m_reglages.texte(Reglages::Cle::PrefsStockage);
    const QString nom = nomPdf(nomFichier);

    QString dossier;
    QString chemin;
    switch (destination) {
    case DestinationPdf::Choisie: {
        // The panel may start elsewhere: the user chooses the folder anyway.
        const QString depart =
            stockage.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) : stockage;
        chemin = m_dialogues.choisirFichierAEnregistrer(QStringLiteral("Enregistrer le PDF"), depart,
                                                        nom.chopped(extensionPdf.size()), QStringLiteral("pdf"));
        if (chemin.isEmpty())
            return {};
        if (!chemin.endsWith(extensionPdf, Qt::CaseInsensitive))
            chemin += extensionPdf;
        return ecrireVers(document, chemin);
    }
    case DestinationPdf::DossierDuDocument:
        dossier = dossierDuDocument();
        break;
    case DestinationPdf::DossierDeStockage:
    default:
        dossier = stockage;
        break;
    }
    if (stockage.isEmpty()) {
        m_dialogues.information(titreAlertes(), messageSansStockage(), fermer);
        return {};
    }
    if (!QFileInfo(dossier).isDir() && !QDir().mkpath(dossier)) {
        m_dialogues.information(
            titreAlertes(),
            QStringLiteral("Le dossier « %1 » n'a pas pu être créé.").arg(QDir::toNativeSeparators(dossier)), fermer);
        return {};
    }
    chemin = QStringLiteral("%1/%2").arg(dossier, nom);
    return ecrireVers(document, chemin);
}

QString ExportPdf::ecrireVers(const QTextDocument& document, const QString& chemin)
{
    QString erreur;
    if (ecrirePdf(document, chemin, &erreur))
        return chemin;
    m_dialogues.information(titreAlertes(),
                            QStringLiteral("Le fichier PDF n'a pas pu être enregistré :\n%1\n\n%2")
                                .arg(QDir::toNativeSeparators(chemin), erreur),
                            QStringLiteral("Fermer"));
    return {};
}

bool ExportPdf::ecrirePdf(const QTextDocument& document, const QString& chemin, QString* erreur, int* pages)
{
    const auto echec = [erreur](const QString& raison) {
        if (erreur)
            *erreur = raison;
        return false;
    };
    const QString temporaire = chemin + QStringLiteral(".temp");
    QFile fichier(temporaire);
    if (!fichier.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return echec(QStringLiteral("Le fichier temporaire ne peut pas être créé (%1).").arg(fichier.errorString()));
    // Whatever happens next, the temporary file goes.
    const auto menage = qScopeGuard([&fichier] {
        fichier.close();
        fichier.remove();
    });
    {
        QPdfWriter pdf(&fichier);
        pdf.setPageLayout(miseEnPage());
        pdf.setCreator(QStringLiteral("Corvane"));
        // The report's name; the file's when the report has none.
        const QString titre = document.metaInformation(QTextDocument::DocumentTitle);
        pdf.setTitle(titre.isEmpty() ? QFileInfo(chemin).completeBaseName() : titre);
        const int peintes = mettreEnPages(document, pdf);
        if (pages)
            *pages = peintes;
    }
    if (!fichier.flush() || fichier.error() != QFileDevice::NoError || fichier.size() == 0)
        return echec(QStringLiteral("Le PDF n'a pas pu être écrit (%1).").arg(fichier.errorString()));
    fichier.close();

    const QFileInfo final(chemin);
    if (final.isDir())
        return echec(QStringLiteral("Un dossier porte déjà ce nom."));
    if ((final.exists() || final.isSymLink()) && !QFile::remove(chemin))
        return echec(QStringLiteral("Le fichier existant ne peut pas être remplacé."));
    if (!fichier.copy(chemin))
        return echec(QStringLiteral("La copie a échoué (%1).").arg(fichier.errorString()));
    return true;
}

} // namespace corvane
