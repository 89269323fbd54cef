#include "unemployment/SaisieContrat.h"

#include "records/Contrats.h"
#include "store/Dates.h"
#include "store/Horloge.h"
#include "store/Schema.h"
#include "unemployment/FonctionsParametres.h"

#include <cmath>

namespace corvane {

namespace {

constexpr int kHeuresPeriodeGroupee = 8;
constexpr int kJoursPeriodeGroupee = 5;
constexpr int kJoursPrestationsMaximum = 28;
constexpr int kHeuresAP = 7;
constexpr int kHeuresSansAP = 12;
// The self-employment type a self-employed contract starts with: the first by label.
constexpr int kTypeAutoEntrepreneurParDefaut = 103;

QStringList joursDe(const QDate& debut, qint64 n)
{
    QStringList liste;
    for (qint64 i = 0; i <= n; ++i)
        liste << Dates::versAffichage(debut.addDays(i));
    return liste;
}

} // namespace

QDateTime SaisieContrat::instantDuSelecteur(const QDate& jour)
{
    return QDateTime(jour, QTime(0, 0), Qt::LocalTime);
}

QDateTime SaisieContrat::instantDuDocument(const QDate& jour)
{
    return Dates::conversionDateSQLiteEnNSDate(Dates::versSQLite(jour));
}

QDateTime SaisieContrat::dateDeBascule2016()
{
    return Dates::dateDeBascule(2016, 8, 1);
}

int SaisieContrat::heuresParJourPour(const QString& emploi)
{
    if (emploi == QStringLiteral("Ouvrier") || emploi == QStringLiteral("Technicien"))
        return 8;
    return 12;
}

QString SaisieContrat::libelleEmploi(int id)
{
    return Schema::emplois().value(id - 1);
}

double SaisieContrat::tauxAbattementAutoEntrepreneur(int typeAE)
{
    switch (typeAE) {
    case 100:
        return 71.0;
    case 101:
        return 50.0;
    case 102:
    case 103:
        return 34.0;
    default:
        return 0.0;
    }
}

double SaisieContrat::brutApresAbattement(double montant, double pourcentage)
{
    return std::round((montant - montant * pourcentage / 100.0) * 100.0) / 100.0;
}

void SaisieContrat::nouveau(Contrats& contrats)
{
    abattementUtilisateur = contrats.retrouveAbattementIdUtilisateur();
    if (abattementUtilisateur == 0)
        abattementUtilisateur = kAbattementAucun;
    emploiId = contrats.retrouveEmploiId(contrats.retrouveEmploiUtilisateur());
    if (emploiId == 0)
        emploiId = 1;
    type = emploiId == kEmploiAutoEntrepreneur ? kTypeAutoEntrepreneurParDefaut : kTypePrestations;
    abattementId = type == kTypePrestations ? abattementUtilisateur : kAbattementAucun;
    const QDate aujourdhui = Horloge::aujourdhui();
    choisirDates(instantDuSelecteur(aujourdhui), instantDuSelecteur(aujourdhui));
}

bool SaisieContrat::charger(Contrats& contrats, int id)
{
    if (!contrats.chargeContrat(id))
        return false;
    abattementUtilisateur = contrats.retrouveAbattementIdUtilisateur();
    if (abattementUtilisateur == 0)
        abattementUtilisateur = kAbattementAucun;
    employeurId = contrats.employeurId;
    emploiId = contrats.emploi;
    type = contrats.type;
    abattementId = contrats.abattement;
    debut = contrats.dateDebut;
    fin = contrats.dateFin;
    instantDebut = instantDuDocument(debut);
    datesTravaillees = contrats.datesTravaillees.isEmpty() ? QStringList() : contrats.datesTravaillees.split(',');
    jours = contrats.jours;
    heures = contrats.heures;
    uniteJours = jours > 1 ? QStringLiteral("jours") : QStringLiteral("jour");
    periodeGroupee = fin.isValid() && debut.isValid() && debut.daysTo(fin) + 1 >= kJoursPeriodeGroupee &&
                     instantDebut < dateDeBascule2016();
    effectue = contrats.effectue != 0;
    paye = contrats.contratPaye != 0;
    conges = contrats.conges != 0;
    aemFp = contrats.aemFp != 0;
    brut = contrats.brut;
    net = contrats.net;
    netAPayer = contrats.netAPayer;
    pas = contrats.pas;
    note = contrats.note;
    fonction = contrats.fonction;
    lieu = contrats.lieu;
    listeDates = contrats.dates;
    anneesEncaissement = {fin.year() - 1, fin.year(), fin.year() + 1};
    anneeEncaissement = contrats.anneeEncaissement != 0 ? contrats.anneeEncaissement : fin.year();
    if (!anneesEncaissement.contains(anneeEncaissement))
        anneesEncaissement << anneeEncaissement;
    fraisLies = contrats.fraisLiesAuContrat(id);
    modele.reset();
    return true;
}

void SaisieContrat::choisirDates(const QDateTime& instantDuDebut, const QDateTime& instantDeFin)
{
    debut = instantDuDebut.date();
    instantDebut = instantDuDebut;
    const qint64 n = debut.daysTo(instantDeFin.date());
    if (n >= 0) {
        datesTravaillees = joursDe(debut, n);
        fin = debut.addDays(n);
    } else {
        fin = instantDeFin.date();
    }
    calculerHeures();

    effectue = !(instantDebut > Horloge::maintenant());

    if (modele && modele->jours > 0) {
        fin = debut.addDays(modele->jours - 1);
        datesTravaillees = joursDe(debut, modele->jours - 1);
        jours = int(datesTravaillees.size());
        if (modele->heures > 0)
            heures = modele->heures;
    }

    anneesEncaissement = {fin.year() - 1, fin.year(), fin.year() + 1};
    anneeEncaissement = fin.year();
}

void SaisieContrat::calculerHeures()
{
    const int h = heuresParJourPour(libelleEmploi(emploiId));
    const qint64 d = debut.daysTo(fin);
    periodeGroupee = false;
    if (d == 0) {
        jours = 1;
        heures = h;
        uniteJours = QStringLiteral("jour");
    } else if (d > 0) {
        uniteJours = QStringLiteral("jours");
        jours = int(datesTravaillees.size());
        if (!(instantDebut < dateDeBascule2016())) {
            heures = jours * h;
        } else if (d + 1 >= kJoursPeriodeGroupee) {
            // Before the 2016 rules, five days or more were a grouped period at 8 hours a day.
            heures = jours * kHeuresPeriodeGroupee;
            periodeGroupee = true;
        } else {
            heures = jours * h;
        }
    }
}

void SaisieContrat::choisirEmploi(int id)
{
    emploiId = id;
    if (emploiId == kEmploiAutoEntrepreneur) {
        if (type < 100) {
            type = kTypeAutoEntrepreneurParDefaut;
            abattementId = kAbattementAucun;
        }
        calculsContratAE();
        return;
    }
    if (type >= 100) {
        type = kTypePrestations;
        abattementId = abattementUtilisateur;
    }
    calculerHeures();
}

void SaisieContrat::choisirType(int nouveauType)
{
    type = nouveauType;
    if (emploiId == kEmploiAutoEntrepreneur) {
        calculsContratAE();
        return;
    }
    abattementId = type == kTypePrestations ? abattementUtilisateur : kAbattementAucun;
    if (type == kTypeRegimeGeneral)
        emploiId = kEmploiRegimeGeneral;
}

void SaisieContrat::cocherAP(bool coche)
{
    ap = coche;
    heures = jours * (coche ? kHeuresAP : kHeuresSansAP);
}

void SaisieContrat::choisirBrut(double montant)
{
    brut = montant;
    if (emploiId == kEmploiAutoEntrepreneur)
        calculsContratAE();
}

void SaisieContrat::appliquerModele(const ContratModele& m)
{
    modele = m;
    emploiId = m.emploiId;
    type = m.typeId;
    // An incomplete template (no day or hour count) leaves the derived figures alone.
    if (m.jours > 0)
        jours = m.jours;
    if (m.heures > 0)
        heures = m.heures;
    brut = m.salaireBrut;
    net = m.salaireNet;
    if (emploiId != kEmploiAutoEntrepreneur)
        abattementId = type == kTypePrestations ? abattementUtilisateur : kAbattementAucun;
    if (debut.isValid() && m.jours > 0) {
        fin = debut.addDays(m.jours - 1);
        datesTravaillees = joursDe(debut, m.jours - 1);
        anneesEncaissement = {fin.year() - 1, fin.year(), fin.year() + 1};
        anneeEncaissement = fin.year();
    }
}

void SaisieContrat::calculsContratAE()
{
    const double taux = tauxAbattementAutoEntrepreneur(type);
    brutAbattuAE = brut - brut * taux / 100.0;
    const double smic = FonctionsParametres::smicHoraireEnCours(Horloge::aujourdhui());
    heures = smic > 0.0 ? int(std::lround(brutAbattuAE / smic)) : 0;
}

int SaisieContrat::pourcentageAbattement() const
{
    // Keys of the seed rows of `abattements`.
    switch (abattementId) {
    case 2:
        return 20;
    case 3:
        return 25;
    default:
        return 0;
    }
}

double SaisieContrat::brutApresAbattement() const
{
    return brutApresAbattement(brut, pourcentageAbattement());
}

RefusContrat SaisieContrat::verifier(bool documentOuvert) const
{
    if (!documentOuvert)
        return {QStringLiteral("Gestion des contrats"),
                QStringLiteral("Avant toute nouvelle opération, il est nécessaire de créer un nouveau fichier, ou "
                               "d'en ouvrir un.")};
    // The 28-day rule counts the days whatever the months they fall in.
    if (type == kTypePrestations && jours > kJoursPrestationsMaximum)
        return {QStringLiteral("Nouveau contrat"),
                QStringLiteral("Vous ne pouvez pas déclarer plus de 28 jours de prestations dans le même mois.")};
    if (type == kTypeEnseignements && (debut.year() != fin.year() || debut.month() != fin.month()))
        return {QStringLiteral("Nouveau contrat"),
                QStringLiteral("Vous ne pouvez déclarer des heures d'enseignement que sur un même mois.")};
    if (employeurId <= 0)
        return {QStringLiteral("Gestion des contrats"),
                QStringLiteral("Veuillez choisir un employeur avant d'enregistrer votre contrat.")};
    return {};
}

EnregistrementContrat SaisieContrat::enregistrer(Contrats& contrats, int id) const
{
    EnregistrementContrat resultat;
    resultat.refus = verifier(contrats.estOuvert());
    if (resultat.refus.estRefuse())
        return resultat;

    contrats.employeurId = employeurId;
    contrats.emploi = emploiId;
    contrats.dateDebut = debut;
    contrats.dateFin = fin;
    contrats.heures = heures;
    contrats.brut = brut;
    contrats.net = net;
    contrats.abattement = abattementId;
    contrats.jours = jours;
    contrats.dates = id == 0 ? QString() : listeDates; // new contracts no longer write day numbers
    contrats.effectue = effectue ? 1 : 0;
    contrats.contratPaye = paye ? 1 : 0;
    contrats.note = note;
    contrats.type = type;
    contrats.fonction = fonction;
    contrats.conges = conges ? 1 : 0;
    contrats.datesTravaillees = datesTravaillees.join(',');
    QStringList frais;
    for (const int f : fraisLies)
        frais << QString::number(f);
    contrats.fraisLies = frais.join(',');
    contrats.netAPayer = netAPayer;
    contrats.anneeEncaissement = anneeEncaissement;
    contrats.lieu = lieu;
    contrats.aemFp = aemFp ? 1 : 0;
    contrats.pas = pas;

    if (id == 0) {
        resultat.id = contrats.enregistreContratDepuisEcran();
        if (resultat.id == 0) {
            resultat.refus = {
                QStringLiteral("Gestion des contrats"),
                QStringLiteral("Le contrat n'a pas pu être enregistré : %1").arg(contrats.db().derniereErreur())};
            return resultat;
        }
    } else {
        contrats.modifieContratDepuisEcran(id);
        resultat.id = id;
    }
    contrats.enregistreFraisLies(resultat.id, fraisLies);
    resultat.avertissement = Contrats::messageSuperpositions(contrats.nombreDeSuperpositionsAvecContratsDu(debut, fin));
    return resultat;
}

} // namespace corvane
