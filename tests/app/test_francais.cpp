// Qt's own texts and the locale-aware widgets in French whatever the system's language:
// this suite runs under the C locale.

#include "app/Langue.h"
#include "commun/Cas.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>
#include <QtTest>
#include <memory>

using corvane::test::cas;

using namespace corvane::app;

class TestFrancais : public QObject
{
    Q_OBJECT

private:
    // The texts a user reads on one of Qt's widgets, without their "&" and shortcut.
    static QStringList textes(const QString& widget)
    {
        QStringList lus;
        if (widget == QLatin1String("boutons")) {
            QDialogButtonBox boutons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Yes |
                                     QDialogButtonBox::No | QDialogButtonBox::Close);
            for (QAbstractButton* b : boutons.buttons())
                lus << b->text();
        } else if (widget == QLatin1String("menu contextuel")) {
            QLineEdit champ(QStringLiteral("texte"));
            champ.selectAll();
            const std::unique_ptr<QMenu> menu(champ.createStandardContextMenu());
            for (QAction* a : menu->actions())
                lus << a->text();
        } else if (widget == QLatin1String("calendrier")) {
            QCalendarWidget calendrier;
            calendrier.setCurrentPage(2026, 1);
            for (QToolButton* b : calendrier.findChildren<QToolButton*>())
                lus << b->text();
        }
        for (QString& t : lus)
            t = t.section(QLatin1Char('\t'), 0, 0).remove(QLatin1Char('&'));
        return lus;
    }

private slots:
    void initTestCase() { QVERIFY(parlerFrancais(*qApp)); }

    void textesDeQt_data()
    {
        QTest::addColumn<QString>("widget");
        QTest::addColumn<QString>("attendu");
        cas("bouton Annuler", "boutons", "Annuler");
        cas("bouton Oui", "boutons", "Oui");
        cas("menu Copier", "menu contextuel", "Copier");
        cas("menu Coller", "menu contextuel", "Coller");
        cas("mois du calendrier", "calendrier", "janvier");
    }

    void textesDeQt()
    {
        QFETCH(QString, widget);
        QFETCH(QString, attendu);
        const QStringList lus = textes(widget);
        QVERIFY2(lus.contains(attendu), qPrintable(lus.join(QStringLiteral(" | "))));
    }
};

QTEST_MAIN(TestFrancais)

#include "test_francais.moc"
