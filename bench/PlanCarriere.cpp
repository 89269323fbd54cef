#include "PlanCarriere.h"

#include "GenerateurCarriere.h"

#include <algorithm>
#include <cmath>

namespace corvane::bench {

double arrondi(double montant)
{
    return std::round(montant * 100.0) / 100.0;
}

namespace {

const QDate kReforme2016(2016, 8, 1);
const QDate kPrelevementALaSource(2019, 1, 1);
// Planned engagements reach this far past "today".
constexpr int kJoursAVenir = 75;

// How busy each month and each weekday is: summer festivals, weekend shows.
constexpr double kSaisons[12] = {0.75, 0.85, 0.95, 1.0, 1.1, 1.15, 1.35, 1.1, 0.9, 1.0, 1.05, 1.2};
constexpr double kSemaine[7] = {0.55, 0.75, 0.9, 1.0, 1.25, 1.45, 0.9};
constexpr double kFestivals[12] = {0.15, 0.15, 0.2, 0.4, 1.0, 3.5, 6.0, 5.0, 1.2, 0.4, 0.2, 0.2};
constexpr double kFetes[12] = {0.6, 0.5, 0.6, 0.8, 1.2, 1.8, 2.2, 1.8, 1.0, 0.8, 0.8, 1.6};

double borne(double valeur, double min, double max)
{
    return std::clamp(valeur, min, max);
}

// Most engagements are paid in round euros.
double montantDeCachet(double montant, Hasard& hasard)
{
    return hasard.chance(0.6) ? std::round(montant) : arrondi(montant);
}

int typeDeSorte(Sorte sorte)
{
    switch (sorte) {
    case Sorte::Enseignement:
        return 2;
    case Sorte::Formation:
        return 3;
    case Sorte::RegimeGeneral:
        return 4;
    default:
        return 1;
    }
}

class Calendrier
{
public:
    Calendrier(PlanCarriere& plan, const ParametresCarriere& parametres, Hasard& hasard)
        : m_plan(plan), m_hasard(hasard), m_nombre(parametres.contrats)
    {
        m_horizon = plan.fin.addDays(kJoursAVenir);
        const int jours = int(plan.debut.daysTo(m_horizon)) + 1;
        // A busy calendar leaves little room for long engagements.
        m_plusieursJours = borne(1.1 - double(m_nombre) / jours, 0.3, 1.0);
        m_occupe.fill(false, jours);
        m_bloque.fill(false, jours);
        for (const ArretPlan& a : plan.arrets)
            for (QDate j = a.debut; j <= a.fin; j = j.addDays(1))
                m_bloque[indice(j)] = true;
        double total = 0;
        for (int i = 0; i < jours; ++i) {
            const QDate jour = plan.debut.addDays(i);
            double poids = kSaisons[jour.month() - 1] * kSemaine[jour.dayOfWeek() - 1];
            if (i < 730)
                poids *= 0.5 + 0.5 * i / 730.0; // a career starts slowly
            if (jour > plan.fin)
                poids *= 0.6 * (1.0 - double(plan.fin.daysTo(jour)) / (kJoursAVenir + 1));
            total += m_bloque[i] ? 0.0 : poids;
            m_cumuls << total;
        }
        for (int type = 1; type <= 4; ++type)
            for (int mois = 1; mois <= 12; ++mois) {
                Tirage tirage;
                for (const EmployeurPlan& e : plan.employeurs)
                    tirage.ajouter(convient(e.genre, type) ? e.poids * saison(e.genre, mois) : 0.0);
                m_employeurs << tirage;
            }
    }

    void placerContrats()
    {
        repartirSortes();
        for (int i = 0; i < m_nombre; ++i) {
            const double cible = (i + m_hasard.reel(0, 1)) / m_nombre * m_cumuls.last();
            const auto it = std::lower_bound(m_cumuls.cbegin(), m_cumuls.cend(), cible);
            placer(m_plan.debut.addDays(std::min<qsizetype>(it - m_cumuls.cbegin(), m_cumuls.size() - 1)),
                   m_sortes.at(i));
        }
        std::stable_sort(m_plan.contrats.begin(), m_plan.contrats.end(),
                         [](const ContratPlan& a, const ContratPlan& b) { return a.debut() < b.debut(); });
    }

private:
    int indice(const QDate& jour) const { return int(m_plan.debut.daysTo(jour)); }

