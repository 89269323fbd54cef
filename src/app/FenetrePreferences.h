#pragma once

#include <QDialog>
#include <QString>

class QListWidget;
class QStackedWidget;

namespace corvane {
class Reglages;
} // namespace corvane

namespace corvane::app {

class PanneauPreferencesGeneral;
class PanneauPreferencesSauvegardes;
class PanneauPreferencesAlertes;

// The "Préférences" window: a list of panes on the left, the chosen pane on the
// right. Every pane writes its settings as soon as they change; there is nothing to
// confirm, the window only closes.
class FenetrePreferences : public QDialog
{
    Q_OBJECT

public:
    explicit FenetrePreferences(Reglages& reglages, QWidget* parent = nullptr);

    // Adds a pane at the end of the list and returns its index. The window takes
    // ownership. A pane that declares a signal `modifie()` is relayed as reglagesModifies().
    int ajouterPanneau(const QString& titre, QWidget* panneau);
    void afficherPanneau(const QString& titre);
    QString panneauAffiche() const;
    QStringList titresPanneaux() const;

    // The open document ("" when none): the backup-name preview reads its surname.
    void setFile(const QString& chemin);

    PanneauPreferencesGeneral* panneauGeneral() const { return m_general; }
    PanneauPreferencesSauvegardes* panneauSauvegardes() const { return m_sauvegardes; }
    PanneauPreferencesAlertes* panneauAlertes() const { return m_alertes; }

signals:
    // A setting was written; the controller refreshes the alerts and the appearance.
    void reglagesModifies();

protected:
    void keyPressEvent(QKeyEvent* evenement) override;

private:
    QListWidget* m_liste = nullptr;
    QStackedWidget* m_pile = nullptr;
    PanneauPreferencesGeneral* m_general = nullptr;
    PanneauPreferencesSauvegardes* m_sauvegardes = nullptr;
    PanneauPreferencesAlertes* m_alertes = nullptr;
};

} // namespace corvane::app
