#pragma once

#include "exchange/CsvEncodage.h"

#include <QChar>
#include <QFlags>
#include <QString>

#include <memory>
#include <optional>

class QIODevice;

namespace corvane {

class CsvParser;

// Why a parse stopped. The codec has its own error domain and codes.
struct CsvErreur
{
    enum Code
    {
        AucuneErreur = 0,
        DelimiteurInattendu = 1, // something other than the delimiter or a newline after a field
        FluxIllisible = 2,       // the input stream could not be opened for reading
        DelimiteurRefuse = 3,    // only from the convenience readers, which have no parser to refuse
    };

    static QString domaine() { return QStringLiteral("corvane.csv"); }

    int code = AucuneErreur;
    QString description;
    QString details; // where it happened, or the system's reason
    // Where an unexpected delimiter stood in the text, counted from 1 (0 for the other errors).
    qint64 ligne = 0;
    qint64 colonne = 0;
};

// The parser's switches, for the convenience readers that set them all at once.
enum class CsvOption
{
    RecognizesBackslashesAsEscapes = 0x1,
    SanitizesFields = 0x2,
    RecognizesComments = 0x4,
    StripsLeadingAndTrailingWhitespace = 0x8,
};
Q_DECLARE_FLAGS(CsvOptions, CsvOption)
Q_DECLARE_OPERATORS_FOR_FLAGS(CsvOptions)

// Receives a document as it is read. Every event is optional.
// Records are numbered from 1, fields within a record from 0.
class CsvParserDelegate
{
public:
    virtual ~CsvParserDelegate() = default;
    virtual void parserDidBeginDocument(CsvParser& /*parser*/) {}
    virtual void parserDidBeginLine(CsvParser& /*parser*/, qsizetype /*numeroEnregistrement*/) {}
    virtual void parserDidReadFieldAtIndex(CsvParser& /*parser*/, const QString& /*champ*/, qsizetype /*index*/) {}
    virtual void parserDidReadComment(CsvParser& /*parser*/, const QString& /*commentaire*/) {}
    virtual void parserDidEndLine(CsvParser& /*parser*/, qsizetype /*numeroEnregistrement*/) {}
    virtual void parserDidEndDocument(CsvParser& /*parser*/) {}
    virtual void parserDidFailWithError(CsvParser& /*parser*/, const CsvErreur& /*erreur*/) {}
};

// A streaming CSV reader: it decodes its input chunk by chunk and reports records, fields and
// comments to its delegate as they are read, so a large file is never held whole in memory.
// A parser reads its stream once.
class CsvParser
{
public:
    // The refusal message for a delimiter the parser cannot use, or an empty text.
    static QString refusDelimiteur(QChar delimiter);

    // Each returns null (and logs the refusal) when the delimiter is refused.
    static std::unique_ptr<CsvParser> initWithCSVString(const QString& texte, QChar delimiter = u',');
    // The file's encoding is found from its first bytes.
    static std::unique_ptr<CsvParser> initWithContentsOfCSVFile(const QString& chemin, QChar delimiter = u',');
    // The stream is opened for reading if it is not open yet, and then closed after the parse.
    // CsvEncodage::ADetecter finds the encoding from the first bytes; `encodage()` then tells which.
    static std::unique_ptr<CsvParser> initWithInputStream(QIODevice* flux, CsvEncodage usedEncoding, QChar delimiter);

    ~CsvParser();
    CsvParser(const CsvParser&) = delete;
    CsvParser& operator=(const CsvParser&) = delete;

    void setDelegate(CsvParserDelegate* delegate) { m_delegate = delegate; }
    CsvParserDelegate* delegate() const { return m_delegate; }

    bool recognizesBackslashesAsEscapes() const
    {
        return m_options.testFlag(CsvOption::RecognizesBackslashesAsEscapes);
    }
    bool sanitizesFields() const { return m_options.testFlag(CsvOption::SanitizesFields); }
    bool recognizesComments() const { return m_options.testFlag(CsvOption::RecognizesComments); }
    bool stripsLeadingAndTrailingWhitespace() const
    {
        return m_options.testFlag(CsvOption::StripsLeadingAndTrailingWhitespace);
    }
    void setRecognizesBackslashesAsEscapes(bool oui)
    {
        m_options.setFlag(CsvOption::RecognizesBackslashesAsEscapes, oui);
    }
    void setSanitizesFields(bool oui) { m_options.setFlag(CsvOption::SanitizesFields, oui); }
    void setRecognizesComments(bool oui) { m_options.setFlag(CsvOption::RecognizesComments, oui); }
    void setStripsLeadingAndTrailingWhitespace(bool oui)
    {
        m_options.setFlag(CsvOption::StripsLeadingAndTrailingWhitespace, oui);
    }
    CsvOptions options() const { return m_options; }
    void setOptions(CsvOptions options) { m_options = options; }

    // Reads the whole stream, reporting to the delegate. False when the parse failed; the error was
    // reported once to the delegate and stays available from `erreur()`.
    bool parse();
    // From a delegate event: no further event is sent, not even the end of the document.
    void cancelParsing() { m_annule = true; }
    bool estAnnule() const { return m_annule; }

    QChar delimiter() const { return m_delimiter; }
    CsvEncodage encodage() const { return m_encodage; }
    qint64 totalBytesRead() const { return m_totalBytesRead; }
    const CsvErreur& erreur() const { return m_erreur; }

private:
    CsvParser(QIODevice* flux, CsvEncodage encodage, QChar delimiter);

    bool ouvrirFlux();
    void amorcer();
    bool assurer(qsizetype nombre);
    QChar courant() const { return m_tampon.at(m_position); }
    void avancer();

    void sauterFinsDeLigne();
    void sauterEspaces();
    bool estEspace(QChar c) const;
    void lireCommentaire();
    bool lireEnregistrement();
    void lireChampCite(QString& champ);
    void lireChampSimple(QString& champ);
    void signalerInattendu(QChar c);
    void echouer(int code, const QString& description, const QString& details, qint64 ligne = 0, qint64 colonne = 0);

    QIODevice* m_flux = nullptr;
    std::unique_ptr<QIODevice> m_fluxPossede;
    bool m_fluxOuvertIci = false;
    CsvEncodage m_encodage;
    QChar m_delimiter;
    CsvOptions m_options;
    CsvParserDelegate* m_delegate = nullptr;

    std::optional<DecodeurCsv> m_decodeur;
    QString m_tampon; // decoded text not yet consumed starts at m_position
    qsizetype m_position = 0;
    bool m_finFlux = false;
    qint64 m_totalBytesRead = 0;

    bool m_utilise = false;
    bool m_annule = false;
    CsvErreur m_erreur;
    qsizetype m_numeroEnregistrement = 0;
    qsizetype m_indexChamp = 0;
    // Where the next character stands in the text, for error details.
    qint64 m_ligne = 1;
    qint64 m_colonne = 1;
    bool m_apresRetourChariot = false;
};

// Line feed, carriage return, vertical tab, form feed, next line, line and paragraph separators.
bool estFinDeLigneCsv(QChar c);

} // namespace corvane
