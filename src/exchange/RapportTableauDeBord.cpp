// The dashboard's report ("Activité dans la période de référence").

#include "exchange/RapportTableauDeBord.h"

#include "exchange/Rapport.h"
#include "exchange/RapportsEnregistrements.h"

#include "records/Profil.h"
#include "regimes/TableauDeBord.h"
#include "store/Dates.h"
#include "store/FormatFrancais.h"
#include "store/Horloge.h"

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

QString jour(const QDate& date)
{
    return date.toString(QStringLiteral("dd/MM/yyyy"));
}

// "1 jour", "3 jours"; "1,5 heure", "12 heures": French keeps the singular below two.
QString quantite(double valeur, const QString& singulier, const QString& pluriel)
{
    return QStringLiteral("%1 %2").arg(enNombre(valeur), std::abs(valeur) < 2 ? singulier : pluriel);
}

void compteRendu(Rapport& rapport, const Table& statistiques)
{
    rapport.section(QStringLiteral("Compte rendu"));
    const int periode = int(statistiques.size()) - 1; // the "Période" row
    const auto valeur = [&](const char* cle) { return statistiques.valeur(periode, QString::fromUtf8(cle)); };
    rapport.ligne(QStringLiteral("Jours"), enEntier(valeur("Jours").toLongLong()));
    rapport.ligne(QStringLiteral("Bruts"), Rapport::montant(valeur("Bruts").toDouble()));
    rapport.ligne(QStringLiteral("Nets"), Rapport::montant(valeur("Net imposable").toDouble()));
    rapport.ligne(QStringLiteral("Jours SS"), enEntier(valeur("Jours SS").toLongLong()));
    rapport.ligne(QStringLiteral("Jours suspendus"), enEntier(valeur("Jours suspendus").toLongLong()));
}

void jourJ(Rapport& rapport, const TableauDeBord_v4& tdb)
{
    rapport.section(QStringLiteral("Situation au %1").arg(jour(Horloge::aujourdhui())));
    rapport.paragraphe(tdb.heuresBarreLbl);
    rapport.paragraphe(tdb.dossierValidable);
    if (tdb.ouvertureDesDroits.isValid())
        rapport.paragraphe(tdb.libelleOuverture());
    if (tdb.finDesDroits.isValid())
        rapport.paragraphe(tdb.libelleFinDeDroits());
    for (const QString& texte : {tdb.joursAllocations, tdb.joursRestants})
        if (!texte.isEmpty())
            rapport.paragraphe(texte);
    if (!tdb.periodeReferenceLbl.isEmpty())
        rapport.paragraphe(QString(tdb.periodeReferenceLbl).replace(QLatin1Char('\n'), QLatin1Char(' ')));
    if (!tdb.allongementLbl.isEmpty())
        rapport.paragraphe(tdb.allongementLbl);
}

void activiteDetaillee(Rapport& rapport, const Table& liste, bool joursHeures)
{
    rapport.section(QStringLiteral("Activité détaillée sur la période"));
    if (liste.size() <= 1) {
        rapport.paragraphe(QStringLiteral("Aucune activité sur la période."));
        return;
    }
    const auto jours = [](const QVariant& v) {
        return quantite(v.toDouble(), QStringLiteral("jour"), QStringLiteral("jours"));
    };
    const auto heures = [](const QVariant& v) {
        return quantite(v.toDouble(), QStringLiteral("heure"), QStringLiteral("heures"));
    };
    QList<QStringList> lignes;
    lignes.reserve(liste.size());
    const int debut = liste.colonne(QStringLiteral("Date Debut"));
    const int fin = liste.colonne(QStringLiteral("Date Fin"));
    const int type = liste.colonne(QStringLiteral("Type"));
    const int note = liste.colonne(QStringLiteral("Note"));
    const int nombreJours = liste.colonne(QStringLiteral("Nombre Jours"));
    const int nombreHeures = liste.colonne(QStringLiteral("Nombre Heures"));
    for (qsizetype i = 0; i + 1 < liste.size(); ++i) {
        const QVariantList& r = liste.rangees.at(i);
        QStringList ligne{r.at(debut).toString(), r.at(fin).toString(), r.at(type).toString(),
                          r.at(note).toString().simplified()};
        if (joursHeures)
            ligne << jours(r.at(nombreJours)) << heures(r.at(nombreHeures));
        lignes << ligne;
    }
    QList<ColonneRapport> colonnes{
        ColonneRapport::texte(QStringLiteral("Début"), 13), ColonneRapport::texte(QStringLiteral("Fin"), 13),
        ColonneRapport::texte(QStringLiteral("Type"), 18), ColonneRapport::texte(QStringLiteral("Note"))};
    // Without the days and hours, the totals would have nothing to add up.
    QStringList totaux;
    if (joursHeures) {
        colonnes << ColonneRapport::montant(QStringLiteral("Jours"), 11)
                 << ColonneRapport::montant(QStringLiteral("Heures"), 13);
        const QVariantList& t = liste.rangees.last();
        totaux << QStringLiteral("Totaux") << QString() << QString() << QString() << jours(t.at(nombreJours))
               << heures(t.at(nombreHeures));
    }
    rapport.tableau(colonnes, lignes, totaux, Rapport::TailleTableauDense);
}

} // namespace

QString titreRapportTableauDeBord()
{
    return QStringLiteral("Activité dans la période de référence");
}

QString nomRapportTableauDeBord(const QDate& jour)
{
    return QStringLiteral("%1 %2 %3 %4")
        .arg(titreRapportTableauDeBord())
        .arg(jour.year())
        .arg(jour.month())
        .arg(jour.day());
}

std::pair<QDate, QDate> periodeDuTableauDeBord(TableauDeBord_v4& tableau)
{
    const QDate aujourdhui = Horloge::aujourdhui();
    const QDate ouverture = tableau.retrouveDateOuvertureDroitsUtilisateur().date();
    if (!tableau.bloquePeriode)
        return {ouverture, aujourdhui};
    // Nothing after today counts, locked or not.
    const QDate fin = tableau.retrouveDateFinDePeriodeEnCours();
    return {ouverture, fin.isValid() ? std::min(fin, aujourdhui) : aujourdhui};
}

bool composerRapportTableauDeBord(Rapport& rapport, const QString& document, const ChoixImpressions& choix,
                                  bool bloquePeriode, const QString& sens)
{
    TableauDeBord_v4 tdb(document);
    if (!tdb.estOuvert() || !tdb.db().tableExiste(QStringLiteral("contrats")) ||
        !tdb.db().tableExiste(QStringLiteral("securitesociale")))
        return false;
    tdb.bloquePeriode = bloquePeriode;
    const Table statistiques = tdb.statistiques();
    tdb.droits();
    tdb.periodeDeReference();
    const auto [du, au] = periodeDuTableauDeBord(tdb);

    rapport.nommer(nomRapportTableauDeBord(Horloge::aujourdhui()));
    Profil profil(tdb.db());
    if (profil.initDepuisLaTableV4())
        rapport.attribuer(nomDuTitulaire(profil.donnees()));
    rapport.titre(titreRapportTableauDeBord());
    rapport.separateur();
    if (du.isValid())
        rapport.paragraphe(QStringLiteral("Du %1 au %2").arg(jour(du), jour(au)));
    if (choix.compteRenduTdb && !statistiques.isEmpty())
        compteRendu(rapport, statistiques);
    if (choix.jourJTdb)
        jourJ(rapport, tdb);
    if (choix.listeTdb)
        activiteDetaillee(rapport, tdb.listeContrats(sens), choix.joursHeuresTdb);
    return true;
}

} // namespace corvane
