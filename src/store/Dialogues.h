#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace corvane {

// How the core asks the user something. The core never shows a window: the GUI
// answers with message boxes, the command line and the tests with scripted answers.
class Dialogues
{
public:
    virtual ~Dialogues() = default;
    // Asks a question; returns the label of the button chosen.
    virtual QString question(const QString& titre, const QString& message, const QStringList& boutons) = 0;
    // Tells something; the only answer is the button.
    virtual void information(const QString& titre, const QString& message, const QString& bouton) = 0;
    // A save panel opening in `dossier` with `nomPropose`, limited to `extension`.
    // Returns the chosen path, or "" when the user cancels.
    virtual QString choisirFichierAEnregistrer(const QString& titre, const QString& dossier, const QString& nomPropose,
                                               const QString& extension) = 0;
    // An open panel in `dossier` showing the files with one of `extensions` (without dot).
    // Returns the chosen path, or "" when the user cancels.
    virtual QString choisirFichierAOuvrir(const QString& titre, const QString& dossier,
                                          const QStringList& extensions) = 0;
};

// Answers from a list given in advance, and keeps what was asked.
// When the list runs out, the last button of each question is chosen.
class DialoguesScriptes : public Dialogues
{
public:
    struct Echange
    {
        QString titre;
        QString message;
        QStringList boutons;
        QString reponse;
    };

    explicit DialoguesScriptes(QStringList reponses = {}) : m_reponses(std::move(reponses)) {}

    QString question(const QString& titre, const QString& message, const QStringList& boutons) override
    {
        QString reponse = m_reponses.isEmpty() ? boutons.value(boutons.size() - 1) : m_reponses.takeFirst();
        m_echanges.append({titre, message, boutons, reponse});
        return reponse;
    }

    void information(const QString& titre, const QString& message, const QString& bouton) override
    {
        m_echanges.append({titre, message, {bouton}, bouton});
    }

    // A panel's answer is the next path given (cancel when none is left).
    QString choisirFichierAEnregistrer(const QString& titre, const QString& dossier, const QString& nomPropose,
                                       const QString& extension) override
    {
        m_panneaux.append({titre, dossier, nomPropose, extension});
        return m_chemins.isEmpty() ? QString() : m_chemins.takeFirst();
    }

    QString choisirFichierAOuvrir(const QString& titre, const QString& dossier, const QStringList& extensions) override
    {
        m_panneaux.append({titre, dossier, QString(), extensions.join(QLatin1Char(' '))});
        return m_chemins.isEmpty() ? QString() : m_chemins.takeFirst();
    }

    struct Panneau
    {
        QString titre;
        QString dossier;
        QString nomPropose;
        QString extension;
    };

    const QList<Echange>& echanges() const { return m_echanges; }
    const QList<Panneau>& panneaux() const { return m_panneaux; }
    void repondre(const QStringList& reponses) { m_reponses = reponses; }
    void choisirChemins(const QStringList& chemins) { m_chemins = chemins; }

private:
    QStringList m_reponses;
    QStringList m_chemins;
    QList<Panneau> m_panneaux;
    QList<Echange> m_echanges;
};

} // namespace corvane
