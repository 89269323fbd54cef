#include "app/Langue.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace corvane::app {

bool parlerFrancais(QCoreApplication& application)
{
    const QLocale francais(QLocale::French, QLocale::France);
    QLocale::setDefault(francais);
    auto* traduction = new QTranslator(&application);
    if (!traduction->load(francais, QStringLiteral("qtbase"), QStringLiteral("_"),
                          QLibraryInfo::path(QLibraryInfo::TranslationsPath)) ||
        !QCoreApplication::installTranslator(traduction)) {
        delete traduction;
        return false;
    }
    return true;
}

} // namespace corvane::app
