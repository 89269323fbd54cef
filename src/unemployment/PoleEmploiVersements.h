#pragma once

#include "store/Intermittent.h"

#include <QDate>
#include <QString>
#include <QStringList>

namespace corvane {

// The unemployment allowances received (table `assedichistorique`): one payment to save,
// the edits, the listing for a span and the total of the last listing.
class PoleEmploiVersements : public Intermittent
{
public:
    explicit PoleEmploiVersements(const QString& chemin = QString()) : Intermittent(chemin) {}
    explicit PoleEmploiVersements(BaseDeDonnees& connexion) : Intermittent(connexion) {}
    // A payment to be saved.
    PoleEmploiVersements(const QString& chemin, const QDate& date, double montant);

    QDate date;
    double montant = 0.0;
    // The span of the last listing, which the total reuses ("" before any listing: every payment).
    QString clauseWhere;

    // "Id", "Date" (dd/MM/yyyy), "Date SQLite" (the stored text), "Montant".
    static const QStringList& clesListe();
    // Why a payment may not be saved ("" when it may): a date or an amount out of its bounds.
    static QString refusValeurs(const QDate& date, double montant);

    // The payment held, amount to two decimals; its key, or 0 on failure or refusal.
    int enregistrePoleEmploiVersement();
    // Writes the payment held over the one with that key; false on failure or refusal.
    bool modifiePoleEmploiVersement(int id);
    bool supprimePoleEmploiVersement(int id);
    bool versementExiste(int id);

    // tri: "tous", "periode_reference" (opening of rights to the stretched end of the current
    // period), "annee" (SQLite's year, as its clause reads) or "periode" (debut to fin).
    // sens: the sort preference, applied inverted: "ASC" lists the newest payment first.
    Table listeLesVersementsDu(const QDate& debut, const QDate& fin, const QString& tri, const QString& sens);
    static QString ordreDeTri(const QString& sens);
    // The sum over the last listing's span.
    double cumulAssedic();
};

} // namespace corvane
