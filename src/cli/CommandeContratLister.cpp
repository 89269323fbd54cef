// `contrat lister`: the contracts screen's listing, with its filters, inverted sort and totals.

#include "cli/Affichage.h"
#include "cli/CommandeContrat.h"
#include "cli/CommandeEnregistrements.h"
#include "cli/FluxJson.h"

#include "records/Contrats.h"
#include "store/Reglages.h"
#include "store/Schema.h"

#include <QFileInfo>
#include <QJsonObject>

namespace corvane::cli {

namespace {

class CommandeContratLister : public CommandeEnregistrements
{
public:
    QString nom() const override { return QStringLiteral("contrat"); }
    QString usage() const override { return QStringLiteral("contrat lister FICHIER ") + usageFiltreContrats(); }

protected:
    QStringList actions() const override { return {QStringLiteral("lister")}; }

    int executerAction(Contexte& contexte, const QString&, const QStringList& liste) override
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, optionsFiltreContrats(), 1, &code))
            return code;
        if (const ErreurFiltre e = verifierFiltreContrats(arguments); e.code != Succes)
            return e.code == MauvaisUsage ? mauvaisUsage(contexte, e.message) : echec(contexte, e.message);

        const QString chemin = QFileInfo(arguments.positionnels().first()).absoluteFilePath();
        // A listing reads only: no upgrade pass, nothing written.
        if (!documentAccessible(contexte, chemin, &code))
            return code;
        Contrats contrats(chemin);
        FiltreContrats filtre;
        if (const ErreurFiltre e = lireFiltreContrats(arguments, contrats, filtre); e.code != Succes)
            return e.code == MauvaisUsage ? mauvaisUsage(contexte, e.message) : echec(contexte, e.message);

        // A document not yet upgraded lacks the screen's columns: the model's own listing is given then.
        const bool colonnesEcran = contrats.aLesColonnesEcran();
        if (contexte.json) {
            // The rows are written as they are read; the totals are known after the last one.
            const std::unique_ptr<LectureListe> lecture = contrats.lisLesContrats(filtre, colonnesEcran);
            FluxJson json(contexte.sortie);
            json.ouvrirObjet();
            json.ecrireMembre(QStringLiteral("contrats"), *lecture);
            json.ecrireMembre(QStringLiteral("totaux"),
                              QJsonObject{{"nombrePeriodesGroupees", qint64(contrats.nombrePeriodesGroupees)},
                                          {"totalHeures", qint64(contrats.totalHeures)},
                                          {"totalJours", qint64(contrats.totalJours)},
                                          {"totalBruts", contrats.totalBruts},
                                          {"totalNets", contrats.totalNets}});
            json.fermerObjet();
            return Succes;
        }
        const Table table = contrats.listeLesContrats(filtre, colonnesEcran);
        const int id = table.colonne("Id Contrat"), debut = table.colonne("Date Debut"),
                  fin = table.colonne("Date Fin"), employeur = table.colonne("Employeur"),
                  emploi = table.colonne("Emploi"), jours = table.colonne("Jours"), heures = table.colonne("Heures"),
                  brut = table.colonne("Salaire Brut"), net = table.colonne("Salaire Net");
        for (const QVariantList& l : table.rangees)
            contexte.sortie << l.at(id).toInt() << "  " << l.at(debut).toString() << " – " << l.at(fin).toString()
                            << "  " << l.at(employeur).toString() << "  " << l.at(emploi).toString() << "  "
                            << l.at(jours).toInt() << " j  " << l.at(heures).toInt() << " h  "
                            << enEuros(l.at(brut).toDouble()) << "  " << enEuros(l.at(net).toDouble()) << '\n';
        contexte.sortie << "Total : " << table.size() << " contrat(s), " << contrats.totalJours << " jour(s), "
                        << contrats.totalHeures << " heure(s), brut " << enEuros(contrats.totalBruts) << ", net "
                        << enEuros(contrats.totalNets) << " ; périodes groupées : " << contrats.nombrePeriodesGroupees
                        << Qt::endl;
        return Succes;
    }
};

} // namespace

