// `pdf FICHIER --rapport R --sortie CHEMIN.pdf`: a screen's report, written as the
// screen exports it.

#include "cli/CommandeContrat.h"
#include "cli/Commandes.h"

#include "exchange/ExportPdf.h"
#include "exchange/Rapport.h"
#include "exchange/RapportDroitsVoisins.h"
#include "exchange/RapportSecuriteSociale.h"
#include "exchange/RapportsEnregistrements.h"
#include "records/Contrats.h"
#include "store/Fichiers.h"
#include "store/Functions.h"
#include "store/Horloge.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonObject>

namespace corvane::cli {

namespace {

const QStringList& rapports()
{
    static const QStringList liste{QStringLiteral("profil"), QStringLiteral("employeurs"), QStringLiteral("contrats"),
                                   QStringLiteral("securite-sociale"), QStringLiteral("droits-voisins")};
    return liste;
}

// The parts `--sans` leaves out, by name; every part is printed otherwise, as with
// the program's default settings.
const QList<QPair<QString, bool ChoixImpressions::*>>& parties()
{
    static const QList<QPair<QString, bool ChoixImpressions::*>> liste{
        {"photo", &ChoixImpressions::photo},
        {"etat-civil", &ChoixImpressions::etatCivil},
        {"personnelles", &ChoixImpressions::personnelles},
        {"administratives", &ChoixImpressions::administratives},
        {"auto-entrepreneur", &ChoixImpressions::autoEntrepreneur},
        {"rib", &ChoixImpressions::rib},
        {"liste", nullptr}, // the employers', the contracts', the social-security periods' or the payments' list
        {"cumuls", &ChoixImpressions::cumulsEmployeurs},
        {"droits", &ChoixImpressions::verificationDroits},
        {"compte-rendu", &ChoixImpressions::compteRenduDroitsVoisins},
    };
    return liste;
}

class CommandePdf : public Commande
{
public:
    QString nom() const override { return QStringLiteral("pdf"); }
    bool metEnPage() const override { return true; }
    QString usage() const override
    {
        return QStringLiteral("pdf FICHIER --rapport profil|employeurs|contrats|securite-sociale|droits-voisins "
                              "--sortie CHEMIN.pdf [--sans PARTIE,…] [options de contrat lister] [--date AAAA-MM-JJ]");
    }

    int executer(Contexte& contexte, const QStringList& liste) override
    {
        Arguments arguments;
        int code = Succes;
        QList<OptionAttendue> options{{"rapport"}, {"sortie"}, {"sans"}, {"date"}};
        options << optionsFiltreContrats();
        if (!analyser(contexte, arguments, liste, options, 1, &code))
            return code;
        if (!arguments.exiger({"rapport", "sortie"}))
            return mauvaisUsage(contexte, arguments.erreur());
        const QString rapport = arguments.valeur("rapport");
        if (!rapports().contains(rapport))
            return mauvaisUsage(
                contexte, QStringLiteral("rapport inconnu : « %1 » (choix : %2)").arg(rapport, rapports().join(", ")));
        ChoixImpressions choix;
        for (const QString& partie : arguments.valeur("sans").split(QLatin1Char(','), Qt::SkipEmptyParts)) {
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
                choix.listeEmployeurs = choix.listeContrats = choix.listePeriodes = choix.listeVersementsDroitsVoisins =
                    false;
        }
        const bool filtre = std::any_of(optionsFiltreContrats().cbegin(), optionsFiltreContrats().cend(),
                                        [&](const OptionAttendue& o) { return arguments.contient(o.nom); });
        if (filtre && rapport != QStringLiteral("contrats"))
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
