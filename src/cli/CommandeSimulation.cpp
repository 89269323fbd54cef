// `simulation FICHIER --du D --au D [--contrats C] [--ij]`: the rights simulation of the
// unemployment screen over a range.

#include "cli/CommandeEnregistrements.h"
#include "cli/Commandes.h"

#include "store/Dates.h"
#include "store/FormatFrancais.h"
#include "unemployment/Simulation.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

namespace corvane::cli {

namespace {

QJsonValue montant(double valeur)
{
    return PoleEmploi::arrondi(valeur);
}

QJsonObject versJson(Simulation& s)
{
    static const QStringList cles{"protocole",     "dernierJourDernierContrat",
                                  "heuresRequises", "heures",
                                  "jours",         "salairesBruts",
                                  "salairesBrutsAbattus", "salaireRetenu",
                                  "sjr",           "aj",
                                  "retraiteComplementaire", "csgCrds",
                                  "alsaceMoselle", "ajNette",
                                  "franchiseCongesPayes", "franchiseParMois",
                                  "differe",       "rapport",
                                  "allocations",   "periode"};
    QJsonObject objet{{"simulee", s.simulee}};
    for (const QString& cle : cles)
        objet.insert(cle, QJsonValue::Null);
    if (!s.simulee)
        return objet;

    objet["protocole"] = s.protocoleAccord;
    objet["dernierJourDernierContrat"] = s.dernierJourDernierContrat.toString(Qt::ISODate);
    objet["heuresRequises"] = s.PRA_Palier;
    objet["heures"] = s.nbreHeures;
    objet["jours"] = s.nbreJours;
    objet["salairesBruts"] = montant(s.salaireBrutDossierTotal);
    objet["salairesBrutsAbattus"] = montant(s.salaireBrutAbattuDossierTotal);
    objet["salaireRetenu"] = montant(s.salairesRetenus);
    // The 2016 computation's own figures, only when it ran for an annex.
    if (s.protocoleAccord == Protocoles::aout2016 && annexePourProfession(s.annexe)) {
        objet["sjr"] = montant(s.SJR_2016);
        objet["aj"] = montant(s.AJ_2016);
        objet["retraiteComplementaire"] = montant(s.retRetraiteComp_08_2016);
        objet["csgCrds"] = montant(s.retCsgRds_2016);
        objet["alsaceMoselle"] = montant(s.supAlsaceMoselle_08_2016);
        objet["ajNette"] = montant(s.AJ_2016_Net);
        objet["franchiseCongesPayes"] = s.franchiseCongesPayes;
        objet["franchiseParMois"] = s.franchiseCongesPayesParMois;
        objet["differe"] = int(s.differeIndemnisation);
    }
    objet["rapport"] = texteDuCompteRendu(s.compteRendu);
    QJsonArray allocations;
    for (const LigneAllocation& ligne : s.tableauAllocations)
        allocations.append(QJsonObject{{"Libellé", ligne.libelle}, {"Montant", montant(ligne.montant)}});
    objet["allocations"] = allocations;
    QJsonArray periode;
    for (const LignePeriode& ligne : s.affichePeriode())
        periode.append(QJsonObject{{"Libellé", ligne.libelle}, {"Valeur", ligne.valeur}});
    objet["periode"] = periode;
    return objet;
}

class CommandeSimulation : public Commande
{
public:
    QString nom() const override { return QStringLiteral("simulation"); }
    QString usage() const override
    {
        return QStringLiteral("simulation FICHIER --du AAAA-MM-JJ --au AAAA-MM-JJ [--contrats tous|effectues|planifies] "
                              "[--ij]");
    }

    int executer(Contexte& contexte, const QStringList& liste) override
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"du"}, {"au"}, {"contrats"}, {"ij", false}}, 1, &code))
            return code;
        const auto plage = lirePlageDeDroits(contexte, arguments, &code);
        if (!plage)
            return code;
        const QString chemin = QFileInfo(arguments.positionnels().first()).absoluteFilePath();
        if (!CommandeEnregistrements::documentAccessible(contexte, chemin, &code))
            return code;

        Simulation simulation(chemin, plage->du, plage->au);
        simulation.setTriDesContrats(plage->conditionDesContrats);
        simulation.setSecuriteSociale(arguments.contient("ij"));
        simulation.lance();

        if (contexte.json) {
            ecrireJson(contexte, versJson(simulation));
            return Succes;
        }
        if (!simulation.simulee) {
            contexte.sortie << "Aucune simulation : aucun contrat pris en compte ne s'achève après le 31/03/2007 "
                               "dans cette période."
                            << Qt::endl;
            return Succes;
        }
        contexte.sortie << "Protocole " << simulation.protocoleAccord << ", heures " << simulation.nbreHeures
                        << " sur " << simulation.PRA_Palier << " requises\n\n"
                        << texteDuCompteRendu(simulation.compteRendu) << "\n";
        if (!simulation.tableauAllocations.isEmpty()) {
            contexte.sortie << '\n';
            for (const LigneAllocation& ligne : simulation.tableauAllocations)
                contexte.sortie << ligne.libelle << " : " << enEuros(ligne.montant) << '\n';
        }
        contexte.sortie << '\n';
        for (const LignePeriode& ligne : simulation.affichePeriode())
            contexte.sortie << ligne.libelle << " : " << ligne.valeur << '\n';
        contexte.sortie.flush();
        return Succes;
    }
};

} // namespace

std::unique_ptr<Commande> commandeSimulation()
{
    return std::make_unique<CommandeSimulation>();
}

} // namespace corvane::cli
