#pragma once

#include "store/BaseDeDonnees.h"
#include "store/LectureListe.h"

#include <QJsonValue>
#include <QList>
#include <QPair>
#include <string>

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

    // The same object member by member, for a value known only once the members before
    // it are written (a listing's totals after its rows): the keys come in sorted order.
    void ouvrirObjet();
    void ecrireMembre(const QString& cle, const QJsonValue& valeur);
    void ecrireMembre(const QString& cle, const Table& table);
    // The rows as they are read, none of them kept.
    void ecrireMembre(const QString& cle, LectureListe& lecture);
    void fermerObjet();

    // A listing value as JSON: single-precision amounts keep the digits they hold.
    static void ecrireValeurTable(std::string& tampon, const QVariant& valeur);
    // The same for a cell read in place.
    static void ecrireCellule(std::string& tampon, const Cellule& cellule);

private:
    void commencerMembre(const QString& cle);
    void ecrireValeur(const QJsonValue& valeur, int niveau);
    // Each key's line start ("        \"Cle\": ") in QJsonObject's order, and the column it shows.
    static QList<QPair<int, std::string>> prefixesDesCles(const QStringList& cles, int niveau);
    void ecrireTable(const Table& table, int niveau);
    void ecrireLecture(LectureListe& lecture, int niveau);
    void vider(bool toutDeSuite = false);

    QTextStream& m_sortie;
    std::string m_tampon;
    int m_membres = 0;
    QString m_derniereCle;
};

} // namespace corvane::cli
