#pragma once

#include <QWidget>

class QComboBox;
class QLabel;
class QSpinBox;

namespace corvane {
class Document;
}

namespace corvane::app {

// The monthly declaration: the days of a chosen month that the allowance pays, and how they
// are obtained, from the month's length down to the days the month's work offsets.
class VueDeclaration : public QWidget
{
    Q_OBJECT

public:
    explicit VueDeclaration(QWidget* parent = nullptr);

    void setDocument(Document* document);
    // The month declared, as the monthly reminder counts it: from `debutAlerte` of a month on,
    // that month; up to `finAlerte` of the next, the month before; in between, the current one.
    void choisirMoisADeclarer(int debutAlerte, int finAlerte);
    void choisirMois(int mois, int annee);
    void calculer();

    // The indemnified days shown (may be negative).
    int joursIndemnises() const { return m_resultat; }
    // The month and year choice, which the section shows in its own row of choices.
    QWidget* choix() const { return m_choix; }

protected:
    void changeEvent(QEvent* evenement) override;

private:
    void colorerNote();

    Document* m_document = nullptr;
    QWidget* m_choix = nullptr;
    QComboBox* m_mois = nullptr;
    QSpinBox* m_annee = nullptr;
    QLabel* m_joursDuMois = nullptr;
    QLabel* m_libelleAvantOuverture = nullptr;
    QLabel* m_avantOuverture = nullptr;
    QLabel* m_libelleApresAujourdhui = nullptr;
    QLabel* m_apresAujourdhui = nullptr;
    QLabel* m_heures = nullptr;
    QLabel* m_libelleNonCompenses = nullptr;
    QLabel* m_nonCompenses = nullptr;
    QLabel* m_resultatTexte = nullptr;
    QLabel* m_note = nullptr;
    int m_resultat = 0;
};

} // namespace corvane::app
