#include "cli/Cli.h"

#include <QGuiApplication>
#include <QTextStream>
#include <cstdio>

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
    // Reports lay text out, which takes a GUI application; no display is needed for it.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    messagesQt = qInstallMessageHandler(filtrerMessages);
    QGuiApplication application(argc, argv);
    QTextStream sortie(stdout);
    QTextStream erreurs(stderr);
    // The raw bytes (Qt's own options already taken out): arguments() would drop a leading
    // byte-order mark and turn invalid UTF-8 into replacement characters.
    QList<QByteArray> arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QByteArray(argv[i]);
    return corvane::cli::Cli().executer(arguments, sortie, erreurs);
}
