// The neighbouring-rights report: the totals per paying body and the list of payments.

#include "exchange/RapportDroitsVoisins.h"

#include "exchange/Rapport.h"
#include "exchange/RapportsEnregistrements.h"
#include "records/DroitsVoisins.h"
#include "records/Profil.h"

namespace corvane {

namespace {

void compteRendu(Rapport& rapport, DroitsVoisins& modele)
{
    rapport.section(QStringLiteral("Compte rendu"));
    const Table totaux = modele.totauxParOrganisme();
    QList<QStringList> lignes;
    double total = 0.0;
    for (const QVariantList& t : totaux.rangees) {
        // A body without payment is listed all the same, with no amount.
        lignes << QStringList{t.at(0).toString(),
                              t.at(1).isValid() ? Rapport::montant(t.at(1).toDouble()) : QStringLiteral("—")};
        total += t.at(1).toDouble();
    }
    rapport.tableau({ColonneRapport::texte(QStringLiteral("Organisme"), 60),
                     ColonneRapport::montant(QStringLiteral("Montant"), 40)},
                    lignes, {QStringLiteral("Total"), Rapport::montant(total)});
}

void listeDesVersements(Rapport& rapport, DroitsVoisins& modele)
{
    rapport.section(QStringLiteral("Liste des versements"));
    const Table liste = modele.listeLesDroitsVoisins();
    if (liste.isEmpty()) {
        rapport.paragraphe(QStringLiteral("Aucun versement."));
        return;
    }
    const int date = liste.colonne("Date");
    const int organisme = liste.colonne("Organism");
    const int categorie = liste.colonne("Category");
    const int montant = liste.colonne("Amount");
    const int details = liste.colonne("Details");
    QList<QStringList> lignes;
    lignes.reserve(liste.size());
    double total = 0.0;
    for (const QVariantList& d : liste.rangees) {
        lignes << QStringList{d.at(date).toString(), d.at(organisme).toString(), d.at(categorie).toString(),
                              Rapport::montant(d.at(montant).toDouble()), d.at(details).toString().simplified()};
        total += d.at(montant).toDouble();
    }
    rapport.tableau(
        {ColonneRapport::texte(QStringLiteral("Date"), 14), ColonneRapport::texte(QStringLiteral("Organisme"), 16),
         ColonneRapport::texte(QStringLiteral("Catégorie"), 20), ColonneRapport::montant(QStringLiteral("Montant"), 16),
         ColonneRapport::texte(QStringLiteral("Détails"))},
        lignes, {QStringLiteral("Total"), QString(), QString(), Rapport::montant(total), QString()});
}

} // namespace

QString nomRapportDroitsVoisins(const QDate& jour)
{
    return QStringLiteral("Frais professionnels %1 %2 %3").arg(jour.day()).arg(jour.month()).arg(jour.year());
}

bool composerRapportDroitsVoisins(Rapport& rapport, const QString& document, const ChoixImpressions& choix)
{
    DroitsVoisins modele(document);
    if (!modele.estOuvert() || !modele.db().tableExiste(QStringLiteral("droitsvoisins")))
        return false;
    rapport.nommer(QStringLiteral("Droits voisins"));
    QString titulaire;
    Profil profil(modele.db());
    if (profil.initDepuisLaTableV4())
        titulaire = nomDuTitulaire(profil.donnees());
    rapport.attribuer(titulaire);
    rapport.titre(QStringLiteral("Droits voisins"));
    rapport.separateur();
    if (choix.compteRenduDroitsVoisins)
        compteRendu(rapport, modele);
    if (choix.listeVersementsDroitsVoisins)
        listeDesVersements(rapport, modele);
    rapport.ajouteTamponDans(titulaire);
    return true;
}

} // namespace corvane
