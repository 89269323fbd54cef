#pragma once

#include <QDialog>
#include <QFrame>

class QLabel;
class QLineEdit;
class QPushButton;

namespace corvane::app {

// What the password protection does and does not do, in the user's words.
QString texteProtectionVerrou();

// The small panel under the lock button: the typed password switches the document's
// protection on or off (it takes effect at the next opening) and leads to the
// password change.
class PopoverVerrou : public QFrame
{
    Q_OBJECT

public:
    PopoverVerrou(const QString& chemin, QWidget* parent = nullptr);
    // Shows the panel under the given widget.
    void afficherSous(QWidget* ancre);
    // Locks an unlocked document, unlocks a locked one; a wrong password turns the field red.
    bool saveLockStatus();

signals:
    void verrouillageModifie(bool verrouille);
    void changementMotDePasseDemande();

private:
    void majTextes();

    QString m_chemin;
    bool m_verrouille = false;
    QLabel* m_etat = nullptr;
    QLineEdit* m_motDePasse = nullptr;
    QPushButton* m_bouton = nullptr;
};

// The password change: the current password, the new one and its confirmation.
class FeuilleMotDePasse : public QDialog
{
    Q_OBJECT

public:
    FeuilleMotDePasse(const QString& chemin, QWidget* parent = nullptr);
    // Writes the new password when the current one is right and both new ones agree.
    bool changePassword();

private:
    QString m_chemin;
    QLineEdit* m_actuel = nullptr;
    QLineEdit* m_nouveau = nullptr;
    QLineEdit* m_confirmation = nullptr;
};

} // namespace corvane::app
