#include "store/Rappels.h"

#include "store/Horloge.h"
#include "store/Intermittent.h"
#include "store/Sauvegardes.h"

namespace corvane {

bool Rappels::fenetreActualisation(int jourDuMois, int debut, int fin)
{
    return jourDuMois >= debut || jourDuMois <= fin;
}

bool Rappels::moisDeDeclaration(const QDate& jour)
{
    return jour.month() == 4;
}

bool Rappels::sauvegardeDue(const QDate& derniere, const QDate& aujourdhui, int jours)
{
    return !derniere.isValid() || derniere.daysTo(aujourdhui) >= jours;
}

QString Rappels::delaiImpayes(int taux)
{
    switch (taux) {
    case 1:
        return QStringLiteral("+15 days");
    case 2:
        return QStringLiteral("+1 month");
    case 3:
        return QStringLiteral("+2 month");
    default:
        return QStringLiteral("+7 days");
    }
}

bool Rappels::contratsImpayesApresDelai(const QString& chemin, int taux)
{
    Intermittent document(chemin);
    Requete r(document.db(), QStringLiteral("SELECT c_fin_contrat, date(c_fin_contrat, '%1') AS dateButoir, COUNT(*) "
                                            "FROM contrats WHERE c_paye = 0 AND date('now') >= dateButoir;")
                                 .arg(delaiImpayes(taux)));
    return r.suivante() && r.entier(2) >= 1;
}

Rappels Rappels::calculer(const QString& chemin, const Reglages& reglages)
{
    Rappels rappels;
    if (chemin.isEmpty() || !reglages.booleen(Reglages::Cle::ActiverAlertes))
        return rappels;
    const QDate aujourdhui = Horloge::aujourdhui();
    rappels.actualisation =
        fenetreActualisation(aujourdhui.day(), reglages.entier(Reglages::Cle::AlerteActualisationDebut),
                             reglages.entier(Reglages::Cle::AlerteActualisationFin));
    rappels.declarationImpots = moisDeDeclaration(aujourdhui);
    rappels.sauvegarde = sauvegardeDue(Sauvegardes::dateDerniereSauvegarde(chemin), aujourdhui,
                                       reglages.entier(Reglages::Cle::FichierSauvegardeJours));
    rappels.contratsImpayes = contratsImpayesApresDelai(chemin, reglages.entier(Reglages::Cle::ContractsAlertRate));
    return rappels;
}

} // namespace corvane
