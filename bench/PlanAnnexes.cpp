// The records around the contracts: sickness, expenses, payments received, royalties.

#include "PlanCarriere.h"

#include <QHash>
#include <algorithm>
#include <cmath>

namespace corvane::bench {

namespace {

const QDate kReforme2016(2016, 8, 1);

// The part of a calendar year that lies within the career.
struct Annee
{
    QDate debut, fin;
    double part; // of a whole year
};

QList<Annee> anneesDe(const PlanCarriere& plan)
{
    QList<Annee> annees;
    for (int a = plan.debut.year(); a <= plan.fin.year(); ++a) {
        const QDate debut = std::max(plan.debut, QDate(a, 1, 1));
        const QDate fin = std::min(plan.fin, QDate(a, 12, 31));
        annees.append({debut, fin, (debut.daysTo(fin) + 1) / 365.0});
    }
    return annees;
}

QDate jourAuHasard(const QDate& debut, const QDate& fin, Hasard& hasard)
{
    return debut.addDays(hasard.entre(0, int(debut.daysTo(fin))));
}

// How many of `nombre` things happen in a part of a year.
int auProrata(int nombre, double part, Hasard& hasard)
{
    const double attendu = nombre * part;
    return int(attendu) + (hasard.chance(attendu - int(attendu)) ? 1 : 0);
}

// The end of the rights the user held when a leave began.
QDate finDesDroits(const PlanCarriere& plan, const QDate& jour)
{
    QDate fin = plan.periodes.isEmpty() ? jour : plan.periodes.first().fin;
    for (const PeriodePlan& p : plan.periodes)
        if (p.debut <= jour)
            fin = p.fin;
    return fin;
}

// The two stored counts of a leave, as the sickness screen works them out on save.
void calculerIncidences(ArretPlan& a, const QDate& finDroits)
{
    const int jours = int(a.debut.daysTo(a.fin)) + 1;
    const int etendue = jours + 1;
    const int s = a.joursSuspendus;
    a.nbreJours = jours;
    a.incidenceHeures = a.incidencePeriode = 0;
    if (a.type >= 5)
        return;
    if (finDroits < kReforme2016) {
        if (a.type == 2) {
            a.incidenceHeures = s;
            a.incidencePeriode = jours - s;
        } else {
            a.incidenceHeures = jours;
        }
    } else if (s < 1) {
        if (a.type == 2 && !a.ald)
            a.incidencePeriode = jours;
        else
            a.incidenceHeures = etendue;
    } else if (a.type != 2 || !a.ald) {
        a.incidenceHeures = s;
    }
}

} // namespace

void planifierArrets(PlanCarriere& plan, Hasard& hasard)
{
    auto libre = [&](const QDate& debut, const QDate& fin) {
        for (const ArretPlan& a : plan.arrets)
            if (debut <= a.fin.addDays(1) && fin >= a.debut.addDays(-1))
                return false;
        return true;
    };
    auto ajouter = [&](ArretPlan a, const QDate& min, const QDate& max, int jours) {
        for (int essai = 0; essai < 20; ++essai) {
            if (max.addDays(1 - jours) < min)
                return;
            a.debut = jourAuHasard(min, max.addDays(1 - jours), hasard);
            a.fin = a.debut.addDays(jours - 1);
            if (!libre(a.debut, a.fin))
                continue;
            a.joursSuspendus = std::min(a.joursSuspendus, jours);
            calculerIncidences(a, finDesDroits(plan, a.debut));
            const double ij = hasard.reel(28, 48) * (1.0 + 0.01 * (a.debut.year() - 2015));
            const int indemnises = a.type == 2 ? std::max(0, jours - 3) : a.type <= 4 ? jours : 0;
            a.totalIj = arrondi(indemnises * ij);
            a.rembourse = a.fin.daysTo(plan.fin) > 30 ? 1 : 0;
            a.rembourseMutuelle = a.type >= 5 && a.rembourse && hasard.chance(0.85) ? 1 : 0;
            plan.arrets << a;
            return;
        }
    };

    const int ans = plan.debut.daysTo(plan.fin) / 365;
    if (ans >= 6) {
        ArretPlan m;
        m.type = 3;
        m.note = QStringLiteral("Congé maternité");
        const QDate vers = plan.debut.addYears(ans / 2);
        ajouter(m, vers, vers.addDays(300), 112);
        plan.enfants = 1;
    }
    static const QStringList maladies{
        "Grippe", "Angine", "Lombalgie", "Gastro-entérite", "Entorse de la cheville", "Extinction de voix"};
    static const QStringList specialistes{"Dermatologue", "ORL", "Ophtalmologue", "Phoniatre"};
    for (const Annee& annee : anneesDe(plan)) {
        if (hasard.chance(0.55 * annee.part)) {
            ArretPlan a;
            a.type = 2;
            a.note = hasard.choisir(maladies);
            a.joursSuspendus = hasard.chance(0.5) ? hasard.entre(1, 3) : 0;
            ajouter(a, annee.debut, annee.fin, hasard.entre(3, 12));
        }
        if (hasard.chance(0.07 * annee.part)) {
            ArretPlan a;
            a.type = 1;
            a.note = hasard.choisir(QStringList{"Chute pendant une répétition", "Entorse sur scène"});
            a.joursSuspendus = hasard.entre(0, 2);
            ajouter(a, annee.debut, annee.fin, hasard.entre(5, 25));
        }
        for (int k = auProrata(hasard.entre(2, 4), annee.part, hasard); k > 0; --k) {
            ArretPlan a;
            a.type = hasard.entre(5, 7);
            a.note = a.type == 5   ? QStringLiteral("Consultation Dr ") + Catalogue::personne(hasard).section(' ', 1)
                     : a.type == 6 ? hasard.choisir(specialistes)
                                   : QStringLiteral("Pharmacie, ordonnance");
            ajouter(a, annee.debut, annee.fin, 1);
        }
    }
    std::sort(plan.arrets.begin(), plan.arrets.end(),
              [](const ArretPlan& a, const ArretPlan& b) { return a.debut < b.debut; });
}

void planifierFrais(PlanCarriere& plan, Hasard& hasard)
{
    auto ajouter = [&](const char* categorie, const QString& details, double montant, const QDate& date,
                       int contrat = -1, int rembourse = 0) {
        plan.frais.append({QString::fromUtf8(categorie), details, montant, date, contrat, rembourse});
    };

    // Travel to engagements away from home, linked to their contract.
    for (int i = 0; i < plan.contrats.size(); ++i) {
        const ContratPlan& c = plan.contrats.at(i);
        if (c.type != 1 || !c.effectue || c.distance < 40 || !hasard.chance(0.35))
            continue;
        const int rembourse = hasard.chance(0.2) ? 1 : 0;
        const int jours = int(c.dates.size());
        if (c.distance > 250 || hasard.chance(0.5))
            ajouter("Transport", QStringLiteral("Billet de train Paris – %1 (aller-retour)").arg(c.lieu),
                    arrondi(std::clamp(c.distance * 0.12 + hasard.reel(10, 40), 20.0, 160.0)), c.debut(), i, rembourse);
        else
            ajouter("Kilométrage", QStringLiteral("Trajet Paris – %1 aller-retour").arg(c.lieu),
                    std::round(c.distance * 2.4), c.debut(), i, rembourse);
        if (jours >= 2 && hasard.chance(0.6)) {
            const int nuits = std::min(jours - 1, 14);
            ajouter("Hébergement", QStringLiteral("Hôtel, %1 nuit%2 à %3").arg(nuits).arg(nuits > 1 ? "s" : "", c.lieu),
                    arrondi(nuits * hasard.reel(55, 95)), c.debut(), i, rembourse);
        }
        if (hasard.chance(0.3))
            ajouter("Restauration", QStringLiteral("Repas à %1").arg(c.lieu), arrondi(jours * hasard.reel(12, 30)),
                    c.debut(), i, rembourse);
    }

    // The phone plan, every month.
    for (QDate mois(plan.debut.year(), plan.debut.month(), 5); mois <= plan.fin; mois = mois.addMonths(1))
        if (mois >= plan.debut)
            ajouter("Communication", QStringLiteral("Forfait téléphone mobile"),
                    mois.year() < 2012   ? 39.9
                    : mois.year() < 2018 ? 19.99
                                         : 15.99,
                    mois);

    // The rest of the year's professional spending.
    struct Depense
    {
        const char* categorie;
        QStringList details;
        double min, max;
        int parAnMin, parAnMax;
    };
    const Depense depenses[] = {
        {"Documentation", {"Partitions", "Livres de théâtre", "Abonnement à une revue de théâtre"}, 8, 45, 2, 5},
        {"Vêtement", {"Tenue de scène", "Chaussures de scène"}, 30, 180, 1, 2},
        {"Accessoire", {"Accessoires de scène", "Maquillage de scène"}, 15, 80, 0, 2},
        {"Matériel", {"Micro", "Pupitre", "Enceinte de retour"}, 40, 350, 0, 1},
        {"Logiciel", {"Logiciel de montage audio", "Abonnement à un logiciel de partitions"}, 30, 150, 0, 1},
        {"Divers", {"Cours de chant", "Photos pour le book", "Cotisation syndicale"}, 40, 300, 1, 3},
        {"Transport", {"Billet de train pour une audition", "Taxi après une représentation"}, 15, 120, 2, 6},
        {"Restauration", {"Repas de travail"}, 12, 45, 2, 6},
        {"Autoroute", {"Péage"}, 6, 45, 0, 4},
        {"Carburant", {"Plein de carburant"}, 40, 80, 0, 4},
    };
    for (const Annee& annee : anneesDe(plan)) {
        for (const Depense& d : depenses)
            for (int k = auProrata(hasard.entre(d.parAnMin, d.parAnMax), annee.part, hasard); k > 0; --k)
                ajouter(d.categorie, hasard.choisir(d.details), arrondi(hasard.reel(d.min, d.max)),
                        jourAuHasard(annee.debut, annee.fin, hasard));
        if (hasard.chance(0.25 * annee.part))
            ajouter("Informatique", QStringLiteral("Ordinateur portable"), arrondi(hasard.reel(500, 1200)),
                    jourAuHasard(annee.debut, annee.fin, hasard));
    }
    std::stable_sort(plan.frais.begin(), plan.frais.end(),
                     [](const FraisPlan& a, const FraisPlan& b) { return a.date < b.date; });
}

void planifierVersements(PlanCarriere& plan, Hasard& hasard)
{
    // Worked and sick days per month ("yyyyMM" as a number).
    QHash<int, int> travailles, arretes;
    QSet<QDate> jours;
    for (const ContratPlan& c : plan.contrats)
        if (c.effectue)
            for (const QDate& j : c.dates)
                if (!jours.contains(j)) {
                    jours.insert(j);
                    ++travailles[j.year() * 100 + j.month()];
                }
    for (const ArretPlan& a : plan.arrets)
        if (a.type <= 4)
            for (QDate j = a.debut; j <= a.fin; j = j.addDays(1))
                ++arretes[j.year() * 100 + j.month()];

    // Allowances, paid early in the following month for the days not worked.
    for (const PeriodePlan& p : plan.periodes) {
        for (QDate mois(p.debut.year(), p.debut.month(), 1); mois <= std::min(p.fin, plan.fin);
             mois = mois.addMonths(1)) {
            const QDate date = mois.addMonths(1).addDays(hasard.entre(1, 5));
            if (date > plan.fin)
                break;
            const QDate du = std::max(p.debut, mois);
            const QDate au = std::min(p.fin, mois.addMonths(1).addDays(-1));
            const int cle = mois.year() * 100 + mois.month();
            int indemnises =
                int(du.daysTo(au)) + 1 - int(std::lround(travailles.value(cle) * 1.4)) - arretes.value(cle);
            if (du == p.debut)
                indemnises -= p.attente + p.franchise + p.conges;
            if (indemnises > 0)
                plan.allocations.append({date, arrondi(indemnises * p.taux), 0});
        }
    }

    // Paid leave for each leave year (April to March), paid in late spring.
    for (int annee = plan.debut.year() + 1; annee <= plan.fin.year(); ++annee) {
        double bruts = 0;
        for (const ContratPlan& c : plan.contrats)
            if (c.conges && c.effectue && c.debut() >= QDate(annee - 1, 4, 1) && c.debut() <= QDate(annee, 3, 31))
                bruts += c.brut;
        const QDate date(annee, 5, hasard.entre(10, 31));
        if (bruts >= 1 && date <= plan.fin)
            plan.conges.append({date, arrondi(bruts * 0.1 * hasard.reel(0.78, 0.84)), date.daysTo(plan.fin) > 20});
    }

    // Income tax: the balance each September; since withholding, a small adjustment either way.
    for (int annee = plan.debut.year() + 1; annee <= plan.fin.year(); ++annee) {
        const QDate date(annee, 9, 15);
        if (date > plan.fin || annee - 1 == 2018) // 2018 income was never taxed on its own
            continue;
        double nets = 0;
        for (const ContratPlan& c : plan.contrats)
            if (c.effectue && c.anneeEncaissement == annee - 1)
                nets += c.net;
        if (nets < 8000) // too little income to owe any tax
            continue;
        if (annee - 1 < 2018)
            plan.impots.append({date, arrondi(nets * hasard.reel(0.02, 0.05)), 0});
        else if (hasard.chance(0.35))
            plan.impots.append({date, arrondi(hasard.reel(40, 400)), 1});
        else
            plan.impots.append({date, arrondi(hasard.reel(60, 600)), 0});
    }
}

void planifierDroitsVoisins(PlanCarriere& plan, Hasard& hasard)
{
    const QPair<QString, QString> sources[] = {{"Adami", "Comédien"},
                                               {"Adami", "Artiste-interprète"},
                                               {"Spedidam", "Chanteur"},
                                               {"Spedidam", "Artiste-interprète"}};
    static const QStringList details{"Répartition %1 : diffusions télévisées", "Copie privée %1",
                                     "Rémunération équitable %1", "Droits d'enregistrement %1"};
    for (const Annee& annee : anneesDe(plan))
        for (int k = auProrata(hasard.entre(1, 3), annee.part, hasard); k > 0; --k) {
            const auto& [organisme, categorie] = sources[hasard.entre(0, 3)];
            plan.droitsVoisins.append({categorie, organisme, hasard.choisir(details).arg(annee.debut.year() - 1),
                                       arrondi(hasard.reel(25, 450)), jourAuHasard(annee.debut, annee.fin, hasard)});
        }
    std::sort(plan.droitsVoisins.begin(), plan.droitsVoisins.end(),
              [](const DroitVoisinPlan& a, const DroitVoisinPlan& b) { return a.date < b.date; });
}

} // namespace corvane::bench
