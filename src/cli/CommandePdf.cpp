// `pdf FICHIER --rapport R --sortie CHEMIN.pdf`: a screen's report, written as the
// screen exports it; `pdf FICHIER --dossier --sortie DOSSIER`: the whole-file export.

#include "cli/CommandeContrat.h"
#include "cli/CommandeFrais.h"
#include "cli/Commandes.h"

#include "exchange/ExportPdf.h"
#include "exchange/Rapport.h"
#include "exchange/RapportConges.h"
#include "exchange/RapportDroitsVoisins.h"
#include "exchange/RapportFiscalite.h"
#include "exchange/RapportFrais.h"
#include "exchange/RapportProposition.h"
#include "exchange/RapportSecuriteSociale.h"
#include "exchange/RapportSimulation.h"
#include "exchange/RapportTableauDeBord.h"
#include "exchange/RapportsDossier.h"
#include "exchange/RapportsEnregistrements.h"
#include "manager/Propositions.h"
#include "records/Contrats.h"
#include "records/Frais.h"
#include "store/Fichiers.h"
#include "store/Functions.h"
#include "store/Horloge.h"
#include "unemployment/ComptageHeures.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

#include <limits>

namespace corvane::cli {

namespace {

const QStringList& rapports()
{
    static const QStringList liste{
        QStringLiteral("profil"),           QStringLiteral("employeurs"),  QStringLiteral("contrats"),
        QStringLiteral("securite-sociale"), QStringLiteral("simulation"),  QStringLiteral("tableau-de-bord"),
        QStringLiteral("conges"),           QStringLiteral("fiscalite"),   QStringLiteral("frais"),
        QStringLiteral("droits-voisins"),   QStringLiteral("proposition"), QStringLiteral("contrat-engagement")};
    return liste;
}

// The parts `--sans` leaves out, by name; every part is printed otherwise, as with
// the program's default settings.
const QList<QPair<QString, bool ChoixImpressions::*>>& parties()
{
    static const QList<QPair<QString, bool ChoixImpressions::*>> liste{
        // The summary of the dashboard's, the paid-leave, tax and neighbouring-rights reports.
        {"compte-rendu", &ChoixImpressions::compteRenduTdb},
        {"jour-j", &ChoixImpressions::jourJTdb},
        {"jours-heures", &ChoixImpressions::joursHeuresTdb},
        {"photo", &ChoixImpressions::photo},
        {"etat-civil", &ChoixImpressions::etatCivil},
        {"personnelles", &ChoixImpressions::personnelles},
        {"administratives", &ChoixImpressions::administratives},
        {"auto-entrepreneur", &ChoixImpressions::autoEntrepreneur},
        {"rib", &ChoixImpressions::rib},
        // The employers', contracts', social-security periods', expenses' or neighbouring-rights payments' list.
        {"liste", nullptr},
        {"cumuls", &ChoixImpressions::cumulsEmployeurs}, // also the tax report's totals per employer
        {"droits", &ChoixImpressions::verificationDroits},
        {"categories", &ChoixImpressions::categoriesFrais},
    };
    return liste;
}

// The rights report's parts, which `--sans` names for `--rapport simulation`.
const QList<QPair<QString, bool ChoixRapportDroits::*>>& partiesDroits()
{
    static const QList<QPair<QString, bool ChoixRapportDroits::*>> liste{
        {"compte-rendu", &ChoixRapportDroits::compteRendu},
        {"allocations", &ChoixRapportDroits::allocations},
        {"periode", &ChoixRapportDroits::periode},
        {"heures", &ChoixRapportDroits::heures},
    };
    return liste;
}

// Leaves the named part of the rights report out; the refusal when no part has that name.
QString sansPartieDroits(const QString& nom, ChoixRapportDroits& choix)
{
    QStringList noms;
    for (const auto& [partie, membre] : partiesDroits()) {
        if (partie == nom) {
            choix.*membre = false;
            return {};
        }
        noms << partie;
    }
    return QStringLiteral("partie inconnue : « %1 » (choix : %2)").arg(nom, noms.join(", "));
}

bool nommee(const QList<OptionAttendue>& options, const QString& nom)
{
    return std::any_of(options.cbegin(), options.cend(), [&](const OptionAttendue& o) { return o.nom == nom; });
}

class CommandePdf : public Commande
{
public:
    QString nom() const override { return QStringLiteral("pdf"); }
    bool metEnPage() const override { return true; }
    QString usage() const override
    {
        return QStringLiteral(
            "pdf FICHIER (--rapport profil|employeurs|contrats|securite-sociale|simulation|"
            "tableau-de-bord|conges|fiscalite|frais|droits-voisins|proposition|contrat-engagement --sortie "
            "CHEMIN.pdf | --dossier --sortie DOSSIER) [--sans PARTIE,…] [options de contrat lister] [options de "
            "frais lister] [--date AAAA-MM-JJ] [--annee A] [--du AAAA-MM-JJ --au AAAA-MM-JJ] [--contrats "
            "tous|effectues|planifies --ij] [--proposition ID | --evenement ID]");
    }

