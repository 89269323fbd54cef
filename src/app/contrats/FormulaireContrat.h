#pragma once

#include "unemployment/SaisieContrat.h"

#include <QWidget>
#include <memory>

class QCheckBox;
class QComboBox;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

namespace corvane {
class Contrats;
}

namespace corvane {
class Document;
}

namespace corvane::app {

struct Environnement;
class ChampDate;
class ChampMontant;
class ChampNombre;
class MessageSaisie;

// The contract form, in mode "ajout" (a new contract) or "modif" (an existing one). It
// drives a SaisieContrat as the user edits, so that the days, hours, abatement and the
// checks are those of `contrat ajouter`.
class FormulaireContrat : public QWidget
{
    Q_OBJECT

public:
    explicit FormulaireContrat(Environnement& environnement, QWidget* parent = nullptr);
    ~FormulaireContrat() override;

    void setDocument(Document* document);
    void nouveau();
    bool modifier(int id);
    // Checks, saves and warns about sickness overlaps; true when the contract was written.
    bool enregistrer();
    void annuler();

    const QString& mode() const { return m_mode; }
    const SaisieContrat& saisie() const { return m_saisie; }

signals:
    // Saved or cancelled: the list takes over again.
    void termine();

protected:
    void keyPressEvent(QKeyEvent* evenement) override;

private:
    void construire();
    QWidget* construireColonneGauche();
    QWidget* construireColonneDroite();
    void connecter();
    void remplirListes();
    void remplirTypes();
    void afficher();
    void lireChamps();
    void datesChoisies(bool depuisDebut);
    void employeurChoisi();
    void majBrutAbattu();

    Environnement& m_environnement;
    std::unique_ptr<Contrats> m_contrats;
    SaisieContrat m_saisie;
    QString m_mode = QStringLiteral("ajout");
    int m_id = 0;

    QLabel* m_titre = nullptr;
    QComboBox* m_employeur = nullptr;
    QComboBox* m_emploi = nullptr;
    QComboBox* m_type = nullptr;
    ChampDate* m_debut = nullptr;
    ChampDate* m_fin = nullptr;
    ChampNombre* m_jours = nullptr;
    QLabel* m_uniteJours = nullptr;
    ChampNombre* m_heures = nullptr;
    QCheckBox* m_ap = nullptr;
    ChampMontant* m_brut = nullptr;
    QComboBox* m_abattement = nullptr;
    QLabel* m_brutAbattu = nullptr;
    ChampMontant* m_net = nullptr;
    ChampMontant* m_netAPayer = nullptr;
    ChampMontant* m_pas = nullptr;
    QComboBox* m_annee = nullptr;
    QCheckBox* m_effectue = nullptr;
    QCheckBox* m_paye = nullptr;
    QCheckBox* m_conges = nullptr;
    QCheckBox* m_aemFp = nullptr;
    QLineEdit* m_lieu = nullptr;
    QLineEdit* m_fonction = nullptr;
    QPlainTextEdit* m_note = nullptr;
    QListWidget* m_frais = nullptr;
    MessageSaisie* m_message = nullptr;
    QPushButton* m_enregistrer = nullptr;
    QPushButton* m_annuler = nullptr;
};

} // namespace corvane::app
