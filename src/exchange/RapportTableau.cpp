#include "exchange/RangeesTableau.h"
#include "exchange/Rapport.h"

#include <QFontMetricsF>
#include <QHash>

#include <algorithm>

// The lists of a report. Each row is one paragraph holding one object, which the
// export draws (see RangeesTableau): the cells are measured, broken into lines and
// placed here, once. Rows are shaded in turn, and the header is repeated on each page
// by the export (see ExportPdfPages.cpp).

namespace corvane {

namespace {

// Room on each side of a cell's text, in points.
constexpr double marge = 2.5;
// A text column is never squeezed below this width, in points.
constexpr double largeurMinimale = 36;
// The resolution texts are measured at: the PDF's own (QPdfWriter's default).
constexpr double resolutionMesure = 1200;
// A row's line is set as if in a font this much larger: the shade leaves some room
// above and below the text.
constexpr double cale = 1.4;

bool aDroite(const ColonneRapport& colonne)
{
    return colonne.alignement & Qt::AlignRight;
}

// Widths in points of texts as the PDF sets them: the font is measured at the PDF's
// resolution, where glyph advances are not rounded to the screen's pixels. Each
// distinct text is measured once (a long list repeats its employers and amounts).
class Mesureur
{
public:
    Mesureur(double taille, bool gras)
        : m_metriques(Rapport::police(taille * resolutionMesure / Rapport::points(72), gras))
    {
    }

    double largeur(const QString& texte)
    {
        const auto trouve = m_largeurs.constFind(texte);
        if (trouve != m_largeurs.cend())
            return *trouve;
        const double l = enPoints(m_metriques.horizontalAdvance(texte));
        m_largeurs.insert(texte, l);
        return l;
    }
    double ascendante() const { return enPoints(m_metriques.ascent()); }
    double descendante() const { return enPoints(m_metriques.descent()); }
    double interligne() const { return enPoints(m_metriques.lineSpacing()); }

private:
    static double enPoints(double pixels) { return pixels * 72 / resolutionMesure; }

