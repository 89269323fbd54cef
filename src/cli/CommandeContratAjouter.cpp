// `contrat ajouter`: fills the contract form's state in the order a user fills the form,
// so that every value not given is derived as the form derives it, then saves through it.

#include "cli/CommandeContrat.h"
#include "cli/CommandeEnregistrements.h"

#include "records/Contrats.h"
#include "records/ContratsModeles.h"
#include "store/Schema.h"
#include "unemployment/SaisieContrat.h"

#include <QFileInfo>
#include <QJsonObject>

namespace corvane::cli {

namespace {

class CommandeContratAjouter : public CommandeEnregistrements
{
public:
    QString nom() const override { return QStringLiteral("contrat"); }
    QString usage() const override
    {
        return QStringLiteral("contrat ajouter FICHIER --employeur NOM --debut AAAA-MM-JJ [--fin AAAA-MM-JJ] "
                              "[--emploi E] [--type T] [--heures H] [--jours J] [--brut X] [--net X] "
                              "[--net-a-payer X] [--abattement 0|20|25] [--planifie] [--paye] [--conges] [--ap] "
                              "[--lieu L] [--fonction F] [--note N] [--annee-encaissement A] [--pas X]");
    }

protected:
    QStringList actions() const override { return {QStringLiteral("ajouter")}; }

    int executerAction(Contexte& contexte, const QString&, const QStringList& liste) override
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste,
                      {{"employeur"},
                       {"debut"},
                       {"fin"},
                       {"emploi"},
                       {"type"},
                       {"heures"},
                       {"jours"},
                       {"brut"},
                       {"net"},
                       {"net-a-payer"},
                       {"abattement"},
                       {"planifie", false},
                       {"paye", false},
                       {"conges", false},
                       {"ap", false},
                       {"lieu"},
                       {"fonction"},
                       {"note"},
                       {"annee-encaissement"},
                       {"pas"}},
                      1, &code))
            return code;
        if (!arguments.exiger({"debut"}))
            return mauvaisUsage(contexte, arguments.erreur());
        const auto debut = arguments.date("debut");
        const auto fin = arguments.date("fin");
        const auto heures = arguments.entier("heures", 0, Limites::kHeuresContratMaximum);
        const auto jours = arguments.entier("jours", 0, Limites::kJoursContratMaximum);
        const auto brut = arguments.montant("brut");
        const auto net = arguments.montant("net");
        const auto netAPayer = arguments.montant("net-a-payer");
        const auto pas = arguments.montant("pas", Limites::kPourcentage);
        const auto annee = arguments.annee("annee-encaissement");
        if (arguments.enErreur())
            return mauvaisUsage(contexte, arguments.erreur());
        int emploiId = 0;
        if (arguments.contient("emploi")) {
            emploiId = int(Schema::emplois().indexOf(arguments.valeur("emploi"))) + 1;
            if (emploiId == 0)
                return mauvaisUsage(contexte, QStringLiteral("emploi inconnu : « %1 » (choix : %2)")
                                                  .arg(arguments.valeur("emploi"), Schema::emplois().join(", ")));
        }
        if (arguments.contient("abattement") && !QStringList{"0", "20", "25"}.contains(arguments.valeur("abattement")))
            return mauvaisUsage(
                contexte,
                QStringLiteral("abattement inconnu : « %1 » (choix : 0, 20, 25)").arg(arguments.valeur("abattement")));
        if (fin && *fin < *debut)
            return echec(contexte, QStringLiteral("la date de fin précède la date de début."));

        const QString chemin = QFileInfo(arguments.positionnels().first()).absoluteFilePath();
        if (!documentAccessible(contexte, chemin, &code))
            return code;
        Contrats contrats(chemin);

        int typeId = 0;
        if (arguments.contient("type")) {
            typeId = typeDepuis(contrats, arguments.valeur("type"));
            if (typeId == 0)
                return mauvaisUsage(contexte, QStringLiteral("type de contrat inconnu : « %1 » (choix : %2)")
                                                  .arg(arguments.valeur("type"), typesConnus(contrats).join(", ")));
        }