const QList<OptionAttendue>& optionsFiltreContrats()
{
    static const QList<OptionAttendue> options{{"periode"}, {"du"},        {"au"},     {"effectue"}, {"paye"},
                                               {"type"},    {"employeur"}, {"emploi"}, {"sens"}};
    return options;
}

QString usageFiltreContrats()
{
    return QStringLiteral("[--periode tous|periode_reference|annee|periode] [--du AAAA-MM-JJ --au AAAA-MM-JJ] "
                          "[--effectue 0|1|2] [--paye 0|1|2] [--type T] [--employeur NOM] [--emploi E] [--sens MOT]");
}

ErreurFiltre verifierFiltreContrats(Arguments& arguments)
{
    const auto entre0Et2 = [&arguments](const QString& option) {
        return !arguments.contient(option) || QStringList{"0", "1", "2"}.contains(arguments.valeur(option));
    };
    const QString periode = arguments.valeur("periode", QStringLiteral("tous"));
    if (!QStringList{"tous", "periode_reference", "annee", "periode"}.contains(periode))
        return {MauvaisUsage, QStringLiteral("période inconnue : « %1 » (choix : tous, periode_reference, annee, "
                                             "periode)")
                                  .arg(periode)};
    if (!entre0Et2("effectue") || !entre0Et2("paye"))
        return {MauvaisUsage, QStringLiteral("--effectue et --paye valent 0, 1 ou 2")};
    if (arguments.contient("du") != arguments.contient("au"))
        return {MauvaisUsage, QStringLiteral("--du et --au vont ensemble")};
    arguments.date("du");
    arguments.date("au");
    if (arguments.enErreur())
        return {MauvaisUsage, arguments.erreur()};
    if (arguments.contient("emploi") && !Schema::emplois().contains(arguments.valeur("emploi")))
        return {MauvaisUsage, QStringLiteral("emploi inconnu : « %1 » (choix : %2)")
                                  .arg(arguments.valeur("emploi"), Schema::emplois().join(", "))};
    return {};
}

ErreurFiltre lireFiltreContrats(Arguments& arguments, Contrats& contrats, FiltreContrats& filtre)
{
    filtre = FiltreContrats();
    filtre.periode = arguments.valeur("periode", QStringLiteral("tous"));
    filtre.effectue = arguments.valeur("effectue", "0").toInt();
    filtre.paye = arguments.valeur("paye", "0").toInt();
    if (arguments.contient("type")) {
        filtre.filtreType = true;
        filtre.type = arguments.valeur("type");
        if (contrats.retrouveContratTypeId(filtre.type) == 0 &&
            contrats.retrouveTypeAutoEntrepreneurId(filtre.type) == 0)
            return {MauvaisUsage, QStringLiteral("type de contrat inconnu : « %1 »").arg(filtre.type)};
    }
    if (arguments.contient("employeur")) {
        filtre.filtreEmployeur = true;
        filtre.employeur = arguments.valeur("employeur");
        if (contrats.retrouveEmployeurId(filtre.employeur) == 0)
            return {ErreurUtilisateur, QStringLiteral("aucun employeur ne s'appelle « %1 ».").arg(filtre.employeur)};
    }
    if (arguments.contient("emploi")) {
        filtre.filtreEmploi = true;
        filtre.emploi = arguments.valeur("emploi");
    }
    // Without dates, the "periode" keyword takes the ones the screen remembers.
    const auto du = arguments.date("du");
    const auto au = arguments.date("au");
    filtre.du = du ? *du : contrats.datePeriodeDebut();
    filtre.au = au ? *au : contrats.datePeriodeFin();
    filtre.sens = arguments.valeur("sens");
    filtre.sensPrefere = Reglages::defaut(Reglages::Cle::ContratsSens).toString();
    return {};
}

std::unique_ptr<Commande> commandeContratLister()
{
    return std::make_unique<CommandeContratLister>();
}

} // namespace corvane::cli
