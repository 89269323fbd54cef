#pragma once

#include "store/Intermittent.h"

#include <QDate>
#include <QString>
#include <optional>

namespace corvane {

// One opening of unemployment rights and the day counts that delay its first payments.
struct Periode
{
    int id = 0;
    QDate debut;
    QDate fin;
    QString libelle;
    QString notes;
    int conges = 0;            // paid-leave deferral days
    int franchiseSalaires = 0; // wage deferral days
    int attente = 7;           // waiting days
};

// The compensation periods (table `periodes`); the active one is kept in the profile row.
class Periodes : public Intermittent
{
public:
    explicit Periodes(const QString& chemin = QString());
    explicit Periodes(BaseDeDonnees& connexion) : Intermittent(connexion) {}

    // The management window's keys: "Id", "Libelle", "Début", "Fin", "Début SQLite", "Fin SQLite",
    // "Notes", "Congés", "Franchise salaires", "Délai d'attente".
    static const QStringList& clesListe();
    static Periode depuisLigne(const Ligne& ligne);

    int compteLesPeriodes();
    int nombreDePeriodes();
    // What a save refuses ("" when it may be saved): a date out of its bounds, an end
    // before the start, or a day count out of [0, 365].
    static QString refusValeurs(const Periode& periode);
    // Inserts the period; returns its id (0 on failure or refusal).
    int enregistrePeriode(const Periode& periode);
    bool modifiePeriode(const Periode& periode); // false on failure or refusal
    bool supprimePeriode(int id);
    // Oldest first: "Id", "Libelle", "Début", "Fin", "Début SQLite", "Fin SQLite", "Notes".
    Lignes toutesLesPeriodes();
    // Newest first, with every key of the management window.
    Lignes listeLesPeriodes();
    std::optional<Periode> periode(int id);
    QString periodeEnCours();
    int idPeriodeEnCours();
    bool activePeriodeAvecId(int id);
    bool isPeriodeExiste(const QDate& debut, const QDate& fin);

    // The management window's rules: the message of a refusal or a warning, "" when none.
    QString refusSuppression(int id);
    QString refusDesactivation(int id);
    QString avertissementModification(int id);
    static QString messageSuppressionRefusee();
    static QString messageUnePeriodeActive();
    static QString messageModificationPeriodeEnCours();
    static QString messagePeriodeInconnue();

private:
    Lignes lignesAvecCles(const QString& sql);
};

} // namespace corvane
