#pragma once

#include "manager/Employes.h"

#include <QWidget>
#include <memory>

class QCheckBox;
class QKeyEvent;
class QLabel;
class QLineEdit;

namespace corvane {
class Document;
}

namespace corvane::app {

struct Environnement;
class ChampDate;

// The form of an employee, new ("Nouvel employé") or changed ("Modification"): names,
// address, birth date and place (the date may stay unknown), social-security number and job.
class FormulaireEmploye : public QWidget
{
    Q_OBJECT

public:
    explicit FormulaireEmploye(Environnement& environnement, QWidget* parent = nullptr);
    ~FormulaireEmploye() override;

    void setDocument(Document* document);
    void nouveau();
    bool modifier(int id);
    // Refuses with the alert that says why, or saves; true when the employee was written.
    bool enregistrer();
    void annuler();

signals:
    // The employee was written (termine() follows).
    void enregistre(int id);
    void termine();

protected:
    void keyPressEvent(QKeyEvent* evenement) override;

private:
    void construire();
    void charger(const Employe& employe);
    Employe valeurs() const;

    Environnement& m_environnement;
    std::unique_ptr<Employes> m_employes;
    int m_id = 0;

    QLabel* m_titre = nullptr;
    QLineEdit* m_prenom = nullptr;
    QLineEdit* m_nom = nullptr;
    QLineEdit* m_adresse = nullptr;
    QLineEdit* m_codePostal = nullptr;
    QLineEdit* m_ville = nullptr;
    QCheckBox* m_naissanceConnue = nullptr;
    ChampDate* m_naissance = nullptr;
    QLineEdit* m_lieuNaissance = nullptr;
    QLineEdit* m_nir = nullptr;
    QLineEdit* m_fonction = nullptr;
};

} // namespace corvane::app
