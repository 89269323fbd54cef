#pragma once

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QTableView;

namespace corvane {
class Document;
}

namespace corvane::app {

struct Environnement;
class ModeleGrilleCsv;

// "Importation CSV": a CSV file shown as a grid, read again whenever the separator, the encoding
// or the first-line option changes. A click on a column's header chooses the employer's field it
// holds; "Importer" checks the choices and adds one employer per row. When the file could only be
// read in part, the window says on which line it stopped, and asks again before importing.
class FenetreImportCsv : public QDialog
{
    Q_OBJECT

public:
    FenetreImportCsv(Environnement& environnement, Document& document, QWidget* parent = nullptr);
    ~FenetreImportCsv() override;

    // The open panel; false when the user cancels.
    bool choisirFichier();
    void setFichier(const QString& chemin);
    void relire();
    // The header menu of a column, as a click on it shows it.
    QMenu* menuEntete(int colonne);
    ModeleGrilleCsv* grille() const { return m_modele; }
    // Tells the user why it refused; true when the employers were added.
    bool importer();

private:
    Environnement& m_environnement;
    Document& m_document;
    QString m_chemin;
    QLineEdit* m_fichier = nullptr;
    QComboBox* m_separateur = nullptr;
    QComboBox* m_encodage = nullptr;
    QCheckBox* m_titres = nullptr;
    QLabel* m_message = nullptr;
    QTableView* m_vue = nullptr;
    ModeleGrilleCsv* m_modele = nullptr;
    QPushButton* m_importer = nullptr;
};

} // namespace corvane::app
