#pragma once

#include <QString>
#include <QStringList>

namespace corvane {

class BaseDeDonnees;

// What an export wrote: the file and its rows of data (header and closing line left out), or why
// nothing was written.
struct ResultatExportCsv
{
    QString fichier;
    int lignes = 0;
    QString erreur;

    bool reussi() const { return erreur.isEmpty(); }
};

// One list of the document written as a CSV file: UTF-8, delimiter ",", dates as stored, numbers in
// their plain decimal form ("1234.5"), and a closing "#" line naming the program.
class ExportCsv
{
public:
    explicit ExportCsv(BaseDeDonnees& base) : m_base(base) {}

    static QString titre();
    // The lists that can be exported, by the title the window shows (and the file is named after).
    static const QStringList& sources();
    static QString commentaireFinal();

    // Writes "<dossier>/<source>.csv", replacing a file of that name only once the new one is
    // whole. The folder is created when missing. With `entetes`, the column names come first.
    ResultatExportCsv exporter(const QString& source, const QString& dossier, bool entetes);

private:
    BaseDeDonnees& m_base;
};

} // namespace corvane
