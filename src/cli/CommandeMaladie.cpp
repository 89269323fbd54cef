// `maladie ajouter|modifier|supprimer|cocher|lister|droits`: the social-security records.

#include "cli/Affichage.h"
#include "cli/CommandeEnregistrements.h"
#include "cli/Commandes.h"
#include "cli/FluxJson.h"

#include "regimes/SecuriteSociale.h"
#include "store/Dates.h"

#include <QFileInfo>

namespace corvane::cli {

namespace {

class CommandeMaladie : public CommandeEnregistrements
{
public:
    QString nom() const override { return QStringLiteral("maladie"); }
    QString usage() const override
    {
        return QStringLiteral(
            "maladie ajouter FICHIER --type T --debut AAAA-MM-JJ --fin AAAA-MM-JJ [--suspendus N] [--ij X] [--ald] "
            "[--rembourse] [--mutuelle] [--note N] | maladie modifier FICHIER ID (mêmes options) | maladie supprimer "
            "FICHIER ID | maladie cocher FICHIER ID [--rembourse 0|1] [--mutuelle 0|1] [--ald 0|1] | maladie lister "
            "FICHIER [--periode tous|periode_reference|annee|periode] [--du AAAA-MM-JJ --au AAAA-MM-JJ] [--type T] "
            "[--sens ASC|DESC] | maladie droits FICHIER --date AAAA-MM-JJ");
    }

protected:
    QStringList actions() const override { return {"ajouter", "modifier", "supprimer", "cocher", "lister", "droits"}; }

    int executerAction(Contexte& contexte, const QString& action, const QStringList& liste) override
    {
        if (action == QStringLiteral("lister"))
            return lister(contexte, liste);
        if (action == QStringLiteral("droits"))
            return droits(contexte, liste);
        if (action == QStringLiteral("supprimer"))
            return supprimer(contexte, liste);
        if (action == QStringLiteral("cocher"))
            return cocher(contexte, liste);
        return enregistrer(contexte, liste, action == QStringLiteral("modifier"));
    }

private:
    static QString messageInconnu(int id) { return QStringLiteral("aucune période ne porte le numéro %1.").arg(id); }

    // A kind given by its number, its label or its list code; 0 when it is none.
    static int lireType(const QString& texte)
    {
        bool ok = false;
        const int numero = texte.toInt(&ok);
        if (ok)
            return SecuriteSociale::codeDuType(numero).isEmpty() ? 0 : numero;
        static const QStringList libelles{
            "Accident du travail",      "Maladie",  "Maternité", "Paternité", "Consultation Généraliste",
            "Consultation Spécialiste", "Pharmacie"};
        for (int i = 0; i < libelles.size(); ++i)
            if (texte.compare(libelles.at(i), Qt::CaseInsensitive) == 0 ||
                texte.compare(SecuriteSociale::codeDuType(i + 1), Qt::CaseInsensitive) == 0)
                return i + 1;
        return 0;
    }

    int typeInconnu(Contexte& contexte, const QString& texte) const
    {
        return mauvaisUsage(contexte, QStringLiteral("type inconnu : « %1 »").arg(texte));
    }

    int enregistrer(Contexte& contexte, const QStringList& liste, bool modifier)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste,
                      {{"type"},
                       {"debut"},
                       {"fin"},
                       {"suspendus"},
                       {"ij"},
                       {"ald", false},
                       {"rembourse", false},
                       {"mutuelle", false},
                       {"note"}},
                      modifier ? 2 : 1, &code))
            return code;
        const int id = modifier ? lireNumero(contexte, arguments, QStringLiteral("période"), &code) : 0;
        if (code != Succes)
            return code;
        if (!arguments.exiger({"type", "debut", "fin"}))
            return mauvaisUsage(contexte, arguments.erreur());
        PeriodeSecuriteSociale periode;
        periode.typeId = lireType(arguments.valeur("type"));
        if (periode.typeId == 0)
            return typeInconnu(contexte, arguments.valeur("type"));
        const auto debut = arguments.date("debut");
        const auto fin = arguments.date("fin");
        const auto suspendus = arguments.entier("suspendus", 0, Limites::kJoursContratMaximum);
        const auto ij = arguments.montant("ij");
        if (arguments.enErreur())
            return mauvaisUsage(contexte, arguments.erreur());
        periode.debut = *debut;
        periode.fin = *fin;
        periode.joursSuspendus = suspendus.value_or(0);
        periode.totalIJ = ij.value_or(0.0);
        periode.ald = arguments.contient("ald");
        periode.rembourse = arguments.contient("rembourse");
        periode.rembourseMutuelle = arguments.contient("mutuelle");
        periode.note = arguments.valeur("note", QStringLiteral(""));

