// `versement-are ajouter|modifier|supprimer|lister`: the unemployment allowances received.

#include "cli/Affichage.h"
#include "cli/CommandeEnregistrements.h"
#include "cli/Commandes.h"
#include "cli/FluxJson.h"

#include "store/Dates.h"
#include "store/Reglages.h"
#include "unemployment/PoleEmploiVersements.h"

#include <QFileInfo>
#include <cmath>

namespace corvane::cli {

namespace {

class CommandeVersementAre : public CommandeEnregistrements
{
public:
    QString nom() const override { return QStringLiteral("versement-are"); }
    QString usage() const override
    {
        return QStringLiteral("versement-are ajouter FICHIER --date AAAA-MM-JJ --montant X | versement-are modifier "
                              "FICHIER ID --date AAAA-MM-JJ --montant X | versement-are supprimer FICHIER ID | "
                              "versement-are lister FICHIER [--periode tous|periode_reference|annee|periode] [--du "
                              "AAAA-MM-JJ --au AAAA-MM-JJ] [--sens MOT]");
    }

protected:
    QStringList actions() const override { return {"ajouter", "modifier", "supprimer", "lister"}; }

    int executerAction(Contexte& contexte, const QString& action, const QStringList& liste) override
    {
        if (action == QStringLiteral("lister"))
            return lister(contexte, liste);
        if (action == QStringLiteral("supprimer"))
            return supprimer(contexte, liste);
        return enregistrer(contexte, liste, action == QStringLiteral("modifier"));
    }

private:
    static QString messageInconnu(int id) { return QStringLiteral("aucun versement ne porte le numéro %1.").arg(id); }

    int enregistrer(Contexte& contexte, const QStringList& liste, bool modifier)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"date"}, {"montant"}}, modifier ? 2 : 1, &code))
            return code;
        const int id = modifier ? lireNumero(contexte, arguments, QStringLiteral("versement"), &code) : 0;
        if (code != Succes)
            return code;
        if (!arguments.exiger({"date", "montant"}))
            return mauvaisUsage(contexte, arguments.erreur());
        const auto date = arguments.date("date");
        const auto montant = arguments.montant("montant");
        if (arguments.enErreur())
            return mauvaisUsage(contexte, arguments.erreur());
        const QString chemin = QFileInfo(arguments.positionnels().first()).absoluteFilePath();
        if (!documentAccessible(contexte, chemin, &code))
            return code;
        if (modifier && !PoleEmploiVersements(chemin).versementExiste(id))
            return echec(contexte, messageInconnu(id));
        if (!preparerEcriture(contexte, chemin, &code))
            return code;

        PoleEmploiVersements versement(chemin, *date, *montant);
        const int ecrit =
            modifier ? (versement.modifiePoleEmploiVersement(id) ? id : 0) : versement.enregistrePoleEmploiVersement();
        if (ecrit == 0)
            return echec(contexte, QStringLiteral("Le versement n'a pas pu être enregistré."));
        if (contexte.json)
            ecrireJson(contexte, {{"id", ecrit}});
        else
            contexte.sortie << "Versement n° " << ecrit << (modifier ? " modifié : " : " enregistré : ")
                            << Dates::versAffichage(*date) << ", " << enEuros(*montant) << Qt::endl;
        return Succes;
    }

    int supprimer(Contexte& contexte, const QStringList& liste)
    {
        return supprimerEnregistrement(
            contexte, liste,
            {QStringLiteral("versement"),
             [](const QString& chemin, int id) { return PoleEmploiVersements(chemin).versementExiste(id); },
             [](const QString& chemin, int id) { return PoleEmploiVersements(chemin).supprimePoleEmploiVersement(id); },
             &messageInconnu, QStringLiteral("Le versement n'a pas pu être supprimé."),
             QStringLiteral("Versement n° %1 supprimé.")});
    }

    int lister(Contexte& contexte, const QStringList& liste)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"periode"}, {"du"}, {"au"}, {"sens"}}, 1, &code))
            return code;
        const auto intervalle = lireIntervalle(contexte, arguments, &code);
        if (!intervalle)
            return code;
        const auto [periode, du, au] = *intervalle;
        const QString chemin = QFileInfo(arguments.positionnels().first()).absoluteFilePath();
        // A listing reads only: no upgrade pass, nothing written.
        if (!documentAccessible(contexte, chemin, &code))
            return code;

        PoleEmploiVersements versements(chemin);
        // Without dates, the "periode" span takes the ones the history window remembers.
        const QDate debut =
            du ? *du : versements.retrouveDatePreferee(QStringLiteral("assedichistorique_debut")).date();
        const QDate fin = au ? *au : versements.retrouveDatePreferee(QStringLiteral("assedichistorique_fin")).date();
        const QString sens =
            arguments.valeur("sens", Reglages::defaut(Reglages::Cle::PoleEmploiHistoriqueSens).toString());
        const Table table = versements.listeLesVersementsDu(debut, fin, periode, sens);
        // Every amount is a whole number of cents; the sum is given as one.
        const double cumul = std::round(versements.cumulAssedic() * 100.0) / 100.0;

        if (contexte.json) {
            FluxJson(contexte.sortie).ecrireObjet({{"versements", {}, &table}, {"cumul", cumul}});
            return Succes;
        }
        const int id = table.colonne("Id"), date = table.colonne("Date"), montant = table.colonne("Montant");
        for (const QVariantList& l : table.rangees)
            contexte.sortie << l.at(id).toInt() << "  " << l.at(date).toString() << "  "
                            << enEuros(l.at(montant).toDouble()) << '\n';
        contexte.sortie << "Cumul : " << table.size() << " versement(s), " << enEuros(cumul) << Qt::endl;
        return Succes;
    }
};

} // namespace

std::unique_ptr<Commande> commandeVersementAre()
{
    return std::make_unique<CommandeVersementAre>();
}

} // namespace corvane::cli
