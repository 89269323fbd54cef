#pragma once

#include "store/Intermittent.h"

#include <QDate>
#include <QString>
#include <QStringList>

namespace corvane {

// A history of payments with one tick each: the paid-leave fund's (cashed) and the tax
// office's (a credit). Dates and amounts out of their bounds are refused; amounts are
// written with two decimals.
class HistoriqueVersements : public Intermittent
{
public:
    // "Id", "Date" (dd/MM/yyyy), "Date SQLite" (the stored text), "Montant", then the tick's key.
    QStringList clesListe() const;

    // The key, or 0 on refusal or failure.
    int enregistre(const QDate& date, double montant, bool coche);
    bool modifie(int id, const QDate& date, double montant, bool coche);
    bool supprime(int id);
    // Writes the tick only.
    bool coche(int id, bool coche);
    bool existe(int id);
    // By date, "ASC" or "DESC" (any other value: "ASC"). No statement runs on an empty table.
    Table liste(const QString& sens);

protected:
    struct Description
    {
        QString table;   // "congeshistorique"
        QString prefixe; // "ch_"
        QString coche;   // the tick's column without the prefix: "encaisse"
        QString cleCoche; // its list key: "Encaissé"
    };
    HistoriqueVersements(const QString& chemin, Description description)
        : Intermittent(chemin), m_description(std::move(description))
    {
    }
    HistoriqueVersements(BaseDeDonnees& connexion, Description description)
        : Intermittent(connexion), m_description(std::move(description))
    {
    }

private:
    QString colonne(const QString& nom) const { return m_description.prefixe + nom; }
    Description m_description;
};

} // namespace corvane
