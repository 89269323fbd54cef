#include "regimes/Fiscalite.h"

#include "records/BaremeKilometrique.h"
#include "regimes/CalculateurAutoEntrepreneur.h"
#include "store/Dates.h"
#include "store/FormatFrancais.h"
#include "store/Horloge.h"

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

const QString filtreAutoEntrepreneur =
    QStringLiteral(" AND (c_type = 100 OR c_type = 101 OR c_type = 102 OR c_type = 103) ");

// The collecting societies' names by their position in the list.
const QStringList organismes{"Adami", "Sacem", "Scpp", "Spedidam", "Sppf", "Spré"};

} // namespace

QStringList Fiscalite::periodes(const QDate& aujourdhui)
{
    QStringList liste;
    for (int i = 0; i < 6; ++i)
        liste << QStringLiteral("Revenus de %1").arg(aujourdhui.year() - i);
    return liste << QStringLiteral("Période définie");
}

QStringList Fiscalite::periodesAE()
{
    return {QStringLiteral("Le mois dernier"),       QStringLiteral("Le mois en cours"),
            QStringLiteral("1er trimestre de l'année"), QStringLiteral("2e trimestre de l'année"),
            QStringLiteral("3e trimestre de l'année"),  QStringLiteral("4e trimestre de l'année")};
}

QPair<QDate, QDate> Fiscalite::bornesPeriodeAE(int index, int annee, const QDate& aujourdhui)
{
    if (index == 0 || index == 1) {
        const QDate debut = QDate(aujourdhui.year(), aujourdhui.month(), 1).addMonths(index - 1);
        return {debut, debut.addMonths(1).addDays(-1)};
    }
    const QDate debut(annee, 3 * (index - 2) + 1, 1);
    return {debut, debut.addMonths(3).addDays(-1)};
}

const QStringList& Fiscalite::clesContrats()
{
    static const QStringList cles{"Du", "Du SQLite", "Au", "Net imposable", "CP", "Enseigne", "Jours", "Heures",
                                  "Emploi"};
    return cles;
}

const QStringList& Fiscalite::clesEmployeurs()
{
    static const QStringList cles{"Employeurs", "Heures", "Montants", "PAS"};
    return cles;
}

double Fiscalite::montant(double valeur) const
{
    if (!arrondirMontants)
        return valeur;
    // Written with two decimals, read back, then to the euro: 10,50 gives 11, 10,49 gives 10.
    return std::round(QString::number(valeur, 'f', 2).toDouble());
}

void Fiscalite::declarationAnnee(int annee)
{
    parAnnee = true;
    dateDebut = QDate(annee, 1, 1);
    dateFin = QDate(annee, 12, 31);
    calcule();
}

void Fiscalite::declarationPeriode(const QDate& du, const QDate& au)
{
    parAnnee = false;
    dateDebut = du;
    dateFin = au;
    calcule();
}

QString Fiscalite::conditionContrats() const
{
    const QString filtre = autoEntrepreneurSeul ? filtreAutoEntrepreneur : QString();
    if (parAnnee)
        return QStringLiteral("WHERE (c_annee_encaissement = %1) AND (c_effectue=1)%2").arg(dateDebut.year()).arg(filtre);
    return QStringLiteral("WHERE (c_debut_contrat BETWEEN ? AND ?) AND (c_fin_contrat BETWEEN ? AND ?) AND "
                          "(c_effectue=1)%1")
        .arg(filtre);
}

QVariantList Fiscalite::parametresContrats() const
{
    if (parAnnee)
        return {};
    const QString du = Dates::versSQLite(dateDebut);
    const QString au = Dates::versSQLite(dateFin);
    return {du, au, du, au};
}

