#include "exchange/CsvWriter.h"

#include "exchange/CsvParser.h"

#include <QFile>
#include <QFileDevice>
#include <QtDebug>

namespace corvane {

namespace {

// Splits on every newline character; CR LF is one break.
QStringList lignesDe(const QString& texte)
{
    QStringList lignes;
    QString ligne;
    for (qsizetype i = 0; i < texte.size(); ++i) {
        const QChar c = texte.at(i);
        if (!estFinDeLigneCsv(c)) {
            ligne += c;
            continue;
        }
        if (c == u'\r' && i + 1 < texte.size() && texte.at(i + 1) == u'\n')
            ++i;
        lignes.append(ligne);
        ligne.clear();
    }
    lignes.append(ligne);
    return lignes;
}

} // namespace

std::unique_ptr<CsvWriter> CsvWriter::initForWritingToCSVFile(const QString& chemin)
{
    auto fichier = std::make_unique<QFile>(chemin);
    auto writer = initWithOutputStream(fichier.get(), CsvEncodage::Utf8, u',');
    if (writer)
        writer->m_fluxPossede = std::move(fichier);
    return writer;
}

std::unique_ptr<CsvWriter> CsvWriter::initWithOutputStream(QIODevice* flux, CsvEncodage encoding, QChar delimiter)
{
    const QString refus = CsvParser::refusDelimiteur(delimiter);
    if (!refus.isEmpty()) {
        qWarning().noquote() << refus;
        return nullptr;
    }
    if (!flux)
        return nullptr;
    if (!flux->isOpen() && !flux->open(QIODevice::WriteOnly))
        return nullptr;
    if (!flux->isWritable())
        return nullptr;
    return std::unique_ptr<CsvWriter>(new CsvWriter(flux, encoding, delimiter));
}

CsvWriter::CsvWriter(QIODevice* flux, CsvEncodage encodage, QChar delimiter)
    : m_flux(flux), m_encodeur(encodage), m_delimiter(delimiter)
{
}

CsvWriter::~CsvWriter()
{
    // A stream the caller gave stays theirs to close.
    if (m_fluxPossede && m_fluxPossede->isOpen())
        closeStream();
}

void CsvWriter::writeField(const QVariant& champ)
{
    QString texte = champ.toString();
    QString sortie;
    if (m_nombreChamps > 0)
        sortie += m_delimiter;
    // A first field starting with "#" would read back as a comment.
    if (doitEtreCite(texte) || (m_nombreChamps == 0 && texte.startsWith(u'#')))
        sortie += u'"' + texte.replace(u'"', QStringLiteral("\"\"")) + u'"';
    else
        sortie += texte;
    ecrire(sortie);
    ++m_nombreChamps;
    m_seulChampVide = m_nombreChamps == 1 && texte.isEmpty();
}

void CsvWriter::finishLine()
{
    // A line holding one empty field would be a blank line, and blank lines are not records.
    ecrire(m_seulChampVide ? QStringLiteral("\"\"\n") : QStringLiteral("\n"));
    m_nombreChamps = 0;
    m_seulChampVide = false;
}

void CsvWriter::writeLineOfFields(const QVariantList& champs)
{
    if (m_nombreChamps > 0)
        finishLine();
    for (const QVariant& champ : champs)
        writeField(champ);
    finishLine();
}

void CsvWriter::writeLineOfFields(const QStringList& champs)
{
    if (m_nombreChamps > 0)
        finishLine();
    for (const QString& champ : champs)
        writeField(champ);
    finishLine();
}

void CsvWriter::writeComment(const QString& commentaire)
{
    if (m_nombreChamps > 0)
        finishLine();
    for (const QString& ligne : lignesDe(commentaire))
        ecrire(u'#' + ligne + u'\n');
}

bool CsvWriter::closeStream()
{
    if (!m_flux->isOpen())
        return !m_echec;
    if (m_nombreChamps > 0)
        finishLine();
    if (auto* fichier = qobject_cast<QFileDevice*>(m_flux)) {
        if (!fichier->flush())
            m_echec = true;
    }
    m_flux->close();
    return !m_echec;
}

bool CsvWriter::doitEtreCite(const QString& texte) const
{
    for (const QChar c : texte) {
        if (c == m_delimiter || c == u'"' || estFinDeLigneCsv(c))
            return true;
    }
    return false;
}

void CsvWriter::ecrire(const QString& texte)
{
    if (!m_flux->isOpen()) {
        m_echec = true;
        return;
    }
    const QByteArray octets = m_encodeur.encoder(texte);
    if (m_flux->write(octets) != octets.size())
        m_echec = true;
}

} // namespace corvane
