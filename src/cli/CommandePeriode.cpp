#include "cli/CommandeEnregistrements.h"
#include "cli/Commandes.h"

#include "records/NouvellePeriode.h"
#include "records/Periodes.h"

#include <QFileInfo>

namespace corvane::cli {

namespace {

class CommandePeriode : public CommandeEnregistrements
{
public:
    QString nom() const override { return QStringLiteral("periode"); }
    QString usage() const override
    {
        return QStringLiteral("periode ajouter FICHIER --debut D [--fin D] [--libelle L] [--notes N] [--conges N] "
                              "[--franchise-salaires N] [--attente N] [--maj-profil --srj X --taux X] | periode "
                              "lister FICHIER | periode activer FICHIER ID | periode supprimer FICHIER ID");
    }

protected:
    QStringList actions() const override { return {"ajouter", "lister", "activer", "supprimer"}; }

    int executerAction(Contexte& contexte, const QString& action, const QStringList& liste) override
    {
        if (action == QStringLiteral("ajouter"))
            return ajouter(contexte, liste);
        if (action == QStringLiteral("lister"))
            return lister(contexte, liste);
        return activerOuSupprimer(contexte, action, liste);
    }

private:
    int ajouter(Contexte& contexte, const QStringList& liste)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste,
                      {{"debut"},
                       {"fin"},
                       {"libelle"},
                       {"notes"},
                       {"conges"},
                       {"franchise-salaires"},
                       {"attente"},
                       {"maj-profil", false},
                       {"srj"},
                       {"taux"}},
                      1, &code))
            return code;
        if (!arguments.exiger({"debut"}))
            return mauvaisUsage(contexte, arguments.erreur());
        const bool majProfil = arguments.contient("maj-profil");
        if (majProfil && !arguments.exiger({"srj", "taux"}))
            return mauvaisUsage(contexte, arguments.erreur());
        if (!majProfil && (arguments.contient("srj") || arguments.contient("taux")))
            return mauvaisUsage(contexte, QStringLiteral("--srj et --taux vont avec --maj-profil"));
        const auto debut = arguments.date("debut");
        const auto fin = arguments.date("fin");
        const auto conges = arguments.entier("conges", 0, Limites::kJoursPeriodeMaximum);
        const auto franchise = arguments.entier("franchise-salaires", 0, Limites::kJoursPeriodeMaximum);
        const auto attente = arguments.entier("attente", 0, Limites::kJoursPeriodeMaximum);
        const auto srj = arguments.montant("srj");
        const auto taux = arguments.montant("taux");
        if (arguments.enErreur())
            return mauvaisUsage(contexte, arguments.erreur());
        const QString chemin = QFileInfo(arguments.positionnels().first()).absoluteFilePath();
        if (!documentAccessible(contexte, chemin, &code))
            return code;

        // The assistant's defaults, then what the options change.
        NouvellePeriode assistant(chemin);
        assistant.changeDebut(*debut);
        if (fin)
            assistant.changeFin(*fin);
        if (arguments.contient("libelle"))
            assistant.changeLibelle(arguments.valeur("libelle"));
        assistant.changeNotes(arguments.valeur("notes"));
        const Periode& p = assistant.periode();
        assistant.changeJours(conges.value_or(p.conges), franchise.value_or(p.franchiseSalaires),
                              attente.value_or(p.attente));
        assistant.changeMajAutomatique(majProfil);
        assistant.changeSrj(srj.value_or(0.0));
        assistant.changeTaux(taux.value_or(0.0));
        const QString refus = assistant.refus();
        if (!refus.isEmpty())
            return echec(contexte, refus);

        if (!preparerEcriture(contexte, chemin, &code))
            return code;
        QString message;
        const int id = assistant.enregistre(&message);
        if (id == 0)
            return echec(contexte,
                         message.isEmpty() ? QStringLiteral("La période n'a pas pu être enregistrée.") : message);
        if (contexte.json)
            ecrireJson(contexte, {{"id", id}});
        else
            contexte.sortie << "Période enregistrée : " << p.libelle << " (" << id << ")" << Qt::endl;
        return Succes;
    }

    int lister(Contexte& contexte, const QStringList& liste)
    {
        int code = Succes;
        const QString chemin = documentALire(contexte, liste, &code);
        if (code != Succes)
            return code;
        Periodes periodes(chemin);
        const Lignes lignes = periodes.listeLesPeriodes();
        const int enCours = periodes.idPeriodeEnCours();
        if (contexte.json) {
            ecrireJson(contexte, {{"periodes", versJson(lignes)}, {"periodeEnCours", enCours}});
            return Succes;
        }
        for (const Ligne& l : lignes) {
            const int id = l.value("Id").toInt();
            contexte.sortie << (id == enCours ? "* " : "  ") << id << '\t' << l.value("Début").toString() << " – "
                            << l.value("Fin").toString() << '\t' << l.value("Libelle").toString() << '\n';
        }
        contexte.sortie << "(* : la période en cours)" << Qt::endl;
        return Succes;
    }

    int activerOuSupprimer(Contexte& contexte, const QString& action, const QStringList& liste)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {}, 2, &code))
            return code;
        const QString chemin = QFileInfo(arguments.positionnels().first()).absoluteFilePath();
        bool ok = false;
        const int id = arguments.positionnels().at(1).toInt(&ok);
        if (!ok || id <= 0)
            return mauvaisUsage(contexte,
                                QStringLiteral("identifiant invalide : « %1 »").arg(arguments.positionnels().at(1)));
        if (!documentAccessible(contexte, chemin, &code))
            return code;
        const bool activer = action == QStringLiteral("activer");
        {
            Periodes periodes(chemin);
            if (!periodes.periode(id))
                return echec(contexte, Periodes::messagePeriodeInconnue());
            if (!activer) {
                const QString refus = periodes.refusSuppression(id);
                if (!refus.isEmpty())
                    return echec(contexte, refus);
            }
        }
        if (!preparerEcriture(contexte, chemin, &code))
            return code;
        Periodes periodes(chemin);
        if (activer) {
            periodes.activePeriodeAvecId(id);
            if (contexte.json)
                ecrireJson(contexte, {{"periodeEnCours", id}});
            else
                contexte.sortie << "Période en cours : " << periodes.periodeEnCours() << Qt::endl;
        } else {
            periodes.supprimePeriode(id);
            if (contexte.json)
                ecrireJson(contexte, {{"supprime", id}});
            else
                contexte.sortie << "Période supprimée." << Qt::endl;
        }
        return Succes;
    }
};

} // namespace

std::unique_ptr<Commande> commandePeriode()
{
    return std::make_unique<CommandePeriode>();
}

} // namespace corvane::cli
