#pragma once

#include "exchange/CsvParser.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace corvane {

// A whole document read at once: one list of field texts per record.
using CsvEnregistrements = QList<QStringList>;

// Readers of a whole file or text. They sanitise fields unless other options are given. On an error
// the records read before it are returned, and `erreur` (when given) tells what went wrong; a record
// cut short by the error is left out. A refused delimiter gives no records and CsvErreur::DelimiteurRefuse.
CsvEnregistrements arrayWithContentsOfCSVFile(const QString& chemin, QChar delimiter = u',',
                                              CsvOptions options = CsvOption::SanitizesFields,
                                              CsvErreur* erreur = nullptr);
CsvEnregistrements CSVComponents(const QString& texte, CsvErreur* erreur = nullptr);
CsvEnregistrements CSVComponentsWithDelimiter(const QString& texte, QChar delimiter, CsvErreur* erreur = nullptr);
CsvEnregistrements CSVComponentsWithOptions(const QString& texte, CsvOptions options, QChar delimiter,
                                            CsvErreur* erreur = nullptr);

// The records as CSV text, delimiter ",", each line ended by a line feed.
QString CSVString(const CsvEnregistrements& enregistrements);

} // namespace corvane
