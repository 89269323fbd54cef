// `versement-conges …` and `versement-impots …`: the payments of the paid-leave fund (with
// their cashed tick) and of the tax office (with their credit tick).

#include "cli/Affichage.h"
#include "cli/CommandeEnregistrements.h"
#include "cli/Commandes.h"
#include "cli/FluxJson.h"

#include "regimes/Conges.h"
#include "regimes/Fiscalite.h"
#include "store/Dates.h"

#include <QFileInfo>
#include <functional>

namespace corvane::cli {

namespace {

class CommandeHistorique : public CommandeEnregistrements
{
public:
    using Modele = std::function<std::unique_ptr<HistoriqueVersements>(const QString& chemin)>;

    // `coche` is the tick's option (--encaisse, --credit); `actionCoche` the sub-command that
    // ticks it alone, empty when there is none; `cocheOui` how a ticked payment is listed.
    CommandeHistorique(QString nom, QString coche, QString actionCoche, QString cocheOui, Modele modele)
        : m_nom(std::move(nom)), m_coche(std::move(coche)), m_actionCoche(std::move(actionCoche)),
          m_cocheOui(std::move(cocheOui)), m_modele(std::move(modele))
    {
    }

    QString nom() const override { return m_nom; }
    QString usage() const override
    {
        const QString cocheOption = QStringLiteral(" [--%1]").arg(m_coche);
        QString texte = QStringLiteral("%1 ajouter FICHIER --date AAAA-MM-JJ --montant X%2 | %1 modifier FICHIER ID "
                                       "--date AAAA-MM-JJ --montant X%2 | %1 supprimer FICHIER ID")
                            .arg(m_nom, cocheOption);
        if (!m_actionCoche.isEmpty())
            texte += QStringLiteral(" | %1 %2 FICHIER ID 0|1").arg(m_nom, m_actionCoche);
        return texte + QStringLiteral(" | %1 lister FICHIER [--sens ASC|DESC]").arg(m_nom);
    }

protected:
    QStringList actions() const override
    {
        QStringList liste{"ajouter", "modifier", "supprimer"};
        if (!m_actionCoche.isEmpty())
            liste << m_actionCoche;
        return liste << QStringLiteral("lister");
    }

    int executerAction(Contexte& contexte, const QString& action, const QStringList& liste) override
    {
        if (action == QStringLiteral("lister"))
            return lister(contexte, liste);
        if (action == QStringLiteral("ajouter") || action == QStringLiteral("modifier"))
            return enregistrer(contexte, liste, action == QStringLiteral("modifier"));
        return changer(contexte, liste, action == m_actionCoche);
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
        if (!analyser(contexte, arguments, liste, {{"date"}, {"montant"}, {m_coche, false}}, modifier ? 2 : 1, &code))
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
        if (modifier && !m_modele(chemin)->existe(id))
            return echec(contexte, messageInconnu(id));
        if (!preparerEcriture(contexte, chemin, &code))
            return code;
        const auto versements = m_modele(chemin);
        const bool coche = arguments.contient(m_coche);
        const int ecrit = modifier ? (versements->modifie(id, *date, *montant, coche) ? id : 0)
                                   : versements->enregistre(*date, *montant, coche);
        if (ecrit == 0)
            return echec(contexte, QStringLiteral("Le versement n'a pas pu être enregistré."));
        return reponse(contexte, ecrit,
                       QStringLiteral("%1 : %2, %3")
                           .arg(modifier ? "modifié" : "enregistré", Dates::versAffichage(*date), enEuros(*montant)));
    }

    // supprimer FICHIER ID, or the tick's action FICHIER ID 0|1.
    int changer(Contexte& contexte, const QStringList& liste, bool cocher)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {}, cocher ? 3 : 2, &code))
            return code;
        const int id = lireNumero(contexte, arguments, QStringLiteral("versement"), &code);
        if (code != Succes)
            return code;
        const QString valeur = cocher ? arguments.positionnels().at(2) : QString();
        if (cocher && valeur != QStringLiteral("0") && valeur != QStringLiteral("1"))
            return mauvaisUsage(contexte, QStringLiteral("%1 attend 0 ou 1").arg(m_actionCoche));
        const QString chemin = QFileInfo(arguments.positionnels().first()).absoluteFilePath();
        if (!documentAccessible(contexte, chemin, &code))
            return code;
        if (!m_modele(chemin)->existe(id))
            return echec(contexte, messageInconnu(id));
        if (!preparerEcriture(contexte, chemin, &code))
            return code;
        const auto versements = m_modele(chemin);
        if (!(cocher ? versements->coche(id, valeur == QStringLiteral("1")) : versements->supprime(id)))
            return echec(contexte, QStringLiteral("Le versement n'a pas pu être modifié."));
        return reponse(contexte, id,
                       cocher ? QStringLiteral("%1 : %2.").arg(m_actionCoche, valeur == QStringLiteral("1") ? "oui" : "non")
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
        const Table table = m_modele(chemin)->liste(sens);
        if (contexte.json) {
            FluxJson(contexte.sortie).ecrireObjet({{"versements", {}, &table}});
            return Succes;
        }
        for (const QVariantList& l : table.rangees)
            contexte.sortie << l.at(0).toInt() << "  " << l.at(1).toString() << "  " << enEuros(l.at(3).toDouble())
                            << (l.at(4).toInt() == 1 ? "  " + m_cocheOui : QString()) << '\n';
        contexte.sortie << table.size() << " versement(s)" << Qt::endl;
        return Succes;
    }

    QString m_nom;
    QString m_coche;
    QString m_actionCoche;
    QString m_cocheOui;
    Modele m_modele;
};

} // namespace

std::unique_ptr<Commande> commandeVersementConges()
{
    return std::make_unique<CommandeHistorique>(
        QStringLiteral("versement-conges"), QStringLiteral("encaisse"), QStringLiteral("encaisse"),
        QStringLiteral("encaissé"),
        [](const QString& chemin) { return std::make_unique<CongesVersements>(chemin); });
}

std::unique_ptr<Commande> commandeVersementImpots()
{
    return std::make_unique<CommandeHistorique>(
        QStringLiteral("versement-impots"), QStringLiteral("credit"), QString(), QStringLiteral("crédit"),
        [](const QString& chemin) { return std::make_unique<FiscaliteVersements>(chemin); });
}

} // namespace corvane::cli
