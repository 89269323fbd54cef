#pragma once

#include <QWizard>
#include <optional>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QLineEdit;

namespace corvane {
class Dialogues;
class Reglages;
} // namespace corvane

namespace corvane::app {

class ChampMontant;

// The new-document assistant: who the user is, the rights in force, an optional
// password and where to save. Finishing creates the document; on failure the reason
// is shown and the assistant stays open.
class AssistantNouveauDocument : public QWizard
{
    Q_OBJECT

public:
    enum Page
    {
        PageIdentite,
        PageSituation,
        PageDocument,
    };

    AssistantNouveauDocument(Reglages& reglages, Dialogues& dialogues, QWidget* parent = nullptr);

    // The path of the document created, "" until one is.
    QString cheminCree() const { return m_cheminCree; }

    // The folder offered first: the storage folder, else Documents/Corvane.
    QString dossierParDefaut() const;
    // The file name offered, without extension: the user's name, else "Corvane".
    QString nomPropose() const;

signals:
    void documentCree(const QString& chemin);

protected:
    bool validateCurrentPage() override;

private:
    QWizardPage* construirePageIdentite();
    QWizardPage* construirePageSituation();
    QWizardPage* construirePageDocument();
    void choisirChemin();
    void majCheminPropose();
    QString cheminFinal() const;
    bool creer();
    void refuser(const QString& message, QWidget* champ);

    Reglages& m_reglages;
    Dialogues& m_dialogues;
    QString m_cheminCree;
    bool m_cheminChoisi = false;

    QComboBox* m_civilite = nullptr;
    QLineEdit* m_prenom = nullptr;
    QLineEdit* m_nom = nullptr;
    QComboBox* m_emploi = nullptr;
    QDateEdit* m_ouverture = nullptr;
    ChampMontant* m_taux = nullptr;
    QCheckBox* m_renonceAbattement = nullptr;
    QCheckBox* m_autoEntrepreneur = nullptr;
    QLineEdit* m_motDePasse = nullptr;
    QLineEdit* m_confirmation = nullptr;
    QLineEdit* m_chemin = nullptr;
};

} // namespace corvane::app