    int executer(Contexte& contexte, const QStringList& liste) override
    {
        Arguments arguments;
        int code = Succes;
        QList<OptionAttendue> options{{"rapport"}, {"sortie"},   {"sans"},     {"date"},
                                      {"annee"},   {"contrats"}, {"ij", false}};
        options << optionsFiltreContrats();
        options << OptionAttendue{QStringLiteral("dossier"), false};
        options << OptionAttendue{QStringLiteral("proposition")} << OptionAttendue{QStringLiteral("evenement")};
        for (const OptionAttendue& o : optionsFiltreFrais())
            if (!nommee(options, o.nom))
                options << o;
        if (!analyser(contexte, arguments, liste, options, 1, &code))
            return code;
        if (arguments.contient("dossier"))
            return exporterDossier(contexte, arguments);
        if (!arguments.exiger({"rapport", "sortie"}))
            return mauvaisUsage(contexte, arguments.erreur());
        const QString rapport = arguments.valeur("rapport");
        if (!rapports().contains(rapport))
            return mauvaisUsage(
                contexte, QStringLiteral("rapport inconnu : « %1 » (choix : %2)").arg(rapport, rapports().join(", ")));
        const bool droits = rapport == QStringLiteral("simulation");
        // The business manager's documents are printed for one proposition, or for one event.
        const bool manager =
            rapport == QStringLiteral("proposition") || rapport == QStringLiteral("contrat-engagement");
        if ((arguments.contient("proposition") || arguments.contient("evenement")) && !manager)
            return mauvaisUsage(contexte, QStringLiteral("les options --proposition et --evenement ne valent que pour "
                                                         "--rapport proposition et contrat-engagement"));
        if (manager && arguments.contient("proposition") == arguments.contient("evenement"))
            return mauvaisUsage(contexte, QStringLiteral("donnez --proposition ID ou --evenement ID"));
        const auto propositionId = arguments.entier("proposition", 1, std::numeric_limits<int>::max());
        const auto evenementId = arguments.entier("evenement", 1, std::numeric_limits<int>::max());
        if (arguments.enErreur())
            return mauvaisUsage(contexte, arguments.erreur());
        ChoixImpressions choix;
        ChoixRapportDroits choixDroits;
        for (const QString& partie : arguments.valeur("sans").split(QLatin1Char(','), Qt::SkipEmptyParts)) {
            if (droits) {
                if (const QString refus = sansPartieDroits(partie.trimmed(), choixDroits); !refus.isEmpty())
                    return mauvaisUsage(contexte, refus);
                continue;
            }
            const auto trouvee = std::find_if(parties().cbegin(), parties().cend(),
                                              [&](const auto& p) { return p.first == partie.trimmed(); });
            if (trouvee == parties().cend()) {
                QStringList noms;
                for (const auto& p : parties())
                    noms << p.first;
                return mauvaisUsage(
                    contexte,
                    QStringLiteral("partie inconnue : « %1 » (choix : %2)").arg(partie.trimmed(), noms.join(", ")));
            }
            if (trouvee->second)
                choix.*(trouvee->second) = false;
            else
                choix.listeEmployeurs = choix.listeContrats = choix.listePeriodes = choix.congesListeContrats =
                    choix.fiscaliteListeContrats = choix.listeFrais = choix.listeVersementsDroitsVoisins = false;
        }
        choix.fiscaliteTotauxEmployeurs = choix.cumulsEmployeurs;
        choix.congesCompteRendu = choix.fiscaliteCompteRendu = choix.compteRenduDroitsVoisins = choix.compteRenduTdb;
        const bool frais = rapport == QStringLiteral("frais");
        if (const QString refus = optionDeFiltreRefusee(arguments, rapport); !refus.isEmpty())
            return mauvaisUsage(contexte, refus);
        // --du and --au give the range of the simulation and the period of the paid-leave and tax
        // reports; nothing else of the contracts' filter goes with them.
        const bool conges = rapport == QStringLiteral("conges");
        const bool fiscalite = rapport == QStringLiteral("fiscalite");
        const bool filtre =
            std::any_of(optionsFiltreContrats().cbegin(), optionsFiltreContrats().cend(), [&](const OptionAttendue& o) {
                return arguments.contient(o.nom) && !((droits || conges || fiscalite) &&
                                                      (o.nom == QStringLiteral("du") || o.nom == QStringLiteral("au")));
            });
        if (!droits && (arguments.contient("contrats") || arguments.contient("ij")))
            return mauvaisUsage(
                contexte, QStringLiteral("les options --contrats et --ij ne valent que pour --rapport simulation"));
        std::optional<PlageDeDroits> plage;
        if (droits && !(plage = lirePlageDeDroits(contexte, arguments, &code)))
            return code;
        if (filtre && rapport != QStringLiteral("contrats") && !frais)
            return mauvaisUsage(contexte,
                                QStringLiteral("les options de filtre ne valent que pour --rapport contrats"));
        if (const ErreurFiltre e = verifierFiltreContrats(arguments); e.code != Succes)
            return e.code == MauvaisUsage ? mauvaisUsage(contexte, e.message) : echec(contexte, e.message);
        const bool securiteSociale = rapport == QStringLiteral("securite-sociale");
        if (arguments.contient("date") && !securiteSociale)
            return mauvaisUsage(contexte,
                                QStringLiteral("l'option --date ne vaut que pour --rapport securite-sociale"));
        const std::optional<QDate> verification = arguments.date("date");
        if (arguments.enErreur())
            return mauvaisUsage(contexte, arguments.erreur());
        // The leave year or a period; a tax year or a period.
        const bool parDates = arguments.contient("du") || arguments.contient("au");
        if (arguments.contient("annee") && !fiscalite)
            return mauvaisUsage(contexte, QStringLiteral("l'option --annee ne vaut que pour --rapport fiscalite"));
        if (fiscalite && arguments.contient("annee") == parDates)
            return mauvaisUsage(contexte, QStringLiteral("donnez --annee, ou --du et --au"));
        if (arguments.contient("du") != arguments.contient("au"))
            return mauvaisUsage(contexte, QStringLiteral("--du et --au vont ensemble"));
        const auto annee = arguments.annee("annee");
        const auto du = arguments.date("du");
        const auto au = arguments.date("au");
        if (arguments.enErreur())
            return mauvaisUsage(contexte, arguments.erreur());
        if (du && *au < *du)
            return mauvaisUsage(contexte, QStringLiteral("la date --au ne peut pas précéder la date --du"));

        const QString chemin = QFileInfo(arguments.positionnels().first()).absoluteFilePath();
        const QString sortie = QFileInfo(arguments.valeur("sortie")).absoluteFilePath();
        if (!documentAJour(contexte, chemin, &code))
            return code;
        if (sortie == chemin)
            return echec(contexte, QStringLiteral("le rapport ne peut pas remplacer le document lui-même."));

        Rapport compose;
        QString nomPropose;
        bool lu = false;
        if (rapport == QStringLiteral("profil")) {
            nomPropose = nomRapportProfil(Horloge::aujourdhui());
            lu = composerRapportProfil(compose, chemin, choix);
        } else if (rapport == QStringLiteral("employeurs")) {
            nomPropose = nomRapportEmployeurs();
            lu = composerRapportEmployeurs(compose, chemin, choix);
        } else if (rapport == QStringLiteral("droits-voisins")) {
            nomPropose = nomRapportDroitsVoisins(Horloge::aujourdhui());
            lu = composerRapportDroitsVoisins(compose, chemin, choix);
        } else if (securiteSociale) {
            // The rights are checked on the day given, else on the day the screen shows.
            nomPropose = nomRapportSecuriteSociale(Horloge::aujourdhui());
            QDate jour = verification.value_or(QDate());
            if (!jour.isValid())
                jour = Functions::retrouveDatePrefereeFromFile(QStringLiteral("securite_sociale_verification"), chemin)
                           .date();
            lu = composerRapportSecuriteSociale(compose, chemin, choix, jour.isValid() ? jour : Horloge::aujourdhui());
        } else if (droits) {
            nomPropose = nomRapportDroits(false, Horloge::aujourdhui());
            DemandeDroits demande;
            demande.du = plage->du;
            demande.au = plage->au;
            demande.contrats = int(ComptageHeures::conditionsDesContrats().indexOf(plage->conditionDesContrats));
            demande.indemnitesJournalieres = arguments.contient("ij");
            lu = composerRapportDroits(compose, chemin, choixDroits, demande);
        } else if (rapport == QStringLiteral("tableau-de-bord")) {
            nomPropose = nomRapportTableauDeBord(Horloge::aujourdhui());
            // `--sans liste` leaves out the dashboard's list too.
            choix.listeTdb = choix.listeContrats;
            lu = composerRapportTableauDeBord(compose, chemin, choix);
        } else if (conges) {
            nomPropose = nomRapportConges(Horloge::aujourdhui());
            lu = du ? composerRapportConges(compose, chemin, choix, QStringLiteral("PERIODE"), *du, *au)
                    : composerRapportConges(compose, chemin, choix, QStringLiteral("COMPLET"));
        } else if (fiscalite) {
            nomPropose = nomRapportFiscalite(Horloge::aujourdhui());
            DemandeFiscalite demande;
            demande.annee = annee.value_or(0);
            demande.du = du.value_or(QDate());
            demande.au = au.value_or(QDate());
            lu = composerRapportFiscalite(compose, chemin, choix, demande);
        } else if (frais) {
            nomPropose = nomRapportFrais(Horloge::aujourdhui());
            Frais modele(chemin);
            FiltreFrais filtreFrais;
            if (const QString refus = lireFiltreFrais(arguments, modele, filtreFrais, &code); !refus.isEmpty())
                return code == MauvaisUsage ? mauvaisUsage(contexte, refus) : echec(contexte, refus);
            lu = composerRapportFrais(compose, chemin, choix, filtreFrais);
        } else if (manager) {
            const int refus = documentDuManager(contexte, chemin, rapport, propositionId.value_or(0),
                                                evenementId.value_or(0), compose, nomPropose, lu);
            if (refus != Succes)
                return refus;
        } else {
            nomPropose = nomRapportContrats();
            Contrats contrats(chemin);
            FiltreContrats filtreContrats;
            if (const ErreurFiltre e = lireFiltreContrats(arguments, contrats, filtreContrats); e.code != Succes)
                return e.code == MauvaisUsage ? mauvaisUsage(contexte, e.message) : echec(contexte, e.message);
            lu = composerRapportContrats(compose, chemin, choix, filtreContrats);
        }
        if (!lu)
            return echec(contexte, QStringLiteral("le document « %1 » ne peut pas être lu.").arg(chemin));

        QString erreur;
        int pages = 0;
        if (!ExportPdf::ecrirePdf(compose.document(), sortie, &erreur, &pages))
            return echec(contexte, QStringLiteral("le PDF « %1 » n'a pas pu être écrit : %2")
                                       .arg(QDir::toNativeSeparators(sortie), erreur));
        if (contexte.json)
            ecrireJson(contexte, {{"fichier", sortie}, {"pages", pages}, {"nom", nomPropose}});
        else
            contexte.sortie << "Rapport « " << nomPropose << " » écrit dans " << QDir::toNativeSeparators(sortie)
                            << " (" << pages << " page" << (pages > 1 ? "s" : "") << ")." << Qt::endl;
        return Succes;
    }

private:
    // The proposition letter or the engagement contract: of the proposition, or of the event (its
    // proposition, or its own organiser). An unknown number is refused with the reason.
    static int documentDuManager(Contexte& contexte, const QString& chemin, const QString& rapport, int propositionId,
                                 int evenementId, Rapport& compose, QString& nomPropose, bool& lu)
    {
        int id = propositionId;
        int employeur = 0;
        {
            Propositions propositions(chemin);
            if (evenementId > 0) {
                if (!propositions.evenementExiste(evenementId))
                    return echec(contexte, QStringLiteral("aucun événement ne porte le numéro %1.").arg(evenementId));
                id = propositions.propositionDeLEvenement(evenementId);
                employeur = propositions.employeurDeLEvenement(evenementId);
                if (rapport == QStringLiteral("proposition") && !propositions.propositionExiste(id))
                    return echec(contexte,
                                 QStringLiteral("aucune proposition n'est liée à l'événement n° %1.").arg(evenementId));
            } else {
                const std::optional<EnteteProposition> entete = propositions.entete(id);
                if (!entete)
                    return echec(contexte, QStringLiteral("aucune proposition ne porte le numéro %1.").arg(id));
                employeur = entete->employeurId;
            }
            if (rapport != QStringLiteral("proposition") && propositions.retrouveEmployeurDepuisId(employeur).isEmpty())
                return echec(contexte, QStringLiteral("l'organisateur n° %1 n'existe pas.").arg(employeur));
        }
        if (rapport == QStringLiteral("proposition")) {
            nomPropose = nomLettreProposition(Horloge::aujourdhui());
            lu = composerLettreProposition(compose, chemin, id);
        } else {
            nomPropose = nomContratEngagement(Horloge::aujourdhui());
            lu = composerContratEngagement(compose, chemin, employeur);
        }
        return Succes;
    }