    static bool convient(Genre genre, int type)
    {
        switch (type) {
        case 2:
            return genre == Genre::Ecole;
        case 3:
            return genre == Genre::Formation;
        case 4:
            return genre == Genre::RegimeGeneral;
        default:
            return genre != Genre::Ecole && genre != Genre::Formation && genre != Genre::RegimeGeneral;
        }
    }

    static double saison(Genre genre, int mois)
    {
        if (genre == Genre::Festival)
            return kFestivals[mois - 1];
        if (genre == Genre::Association)
            return kFetes[mois - 1];
        return 1.0;
    }

    // The kinds of all the engagements, in shares fixed in advance so that even a small
    // document holds some of each, then shuffled.
    void repartirSortes()
    {
        const int n = m_nombre;
        auto part = [n](double p) { return int(std::lround(p * n)); };
        const QPair<Sorte, int> parts[] = {{Sorte::Enseignement, std::max(1, part(0.03))},
                                           {Sorte::Formation, std::max(1, part(0.012))},
                                           {Sorte::RegimeGeneral, std::max(1, part(0.015))},
                                           {Sorte::Groupe, part(0.06 * m_plusieursJours)},
                                           {Sorte::Court, part(0.09 * m_plusieursJours)}};
        for (const auto& [sorte, nombre] : parts)
            for (int k = 0; k < nombre && m_sortes.size() < n; ++k)
                m_sortes << sorte;
        while (m_sortes.size() < n)
            m_sortes << Sorte::Cachet;
        for (int i = n - 1; i > 0; --i)
            std::swap(m_sortes[i], m_sortes[m_hasard.entre(0, i)]);
    }

    // The worked days of an engagement of that kind starting on `depart`.
    static QList<QDate> datesPour(Sorte sorte, QDate depart, int longueur, int pas)
    {
        QList<QDate> dates;
        switch (sorte) {
        case Sorte::Enseignement:
            // Sessions a week (or a day) apart, never past the end of the month.
            for (QDate j = depart; dates.size() < longueur && j.month() == depart.month(); j = j.addDays(pas))
                dates << j;
            break;
        case Sorte::Formation:
            // Weekdays from a Monday.
            depart = depart.addDays(depart.dayOfWeek() >= 6 ? 8 - depart.dayOfWeek() : 1 - depart.dayOfWeek());
            for (QDate j = depart; dates.size() < longueur; j = j.addDays(1))
                if (j.dayOfWeek() <= 5)
                    dates << j;
            break;
        default:
            for (int k = 0; k < longueur; ++k)
                dates << depart.addDays(k);
            break;
        }
        return dates;
    }

    // A leave is refused when it lies within an engagement's span, so the whole span is kept clear of them.
    bool libre(const QList<QDate>& dates, bool chevauchementAdmis) const
    {
        for (QDate jour = dates.first(); jour <= dates.last(); jour = jour.addDays(1)) {
            const int i = indice(jour);
            if (i >= 0 && i < m_bloque.size() && m_bloque[i])
                return false;
        }
        if (chevauchementAdmis)
            return true;
        for (const QDate& jour : dates) {
            const int i = indice(jour);
            if (i >= 0 && i < m_occupe.size() && m_occupe[i])
                return false;
        }
        return true;
    }