void Fiscalite::calcule()
{
    const QString du = Dates::versSQLite(dateDebut);
    const QString au = Dates::versSQLite(dateFin);
    const auto somme = [&](const QString& sql) { return m_db.reel(sql.arg(du, au)); };
    totalKm = somme(QStringLiteral("SELECT SUM(f_montant) AS totalKM FROM frais WHERE (f_date BETWEEN '%1' AND '%2') "
                                   "AND (f_categorie = 1);"));
    totalFrais = montant(somme(QStringLiteral("SELECT SUM(f_montant) AS totalKM FROM frais WHERE (f_date BETWEEN '%1' "
                                              "AND '%2') AND (f_categorie <> 1);")));
    cumulAssedic = montant(somme(QStringLiteral("SELECT SUM(ah_montant) AS cumulAssedic FROM assedichistorique WHERE "
                                                "(ah_date BETWEEN '%1' AND '%2');")));
    cumulConges = montant(somme(QStringLiteral("SELECT SUM(ch_montant) AS cumulConges FROM congeshistorique WHERE "
                                               "(ch_date BETWEEN '%1' AND '%2');")));
    // Long-illness allowances are not taxable.
    totalIJ = montant(somme(QStringLiteral("SELECT SUM(ss_total_ij) AS totalIJ FROM securitesociale WHERE (ss_debut "
                                           "BETWEEN '%1' AND '%2') AND (ss_ald = 0) ORDER BY ss_debut ASC;")));

    contrats = Table{clesContrats(), {}};
    nombreCachets = 0;
    nombreHeuresTotal = 0;
    revenusNet = 0;
    maxNets = 0;
    totalRevenusRevente = totalRevenusCommerciaux = totalRevenusNonCommerciaux = totalRevenusActiviteLiberale = 0;
    {
        Requete r(m_db, QStringLiteral("SELECT c_employeur_id, c_debut_contrat, c_fin_contrat, c_nbre_heures, "
                                       "c_nbre_jours, c_salaire_net, c_nbre_jours, c_type, e_raison_sociale, "
                                       "e_codepostal, e_emploi FROM contrats JOIN employeurs ON "
                                       "c_employeur_id=employeurs.e_id JOIN emplois ON emplois.e_id = c_emploi_id %1 "
                                       "ORDER BY c_debut_contrat ASC;")
                            .arg(conditionContrats()));
        r.lierTout(parametresContrats());
        while (r.suivante()) {
            const double net = montant(r.reel(5));
            const QString debut = r.texte(1);
            contrats.rangees.append({Dates::versAffichage(Dates::depuisSQLite(debut)), debut,
                                     Dates::versAffichage(Dates::depuisSQLite(r.texte(2))), net, r.texte(9),
                                     r.texte(8), int(r.entier(4)), int(r.entier(3)), r.texte(10)});
            nombreCachets += int(r.entier(4));
            nombreHeuresTotal += int(r.entier(3));
            revenusNet += net;
            maxNets = std::max(maxNets, net);
            switch (r.entier(7)) {
            case 100:
                totalRevenusRevente += net;
                break;
            case 101:
                totalRevenusCommerciaux += net;
                break;
            case 102:
                totalRevenusNonCommerciaux += net;
                break;
            case 103:
                totalRevenusActiviteLiberale += net;
                break;
            default:
                break;
            }
        }
    }

    employeurs = Table{clesEmployeurs(), {}};
    {
        Requete r(m_db, QStringLiteral("SELECT e_raison_sociale, SUM(c_nbre_heures) AS totalHeures, SUM(c_salaire_net) "
                                       "AS totalSalairesNets, SUM(c_salaire_net * c_pas / 100) AS totalPAS FROM "
                                       "contrats JOIN employeurs ON c_employeur_id = e_id %1GROUP BY e_raison_sociale;")
                            .arg(conditionContrats()));
        r.lierTout(parametresContrats());
        while (r.suivante())
            employeurs.rangees.append(
                {r.texte(0), r.reel(1), montant(std::round(r.reel(2) * 100) / 100), std::round(r.reel(3) * 100) / 100});
    }

    const QString format = QStringLiteral("dd/MM/yyyy");
    resume = {{QStringLiteral("Du"), dateDebut.toString(format)},
              {QStringLiteral("Au"), dateFin.toString(format)},
              {QStringLiteral("Journées"), QString::number(nombreCachets)},
              {QStringLiteral("Heures"), primeEmploi ? QStringLiteral("0") : QString::number(nombreHeuresTotal)},
              {QStringLiteral("Net Imp."), enEuros(revenusNet)},
              {QStringLiteral("Montant frais"), enEuros(totalFrais)},
              {QStringLiteral("IJ Sécurité Sociale"), enEuros(totalIJ)},
              {QStringLiteral("Pôle Emploi"), enEuros(cumulAssedic)},
              {QStringLiteral("Congés Spectacles"), enEuros(cumulConges)},
              {QStringLiteral("Dist. parcourue"), enNombre(totalKm) + QStringLiteral(" km")}};

    // The self-employment charges, on the year or on the chosen sub-period.
    double revente = totalRevenusRevente, commerciaux = totalRevenusCommerciaux,
           nonCommerciaux = totalRevenusNonCommerciaux;
    if (periodeAE >= 0 && periodeAE < 6) {
        revente = commerciaux = nonCommerciaux = 0;
        const auto [debut, fin] = bornesPeriodeAE(periodeAE, dateDebut.year(), Horloge::aujourdhui());
        Requete r(m_db, QStringLiteral("SELECT c_type, c_salaire_net FROM contrats WHERE (c_debut_contrat BETWEEN ? AND "
                                       "?) AND (c_fin_contrat BETWEEN ? AND ?) AND (c_effectue=1);"));
        r.lierTout({Dates::versSQLite(debut), Dates::versSQLite(fin), Dates::versSQLite(debut), Dates::versSQLite(fin)});
        while (r.suivante()) {
            const double net = montant(r.reel(1));
            if (r.entier(0) == 100)
                revente += net;
            else if (r.entier(0) == 101)
                commerciaux += net;
            else if (r.entier(0) == 102)
                nonCommerciaux += net;
        }
        totalRevenusRevente = revente;
        totalRevenusCommerciaux = commerciaux;
        totalRevenusNonCommerciaux = nonCommerciaux;
    }
    CalculateurAutoEntrepreneur calculateur;
    calculateur.setAnnee(dateDebut.year());
    {
        Requete r(m_db, QStringLiteral("SELECT u_ae_prelevementliberatoire, u_ae_categoriepro, u_ae_activite, "
                                       "u_codepostal, u_vehicule_type, u_vehicule_puissance FROM utilisateur WHERE u_id "
                                       "= 1;"));
        int vehicule = 0, puissance = 0;
        if (r.suivante()) {
            calculateur.setPrelevementLiberatoire(r.entier(0) == 1);
            calculateur.setIdCategoriePro(int(r.entier(1)));
            calculateur.setIdActivite(int(r.entier(2)));
            // Alsace and Moselle from the user's postal code.
            const QString codePostal = r.texte(3).trimmed();
            calculateur.setAlsace(codePostal.size() == 5 && (codePostal.startsWith(QStringLiteral("67")) ||
                                                              codePostal.startsWith(QStringLiteral("68"))));
            calculateur.setMoselle(codePostal.size() == 5 && codePostal.startsWith(QStringLiteral("57")));
            vehicule = int(r.entier(4));
            puissance = int(r.entier(5));
        }
        fraisReels = dateDebut.year() < 2012
                         ? 0.0
                         : BaremeKilometrique::calculeFraisKmReelsAnnee(dateDebut.year(), totalKm, vehicule, puissance);
    }
    calculateur.setCaVentesDeMarchandisesBIC(revente);
    calculateur.setCaPrestationsDeServicesBIC(commerciaux);
    calculateur.setCaPrestationsDeServicesBNC(nonCommerciaux);
    chargesAE = std::floor(calculateur.calculeLesCharges());

    droitsVoisins.clear();
    Requete r(m_db, parAnnee ? QStringLiteral("SELECT dvo_id, dvo_nom, SUM(dv_montant) FROM droitsvoisinsorganismes LEFT "
                                              "JOIN droitsvoisins ON ((dvo_id = dv_organisme_id) AND (strftime('%Y', "
                                              "dv_date) = '%1')) GROUP BY dvo_id ORDER BY dvo_id ASC;")
                                   .arg(dateDebut.year())
                             : QStringLiteral("SELECT dvo_id, dvo_nom, SUM(dv_montant) FROM droitsvoisinsorganismes LEFT "
                                              "JOIN droitsvoisins ON ((dvo_id = dv_organisme_id) AND (dv_date BETWEEN ? "
                                              "AND ?)) GROUP BY dvo_id ORDER BY dvo_id ASC;"));
    if (!parAnnee)
        r.lierTout({du, au});
    while (r.suivante()) {
        const int position = int(droitsVoisins.size());
        droitsVoisins.append({position < organismes.size() ? organismes.at(position) : r.texte(1), montant(r.reel(2))});
    }
}

} // namespace corvane
