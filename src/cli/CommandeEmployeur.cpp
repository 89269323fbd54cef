#include "cli/CommandeEnregistrements.h"
#include "cli/Commandes.h"
#include "cli/FluxJson.h"

#include "records/ContratsModeles.h"
#include "records/Employeurs.h"

#include <QFileInfo>

namespace corvane::cli {

namespace {

class CommandeEmployeur : public CommandeEnregistrements
{
public:
    QString nom() const override { return QStringLiteral("employeur"); }
    QString usage() const override
    {
        return QStringLiteral("employeur ajouter FICHIER --nom N --commune C [--adresse A] [--cp CP] [--email E] "
                              "[--interlocuteur I] [--telephone T] [--fax F] [--non-conventionne] [--guso] "
                              "[--modele LIBELLE] | employeur lister FICHIER | employeur supprimer FICHIER ID "
                              "[--tout]");
    }

protected:
    QStringList actions() const override { return {"ajouter", "lister", "supprimer"}; }

    int executerAction(Contexte& contexte, const QString& action, const QStringList& liste) override
    {
        if (action == QStringLiteral("ajouter"))
            return ajouter(contexte, liste);
        if (action == QStringLiteral("lister"))
            return lister(contexte, liste);
        return supprimer(contexte, liste);
    }

private:
    int ajouter(Contexte& contexte, const QStringList& liste)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste,
                      {{"nom"},
                       {"commune"},
                       {"adresse"},
                       {"cp"},
                       {"email"},
                       {"interlocuteur"},
                       {"telephone"},
                       {"fax"},
                       {"non-conventionne", false},
                       {"guso", false},
                       {"modele"}},
                      1, &code))
            return code;
        if (!arguments.exiger({"nom", "commune"}))
            return mauvaisUsage(contexte, arguments.erreur());
        const QString chemin = QFileInfo(arguments.positionnels().first()).absoluteFilePath();
        if (!documentAccessible(contexte, chemin, &code))
            return code;

        Employeur employeur;
        employeur.raisonSociale = arguments.valeur("nom");
        employeur.commune = arguments.valeur("commune");
        employeur.adresse = arguments.valeur("adresse");
        employeur.codePostal = arguments.valeur("cp");
        employeur.email = arguments.valeur("email");
        employeur.interlocuteur = arguments.valeur("interlocuteur");
        employeur.telephone = arguments.valeur("telephone");
        employeur.fax = arguments.valeur("fax");
        employeur.conventionne = arguments.contient("non-conventionne") ? 0 : 1;
        {
            // The checks first: a refusal writes nothing.
            if (arguments.contient("modele")) {
                employeur.contratModeleId =
                    ContratsModeles(chemin).retrouveIdContratsModele(arguments.valeur("modele"));
                if (employeur.contratModeleId == 0)
                    return echec(contexte,
                                 QStringLiteral("Le modèle « %1 » n'existe pas.").arg(arguments.valeur("modele")));
            }
            const QString refus = Employeurs(chemin).refusEnregistrement(employeur);
            if (!refus.isEmpty())
                return echec(contexte, refus);
        }
        if (!preparerEcriture(contexte, chemin, &code))
            return code;
        Employeurs employeurs(chemin);
        const int id = employeurs.enregistreEmployeur(employeur);
        if (id == 0)
            return echec(
                contexte,
                QStringLiteral("L'employeur n'a pas pu être enregistré : %1").arg(employeurs.db().derniereErreur()));
        if (arguments.contient("guso")) {
            // The other columns keep the values the new row got.
            Employeur enregistre = employeurs.employeur(id).value_or(employeur);
            enregistre.guso = 1;
            employeurs.enregistreComplements(enregistre);
        }
        if (contexte.json)
            ecrireJson(contexte, {{"id", id}});
        else
            contexte.sortie << "Employeur enregistré : " << employeur.raisonSociale << " (" << id << ")" << Qt::endl;
        return Succes;
    }

    int lister(Contexte& contexte, const QStringList& liste)
    {
        int code = Succes;
        const QString chemin = documentALire(contexte, liste, &code);
        if (code != Succes)
            return code;
        const Table table = Employeurs(chemin).listeLesEmployeurs();
        if (contexte.json) {
            FluxJson(contexte.sortie).ecrireObjet({{"employeurs", {}, &table}});
            return Succes;
        }
        for (qsizetype i = 0; i < table.size(); ++i) {
            contexte.sortie << table.valeur(i, "Id").toInt() << '\t' << table.valeur(i, "Enseigne").toString() << '\t'
                            << QStringList{table.valeur(i, "Code Postal").toString(),
                                           table.valeur(i, "Commune").toString()}
                                   .join(' ')
                                   .simplified()
                            << '\n';
        }
        contexte.sortie << table.size() << (table.size() > 1 ? " employeurs" : " employeur") << Qt::endl;
        return Succes;
    }

    int supprimer(Contexte& contexte, const QStringList& liste)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"tout", false}}, 2, &code))
            return code;
        const QString chemin = QFileInfo(arguments.positionnels().first()).absoluteFilePath();
        bool ok = false;
        const int id = arguments.positionnels().at(1).toInt(&ok);
        if (!ok || id <= 0)
            return mauvaisUsage(contexte,
                                QStringLiteral("identifiant invalide : « %1 »").arg(arguments.positionnels().at(1)));
        if (!documentAccessible(contexte, chemin, &code))
            return code;

        int contrats = 0;
        int modeles = 0;
        {
            Employeurs employeurs(chemin);
            if (!employeurs.employeur(id))
                return echec(contexte, QStringLiteral("Cet employeur n'existe pas."));
            contrats = employeurs.compteLesContrats(id);
            // Without --tout, the question's answer is "Rien": the question is the error.
            if (contrats > 0 && !arguments.contient("tout"))
                return echec(contexte, Employeurs::questionContratsAttribues() +
                                           QStringLiteral("\n(répondez « Tout » avec --tout)"));
            if (contrats == 0)
                modeles = ContratsModeles(employeurs.db()).compteLesModelesDeLEmployeur(id);
        }
        if (!preparerEcriture(contexte, chemin, &code))
            return code;
        DialoguesScriptes dialogues({QStringLiteral("Tout")});
        Employeurs(chemin).supprimeEmployeurAvecVerification(id, dialogues);
        if (contexte.json) {
            ecrireJson(contexte, {{"supprime", id}, {"contrats", contrats}, {"modeles", modeles}});
            return Succes;
        }
        contexte.sortie << "Employeur supprimé";
        if (contrats > 0)
            contexte.sortie << ", avec " << contrats << (contrats > 1 ? " contrats" : " contrat");
        if (modeles > 0)
            contexte.sortie << ", avec " << modeles << (modeles > 1 ? " modèles de contrat" : " modèle de contrat");
        contexte.sortie << '.' << Qt::endl;
        return Succes;
    }
};

} // namespace

std::unique_ptr<Commande> commandeEmployeur()
{
    return std::make_unique<CommandeEmployeur>();
}

} // namespace corvane::cli
