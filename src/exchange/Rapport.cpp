#include "exchange/Rapport.h"

#include "exchange/Tampon.h"
#include "store/FormatFrancais.h"

#include <QFontDatabase>
#include <QLocale>
#include <QPageSize>
#include <QPainter>
#include <QTextFrame>
#include <QUrl>

#include <cmath>

// The resolution QTextDocument counts its lengths in when laid out without a device.
Q_GUI_EXPORT int qt_defaultDpiY();

namespace corvane {

const QString Rapport::NomLigne = QStringLiteral("ligne.png");
const QString Rapport::NomTampon = QStringLiteral("tampon.png");

namespace {

// A thin grey rule fading out at both ends, wide enough to stay sharp across a page.
QImage dessineLigne()
{
    QImage image(2400, 24, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter peintre(&image);
    QLinearGradient degrade(0, 0, image.width(), 0);
    const QColor gris(0x50, 0x50, 0x50);
    degrade.setColorAt(0, Qt::transparent);
    degrade.setColorAt(0.06, gris);
    degrade.setColorAt(0.94, gris);
    degrade.setColorAt(1, Qt::transparent);
    peintre.fillRect(QRect(0, 10, image.width(), 4), degrade);
    return image;
}

} // namespace

Rapport::Rapport() : m_document(std::make_unique<QTextDocument>()), m_curseur(m_document.get())
{
    // A report is written once: keeping undo steps would only cost time and memory.
    m_document->setUndoRedoEnabled(false);
    m_document->setDefaultFont(police(TailleCorps));
    m_document->setDocumentMargin(0);
    // Nothing here asks for the document's layout: one would lay every change out as it
    // is made. The export lays out a copy, with the tables' rows drawn (RangeesTableau).
}

Rapport::~Rapport() = default;

std::unique_ptr<QTextDocument> Rapport::prendreDocument()
{
    m_curseur = QTextCursor();
    return std::move(m_document);
}

void Rapport::nommer(const QString& nom)
{
    m_document->setMetaInformation(QTextDocument::DocumentTitle, nom);
}

void Rapport::attribuer(const QString& titulaire)
{
    QTextFrameFormat format = m_document->rootFrame()->frameFormat();
    format.setProperty(ProprieteTitulaire, titulaire.simplified());
    m_document->rootFrame()->setFrameFormat(format);
}

QString Rapport::titulaire(const QTextDocument& document)
{
    return document.rootFrame()->frameFormat().stringProperty(ProprieteTitulaire);
}

const QStringList& Rapport::famillesPolice()
{
    // Lucida Grande is the report's face; elsewhere the nearest humanist sans-serifs.
    static const QStringList familles{QStringLiteral("Lucida Grande"), QStringLiteral("DejaVu Sans"),
                                      QStringLiteral("Verdana"), QStringLiteral("Liberation Sans"),
                                      QStringLiteral("Arial")};
    return familles;
}

QFont Rapport::police(double taillePoints, bool gras)
{
    // One family, chosen once: a list of families would be searched again for every
    // run of text, which costs a third of the time of a long report.
    static const QString famille = [] {
        for (const QString& f : famillesPolice())
            if (QFontDatabase::hasFamily(f))
                return f;
        return famillesPolice().first();
    }();
    QFont police(famille);
    // Latin text needs no shaping: without it, a long report is laid out a quarter
    // faster, and "ffi" stays three letters that a search in the PDF finds, not a ligature.
    police.setStyleHint(QFont::SansSerif, QFont::StyleStrategy(QFont::PreferQuality | QFont::PreferNoShaping));
    police.setPointSizeF(taillePoints);
    police.setBold(gras);
    return police;
}

QTextCharFormat Rapport::formatTexte(double taillePoints, bool gras)
{
    QTextCharFormat format;
    format.setFont(police(taillePoints, gras), QTextCharFormat::FontPropertiesAll);
    format.setForeground(QColor(Qt::black));
    return format;
}

QTextBlockFormat Rapport::formatBloc(double avant, double apres, Qt::Alignment alignement)
{
    QTextBlockFormat format;
    format.setTopMargin(points(avant));
    format.setBottomMargin(points(apres));
    format.setAlignment(alignement);
    return format;
}

double Rapport::points(double valeur)
{
    return valeur * qt_defaultDpiY() / 72.0;
}

double Rapport::largeurUtilePoints()
{
    return QPageSize(QPageSize::A4).size(QPageSize::Point).width() - 2 * 20;
}

QString Rapport::texteLigne(const QString& libelle, const QString& valeur)
{
    // French typography: a no-break space keeps the colon with its label.
    return libelle + QStringLiteral("\u00a0: ") + valeur;
}

QString Rapport::montant(double euros)
{
    return enEuros(euros);
}

void Rapport::nouveauBloc(const QTextBlockFormat& format, const QTextCharFormat& texte)
{
    QTextBlockFormat b = format;
    if (m_sautDePage) {
        b.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        m_sautDePage = false;
    }
    if (m_apresTableau) {
        b.setTopMargin(b.topMargin() + points(8));
        m_apresTableau = false;
    }
    if (m_vide) {
        m_curseur.setBlockFormat(b);
        m_curseur.setBlockCharFormat(texte);
        m_curseur.setCharFormat(texte);
        m_vide = false;
    } else {
        m_curseur.insertBlock(b, texte);
    }
}

void Rapport::ajouterTexte(const QString& texte, double taille, bool gras, double avant, double apres)
{
    const QTextCharFormat format = formatTexte(taille, gras);
    nouveauBloc(formatBloc(avant, apres), format);
    m_curseur.insertText(texte, format);
}

void Rapport::titre(const QString& texte)
{
    ajouterTexte(texte, TailleTitre, true, 0, 10);
}

void Rapport::section(const QString& texte)
{
    ajouterTexte(texte, TailleSection, true, 14, 6);
}

void Rapport::sousSection(const QString& texte)
{
    ajouterTexte(texte, TailleSousSection, true, 10, 4);
}

void Rapport::paragraphe(const QString& texte)
{
    ajouterTexte(texte, TailleCorps, false, 0, 4);
}

void Rapport::paragraphe(const QString& texte, bool gras, const QColor& couleur)
{
    QTextCharFormat format = formatTexte(TailleCorps, gras);
    format.setForeground(couleur);
    nouveauBloc(formatBloc(0, 4), format);
    m_curseur.insertText(texte, format);
}

void Rapport::ligne(const QString& libelle, const QString& valeur)
{
    ajouterTexte(texteLigne(libelle, valeur), TailleCorps, false, 0, 2);
}

void Rapport::separateur()
{
    if (m_document->resource(QTextDocument::ImageResource, QUrl(NomLigne)).isNull())
        m_document->addResource(QTextDocument::ImageResource, QUrl(NomLigne), dessineLigne());
    // A tiny font, so that the line is no taller than the picture.
    const QTextCharFormat texte = formatTexte(2);
    nouveauBloc(formatBloc(4, 8), texte);
    QTextImageFormat format;
    format.setName(NomLigne);
    format.setWidth(points(largeurUtilePoints()));
    format.setHeight(points(6));
    m_curseur.insertImage(format);
}

void Rapport::image(const QImage& image, const QString& nom, double largeurPoints)
{
    if (image.isNull() || image.width() == 0)
        return;
    m_document->addResource(QTextDocument::ImageResource, QUrl(nom), image);
    nouveauBloc(formatBloc(4, 8), formatTexte(TailleCorps));
    QTextImageFormat format;
    format.setName(nom);
    format.setWidth(points(largeurPoints));
    format.setHeight(points(largeurPoints * image.height() / image.width()));
    m_curseur.insertImage(format);
}

void Rapport::sautDePage()
{
    m_sautDePage = true;
}

void Rapport::ajouteTamponDans(const QString& titulaire)
{
    // From a body paragraph of its own, so that the blank lines take nothing from a
    // title or a table row.
    nouveauBloc(formatBloc(0, 0), formatTexte(TailleCorps));
    corvane::ajouteTamponDans(m_curseur, titulaire);
}

} // namespace corvane
