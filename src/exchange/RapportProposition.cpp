// The proposition letter and the engagement contract of the business manager.

#include "exchange/RapportProposition.h"

#include "exchange/Rapport.h"
#include "exchange/RapportSecuriteSociale.h"
#include "exchange/RapportsEnregistrements.h"
#include "manager/Propositions.h"
#include "records/Employeurs.h"
#include "records/Profil.h"
#include "store/Dates.h"
#include "store/Horloge.h"

#include <QTextBlock>

namespace corvane {

namespace {

// Non-empty texts joined.
QString joindre(const QStringList& morceaux, const QString& separateur)
{
    QStringList gardes;
    for (const QString& m : morceaux)
        if (!m.trimmed().isEmpty())
            gardes << m.trimmed();
    return gardes.join(separateur);
}

// Lines of a postal address: the street, then the postcode and the town.
QStringList adresse(const QString& rue, const QString& codePostal, const QString& commune)
{
    QStringList lignes;
    if (!rue.trimmed().isEmpty())
        lignes << rue.trimmed();
    if (const QString ville = joindre({codePostal, commune}, QStringLiteral(" ")); !ville.isEmpty())
        lignes << ville;
    return lignes;
}

// The last paragraph composed, set against the right margin (the addressee, the signature).
void aDroite(Rapport& rapport)
{
    QTextBlockFormat format = rapport.curseur().blockFormat();
    format.setAlignment(Qt::AlignRight);
    rapport.curseur().setBlockFormat(format);
}

void bloc(Rapport& rapport, const QStringList& lignes, bool droite, bool premiereEnGras = false)
{
    for (qsizetype i = 0; i < lignes.size(); ++i) {
        rapport.paragraphe(lignes.at(i), premiereEnGras && i == 0, QColor(Qt::black));
        if (droite)
            aDroite(rapport);
    }
}

// Room under the last paragraph, in points: a letter keeps to one page, which empty lines
// would soon overrun.
void blanc(Rapport& rapport, double points = 9)
{
    QTextBlockFormat format = rapport.curseur().blockFormat();
    format.setBottomMargin(format.bottomMargin() + Rapport::points(points));
    rapport.curseur().setBlockFormat(format);
}

// Body text a size smaller (the letter's closing note).
void petit(Rapport& rapport, const QString& texte)
{
    rapport.paragraphe(QString());
    rapport.curseur().insertText(texte, Rapport::formatTexte(Rapport::TailleTableauDense));
}

struct Titulaire
{
    QString nom; // first name and last name
    QStringList adresse;
};

std::optional<Titulaire> titulaire(BaseDeDonnees& base)
{
    Profil profil(base);
    if (!profil.initDepuisLaTableV4())
        return std::nullopt;
    const DonneesProfil& d = profil.donnees();
    return Titulaire{nomDuTitulaire(d), adresse(d.adresse, d.codePostal, d.commune)};
}

} // namespace

QString adresseSiteCorvane()
{
    return QStringLiteral("https://corvane.org/");
}

QString nomLettreProposition(const QDate& jour)
{
    return nomRapportSecuriteSociale(jour);
}

QString nomContratEngagement(const QDate& jour)
{
    return QStringLiteral("Contrat d'engagement %1 %2 %3").arg(jour.day()).arg(jour.month()).arg(jour.year());
}

bool composerLettreProposition(Rapport& rapport, const QString& document, int propositionId)
{
    Propositions propositions(document);
    if (!propositions.estOuvert() || !propositions.db().tableExiste(QStringLiteral("propositionslibelles")))
        return false;
    const std::optional<EnteteProposition> entete = propositions.entete(propositionId);
    const std::optional<Titulaire> expediteur = titulaire(propositions.db());
    if (!entete || !expediteur)
        return false;
    const std::optional<Employeur> organisateur = Employeurs(propositions.db()).employeur(entete->employeurId);
    const DecompteProposition decompte = propositions.decompte(propositionId);
    const Table lignes = propositions.lignesDeLaProposition(propositionId);
    const QDate aujourdhui = Horloge::aujourdhui();

    rapport.nommer(nomLettreProposition(aujourdhui));
    rapport.attribuer(expediteur->nom);
    rapport.titre(QStringLiteral("PROPOSITION DE PRESTATIONS"));
    rapport.paragraphe(QStringLiteral("Établie le %1").arg(Dates::versAffichage(aujourdhui)));
    if (decompte.delai.id > 0)
        rapport.paragraphe(QStringLiteral("Valable %1 %2")
                               .arg(decompte.delai.nombre)
                               .arg(TarifsPropositions::uniteDelai(decompte.delai.type)));
    rapport.separateur();

    // The sender on the left, the organiser on the right, as on any letter.
    bloc(rapport, QStringList{expediteur->nom} + expediteur->adresse, false, true);
    if (organisateur)
        bloc(rapport,
             QStringList{organisateur->raisonSociale} +
                 adresse(organisateur->adresse, organisateur->codePostal, organisateur->commune),
             true, true);
    blanc(rapport);

    rapport.paragraphe(QStringLiteral("Madame, Monsieur,"));
    rapport.paragraphe(QStringLiteral("En réponse à votre demande concernant l’animation du %1, voici notre "
                                      "proposition\u00a0:")
                           .arg(Dates::versAffichage(entete->date)));
    blanc(rapport);

    QList<QStringList> rangees;
    for (qsizetype i = 0; i < lignes.size(); ++i)
        rangees << QStringList{lignes.valeur(i, "Date").toString(), lignes.valeur(i, "Prestation").toString(),
                               Rapport::montant(lignes.valeur(i, "Montant").toDouble())};
    rangees << QStringList{QString(), QStringLiteral("Montant total"), Rapport::montant(decompte.lignes)};
    if (!entete->chargesNonAjoutees && entete->charges != 0.0)
        rangees << QStringList{QString(), QStringLiteral("Charges incluses"), Rapport::montant(decompte.charges)};
    if (decompte.remise != 0.0)
        rangees << QStringList{QString(), QStringLiteral("Remise"),
                               TarifsPropositions::libelleRemise(decompte.remiseAppliquee)};
    rapport.tableau({ColonneRapport::texte(QStringLiteral("Date"), 18),
                     ColonneRapport::texte(QStringLiteral("Prestation"), 57),
                     ColonneRapport::montant(QStringLiteral("Montant"), 25)},
                    rangees, {QString(), QStringLiteral("Montant à régler"), Rapport::montant(decompte.total)});

    rapport.paragraphe(QStringLiteral("Dans l’attente de travailler ensemble, veuillez agréer, Madame, Monsieur, mes "
                                      "sincères salutations."));
    blanc(rapport);
    rapport.paragraphe(expediteur->nom);
    aDroite(rapport);
    blanc(rapport);

    rapport.paragraphe(QStringLiteral("Bon pour accord :"), true, QColor(Qt::black));
    // The deposit, 30 % of the amount to pay, in whole euros.
    const double acompte = decompte.total * 30.0 / 100.0;
    rapport.paragraphe(QStringLiteral("En cas d’acceptation , retournez la présente proposition datée et signée en "
                                      "apposant la mention manuscrite « Bon pour accord » à l’adresse ci- dessous "
                                      "accompagné d’un chèque** de réservation de 30% du budget animation (soit %1 "
                                      "%2). Dès réception, un contrat sera établi.")
                           .arg(QString::asprintf("%.0f", acompte), QStringLiteral("€")));
    blanc(rapport);
    rapport.paragraphe(QStringLiteral("Date :"));
    blanc(rapport, 14);
    rapport.paragraphe(QStringLiteral("Signature :"));
    blanc(rapport, 36);
    petit(rapport, QStringLiteral("Pour une même date plusieurs propositions peuvent être envoyées à différentes "
                                  "personnes. La proposition retournée en premier sera prioritaire. ** Chèque "
                                  "encaissable en cas d’annulation du gala hors cas de force majeure."));
    rapport.separateur();
    petit(rapport, QStringLiteral("Généré par ") + adresseSiteCorvane());
    return true;
}

bool composerContratEngagement(Rapport& rapport, const QString& document, int employeurId)
{
    Employeurs employeurs(document);
    if (!employeurs.estOuvert())
        return false;
    const std::optional<Employeur> employeur = employeurs.employeur(employeurId);
    const std::optional<Titulaire> artiste = titulaire(employeurs.db());
    if (!employeur || !artiste)
        return false;
    const QDate aujourdhui = Horloge::aujourdhui();

    rapport.nommer(nomContratEngagement(aujourdhui));
    rapport.attribuer(artiste->nom);
    rapport.titre(QStringLiteral("CONTRAT D'ENGAGEMENT"));
    rapport.paragraphe(QStringLiteral("Établi le %1").arg(Dates::versAffichage(aujourdhui)));
    rapport.separateur();

    rapport.paragraphe(QStringLiteral("Nom : %1").arg(employeur->raisonSociale));
    for (const QString& ligne : adresse(employeur->adresse, employeur->codePostal, employeur->commune))
        rapport.paragraphe(ligne);
    rapport.paragraphe(QStringLiteral("Numéro de licence spectacle : %1").arg(employeur->licenceSpectacle));
    blanc(rapport);
    rapport.paragraphe(QStringLiteral("appelé l'EMPLOYEUR"), true, QColor(Qt::black));
    blanc(rapport);
    rapport.paragraphe(QStringLiteral("ET"), true, QColor(Qt::black));
    blanc(rapport);
    rapport.paragraphe(QStringLiteral("Nom : %1").arg(artiste->nom));
    for (const QString& ligne : artiste->adresse)
        rapport.paragraphe(ligne);
    blanc(rapport);
    rapport.sousSection(QStringLiteral("IL A ÉTÉ CONVENU ET ARRÊTÉ CE QUI SUIT"));
    rapport.paragraphe(QStringLiteral("TEST TEST TEST"));
    return true;
}

} // namespace corvane
