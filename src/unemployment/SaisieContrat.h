#pragma once

#include "records/Contrats.h"
#include "records/ContratsModeles.h"

#include <QDate>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

namespace corvane {

// Why a contract may not be saved: the alert's title and message.
struct RefusContrat
{
    QString titre;
    QString message;
    bool estRefuse() const { return !message.isEmpty(); }
};

// What a save gave: the refusal, or the key written and the sickness-overlap warning.
struct EnregistrementContrat
{
    RefusContrat refus;
    int id = 0;
    QString avertissement; // "" when no sickness period overlaps
};

// One contract as the contract form edits it: the contract's values and what the form
// derives them with. The form drives it step by step as the user edits (dates, job, type,
// the "AP" box, the employer's template, the gross), and `contrat ajouter` fills it in the
// same order from its options; both save through it, so the derivations and the checks
// exist once.
//
// It lives with the unemployment rules because the self-employed computation needs the
// hourly minimum wage of the shared function layer.
class SaisieContrat : public Contrat
{
public:
    static constexpr int kEmploiRegimeGeneral = 4;
    static constexpr int kEmploiAutoEntrepreneur = 5;
    static constexpr int kTypePrestations = 1;
    static constexpr int kTypeEnseignements = 2;
    static constexpr int kTypeRegimeGeneral = 4;
    static constexpr int kAbattementAucun = 1; // key of the 0 % row

    // The instant a day stands for: the date picker gives local midnight; a stored date
    // (and a date given on the command line) reads as 01:00 local time.
    static QDateTime instantDuSelecteur(const QDate& jour);
    static QDateTime instantDuDocument(const QDate& jour);
    // The 2016 switch: midnight at +01:00, in summer too.
    static QDateTime dateDeBascule2016();

    // Hours per worked day of a job label: 12 for "Artiste", 8 for "Ouvrier" and
    // "Technicien", 12 for anything else.
    static int heuresParJourPour(const QString& emploi);
    static QString libelleEmploi(int emploiId);
    // The flat-rate allowance of a self-employment type, percent (0 for other types).
    static double tauxAbattementAutoEntrepreneur(int type);
    // round((gross − gross × percentage / 100) × 100) / 100
    static double brutApresAbattement(double brut, double pourcentage);

    // A new contract: the profile's job and abatement, one day today, as the empty form shows it.
    void nouveau(Contrats& modele);
    // An existing contract, as stored (nothing is derived).
    bool charger(Contrats& modele, int id);

    // Worked dates, days, hours, done box, template length and cashing years from the
    // start and end picked. Days are calendar days; the start's instant decides the 2016 switch.
    void choisirDates(const QDateTime& debut, const QDateTime& fin);
    // The job: hours follow the new hours per day (the self-employed job computes them).
    void choisirEmploi(int emploiId);
    // The type: the abatement follows it ("Régime Général" also sets the job), or the
    // self-employed computation runs.
    void choisirType(int type);
    void cocherAP(bool coche);
    void choisirBrut(double montant);
    // The employer's template (job, type, days, hours, gross, net); its day count then
    // drives the end date, until the user picks an end (finChoisie).
    void appliquerModele(const ContratModele& modele);
    void retirerModele() { modele.reset(); }
    // Hours from the gross after the self-employment allowance and today's hourly minimum wage.
    void calculsContratAE();

    // The gross after the abatement chosen (display).
    double brutApresAbattement() const;
    int pourcentageAbattement() const;

    // The checks of the save action, in their order: the bounds of every value, then the
    // contract rules.
    RefusContrat verifier(bool documentOuvert) const;
    // Checks, then writes (a new contract when `id` is 0, else that one), links the
    // expenses and counts the sickness periods the contract overlaps.
    EnregistrementContrat enregistrer(Contrats& modele, int id = 0) const;

    // What the form shows beside the contract's own values.
    int abattementUtilisateur = kAbattementAucun; // the profile's, which "Prestations" takes
    QDateTime instantDebut;
    QString uniteJours = QStringLiteral("jour");
    bool periodeGroupee = false; // shown in the grouped-contracts colour
    bool ap = false;
    double brutAbattuAE = 0.0; // the self-employed gross after its allowance
    QList<int> anneesEncaissement;
    std::optional<ContratModele> modele;
    // The user picked the end date: a template's length no longer moves it.
    bool finChoisie = false;

private:
    void calculerHeures();
};

} // namespace corvane
