#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringDecoder>
#include <QStringEncoder>
#include <QStringView>

#include <array>
#include <optional>

namespace corvane {

// The text encodings the CSV codec reads and writes.
enum class CsvEncodage
{
    ADetecter, // found from the first bytes of the stream
    Utf8,
    Utf16BigEndian,
    Utf16LittleEndian,
    Utf32BigEndian,
    Utf32LittleEndian,
    MacRoman,    // Qt has no converter: read through glibc's iconv tables
    Windows1252, // likewise; what a spreadsheet saves when it is not told otherwise
};

// The encoding that a byte-order mark at the start of these bytes names, if there is one
// (UTF-32 before UTF-16, since "FF FE 00 00" starts both).
std::optional<CsvEncodage> encodageDeLaMarque(QByteArrayView debut);

// Guesses an encoding from the first bytes of a stream: a byte-order mark; else the NUL bytes that
// UTF-16 or UTF-32 text starting with an ASCII character has; else UTF-8 when the bytes are valid
// UTF-8; else Windows-1252. At least four bytes should be given when the stream has them.
CsvEncodage detecterEncodage(QByteArrayView debut);

// Bytes to text, chunk after chunk: a sequence cut between two chunks is completed by the next one.
// A byte-order mark at the very start is dropped; bytes that mean nothing become U+FFFD.
class DecodeurCsv
{
public:
    explicit DecodeurCsv(CsvEncodage encodage);

    QString decoder(QByteArrayView octets);
    // At the end of the stream: a replacement character for a sequence left incomplete, or nothing.
    QString terminer();

private:
    // Reaches the converter's state to tell whether bytes are waiting for the rest of a sequence.
    class DecodeurQt : public QStringDecoder
    {
    public:
        using QStringDecoder::QStringDecoder;
        bool sequenceEnAttente() const { return state.remainingChars != 0; }
    };

    std::optional<DecodeurQt> m_qt;
    const std::array<char16_t, 256>* m_table = nullptr;
};

// Text to bytes. UTF-16 and UTF-32 output starts with a byte-order mark, since their byte order cannot be
// told otherwise; a character that an 8-bit encoding lacks is written as "?".
class EncodeurCsv
{
public:
    explicit EncodeurCsv(CsvEncodage encodage);

    QByteArray encoder(QStringView texte);

private:
    std::optional<QStringEncoder> m_qt;
    CsvEncodage m_encodage;
};

} // namespace corvane
