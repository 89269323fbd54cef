// The social-security report ("Compte rendu de Sécurité Sociale"): the rights check for a day
// and the list of every period.

#include "exchange/RapportSecuriteSociale.h"

#include "exchange/Rapport.h"
#include "exchange/RapportsEnregistrements.h"
#include "records/Profil.h"
#include "regimes/SecuriteSociale.h"
#include "store/Dates.h"
#include "store/Horloge.h"

namespace corvane {

namespace {

void verificationDesDroits(Rapport& rapport, SecuriteSociale& modele, const QDate& jour)
{
    rapport.section(QStringLiteral("Vérification des droits au %1").arg(Dates::versAffichage(jour)));
    const Table droits = modele.verifieLesDroits(jour);
    if (droits.isEmpty()) {
        rapport.paragraphe(SecuriteSociale::messageSansContrat());
        return;
    }
    // The first row holds the two headings; the others a benefit and whether it is open.
    const auto texte = [&](qsizetype rangee, int colonne) { return droits.rangees.at(rangee).at(colonne).toString(); };
    QList<QStringList> lignes;
    for (qsizetype i = 1; i < droits.size(); ++i)
        lignes << QStringList{texte(i, 0), texte(i, 1), texte(i, 2), texte(i, 3)};
    rapport.tableau({ColonneRapport::texte(texte(0, 0), 38), ColonneRapport::texte(texte(0, 1), 10),
                     ColonneRapport::texte(texte(0, 2), 42), ColonneRapport::texte(texte(0, 3), 10)},
                    lignes);
}

void listeDesPeriodes(Rapport& rapport, SecuriteSociale& modele)
{
    rapport.section(QStringLiteral("Liste de toutes les périodes"));
    const Table periodes = modele.listeLesPeriodes(QStringLiteral("tous"), QStringLiteral("ASC"), {}, {});
    if (periodes.isEmpty()) {
        rapport.paragraphe(QStringLiteral("Aucune période."));
        return;
    }
    const int debut = periodes.colonne("Date Debut SQLite");
    const int fin = periodes.colonne("Date Fin SQLite");
    const int type = periodes.colonne("Type Detail");
    const int rembourse = periodes.colonne("Rembourse");
    const int note = periodes.colonne("Note");
    const auto jour = [](const QVariant& v) { return Dates::versAffichage(Dates::depuisSQLite(v.toString())); };
    QList<QStringList> lignes;
    lignes.reserve(periodes.size());
    for (const QVariantList& p : periodes.rangees)
        lignes << QStringList{jour(p.at(debut)), jour(p.at(fin)), p.at(type).toString(),
                              p.at(rembourse).toString() == QStringLiteral("Oui") ? QStringLiteral("Remboursé")
                                                                                  : QStringLiteral("En attente"),
                              p.at(note).toString().simplified()};
    rapport.tableau(
        {ColonneRapport::texte(QStringLiteral("Debut"), 14), ColonneRapport::texte(QStringLiteral("Fin"), 14),
         ColonneRapport::texte(QStringLiteral("Type"), 24), ColonneRapport::texte(QStringLiteral("Rembourse"), 15),
         ColonneRapport::texte(QStringLiteral("Note"))},
        lignes);
}

} // namespace

QString nomRapportSecuriteSociale(const QDate& jour)
{
    return QStringLiteral("Sécurité Sociale %1 %2 %3").arg(jour.year()).arg(jour.month()).arg(jour.day());
}

bool composerRapportSecuriteSociale(Rapport& rapport, const QString& document, const ChoixImpressions& choix,
                                    const QDate& verification)
{
    SecuriteSociale modele(document);
    if (!modele.estOuvert() || !modele.db().tableExiste(QStringLiteral("securitesociale")))
        return false;
    rapport.nommer(nomRapportSecuriteSociale(Horloge::aujourdhui()));
    Profil profil(modele.db());
    if (profil.initDepuisLaTableV4())
        rapport.attribuer(nomDuTitulaire(profil.donnees()));
    rapport.titre(QStringLiteral("Compte rendu de Sécurité Sociale"));
    rapport.separateur();
    if (choix.verificationDroits)
        verificationDesDroits(rapport, modele, verification);
    if (choix.listePeriodes)
        listeDesPeriodes(rapport, modele);
    return true;
}

} // namespace corvane
