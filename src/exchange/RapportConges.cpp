// The paid-leave fund's report ("Congés Spectacles"): the estimate's summary and its contracts.

#include "exchange/RapportConges.h"

#include "exchange/Rapport.h"
#include "exchange/RapportsEnregistrements.h"
#include "records/Profil.h"
#include "regimes/Conges.h"
#include "store/Dates.h"
#include "store/Horloge.h"

namespace corvane {

namespace {

void compteRendu(Rapport& rapport, const Conges::Resultat& resultat)
{
    rapport.section(QStringLiteral("Compte rendu"));
    if (resultat.resume.isEmpty()) {
        rapport.paragraphe(QStringLiteral("Aucune journée retenue sur la période."));
        return;
    }
    QList<QStringList> lignes;
    for (const auto& [libelle, valeur] : resultat.resume)
        lignes << QStringList{libelle, valeur};
    rapport.tableau(
        {ColonneRapport::texte(QStringLiteral("Libellé"), 50), ColonneRapport::montant(QStringLiteral("Valeur"))},
        lignes);
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
              jours = contrats.colonne("Jours"), brut = contrats.colonne("Salaire brut");
    QList<QStringList> lignes;
    lignes.reserve(contrats.size());
    for (const QVariantList& c : contrats.rangees)
        lignes << QStringList{QStringLiteral("%1 au %2").arg(c.at(du).toString(), c.at(au).toString()),
                              c.at(enseigne).toString().simplified(),
                              c.at(emploi).toString().simplified(),
                              QStringLiteral("%1 heure(s)").arg(c.at(heures).toInt()),
                              QStringLiteral("%1 jour(s)").arg(c.at(jours).toInt()),
                              QStringLiteral("salaire brut: %1").arg(Rapport::montant(c.at(brut).toDouble()))};
    rapport.tableau(
        {ColonneRapport::texte(QStringLiteral("Dates"), 24), ColonneRapport::texte(QStringLiteral("Enseigne")),
         ColonneRapport::texte(QStringLiteral("Emploi"), 14), ColonneRapport::montant(QStringLiteral("Heures"), 11),
         ColonneRapport::montant(QStringLiteral("Jours"), 9),
         ColonneRapport::montant(QStringLiteral("Salaire brut"), 20)},
        lignes, {}, Rapport::TailleTableauDense);
}

} // namespace

QString nomRapportConges(const QDate& jour)
{
    return QStringLiteral("Congés Spectacles %1 %2 %3").arg(jour.year()).arg(jour.month()).arg(jour.day());
}

bool composerRapportConges(Rapport& rapport, const QString& document, const ChoixImpressions& choix,
                           const QString& type, const QDate& du, const QDate& au)
{
    Conges conges(document);
    if (!conges.estOuvert() || !conges.db().tableExiste(QStringLiteral("contrats")))
        return false;
    const Conges::Resultat resultat = conges.congesSpectacles(type, du, au);
    rapport.nommer(nomRapportConges(Horloge::aujourdhui()));
    Profil profil(conges.db());
    const QString titulaire = profil.initDepuisLaTableV4() ? nomDuTitulaire(profil.donnees()) : QString();
    rapport.attribuer(titulaire);
    rapport.titre(QStringLiteral("Congés Spectacles"));
    rapport.paragraphe(
        QStringLiteral("Du %1 au %2").arg(Dates::versAffichage(resultat.du), Dates::versAffichage(resultat.au)));
    // The parts asked for, each behind a separator.
    if (choix.congesCompteRendu) {
        rapport.separateur();
        compteRendu(rapport, resultat);
    }
    if (choix.congesListeContrats) {
        rapport.separateur();
        listeDesContrats(rapport, resultat.contrats);
    }
    rapport.ajouteTamponDans(titulaire);
    return true;
}

} // namespace corvane
