// `evenement ajouter|modifier|supprimer|lister|payer|paiements`: the events of the user's
// structures, their staff and who of them has been paid.

#include "cli/CommandeEnregistrements.h"
#include "cli/Commandes.h"
#include "cli/FluxJson.h"

#include "manager/Evenements.h"
#include "manager/ListesIds.h"
#include "manager/Structures.h"
#include "store/Dates.h"

#include <limits>

namespace corvane::cli {

namespace {

QString messageInconnu(int id)
{
    return QStringLiteral("aucun événement ne porte le numéro %1.").arg(id);
}

class CommandeEvenement : public CommandeEnregistrements
{
public:
    QString nom() const override { return QStringLiteral("evenement"); }
    QString usage() const override
    {
        return QStringLiteral(
            "evenement ajouter FICHIER --date AAAA-MM-JJ --nom N --employeur NOM --structure NOM [--proposition ID] | "
            "evenement modifier FICHIER ID [mêmes options, celles omises gardées] | evenement supprimer FICHIER ID | "
            "evenement lister FICHIER | evenement payer FICHIER ID EMPLOYE | evenement paiements FICHIER ID");
    }

protected:
    QStringList actions() const override
    {
        return {"ajouter", "modifier", "supprimer", "lister", "payer", "paiements"};
    }

