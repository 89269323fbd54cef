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

void indenter(QByteArray& tampon, int niveau)
{
    tampon.append(4 * niveau, ' ');
}

void ecrireNombre(QByteArray& tampon, double nombre)
{
    if (std::isfinite(nombre))
        tampon += QByteArray::number(nombre, 'g', QLocale::FloatingPointShortest);
    else
        tampon += "null";
}

void ecrireChaine(QByteArray& tampon, const QString& texte)
{
    tampon += '"';
    const QByteArray utf8 = texte.toUtf8();
    for (const char c : utf8) {
        switch (c) {
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
        default:
            if (static_cast<unsigned char>(c) < 0x20) {
                char code[8];
                std::snprintf(code, sizeof code, "\\u%04x", static_cast<unsigned char>(c));
                tampon += code;
            } else {
                tampon += c;
            }
        }
    }
    tampon += '"';
}

} // namespace

FluxJson::FluxJson(QTextStream& sortie) : m_sortie(sortie) {}

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
        appareil->write(m_tampon);
    else
        m_sortie << QString::fromUtf8(m_tampon);
    m_tampon.clear();
}

void FluxJson::ecrireValeurTable(QByteArray& tampon, const QVariant& valeur)
{
    if (!valeur.isValid()) {
        tampon += "null";
        return;
    }
    switch (valeur.typeId()) {
    case QMetaType::Bool:
        tampon += valeur.toBool() ? "true" : "false";
        break;
    case QMetaType::Float: {
        char texte[32];
        const auto fin = std::to_chars(texte, texte + sizeof texte, valeur.toFloat());
        ecrireNombre(tampon, QByteArray(texte, int(fin.ptr - texte)).toDouble());
        break;
    }
    case QMetaType::Double:
        ecrireNombre(tampon, valeur.toDouble());
        break;
    case QMetaType::Int:
    case QMetaType::LongLong:
        tampon += QByteArray::number(valeur.toLongLong());
        break;
    default:
        ecrireChaine(tampon, valeur.toString());
    }
}

void FluxJson::ecrireObjet(QList<Membre> membres)
{
    std::sort(membres.begin(), membres.end(), [](const Membre& a, const Membre& b) { return a.cle < b.cle; });
    m_tampon += "{\n";
    for (qsizetype i = 0; i < membres.size(); ++i) {
        indenter(m_tampon, 1);
        ecrireChaine(m_tampon, membres.at(i).cle);
        m_tampon += ": ";
        if (membres.at(i).table)
            ecrireTable(*membres.at(i).table, 1);
        else
            ecrireValeur(membres.at(i).valeur, 1);
        m_tampon += i + 1 < membres.size() ? ",\n" : "\n";
    }
    m_tampon += "}\n";
    vider(true);
}

void FluxJson::ecrireTable(const Table& table, int niveau)
{
    // The keys in QJsonObject's order, found once for every row.
    QList<int> ordre;
    for (int i = 0; i < table.cles.size(); ++i)
        ordre << i;
    std::sort(ordre.begin(), ordre.end(), [&table](int a, int b) { return table.cles.at(a) < table.cles.at(b); });
    QList<QByteArray> cles;
    for (const int i : ordre) {
        QByteArray cle;
        indenter(cle, niveau + 2);
        ecrireChaine(cle, table.cles.at(i));
        cle += ": ";
        cles << cle;
    }

    m_tampon += "[\n";
    for (qsizetype r = 0; r < table.rangees.size(); ++r) {
        const QVariantList& rangee = table.rangees.at(r);
        indenter(m_tampon, niveau + 1);
        m_tampon += "{\n";
        for (int k = 0; k < ordre.size(); ++k) {
            m_tampon += cles.at(k);
            ecrireValeurTable(m_tampon, rangee.at(ordre.at(k)));
            m_tampon += k + 1 < ordre.size() ? ",\n" : "\n";
        }
        indenter(m_tampon, niveau + 1);
        m_tampon += r + 1 < table.rangees.size() ? "},\n" : "}\n";
        vider();
    }
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
            m_tampon += QByteArray::number(valeur.toInteger());
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
