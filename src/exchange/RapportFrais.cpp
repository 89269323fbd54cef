// The expenses report ("Liste des frais"): the expenses the screen lists, their total, and the
// totals per category.

#include "exchange/RapportFrais.h"

#include "exchange/Rapport.h"
#include "exchange/RapportsEnregistrements.h"
#include "records/Frais.h"
#include "records/Profil.h"
#include "store/Dates.h"
#include "store/FormatFrancais.h"
#include "store/Horloge.h"

namespace corvane {

namespace {

// What the listing holds, in words, under the title.
QString descriptionFiltre(Frais& frais, const FiltreFrais& filtre)
{
    QString texte = QStringLiteral("Tous les frais");
    if (filtre.filtre == QStringLiteral("ANNEE"))
        texte = QStringLiteral("Année en cours");
    else if (filtre.filtre == QStringLiteral("PERIODE"))
        texte = QStringLiteral("Du %1 au %2").arg(Dates::versAffichage(filtre.du), Dates::versAffichage(filtre.au));
    if (filtre.categorie > 0)
        texte += QStringLiteral(", catégorie « %1 »").arg(frais.retrouveFraisTypeDepuisId(filtre.categorie));
    return texte;
}

// Euros and kilometres are never added together: "345,00 €", "1 200 km" or both.
QString texteTotal(const Frais::Cumuls& cumuls)
{
    const QString euros = Rapport::montant(cumuls.euros);
    if (cumuls.kilometres == 0.0)
        return euros;
    const QString km = enNombre(cumuls.kilometres) + QStringLiteral(" km");
    return cumuls.euros == 0.0 ? km : euros + QStringLiteral(" et ") + km;
}

QString montant(double valeur, const QString& unite)
{
    return unite == QStringLiteral("km") ? enNombre(valeur) + QStringLiteral(" km") : Rapport::montant(valeur);
}

void totauxParCategorie(Rapport& rapport, Frais& frais)
{
    rapport.section(QStringLiteral("Totaux par catégorie"));
    const Table categories = frais.cumulsParCategorie();
    if (categories.isEmpty()) {
        rapport.paragraphe(QStringLiteral("Aucun frais."));
        return;
    }
    QList<QStringList> lignes;
    for (const QVariantList& c : categories.rangees)
        lignes << QStringList{c.at(0).toString(), enEntier(c.at(1).toLongLong()),
                              montant(c.at(2).toDouble(), c.at(3).toString())};
    rapport.tableau({ColonneRapport::texte(QStringLiteral("Catégorie")),
                     ColonneRapport::montant(QStringLiteral("Nombre"), 12),
                     ColonneRapport::montant(QStringLiteral("Montant"), 22)},
                    lignes);
}

} // namespace

QString nomRapportFrais(const QDate& jour)
{
    return QStringLiteral("Frais professionnels %1 %2 %3").arg(jour.day()).arg(jour.month()).arg(jour.year());
}

QString titreRapportFrais()
{
    return QStringLiteral("Liste des frais");
}

bool composerRapportFrais(Rapport& rapport, const QString& document, const ChoixImpressions& choix,
                          const FiltreFrais& filtre)
{
    Frais frais(document);
    if (!frais.estOuvert() || !frais.db().tableExiste(QStringLiteral("frais")))
        return false;
    const Table liste = frais.listeLesFrais(filtre);
    const Frais::Cumuls cumuls = frais.cumulsParUnite();
    rapport.nommer(nomRapportFrais(Horloge::aujourdhui()));
    Profil profil(frais.db());
    if (profil.initDepuisLaTableV4())
        rapport.attribuer(nomDuTitulaire(profil.donnees()));
    rapport.titre(titreRapportFrais());
    rapport.separateur();
    rapport.paragraphe(descriptionFiltre(frais, filtre));

    if (!choix.listeFrais || liste.isEmpty()) {
        rapport.section(QStringLiteral("Totaux"));
        rapport.ligne(QStringLiteral("Nombre de frais"), enEntier(liste.size()));
        rapport.ligne(QStringLiteral("Total"), texteTotal(cumuls));
    } else {
        const int date = liste.colonne("Date"), categorie = liste.colonne("Categorie"), note = liste.colonne("Note"),
                  valeur = liste.colonne("Montant"), unite = liste.colonne("KmOuEuro");
        QList<QStringList> lignes;
        lignes.reserve(liste.size());
        for (const QVariantList& f : liste.rangees)
            lignes << QStringList{f.at(date).toString(), f.at(categorie).toString(), f.at(note).toString().simplified(),
                                  montant(f.at(valeur).toDouble(), f.at(unite).toString())};
        rapport.tableau({ColonneRapport::texte(QStringLiteral("Date"), 13),
                         ColonneRapport::texte(QStringLiteral("Catégorie"), 20),
                         ColonneRapport::texte(QStringLiteral("Note")),
                         ColonneRapport::montant(Frais::titreColonneMontant(filtre.categorie), 18)},
                        lignes, {QString(), QString(), QStringLiteral("Total"), texteTotal(cumuls)});
        rapport.ligne(QStringLiteral("Nombre de frais"), enEntier(liste.size()));
    }
    if (choix.categoriesFrais)
        totauxParCategorie(rapport, frais);
    return true;
}

} // namespace corvane
