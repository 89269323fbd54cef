#pragma once

#include "regimes/SecuriteSociale.h"

#include <QWidget>
#include <memory>

class QCheckBox;
class QComboBox;
class QKeyEvent;
class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace corvane {
class Document;
}

namespace corvane::app {

struct Environnement;
class ChampDate;
class ChampMontant;
class ChampNombre;
class MessageSaisie;

// The form of a social-security record, in mode "ajout" (titled "Nouveau") or "modif"
// ("Modification"). The incidences on unemployment insurance are worked out as the user types,
// by the rules the save applies.
class FormulaireSecuriteSociale : public QWidget
{
    Q_OBJECT

public:
    explicit FormulaireSecuriteSociale(Environnement& environnement, QWidget* parent = nullptr);
    ~FormulaireSecuriteSociale() override;

    void setDocument(Document* document);
    void nouveau();
    bool modifier(int id);
    // A new record filled from the one with key `id`, starting the day after it ends.
    bool dupliquer(int id);
    // Checks, refuses with the alert that says why, or saves; true when the record was written.
    bool enregistrer();
    void annuler();
    // The end of the user's rights may have changed: the incidences are worked out again.
    void actualiserDroits();

    const QString& mode() const { return m_mode; }
    // The record as the form now shows it, incidences included.
    const PeriodeSecuriteSociale& periode() const { return m_periode; }

signals:
    // The record was written (termine() follows).
    void enregistre();
    // Saved or cancelled: the list takes over again.
    void termine();

protected:
    void keyPressEvent(QKeyEvent* evenement) override;

private:
    void construire();
    QWidget* construirePeriode();
    QWidget* construireIndemnisation();
    QWidget* construireIncidences();
    void remplirTypes();
    void charger(const PeriodeSecuriteSociale& periode);
    void afficher();
    void lireChamps();
    void recalculer();
    void refuser(const QString& message);

    Environnement& m_environnement;
    std::unique_ptr<SecuriteSociale> m_modele;
    PeriodeSecuriteSociale m_periode;
    QString m_mode = QStringLiteral("ajout");
    int m_id = 0;
    QDate m_finDesDroits;
    // The incidences the record held, which some cases of the rules keep.
    int m_anciennesHeures = 0;
    int m_anciennesPeriode = 0;

    QLabel* m_titre = nullptr;
    QComboBox* m_type = nullptr;
    ChampDate* m_debut = nullptr;
    ChampDate* m_fin = nullptr;
    QLabel* m_duree = nullptr;
    ChampNombre* m_suspendus = nullptr;
    QCheckBox* m_ald = nullptr;
    ChampMontant* m_totalIJ = nullptr;
    QCheckBox* m_rembourse = nullptr;
    QCheckBox* m_mutuelle = nullptr;
    QLabel* m_incidenceHeures = nullptr;
    QLabel* m_incidencePeriode = nullptr;
    QLabel* m_regles = nullptr;
    QPlainTextEdit* m_note = nullptr;
    MessageSaisie* m_message = nullptr;
    QPushButton* m_enregistrer = nullptr;
    QPushButton* m_annuler = nullptr;
};

} // namespace corvane::app
