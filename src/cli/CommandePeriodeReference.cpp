// `periode-reference FICHIER`: the current reference period as the rights computations see it.

#include "cli/CommandeEnregistrements.h"
#include "cli/Commandes.h"

#include "records/Periodes.h"
#include "store/Dates.h"
#include "unemployment/ComptageHeures.h"

#include <QFileInfo>
#include <QJsonObject>

namespace corvane::cli {

namespace {

QJsonValue jourJson(const QDate& jour)
{
    return jour.isValid() ? QJsonValue(jour.toString(Qt::ISODate)) : QJsonValue(QJsonValue::Null);
}

QString jourTexte(const QDate& jour)
{
    return jour.isValid() ? Dates::versAffichage(jour) : QStringLiteral("aucune");
}

class CommandePeriodeReference : public Commande
{
public:
    QString nom() const override { return QStringLiteral("periode-reference"); }
    QString usage() const override { return QStringLiteral("periode-reference FICHIER"); }

    int executer(Contexte& contexte, const QStringList& liste) override
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {}, 1, &code))
            return code;
        const QString chemin = QFileInfo(arguments.positionnels().first()).absoluteFilePath();
        if (!CommandeEnregistrements::documentAccessible(contexte, chemin, &code))
            return code;

        ComptageHeures comptage(chemin);
        const QDate ouverture = comptage.retrouveDateOuvertureDroits().date();
        const QDate finAllongee = comptage.retrouveDateFinDePeriodeEnCours();
        const int allongement = comptage.allongementPeriodeDeReference;
        const QDate dernierJour = comptage.dernierJourDuDernierContrat();
        Periodes periodes(comptage.db());
        const std::optional<Periode> periode = periodes.periode(periodes.idPeriodeEnCours());
        const QDate debut = periode ? periode->debut : QDate();
        const QDate fin = periode ? periode->fin : QDate();

        if (contexte.json) {
            ecrireJson(contexte, {{"ouverture", jourJson(ouverture)},
                                  {"debut", jourJson(debut)},
                                  {"fin", jourJson(fin)},
                                  {"allongement", allongement},
                                  {"finAllongee", jourJson(finAllongee)},
                                  {"dernierJourDernierContrat", jourJson(dernierJour)}});
            return Succes;
        }
        contexte.sortie << "Ouverture des droits : " << jourTexte(ouverture) << '\n'
                        << "Période en cours : du " << jourTexte(debut) << " au " << jourTexte(fin) << '\n'
                        << "Allongement par les arrêts : " << allongement
                        << " jour(s), fin allongée : " << jourTexte(finAllongee) << '\n'
                        << "Dernier jour du dernier contrat effectué : " << jourTexte(dernierJour) << Qt::endl;
        return Succes;
    }
};

} // namespace

std::unique_ptr<Commande> commandePeriodeReference()
{
    return std::make_unique<CommandePeriodeReference>();
}

} // namespace corvane::cli
