// The people the user works for, their contract templates, and the rights periods.

#include "PlanCarriere.h"

#include <QSet>
#include <algorithm>
#include <cmath>

namespace corvane::bench {

namespace {

const QDate kReforme2016(2016, 8, 1);

} // namespace

double facteurAnnee(int annee)
{
    return std::clamp(1.0 + 0.012 * (annee - 2015), 0.85, 1.25);
}

QList<EmployeurPlan> creerEmployeurs(int nombre, const QDate& fin, Hasard& hasard)
{
    constexpr double kPoidsGenres[] = {15, 22, 12, 12, 8, 10, 9, 7, 2, 3};
    Tirage genres;
    for (double p : kPoidsGenres)
        genres.ajouter(p);
    // Popularity follows a long tail: a few houses come back all the time.
    QList<int> rangs;
    for (int i = 1; i <= nombre; ++i)
        rangs << i;
    for (int i = nombre - 1; i > 0; --i)
        std::swap(rangs[i], rangs[hasard.entre(0, i)]);

    static const QStringList couleurs{"52,101,164", "204,0,0", "115,210,22", "245,121,0", "117,80,123", "193,125,17"};
    QSet<QString> noms;
    QList<EmployeurPlan> employeurs;
    for (int i = 0; i < nombre; ++i) {
        const Genre forces[] = {Genre::Ecole, Genre::Formation, Genre::RegimeGeneral, Genre::Ecole};
        EmployeurPlan e;
        e.genre = i < 4 ? forces[i] : Genre(genres.tirer(hasard));
        const bool local = e.genre == Genre::Ecole || e.genre == Genre::Formation || e.genre == Genre::RegimeGeneral;
        e.ville = local && hasard.chance(0.5) ? Catalogue::paris() : Catalogue::villeAuHasard(hasard);
        if (e.ville.codePostal.size() == 2)
            e.ville.codePostal += QStringLiteral("%1").arg(hasard.entre(1, 20), 3, 10, QChar(u'0'));
        for (int essai = 0; essai < 30 && (e.raisonSociale.isEmpty() || noms.contains(e.raisonSociale)); ++essai)
            e.raisonSociale = Catalogue::raisonSociale(e.genre, e.ville, hasard);
        if (noms.contains(e.raisonSociale))
            e.raisonSociale += QStringLiteral(" (%1)").arg(e.ville.nom);
        noms.insert(e.raisonSociale);

        e.adresse = Catalogue::adresse(hasard);
        e.email = Catalogue::email(e.raisonSociale, hasard);
        e.interlocuteur = hasard.chance(0.85) ? Catalogue::personne(hasard) : QStringLiteral("Service administratif");
        e.telephone = Catalogue::telephone(e.ville, hasard);
        e.siret = Catalogue::siret(hasard);
        e.codeApe = Catalogue::codeApe(e.genre, hasard);
        e.couleur = hasard.chance(0.85) ? QStringLiteral("0,0,0") : hasard.choisir(couleurs);
        switch (e.genre) {
        case Genre::Theatre:
        case Genre::Compagnie:
        case Genre::Festival:
        case Genre::Orchestre:
        case Genre::Salle:
            e.licence = Catalogue::licenceSpectacle(hasard.entre(fin.year() - 10, fin.year()), hasard);
            break;
        default:
            break;
        }
        const double nonConventionne = e.genre == Genre::Association ? 0.7 : e.genre == Genre::Compagnie ? 0.15 : 0.03;
        e.conventionne = hasard.chance(nonConventionne) ? 0 : 1;
        const double guso = e.genre == Genre::Association ? 0.85
                            : e.genre == Genre::Compagnie ? 0.1
                            : e.genre == Genre::Festival  ? 0.08
                                                          : 0.0;
        e.guso = hasard.chance(guso) ? 1 : 0;
        if (e.guso)
            e.noGuso = QString::number(hasard.entre(100000000, 999999999));
        e.qualite = (e.genre == Genre::Association || e.genre == Genre::Compagnie || e.genre == Genre::Festival)
                        ? QStringLiteral("Association")
                    : (e.genre == Genre::Production || e.genre == Genre::Salle) ? QStringLiteral("Entreprise")
                                                                                : QStringLiteral("Aucune");
        // One-day gross, in the money of 2015; schools pay by the hour.
        const QPair<double, double> fourchettes[] = {{140, 260}, {110, 200}, {150, 300}, {220, 380}, {160, 300},
                                                     {120, 230}, {105, 180}, {35, 55},   {0, 0},     {0, 0}};
        const auto [min, max] = fourchettes[int(e.genre)];
        e.cachet = hasard.reel(min, max);
        e.tauxNet = hasard.reel(0.755, 0.795);
        e.poids = 1.0 / std::pow(double(rangs.at(i)), 0.9);
        employeurs << e;
    }
    return employeurs;
}

QList<PeriodePlan> creerPeriodes(const QDate& debut, const QDate& fin, Hasard& hasard)
{
    // Rights first open after most of a year of work, then come up again every year or so.
    QDate ouverture = debut.addMonths(10 + hasard.entre(0, 2)).addDays(hasard.entre(0, 27));
    ouverture = std::min(ouverture, std::max(debut.addDays(1), fin.addDays(-30)));
    QList<PeriodePlan> periodes;
    while (ouverture <= fin) {
        PeriodePlan p;
        p.debut = ouverture;
        p.fin = ouverture.addDays((ouverture >= kReforme2016 ? 366 : 319) - 1);
        p.conges = hasard.chance(0.5) ? hasard.entre(1, 12) : 0;
        p.franchise = hasard.chance(0.4) ? hasard.entre(1, 20) : 0;
        p.taux = arrondi(std::clamp(42.0 + 1.3 * (ouverture.year() - 2005) + hasard.reel(-4, 6), 38.0, 95.0));
        p.srj = arrondi(p.taux * hasard.reel(1.55, 1.85));
        periodes << p;
        ouverture = p.fin.addDays(p.fin.addDays(1) >= kReforme2016 ? 1 : hasard.entre(1, 20));
    }
    return periodes;
}

void creerModeles(PlanCarriere& plan, Hasard& hasard)
{
    const double pas = plan.tauxPas.value(plan.fin.year(), 0.0);
    auto ajouter = [&](ModelePlan m) {
        m.net = arrondi(m.brut * hasard.reel(0.76, 0.79));
        m.netAPayer = arrondi(m.net - m.net * pas / 100.0);
        if (m.employeur >= 0)
            plan.employeurs[m.employeur].modele = int(plan.modeles.size());
        plan.modeles << m;
    };
    const QPair<Genre, QString> sortes[] = {{Genre::Theatre, QStringLiteral("Représentation")},
                                            {Genre::Orchestre, QStringLiteral("Concert")},
                                            {Genre::Production, QStringLiteral("Tournage")},
                                            {Genre::Ecole, QStringLiteral("Atelier")}};
    const double facteur = facteurAnnee(plan.fin.year());
    for (const auto& [genre, libelle] : sortes) {
        int meilleur = -1;
        for (int i = 0; i < plan.employeurs.size(); ++i)
            if (plan.employeurs[i].genre == genre &&
                (meilleur < 0 || plan.employeurs[i].poids > plan.employeurs[meilleur].poids))
                meilleur = i;
        if (meilleur < 0)
            continue;
        const EmployeurPlan& e = plan.employeurs[meilleur];
        ModelePlan m;
        m.libelle = libelle + QStringLiteral(" – ") + e.raisonSociale;
        m.employeur = meilleur;
        if (genre == Genre::Ecole) {
            m.type = 2;
            m.heures = 3;
            m.brut = arrondi(e.cachet * facteur * 3);
        } else {
            m.brut = std::round(std::clamp(e.cachet * facteur, 100.0, 400.0));
        }
        m.associerFrais = genre == Genre::Orchestre;
        m.fraisMontant = m.associerFrais ? 25.0 : 0.0;
        m.fraisDetails = m.associerFrais ? QStringLiteral("Transport") : QString();
        ajouter(m);
    }
    ModelePlan standard;
    standard.libelle = QStringLiteral("Cachet standard");
    standard.brut = std::round(150 * facteur);
    ajouter(standard);
}

} // namespace corvane::bench