    void placer(QDate jour, Sorte sorte)
    {
        // No school work in the summer holidays: the sessions move to June or September.
        if (sorte == Sorte::Enseignement && (jour.month() == 7 || jour.month() == 8)) {
            const QDate juin(jour.year(), 6, m_hasard.entre(1, 28));
            jour = juin >= m_plan.debut && m_hasard.chance(0.5) ? juin : QDate(jour.year(), 9, m_hasard.entre(1, 28));
        }
        int longueur = 1, pas = 1;
        switch (sorte) {
        case Sorte::Court:
            longueur = m_hasard.entre(2, 4);
            break;
        case Sorte::Groupe:
            longueur = m_hasard.entre(5, 12);
            break;
        case Sorte::Enseignement:
            longueur = m_hasard.entre(1, 4);
            pas = m_hasard.chance(0.7) ? 7 : 1;
            break;
        case Sorte::Formation:
            longueur = m_hasard.entre(3, 10);
            break;
        case Sorte::RegimeGeneral:
            longueur = m_hasard.entre(1, 5);
            break;
        case Sorte::Cachet:
            break;
        }
        const int type = typeDeSorte(sorte);
        // Free days first; when the calendar is full, a second engagement on the same day; never over a leave.
        QList<int> decalages{0, 1, 2, 3};
        for (int k = 0; k <= 150; ++k)
            decalages << k << -k - 1;
        QList<QDate> dates;
        const int ecart = sorte == Sorte::Formation ? 7 : 1;
        for (int i = 0; i < decalages.size() && dates.isEmpty(); ++i) {
            const QList<QDate> essai = datesPour(sorte, jour.addDays(decalages[i] * ecart), longueur, pas);
            const bool vacances =
                sorte == Sorte::Enseignement && (essai.first().month() == 7 || essai.first().month() == 8);
            if (!vacances && libre(essai, i >= 4))
                dates = essai;
        }
        if (dates.isEmpty())
            dates = datesPour(sorte, jour, longueur, pas);
        for (const QDate& d : dates)
            if (const int i = indice(d); i >= 0 && i < m_occupe.size())
                m_occupe[i] = true;

        ContratPlan c;
        c.dates = dates;
        c.employeur = m_employeurs.at((type - 1) * 12 + c.debut().month() - 1).tirer(m_hasard);
        remplir(c, sorte);
        m_plan.contrats << c;
    }

    void remplir(ContratPlan& c, Sorte sorte)
    {
        const EmployeurPlan& e = m_plan.employeurs.at(c.employeur);
        const int n = int(c.dates.size());
        const int annee = c.debut().year();
        const double facteur = facteurAnnee(annee);
        c.type = typeDeSorte(sorte);
        c.emploi = sorte == Sorte::RegimeGeneral ? 4 : 1;
        c.abattement = c.type == 1 ? 2 : 1; // the user's 20 % for performances, none otherwise
        c.conges = c.type == 1 ? 1 : 0;
        switch (sorte) {
        case Sorte::Cachet:
            c.heures = 12;
            c.brut = montantDeCachet(borne(e.cachet * facteur * m_hasard.reel(0.92, 1.08), 100, 400), m_hasard);
            break;
        case Sorte::Court:
        case Sorte::Groupe: {
            // Before the 2016 rules a span of five days or more counted 8 hours a day.
            const bool groupe = c.debut().daysTo(c.fin()) + 1 >= 5 && c.debut() < kReforme2016;
            c.heures = n * (groupe ? 8 : 12);
            const double parJour =
                e.cachet * facteur * (sorte == Sorte::Groupe ? m_hasard.reel(0.65, 0.85) : m_hasard.reel(0.85, 1.0));
            c.brut = montantDeCachet(borne(parJour, 90, 400) * n, m_hasard);
            break;
        }
        case Sorte::Enseignement:
            c.heures = n * m_hasard.entre(2, 4);
            c.brut = arrondi(e.cachet * facteur * m_hasard.reel(0.95, 1.05) * c.heures);
            break;
        case Sorte::Formation:
            c.heures = n * 7; // financed training: hours count, no pay
            break;
        case Sorte::RegimeGeneral:
            c.heures = n * 7;
            c.brut = arrondi(c.heures * Catalogue::smicHoraire(annee) * m_hasard.reel(1.05, 1.25));
            break;
        }
        const double taux = sorte == Sorte::RegimeGeneral ? 0.78 : e.tauxNet + m_hasard.reel(-0.004, 0.004);
        c.net = arrondi(c.brut * borne(taux, 0.75, 0.80));

        c.fonction = Catalogue::fonction(e.genre, m_hasard);
        c.note = Catalogue::note(e.genre, n, m_hasard);
        const bool tournee = e.genre == Genre::Theatre || e.genre == Genre::Compagnie || e.genre == Genre::Orchestre ||
                             e.genre == Genre::Production;
        const Ville lieu = tournee && m_hasard.chance(0.3) ? Catalogue::villeAuHasard(m_hasard) : e.ville;
        c.lieu = lieu.nom;
        c.distance = Catalogue::distanceKm(Catalogue::paris(), lieu);

        // Status as of "today": planned work is neither done nor paid; recent pay is often still due.
        const QDate aujourdhui = m_plan.fin;
        c.effectue = c.debut() <= aujourdhui ? 1 : 0;
        const qint64 age = c.fin().daysTo(aujourdhui);
        const double paye = age < 0 ? 0.0 : age <= 15 ? 0.25 : age <= 45 ? 0.7 : age <= 90 ? 0.95 : 0.997;
        c.paye = c.brut == 0 ? c.effectue : (m_hasard.chance(paye) ? 1 : 0);
        c.aemFp = c.effectue && (c.paye || age > 30) ? 1 : 0;
        c.anneeEncaissement = c.fin().year();
        if (c.paye && c.fin().month() == 12 && c.fin().day() >= 15 && m_hasard.chance(0.5))
            c.anneeEncaissement += 1;
        c.pas = c.brut > 0 ? m_plan.tauxPas.value(c.anneeEncaissement, 0.0) : 0.0;
        c.netAPayer = arrondi(c.net - c.net * c.pas / 100.0);
    }

