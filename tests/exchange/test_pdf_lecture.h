#pragma once

// Reading a PDF back for the tests of the reports (link Qt6::Pdf).

#include <QFile>
#include <QPdfDocument>
#include <QPdfSelection>
#include <QRegularExpression>
#include <QStringList>

namespace corvane::test {

// French formats use no-break spaces (U+00A0 before ":" and "€", U+202F between
// digit groups); the text read back may hold any of them, or a plain space.
inline QString espacesSimples(QString texte)
{
    for (const QChar espace : {QChar(0x00a0), QChar(0x202f), QChar(0x2009), QChar(0x2007), QChar('\t')})
        texte.replace(espace, QLatin1Char(' '));
    return texte;
}

// The text of each page, spaces made plain; empty when the file cannot be read.
inline QStringList pagesPdf(const QString& chemin)
{
    QPdfDocument pdf;
    if (pdf.load(chemin) != QPdfDocument::Error::None)
        return {};
    QStringList pages;
    for (int i = 0; i < pdf.pageCount(); ++i)
        pages << espacesSimples(pdf.getAllText(i).text());
    return pages;
}

inline QByteArray octetsPdf(const QString& chemin)
{
    QFile f(chemin);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// Fonts are embedded when the file carries their programs.
inline bool policesIncorporees(const QByteArray& pdf)
{
    return pdf.contains("/FontFile2") || pdf.contains("/FontFile3") || pdf.contains("/FontFile ");
}

} // namespace corvane::test
