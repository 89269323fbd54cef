#include "cli/FluxJson.h"

#include <QIODevice>
#include <QJsonArray>
#include <QJsonObject>
#include <QTextStream>
#include <algorithm>
#include <charconv>
#include <cmath>

namespace corvane::cli {

namespace {

void indenter(std::string& tampon, int niveau)
{
    tampon.append(4 * niveau, ' ');
}

void ecrireNombre(std::string& tampon, double nombre)
{
    if (!std::isfinite(nombre)) {
        tampon += "null";
        return;
    }
    const QByteArray texte = QByteArray::number(nombre, 'g', QLocale::FloatingPointShortest);
    tampon.append(texte.constData(), size_t(texte.size()));
}

void ecrireEntier(std::string& tampon, qint64 nombre)
{
    char texte[24];
    const auto fin = std::to_chars(texte, texte + sizeof texte, nombre);
    tampon.append(texte, fin.ptr - texte);
}

void ecrireReelSimple(std::string& tampon, float nombre)
{
    // The float's shortest digits read back as a double: 0.1f is written 0.1.
    char texte[32];
    const auto fin = std::to_chars(texte, texte + sizeof texte, nombre);
    ecrireNombre(tampon, QByteArrayView(texte, fin.ptr - texte).toDouble());
}

// Runs of plain bytes are copied whole; only quotes, backslashes and control characters are escaped.
void ecrireUtf8(std::string& tampon, QByteArrayView texte)
{
    tampon += '"';
    const char* suite = texte.data();
    const char* const fin = suite + texte.size();
    for (const char* c = suite; c != fin; ++c) {
        const auto octet = static_cast<unsigned char>(*c);
        if (octet >= 0x20 && octet != '"' && octet != '\\')
            continue;
        tampon.append(suite, c - suite);
        suite = c + 1;
        switch (octet) {
        case '"':
            tampon += "\\\"";
            break;
        case '\\':
            tampon += "\\\\";
            break;
        case '\b':
            tampon += "\\b";
            break;
        case '\f':
            tampon += "\\f";
            break;
        case '\n':
            tampon += "\\n";
            break;
        case '\r':
            tampon += "\\r";
            break;
        case '\t':
            tampon += "\\t";
            break;
        default: {
            char code[8];
            std::snprintf(code, sizeof code, "\\u%04x", octet);
            tampon += code;
        }
        }
    }
    tampon.append(suite, fin - suite);
    tampon += '"';
}

void ecrireChaine(std::string& tampon, const QString& texte)
{
    const QByteArray utf8 = texte.toUtf8();
    ecrireUtf8(tampon, utf8);
}

} // namespace

FluxJson::FluxJson(QTextStream& sortie) : m_sortie(sortie)
{
    m_tampon.reserve(80 * 1024);
}

FluxJson::~FluxJson()
{
    vider(true);
}

void FluxJson::vider(bool toutDeSuite)
{
    if (!toutDeSuite && m_tampon.size() < 64 * 1024)
        return;
    // Straight to the device when there is one (stdout); a test's stream holds a string.
    m_sortie.flush();
    if (QIODevice* appareil = m_sortie.device())
        appareil->write(m_tampon.data(), qint64(m_tampon.size()));
    else
        m_sortie << QString::fromUtf8(m_tampon.data(), qsizetype(m_tampon.size()));
    m_tampon.clear();
}

void FluxJson::ecrireValeurTable(std::string& tampon, const QVariant& valeur)
{
    if (!valeur.isValid()) {
        tampon += "null";
        return;
    }
    switch (valeur.typeId()) {
    case QMetaType::Bool:
        tampon += valeur.toBool() ? "true" : "false";
        break;
    case QMetaType::Float:
        ecrireReelSimple(tampon, valeur.toFloat());
        break;
    case QMetaType::Double:
        ecrireNombre(tampon, valeur.toDouble());
        break;
    case QMetaType::Int:
    case QMetaType::LongLong:
        ecrireEntier(tampon, valeur.toLongLong());
        break;
    default:
        ecrireChaine(tampon, valeur.toString());
    }
}

void FluxJson::ecrireCellule(std::string& tampon, const Cellule& cellule)
{
    switch (cellule.genre) {
    case Cellule::Genre::Entier:
        ecrireEntier(tampon, cellule.entier);
        break;
    case Cellule::Genre::Reel:
        ecrireNombre(tampon, cellule.reel);
        break;
    case Cellule::Genre::ReelSimple:
        ecrireReelSimple(tampon, float(cellule.reel));
        break;
    case Cellule::Genre::Texte:
        ecrireUtf8(tampon, cellule.texte);
        break;
    }
}

void FluxJson::ecrireObjet(QList<Membre> membres)
{
    std::sort(membres.begin(), membres.end(), [](const Membre& a, const Membre& b) { return a.cle < b.cle; });
    ouvrirObjet();
    for (const Membre& membre : membres) {
        if (membre.table)
            ecrireMembre(membre.cle, *membre.table);
        else
            ecrireMembre(membre.cle, membre.valeur);
    }
    fermerObjet();
}

void FluxJson::ouvrirObjet()
{
    m_tampon += "{\n";
    m_membres = 0;
}

void FluxJson::commencerMembre(const QString& cle)
{
    Q_ASSERT(m_membres == 0 || m_derniereCle < cle);
    m_derniereCle = cle;
    if (m_membres++ > 0)
        m_tampon += ",\n";
    indenter(m_tampon, 1);
    ecrireChaine(m_tampon, cle);
    m_tampon += ": ";
}

void FluxJson::ecrireMembre(const QString& cle, const QJsonValue& valeur)
{
    commencerMembre(cle);
    ecrireValeur(valeur, 1);
}

void FluxJson::ecrireMembre(const QString& cle, const Table& table)
{
    commencerMembre(cle);
    ecrireTable(table, 1);
}

void FluxJson::ecrireMembre(const QString& cle, LectureListe& lecture)
{
    commencerMembre(cle);
    ecrireLecture(lecture, 1);
}

void FluxJson::fermerObjet()
{
    m_tampon += m_membres > 0 ? "\n}\n" : "}\n";
    vider(true);
}

QList<QPair<int, std::string>> FluxJson::prefixesDesCles(const QStringList& cles, int niveau)
{
    QList<QPair<int, std::string>> prefixes;
    for (int i = 0; i < cles.size(); ++i) {
        std::string prefixe;
        indenter(prefixe, niveau);
        ecrireChaine(prefixe, cles.at(i));
        prefixe += ": ";
        prefixes.append({i, prefixe});
    }
    std::sort(prefixes.begin(), prefixes.end(),
              [&cles](const auto& a, const auto& b) { return cles.at(a.first) < cles.at(b.first); });
    return prefixes;
}

void FluxJson::ecrireTable(const Table& table, int niveau)
{
    const QList<QPair<int, std::string>> cles = prefixesDesCles(table.cles, niveau + 2);
    m_tampon += "[\n";
    for (qsizetype r = 0; r < table.rangees.size(); ++r) {
        const QVariantList& rangee = table.rangees.at(r);
        indenter(m_tampon, niveau + 1);
        m_tampon += "{\n";
        for (qsizetype k = 0; k < cles.size(); ++k) {
            m_tampon += cles.at(k).second;
            ecrireValeurTable(m_tampon, rangee.at(cles.at(k).first));
            m_tampon += k + 1 < cles.size() ? ",\n" : "\n";
        }
        indenter(m_tampon, niveau + 1);
        m_tampon += r + 1 < table.rangees.size() ? "},\n" : "}\n";
        vider();
    }
    indenter(m_tampon, niveau);
    m_tampon += ']';
}

void FluxJson::ecrireLecture(LectureListe& lecture, int niveau)
{
    const QList<QPair<int, std::string>> cles = prefixesDesCles(lecture.cles(), niveau + 2);
    std::string debutRangee;
    indenter(debutRangee, niveau + 1);
    debutRangee += "{\n";
    std::string finRangee;
    indenter(finRangee, niveau + 1);
    finRangee += '}';

    m_tampon += "[\n";
    // The next row, or the end, says whether a comma follows the one before.
    bool premiere = true;
    while (lecture.suivante()) {
        if (!premiere)
            m_tampon += ",\n";
        premiere = false;
        m_tampon += debutRangee;
        for (qsizetype k = 0; k < cles.size(); ++k) {
            m_tampon += cles.at(k).second;
            ecrireCellule(m_tampon, lecture.cellule(cles.at(k).first));
            m_tampon += k + 1 < cles.size() ? ",\n" : "\n";
        }
        m_tampon += finRangee;
        vider();
    }
    if (!premiere)
        m_tampon += '\n';
    indenter(m_tampon, niveau);
    m_tampon += ']';
}

void FluxJson::ecrireValeur(const QJsonValue& valeur, int niveau)
{
    switch (valeur.type()) {
    case QJsonValue::Null:
    case QJsonValue::Undefined:
        m_tampon += "null";
        break;
    case QJsonValue::Bool:
        m_tampon += valeur.toBool() ? "true" : "false";
        break;
    case QJsonValue::Double:
        // Integers stay integers, as QJsonDocument writes them.
        if (valeur.toVariant().typeId() == QMetaType::LongLong)
            ecrireEntier(m_tampon, valeur.toInteger());
        else
            ecrireNombre(m_tampon, valeur.toDouble());
        break;
    case QJsonValue::String:
        ecrireChaine(m_tampon, valeur.toString());
        break;
    case QJsonValue::Array: {
        const QJsonArray tableau = valeur.toArray();
        m_tampon += "[\n";
        for (qsizetype i = 0; i < tableau.size(); ++i) {
            indenter(m_tampon, niveau + 1);
            ecrireValeur(tableau.at(i), niveau + 1);
            m_tampon += i + 1 < tableau.size() ? ",\n" : "\n";
        }
        indenter(m_tampon, niveau);
        m_tampon += ']';
        break;
    }
    case QJsonValue::Object: {
        const QJsonObject objet = valeur.toObject();
        m_tampon += "{\n";
        qsizetype i = 0;
        for (auto it = objet.begin(); it != objet.end(); ++it, ++i) {
            indenter(m_tampon, niveau + 1);
            ecrireChaine(m_tampon, it.key());
            m_tampon += ": ";
            ecrireValeur(it.value(), niveau + 1);
            m_tampon += i + 1 < objet.size() ? ",\n" : "\n";
        }
        indenter(m_tampon, niveau);
        m_tampon += '}';
        break;
    }
    }
}

} // namespace corvane::cli
