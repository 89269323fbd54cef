#pragma once

#include <QString>
#include <QWidget>

#include <memory>

class QPrinter;
class QTextDocument;

namespace corvane {
class Dialogues;
} // namespace corvane

namespace corvane::app {

// A window showing an exported PDF: the pages one under the other, with page
// navigation and zoom. It needs Qt PDF Widgets; a build without it opens the files in
// the system's viewer instead (see afficherPdf).
class ApercuPdf : public QWidget
{
    Q_OBJECT

public:
    explicit ApercuPdf(const QString& chemin, QWidget* parent = nullptr);
    ~ApercuPdf() override;

    // Whether this build has the viewer.
    static bool disponible();

    QString chemin() const { return m_chemin; }
    // False when the file could not be read (the window then says so).
    bool estCharge() const;
    int nombreDePages() const;
    int pageCourante() const; // from 0
    void allerALaPage(int page);
    void pagePrecedente() { allerALaPage(pageCourante() - 1); }
    void pageSuivante() { allerALaPage(pageCourante() + 1); }
    qreal zoom() const;
    void agrandir();
    void reduire();
    void ajusterALaLargeur();

private:
    void majCommandes();

    struct Prive;
    std::unique_ptr<Prive> d;
    QString m_chemin;
};

// Shows a PDF: in an ApercuPdf window when the build has one (returned; it is deleted
// when closed), else in the system's viewer (nullptr).
ApercuPdf* afficherPdf(const QString& chemin, QWidget* parent = nullptr);

// After an export: tells the user where the file is and offers to show it ("Afficher"
// or "Fermer"). Does nothing for an empty path (nothing was written).
ApercuPdf* proposerAffichage(const QString& chemin, Dialogues& dialogues, QWidget* parent = nullptr);
QString messageExportTermine(const QString& chemin);

// "Imprimer…": the print dialog on the report's page setup, then the report on the
// chosen printer. False when the user cancels.
bool imprimerRapport(const QTextDocument& document, QWidget* parent = nullptr);
// Gives a printer the report's page setup, before the print dialog shows it.
void preparerImprimante(QPrinter& imprimante);
// Prints on a printer the user has set up, with the layout of the PDF export.
void imprimer(const QTextDocument& document, QPrinter& imprimante);

} // namespace corvane::app