    QFontMetricsF m_metriques;
    QHash<QString, double> m_largeurs;
};

// Runs of blanks become one space; no-break spaces stay (amounts, a postcode and its town).
QString simplifier(const QString& texte)
{
    QString propre;
    propre.reserve(texte.size());
    bool blanc = false;
    for (const QChar c : texte) {
        if (c == QLatin1Char(' ') || c == QLatin1Char('\t') || c == QLatin1Char('\n') || c == QLatin1Char('\r')) {
            blanc = !propre.isEmpty();
            continue;
        }
        if (blanc)
            propre += QLatin1Char(' ');
        blanc = false;
        propre += c;
    }
    return propre;
}

// Where to split a word too wide for its column: the longest start that fits, ended
// after a "-", "_", "/" or no-break space, or before a "@" or ".", and that leaves
// more than a few letters for the next line (".fr" alone reads badly); else anywhere.
// At least one character.
qsizetype coupure(const QString& mot, double place, Mesureur& mesures)
{
    qsizetype bas = 1;
    qsizetype haut = mot.size() - 1;
    while (bas < haut) {
        const qsizetype milieu = (bas + haut + 1) / 2;
        if (mesures.largeur(mot.left(milieu)) <= place)
            bas = milieu;
        else
            haut = milieu - 1;
    }
    constexpr qsizetype resteMinimal = 5;
    qsizetype courte = 0;
    for (qsizetype n = bas; n > 1; --n) {
        const QChar avant = mot[n - 1];
        const QChar apres = mot[n];
        if (avant == QLatin1Char('-') || avant == QLatin1Char('_') || avant == QLatin1Char('/') ||
            avant == QChar(0x00a0) || apres == QLatin1Char('@') || apres == QLatin1Char('.')) {
            if (mot.size() - n >= resteMinimal)
                return n;
            if (courte == 0)
                courte = n;
        }
    }
    return courte > 0 ? courte : bas;
}

// A cell's text in lines no wider than `place`: broken between words; a word wider
// than the column on its own is split (see coupure).
QStringList lignesDeCellule(const QString& texte, double place, Mesureur& mesures)
{
    if (mesures.largeur(texte) <= place)
        return {texte};
    QStringList lignes;
    QString ligne;
    for (QString mot : texte.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const QString essai = ligne.isEmpty() ? mot : ligne + QLatin1Char(' ') + mot;
        if (mesures.largeur(essai) <= place) {
            ligne = essai;
            continue;
        }
        if (!ligne.isEmpty())
            lignes << ligne;
        while (mot.size() > 1 && mesures.largeur(mot) > place) {
            const qsizetype n = coupure(mot, place, mesures);
            QString debut = mot.left(n);
            if (debut.endsWith(QChar(0x00a0)))
                debut.chop(1);
            lignes << debut;
            mot = mot.mid(n);
        }
        ligne = mot;
    }
    if (!ligne.isEmpty())
        lignes << ligne;
    return lignes;
}

// The widest part of a text that is never broken, in points: a word, or a piece of an
// e-mail address between the places where it reads well broken (before "@" and ".",
// after "-" and "_"). A name or a town is one piece (a postcode is joined to its town
// by a no-break space).
double motLePlusLong(const QString& texte, Mesureur& mesures)
{
    double largeur = 0;
    for (const QString& mot : texte.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        if (!mot.contains(QLatin1Char('@'))) {
            largeur = qMax(largeur, mesures.largeur(mot));
            continue;
        }
        qsizetype debut = 0;
        for (qsizetype i = 1; i <= mot.size(); ++i) {
            const bool fin = i == mot.size() || mot[i] == QLatin1Char('@') || mot[i] == QLatin1Char('.') ||
                             mot[i - 1] == QLatin1Char('-') || mot[i - 1] == QLatin1Char('_');
            if (fin) {
                largeur = qMax(largeur, mesures.largeur(mot.mid(debut, i - debut)));
                debut = i;
            }
        }
    }
    return largeur;
}

// The widest width `plafond` at which the columns fill `total` when each takes
// min(besoin, plafond) and never less than its floor.
double plafondCommun(const QList<double>& besoins, const QList<double>& planchers, double total)
{
    const auto somme = [&](double plafond) {
        double s = 0;
        for (qsizetype c = 0; c < besoins.size(); ++c)
            s += qMax(planchers[c], qMin(besoins[c], plafond));
        return s;
    };
    double bas = 0;
    double haut = *std::max_element(besoins.cbegin(), besoins.cend());
    for (int i = 0; i < 50; ++i) {
        const double milieu = (bas + haut) / 2;
        (somme(milieu) > total ? haut : bas) = milieu;
    }
    return bas;
}

// The widths of the columns in points, each column's texts (`besoins`: the longest,
// margins included) fitted first:
// - when every column's longest text fits in the share asked for, the shares;
// - when all the longest texts fit on the page, each column gets its longest text,
//   and the room left goes to the columns whose share was larger than that;
// - else the columns wrap, never below their widest word (`minimum`, only asked
//   then): each first gets the width that nine texts in ten of it need (`courant`),
//   the widest narrowed to one common width when even that does not fit, so that a
//   single long text wraps rather than every row. Amounts and other right-aligned
//   texts never wrap.
template <typename Minimum, typename Courant>
QList<double> largeursDesColonnes(const QList<ColonneRapport>& colonnes, const QList<double>& besoins, Minimum minimum,
                                  Courant courant)
{
    const qsizetype n = colonnes.size();
    const double total = Rapport::largeurUtilePoints();
    double fixe = 0;
    int libres = 0;
    for (const ColonneRapport& c : colonnes) {
        if (c.part > 0)
            fixe += c.part;
        else
            ++libres;
    }
    const double partLibre = libres > 0 ? qMax(0.0, 100 - fixe) / libres : 0;
    QList<double> parts;
    for (const ColonneRapport& c : colonnes)
        parts << total * (c.part > 0 ? c.part : partLibre) / 100;

    bool tiennent = true;
    double sommeBesoins = 0;
    for (qsizetype c = 0; c < n; ++c) {
        tiennent = tiennent && besoins[c] <= parts[c];
        sommeBesoins += besoins[c];
    }
    if (tiennent)
        return parts;

    if (sommeBesoins <= total) {
        QList<double> largeurs = besoins;
        double surplus = 0;
        for (qsizetype c = 0; c < n; ++c)
            surplus += qMax(0.0, parts[c] - besoins[c]);
        for (qsizetype c = 0; c < n; ++c)
            largeurs[c] += surplus > 0 ? (total - sommeBesoins) * qMax(0.0, parts[c] - besoins[c]) / surplus
                                       : (total - sommeBesoins) / n;
        return largeurs;
    }

    QList<double> minimums;
    double sommeMinimums = 0;
    for (qsizetype c = 0; c < n; ++c) {
        minimums << (aDroite(colonnes[c]) ? besoins[c] : qMin(besoins[c], minimum(c)));
        sommeMinimums += minimums[c];
    }
    if (sommeMinimums > total) {
        // Even one word per line does not fit: the longest words are split too.
        QList<double> planchers;
        for (qsizetype c = 0; c < n; ++c)
            planchers << (aDroite(colonnes[c]) ? besoins[c] : qMin(minimums[c], largeurMinimale));
        const double plafond = plafondCommun(minimums, planchers, total);
        for (qsizetype c = 0; c < n; ++c)
            minimums[c] = qMax(planchers[c], qMin(minimums[c], plafond));
    }
    QList<double> courants;
    double sommeCourants = 0;
    for (qsizetype c = 0; c < n; ++c) {
        courants << (aDroite(colonnes[c]) ? besoins[c] : qMax(minimums[c], qMin(besoins[c], courant(c))));
        sommeCourants += courants[c];
    }
    // Room left over goes to the columns that still wrap, the narrowest served first.
    const bool assez = sommeCourants <= total;
    const QList<double>& hauts = assez ? besoins : courants;
    const QList<double>& bas = assez ? courants : minimums;
    const double plafond = plafondCommun(hauts, bas, total);
    QList<double> largeurs;
    for (qsizetype c = 0; c < n; ++c)
        largeurs << qMax(bas[c], qMin(hauts[c], plafond));
    return largeurs;
}

} // namespace

void Rapport::tableau(const QList<ColonneRapport>& colonnes, const QList<QStringList>& lignes,
                      const QStringList& totaux, double taille)
{
    if (colonnes.isEmpty())
        return;
    const int nColonnes = int(colonnes.size());

    // Every cell's text (the header and the totals in bold), and each column's longest.
    Mesureur normales(taille, false);
    Mesureur grasses(taille, true);
    QList<QStringList> textes;
    QList<bool> enGras;
    QList<double> besoins(nColonnes, 0);
    QList<QList<double>> largeursLues(nColonnes);
    const auto lire = [&](const QStringList& cellules, bool gras) {
        QStringList t;
        for (int c = 0; c < nColonnes; ++c) {
            t << simplifier(cellules.value(c));
            largeursLues[c] << (gras ? grasses : normales).largeur(t.last());
            besoins[c] = qMax(besoins[c], largeursLues[c].last());
        }
        textes << t;
        enGras << gras;
    };
    QStringList titres;
    for (const ColonneRapport& c : colonnes)
        titres << c.titre;
    lire(titres, true);
    for (const QStringList& ligne : lignes)
        lire(ligne, false);
    if (!totaux.isEmpty())
        lire(totaux, true);
    for (double& besoin : besoins)
        besoin += 2 * marge;
    const auto minimum = [&](qsizetype c) {
        double mot = 0;
        for (qsizetype i = 0; i < textes.size(); ++i)
            mot = qMax(mot, motLePlusLong(textes[i][c], enGras[i] ? grasses : normales));
        return mot + 2 * marge;
    };
    const auto courant = [&](qsizetype c) {
        QList<double> l = largeursLues[c];
        const auto neufSurDix = l.begin() + (l.size() - 1) * 9 / 10;
        std::nth_element(l.begin(), neufSurDix, l.end());
        return *neufSurDix + 2 * marge;
    };
    const QList<double> largeurs = largeursDesColonnes(colonnes, besoins, minimum, courant);
    QList<double> gauches;
    double largeurTotale = 0;
    for (const double l : largeurs) {
        gauches << largeurTotale;
        largeurTotale += l;
    }

    const auto format = [this](Rangee rangee, const QColor& fond) {
        QTextBlockFormat f = formatBloc(0, 0);
        f.setProperty(ProprieteTableau, m_tableaux);
        f.setProperty(ProprieteRangee, int(rangee));
        f.setNonBreakableLines(true);
        if (fond.isValid())
            f.setBackground(fond);
        return f;
    };
    ++m_tableaux;
    QTextBlockFormat entete = format(Entete, QColor(0xdc, 0xdc, 0xdc));
    entete.setTopMargin(points(4));
    const QTextBlockFormat impaire = format(Ligne, QColor());
    const QTextBlockFormat paire = format(Ligne, QColor(0xf2, 0xf2, 0xf2));
    const QTextBlockFormat total = format(Total, QColor(0xdc, 0xdc, 0xdc));

    // A row: its cells in lines, each line's text placed in its column. The room above
    // and below is what a font `cale` times larger would leave.
    const auto rangee = [&](int i) {
        Mesureur& mesures = enGras[i] ? grasses : normales;
        QStringList morceaux;
        QVariantList abscisses;
        QVariantList lignesDesMorceaux;
        int nLignes = 1;
        for (int c = 0; c < nColonnes; ++c) {
            const double place = largeurs[c] - 2 * marge;
            const QStringList cellule = aDroite(colonnes[c]) || textes[i][c].isEmpty()
                                            ? QStringList{textes[i][c]}
                                            : lignesDeCellule(textes[i][c], place, mesures);
            for (int l = 0; l < cellule.size(); ++l) {
                if (cellule[l].isEmpty())
                    continue;
                const double x = aDroite(colonnes[c]) ? gauches[c] + largeurs[c] - marge - mesures.largeur(cellule[l])
                                                      : gauches[c] + marge;
                morceaux << cellule[l];
                abscisses << points(x);
                lignesDesMorceaux << l;
            }
            nLignes = qMax(nLignes, int(cellule.size()));
        }
        const double haut = (cale - 1) * mesures.ascendante();
        const double hauteur =
            cale * (mesures.ascendante() + mesures.descendante()) + (nLignes - 1) * mesures.interligne();
        QTextCharFormat objet;
        objet.setObjectType(RangeesTableau::TypeObjet);
        objet.setProperty(RangeesTableau::Textes, morceaux);
        objet.setProperty(RangeesTableau::Abscisses, abscisses);
        objet.setProperty(RangeesTableau::Lignes, lignesDesMorceaux);
        objet.setProperty(RangeesTableau::Largeur, points(largeurTotale));
        objet.setProperty(RangeesTableau::Hauteur, points(hauteur));
        objet.setProperty(RangeesTableau::PremiereLigne, points(haut + mesures.ascendante()));
        objet.setProperty(RangeesTableau::Interligne, points(mesures.interligne()));
        objet.setProperty(RangeesTableau::Taille, taille);
        objet.setProperty(RangeesTableau::Gras, enGras[i]);
        objet.setProperty(RangeesTableau::Numero, ++m_rangees);
        m_curseur.insertText(QString(QChar::ObjectReplacementCharacter), objet);
    };

    const QTextCharFormat normal = formatTexte(taille);
    const QTextCharFormat gras = formatTexte(taille, true);
    nouveauBloc(entete, gras);
    rangee(0);
    for (int i = 0; i < lignes.size(); ++i) {
        m_curseur.insertBlock(i % 2 ? paire : impaire, normal);
        rangee(i + 1);
    }
    if (!totaux.isEmpty()) {
        m_curseur.insertBlock(total, gras);
        rangee(int(textes.size()) - 1);
    }
    // What follows keeps some room from the table.
    m_apresTableau = true;
}

} // namespace corvane