        SaisieContrat saisie;
        saisie.nouveau(contrats);
        if (arguments.contient("employeur")) {
            saisie.employeurId = contrats.retrouveEmployeurId(arguments.valeur("employeur"));
            if (saisie.employeurId == 0)
                return echec(contexte,
                             QStringLiteral("aucun employeur ne s'appelle « %1 ».").arg(arguments.valeur("employeur")));
            ContratsModeles modeles(chemin);
            if (const auto modele = modeles.contenuDuModeleDepuisEmployeurId(saisie.employeurId))
                saisie.appliquerModele(*modele);
        }
        if (emploiId != 0)
            saisie.choisirEmploi(emploiId);
        // Dates given in full make their own length: the template's day count only fills a missing end.
        if (fin)
            saisie.retirerModele();
        saisie.choisirDates(SaisieContrat::instantDuDocument(*debut),
                            SaisieContrat::instantDuDocument(fin.value_or(*debut)));
        if (typeId != 0)
            saisie.choisirType(typeId);
        if (jours)
            saisie.jours = *jours;
        if (arguments.contient("ap"))
            saisie.cocherAP(true);
        if (brut)
            saisie.choisirBrut(*brut);
        if (heures)
            saisie.heures = *heures;
        if (net)
            saisie.net = *net;
        if (netAPayer)
            saisie.netAPayer = *netAPayer;
        if (pas)
            saisie.pas = *pas;
        if (arguments.contient("abattement"))
            saisie.abattementId = contrats.retrouveAbattementId(arguments.valeur("abattement"));
        if (arguments.contient("planifie"))
            saisie.effectue = false;
        saisie.paye = arguments.contient("paye");
        saisie.conges = arguments.contient("conges");
        if (annee)
            saisie.anneeEncaissement = *annee;
        saisie.lieu = arguments.valeur("lieu");
        saisie.fonction = arguments.valeur("fonction");
        saisie.note = arguments.valeur("note");

        // A refused contract leaves the document untouched: the checks run before the upgrade pass.
        if (const RefusContrat refus = saisie.verifier(contrats.estOuvert()); refus.estRefuse())
            return echec(contexte, refus.message);
        if (!preparerEcriture(contexte, chemin, &code))
            return code;
        Contrats ecriture(chemin);
        const EnregistrementContrat resultat = saisie.enregistrer(ecriture);
        if (resultat.refus.estRefuse())
            return echec(contexte, resultat.refus.message);

        if (contexte.json) {
            ecrireJson(contexte,
                       {{"id", resultat.id},
                        {"jours", saisie.jours},
                        {"heures", saisie.heures},
                        {"avertissement",
                         resultat.avertissement.isEmpty() ? QJsonValue() : QJsonValue(resultat.avertissement)}});
            return Succes;
        }
        contexte.sortie << "Contrat n° " << resultat.id << " enregistré : " << saisie.jours << ' '
                        << (saisie.jours > 1 ? "jours" : "jour") << ", " << saisie.heures << ' '
                        << (saisie.heures > 1 ? "heures" : "heure") << '.' << Qt::endl;
        if (!resultat.avertissement.isEmpty())
            contexte.sortie << resultat.avertissement << Qt::endl;
        return Succes;
    }

private:
    // A label of the contract types or of the self-employment types, or its key.
    static int typeDepuis(Contrats& contrats, const QString& texte)
    {
        bool nombre = false;
        const int cle = texte.toInt(&nombre);
        if (nombre)
            return !contrats.retrouveContratTypeDepuisId(cle).isEmpty() ||
                           !contrats.retrouveContratTypeAEDepuisId(cle).isEmpty()
                       ? cle
                       : 0;
        if (const int id = contrats.retrouveContratTypeId(texte); id != 0)
            return id;
        return contrats.retrouveTypeAutoEntrepreneurId(texte);
    }

    static QStringList typesConnus(Contrats& contrats)
    {
        return contrats.tousLesTypesDeContrats() + contrats.typesAutoEntrepreneur(false);
    }
};

} // namespace

std::unique_ptr<Commande> commandeContratAjouter()
{
    return std::make_unique<CommandeContratAjouter>();
}

} // namespace corvane::cli
