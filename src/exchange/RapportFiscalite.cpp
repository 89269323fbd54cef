// The income-tax report ("Fiscalité"): the summary, the totals per employer and the contracts.

#include "exchange/RapportFiscalite.h"

#include "exchange/Rapport.h"
#include "exchange/RapportsEnregistrements.h"
#include "records/Profil.h"
#include "regimes/Fiscalite.h"
#include "store/Dates.h"
#include "store/FormatFrancais.h"
#include "store/Horloge.h"

#include <functional>

namespace corvane {

namespace {

void compteRendu(Rapport& rapport, const Fiscalite& f)
{
    rapport.section(QStringLiteral("Compte rendu"));
    QList<QStringList> lignes;
    for (const auto& [libelle, valeur] : f.resume)
        lignes << QStringList{libelle, valeur};
    rapport.tableau(
        {ColonneRapport::texte(QStringLiteral("Libellé"), 50), ColonneRapport::montant(QStringLiteral("Valeur"))},
        lignes);
}

void cumulsParEmployeur(Rapport& rapport, const Fiscalite& f)
{
    rapport.section(QStringLiteral("Cumuls par employeur"));
    const Table& t = f.employeurs;
    if (t.isEmpty()) {
        rapport.paragraphe(QStringLiteral("Aucun contrat sur la période."));
        return;
    }
    const int nom = t.colonne("Employeurs"), heures = t.colonne("Heures"), montants = t.colonne("Montants"),
              pas = t.colonne("PAS");
    QList<QStringList> lignes;
    double totalHeures = 0, totalMontants = 0, totalPas = 0;
    for (const QVariantList& e : t.rangees) {
        lignes << QStringList{e.at(nom).toString().simplified(),
                              QStringLiteral("%1 h").arg(enNombre(e.at(heures).toDouble())),
                              Rapport::montant(e.at(montants).toDouble()), Rapport::montant(e.at(pas).toDouble())};
        totalHeures += e.at(heures).toDouble();
        totalMontants += e.at(montants).toDouble();
        totalPas += e.at(pas).toDouble();
    }
    rapport.tableau(
        {ColonneRapport::texte(QStringLiteral("Employeurs")), ColonneRapport::montant(QStringLiteral("Heures"), 14),
         ColonneRapport::montant(QStringLiteral("Montants"), 20), ColonneRapport::montant(QStringLiteral("PAS"), 16)},
        lignes,
        {QStringLiteral("Totaux"), QStringLiteral("%1 h").arg(enNombre(totalHeures)), Rapport::montant(totalMontants),
         Rapport::montant(totalPas)});
}

void listeDesContrats(Rapport& rapport, const Table& contrats)
{
    rapport.section(QStringLiteral("Liste des contrats"));
    if (contrats.isEmpty()) {
        rapport.paragraphe(QStringLiteral("Aucun contrat sur la période."));
        return;
    }
    const int du = contrats.colonne("Du"), au = contrats.colonne("Au"), enseigne = contrats.colonne("Enseigne"),
              emploi = contrats.colonne("Emploi"), heures = contrats.colonne("Heures"),
              jours = contrats.colonne("Jours"), net = contrats.colonne("Net imposable");
    QList<QStringList> lignes;
    lignes.reserve(contrats.size());
    for (const QVariantList& c : contrats.rangees)
        lignes << QStringList{QStringLiteral("%1 au %2").arg(c.at(du).toString(), c.at(au).toString()),
                              c.at(enseigne).toString().simplified(),
                              c.at(emploi).toString().simplified(),
                              QStringLiteral("%1 heure(s)").arg(c.at(heures).toInt()),
                              QStringLiteral("%1 jour(s)").arg(c.at(jours).toInt()),
                              QStringLiteral("salaire net: %1").arg(Rapport::montant(c.at(net).toDouble()))};
    rapport.tableau(
        {ColonneRapport::texte(QStringLiteral("Dates"), 24), ColonneRapport::texte(QStringLiteral("Enseigne")),
         ColonneRapport::texte(QStringLiteral("Emploi"), 14), ColonneRapport::montant(QStringLiteral("Heures"), 11),
         ColonneRapport::montant(QStringLiteral("Jours"), 9),
         ColonneRapport::montant(QStringLiteral("Net imposable"), 20)},
        lignes, {}, Rapport::TailleTableauDense);
}

} // namespace

void DemandeFiscalite::calculer(Fiscalite& fiscalite) const
{
    fiscalite.arrondirMontants = arrondir;
    fiscalite.primeEmploi = primeEmploi;
    fiscalite.autoEntrepreneurSeul = autoEntrepreneurSeul;
    fiscalite.periodeAE = periodeAE;
    if (parPeriode())
        fiscalite.declarationPeriode(du, au);
    else
        fiscalite.declarationAnnee(annee);
}

QString nomRapportFiscalite(const QDate& jour)
{
    return QStringLiteral("Fiscalité %1 %2 %3").arg(jour.year()).arg(jour.month()).arg(jour.day());
}

bool composerRapportFiscalite(Rapport& rapport, const QString& document, const ChoixImpressions& choix,
                              const DemandeFiscalite& demande)
{
    Fiscalite f(document);
    if (!f.estOuvert() || !f.db().tableExiste(QStringLiteral("contrats")))
        return false;
    demande.calculer(f);
    rapport.nommer(nomRapportFiscalite(Horloge::aujourdhui()));
    Profil profil(f.db());
    const QString titulaire = profil.initDepuisLaTableV4() ? nomDuTitulaire(profil.donnees()) : QString();
    rapport.attribuer(titulaire);
    rapport.titre(QStringLiteral("Fiscalité"));
    rapport.paragraphe(
        QStringLiteral("Du %1 au %2").arg(Dates::versAffichage(f.dateDebut), Dates::versAffichage(f.dateFin)));
    // The parts asked for, a separator between two.
    const QList<QPair<bool, std::function<void()>>> parties{
        {choix.fiscaliteCompteRendu, [&] { compteRendu(rapport, f); }},
        {choix.fiscaliteTotauxEmployeurs, [&] { cumulsParEmployeur(rapport, f); }},
        {choix.fiscaliteListeContrats, [&] { listeDesContrats(rapport, f.contrats); }},
    };
    for (const auto& [demandee, composer] : parties)
        if (demandee) {
            rapport.separateur();
            composer();
        }
    rapport.ajouteTamponDans(titulaire);
    return true;
}

} // namespace corvane
