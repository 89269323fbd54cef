#pragma once

#include <QString>
#include <QVariant>
#include <QWidget>

#include <functional>

class QLabel;
#ifdef CORVANE_AVEC_WEBENGINE
class QWebEngineView;
#endif

namespace corvane::app {

// Lets Qt WebEngine start where it can: as root, Chromium refuses its sandbox, so it is left out
// there. Called before the application object (and again by the first view, for the programs
// that did not). Nothing without Qt WebEngine.
void preparerMoteurWeb();

// A map page built by the program (exchange/PageCarte). With Qt WebEngine the page shows here,
// loading its files from the program's resources; without it, a button opens the same page in the
// user's browser, written with its files to a folder of the cache.
class VueCarte : public QWidget
{
    Q_OBJECT

public:
    explicit VueCarte(QWidget* parent = nullptr);

    // True when pages show inside the program.
    static bool integree();

    void afficher(const QString& page);
    const QString& page() const { return m_page; }
    // Runs `script` in the page and gives its value to `rappel`, once the page has answered
    // (never without Qt WebEngine, nor when this view is gone by then).
    void evaluer(const QString& script, std::function<void(const QVariant&)> rappel);
    // Writes the page beside its files and opens it in the browser; false when it could not.
    bool ouvrirDansNavigateur();
    // Where the page is written for the browser.
    static QString dossierNavigateur();

#ifdef CORVANE_AVEC_WEBENGINE
    QWebEngineView* vue() const
    {
        return m_vue;
    }
#endif

signals:
    // The page has loaded (its scripts may still wait for the maps service).
    void chargementTermine(bool reussi);

private:
    QString m_page;
#ifdef CORVANE_AVEC_WEBENGINE
    void creerVue();

    QWebEngineView* m_vue = nullptr; // made with the first page
#else
    QLabel* m_explication = nullptr;
#endif
};

} // namespace corvane::app
