#pragma once

#include <QMenu>
#include <QString>

#include <functional>

class QToolButton;

namespace corvane::app {

struct Environnement;

// The PDF menu of the Manager's lists: the proposition letter and the engagement contract,
// composed for the selected proposition or event, then the four official forms, opened as the
// user keeps them in the folder chosen in the preferences. The propositions' tab and the events'
// tab each hold one; `selection` gives the id of the selected proposition or event (0: none),
// `document` the open document's path ("" when none).
class MenuDocumentsManager : public QMenu
{
    Q_OBJECT

public:
    enum class Origine
    {
        Propositions, // `selection` gives a proposition's id
        Evenements,   // `selection` gives an event's id: its proposition, its organiser
    };

    MenuDocumentsManager(Environnement& environnement, std::function<QString()> document,
                         std::function<int()> selection, Origine origine, QWidget* parent = nullptr);

    // The "PDF" button of a tab's toolbar, its menu this one.
    QToolButton* bouton(const QString& nomObjet, QWidget* parent);

    // How a form found in the folder is shown; by default the program's PDF viewer.
    void setAfficheur(std::function<void(const QString&)> afficheur) { m_afficheur = std::move(afficheur); }

    // Each tells the user why nothing was done; they return the PDF written or opened ("" when none).
    QString exporterProposition();
    QString exporterContrat();
    QString ouvrirFormulaire(int index); // in FormulairesOfficiels::tous()

private:
    // The proposition (letter) or the organiser (contract) the selection stands for; 0 after
    // telling the user why there is none.
    int propositionChoisie();
    int organisateurChoisi();
    bool documentEtSelection(int* selection);
    void alerter(const QString& message);

    Environnement& m_environnement;
    std::function<QString()> m_document;
    std::function<int()> m_selection;
    Origine m_origine;
    std::function<void(const QString&)> m_afficheur;
};

} // namespace corvane::app
