#include "exchange/CsvEncodage.h"

#include <QHash>

#include <iconv.h>

namespace corvane {

namespace {

constexpr char16_t CaractereRemplacement = 0xFFFD;

std::optional<QStringConverter::Encoding> encodageQt(CsvEncodage encodage)
{
    switch (encodage) {
    case CsvEncodage::ADetecter:
    case CsvEncodage::Utf8:
        return QStringConverter::Utf8;
    case CsvEncodage::Utf16BigEndian:
        return QStringConverter::Utf16BE;
    case CsvEncodage::Utf16LittleEndian:
        return QStringConverter::Utf16LE;
    case CsvEncodage::Utf32BigEndian:
        return QStringConverter::Utf32BE;
    case CsvEncodage::Utf32LittleEndian:
        return QStringConverter::Utf32LE;
    case CsvEncodage::MacRoman:
    case CsvEncodage::Windows1252:
        break;
    }
    return std::nullopt;
}

// Asks iconv for each of the 256 bytes once. Without iconv's tables (a system without gconv
// modules) only ASCII is known and every other byte reads as U+FFFD.
std::array<char16_t, 256> construireTable(const char* nomIconv)
{
    std::array<char16_t, 256> table;
    for (int octet = 0; octet < 256; ++octet)
        table[octet] = octet < 0x80 ? char16_t(octet) : CaractereRemplacement;

    iconv_t conversion = iconv_open("UTF-16LE", nomIconv);
    if (conversion == reinterpret_cast<iconv_t>(-1))
        return table;
    for (int octet = 0; octet < 256; ++octet) {
        iconv(conversion, nullptr, nullptr, nullptr, nullptr);
        char entree = char(octet);
        char sortie[8];
        char* pEntree = &entree;
        char* pSortie = sortie;
        size_t resteEntree = 1;
        size_t resteSortie = sizeof sortie;
        const size_t resultat = iconv(conversion, &pEntree, &resteEntree, &pSortie, &resteSortie);
        const bool unCaractere = resultat != size_t(-1) && resteEntree == 0 && sizeof sortie - resteSortie == 2;
        table[octet] = unCaractere ? char16_t(uchar(sortie[0]) | uchar(sortie[1]) << 8) : CaractereRemplacement;
    }
    iconv_close(conversion);
    return table;
}

const std::array<char16_t, 256>* tableOctets(CsvEncodage encodage)
{
    static const std::array<char16_t, 256> macRoman = construireTable("MACINTOSH");
    static const std::array<char16_t, 256> windows1252 = construireTable("CP1252");
    if (encodage == CsvEncodage::MacRoman)
        return &macRoman;
    if (encodage == CsvEncodage::Windows1252)
        return &windows1252;
    return nullptr;
}

QHash<char16_t, char> tableInverse(const std::array<char16_t, 256>& table)
{
    QHash<char16_t, char> inverse;
    for (int octet = 0; octet < 256; ++octet) {
        if (table[octet] != CaractereRemplacement && !inverse.contains(table[octet]))
            inverse.insert(table[octet], char(octet));
    }
    return inverse;
}

const QHash<char16_t, char>& tableInverse(CsvEncodage encodage)
{
    static const QHash<char16_t, char> macRoman = tableInverse(*tableOctets(CsvEncodage::MacRoman));
    static const QHash<char16_t, char> windows1252 = tableInverse(*tableOctets(CsvEncodage::Windows1252));
    return encodage == CsvEncodage::MacRoman ? macRoman : windows1252;
}

} // namespace

std::optional<CsvEncodage> encodageDeLaMarque(QByteArrayView debut)
{
    const qsizetype taille = debut.size();
    auto octet = [&](qsizetype i) { return uchar(debut[i]); };

    if (taille >= 4 && octet(0) == 0 && octet(1) == 0 && octet(2) == 0xFE && octet(3) == 0xFF)
        return CsvEncodage::Utf32BigEndian;
    if (taille >= 4 && octet(0) == 0xFF && octet(1) == 0xFE && octet(2) == 0 && octet(3) == 0)
        return CsvEncodage::Utf32LittleEndian;
    if (taille >= 3 && octet(0) == 0xEF && octet(1) == 0xBB && octet(2) == 0xBF)
        return CsvEncodage::Utf8;
    if (taille >= 2 && octet(0) == 0xFE && octet(1) == 0xFF)
        return CsvEncodage::Utf16BigEndian;
    if (taille >= 2 && octet(0) == 0xFF && octet(1) == 0xFE)
        return CsvEncodage::Utf16LittleEndian;
    return std::nullopt;
}

CsvEncodage detecterEncodage(QByteArrayView debut)
{
    if (const auto marque = encodageDeLaMarque(debut))
        return *marque;
    const qsizetype taille = debut.size();
    auto octet = [&](qsizetype i) { return uchar(debut[i]); };

    // Without a mark: a first ASCII character shows its zero bytes.
    if (taille >= 4 && octet(0) == 0 && octet(1) == 0 && octet(2) == 0 && octet(3) != 0)
        return CsvEncodage::Utf32BigEndian;
    if (taille >= 4 && octet(0) != 0 && octet(1) == 0 && octet(2) == 0 && octet(3) == 0)
        return CsvEncodage::Utf32LittleEndian;
    if (taille >= 2 && octet(0) == 0 && octet(1) != 0)
        return CsvEncodage::Utf16BigEndian;
    if (taille >= 2 && octet(0) != 0 && octet(1) == 0)
        return CsvEncodage::Utf16LittleEndian;

    // A stateful decoder holds a sequence cut at the end of the sample instead of calling it an error.
    QStringDecoder utf8(QStringConverter::Utf8);
    const QString texte = utf8.decode(debut); // the conversion only runs when its result is taken
    Q_UNUSED(texte);
    return utf8.hasError() ? CsvEncodage::Windows1252 : CsvEncodage::Utf8;
}

DecodeurCsv::DecodeurCsv(CsvEncodage encodage)
{
    if (const auto qt = encodageQt(encodage))
        m_qt.emplace(*qt);
    else
        m_table = tableOctets(encodage);
}

QString DecodeurCsv::decoder(QByteArrayView octets)
{
    if (m_qt)
        return m_qt->decode(octets);
    QString texte(octets.size(), Qt::Uninitialized);
    QChar* sortie = texte.data();
    for (const char octet : octets)
        *sortie++ = QChar((*m_table)[uchar(octet)]);
    return texte;
}

QString DecodeurCsv::terminer()
{
    if (m_qt && m_qt->sequenceEnAttente()) {
        m_qt->resetState();
        return QString(QChar(CaractereRemplacement));
    }
    return QString();
}

EncodeurCsv::EncodeurCsv(CsvEncodage encodage) : m_encodage(encodage)
{
    if (const auto qt = encodageQt(encodage)) {
        const bool marque = encodage != CsvEncodage::Utf8 && encodage != CsvEncodage::ADetecter;
        m_qt.emplace(*qt, marque ? QStringConverter::Flag::WriteBom : QStringConverter::Flag::Default);
    }
}

QByteArray EncodeurCsv::encoder(QStringView texte)
{
    if (m_qt)
        return m_qt->encode(texte);
    const QHash<char16_t, char>& inverse = tableInverse(m_encodage);
    QByteArray octets;
    octets.reserve(texte.size());
    for (qsizetype i = 0; i < texte.size(); ++i) {
        const char16_t unite = texte[i].unicode();
        if (unite < 0x80) {
            octets.append(char(unite));
            continue;
        }
        // A character outside the BMP is one "?", not two.
        if (QChar::isHighSurrogate(unite) && i + 1 < texte.size() && texte[i + 1].isLowSurrogate())
            ++i;
        octets.append(inverse.value(unite, '?'));
    }
    return octets;
}

} // namespace corvane
