#pragma once

#include "exchange/CsvParser.h"

#include <QFile>
#include <QList>
#include <QString>
#include <QStringList>

namespace corvane {

// Keeps every event of a parse, in order, and the records it builds from them.
class JournalCsv : public CsvParserDelegate
{
public:
    void parserDidBeginDocument(CsvParser&) override { evenements << QStringLiteral("debut"); }
    void parserDidBeginLine(CsvParser&, qsizetype numero) override
    {
        evenements << QStringLiteral("ligne %1").arg(numero);
        enCours.clear();
    }
    void parserDidReadFieldAtIndex(CsvParser&, const QString& champ, qsizetype index) override
    {
        evenements << QStringLiteral("champ %1 [%2]").arg(index).arg(champ);
        enCours << champ;
    }
    void parserDidReadComment(CsvParser&, const QString& commentaire) override
    {
        evenements << QStringLiteral("commentaire [%1]").arg(commentaire);
        commentaires << commentaire;
    }
    void parserDidEndLine(CsvParser&, qsizetype numero) override
    {
        evenements << QStringLiteral("fin ligne %1").arg(numero);
        enregistrements << enCours;
    }
    void parserDidEndDocument(CsvParser&) override { evenements << QStringLiteral("fin"); }
    void parserDidFailWithError(CsvParser&, const CsvErreur& e) override
    {
        evenements << QStringLiteral("erreur %1").arg(e.code);
        erreurs << e;
    }

    QStringList evenements;
    QList<QStringList> enregistrements;
    QStringList commentaires;
    QList<CsvErreur> erreurs;

private:
    QStringList enCours;
};

inline bool ecrireFichier(const QString& chemin, const QByteArray& octets)
{
    QFile fichier(chemin);
    return fichier.open(QIODevice::WriteOnly) && fichier.write(octets) == octets.size();
}

inline QByteArray lireFichier(const QString& chemin)
{
    QFile fichier(chemin);
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray();
}

} // namespace corvane
