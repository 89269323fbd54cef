#pragma once

#include "exchange/CsvEncodage.h"

#include <QChar>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVariantList>

#include <memory>

class QIODevice;

namespace corvane {

// Writes records and comments as CSV. A field holding a newline, the delimiter or a double quote is
// quoted with its quotes doubled; lines end with a line feed.
class CsvWriter
{
public:
    // Null when the file cannot be opened; an existing file is replaced. UTF-8, delimiter ",".
    static std::unique_ptr<CsvWriter> initForWritingToCSVFile(const QString& chemin);
    // The stream is opened for writing if it is not open yet. Null when it cannot be, or when the
    // delimiter is one the parser refuses (see CsvParser::refusDelimiteur).
    static std::unique_ptr<CsvWriter> initWithOutputStream(QIODevice* flux, CsvEncodage encoding, QChar delimiter);

    ~CsvWriter();
    CsvWriter(const CsvWriter&) = delete;
    CsvWriter& operator=(const CsvWriter&) = delete;

    // The value's text; an empty text for a null value.
    void writeField(const QVariant& champ);
    void finishLine();
    void writeLineOfFields(const QVariantList& champs);
    void writeLineOfFields(const QStringList& champs);
    // Each line of the comment becomes a line of its own starting with "#".
    void writeComment(const QString& commentaire);
    // Ends an open line, then closes the stream. False when something could not be written.
    bool closeStream();

    bool aEchoue() const { return m_echec; }
    QChar delimiter() const { return m_delimiter; }

private:
    CsvWriter(QIODevice* flux, CsvEncodage encodage, QChar delimiter);

    bool doitEtreCite(const QString& texte) const;
    void ecrire(const QString& texte);

    QIODevice* m_flux = nullptr;
    std::unique_ptr<QIODevice> m_fluxPossede;
    EncodeurCsv m_encodeur;
    QChar m_delimiter;
    qsizetype m_nombreChamps = 0;
    bool m_seulChampVide = false;
    bool m_echec = false;
};

} // namespace corvane
