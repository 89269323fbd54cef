#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFormat>

#include <memory>

namespace corvane {

// One column of a report table. Amounts are right-aligned; `part` is the column's
// share of the page width in percent (0: an equal share of what the others leave),
// which it keeps while every column's texts fit in their shares.
struct ColonneRapport
{
    QString titre;
    Qt::Alignment alignement = Qt::AlignLeft;
    double part = 0;

    static ColonneRapport texte(const QString& titre, double part = 0) { return {titre, Qt::AlignLeft, part}; }
    static ColonneRapport montant(const QString& titre, double part = 0) { return {titre, Qt::AlignRight, part}; }
};

// Composes the styled text of a printed report: titles, label lines, tables, the
// separator and the stamp, in black on the report font. The document is then handed
// to ExportPdf, which lays it out on the page. Lengths given to this class are in
// points; the document itself counts in the layout's own units (see points()).
class Rapport
{
public:
    static constexpr double TailleTitre = 22;
    static constexpr double TailleSection = 18;
    static constexpr double TailleSousSection = 15;
    static constexpr double TailleCorps = 12;
    static constexpr double TailleTableauDense = 10;

    // Block properties that mark the lines of a table, for the export.
    static constexpr int ProprieteTableau = QTextFormat::UserProperty + 0x100; // table number, from 1
    static constexpr int ProprieteRangee = QTextFormat::UserProperty + 0x101;  // a Rangee
    // The root frame's property that names the document's owner.
    static constexpr int ProprieteTitulaire = QTextFormat::UserProperty + 0x102;
    enum Rangee
    {
        Entete = 1,
        Ligne = 2,
        Total = 3,
        EnteteRepete = 4, // added by the export at the top of a page
    };

    // The separator and stamp pictures, as named in the document's resources.
    static const QString NomLigne;  // "ligne.png"
    static const QString NomTampon; // "tampon.png"

    Rapport();
    ~Rapport();
    Rapport(const Rapport&) = delete;
    Rapport& operator=(const Rapport&) = delete;

    QTextDocument& document() { return *m_document; }
    // The insertion point, always at the end of what was composed.
    QTextCursor& curseur() { return m_curseur; }
    // Gives the document away (the report is then empty and should not be used again).
    std::unique_ptr<QTextDocument> prendreDocument();

    // The report's name, which the PDF carries as its title (the document's DocumentTitle).
    void nommer(const QString& nom);
    // Whose document it is: the name every page's footer shows ("" for none).
    void attribuer(const QString& titulaire);
    static QString titulaire(const QTextDocument& document);

    void titre(const QString& texte);
    void section(const QString& texte);
    void sousSection(const QString& texte);
    // Body text; a "\n" starts a new paragraph.
    void paragraphe(const QString& texte);
    // Body text in bold and/or in a colour of its own (a report's warnings and good news).
    void paragraphe(const QString& texte, bool gras, const QColor& couleur);
    // "Libellé : valeur".
    void ligne(const QString& libelle, const QString& valeur);
    // The horizontal rule "ligne.png", across the page.
    void separateur();
    // A picture (the profile photo), `largeurPoints` wide, its proportions kept.
    void image(const QImage& image, const QString& nom, double largeurPoints);
    // A list: a header row repeated on every page, then one row per entry; `totaux`
    // (optional) is a last row in bold. Cells past the number of columns are ignored.
    // Columns are sized to their texts; when the page is too narrow for them all, the
    // widest text columns wrap their cells onto several lines and the row grows. Nothing
    // is cut, and a right-aligned text (an amount) never wraps. A list of many columns
    // may be set smaller than the body (`taille` in points).
    void tableau(const QList<ColonneRapport>& colonnes, const QList<QStringList>& lignes,
                 const QStringList& totaux = {}, double taille = TailleCorps);
    // The next part starts on a new page.
    void sautDePage();
    // "\n\n", a tab, then the stamp bearing `titulaire` (the user's name).
    void ajouteTamponDans(const QString& titulaire);

    // The text of a label line, as printed.
    static QString texteLigne(const QString& libelle, const QString& valeur);
    // An amount in euros in the French format: "1 234,56 €", "-12,50 €" (Qt groups
    // digits with U+202F and puts U+00A0 before the sign).
    static QString montant(double euros);
    // The report font at a size in points: "Lucida Grande" where the system has it,
    // else a sans-serif of the same kind.
    static QFont police(double taillePoints, bool gras = false);
    static const QStringList& famillesPolice();
    // The report's character and paragraph formats (sizes and margins in points).
    static QTextCharFormat formatTexte(double taillePoints, bool gras = false);
    static QTextBlockFormat formatBloc(double avant, double apres, Qt::Alignment alignement = Qt::AlignLeft);
    // Points to the document's layout units (device-independent pixels).
    static double points(double valeur);
    // The width of A4 between the 20-point margins, in points.
    static double largeurUtilePoints();

private:
    void nouveauBloc(const QTextBlockFormat& bloc, const QTextCharFormat& caracteres);
    void ajouterTexte(const QString& texte, double taille, bool gras, double avant, double apres);

    std::unique_ptr<QTextDocument> m_document;
    QTextCursor m_curseur;
    bool m_vide = true;
    bool m_sautDePage = false;
    bool m_apresTableau = false;
    int m_tableaux = 0;
    int m_rangees = 0;
};

} // namespace corvane
