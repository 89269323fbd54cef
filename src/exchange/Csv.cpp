#include "exchange/Csv.h"

#include "exchange/CsvWriter.h"

#include <QBuffer>

namespace corvane {

namespace {

// Keeps each record once it has ended.
class Collecteur : public CsvParserDelegate
{
public:
    void parserDidBeginLine(CsvParser&, qsizetype) override { m_enCours.clear(); }
    void parserDidReadFieldAtIndex(CsvParser&, const QString& champ, qsizetype) override { m_enCours.append(champ); }
    void parserDidEndLine(CsvParser&, qsizetype) override { m_enregistrements.append(m_enCours); }

    CsvEnregistrements m_enregistrements;

private:
    QStringList m_enCours;
};

CsvEnregistrements lire(std::unique_ptr<CsvParser> parser, QChar delimiter, CsvOptions options, CsvErreur* erreur)
{
    if (!parser) {
        if (erreur)
            *erreur = {CsvErreur::DelimiteurRefuse, CsvParser::refusDelimiteur(delimiter), QString()};
        return {};
    }
    Collecteur collecteur;
    parser->setOptions(options);
    parser->setDelegate(&collecteur);
    parser->parse();
    if (erreur)
        *erreur = parser->erreur();
    return collecteur.m_enregistrements;
}

} // namespace

CsvEnregistrements arrayWithContentsOfCSVFile(const QString& chemin, QChar delimiter, CsvOptions options,
                                              CsvErreur* erreur)
{
    return lire(CsvParser::initWithContentsOfCSVFile(chemin, delimiter), delimiter, options, erreur);
}

CsvEnregistrements CSVComponents(const QString& texte, CsvErreur* erreur)
{
    return CSVComponentsWithOptions(texte, CsvOption::SanitizesFields, u',', erreur);
}

CsvEnregistrements CSVComponentsWithDelimiter(const QString& texte, QChar delimiter, CsvErreur* erreur)
{
    return CSVComponentsWithOptions(texte, CsvOption::SanitizesFields, delimiter, erreur);
}

CsvEnregistrements CSVComponentsWithOptions(const QString& texte, CsvOptions options, QChar delimiter,
                                            CsvErreur* erreur)
{
    return lire(CsvParser::initWithCSVString(texte, delimiter), delimiter, options, erreur);
}

QString CSVString(const CsvEnregistrements& enregistrements)
{
    QBuffer tampon;
    tampon.open(QIODevice::WriteOnly);
    {
        auto writer = CsvWriter::initWithOutputStream(&tampon, CsvEncodage::Utf8, u',');
        for (const QStringList& enregistrement : enregistrements)
            writer->writeLineOfFields(enregistrement);
    }
    return QString::fromUtf8(tampon.data());
}

} // namespace corvane
