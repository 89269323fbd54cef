#include "cli/Cli.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QTextStream>
#include <cstdio>
#include <memory>

namespace {

QtMessageHandler messagesQt = nullptr;

// Without a desktop session Qt warns that it has no runtime folder: stderr is kept for
// the command's own messages.
void filtrerMessages(QtMsgType type, const QMessageLogContext& contexte, const QString& message)
{
    if (!message.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR")))
        messagesQt(type, contexte, message);
}

} // namespace

int main(int argc, char* argv[])
{
    messagesQt = qInstallMessageHandler(filtrerMessages);
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    corvane::cli::Cli cli;
    // Only reports lay text out, which takes a GUI application (no display is needed for
    // it); every other command starts without loading a display platform.
    std::unique_ptr<QCoreApplication> application;
    if (cli.metEnPage(arguments)) {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        application = std::make_unique<QGuiApplication>(argc, argv);
    } else {
        application = std::make_unique<QCoreApplication>(argc, argv);
    }
    QTextStream sortie(stdout);
    QTextStream erreurs(stderr);
    // The raw bytes (Qt's own options already taken out): arguments() would drop a leading
    // byte-order mark and turn invalid UTF-8 into replacement characters.
    QList<QByteArray> octets;
    for (int i = 1; i < argc; ++i)
        octets << QByteArray(argv[i]);
    return cli.executer(octets, sortie, erreurs);
}
