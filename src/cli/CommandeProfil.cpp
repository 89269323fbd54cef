#include "cli/Affichage.h"
#include "cli/CommandeEnregistrements.h"
#include "cli/Commandes.h"

#include "records/Periodes.h"
#include "records/Profil.h"
#include "store/Dates.h"
#include "store/ErreursSQLite.h"
#include "store/Horloge.h"
#include "store/Schema.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <sqlite3.h>

namespace corvane::cli {

namespace {

using SauvegardeTexte = bool (Profil::*)(const QString&);
using SauvegardeEntier = bool (Profil::*)(int);
using SauvegardeMontant = bool (Profil::*)(double);

// A number option, its save operation and its bounds.
struct OptionEntier
{
    QString option;
    SauvegardeEntier sauvegarde;
    int minimum;
    int maximum;
};

struct OptionMontant
{
    QString option;
    SauvegardeMontant sauvegarde;
    Bornes bornes;
};

// Each option of `profil modifier` and the field's own save operation.
const QList<QPair<QString, SauvegardeTexte>>& optionsTexte()
{
    static const QList<QPair<QString, SauvegardeTexte>> liste{
        {"nom", &Profil::saveLastName},
        {"prenom", &Profil::saveFirstName},
        {"pseudonyme", &Profil::saveNickname},
        {"adresse", &Profil::saveAddress},
        {"cp", &Profil::savePostalCode},
        {"commune", &Profil::saveCity},
        {"pays", &Profil::saveCountry},
        {"nationalite", &Profil::saveNationality},
        {"lieu-naissance", &Profil::savePlaceOfBirth},
        {"telephone", &Profil::saveLandline},
        {"mobile", &Profil::saveMobilePhone},
        {"fax", &Profil::saveFax},
        {"email", &Profil::saveEmail},
        {"web", &Profil::saveWebsite},
        {"nir", &Profil::saveSsNumber},
        {"carte-identite", &Profil::saveIdentityCardNumber},
        {"permis", &Profil::saveDrivingLicenceNumber},
        {"identifiant-pe", &Profil::savePeId},
        {"pe-mot-de-passe", &Profil::savePePassword},
        {"conges-spectacles", &Profil::saveCsNumber},
        {"cs-mot-de-passe", &Profil::saveCsPassword},
        {"guso", &Profil::saveGusoId},
        {"audiens", &Profil::saveAudiensId},
        {"sacem", &Profil::saveSacemNumber},
        {"rib-etablissement", &Profil::saveRibEstablishment},
        {"rib-guichet", &Profil::saveRibDesk},
        {"rib-compte", &Profil::saveRibAccount},
        {"rib-cle", &Profil::saveRibKey},
        {"iban", &Profil::saveRibIban},
        {"ae-siret", &Profil::saveAeSiret},
        {"ae-mot-de-passe", &Profil::saveAePassword},
        {"photo", &Profil::ajouteUnePhoto},
    };
    return liste;
}

// The bounds are those of the profile window's fields.
const QList<OptionEntier>& optionsEntier()
{
    static const QList<OptionEntier> liste{
        {"enfants", &Profil::saveChildren, 0, Profil::kEnfantsMaximum},
        {"auto-entrepreneur", &Profil::saveAeFlag, 0, 1},
        {"ae-categorie", &Profil::saveAeCategoryId, 1, 3},
        {"ae-periodicite", &Profil::saveAePeriodicity, 1, 3},
        {"ae-liberatoire", &Profil::saveAeTaxFlag, 0, 1},
        {"vehicule", &Profil::saveVehicleType, 1, 3},
        {"puissance", &Profil::saveVehiclePower, 0, 7},
    };
    return liste;
}

const QList<OptionMontant>& optionsMontant()
{
    static const QList<OptionMontant> liste{
        {"srj", &Profil::savePeSRJ, Limites::kMontant},
        {"taux", &Profil::savePeAllocation, Limites::kMontant},
        {"pas", &Profil::savePas, Limites::kPourcentage},
    };
    return liste;
}

class CommandeProfil : public CommandeEnregistrements
{
public:
    QString nom() const override { return QStringLiteral("profil"); }
    QString usage() const override
    {
        return QStringLiteral("profil afficher FICHIER | profil modifier FICHIER [--nom N] [--prenom P] [--emploi E] "
                              "[--civilite Mme|Mlle|Mr] [--ouverture D] [--srj X] [--taux X] [--cp CP] [--commune C] "
                              "[--abattement 0|20|25] [--renoncer-abattement 0|1] [--naissance D] [--sans-photo] "
                              "[--CHAMP VALEUR…] (voir docs/cli.md)");
    }

protected:
    QStringList actions() const override { return {"afficher", "modifier"}; }

