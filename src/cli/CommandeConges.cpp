// `conges FICHIER [--du D --au D]`: the paid-leave fund's estimate; `versement-conges …`: the
// payments the fund made.

#include "cli/Affichage.h"
#include "cli/CommandeEnregistrements.h"
#include "cli/Commandes.h"
#include "cli/FluxJson.h"

#include "regimes/Conges.h"
#include "store/Dates.h"

#include <QFileInfo>
#include <QJsonArray>

namespace corvane::cli {

namespace {

class CommandeConges : public Commande
{
public:
    QString nom() const override { return QStringLiteral("conges"); }
    QString usage() const override { return QStringLiteral("conges FICHIER [--du AAAA-MM-JJ --au AAAA-MM-JJ]"); }

    int executer(Contexte& contexte, const QStringList& liste) override
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"du"}, {"au"}}, 1, &code))
            return code;
        if (arguments.contient("du") != arguments.contient("au"))
            return mauvaisUsage(contexte, QStringLiteral("--du et --au vont ensemble"));
        const auto du = arguments.date("du");
        const auto au = arguments.date("au");
        if (arguments.enErreur())
            return mauvaisUsage(contexte, arguments.erreur());
        if (du && *au < *du)
            return mauvaisUsage(contexte, QStringLiteral("la date --au ne peut pas précéder la date --du"));
        const QString chemin = QFileInfo(arguments.positionnels().first()).absoluteFilePath();
        if (!CommandeEnregistrements::documentAccessible(contexte, chemin, &code))
            return code;

        const Conges::Resultat r = du ? Conges(chemin).congesSpectacles(QStringLiteral("PERIODE"), *du, *au)
                                      : Conges(chemin).congesSpectacles(QStringLiteral("COMPLET"));
        if (contexte.json) {
            QJsonArray resume;
            for (const auto& [libelle, valeur] : r.resume)
                resume.append(QJsonObject{{"Libellé", libelle}, {"Valeur", valeur}});
            FluxJson(contexte.sortie)
                .ecrireObjet({{"du", r.du.toString(Qt::ISODate)},
                              {"au", r.au.toString(Qt::ISODate)},
                              {"contrats", {}, &r.contrats},
                              {"resume", resume},
                              {"journeesRetenues", r.nombreCachets},
                              {"salairesBruts", r.revenusBruts},
                              {"journeesAcquises", r.nombreJoursConges},
                              {"indemniteBrute", r.indemniteBrute},
                              {"indemniteNette", r.indemniteNette}});
            return Succes;
        }
        contexte.sortie << "Congés Spectacles du " << Dates::versAffichage(r.du) << " au " << Dates::versAffichage(r.au)
                        << " : " << r.contrats.size() << " contrat(s)\n";
        for (const auto& [libelle, valeur] : r.resume)
            contexte.sortie << "  " << libelle << " : " << valeur << '\n';
        if (r.resume.isEmpty())
            contexte.sortie << "  Aucune journée retenue.\n";
        contexte.sortie.flush();
        return Succes;
    }
};

class CommandeVersementConges : public CommandeEnregistrements
{
public:
    QString nom() const override { return QStringLiteral("versement-conges"); }
    QString usage() const override
    {
        return QStringLiteral("versement-conges ajouter FICHIER --date AAAA-MM-JJ --montant X [--encaisse] | "
                              "versement-conges modifier FICHIER ID --date AAAA-MM-JJ --montant X [--encaisse] | "
                              "versement-conges supprimer FICHIER ID | versement-conges encaisse FICHIER ID 0|1 | "
                              "versement-conges lister FICHIER [--sens ASC|DESC]");
    }

protected:
    QStringList actions() const override { return {"ajouter", "modifier", "supprimer", "encaisse", "lister"}; }

    int executerAction(Contexte& contexte, const QString& action, const QStringList& liste) override
    {
        if (action == QStringLiteral("lister"))
            return lister(contexte, liste);
        if (action == QStringLiteral("ajouter") || action == QStringLiteral("modifier"))
            return enregistrer(contexte, liste, action == QStringLiteral("modifier"));
        return changer(contexte, liste, action == QStringLiteral("encaisse"));
    }

private:
    static QString messageInconnu(int id) { return QStringLiteral("aucun versement ne porte le numéro %1.").arg(id); }

