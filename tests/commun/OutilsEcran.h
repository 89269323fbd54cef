#pragma once

// Helpers shared by the tests that drive the program's windows as a user would.

#include "app/Environnement.h"
#include "commun/MaisonTemporaire.h"
#include "commun/OutilsDocument.h"
#include "store/Horloge.h"
#include "store/Reglages.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QtTest>

namespace corvane::test {

// What every screen needs: its own settings file, scripted dialogs and, unless told
// otherwise, its own document, created and opened once as the program would (so up to date).
struct Banc
{
    explicit Banc(bool avecDocument = true)
    {
        if (!avecDocument)
            return;
        chemin = g_maison->filePath(QStringLiteral("ecran%1.cv4").arg(numero));
        if (!QFile::copy(modele(), chemin))
            qWarning() << "copie impossible :" << chemin;
    }

    // The document opened as the program opens it, owned by `parent`; none without a document.
    Document* document(QObject* parent) const { return documentOuvert(chemin, parent); }
    QString dernierMessage() const
    {
        return dialogues.echanges().isEmpty() ? QString() : dialogues.echanges().last().message;
    }

    int numero = ++compteur();
    Reglages reglages{g_maison->filePath(QStringLiteral("reglages%1.ini").arg(numero))};
    DialoguesScriptes dialogues;
    app::Environnement environnement{reglages, dialogues};
    QString chemin;

private:
    // Creating and upgrading a document takes a while: the one of each day is made once, then copied.
    static QString modele()
    {
        static QMap<QDate, QString> modeles;
        const QDate jour = Horloge::aujourdhui();
        if (!modeles.contains(jour))
            modeles.insert(jour, ouvrirDocument(creerDocument(parametresParDefaut(
                                     g_maison->filePath(jour.toString(QStringLiteral("'modele-'yyyyMMdd'.cv4'")))))));
        return modeles.value(jour);
    }
    static int& compteur()
    {
        static int n = 0;
        return n;
    }
};

// The window shown and made active, so that keys reach it.
inline void montrerActive(QWidget& fenetre)
{
    fenetre.show();
    QApplication::setActiveWindow(&fenetre);
    if (!QTest::qWaitForWindowActive(&fenetre))
        qWarning() << "fenêtre inactive";
}

// The widget of that name under `parent`; a missing one is reported before the test trips on it.
template <typename T = QWidget>
T* trouver(const QObject& parent, const QString& nom)
{
    T* widget = parent.findChild<T*>(nom);
    if (!widget)
        qWarning() << "widget introuvable :" << nom;
    return widget;
}

inline void cliquer(const QObject& parent, const QString& bouton)
{
    QTest::mouseClick(trouver<QAbstractButton>(parent, bouton), Qt::LeftButton);
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

inline const QString& messageSansDocument()
{
    static const QString message = QStringLiteral(
        "Avant toute nouvelle opération, il est nécessaire de créer un nouveau fichier, ou d'en ouvrir un.");
    return message;
}

} // namespace corvane::test