    PlanCarriere& m_plan;
    Hasard& m_hasard;
    int m_nombre;
    QDate m_horizon;
    double m_plusieursJours = 1.0; // share of engagements of several days, relative to a quiet year
    QList<bool> m_occupe, m_bloque;
    QList<double> m_cumuls;
    QList<Tirage> m_employeurs; // per type and month
    QList<Sorte> m_sortes;      // per engagement, in date order
};

// Hours of the done work in the year before an opening of rights.
int heuresAvant(const PlanCarriere& plan, const QDate& ouverture)
{
    int heures = 0;
    for (const ContratPlan& c : plan.contrats)
        if (c.effectue && c.debut() < ouverture && c.debut() >= ouverture.addDays(-365))
            heures += c.heures;
    return heures;
}

} // namespace

PlanCarriere planifierCarriere(const ParametresCarriere& parametres)
{
    Hasard hasard(parametres.graine);
    PlanCarriere plan;
    plan.fin = parametres.fin;
    plan.debut = plan.fin.addYears(-parametres.annees).addDays(1);
    for (int annee = plan.debut.year(); annee <= plan.fin.year() + 1; ++annee)
        if (QDate(annee, 12, 31) >= kPrelevementALaSource)
            plan.tauxPas.insert(annee, std::round(hasard.reel(1.2, 4.5) * 10.0) / 10.0);

    const int nombre = std::clamp(int(std::lround(5.0 * std::sqrt(double(parametres.contrats)))), 15, 600);
    plan.employeurs = creerEmployeurs(nombre, plan.fin, hasard);
    plan.periodes = creerPeriodes(plan.debut, plan.fin, hasard);
    planifierArrets(plan, hasard);

    Calendrier calendrier(plan, parametres, hasard);
    calendrier.placerContrats();
    for (int i = 0; i < plan.periodes.size(); ++i)
        plan.periodes[i].notes = QStringLiteral("%1 : %2 heures sur les douze mois précédents")
                                     .arg(i == 0 ? QStringLiteral("Ouverture des droits") : QStringLiteral("Réexamen"))
                                     .arg(heuresAvant(plan, plan.periodes[i].debut));

    creerModeles(plan, hasard);
    planifierFrais(plan, hasard);
    planifierVersements(plan, hasard);
    planifierDroitsVoisins(plan, hasard);
    return plan;
}

} // namespace corvane::bench