    static int reponse(Contexte& contexte, int id, const QString& texte)
    {
        if (contexte.json)
            ecrireJson(contexte, {{"id", id}});
        else
            contexte.sortie << "Versement n° " << id << ' ' << texte << Qt::endl;
        return Succes;
    }

    int enregistrer(Contexte& contexte, const QStringList& liste, bool modifier)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"date"}, {"montant"}, {"encaisse", false}}, modifier ? 2 : 1,
                      &code))
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
        if (modifier && !CongesVersements(chemin).versementExiste(id))
            return echec(contexte, messageInconnu(id));
        if (!preparerEcriture(contexte, chemin, &code))
            return code;
        CongesVersements versements(chemin);
        const bool encaisse = arguments.contient("encaisse");
        const int ecrit = modifier ? (versements.modifieCongesVersements(id, *date, *montant, encaisse) ? id : 0)
                                   : versements.enregistreCongesVersements(*date, *montant, encaisse);
        if (ecrit == 0)
            return echec(contexte, QStringLiteral("Le versement n'a pas pu être enregistré."));
        return reponse(contexte, ecrit,
                       QStringLiteral("%1 : %2, %3")
                           .arg(modifier ? "modifié" : "enregistré", Dates::versAffichage(*date), enEuros(*montant)));
    }

    // supprimer FICHIER ID, encaisse FICHIER ID 0|1.
    int changer(Contexte& contexte, const QStringList& liste, bool encaisse)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {}, encaisse ? 3 : 2, &code))
            return code;
        const int id = lireNumero(contexte, arguments, QStringLiteral("versement"), &code);
        if (code != Succes)
            return code;
        const QString coche = encaisse ? arguments.positionnels().at(2) : QString();
        if (encaisse && coche != QStringLiteral("0") && coche != QStringLiteral("1"))
            return mauvaisUsage(contexte, QStringLiteral("encaisse attend 0 ou 1"));
        const QString chemin = QFileInfo(arguments.positionnels().first()).absoluteFilePath();
        if (!documentAccessible(contexte, chemin, &code))
            return code;
        if (!CongesVersements(chemin).versementExiste(id))
            return echec(contexte, messageInconnu(id));
        if (!preparerEcriture(contexte, chemin, &code))
            return code;
        CongesVersements versements(chemin);
        const bool ok = encaisse ? versements.enregistreLesCochesPourId(id, coche == QStringLiteral("1"))
                                 : versements.supprimeCongesVersements(id);
        if (!ok)
            return echec(contexte, QStringLiteral("Le versement n'a pas pu être modifié."));
        return reponse(contexte, id,
                       encaisse ? (coche == QStringLiteral("1") ? QStringLiteral("encaissé.")
                                                                : QStringLiteral("non encaissé."))
                                : QStringLiteral("supprimé."));
    }

    int lister(Contexte& contexte, const QStringList& liste)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"sens"}}, 1, &code))
            return code;
        const QString sens = arguments.valeur("sens", QStringLiteral("ASC"));
        if (sens != QStringLiteral("ASC") && sens != QStringLiteral("DESC"))
            return mauvaisUsage(contexte, QStringLiteral("--sens attend ASC ou DESC"));
        const QString chemin = QFileInfo(arguments.positionnels().first()).absoluteFilePath();
        if (!documentAccessible(contexte, chemin, &code))
            return code;
        const Table table = CongesVersements(chemin).listeLesVersements(sens);
        if (contexte.json) {
            FluxJson(contexte.sortie).ecrireObjet({{"versements", {}, &table}});
            return Succes;
        }
        for (const QVariantList& l : table.rangees)
            contexte.sortie << l.at(0).toInt() << "  " << l.at(1).toString() << "  " << enEuros(l.at(3).toDouble())
                            << (l.at(4).toInt() == 1 ? "  encaissé" : "") << '\n';
        contexte.sortie << table.size() << " versement(s)" << Qt::endl;
        return Succes;
    }
};

} // namespace

std::unique_ptr<Commande> commandeConges()
{
    return std::make_unique<CommandeConges>();
}

std::unique_ptr<Commande> commandeVersementConges()
{
    return std::make_unique<CommandeVersementConges>();
}

} // namespace corvane::cli
