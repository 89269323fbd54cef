// The employers' and the contracts' reports: lists with their totals.

#include "exchange/Rapport.h"
#include "exchange/RapportsEnregistrements.h"

#include "records/Contrats.h"
#include "records/Employeurs.h"
#include "records/Profil.h"
#include "store/BaseDeDonnees.h"
#include "store/FormatFrancais.h"

#include <QLocale>

namespace corvane {

namespace {

QString joindre(const QStringList& morceaux, const QString& separateur)
{
    QStringList pleins;
    for (const QString& m : morceaux)
        if (!m.simplified().isEmpty())
            pleins << m.simplified();
    return pleins.join(separateur);
}

QString dateAffichee(const QDate& jour)
{
    return jour.toString(QStringLiteral("dd/MM/yyyy"));
}

// What the listing holds, in words, under the title.
QString descriptionFiltre(const FiltreContrats& filtre)
{
    QStringList pieces;
    if (filtre.periode == QStringLiteral("periode_reference"))
        pieces << QStringLiteral("Période de référence");
    else if (filtre.periode == QStringLiteral("annee"))
        pieces << QStringLiteral("Année en cours");
    else if (filtre.periode == QStringLiteral("periode"))
        pieces << QStringLiteral("Du %1 au %2").arg(dateAffichee(filtre.du), dateAffichee(filtre.au));
    else
        pieces << QStringLiteral("Tous les contrats");
    if (filtre.effectue == 1)
        pieces << QStringLiteral("effectués");
    else if (filtre.effectue == 2)
        pieces << QStringLiteral("planifiés");
    if (filtre.paye == 1)
        pieces << QStringLiteral("payés");
    else if (filtre.paye == 2)
        pieces << QStringLiteral("non payés");
    if (filtre.filtreType)
        pieces << QStringLiteral("type « %1 »").arg(filtre.type);
    if (filtre.filtreEmployeur)
        pieces << QStringLiteral("employeur « %1 »").arg(filtre.employeur);
    if (filtre.filtreEmploi)
        pieces << QStringLiteral("emploi « %1 »").arg(filtre.emploi);
    return pieces.join(QStringLiteral(", "));
}

// The owner's name for the footer, from the document's profile.
void attribuer(Rapport& rapport, BaseDeDonnees& connexion)
{
    Profil profil(connexion);
    if (profil.initDepuisLaTableV4())
        rapport.attribuer(nomDuTitulaire(profil.donnees()));
}

void listeEmployeurs(Rapport& rapport, const Table& employeurs)
{
    rapport.section(QStringLiteral("Employeurs"));
    if (employeurs.isEmpty()) {
        rapport.paragraphe(QStringLiteral("Aucun employeur."));
        return;
    }
    QList<QStringList> lignes;
    for (qsizetype i = 0; i < employeurs.size(); ++i) {
        const auto e = [&](const char* cle) { return employeurs.valeur(i, cle).toString().simplified(); };
        // The postcode and the town stay on one line when the address wraps.
        const QString ville = joindre({e("Code Postal"), e("Commune")}, " ").replace(' ', QChar(0x00a0));
        const QString rue = e("Adresse");
        const QString adresse = rue.isEmpty() || ville.isEmpty() ? rue + ville : rue + QStringLiteral(", ") + ville;
        lignes << QStringList{e("Enseigne"), adresse, e("Telephone"), e("Email")};
    }
    rapport.tableau({ColonneRapport::texte(QStringLiteral("Enseigne"), 28), ColonneRapport::texte("Adresse"),
                     ColonneRapport::texte(QStringLiteral("Téléphone"), 17),
                     ColonneRapport::texte(QStringLiteral("Courriel"), 24)},
                    lignes);
}

void cumulsEmployeurs(Rapport& rapport, Employeurs& modele, const Table& employeurs)
{
    rapport.section(QStringLiteral("Cumuls par employeur"));
    if (employeurs.isEmpty()) {
        rapport.paragraphe(QStringLiteral("Aucun employeur."));
        return;
    }
    QList<QStringList> lignes;
    qint64 journees = 0;
    qint64 heures = 0;
    double bruts = 0;
    double nets = 0;
    for (qsizetype i = 0; i < employeurs.size(); ++i) {
        const Ligne c = modele.cumulsPourEmployeur(employeurs.valeur(i, "Id").toInt());
        journees += c.value("Journées").toLongLong();
        heures += c.value("Heures").toLongLong();
        bruts += c.value("Salaires bruts").toDouble();
        nets += c.value("Salaires nets").toDouble();
        lignes << QStringList{employeurs.valeur(i, "Enseigne").toString(), enEntier(c.value("Journées").toLongLong()),
                              enEntier(c.value("Heures").toLongLong()),
                              Rapport::montant(c.value("Salaires bruts").toDouble()),
                              Rapport::montant(c.value("Salaires nets").toDouble())};
    }
    rapport.tableau({ColonneRapport::texte(QStringLiteral("Enseigne")),
                     ColonneRapport::montant(QStringLiteral("Journées"), 11),
                     ColonneRapport::montant(QStringLiteral("Heures"), 10),
                     ColonneRapport::montant(QStringLiteral("Salaires bruts"), 18),
                     ColonneRapport::montant(QStringLiteral("Salaires nets"), 18)},
                    lignes,
                    {QStringLiteral("Totaux"), enEntier(journees), enEntier(heures), Rapport::montant(bruts),
                     Rapport::montant(nets)});
}

} // namespace

QString nomRapportEmployeurs()
{
    return QStringLiteral("Liste des employeurs");
}

QString nomRapportContrats()
{
    return QStringLiteral("Liste des contrats");
}

bool composerRapportEmployeurs(Rapport& rapport, const QString& document, const ChoixImpressions& choix)
{
    Employeurs modele(document);
    if (!modele.estOuvert() || !modele.db().tableExiste(QStringLiteral("employeurs")))
        return false;
    const Table employeurs = modele.listeLesEmployeurs();
    rapport.nommer(nomRapportEmployeurs());
    attribuer(rapport, modele.db());
    rapport.titre(nomRapportEmployeurs());
    rapport.separateur();
    if (choix.listeEmployeurs)
        listeEmployeurs(rapport, employeurs);
    if (choix.cumulsEmployeurs) {
        // Each part starts on a page of its own when both are printed.
        if (choix.listeEmployeurs && !employeurs.isEmpty())
            rapport.sautDePage();
        cumulsEmployeurs(rapport, modele, employeurs);
    }
    return true;
}

bool composerRapportContrats(Rapport& rapport, const QString& document, const ChoixImpressions& choix,
                             const FiltreContrats& filtre)
{
    Contrats contrats(document);
    if (!contrats.estOuvert() || !contrats.db().tableExiste(QStringLiteral("contrats")))
        return false;
    // The model's columns are all the report shows.
    const Table liste = contrats.listeLesContrats(filtre, false);
    rapport.nommer(nomRapportContrats());
    attribuer(rapport, contrats.db());
    rapport.titre(nomRapportContrats());
    rapport.separateur();
    rapport.paragraphe(descriptionFiltre(filtre));

    const QString jours = enEntier(contrats.totalJours);
    const QString heures = enEntier(contrats.totalHeures);
    if (!choix.listeContrats || liste.isEmpty()) {
        rapport.section(QStringLiteral("Totaux"));
        rapport.ligne(QStringLiteral("Contrats"), enEntier(liste.size()));
        rapport.ligne(QStringLiteral("Jours"), jours);
        rapport.ligne(QStringLiteral("Heures"), heures);
        rapport.ligne(QStringLiteral("Salaires bruts"), Rapport::montant(contrats.totalBruts));
        rapport.ligne(QStringLiteral("Salaires nets"), Rapport::montant(contrats.totalNets));
        return true;
    }
    QList<QStringList> lignes;
    lignes.reserve(liste.size());
    // A contract is known to the user by its dates and employer: its record number is not printed.
    const QList<int> colonnes{liste.colonne("Date Debut"), liste.colonne("Date Fin"), liste.colonne("Employeur"),
                              liste.colonne("Jours"), liste.colonne("Heures")};
    const int brut = liste.colonne("Salaire Brut");
    const int net = liste.colonne("Salaire Net");
    for (const QVariantList& c : liste.rangees) {
        QStringList ligne;
        for (const int colonne : colonnes)
            ligne << c.at(colonne).toString();
        lignes << (ligne << Rapport::montant(c.at(brut).toDouble()) << Rapport::montant(c.at(net).toDouble()));
    }
    rapport.tableau(
        {ColonneRapport::texte(QStringLiteral("Début"), 13), ColonneRapport::texte(QStringLiteral("Fin"), 13),
         ColonneRapport::texte(QStringLiteral("Employeur")), ColonneRapport::montant(QStringLiteral("Jours"), 7),
         ColonneRapport::montant(QStringLiteral("Heures"), 8), ColonneRapport::montant(QStringLiteral("Brut"), 14),
         ColonneRapport::montant(QStringLiteral("Net"), 14)},
        lignes,
        {QString(), QString(), QStringLiteral("Totaux"), jours, heures, Rapport::montant(contrats.totalBruts),
         Rapport::montant(contrats.totalNets)},
        Rapport::TailleTableauDense);
    rapport.ligne(QStringLiteral("Nombre de contrats"), enEntier(liste.size()));
    return true;
}

} // namespace corvane
