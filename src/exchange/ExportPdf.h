#pragma once

#include <QPageLayout>
#include <QString>

class QPagedPaintDevice;
class QTextDocument;

namespace corvane {

class Dialogues;
class Reglages;

// Where exportPDF writes.
enum class DestinationPdf
{
    DossierDeStockage = 0, // the storage folder of the settings ("prefsStockage")
    Choisie = 1,           // a save panel limited to "pdf"
    DossierDuDocument = 2, // the storage folder's sub-folder named after the open document
};

// Paginates a report (see Rapport) into a PDF file or any paged device: A4, 20 points
// of margin on every side, the text fitted to the width, nothing centred, fonts
// embedded. The file is first written as "….temp" beside its final name, then copied
// over the final name; the temporary file never stays behind.
class ExportPdf
{
public:
    // `documentOuvert`: path of the open document ("" when none).
    ExportPdf(Reglages& reglages, Dialogues& dialogues, const QString& documentOuvert);

    // Writes `document` as `nomFichier` (".pdf" added when missing) at the destination
    // and returns the final path. Returns "" when nothing was written: the panel was
    // cancelled, or the user was told why ("Exports PDF").
    QString exportPDF(const QTextDocument& document, const QString& nomFichier, DestinationPdf destination);
    QString exportPDF(const QTextDocument& document, const QString& nomFichier, int destination)
    {
        return exportPDF(document, nomFichier, static_cast<DestinationPdf>(destination));
    }

    // The folder of DossierDuDocument ("" without a storage folder or a document).
    QString dossierDuDocument() const;

    // Writes the PDF at `chemin` through "chemin.temp", replacing an existing file.
    // False with the reason in `erreur` (French) when it could not; no alert.
    // `pages` receives the number of pages written.
    static bool ecrirePdf(const QTextDocument& document, const QString& chemin, QString* erreur = nullptr,
                          int* pages = nullptr);
    // Lays a copy of the document out on the device's pages, with the header of a
    // table repeated at the top of each page it continues on, and paints them, each
    // with its footer: the owner's name (Rapport::titulaire), "Imprimé le" and today's
    // date (Horloge), and "page / pages". The document itself is left untouched.
    // Returns the number of pages painted.
    static int mettreEnPages(const QTextDocument& document, QPagedPaintDevice& appareil);
    // A4 portrait with 20-point margins.
    static QPageLayout miseEnPage();

    static QString titreAlertes();        // "Exports PDF"
    static QString messageSansStockage(); // "Vous n'avez pas encore précisé de dossier de stockage."
    static QString messageSansDocument();

private:
    QString ecrireVers(const QTextDocument& document, const QString& chemin);

    Reglages& m_reglages;
    Dialogues& m_dialogues;
    QString m_documentOuvert;
};

} // namespace corvane
