#pragma once

#include "store/Reglages.h"

#include <QWidget>
#include <functional>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;

namespace corvane::app {

// "Général": the storage folder, what happens at start-up and the appearance.
class PanneauPreferencesGeneral : public QWidget
{
    Q_OBJECT

public:
    // Asks for a folder (title, folder to start from); "" when the user cancels.
    using ChoixDossier = std::function<QString(const QString& titre, const QString& dossier)>;

    explicit PanneauPreferencesGeneral(Reglages& reglages, QWidget* parent = nullptr);

    // Tests answer the folder chooser themselves.
    void setChoixDossier(ChoixDossier choix) { m_choixDossier = std::move(choix); }

    // Records `dossier` as the storage folder when it is an existing folder; otherwise
    // shows why and leaves the setting as it was.
    bool choisirStockage(const QString& dossier);

signals:
    void modifie();

private:
    void choisirDossier();
    void ecrire(Reglages::Cle cle, const QVariant& valeur);

    Reglages& m_reglages;
    ChoixDossier m_choixDossier;
    QLineEdit* m_stockage = nullptr;
    QLabel* m_erreurStockage = nullptr;
    QCheckBox* m_demarrage = nullptr;
    QCheckBox* m_derniereSection = nullptr;
    QCheckBox* m_assistant = nullptr;
    QComboBox* m_apparence = nullptr;
};

} // namespace corvane::app
