#include "exchange/Rapport.h"

#include <QFontMetricsF>

// The lists of a report. Each row is one paragraph with a tab stop per column, which
// lays out and prints many times faster than a QTextTable (a 5,000-row table took
// seconds); rows are shaded in turn, and the header is repeated on each page by the
// export (see ExportPdfPages.cpp).

namespace corvane {

namespace {

// Room on each side of a cell's text, in points.
constexpr double marge = 3;
// Texts are measured at the screen's resolution and printed at the device's: keep a
// little in hand.
constexpr double reserve = 0.97;
// A text column is never squeezed below this width, in points.
constexpr double largeurMinimale = 36;

bool aDroite(const ColonneRapport& colonne)
{
    return colonne.alignement & Qt::AlignRight;
}

// The widths of the columns in points: the shares asked for, then every right-aligned
// column (amounts, counts) widened to its longest text, taken from the room the text
// columns do not use and, when that is not enough, from the text columns themselves,
// whose texts are then cut short.
QList<double> largeursDesColonnes(const QList<ColonneRapport>& colonnes, const QList<double>& besoins)
{
    double fixe = 0;
    int libres = 0;
    for (const ColonneRapport& c : colonnes) {
        if (c.part > 0)
            fixe += c.part;
        else
            ++libres;
    }
    const double partLibre = libres > 0 ? qMax(0.0, 100 - fixe) / libres : 0;
    QList<double> largeurs;
    for (const ColonneRapport& c : colonnes)
        largeurs << Rapport::largeurUtilePoints() * (c.part > 0 ? c.part : partLibre) / 100;

    double manque = 0;
    for (int c = 0; c < colonnes.size(); ++c) {
        if (aDroite(colonnes[c]) && besoins[c] > largeurs[c]) {
            manque += besoins[c] - largeurs[c];
            largeurs[c] = besoins[c];
        }
    }
    // First the room the text columns do not use, then from the columns already cut
    // short (one more letter cut there costs less than a date cut elsewhere), and last
    // from every text column, never below the minimum.
    enum Passe
    {
        Inutilisee,
        DejaCoupees,
        Toutes
    };
    for (const Passe passe : {Inutilisee, DejaCoupees, Toutes}) {
        if (manque <= 0)
            break;
        QList<double> disponibles;
        double total = 0;
        for (int c = 0; c < colonnes.size(); ++c) {
            double disponible = 0;
            if (!aDroite(colonnes[c])) {
                const bool coupee = besoins[c] > largeurs[c];
                const double plancher = passe == Inutilisee ? qMax(besoins[c], largeurMinimale) : largeurMinimale;
                if (passe != DejaCoupees || coupee)
                    disponible = qMax(0.0, largeurs[c] - plancher);
            }
            disponibles << disponible;
            total += disponible;
        }
        if (total <= 0)
            continue;
        const double pris = qMin(manque, total);
        for (int c = 0; c < colonnes.size(); ++c)
            largeurs[c] -= pris * disponibles[c] / total;
        manque -= pris;
    }
    return largeurs;
}

} // namespace

void Rapport::tableau(const QList<ColonneRapport>& colonnes, const QList<QStringList>& lignes,
                      const QStringList& totaux, double taille)
{
    if (colonnes.isEmpty())
        return;
    const int nColonnes = int(colonnes.size());

    // Every cell's text and width (the header and the totals in bold).
    const QTextCharFormat normal = formatTexte(taille);
    const QTextCharFormat gras = formatTexte(taille, true);
    const QFontMetricsF mesuresNormales(normal.font());
    const QFontMetricsF mesuresGrasses(gras.font());
    QList<QStringList> textes;
    QList<QList<double>> mesures;
    QList<double> besoins(nColonnes, 0);
    const auto mesurer = [&](const QStringList& cellules, bool enGras) {
        QStringList t;
        QList<double> m;
        for (int c = 0; c < nColonnes; ++c) {
            t << cellules.value(c).simplified();
            m << (enGras ? mesuresGrasses : mesuresNormales).horizontalAdvance(t.last());
            besoins[c] = qMax(besoins[c], m.last());
        }
        textes << t;
        mesures << m;
    };
    QStringList titres;
    for (const ColonneRapport& c : colonnes)
        titres << c.titre;
    mesurer(titres, true);
    for (const QStringList& ligne : lignes)
        mesurer(ligne, false);
    if (!totaux.isEmpty())
        mesurer(totaux, true);
    for (double& besoin : besoins)
        besoin = besoin / points(1) / reserve + 2 * marge;
    const QList<double> largeurs = largeursDesColonnes(colonnes, besoins);

    // One tab stop per column: left-aligned text starts after the column's left edge,
    // right-aligned text ends before its right edge.
    QList<QTextOption::Tab> taquets;
    QList<double> places;
    double x = 0;
    for (int c = 0; c < nColonnes; ++c) {
        if (aDroite(colonnes[c]))
            taquets << QTextOption::Tab(points(x + largeurs[c] - marge), QTextOption::RightTab);
        else
            taquets << QTextOption::Tab(points(x + marge), QTextOption::LeftTab);
        places << points(largeurs[c] - 2 * marge) * reserve;
        x += largeurs[c];
    }

    QTextBlockFormat base = formatBloc(0, 0);
    base.setTabPositions(taquets);
    base.setProperty(ProprieteTableau, ++m_tableaux);
    base.setNonBreakableLines(true);
    const auto format = [&base](Rangee rangee, const QColor& fond) {
        QTextBlockFormat f = base;
        f.setProperty(ProprieteRangee, int(rangee));
        if (fond.isValid())
            f.setBackground(fond);
        return f;
    };
    QTextBlockFormat entete = format(Entete, QColor(0xdc, 0xdc, 0xdc));
    entete.setTopMargin(points(4));
    const QTextBlockFormat impaire = format(Ligne, QColor());
    const QTextBlockFormat paire = format(Ligne, QColor(0xf2, 0xf2, 0xf2));
    const QTextBlockFormat total = format(Total, QColor(0xdc, 0xdc, 0xdc));

    // The row's first tab is set in a larger size: the line grows around the text, and
    // so does the row's shade (a taller line height would only add room below it).
    const QTextCharFormat cale = formatTexte(taille * 1.4);
    const auto rangee = [&](int i, bool enGras) {
        const QFontMetricsF& m = enGras ? mesuresGrasses : mesuresNormales;
        m_curseur.insertText(QStringLiteral("\t"), cale);
        QString texte;
        for (int c = 0; c < nColonnes; ++c) {
            if (c > 0)
                texte += QLatin1Char('\t');
            const QString& cellule = textes[i][c];
            // A column narrowed to its longest text holds it exactly: rounding must not cut it.
            texte += mesures[i][c] <= places[c] + 0.01 || aDroite(colonnes[c])
                         ? cellule
                         : m.elidedText(cellule, Qt::ElideRight, places[c]);
        }
        m_curseur.insertText(texte, enGras ? gras : normal);
    };

    nouveauBloc(entete, gras);
    rangee(0, true);
    for (int i = 0; i < lignes.size(); ++i) {
        m_curseur.insertBlock(i % 2 ? paire : impaire, normal);
        rangee(i + 1, false);
    }
    if (!totaux.isEmpty()) {
        m_curseur.insertBlock(total, gras);
        rangee(int(textes.size()) - 1, true);
    }
    // What follows keeps some room from the table.
    m_apresTableau = true;
}

} // namespace corvane