    // The whole-file export's three reports, written into the folder `--sortie` names (created
    // when missing), every part printed but those `--sans` leaves out.
    int exporterDossier(Contexte& contexte, Arguments& arguments)
    {
        if (!arguments.exiger({"sortie"}))
            return mauvaisUsage(contexte, arguments.erreur());
        for (const QString& seule : QStringList{"rapport", "proposition", "evenement"} + noms(optionsFiltreContrats()))
            if (arguments.contient(seule))
                return mauvaisUsage(contexte, QStringLiteral("l'option --%1 ne vaut pas pour --dossier").arg(seule));
        ChoixImpressions choix;
        for (const QString& partie : arguments.valeur("sans").split(QLatin1Char(','), Qt::SkipEmptyParts)) {
            const auto trouvee = std::find_if(parties().cbegin(), parties().cend(),
                                              [&](const auto& p) { return p.first == partie.trimmed(); });
            if (trouvee == parties().cend())
                return mauvaisUsage(contexte, QStringLiteral("partie inconnue : « %1 » (choix : %2)")
                                                  .arg(partie.trimmed(), nomsDesParties().join(", ")));
            if (trouvee->second)
                choix.*(trouvee->second) = false;
            else
                choix.listeEmployeurs = choix.listeTdb = false;
        }
        int code = Succes;
        const QString chemin = QFileInfo(arguments.positionnels().first()).absoluteFilePath();
        if (!documentAJour(contexte, chemin, &code))
            return code;
        const QString dossier = QFileInfo(arguments.valeur("sortie")).absoluteFilePath();
        if (QFileInfo(dossier).exists() && !QFileInfo(dossier).isDir())
            return echec(contexte,
                         QStringLiteral("« %1 » n'est pas un dossier.").arg(QDir::toNativeSeparators(dossier)));
        const QList<RapportDuDossier> rapports = rapportsDuDossier(chemin, choix);
        for (const RapportDuDossier& r : rapports)
            if (QDir(dossier).filePath(r.nom + QStringLiteral(".pdf")) == chemin)
                return echec(contexte, QStringLiteral("le rapport ne peut pas remplacer le document lui-même."));
        if (!QDir().mkpath(dossier))
            return echec(
                contexte,
                QStringLiteral("le dossier « %1 » n'a pas pu être créé.").arg(QDir::toNativeSeparators(dossier)));

        QJsonArray fichiers;
        for (const RapportDuDossier& r : rapports) {
            Rapport compose;
            if (!r.composer(compose))
                return echec(contexte, QStringLiteral("le document « %1 » ne peut pas être lu.").arg(chemin));
            const QString sortie = QDir(dossier).filePath(r.nom + QStringLiteral(".pdf"));
            QString erreur;
            int pages = 0;
            if (!ExportPdf::ecrirePdf(compose.document(), sortie, &erreur, &pages))
                return echec(contexte, QStringLiteral("le PDF « %1 » n'a pas pu être écrit : %2")
                                           .arg(QDir::toNativeSeparators(sortie), erreur));
            fichiers.append(QJsonObject{{"fichier", sortie}, {"pages", pages}, {"nom", r.nom}});
            if (!contexte.json)
                contexte.sortie << "Rapport « " << r.nom << " » écrit dans " << QDir::toNativeSeparators(sortie) << " ("
                                << pages << " page" << (pages > 1 ? "s" : "") << ")." << Qt::endl;
        }
        if (contexte.json)
            ecrireJson(contexte, {{"dossier", dossier}, {"fichiers", fichiers}});
        return Succes;
    }

