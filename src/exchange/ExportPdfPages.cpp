#include "exchange/ExportPdf.h"

#include "exchange/RangeesTableau.h"
#include "exchange/Rapport.h"
#include "store/Horloge.h"

#include <QAbstractTextDocumentLayout>
#include <QPageRanges>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextImageFormat>

#include <cmath>
#include <memory>

// Laying a report out on pages: the separator across the text width, the header of a
// long table repeated at the top of every page it continues on, and a footer on every
// page: the owner's name, the day it is printed and the page number.

namespace corvane {

namespace {

// The separator spans the device's text width, whatever the paper.
void ajusterSeparateurs(QTextDocument& document, double largeur)
{
    QTextCursor curseur(&document);
    for (QTextBlock b = document.begin(); b.isValid(); b = b.next()) {
        for (auto it = b.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            const QTextCharFormat format = fragment.charFormat();
            if (!format.isImageFormat() || format.toImageFormat().name() != Rapport::NomLigne)
                continue;
            QTextImageFormat image = format.toImageFormat();
            if (qAbs(image.width() - largeur) < 0.01)
                continue;
            image.setWidth(largeur);
            curseur.setPosition(fragment.position());
            curseur.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
            curseur.setCharFormat(image);
        }
    }
}

int proprieteEntiere(const QTextBlock& b, int propriete)
{
    return b.blockFormat().intProperty(propriete);
}

// The rows of one table (header excluded), and where each page of it starts.
struct Tableau
{
    QTextBlock entete;
    QList<QTextBlock> rangees;
    QList<int> coupures;         // indexes of the rows that start a page after the first
    bool deplacerEntete = false; // the header goes to the next page, with the first row
};

Tableau lireTableau(const QTextBlock& entete)
{
    Tableau tableau;
    tableau.entete = entete;
    const int numero = proprieteEntiere(entete, Rapport::ProprieteTableau);
    for (QTextBlock b = entete.next(); b.isValid() && proprieteEntiere(b, Rapport::ProprieteTableau) == numero;
         b = b.next())
        tableau.rangees << b;
    return tableau;
}

// Places the rows on the pages from the first one's place (`page`, `bas`): every
// later page starts with a copy of the header. `hauteur(i)` is row i's height.
template <typename Hauteur>
void placerRangees(Tableau& tableau, double hauteurPage, double hauteurEntete, int page, double bas, Hauteur hauteur)
{
    tableau.coupures.clear();
    for (int i = 0; i < tableau.rangees.size(); ++i) {
        const double h = hauteur(i);
        // A quarter of a row of slack: the layout's own rounding sometimes pushes over
        // a row that fits to the pixel, and a row alone on a page is worse than a
        // page one row short.
        if (bas + h > (page + 1) * hauteurPage - h / 4) {
            ++page;
            tableau.coupures << i;
            bas = page * hauteurPage + hauteurEntete;
        }
        bas += h;
    }
    // The totals never stand alone under a repeated header: the last row goes with them.
    const int derniere = int(tableau.rangees.size()) - 1;
    if (!tableau.coupures.isEmpty() && tableau.coupures.last() == derniere &&
        proprieteEntiere(tableau.rangees.last(), Rapport::ProprieteRangee) == Rapport::Total) {
        const int debutDePage = tableau.coupures.size() > 1 ? tableau.coupures[tableau.coupures.size() - 2] : 0;
        if (derniere - 1 > debutDePage)
            --tableau.coupures.last();
    }
}

// Makes an edit reach the end of the document, so that the layout redoes everything
// after the first change. Qt's lazy layout otherwise leaves the blocks it had not
// reached yet without any line (they would not be printed at all).
void etendreALaFin(QTextCursor& curseur)
{
    constexpr int retouche = QTextFormat::UserProperty + 0x1ff;
    curseur.movePosition(QTextCursor::End);
    QTextBlockFormat marque;
    marque.setProperty(retouche, curseur.blockFormat().intProperty(retouche) + 1);
    curseur.mergeBlockFormat(marque);
}

void insererEntetes(QTextDocument& document, const Tableau& tableau)
{
    const QTextBlock& entete = tableau.entete;
    QTextBlockFormat copie = entete.blockFormat();
    copie.setProperty(Rapport::ProprieteRangee, int(Rapport::EnteteRepete));
    copie.setTopMargin(0);
    copie.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    QList<QTextFragment> morceaux;
    for (auto it = entete.begin(); !it.atEnd(); ++it)
        morceaux << it.fragment();
    QTextCursor curseur(&document);
    curseur.beginEditBlock();
    if (tableau.deplacerEntete) {
        QTextBlockFormat saut;
        saut.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        curseur.setPosition(entete.position());
        curseur.mergeBlockFormat(saut);
    }
    for (const int i : tableau.coupures) {
        // After the previous row, so that the row keeps its own format.
        curseur.setPosition(tableau.rangees[i].position() - 1);
        curseur.insertBlock(copie, entete.charFormat());
        for (const QTextFragment& morceau : morceaux)
            curseur.insertText(morceau.text(), morceau.charFormat());
    }
    etendreALaFin(curseur);
    curseur.endEditBlock();
}

void retirerEntetes(QTextDocument& document, const Tableau& tableau)
{
    QTextCursor curseur(&document);
    curseur.beginEditBlock();
    for (const int i : tableau.coupures) {
        const QTextBlock copie = tableau.rangees[i].previous();
        curseur.setPosition(copie.position() - 1);
        curseur.setPosition(copie.position() + copie.length() - 1, QTextCursor::KeepAnchor);
        curseur.removeSelectedText();
    }
    etendreALaFin(curseur);
    curseur.endEditBlock();
}

// Repeats a table's header at the top of each page it continues on. The rows are
// first placed from the heights they carry, before the layout reaches them, so that
// the document is laid out only once; should the layout make a row another height,
// the copies are placed again from the heights laid out.
void repeterEntetes(QTextDocument& document, const QTextBlock& entete)
{
    Tableau tableau = lireTableau(entete);
    if (tableau.rangees.isEmpty())
        return;
    QAbstractTextDocumentLayout* mise = document.documentLayout();
    const double hauteurPage = document.pageSize().height();
    const auto page = [hauteurPage](const QRectF& r) { return int(r.top() / hauteurPage); };
    const QRectF cadreEntete = mise->blockBoundingRect(entete);
    const QRectF cadrePremiere = mise->blockBoundingRect(tableau.rangees.first());
    const double hauteurEntete = cadreEntete.height();
    tableau.deplacerEntete = page(cadrePremiere) != page(cadreEntete);
    const int premierePage = page(cadrePremiere);
    const double debut = tableau.deplacerEntete ? premierePage * hauteurPage + hauteurEntete : cadrePremiere.top();

    const double hauteurRangee = cadrePremiere.height();
    QList<double> prevues;
    for (const QTextBlock& b : tableau.rangees) {
        const double h = RangeesTableau::hauteur(b);
        prevues << (h > 0 ? h : hauteurRangee);
    }
    placerRangees(tableau, hauteurPage, hauteurEntete, premierePage, debut, [&](int i) { return prevues[i]; });
    if (tableau.coupures.isEmpty() && !tableau.deplacerEntete)
        return;
    insererEntetes(document, tableau);

    bool juste = true;
    for (const int i : tableau.coupures) {
        const QTextBlock copie = tableau.rangees[i].previous();
        const QRectF cadre = mise->blockBoundingRect(copie);
        if (page(mise->blockBoundingRect(copie.previous())) != page(cadre) - 1 ||
            page(mise->blockBoundingRect(tableau.rangees[i])) != page(cadre)) {
            juste = false;
            break;
        }
    }
    if (juste && page(mise->blockBoundingRect(tableau.rangees.last())) ==
                     page(mise->blockBoundingRect(tableau.rangees.first())) + tableau.coupures.size())
        return;

    QList<double> hauteurs;
    for (const QTextBlock& b : tableau.rangees)
        hauteurs << mise->blockBoundingRect(b).height();
    retirerEntetes(document, tableau);
    placerRangees(tableau, hauteurPage, hauteurEntete, premierePage, debut, [&hauteurs](int i) { return hauteurs[i]; });
    insererEntetes(document, tableau);
}

void repeterEntetes(QTextDocument& document)
{
    for (QTextBlock b = document.begin(); b.isValid(); b = b.next())
        if (proprieteEntiere(b, Rapport::ProprieteRangee) == Rapport::Entete)
            repeterEntetes(document, b);
}

// The footer's height, in points, under the text of every page.
constexpr double hauteurPied = 22;

struct PiedDePage
{
    QString titulaire;
    QString date; // "Imprimé le 23/11/2026"
};

// A thin rule across the page, then the owner's name on the left, the day in the
// middle and "page / pages" on the right, in a small size. `cadre` is the strip under
// the text, in device pixels.
void peindrePied(QPainter& peintre, const QRectF& cadre, const PiedDePage& pied, int page, int pages)
{
    const double point = peintre.device()->logicalDpiY() / 72.0;
    peintre.save();
    const double regle = cadre.top() + 8 * point;
    peintre.setPen(QPen(QColor(0x80, 0x80, 0x80), 0.5 * point));
    peintre.drawLine(QPointF(cadre.left(), regle), QPointF(cadre.right(), regle));
    peintre.setPen(Qt::black);
    peintre.setFont(Rapport::police(8));
    const QRectF texte(cadre.left(), regle, cadre.width(), cadre.bottom() - regle);
    const int bas = Qt::AlignBottom | Qt::TextSingleLine;
    if (!pied.titulaire.isEmpty())
        peintre.drawText(texte, Qt::AlignLeft | bas, pied.titulaire);
    peintre.drawText(texte, Qt::AlignHCenter | bas, pied.date);
    peintre.drawText(texte, Qt::AlignRight | bas, QStringLiteral("%1 / %2").arg(page).arg(pages));
    peintre.restore();
}

// Paints the laid-out pages, as QTextDocument::print would, with a clip one device
// pixel short of the page's end: a shaded block starting the next page otherwise left
// a hairline at the foot of this one. Honours the page ranges of a print dialog.
int peindrePages(QTextDocument& document, QPagedPaintDevice& appareil, const PiedDePage& pied)
{
    QPainter peintre(&appareil);
    if (!peintre.isActive())
        return 0;
    const QSizeF page = document.pageSize();
    const int nombre = document.pageCount();
    const QPageRanges plages = appareil.pageRanges();
    QAbstractTextDocumentLayout::PaintContext contexte;
    contexte.palette.setColor(QPalette::Text, Qt::black);
    int peintes = 0;
    for (int i = 0; i < nombre; ++i) {
        if (!plages.isEmpty() && !plages.contains(i + 1))
            continue;
        if (peintes++ > 0)
            appareil.newPage();
        const QRectF vue(0, i * page.height(), page.width(), page.height() - 1);
        peintre.save();
        peintre.translate(0, -vue.top());
        peintre.setClipRect(vue);
        contexte.clip = vue;
        document.documentLayout()->draw(&peintre, contexte);
        peintre.restore();
        peindrePied(peintre, QRectF(0, page.height(), page.width(), appareil.height() - page.height()), pied, i + 1,
                    nombre);
    }
    return peintes;
}

} // namespace

int ExportPdf::mettreEnPages(const QTextDocument& document, QPagedPaintDevice& appareil)
{
    std::unique_ptr<QTextDocument> copie(document.clone());
    copie->setUndoRedoEnabled(false);
    copie->setDocumentMargin(document.documentMargin());
    copie->setDefaultFont(document.defaultFont());
    const double largeurPoints = appareil.width() * 72.0 / appareil.logicalDpiX();
    ajusterSeparateurs(*copie, Rapport::points(largeurPoints));
    // Laid out on the device itself, so that glyphs are placed at its resolution and
    // not scaled up from the screen's.
    copie->documentLayout()->setPaintDevice(&appareil);
    RangeesTableau::installer(*copie);
    // The text stops above the footer. Whole pixels: the layout places a page's top at
    // its own precision, and a fraction would put it on the page before.
    const double point = appareil.logicalDpiY() / 72.0;
    copie->setPageSize(QSizeF(appareil.width(), std::floor(appareil.height() - hauteurPied * point)));
    repeterEntetes(*copie);
    const PiedDePage pied{Rapport::titulaire(document),
                          QStringLiteral("Imprimé le ") + Horloge::aujourdhui().toString(QStringLiteral("dd/MM/yyyy"))};
    return peindrePages(*copie, appareil, pied);
}

} // namespace corvane
