#pragma once

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLineEdit;

namespace corvane {
class Document;
}

namespace corvane::app {

struct Environnement;

// "Export CSV": one list of the document (expenses, paid contracts, or one of the payment
// histories) written as "<dossier>/<liste>.csv", with or without the column names first.
class FenetreExportCsv : public QDialog
{
    Q_OBJECT

public:
    FenetreExportCsv(Environnement& environnement, Document& document, QWidget* parent = nullptr);

    // Writes the file, then says where; tells the user why when it could not. True when written.
    bool exporter();

private:
    void choisirDossier();

    Environnement& m_environnement;
    Document& m_document;
    QComboBox* m_source = nullptr;
    QCheckBox* m_entetes = nullptr;
    QLineEdit* m_dossier = nullptr;
};

} // namespace corvane::app
