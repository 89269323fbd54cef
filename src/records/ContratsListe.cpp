// The contract listing (filters, sort, rows, totals), the sickness overlap count and
// the day-number list rules.

#include "records/Contrats.h"

#include "records/LecteurContrats.h"
#include "store/Dates.h"

namespace corvane {

namespace {

QString u(int valeur)
{
    return QString::number(uint(valeur));
}

// A number read as the older program read one: leading blanks, a sign, then digits up
// to the first other character ("1a" is 1, "a1" is 0).
int valeurEntiere(const QString& texte)
{
    int i = 0;
    while (i < texte.size() && texte.at(i).isSpace())
        ++i;
    bool negatif = false;
    if (i < texte.size() && (texte.at(i) == QLatin1Char('-') || texte.at(i) == QLatin1Char('+'))) {
        negatif = texte.at(i) == QLatin1Char('-');
        ++i;
    }
    qint64 valeur = 0;
    while (i < texte.size() && texte.at(i).isDigit() && valeur < 1000000000) {
        valeur = valeur * 10 + texte.at(i).digitValue();
        ++i;
    }
    return int(negatif ? -valeur : valeur);
}

} // namespace

QString Contrats::ordreDeTri(const QString& sens, const QString& sensPrefere)
{
    // Inverted on purpose: "ASC" lists the latest contract first.
    if (sens == QStringLiteral("ASC"))
        return QStringLiteral(" ORDER BY c_debut_contrat DESC");
    if (sensPrefere == QStringLiteral("DESC"))
        return QStringLiteral(" ORDER BY c_debut_contrat ASC");
    return QStringLiteral(" ORDER BY c_debut_contrat DESC");
}

std::pair<QDate, QDate> Contrats::bornesDuFiltre(const FiltreContrats& filtre)
{
    if (filtre.periode == QStringLiteral("periode_reference"))
        return {retrouveDateOuvertureDroits().date(), retrouveDateFinDePeriodeEnCours()};
    if (filtre.periode == QStringLiteral("annee")) {
        // The same expressions as the listing's: SQLite's clock, and the next 1 January included.
        const Lignes l =
            m_db.lignes("SELECT date('now', 'start of year') AS du, date('now', 'start of year', '+1 year') AS au;");
        return {Dates::depuisSQLite(l.value(0).value("du").toString()),
                Dates::depuisSQLite(l.value(0).value("au").toString())};
    }
    if (filtre.periode == QStringLiteral("periode"))
        return {filtre.du, filtre.au};
    return {};
}

QString Contrats::construitClauseWhere(const FiltreContrats& filtre)
{
    static const QStringList enTete{QStringLiteral("((c_effectue=0) OR (c_effectue=1))"),
                                    QStringLiteral("(c_effectue=1)"), QStringLiteral("(c_effectue=0)")};
    static const QStringList ajoutEffectue{QString(), QStringLiteral(" AND (c_effectue=1)"),
                                           QStringLiteral(" AND (c_effectue=0)")};
    static const QStringList ajoutPaye{QString(), QStringLiteral(" AND (c_paye=1)"), QStringLiteral(" AND (c_paye=0)")};
    const int effectueFiltre = (filtre.effectue >= 0 && filtre.effectue <= 2) ? filtre.effectue : 0;
    const int payeFiltre = (filtre.paye >= 0 && filtre.paye <= 2) ? filtre.paye : 0;

    QString pieces = ajoutPaye.at(payeFiltre);
    if (filtre.filtreType) {
        int typeId = retrouveContratTypeId(filtre.type);
        if (typeId == 0)
            typeId = int(m_db.entier("SELECT ae_id FROM autoentrepreneurtypes WHERE ae_type = ?;", {filtre.type}));
        pieces += QStringLiteral(" AND (c_type=%1)").arg(u(typeId));
    }
    if (filtre.filtreEmployeur)
        pieces += QStringLiteral(" AND (c_employeur_id=%1)").arg(u(retrouveEmployeurId(filtre.employeur)));
    if (filtre.filtreEmploi)
        pieces += QStringLiteral(" AND (c_emploi_id = %1)").arg(u(retrouveEmploiId(filtre.emploi)));

    if (filtre.periode == QStringLiteral("periode_reference")) {
        const QDate ouverture = retrouveDateOuvertureDroits().date();
        const QDate fin = retrouveDateFinDePeriodeEnCours();
        return QStringLiteral("(c_debut_contrat BETWEEN '%1' AND '%2') ")
                   .arg(Dates::versSQLite(ouverture), Dates::versSQLite(fin)) +
               ajoutEffectue.at(effectueFiltre) + pieces;
    }
    if (filtre.periode == QStringLiteral("annee"))
        return QStringLiteral("(c_debut_contrat BETWEEN date('now', 'start of year') AND date('now', 'start of "
                              "year', '+1 year')) ") +
               ajoutEffectue.at(effectueFiltre) + pieces;
    if (filtre.periode == QStringLiteral("periode"))
        return QStringLiteral("(c_debut_contrat BETWEEN '%1' AND '%2') ")
                   .arg(Dates::versSQLite(filtre.du), Dates::versSQLite(filtre.au)) +
               ajoutEffectue.at(effectueFiltre) + pieces;
    return enTete.at(effectueFiltre) + pieces;
}

const QStringList& Contrats::clesListe(bool colonnesEcran)
{
    return LecteurContrats::clesListe(colonnesEcran);
}

Table Contrats::listeLesContrats(const FiltreContrats& filtre, bool colonnesEcran)
{
    return lireLaListe(*lisLesContrats(filtre, colonnesEcran));
}

std::unique_ptr<LectureListe> Contrats::lisLesContrats(const FiltreContrats& filtre, bool colonnesEcran)
{
    clauseWhere = construitClauseWhere(filtre);
    const QString tri = ordreDeTri(filtre.sens, filtre.sensPrefere);

    QString colonnes = QStringLiteral(
        "c_employeur_id, c_debut_contrat, c_fin_contrat, c_emploi_id, c_nbre_heures, c_nbre_jours, c_salaire_brut, "
        "c_salaire_net, e_raison_sociale, contrats.c_id, c_liste_dates, c_abattement, c_effectue, c_paye, c_note, "
        "c_type, c_fonction, c_conges");
    if (colonnesEcran)
        colonnes += QStringLiteral(", e_guso, c_annee_encaissement, c_lieu, liens.frais, c_aem_fp, c_pas");

    QMap<int, QString> emplois;
    {
        Requete r(m_db, QStringLiteral("SELECT e_id, e_emploi FROM emplois;"));
        while (r.suivante())
            emplois.insert(int(r.entier(0)), r.texte(1));
    }

    // The links are grouped once and joined: `contrats_frais` has no index, and a
    // lookup per contract would scan it once per row.
    const QString liens = colonnesEcran ? QStringLiteral(" LEFT JOIN (SELECT contrat_id, GROUP_CONCAT(frais_id) AS "
                                                         "frais FROM contrats_frais GROUP BY contrat_id) AS liens ON "
                                                         "liens.contrat_id = contrats.c_id")
                                        : QString();
    return std::make_unique<LecteurContrats>(
        *this,
        QStringLiteral("SELECT %1 FROM contrats JOIN employeurs ON c_employeur_id = employeurs.e_id%2 WHERE (%3)%4;")
            .arg(colonnes, liens, clauseWhere, tri),
        colonnesEcran, emplois, tri);
}

void Contrats::calculeLesTotaux(const QString& tri)
{
    QString groupees = QStringLiteral("SELECT COUNT(c_id) AS nombrePeriodesGroupees FROM contrats WHERE "
                                      "(((julianday(c_fin_contrat) - julianday(c_debut_contrat)) + 1) >= 5)");
    groupees += clauseWhere.isEmpty() ? QStringLiteral(";") : QStringLiteral(" AND %1;").arg(clauseWhere);
    // A zero count leaves the previous listing's count in place.
    if (const qint64 nombre = m_db.entier(groupees); nombre != 0)
        nombrePeriodesGroupees = uint(nombre);

    Requete r(m_db, QStringLiteral("SELECT SUM(c_nbre_heures) AS total_heures, SUM(c_nbre_jours) AS total_jours, "
                                   "SUM(c_salaire_brut) AS total_salaires_bruts, SUM(c_salaire_net) AS "
                                   "total_salaires_nets FROM contrats WHERE (%1)%2;")
                        .arg(clauseWhere, tri));
    totalHeures = 0;
    totalJours = 0;
    totalBruts = 0.0;
    totalNets = 0.0;
    if (r.suivante()) {
        totalHeures = uint(r.entier(0));
        totalJours = uint(r.entier(1));
        totalBruts = r.reel(2);
        totalNets = r.reel(3);
    }
}

int Contrats::nombreDeSuperpositionsAvecContratsDu(const QDate& debut, const QDate& fin)
{
    const QString d = Dates::versSQLite(debut);
    const QString f = Dates::versSQLite(fin);
    const QStringList comptes{
        QStringLiteral("SELECT COUNT(*) FROM securitesociale WHERE (ss_debut BETWEEN '%1' AND '%2') ORDER BY ss_debut "
                       "ASC;"),
        QStringLiteral("SELECT COUNT(*) FROM securitesociale WHERE (ss_debut BETWEEN '%1' AND '%2') AND (ss_fin "
                       "BETWEEN '%1' AND '%2') ORDER BY ss_debut ASC;"),
        QStringLiteral("SELECT COUNT(*) FROM securitesociale WHERE (ss_fin BETWEEN '%1' AND '%2') ORDER BY ss_debut "
                       "ASC;"),
        QStringLiteral("SELECT COUNT(*) FROM securitesociale WHERE (ss_debut <= '%1' AND ss_fin >= '%2') ORDER BY "
                       "ss_debut ASC;"),
    };
    int somme = 0;
    for (const QString& compte : comptes)
        somme += int(m_db.entier(compte.arg(d, f)));
    return somme;
}

QString Contrats::messageSuperpositions(int nombre)
{
    if (nombre == 1)
        return QStringLiteral("Ce contrat chevauche une période de Sécurité Sociale existante.");
    if (nombre > 1)
        return QStringLiteral("Ce contrat chevauche plusieurs périodes de Sécurité Sociale existantes.");
    return {};
}

bool Contrats::verifieCaracteresChaineDates(const QString& liste)
{
    // Only the last character's verdict is kept: an odd character earlier passes.
    bool verdict = true;
    for (const QChar c : liste)
        verdict = c.isDigit() || c == QLatin1Char(',');
    return verdict;
}

bool Contrats::verifieFormatChaineDates(const QString& liste, const QString& mode, const QDate& debut, const QDate& fin)
{
    if (liste.isEmpty())
        return true;
    if (liste.startsWith(QLatin1Char(',')) || liste.endsWith(QLatin1Char(',')) || liste.contains(QStringLiteral(",,")))
        return false;

    const QStringList elements = liste.split(QLatin1Char(','));
    QList<int> nombres;
    for (const QString& element : elements)
        nombres << valeurEntiere(element);

    // Every pair is compared, each item with itself included.
    int paires = 0;
    for (const int a : nombres)
        for (const int b : nombres)
            if (a == b)
                ++paires;
    if (paires > nombres.size())
        return false;

    if (mode != QStringLiteral("nouveau") || !debut.isValid() || !fin.isValid())
        return true;
    // Only the month numbers are compared: a contract across the new year is not checked.
    for (const int jour : nombres) {
        if (debut.month() == fin.month()) {
            if (jour < debut.day() || jour > fin.day())
                return false;
        } else if (debut.month() < fin.month()) {
            const bool dansLeMoisDeDebut = jour >= debut.day() && jour <= debut.daysInMonth();
            const bool dansLeMoisDeFin = jour >= 1 && jour <= fin.day();
            if (!dansLeMoisDeDebut && !dansLeMoisDeFin)
                return false;
        }
    }
    return true;
}

} // namespace corvane
