#pragma once

#include "records/Periodes.h"

#include <QDate>
#include <QString>

namespace corvane {

// The new-period assistant's rules, for the window and the command line alike:
// its defaults, its check and what confirming it writes.
class NouvellePeriode
{
public:
    // Reads the user's job and rights-opening date, and fills the defaults.
    explicit NouvellePeriode(const QString& chemin);
    explicit NouvellePeriode(BaseDeDonnees& connexion);

    // Reference-period length in days for a job: the artists' annex for "Artiste", the
    // workers' and technicians' for any other; the 2016 length from 1 August 2016 (today).
    static int longueurPeriodeDeReference(const QString& emploi);
    // Start + (length - 1) days.
    static QDate finParDefaut(const QString& emploi, const QDate& debut);
    // "Période du dd/MM/yyyy au dd/MM/yyyy".
    static QString libelleParDefaut(const QDate& debut, const QDate& fin);

    const Periode& periode() const { return m_periode; }
    // A new start moves the end to its default; the label follows the dates as long as it is the default one.
    void changeDebut(const QDate& debut);
    void changeFin(const QDate& fin);
    void changeLibelle(const QString& libelle) { m_periode.libelle = libelle; }
    void changeNotes(const QString& notes) { m_periode.notes = notes; }
    void changeJours(int conges, int franchiseSalaires, int attente);

    double srj() const { return m_srj; }
    double taux() const { return m_taux; }
    void changeSrj(double srj) { m_srj = srj; }
    void changeTaux(double taux) { m_taux = taux; }
    // The automatic-update switch: the profile takes the new opening date, wage and rate.
    bool majAutomatique() const { return m_majAutomatique; }
    void changeMajAutomatique(bool active) { m_majAutomatique = active; }

    const QString& emploi() const { return m_emploi; }
    // The reference daily wage is asked only for rights opened before 1 April 2007.
    bool srjDemande() const;

    // "" when the period may be saved, else the message to show.
    QString refus();
    // Checks, inserts the period and applies the automatic update. Returns the new id,
    // or 0 with *refus set (nothing written).
    int enregistre(QString* refus = nullptr);

    static QString titre();
    static QString messageExisteDeja();
    static QString messageFinAvantDebut();

private:
    void initialiser();

    Intermittent m_document;
    QString m_emploi;
    QDate m_ouvertureDroits;
    Periode m_periode;
    double m_srj = 0.0;
    double m_taux = 0.0;
    bool m_majAutomatique = false;
};

} // namespace corvane
