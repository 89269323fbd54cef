#include "unemployment/SaisieContrat.h"

#include "records/Contrats.h"
#include "records/Frais.h"
#include "store/Dates.h"
#include "store/Horloge.h"
#include "store/PointDeSauvegarde.h"
#include "store/SaisieFrancaise.h"
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

// The days from `debut` to n days later. A span beyond the longest contract is cut there:
// the save refuses it, and a mistyped year never builds megabytes of dates meanwhile.
QStringList joursDe(const QDate& debut, qint64 n)
{
    QStringList liste;
    const qint64 dernier = qMin(n, qint64(Limites::kJoursContratMaximum));
    for (qint64 i = 0; i <= dernier; ++i)
        liste << Dates::versAffichage(debut.addDays(i));
    return liste;
}

RefusContrat refusDeSaisie(const QString& champ, const QString& raison)
{
    return {QStringLiteral("Gestion des contrats"), QStringLiteral("%1 : %2.").arg(champ, raison)};
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
    std::optional<Contrat> stocke = contrats.chargeContrat(id);
    if (!stocke)
        return false;
    *this = SaisieContrat();
    static_cast<Contrat&>(*this) = std::move(*stocke);
    abattementUtilisateur = contrats.retrouveAbattementIdUtilisateur();
    if (abattementUtilisateur == 0)
        abattementUtilisateur = kAbattementAucun;
    instantDebut = instantDuDocument(debut);
    uniteJours = jours > 1 ? QStringLiteral("jours") : QStringLiteral("jour");
    periodeGroupee = fin.isValid() && debut.isValid() && debut.daysTo(fin) + 1 >= kJoursPeriodeGroupee &&
                     instantDebut < dateDeBascule2016();
    anneesEncaissement = {fin.year() - 1, fin.year(), fin.year() + 1};
    if (anneeEncaissement == 0)
        anneeEncaissement = fin.year();
    if (!anneesEncaissement.contains(anneeEncaissement))
        anneesEncaissement << anneeEncaissement;
    fraisLies = contrats.fraisLiesAuContrat(id);
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

    if (modele && modele->jours > 0 && !finChoisie) {
        fin = debut.addDays(modele->jours - 1);
        datesTravaillees = joursDe(debut, modele->jours - 1);
        jours = int(datesTravaillees.size());
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
    brut = m.salaireBrut;
    net = m.salaireNet;
    if (emploiId != kEmploiAutoEntrepreneur)
        abattementId = type == kTypePrestations ? abattementUtilisateur : kAbattementAucun;
    // A template with a day count gives its hours with it, 0 included; one with neither count
    // leaves the derived figures alone.
    if (m.jours > 0) {
        jours = m.jours;
        // Choosing a template again is choosing its length again, over an end picked before.
        finChoisie = false;
    }
    if (m.jours > 0 || m.heures > 0)
        heures = m.heures;
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
    // The bounds first: no figure out of them is ever stored.
    if (const QString r = SaisieFrancaise::refusDate(debut); !r.isEmpty())
        return refusDeSaisie(QStringLiteral("Date de début"), r);
    if (const QString r = SaisieFrancaise::refusDate(fin); !r.isEmpty())
        return refusDeSaisie(QStringLiteral("Date de fin"), r);
    if (fin < debut)
        return {QStringLiteral("Gestion des contrats"),
                QStringLiteral("La date de fin du contrat précède sa date de début.")};
    if (debut.daysTo(fin) + 1 > Limites::kJoursContratMaximum)
        return {QStringLiteral("Gestion des contrats"),
                QStringLiteral("Un contrat ne peut pas durer plus de %1 jours.")
                    .arg(SaisieFrancaise::texteNombre(Limites::kJoursContratMaximum, {0, 0, 0, false}))};
    if (const QString r = SaisieFrancaise::refusEntier(jours, 0, Limites::kJoursContratMaximum); !r.isEmpty())
        return refusDeSaisie(QStringLiteral("Nombre de jours"), r);
    if (const QString r = SaisieFrancaise::refusEntier(heures, 0, Limites::kHeuresContratMaximum); !r.isEmpty())
        return refusDeSaisie(QStringLiteral("Nombre d'heures"), r);
    const QList<QPair<QString, double>> montants{{QStringLiteral("Salaire brut"), brut},
                                                 {QStringLiteral("Salaire net"), net},
                                                 {QStringLiteral("Net à payer"), netAPayer}};
    for (const auto& [champ, montant] : montants) {
        if (const QString r = SaisieFrancaise::refusNombre(montant, Limites::kMontant); !r.isEmpty())
            return refusDeSaisie(champ, r);
    }
    if (const QString r = SaisieFrancaise::refusNombre(pas, Limites::kPourcentage); !r.isEmpty())
        return refusDeSaisie(QStringLiteral("Taux du prélèvement à la source"), r);
    if (const QString r =
            SaisieFrancaise::refusEntier(anneeEncaissement, Limites::kAnneeMinimum, Limites::kAnneeMaximum);
        !r.isEmpty())
        return refusDeSaisie(QStringLiteral("Année d'encaissement"), r);

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

    Contrat contrat = *this;
    contrat.id = id;
    if (id == 0)
        contrat.listeDates.clear(); // new contracts no longer write day numbers

    // A new contract and the expense its template asks for are written together, or neither.
    PointDeSauvegarde ecriture(contrats.db());
    QString avertissementFrais;
    if (id == 0 && modele && modele->associerFrais) {
        Depense depense;
        depense.categorieId = modele->fraisTypeId;
        depense.montant = modele->fraisMontant;
        depense.details = modele->fraisDetails;
        depense.date = debut;
        Frais frais(contrats.db());
        if (const QString refus = frais.refusValeurs(depense); !refus.isEmpty())
            avertissementFrais =
                QStringLiteral("La dépense prévue par le modèle de contrat n'a pas été créée. %1").arg(refus);
        else if (const int fraisId = frais.enregistreFrais(depense); fraisId > 0)
            contrat.fraisLies << fraisId;
    }
    if (id == 0) {
        resultat.id = contrats.enregistreContratDepuisEcran(contrat);
        if (resultat.id == 0) {
            resultat.refus = {
                QStringLiteral("Gestion des contrats"),
                QStringLiteral("Le contrat n'a pas pu être enregistré : %1").arg(contrats.db().derniereErreur())};
            return resultat;
        }
    } else {
        contrats.modifieContratDepuisEcran(contrat);
        resultat.id = id;
    }
    contrats.enregistreFraisLies(resultat.id, contrat.fraisLies);
    if (!ecriture.valider()) {
        resultat.refus = {
            QStringLiteral("Gestion des contrats"),
            QStringLiteral("Le contrat n'a pas pu être enregistré : %1").arg(contrats.db().derniereErreur())};
        resultat.id = 0;
        return resultat;
    }
    const QString superpositions =
        Contrats::messageSuperpositions(contrats.nombreDeSuperpositionsAvecContratsDu(debut, fin));
    resultat.avertissement = QStringList{superpositions, avertissementFrais}.join(QLatin1Char('\n')).trimmed();
    return resultat;
}

} // namespace corvane
