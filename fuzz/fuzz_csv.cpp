// libFuzzer harness for the CSV codec. The first two bytes choose the parser's settings, the rest is
// the document. Besides crashes, it checks that events come in a sane order, and that the records of
// every complete parse survive being written and read again.
#include "exchange/CsvParser.h"
#include "exchange/CsvWriter.h"

#include <QBuffer>
#include <QtGlobal>

#include <cstdint>
#include <cstdlib>

using namespace corvane;

namespace {

const QChar Delimiteurs[16] = {u',',      u';', u'\t', u' ',      u'|',      u'\\',         u'a',      u'\u00A7',
                               u'\u2028', u'"', u'#',  u'\u0000', u'\uFFFD', QChar(0xD83D), u'\u0085', u'\r'};

const CsvEncodage Encodages[8] = {CsvEncodage::ADetecter,      CsvEncodage::Utf8,
                                  CsvEncodage::Utf16BigEndian, CsvEncodage::Utf16LittleEndian,
                                  CsvEncodage::Utf32BigEndian, CsvEncodage::Utf32LittleEndian,
                                  CsvEncodage::MacRoman,       CsvEncodage::Windows1252};

void exiger(bool condition)
{
    if (!condition)
        abort();
}

class Verificateur : public CsvParserDelegate
{
public:
    explicit Verificateur(int annulerApres) : m_annulerApres(annulerApres) {}

    void parserDidBeginDocument(CsvParser& p) override
    {
        exiger(!debut && !fin);
        debut = true;
        compter(p);
    }
    void parserDidBeginLine(CsvParser& p, qsizetype numero) override
    {
        exiger(debut && !dansLigne && !fin && numero == dernierNumero + 1);
        dernierNumero = numero;
        dansLigne = true;
        enCours.clear();
        compter(p);
    }
    void parserDidReadFieldAtIndex(CsvParser& p, const QString& champ, qsizetype index) override
    {
        exiger(dansLigne && index == enCours.size());
        enCours << champ;
        compter(p);
    }
    void parserDidReadComment(CsvParser& p, const QString& commentaire) override
    {
        exiger(debut && !dansLigne && p.recognizesComments() && !commentaire.contains(u'\n'));
        compter(p);
    }
    void parserDidEndLine(CsvParser& p, qsizetype numero) override
    {
        exiger(dansLigne && numero == dernierNumero && !enCours.isEmpty());
        dansLigne = false;
        enregistrements << enCours;
        compter(p);
    }
    void parserDidEndDocument(CsvParser& p) override
    {
        exiger(debut && !dansLigne && !fin && !erreur);
        fin = true;
        compter(p);
    }
    void parserDidFailWithError(CsvParser& p, const CsvErreur& e) override
    {
        exiger(debut && !fin && !erreur && e.code == CsvErreur::DelimiteurInattendu);
        exiger(e.description.startsWith(QStringLiteral("Unexpected delimiter. Expected '")));
        erreur = true;
        compter(p);
    }

    bool debut = false;
    bool fin = false;
    bool erreur = false;
    bool dansLigne = false;
    qsizetype dernierNumero = 0;
    QStringList enCours;
    QList<QStringList> enregistrements;

private:
    // No event may follow a cancellation.
    void compter(CsvParser& p)
    {
        exiger(!m_annule);
        if (++m_evenements == m_annulerApres) {
            p.cancelParsing();
            m_annule = true;
        }
    }

    int m_annulerApres;
    int m_evenements = 0;
    bool m_annule = false;
};

bool estUnicode(CsvEncodage encodage)
{
    return encodage != CsvEncodage::MacRoman && encodage != CsvEncodage::Windows1252;
}

QByteArray ecrire(const QList<QStringList>& enregistrements, CsvEncodage encodage, QChar delimiter)
{
    QBuffer tampon;
    auto writer = CsvWriter::initWithOutputStream(&tampon, encodage, delimiter);
    exiger(writer != nullptr);
    for (const QStringList& enregistrement : enregistrements)
        writer->writeLineOfFields(enregistrement);
    exiger(writer->closeStream());
    return tampon.data();
}

// Written with sanitising in mind: read back sanitised, every field must come back the same.
void verifierAllerRetour(const QList<QStringList>& enregistrements, CsvEncodage encodage, QChar delimiter)
{
    if (enregistrements.isEmpty() || delimiter.isSurrogate())
        return;
    for (const QStringList& enregistrement : enregistrements) {
        for (const QString& champ : enregistrement) {
            if (!champ.isValidUtf16())
                return; // a lone surrogate cannot be encoded
        }
    }
    // A leading U+FEFF is indistinguishable from a byte-order mark.
    if (enregistrements.first().first().startsWith(QChar(0xFEFF)))
        return;
    const CsvEncodage sortie =
        estUnicode(encodage) && encodage != CsvEncodage::ADetecter ? encodage : CsvEncodage::Utf8;
    QBuffer tampon;
    tampon.setData(ecrire(enregistrements, sortie, delimiter));
    auto parser = CsvParser::initWithInputStream(&tampon, sortie, delimiter);
    Verificateur relecture(-1);
    parser->setSanitizesFields(true);
    parser->setDelegate(&relecture);
    exiger(parser->parse());
    exiger(relecture.enregistrements == enregistrements);
}

void ignorerMessages(QtMsgType, const QMessageLogContext&, const QString&) {}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    qInstallMessageHandler(ignorerMessages); // refused delimiters are logged
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* donnees, size_t taille)
{
    const uint8_t reglages = taille > 0 ? donnees[0] : 0;
    const uint8_t choix = taille > 1 ? donnees[1] : 0;
    const QByteArray document =
        taille > 2 ? QByteArray(reinterpret_cast<const char*>(donnees + 2), taille - 2) : QByteArray();

    const CsvOptions options = CsvOptions::fromInt(reglages & 0x0F);
    const CsvEncodage encodage = Encodages[(reglages >> 4) & 0x07];
    const bool depuisTexte = reglages & 0x80;
    const QChar delimiter = Delimiteurs[choix & 0x0F];
    const int annulerApres = (choix >> 4) == 0 ? -1 : (choix >> 4) * 3;

    QBuffer tampon;
    tampon.setData(document);
    std::unique_ptr<CsvParser> parser = depuisTexte
                                            ? CsvParser::initWithCSVString(QString::fromUtf8(document), delimiter)
                                            : CsvParser::initWithInputStream(&tampon, encodage, delimiter);
    exiger((parser == nullptr) == !CsvParser::refusDelimiteur(delimiter).isEmpty());
    if (!parser)
        return 0;

    Verificateur verificateur(annulerApres);
    parser->setOptions(options);
    parser->setDelegate(&verificateur);
    const bool reussi = parser->parse();
    exiger(reussi == !verificateur.erreur);
    if (parser->estAnnule())
        return 0;
    exiger(verificateur.debut && verificateur.fin == reussi);
    if (!reussi)
        return 0;
    if (!depuisTexte)
        exiger(parser->totalBytesRead() == document.size());

    if (estUnicode(encodage))
        verifierAllerRetour(verificateur.enregistrements, encodage, delimiter);
    else
        ecrire(verificateur.enregistrements, encodage, delimiter); // only for crashes
    return 0;
}
