#pragma once

#include "records/Profil.h"

#include <QDialog>
#include <functional>
#include <memory>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QDoubleSpinBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QSpinBox;
class QTabWidget;

namespace corvane {
class Document;
}

namespace corvane::app {

struct Environnement;

// The profile window: civil status, contact details, administrative numbers, bank
// details, and vehicle, tax and self-employment settings. Each field is written on its
// own as soon as the user leaves it; nothing waits for the window to close.
class FenetreProfil : public QDialog
{
    Q_OBJECT

public:
    FenetreProfil(Environnement& environnement, Document* document, QWidget* parent = nullptr);
    ~FenetreProfil() override;

    // Reads the profile again and shows it.
    void recharger();

public slots:
    void done(int resultat) override;

signals:
    // A field was written (the screens that show the profile may refresh).
    void profilModifie();

private:
    using SauvegardeTexte = bool (Profil::*)(const QString&);
    using SauvegardeEntier = bool (Profil::*)(int);

    QWidget* pageEtatCivil();
    QWidget* pageCoordonnees();
    QWidget* pageNumeros();
    QWidget* pageBanque();
    QWidget* pageAutres();
    QWidget* cadrePhoto();

    // A text field saved by its own operation when it is left with a new value.
    QLineEdit* champTexte(QFormLayout* forme, const QString& libelle, const QString& nom, SauvegardeTexte sauvegarde,
                          QString DonneesProfil::*champ, bool secret = false);
    // A list of choices whose values are ids, saved when the user picks one.
    QComboBox* champChoix(QFormLayout* forme, const QString& libelle, const QString& nom,
                          const QList<QPair<QString, int>>& choix, SauvegardeEntier sauvegarde,
                          int DonneesProfil::*champ);
    QCheckBox* champCoche(QFormLayout* forme, const QString& texte, const QString& nom, SauvegardeEntier sauvegarde,
                          int DonneesProfil::*champ);
    void choisirPhoto();
    void afficherPhoto();
    void majAbattement(int abattementId);
    void apresEnregistrement();

    Environnement& m_environnement;
    QString m_chemin;
    std::unique_ptr<Profil> m_profil;
    QList<std::function<void()>> m_chargeurs;
    QTabWidget* m_onglets = nullptr;
    QDateEdit* m_naissance = nullptr;
    QLabel* m_photo = nullptr;
    QComboBox* m_abattement = nullptr;
    QCheckBox* m_renoncer = nullptr;
};

} // namespace corvane::app
