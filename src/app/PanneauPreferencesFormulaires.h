#pragma once

#include "store/Reglages.h"

#include <QWidget>
#include <functional>

class QLabel;
class QLineEdit;

namespace corvane::app {

// "Formulaires officiels": the folder where the user keeps the official forms the Manager's PDF
// menu opens (the pre-hiring declaration, the standard contract and mandate, the attendance
// sheet), each under its expected file name. Corvane does not ship them.
class PanneauPreferencesFormulaires : public QWidget
{
    Q_OBJECT

public:
    using ChoixDossier = std::function<QString(const QString& titre, const QString& dossier)>;

    explicit PanneauPreferencesFormulaires(Reglages& reglages, QWidget* parent = nullptr);

    void setChoixDossier(ChoixDossier choix) { m_choixDossier = std::move(choix); }
    // Records an existing folder (or none, for an empty text); otherwise says why and writes nothing.
    bool choisirDossier(const QString& dossier);

signals:
    void modifie();

private:
    Reglages& m_reglages;
    ChoixDossier m_choixDossier;
    QLineEdit* m_dossier = nullptr;
    QLabel* m_erreur = nullptr;
    QLabel* m_presents = nullptr;
};

} // namespace corvane::app