    int executerAction(Contexte& contexte, const QString& action, const QStringList& liste) override
    {
        QList<OptionAttendue> options;
        if (action == QStringLiteral("modifier")) {
            for (const auto& [option, sauvegarde] : optionsTexte())
                options << OptionAttendue{option};
            for (const OptionEntier& o : optionsEntier())
                options << OptionAttendue{o.option};
            for (const OptionMontant& o : optionsMontant())
                options << OptionAttendue{o.option};
            options << OptionAttendue{"emploi"} << OptionAttendue{"civilite"} << OptionAttendue{"abattement"}
                    << OptionAttendue{"renoncer-abattement"} << OptionAttendue{"naissance"}
                    << OptionAttendue{"ouverture"} << OptionAttendue{"sans-photo", false};
        }
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, options, 1, &code))
            return code;
        const QString chemin = QFileInfo(arguments.positionnels().first()).absoluteFilePath();

        // Every value is read before anything is written.
        QMap<QString, int> entiers;
        for (const OptionEntier& o : optionsEntier()) {
            if (const auto valeur = arguments.entier(o.option, o.minimum, o.maximum))
                entiers.insert(o.option, *valeur);
        }
        QMap<QString, double> montants;
        for (const OptionMontant& o : optionsMontant()) {
            if (const auto valeur = arguments.montant(o.option, o.bornes))
                montants.insert(o.option, *valeur);
        }
        const auto naissance = arguments.date("naissance", Limites::premiereNaissance(), Horloge::aujourdhui());
        const auto ouverture = arguments.date("ouverture");
        const auto renoncer = arguments.entier("renoncer-abattement", 0, 1);
        if (arguments.enErreur())
            return mauvaisUsage(contexte, arguments.erreur());
        if (renoncer && *renoncer != 0 && *renoncer != 1)
            return mauvaisUsage(contexte, QStringLiteral("--renoncer-abattement attend 0 ou 1"));
        if (arguments.contient("photo") && arguments.contient("sans-photo"))
            return mauvaisUsage(contexte, QStringLiteral("--photo et --sans-photo s'excluent"));
        const QStringList& emplois = Schema::emplois();
        const int emploi = int(emplois.indexOf(arguments.valeur("emploi"))) + 1;
        if (arguments.contient("emploi") && emploi == 0)
            return mauvaisUsage(contexte, QStringLiteral("emploi inconnu : « %1 » (choix : %2)")
                                              .arg(arguments.valeur("emploi"), emplois.join(", ")));
        const int civilite = int(Intermittent::sexes().indexOf(arguments.valeur("civilite"))) + 1;
        if (arguments.contient("civilite") && civilite == 0)
            return mauvaisUsage(
                contexte,
                QStringLiteral("civilité inconnue : « %1 » (choix : Mme, Mlle, Mr)").arg(arguments.valeur("civilite")));
        const int abattement = int(Intermittent::abattements().indexOf(arguments.valeur("abattement"))) + 1;
        if (arguments.contient("abattement") && abattement == 0)
            return mauvaisUsage(
                contexte,
                QStringLiteral("abattement inconnu : « %1 » (choix : 0, 20, 25)").arg(arguments.valeur("abattement")));