    static QStringList noms(const QList<OptionAttendue>& options)
    {
        QStringList liste;
        for (const OptionAttendue& o : options)
            liste << o.nom;
        return liste;
    }

    static QStringList nomsDesParties()
    {
        QStringList liste;
        for (const auto& p : parties())
            liste << p.first;
        return liste;
    }

    // The expenses' filter options are theirs alone; of the contracts' options, the expenses'
    // report takes only the span's dates and the sort word, which the two share.
    static QString optionDeFiltreRefusee(const Arguments& arguments, const QString& rapport)
    {
        const bool frais = rapport == QStringLiteral("frais");
        const QList<OptionAttendue>& contrats = optionsFiltreContrats();
        for (const OptionAttendue& o : optionsFiltreFrais())
            if (arguments.contient(o.nom) && !frais && !nommee(contrats, o.nom))
                return QStringLiteral("l'option --%1 ne vaut que pour --rapport frais").arg(o.nom);
        for (const OptionAttendue& o : contrats)
            if (arguments.contient(o.nom) && frais && !nommee(optionsFiltreFrais(), o.nom))
                return QStringLiteral("l'option --%1 ne vaut pas pour --rapport frais").arg(o.nom);
        return {};
    }

    // A current-generation document, with its password when it is protected. Nothing is
    // written to it, so its pages are not checked.
    static bool documentAJour(Contexte& contexte, const QString& chemin, int* code)
    {
        Fichiers fichiers;
        const QString generation = fichiers.checkVersion(chemin, false);
        if (generation.isEmpty()) {
            *code = echec(contexte, fichiers.erreur());
            return false;
        }
        if (generation != QStringLiteral("4")) {
            *code = echec(contexte, QStringLiteral("« %1 » n'est pas un fichier Corvane à jour : ouvrez-le d'abord "
                                                   "avec la commande ouvrir.")
                                        .arg(QFileInfo(chemin).fileName()));
            return false;
        }
        return verifierMotDePasse(contexte, chemin, code);
    }
};

} // namespace

std::unique_ptr<Commande> commandePdf()
{
    return std::make_unique<CommandePdf>();
}

} // namespace corvane::cli
