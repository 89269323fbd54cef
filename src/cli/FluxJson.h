#pragma once

#include "store/BaseDeDonnees.h"

#include <QByteArray>
#include <QJsonValue>
#include <QList>
#include <QPair>

class QTextStream;

namespace corvane::cli {

// Writes one JSON document as it goes, laid out as QJsonDocument's indented form, so
// that a listing of thousands of rows is never held twice in memory. Keys are written
// in the order QJsonObject keeps them (sorted), so the output does not depend on
// which of the two wrote it.
class FluxJson
{
public:
    explicit FluxJson(QTextStream& sortie);
    ~FluxJson();

    // A member of the top-level object: either a small value, or a listing's rows.
    struct Membre
    {
        QString cle;
        QJsonValue valeur;
        const Table* table = nullptr;
    };
    // The whole document: an object with these members (sorted here).
    void ecrireObjet(QList<Membre> membres);

    // A listing value as JSON: single-precision amounts keep the digits they hold.
    static void ecrireValeurTable(QByteArray& tampon, const QVariant& valeur);

private:
    void ecrireValeur(const QJsonValue& valeur, int niveau);
    void ecrireTable(const Table& table, int niveau);
    void ecrireTexte(const QString& texte);
    void vider(bool toutDeSuite = false);

    QTextStream& m_sortie;
    QByteArray m_tampon;
};

} // namespace corvane::cli
