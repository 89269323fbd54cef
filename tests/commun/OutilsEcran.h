#pragma once

// Helpers shared by the tests that drive the program's windows as a user would.

#include "commun/MaisonTemporaire.h"
#include "commun/OutilsDocument.h"

#include <QComboBox>
#include <QLineEdit>
#include <QtTest>

namespace corvane::test {

// The widget of that name under `parent`; a missing one is reported before the test trips on it.
template <typename T = QWidget>
T* trouver(const QObject& parent, const QString& nom)
{
    T* widget = parent.findChild<T*>(nom);
    if (!widget)
        qWarning() << "widget introuvable :" << nom;
    return widget;
}

// Typed key by key, accents included (QTest::keyClicks types ASCII only).
inline void taper(QWidget* champ, const QString& texte)
{
    for (const QChar c : texte)
        QTest::sendKeyEvent(QTest::Click, champ, Qt::Key_unknown, QString(c), Qt::NoModifier);
}

// The field emptied, then the text typed in.
inline void saisir(const QObject& parent, const QString& nom, const QString& texte)
{
    auto* champ = trouver<QLineEdit>(parent, nom);
    champ->setFocus();
    champ->selectAll();
    QTest::keyClick(champ, Qt::Key_Backspace);
    taper(champ, texte);
}

// An entry of a list chosen as the user does: the list says it was activated.
inline void choisir(const QObject& parent, const QString& nom, const QString& texte)
{
    auto* liste = trouver<QComboBox>(parent, nom);
    const int index = liste->findText(texte);
    QVERIFY2(index >= 0, qPrintable(nom + " : " + texte));
    liste->setCurrentIndex(index);
    emit liste->activated(index);
}

} // namespace corvane::test
