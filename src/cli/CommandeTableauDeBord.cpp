// `tableau-de-bord FICHIER [--bloque-periode] [--sens ASC|DESC]`: the dashboard's figures.

#include "cli/CommandeEnregistrements.h"
#include "cli/Commandes.h"

#include "regimes/TableauDeBord.h"
#include "store/FormatFrancais.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

namespace corvane::cli {

namespace {

QJsonValue jourJson(const QDate& jour)
{
    return jour.isValid() ? QJsonValue(jour.toString(Qt::ISODate)) : QJsonValue(QJsonValue::Null);
}

QJsonArray versJson(const Table& table)
{
    QJsonArray rangees;
    for (qsizetype i = 0; i < table.size(); ++i)
        rangees.append(QJsonObject::fromVariantMap(table.ligne(i)));
    return rangees;
}

class CommandeTableauDeBord : public Commande
{
public:
    QString nom() const override { return QStringLiteral("tableau-de-bord"); }
    QString usage() const override
    {
        return QStringLiteral("tableau-de-bord FICHIER [--bloque-periode] [--sens ASC|DESC]");
    }

    int executer(Contexte& contexte, const QStringList& liste) override
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"bloque-periode", false}, {"sens"}}, 1, &code))
            return code;
        const QString sens = arguments.valeur("sens", QStringLiteral("ASC"));
        if (sens != QStringLiteral("ASC") && sens != QStringLiteral("DESC"))
            return mauvaisUsage(contexte, QStringLiteral("--sens attend ASC ou DESC"));
        const QString chemin = QFileInfo(arguments.positionnels().first()).absoluteFilePath();
        if (!CommandeEnregistrements::documentAccessible(contexte, chemin, &code))
            return code;

        TableauDeBord_v4 tdb(chemin);
        tdb.bloquePeriode = arguments.contient("bloque-periode");
        const Table statistiques = tdb.statistiques();
        tdb.droits();
        tdb.periodeDeReference();
        const Table contrats = tdb.listeContrats(sens);

        if (contexte.json) {
            ecrireJson(contexte,
                       {{"statistiques", versJson(statistiques)},
                        {"jauge", QJsonObject{{"heures", tdb.heuresBarre},
                                              {"heuresRequises", tdb.heuresRequises},
                                              {"libelle", tdb.heuresBarreLbl},
                                              {"etat", tdb.dossierValidable}}},
                        {"droits", QJsonObject{{"ouverture", jourJson(tdb.ouvertureDesDroits)},
                                               {"fin", jourJson(tdb.finDesDroits)},
                                               {"restants", tdb.joursRestants},
                                               {"allocations", tdb.joursAllocations}}},
                        {"periodeReference",
                         QJsonObject{{"libelle", tdb.periodeReferenceLbl},
                                     {"allongement", tdb.allongementLbl.isEmpty() ? QJsonValue(QJsonValue::Null)
                                                                                  : QJsonValue(tdb.allongementLbl)}}},
                        {"contrats", versJson(contrats)}});
            return Succes;
        }
        for (qsizetype i = 0; i < statistiques.size(); ++i) {
            const Ligne l = statistiques.ligne(i);
            contexte.sortie << l.value("Libellé").toString() << " : " << l.value("Jours").toInt() << " jour(s), "
                            << enNombre(l.value("Heures").toDouble()) << " heure(s), bruts "
                            << enEuros(l.value("Bruts").toDouble()) << ", net imposable "
                            << enEuros(l.value("Net imposable").toDouble()) << ", net "
                            << enEuros(l.value("Net").toDouble()) << ", Pôle Emploi "
                            << enEuros(l.value("Pôle Emploi").toDouble()) << ", jours SS "
                            << l.value("Jours SS").toInt() << ", jours suspendus "
                            << l.value("Jours suspendus").toInt() << '\n';
        }
        contexte.sortie << tdb.heuresBarreLbl << " — " << tdb.dossierValidable << '\n'
                        << tdb.libelleOuverture() << " — " << tdb.libelleFinDeDroits() << '\n';
        if (!tdb.joursRestants.isEmpty())
            contexte.sortie << tdb.joursRestants << ", ";
        contexte.sortie << tdb.joursAllocations << '\n'
                        << QString(tdb.periodeReferenceLbl).replace(QLatin1Char('\n'), QLatin1Char(' ')) << '\n';
        if (!tdb.allongementLbl.isEmpty())
            contexte.sortie << tdb.allongementLbl << '\n';
        for (qsizetype i = 0; i < contrats.size(); ++i) {
            const Ligne l = contrats.ligne(i);
            contexte.sortie << l.value("Date Debut").toString() << '\t' << l.value("Date Fin").toString() << '\t'
                            << l.value("Type").toString() << '\t' << l.value("Note").toString() << '\t'
                            << l.value("Nombre Jours").toInt() << " j\t" << enNombre(l.value("Nombre Heures").toDouble())
                            << " h\t" << enEuros(l.value("Net").toDouble()) << '\n';
        }
        contexte.sortie.flush();
        return Succes;
    }
};

} // namespace

std::unique_ptr<Commande> commandeTableauDeBord()
{
    return std::make_unique<CommandeTableauDeBord>();
}

} // namespace corvane::cli
