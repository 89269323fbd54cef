#include "app/kit/Raccourcis.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QFormLayout>
#include <QHash>
#include <QLabel>
#include <QLayout>
#include <QSet>
#include <QStackedWidget>
#include <QWidget>

#include <functional>

namespace corvane::app {

namespace {

// The first widget that takes the focus in a form's field, which may be a layout of several.
QWidget* champ(QLayoutItem* element)
{
    if (!element)
        return nullptr;
    if (QWidget* w = element->widget())
        return w->focusPolicy() != Qt::NoFocus && !qobject_cast<QLabel*>(w) ? w : nullptr;
    if (QLayout* mise = element->layout())
        for (int i = 0; i < mise->count(); ++i)
            if (QWidget* w = champ(mise->itemAt(i)))
                return w;
    return nullptr;
}

// The letters a text may take, word-initial letters first.
QList<QChar> candidates(const QString& texte)
{
    QList<QChar> lettres;
    for (const bool initiales : {true, false})
        for (int i = 0; i < texte.size(); ++i) {
            const QChar c = texte.at(i).toUpper();
            if (texte.at(i).isLetter() && c.unicode() < 128 && !lettres.contains(c) &&
                (!initiales || i == 0 || !texte.at(i - 1).isLetter()))
                lettres << c;
        }
    return lettres;
}

// A letter for as many texts as possible (a maximum matching, each text trying its preferred letters
// first): two labels such as "Du :" and "Au :" compete for few letters.
QList<QChar> repartir(const QStringList& textes, const QSet<QChar>& prises)
{
    QList<QList<QChar>> choix;
    for (const QString& t : textes) {
        QList<QChar> c = candidates(t);
        c.removeIf([&prises](QChar l) { return prises.contains(l); });
        choix << c;
    }
    QHash<QChar, int> titulaire;
    std::function<bool(int, QSet<QChar>&)> placer = [&](int n, QSet<QChar>& vues) {
        for (const QChar l : choix.at(n)) {
            if (vues.contains(l))
                continue;
            vues.insert(l);
            if (!titulaire.contains(l) || placer(titulaire.value(l), vues)) {
                titulaire.insert(l, n);
                return true;
            }
        }
        return false;
    };
    for (int n = 0; n < textes.size(); ++n) {
        QSet<QChar> vues;
        placer(n, vues);
    }
    QList<QChar> lettres(textes.size());
    for (auto it = titulaire.cbegin(); it != titulaire.cend(); ++it)
        lettres[it.value()] = it.key();
    return lettres;
}

// The text with '&' before the letter's first word-initial occurrence, else its first occurrence.
QString marquer(const QString& texte, QChar lettre)
{
    int position = -1;
    for (int i = 0; i < texte.size() && position < 0; ++i)
        if (texte.at(i).toUpper() == lettre && (i == 0 || !texte.at(i - 1).isLetter()))
            position = i;
    if (position < 0)
        position = texte.indexOf(lettre, 0, Qt::CaseInsensitive);
    QString marque = texte;
    marque.insert(position, QLatin1Char('&'));
    return marque;
}

} // namespace

// The page of a stack (a tab, a wizard page) the widget lies on, or null when it is always shown.
QWidget* pageDe(QWidget* w, QWidget* racine)
{
    for (; w && w != racine; w = w->parentWidget())
        if (qobject_cast<QStackedWidget*>(w->parentWidget()))
            return w;
    return nullptr;
}

void attribuerRaccourcis(QWidget* racine, const QString& reservees)
{
    QSet<QChar> prises;
    for (const QChar c : reservees)
        prises.insert(c.toUpper());

    // Each text without a letter yet, with the page it shows on: only what shows together must differ.
    struct Texte
    {
        QString texte;
        QWidget* page;
        std::function<void(const QString&)> poser;
    };
    QList<Texte> textes;
    QHash<QWidget*, QSet<QChar>> prisesDeLaPage;
    const auto retenir = [&](const QString& texte, QWidget* page) {
        const int i = texte.indexOf(QLatin1Char('&'));
        if (i >= 0 && i + 1 < texte.size())
            (page ? prisesDeLaPage[page] : prises).insert(texte.at(i + 1).toUpper());
    };
    for (QFormLayout* forme : racine->findChildren<QFormLayout*>())
        for (int rangee = 0; rangee < forme->rowCount(); ++rangee) {
            QLayoutItem* element = forme->itemAt(rangee, QFormLayout::LabelRole);
            auto* etiquette = qobject_cast<QLabel*>(element ? element->widget() : nullptr);
            QWidget* cible = champ(forme->itemAt(rangee, QFormLayout::FieldRole));
            if (!etiquette || !cible || etiquette->text().isEmpty())
                continue;
            etiquette->setBuddy(cible);
            retenir(etiquette->text(), pageDe(etiquette, racine));
            if (!etiquette->text().contains(QLatin1Char('&')) && etiquette->textFormat() != Qt::RichText)
                textes << Texte{etiquette->text(), pageDe(etiquette, racine),
                                [etiquette](const QString& t) { etiquette->setText(t); }};
        }
    for (QAbstractButton* bouton : racine->findChildren<QAbstractButton*>()) {
        retenir(bouton->text(), pageDe(bouton, racine));
        if (qobject_cast<QCheckBox*>(bouton) && !bouton->text().contains(QLatin1Char('&')) &&
            !bouton->text().isEmpty())
            textes << Texte{bouton->text(), pageDe(bouton, racine),
                            [bouton](const QString& t) { bouton->setText(t); }};
    }

    // What always shows first, then each page with what is left.
    QList<QWidget*> pages{nullptr};
    for (const Texte& t : textes)
        if (t.page && !pages.contains(t.page))
            pages << t.page;
    for (QWidget* page : pages) {
        QList<const Texte*> lot;
        QStringList libelles;
        for (const Texte& t : textes)
            if (t.page == page) {
                lot << &t;
                libelles << t.texte;
            }
        QSet<QChar> interdites = prises;
        if (page)
            interdites.unite(prisesDeLaPage.value(page));
        const QList<QChar> lettres = repartir(libelles, interdites);
        for (int n = 0; n < lot.size(); ++n)
            if (!lettres.at(n).isNull()) {
                lot.at(n)->poser(marquer(lot.at(n)->texte, lettres.at(n)));
                if (!page)
                    prises.insert(lettres.at(n));
            }
    }
}

} // namespace corvane::app