    int executerAction(Contexte& contexte, const QString& action, const QStringList& liste) override
    {
        if (action == QStringLiteral("lister"))
            return lister(contexte, liste);
        if (action == QStringLiteral("supprimer"))
            return supprimer(contexte, liste);
        if (action == QStringLiteral("payer"))
            return payer(contexte, liste);
        if (action == QStringLiteral("paiements"))
            return paiements(contexte, liste);
        return enregistrer(contexte, liste, action == QStringLiteral("modifier"));
    }

private:
    int enregistrer(Contexte& contexte, const QStringList& liste, bool modifier)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"date"}, {"nom"}, {"employeur"}, {"structure"}, {"proposition"}},
                      modifier ? 2 : 1, &code))
            return code;
        const int id = modifier ? lireNumero(contexte, arguments, QStringLiteral("événement"), &code) : 0;
        if (code != Succes)
            return code;
        if (!modifier && !arguments.exiger({"date", "nom", "employeur", "structure"}))
            return mauvaisUsage(contexte, arguments.erreur());
        const auto date = arguments.date("date");
        const auto proposition = arguments.entier("proposition", 0, std::numeric_limits<int>::max());
        if (arguments.enErreur())
            return mauvaisUsage(contexte, arguments.erreur());

        const QString fichier = cheminDocument(arguments);
        if (!documentAccessible(contexte, fichier, &code))
            return code;
        Evenement evenement;
        {
            Evenements evenements(fichier);
            if (modifier) {
                const std::optional<Evenement> stocke = evenements.evenement(id);
                if (!stocke)
                    return echec(contexte, messageInconnu(id));
                evenement = *stocke;
            }
            if (date)
                evenement.date = *date;
            if (arguments.contient("nom"))
                evenement.nom = arguments.valeur("nom");
            if (proposition)
                evenement.propositionId = *proposition;
            if (arguments.contient("employeur")) {
                evenement.employeurId = evenements.retrouveEmployeurId(arguments.valeur("employeur"));
                if (evenement.employeurId == 0)
                    return echec(
                        contexte,
                        QStringLiteral("aucun employeur ne s'appelle « %1 ».").arg(arguments.valeur("employeur")));
            }
            if (arguments.contient("structure")) {
                evenement.structureId = Structures(evenements.db()).retrouveStructureId(arguments.valeur("structure"));
                if (evenement.structureId == 0)
                    return echec(
                        contexte,
                        QStringLiteral("aucune structure ne s'appelle « %1 ».").arg(arguments.valeur("structure")));
            }
            if (const QString refus = evenements.refusValeurs(evenement); !refus.isEmpty())
                return echec(contexte, refus);
        }
        if (!preparerEcriture(contexte, fichier, &code))
            return code;
        Evenements evenements(fichier);
        const int ecrit = modifier ? (evenements.modifieEvenement(id, evenement) ? id : 0)
                                   : evenements.enregistreEvenement(evenement);
        if (ecrit == 0)
            return echec(contexte, QStringLiteral("L'événement n'a pas pu être enregistré."));
        const QString salaries = evenements.salaries(ecrit);
        if (contexte.json)
            ecrireJson(contexte, {{"id", ecrit}, {"salaries", salaries}});
        else
            contexte.sortie << "Événement n° " << ecrit << (modifier ? " modifié : " : " enregistré : ")
                            << evenement.nom.trimmed() << " le " << Dates::versAffichage(evenement.date)
                            << ". Salariés : " << (salaries.isEmpty() ? QStringLiteral("aucun") : salaries) << '.'
                            << Qt::endl;
        return Succes;
    }

    int supprimer(Contexte& contexte, const QStringList& liste)
    {
        return supprimerEnregistrement(
            contexte, liste,
            {QStringLiteral("événement"),
             [](const QString& chemin, int id) { return Evenements(chemin).evenementExiste(id); },
             [](const QString& chemin, int id) { return Evenements(chemin).supprimeEvenement(id); }, &messageInconnu,
             QStringLiteral("L'événement n'a pas pu être supprimé."), QStringLiteral("Événement n° %1 supprimé.")});
    }

    int lister(Contexte& contexte, const QStringList& liste)
    {
        int code = Succes;
        const QString fichier = documentALire(contexte, liste, &code);
        if (code != Succes)
            return code;
        const Table table = Evenements(fichier).listeLesEvenements();
        if (contexte.json) {
            FluxJson(contexte.sortie).ecrireObjet({{"evenements", {}, &table}});
            return Succes;
        }
        for (qsizetype i = 0; i < table.size(); ++i) {
            const int nonPayes = table.valeur(i, "nonPayes").toInt();
            contexte.sortie << table.valeur(i, "Id").toInt() << "  " << table.valeur(i, "date").toString() << "  "
                            << table.valeur(i, "nom").toString() << "  " << table.valeur(i, "employeur").toString()
                            << "  " << table.valeur(i, "structure").toString() << "  "
                            << (nonPayes == 0 ? QStringLiteral("tous payés")
                                              : QStringLiteral("%1 non payé(s)").arg(nonPayes))
                            << '\n';
        }
        contexte.sortie << table.size() << " événement(s)" << Qt::endl;
        return Succes;
    }

    int payer(Contexte& contexte, const QStringList& liste)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {}, 3, &code))
            return code;
        const int id = lireNumero(contexte, arguments, QStringLiteral("événement"), &code);
        if (code != Succes)
            return code;
        bool ok = false;
        const int employe = arguments.positionnels().at(2).toInt(&ok);
        if (!ok || employe <= 0)
            return mauvaisUsage(
                contexte, QStringLiteral("numéro d'employé invalide : « %1 »").arg(arguments.positionnels().at(2)));
        const QString fichier = cheminDocument(arguments);
        if (!documentAccessible(contexte, fichier, &code))
            return code;
        {
            Evenements evenements(fichier);
            if (!evenements.evenementExiste(id))
                return echec(contexte, messageInconnu(id));
            if (!ListesIds::contient(evenements.salaries(id), employe))
                return echec(
                    contexte,
                    QStringLiteral("l'employé n° %1 ne travaille pas sur l'événement n° %2.").arg(employe).arg(id));
        }
        if (!preparerEcriture(contexte, fichier, &code))
            return code;
        Evenements evenements(fichier);
        const std::optional<QString> payes = evenements.basculePaye(id, employe);
        if (!payes)
            return echec(contexte, QStringLiteral("Le paiement n'a pas pu être enregistré."));
        if (contexte.json)
            ecrireJson(contexte, {{"payes", *payes}});
        else
            contexte.sortie << "Employé n° " << employe
                            << (ListesIds::contient(*payes, employe) ? " payé" : " non payé") << " pour l'événement n° "
                            << id << ". Payés : " << (payes->isEmpty() ? QStringLiteral("aucun") : *payes) << '.'
                            << Qt::endl;
        return Succes;
    }

    int paiements(Contexte& contexte, const QStringList& liste)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {}, 2, &code))
            return code;
        const int id = lireNumero(contexte, arguments, QStringLiteral("événement"), &code);
        if (code != Succes)
            return code;
        const QString fichier = cheminDocument(arguments);
        if (!documentAccessible(contexte, fichier, &code))
            return code;
        Evenements evenements(fichier);
        if (!evenements.evenementExiste(id))
            return echec(contexte, messageInconnu(id));
        const Table table = evenements.paiements(id);
        if (contexte.json) {
            FluxJson(contexte.sortie).ecrireObjet({{"paiements", {}, &table}});
            return Succes;
        }
        for (qsizetype i = 0; i < table.size(); ++i)
            contexte.sortie << table.valeur(i, "id").toInt() << "  " << table.valeur(i, "prenom").toString() << ' '
                            << table.valeur(i, "nom").toString() << "  "
                            << (table.valeur(i, "paye").toString() == QStringLiteral("1") ? "payé" : "non payé")
                            << '\n';
        contexte.sortie << evenements.nonPayes(id) << " non payé(s) sur " << table.size() << Qt::endl;
        return Succes;
    }
};

} // namespace

std::unique_ptr<Commande> commandeEvenement()
{
    return std::make_unique<CommandeEvenement>();
}

} // namespace corvane::cli