        if (arguments.contient("photo")) {
            // The path is stored for the profile window to show: it must name an existing picture file.
            const QFileInfo photo(arguments.valeur("photo"));
            if (!photo.exists())
                return echec(contexte, QStringLiteral("la photo « %1 » est introuvable.")
                                           .arg(QDir::toNativeSeparators(arguments.valeur("photo"))));
            if (!photo.isFile())
                return echec(contexte, QStringLiteral("« %1 » n'est pas un fichier : indiquez le fichier de la photo.")
                                           .arg(QDir::toNativeSeparators(arguments.valeur("photo"))));
        }
        if (!documentAccessible(contexte, chemin, &code))
            return code;
        const bool modification = std::any_of(options.cbegin(), options.cend(), [&arguments](const OptionAttendue& o) {
            return arguments.contient(o.nom);
        });
        if (modification) {
            if (!preparerEcriture(contexte, chemin, &code))
                return code;
            if (const int rc = modifier(arguments, chemin, entiers, montants, naissance, ouverture, renoncer, emploi,
                                        civilite, abattement);
                rc != SQLITE_OK)
                return echec(contexte, ErreursSQLite::estOccupe(rc)
                                           ? ErreursSQLite::fichierUtilise(chemin)
                                           : QStringLiteral("Le profil n'a pas pu être enregistré : %1.")
                                                 .arg(ErreursSQLite::raison(rc, chemin)));
        }
        return afficher(contexte, chemin);
    }

private:
    // Every field given, or none: the write lock is taken first, so that a document another
    // program holds refuses the command before anything is written. Returns the SQLite code
    // (SQLITE_OK once everything is committed).
    static int modifier(const Arguments& arguments, const QString& chemin, const QMap<QString, int>& entiers,
                        QMap<QString, double> montants, const std::optional<QDate>& naissance,
                        const std::optional<QDate>& ouverture, const std::optional<int>& renoncer, int emploi,
                        int civilite, int abattement)
    {
        Profil profil(chemin);
        profil.initDepuisLaTableV4();
        BaseDeDonnees& base = profil.db();
        if (const int rc = base.exec(QStringLiteral("BEGIN IMMEDIATE;")); rc != SQLITE_OK)
            return rc;
        // The first refusal's code: the whole transaction is then rolled back.
        int refus = SQLITE_OK;
        auto noter = [&refus, &base](bool reussi) {
            if (!reussi && refus == SQLITE_OK) {
                const int code = sqlite3_extended_errcode(base.handle());
                refus = (code & 0xFF) == SQLITE_OK || (code & 0xFF) == SQLITE_DONE ? SQLITE_ERROR : code;
            }
        };
        for (const auto& [option, sauvegarde] : optionsTexte()) {
            if (arguments.contient(option))
                noter((profil.*sauvegarde)(arguments.valeur(option)));
        }
        for (const OptionEntier& o : optionsEntier()) {
            if (entiers.contains(o.option))
                noter((profil.*o.sauvegarde)(entiers.value(o.option)));
        }
        if (ouverture) {
            // The opening date goes with the wage and the rate, as when a new period starts.
            noter(profil.majNouvellePeriodeDu(*ouverture, montants.value("srj", profil.donnees().srjValide),
                                              montants.value("taux", profil.donnees().tauxValide)));
            montants.remove("srj");
            montants.remove("taux");
        }
        for (const OptionMontant& o : optionsMontant()) {
            if (montants.contains(o.option))
                noter((profil.*o.sauvegarde)(montants.value(o.option)));
        }
        if (arguments.contient("emploi"))
            noter(profil.saveJobId(emploi));
        if (arguments.contient("civilite"))
            noter(profil.saveCivilityId(civilite));
        if (arguments.contient("abattement"))
            noter(profil.saveFallId(abattement));
        // Giving up the abatement is the 0 % row; taking it back, the 20 % one.
        if (renoncer)
            noter(profil.saveFallId(*renoncer == 1 ? 1 : 2));
        if (naissance)
            noter(profil.saveDob(*naissance));
        if (arguments.contient("sans-photo"))
            noter(profil.supprimeLaPhoto());
        const int rc = refus == SQLITE_OK ? base.exec(QStringLiteral("COMMIT;")) : refus;
        if (rc != SQLITE_OK)
            base.exec(QStringLiteral("ROLLBACK;"));
        return rc;
    }

    static int afficher(Contexte& contexte, const QString& chemin)
    {
        Profil profil(chemin);
        if (!profil.initDepuisLaTableV4())
            return echec(contexte, QStringLiteral("Ce fichier ne contient aucun profil."));
        if (contexte.json) {
            ecrireJson(contexte, versJson(profil.colonnes()));
            return Succes;
        }
        const DonneesProfil& d = profil.donnees();
        QTextStream& s = contexte.sortie;
        auto ligne = [&s](const QString& libelle, const QString& valeur) {
            if (!valeur.isEmpty())
                s << libelle << " : " << valeur << '\n';
        };
        s << QStringList{d.civilite, d.prenom, d.nom}.join(' ').simplified() << '\n';
        ligne("Pseudonyme", d.pseudonyme);
        ligne("Né le", Dates::versAffichage(d.naissance) + (d.lieuNaissance.isEmpty() ? "" : " à " + d.lieuNaissance));
        ligne("Adresse", QStringList{d.adresse, d.codePostal, d.commune, d.pays}.join(' ').simplified());
        ligne("Téléphone", d.telephone);
        ligne("Mobile", d.telephoneMobile);
        ligne("Adresse électronique", d.email);
        ligne("Emploi", d.emploi);
        ligne("Ouverture des droits", Dates::versAffichage(d.dateDebutDossier));
        ligne("Salaire de référence journalier", enEuros(d.srjValide));
        ligne("Taux journalier", enEuros(d.tauxValide));
        ligne("Abattement", d.abattement + " %");
        ligne("Période en cours", Periodes(chemin).periodeEnCours());
        ligne("No Sécurité Sociale", d.nir);
        ligne("Identifiant Pôle Emploi", d.identifiantAssedic);
        ligne("No Congés Spectacles", d.congesSpectacles);
        ligne("IBAN", d.ribIban);
        s.flush();
        return Succes;
    }
};

} // namespace

std::unique_ptr<Commande> commandeProfil()
{
    return std::make_unique<CommandeProfil>();
}

} // namespace corvane::cli