        const QString fichier = cheminDocument(arguments);
        if (!documentAccessible(contexte, fichier, &code))
            return code;
        {
            SecuriteSociale ss(fichier);
            if (const QString refus = ss.refusValeurs(periode); !refus.isEmpty())
                return mauvaisUsage(contexte, refus);
            if (modifier && !ss.securiteSocialeExiste(id))
                return echec(contexte, messageInconnu(id));
            if (const QString refus = ss.refusSuperpositions(periode.debut, periode.fin, id); !refus.isEmpty())
                return echec(contexte, refus);
        }
        if (!preparerEcriture(contexte, fichier, &code))
            return code;

        SecuriteSociale ss(fichier);
        const int ecrit =
            modifier ? (ss.modifieSecuriteSociale(id, periode) ? id : 0) : ss.enregistreSecuriteSociale(periode);
        if (ecrit == 0)
            return echec(contexte, QStringLiteral("La période n'a pas pu être enregistrée."));
        if (contexte.json)
            ecrireJson(contexte, {{"id", ecrit},
                                  {"jours", periode.nombreJours},
                                  {"incidenceHeures", periode.incidenceHeures},
                                  {"incidencePeriode", periode.incidencePeriode}});
        else
            contexte.sortie << "Période n° " << ecrit << (modifier ? " modifiée : " : " enregistrée : ")
                            << SecuriteSociale::codeDuType(periode.typeId) << " du "
                            << Dates::versAffichage(periode.debut) << " au " << Dates::versAffichage(periode.fin)
                            << ", " << periode.nombreJours << " jour(s), incidence " << periode.incidenceHeures
                            << " sur les heures et " << periode.incidencePeriode << " sur la période." << Qt::endl;
        return Succes;
    }

    // The key of an existing record, the document checked; 0 with the code set otherwise.
    int recordExistant(Contexte& contexte, const Arguments& arguments, int* code)
    {
        const int id = lireNumero(contexte, arguments, QStringLiteral("période"), code);
        if (*code != Succes)
            return 0;
        if (!documentAccessible(contexte, cheminDocument(arguments), code))
            return 0;
        if (!SecuriteSociale(cheminDocument(arguments)).securiteSocialeExiste(id)) {
            *code = echec(contexte, messageInconnu(id));
            return 0;
        }
        return id;
    }

    int supprimer(Contexte& contexte, const QStringList& liste)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {}, 2, &code))
            return code;
        const int id = recordExistant(contexte, arguments, &code);
        if (code != Succes)
            return code;
        if (!preparerEcriture(contexte, cheminDocument(arguments), &code))
            return code;
        if (!SecuriteSociale(cheminDocument(arguments)).supprimeSecuriteSociale(id))
            return echec(contexte, QStringLiteral("La période n'a pas pu être supprimée."));
        if (contexte.json)
            ecrireJson(contexte, {{"id", id}});
        else
            contexte.sortie << "Période n° " << id << " supprimée." << Qt::endl;
        return Succes;
    }

    // The ticks of the list, each written on its own.
    int cocher(Contexte& contexte, const QStringList& liste)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"rembourse"}, {"mutuelle"}, {"ald"}}, 2, &code))
            return code;
        const auto rembourse = arguments.entier("rembourse", 0, 1);
        const auto mutuelle = arguments.entier("mutuelle", 0, 1);
        const auto ald = arguments.entier("ald", 0, 1);
        if (arguments.enErreur())
            return mauvaisUsage(contexte, arguments.erreur());
        if (!rembourse && !mutuelle && !ald)
            return mauvaisUsage(contexte, QStringLiteral("rien à cocher : --rembourse, --mutuelle ou --ald"));
        const int id = recordExistant(contexte, arguments, &code);
        if (code != Succes)
            return code;
        if (!preparerEcriture(contexte, cheminDocument(arguments), &code))
            return code;
        SecuriteSociale ss(cheminDocument(arguments));
        bool ok = true;
        if (rembourse)
            ok = ss.enregistreLeCocheRemboursePourId(id, *rembourse != 0) && ok;
        if (mutuelle)
            ok = ss.enregistreLeCocheRembourseMutuellePourId(id, *mutuelle != 0) && ok;
        if (ald)
            ok = ss.enregistreLeCocheAldPourId(id, *ald != 0) && ok;
        if (!ok)
            return echec(contexte, QStringLiteral("La période n'a pas pu être modifiée."));
        if (contexte.json)
            ecrireJson(contexte, {{"id", id}});
        else
            contexte.sortie << "Période n° " << id << " modifiée." << Qt::endl;
        return Succes;
    }

    int lister(Contexte& contexte, const QStringList& liste)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"periode"}, {"du"}, {"au"}, {"type"}, {"sens"}}, 1, &code))
            return code;
        const auto intervalle = lireIntervalle(contexte, arguments, &code);
        if (!intervalle)
            return code;
        const QString sens = arguments.valeur("sens", QStringLiteral("ASC"));
        if (sens != QStringLiteral("ASC") && sens != QStringLiteral("DESC"))
            return mauvaisUsage(contexte, QStringLiteral("sens inconnu : « %1 » (choix : ASC, DESC)").arg(sens));
        const int type = arguments.contient("type") ? lireType(arguments.valeur("type")) : 0;
        if (arguments.contient("type") && type == 0)
            return typeInconnu(contexte, arguments.valeur("type"));
        const auto [periode, du, au] = *intervalle;
        const QString fichier = cheminDocument(arguments);
        if (!documentAccessible(contexte, fichier, &code))
            return code;

        SecuriteSociale ss(fichier);
        // Without dates, the "periode" span takes the ones the screen remembers.
        const QDate debut = du ? *du : ss.retrouveDatePreferee(QStringLiteral("securite_sociale_debut")).date();
        const QDate fin = au ? *au : ss.retrouveDatePreferee(QStringLiteral("securite_sociale_fin")).date();
        const Table table = ss.listeLesPeriodesV4(periode, type, sens, debut, fin);
        if (contexte.json) {
            FluxJson(contexte.sortie).ecrireObjet({{"periodes", {}, &table}});
            return Succes;
        }
        for (qsizetype i = 0; i < table.size(); ++i)
            contexte.sortie << table.valeur(i, "Id Securite Sociale").toInt() << "  "
                            << Dates::versAffichage(
                                   Dates::depuisSQLite(table.valeur(i, "Date Debut SQLite").toString()))
                            << "  "
                            << Dates::versAffichage(Dates::depuisSQLite(table.valeur(i, "Date Fin SQLite").toString()))
                            << "  " << table.valeur(i, "Type").toString() << "  "
                            << enEuros(table.valeur(i, "Total I.J.").toDouble()) << "  "
                            << table.valeur(i, "Note").toString() << '\n';
        contexte.sortie << table.size() << " période(s)" << Qt::endl;
        return Succes;
    }

    int droits(Contexte& contexte, const QStringList& liste)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"date"}}, 1, &code))
            return code;
        if (!arguments.exiger({"date"}))
            return mauvaisUsage(contexte, arguments.erreur());
        const auto date = arguments.date("date");
        if (arguments.enErreur())
            return mauvaisUsage(contexte, arguments.erreur());
        const QString fichier = cheminDocument(arguments);
        if (!documentAccessible(contexte, fichier, &code))
            return code;
        const Table table = SecuriteSociale(fichier).verifieLesDroits(*date);
        if (table.isEmpty())
            return echec(contexte, SecuriteSociale::messageSansContrat());
        if (contexte.json) {
            FluxJson(contexte.sortie).ecrireObjet({{"droits", {}, &table}});
            return Succes;
        }
        contexte.sortie << "Vérification des droits au " << Dates::versAffichage(*date) << '\n';
        for (const QVariantList& l : table.rangees)
            contexte.sortie << l.at(0).toString() << (l.at(1).toString().isEmpty() ? "" : " : ") << l.at(1).toString()
                            << "  |  " << l.at(2).toString() << (l.at(3).toString().isEmpty() ? "" : " : ")
                            << l.at(3).toString() << '\n';
        contexte.sortie.flush();
        return Succes;
    }
};

} // namespace

std::unique_ptr<Commande> commandeMaladie()
{
    return std::make_unique<CommandeMaladie>();
}

} // namespace corvane::cli
