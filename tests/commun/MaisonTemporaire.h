#pragma once

// GUI tests never touch the user's real folders: for the whole run, HOME, the
// settings and Documents live in a temporary folder, reachable as g_maison.

#include <QApplication>
#include <QTemporaryDir>
#include <QtTest>

namespace corvane::test {

inline QTemporaryDir* g_maison = nullptr;

} // namespace corvane::test

#define CORVANE_MAIN_GUI(ClasseDeTest)                                                                                 \
    int main(int argc, char* argv[])                                                                                   \
    {                                                                                                                  \
        QTemporaryDir maison;                                                                                          \
        corvane::test::g_maison = &maison;                                                                             \
        qputenv("HOME", maison.path().toUtf8());                                                                       \
        qputenv("XDG_CONFIG_HOME", (maison.path() + "/.config").toUtf8());                                             \
        qputenv("XDG_DOCUMENTS_DIR", (maison.path() + "/Documents").toUtf8());                                         \
        QApplication application(argc, argv);                                                                          \
        ClasseDeTest test;                                                                                             \
        return QTest::qExec(&test, argc, argv);                                                                        \
    }
