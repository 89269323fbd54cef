#include "exchange/CsvParser.h"

#include <QBuffer>
#include <QFile>
#include <QtDebug>

namespace corvane {

namespace {

constexpr qint64 TailleMorceau = 64 * 1024;

QString decrireCaractere(char32_t codePoint)
{
    return QStringLiteral("'%1' (0x%2)")
        .arg(QString::fromUcs4(&codePoint, 1), QString::number(codePoint, 16).toUpper());
}

} // namespace

bool estFinDeLigneCsv(QChar c)
{
    const char16_t u = c.unicode();
    return (u >= 0x0A && u <= 0x0D) || u == 0x85 || u == 0x2028 || u == 0x2029;
}

QString CsvParser::refusDelimiteur(QChar delimiter)
{
    if (estFinDeLigneCsv(delimiter))
        return QStringLiteral("The field delimiter may not be a newline");
    if (delimiter == u'"')
        return QStringLiteral("The field delimiter may not be a double quote");
    if (delimiter == u'#')
        return QStringLiteral("The field delimiter may not be an octothorpe");
    return QString();
}

std::unique_ptr<CsvParser> CsvParser::initWithCSVString(const QString& texte, QChar delimiter)
{
    auto tampon = std::make_unique<QBuffer>();
    tampon->setData(texte.toUtf8());
    auto parser = initWithInputStream(tampon.get(), CsvEncodage::Utf8, delimiter);
    if (parser)
        parser->m_fluxPossede = std::move(tampon);
    return parser;
}

std::unique_ptr<CsvParser> CsvParser::initWithContentsOfCSVFile(const QString& chemin, QChar delimiter)
{
    auto fichier = std::make_unique<QFile>(chemin);
    auto parser = initWithInputStream(fichier.get(), CsvEncodage::ADetecter, delimiter);
    if (parser)
        parser->m_fluxPossede = std::move(fichier);
    return parser;
}

std::unique_ptr<CsvParser> CsvParser::initWithInputStream(QIODevice* flux, CsvEncodage usedEncoding, QChar delimiter)
{
    const QString refus = refusDelimiteur(delimiter);
    if (!refus.isEmpty()) {
        qWarning().noquote() << refus;
        return nullptr;
    }
    return std::unique_ptr<CsvParser>(new CsvParser(flux, usedEncoding, delimiter));
}

CsvParser::CsvParser(QIODevice* flux, CsvEncodage encodage, QChar delimiter)
    : m_flux(flux), m_encodage(encodage), m_delimiter(delimiter)
{
}

CsvParser::~CsvParser()
{
    if (m_fluxOuvertIci && m_flux)
        m_flux->close();
}

bool CsvParser::parse()
{
    if (m_utilise)
        return false;
    m_utilise = true;

    if (!ouvrirFlux()) {
        echouer(CsvErreur::FluxIllisible, QStringLiteral("The input stream could not be opened"),
                m_flux ? m_flux->errorString() : QString());
        return false;
    }
    amorcer();

    if (m_delegate)
        m_delegate->parserDidBeginDocument(*this);
    while (!m_annule) {
        sauterFinsDeLigne();
        if (!assurer(1))
            break;
        if (recognizesComments() && courant() == u'#')
            lireCommentaire();
        else if (!lireEnregistrement())
            break;
    }

    if (m_fluxOuvertIci) {
        m_flux->close();
        m_fluxOuvertIci = false;
    }
    const bool reussi = m_erreur.code == CsvErreur::AucuneErreur;
    if (reussi && !m_annule && m_delegate)
        m_delegate->parserDidEndDocument(*this);
    return reussi;
}

bool CsvParser::ouvrirFlux()
{
    if (!m_flux)
        return false;
    if (!m_flux->isOpen()) {
        if (!m_flux->open(QIODevice::ReadOnly))
            return false;
        m_fluxOuvertIci = true;
    }
    return m_flux->isReadable();
}

// Reads enough of the stream to recognise its encoding, then decodes what was read.
void CsvParser::amorcer()
{
    QByteArray debut;
    while (debut.size() < 4) {
        const QByteArray morceau = m_flux->read(TailleMorceau);
        if (morceau.isEmpty()) {
            m_finFlux = true;
            break;
        }
        debut += morceau;
    }
    m_totalBytesRead += debut.size();
    if (m_encodage == CsvEncodage::ADetecter)
        m_encodage = detecterEncodage(debut);
    m_decodeur.emplace(m_encodage);
    m_tampon = m_decodeur->decoder(debut);
    if (m_finFlux)
        m_tampon += m_decodeur->terminer();
}

// True when `nombre` characters are available from the current position.
bool CsvParser::assurer(qsizetype nombre)
{
    while (m_tampon.size() - m_position < nombre) {
        if (m_finFlux)
            return false;
        m_tampon.remove(0, m_position);
        m_position = 0;
        const QByteArray morceau = m_flux->read(TailleMorceau);
        if (morceau.isEmpty()) {
            m_finFlux = true;
            m_tampon += m_decodeur->terminer();
        } else {
            m_totalBytesRead += morceau.size();
            m_tampon += m_decodeur->decoder(morceau);
        }
    }
    return true;
}

void CsvParser::avancer()
{
    const QChar c = m_tampon.at(m_position++);
    if (estFinDeLigneCsv(c)) {
        // CR LF is one line break.
        if (!(c == u'\n' && m_apresRetourChariot))
            ++m_ligne;
        m_colonne = 1;
        m_apresRetourChariot = c == u'\r';
    } else {
        ++m_colonne;
        m_apresRetourChariot = false;
    }
}

// A run of newlines ends one record, so blank lines are skipped; so are lines of only
// whitespace when whitespace is stripped.
void CsvParser::sauterFinsDeLigne()
{
    while (assurer(1)) {
        const QChar c = courant();
        if (!estFinDeLigneCsv(c) && !(stripsLeadingAndTrailingWhitespace() && estEspace(c)))
            return;
        avancer();
    }
}

void CsvParser::sauterEspaces()
{
    while (assurer(1) && estEspace(courant()))
        avancer();
}

bool CsvParser::estEspace(QChar c) const
{
    return c.isSpace() && !estFinDeLigneCsv(c) && c != m_delimiter;
}

void CsvParser::lireCommentaire()
{
    avancer(); // the "#"
    QString commentaire;
    while (assurer(1) && !estFinDeLigneCsv(courant())) {
        commentaire += courant();
        avancer();
    }
    if (m_delegate)
        m_delegate->parserDidReadComment(*this, commentaire);
}

// False when the parse must stop: an error or a cancellation.
bool CsvParser::lireEnregistrement()
{
    ++m_numeroEnregistrement;
    if (m_delegate)
        m_delegate->parserDidBeginLine(*this, m_numeroEnregistrement);
    if (m_annule)
        return false;

    for (m_indexChamp = 0;; ++m_indexChamp) {
        if (stripsLeadingAndTrailingWhitespace())
            sauterEspaces();
        QString champ;
        if (assurer(1) && courant() == u'"')
            lireChampCite(champ);
        else
            lireChampSimple(champ);
        if (m_delegate)
            m_delegate->parserDidReadFieldAtIndex(*this, champ, m_indexChamp);
        if (m_annule)
            return false;
        if (stripsLeadingAndTrailingWhitespace())
            sauterEspaces();

        if (!assurer(1) || estFinDeLigneCsv(courant()))
            break;
        if (courant() != m_delimiter) {
            signalerInattendu(courant());
            return false;
        }
        avancer();
    }

    if (m_delegate)
        m_delegate->parserDidEndLine(*this, m_numeroEnregistrement);
    return !m_annule;
}

// Runs to the closing quote; a quote left open takes the rest of the input.
void CsvParser::lireChampCite(QString& champ)
{
    const bool brut = !sanitizesFields();
    avancer(); // the opening quote
    if (brut)
        champ += u'"';
    while (assurer(1)) {
        const QChar c = courant();
        avancer();
        if (c == u'\\' && recognizesBackslashesAsEscapes()) {
            if (brut)
                champ += c;
            if (assurer(1)) {
                champ += courant();
                avancer();
            } else if (!brut) {
                champ += c; // a backslash that ends the input escapes nothing
            }
        } else if (c == u'"') {
            if (assurer(1) && courant() == u'"') {
                avancer();
                champ += brut ? QStringLiteral("\"\"") : QStringLiteral("\"");
            } else {
                if (brut)
                    champ += c;
                return;
            }
        } else {
            champ += c;
        }
    }
}

void CsvParser::lireChampSimple(QString& champ)
{
    const bool brut = !sanitizesFields();
    const bool rogner = stripsLeadingAndTrailingWhitespace();
    // Trailing whitespace is cut, but never a character that a backslash made literal.
    qsizetype finSignificative = 0;
    while (assurer(1)) {
        const QChar c = courant();
        // The delimiter wins over the escape when the delimiter is itself a backslash.
        if (c == m_delimiter || c == u'"' || estFinDeLigneCsv(c))
            break;
        avancer();
        if (c == u'\\' && recognizesBackslashesAsEscapes()) {
            if (brut || !assurer(1))
                champ += c;
            if (assurer(1)) {
                champ += courant();
                avancer();
            }
            finSignificative = champ.size();
            continue;
        }
        champ += c;
        if (!rogner || !c.isSpace())
            finSignificative = champ.size();
    }
    if (rogner)
        champ.truncate(finSignificative);
}

void CsvParser::signalerInattendu(QChar c)
{
    char32_t codePoint = c.unicode();
    if (c.isHighSurrogate() && assurer(2) && m_tampon.at(m_position + 1).isLowSurrogate())
        codePoint = QChar::surrogateToUcs4(c, m_tampon.at(m_position + 1));
    echouer(CsvErreur::DelimiteurInattendu,
            QStringLiteral("Unexpected delimiter. Expected %1, but got %2")
                .arg(decrireCaractere(m_delimiter.unicode()), decrireCaractere(codePoint)),
            QStringLiteral("Line %1, column %2").arg(m_ligne).arg(m_colonne), m_ligne, m_colonne);
}

void CsvParser::echouer(int code, const QString& description, const QString& details, qint64 ligne, qint64 colonne)
{
    m_erreur = {code, description, details, ligne, colonne};
    if (m_delegate)
        m_delegate->parserDidFailWithError(*this, m_erreur);
}

} // namespace corvane
