#pragma once

#include <QString>
#include <QWidget>

class QLabel;

namespace corvane {
struct Employeur;
}

namespace corvane::app {

struct Environnement;
class VueCarte;

// The "Carte" tab of the employers: the chosen employer's address on a map. The page is asked of
// the maps service only while the tab is shown, once per address.
class CarteEmployeur : public QWidget
{
    Q_OBJECT

public:
    explicit CarteEmployeur(Environnement& environnement, QWidget* parent = nullptr);

    void afficher(const Employeur& employeur);
    void vider();
    VueCarte* vue() const { return m_vue; }

protected:
    void showEvent(QShowEvent* evenement) override;

private:
    void charger();

    Environnement& m_environnement;
    QLabel* m_adresse = nullptr;
    VueCarte* m_vue = nullptr;
    QString m_page; // the page of the employer shown
    bool m_chargee = false;
};

} // namespace corvane::app
