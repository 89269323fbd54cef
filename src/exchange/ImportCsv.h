#pragma once

#include "exchange/CsvEncodage.h"
#include "store/BaseDeDonnees.h"

#include <QChar>
#include <QString>
#include <QStringList>

namespace corvane {

// A CSV file read for the import grid.
struct LectureCsv
{
    // The grid's columns, "Col_0", "Col_1", …: as many as the longest record has fields.
    QStringList colonnes;
    // Each column's title: the first line's field when the file names its columns, else the identifier.
    QStringList titres;
    // One row per record, keyed by column identifier; a shorter record lacks the last keys.
    Lignes rangees;
    // Why the reading stopped before the end of the file, in French ("" when it was read whole); the
    // rows read before stay.
    QString erreur;
    qint64 ligneErreur = 0; // the file's line where it stopped, from 1 (0 when it could not be read at all)

    bool estComplete() const { return erreur.isEmpty(); }
};

// Employers imported from a CSV file: the file is read with a chosen delimiter and encoding, each
// of its columns is given one of the employers' fields (or none), and every row becomes an employer.
class ImportCsv
{
public:
    static QString titre();
    // The choices of a column's header: "- Ne pas importer -" first, then the employers' fields.
    static const QStringList& entetes();
    static QString nePasImporter();
    // The encodings in the list's order: Mac Roman, UTF-8, UTF-16 and UTF-32 big- then little-endian.
    static const QStringList& encodages();
    static CsvEncodage encodage(int position);
    // The delimiter a separator item stands for: its first character, or a tab for "Tabulation".
    static QChar separateur(const QString& element);
    static QString identifiantColonne(qsizetype index);

    static QString messageEntetesEnDouble();
    static QString messageRaisonSocialeEtCommune();
    static QString messageAucuneDonnee();

    // Reads the file with backslash escapes and sanitised fields; "#" lines are comments. A file
    // starting with a byte-order mark is read in the mark's encoding, whatever the one given. With
    // `titresSurLaPremiereLigne` the first record names the columns and is not a row.
    static LectureCsv lire(const QString& chemin, QChar separateur, CsvEncodage encodage,
                           bool titresSurLaPremiereLigne);

    // The checks before an import, in order ("" when it may go on): every header other than
    // "- Ne pas importer -" used once, a "Raison Sociale" and a "Commune", at least one row.
    // `entetes` holds each column's header, in the grid's order.
    static QString refus(const QStringList& entetes, qsizetype nombreRangees);

    // Inserts one employer per row, all of them or none: the number inserted, or -1 with `*erreur`
    // set (a refusal of `refus`, or the write that failed). Fields of headers no column has are "".
    static int importer(BaseDeDonnees& base, const LectureCsv& lecture, const QStringList& entetes, QString* erreur);
};

} // namespace corvane
