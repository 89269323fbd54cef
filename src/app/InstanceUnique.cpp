#include "app/InstanceUnique.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QRegularExpression>
#include <QStandardPaths>
#include <utility>

namespace corvane::app {

namespace {

constexpr int kDelaiConnexionMs = 1000;
constexpr int kDelaiEcritureMs = 3000;
// A path is far shorter: anything longer without an end of line is not ours.
constexpr qint64 kLigneMaximum = 64 * 1024;

} // namespace

InstanceUnique::InstanceUnique(const QString& nom, QObject* parent) : QObject(parent), m_nom(nom) {}

InstanceUnique::~InstanceUnique() = default;

QString InstanceUnique::nomParDefaut()
{
    const QString reglages = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    const QString empreinte =
        QString::fromLatin1(QCryptographicHash::hash(reglages.toUtf8(), QCryptographicHash::Sha1).toHex().left(12));
    // The runtime folder is the user's alone (mode 0700).
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!runtime.isEmpty() && QFileInfo(runtime).isDir())
        return runtime + QStringLiteral("/corvane-") + empreinte;
    QString utilisateur = qEnvironmentVariable("USER", qEnvironmentVariable("USERNAME"));
    utilisateur.remove(QRegularExpression(QStringLiteral("[^A-Za-z0-9_.-]")));
    return QStringLiteral("corvane-%1-%2").arg(utilisateur, empreinte);
}

bool InstanceUnique::transmettre(const QString& chemin) const
{
    QLocalSocket socket;
    socket.connectToServer(m_nom, QIODevice::WriteOnly);
    if (!socket.waitForConnected(kDelaiConnexionMs))
        return false;
    socket.write(chemin.toUtf8() + '\n');
    while (socket.bytesToWrite() > 0)
        if (!socket.waitForBytesWritten(kDelaiEcritureMs))
            return false;
    socket.disconnectFromServer();
    return true;
}

bool InstanceUnique::ecoute() const
{
    return m_serveur && m_serveur->isListening();
}

bool InstanceUnique::ecouter()
{
    if (ecoute())
        return true;
    // The channel of a program that answers is never taken over (opening it for the user
    // alone would replace its socket).
    QLocalSocket essai;
    essai.connectToServer(m_nom);
    if (essai.waitForConnected(kDelaiConnexionMs)) {
        essai.abort();
        return false;
    }
    // A socket left behind by a program that ended without closing it.
    QLocalServer::removeServer(m_nom);
    auto* serveur = new QLocalServer(this);
    serveur->setSocketOptions(QLocalServer::UserAccessOption);
    if (!serveur->listen(m_nom)) {
        delete serveur;
        return false;
    }
    connect(serveur, &QLocalServer::newConnection, this, &InstanceUnique::accueillir);
    m_serveur = serveur;
    return true;
}

void InstanceUnique::setPret()
{
    m_pret = true;
    const QStringList enAttente = std::exchange(m_enAttente, {});
    for (const QString& chemin : enAttente)
        emit documentRecu(chemin);
}

void InstanceUnique::accueillir()
{
    while (QLocalSocket* socket = m_serveur->nextPendingConnection()) {
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { lire(socket); });
        connect(socket, &QLocalSocket::disconnected, this, [this, socket] {
            lire(socket);
            socket->deleteLater();
        });
        // What was sent before the connection was taken is already there.
        lire(socket);
    }
}

void InstanceUnique::lire(QLocalSocket* socket)
{
    while (socket->canReadLine()) {
        QByteArray ligne = socket->readLine();
        ligne.chop(1);
        livrer(QString::fromUtf8(ligne));
    }
    if (socket->bytesAvailable() > kLigneMaximum)
        socket->abort();
}

void InstanceUnique::livrer(const QString& chemin)
{
    if (m_pret)
        emit documentRecu(chemin);
    else
        m_enAttente << chemin;
}

} // namespace corvane::app
