#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

class QLocalServer;
class QLocalSocket;

namespace corvane::app {

// One Corvane per user: a document handed to a second process (a double-click in the file
// manager) is sent to the program already running, which opens it. The channel is a local
// socket whose name is the user's own; tests give a name of their own.
class InstanceUnique : public QObject
{
    Q_OBJECT

public:
    explicit InstanceUnique(const QString& nom = nomParDefaut(), QObject* parent = nullptr);
    ~InstanceUnique() override;

    // The user's channel: a socket in the user's runtime folder when there is one, else a name
    // in the temporary folder carrying the user's name; both carry a digest of the settings
    // folder, so that a run with another home folder (the tests) has a channel of its own.
    static QString nomParDefaut();
    const QString& nom() const { return m_nom; }

    // Hands a path ("" only raises the window) to the program listening; false when none answers.
    bool transmettre(const QString& chemin) const;
    // Becomes the program others hand their documents to. A socket left by a program that
    // ended without closing it is removed first. False when the channel cannot be opened.
    bool ecouter();
    bool ecoute() const;

    // Until the program is ready, what arrives is kept; from then on it is handed on at once.
    void setPret();

signals:
    // A path sent by another process; empty when it only asked for the window.
    void documentRecu(const QString& chemin);

private:
    void accueillir();
    void lire(QLocalSocket* socket);
    void livrer(const QString& chemin);

    QString m_nom;
    QLocalServer* m_serveur = nullptr;
    bool m_pret = false;
    QStringList m_enAttente;
};

} // namespace corvane::app
