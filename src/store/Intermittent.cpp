#include "store/Intermittent.h"

#include "store/Dates.h"

#include <QDir>
#include <QRegularExpression>
#include <QStandardPaths>

namespace corvane {

Intermittent::Intermittent(const QString& chemin)
{
    if (!chemin.isEmpty())
        ouvreLeFichier(chemin);
}

Intermittent::Intermittent(BaseDeDonnees& connexion)
    : m_db(BaseDeDonnees::emprunter(connexion)), m_cheminDuFichier(connexion.chemin())
{
}

bool Intermittent::ouvreLeFichier(const QString& chemin)
{
    m_cheminDuFichier = chemin;
    return m_db.ouvrir(chemin);
}

bool Intermittent::ouvreLeFichierTemporaire(const QString& chemin)
{
    m_cheminDuFichierTemporaire = chemin;
    return m_dbTemporaire.ouvrir(chemin);
}

void Intermittent::closeConnection()
{
    m_db.fermer();
}

const QStringList& Intermittent::mois()
{
    static const QStringList liste{"janvier", "février", "mars",      "avril",   "mai",      "juin",
                                   "juillet", "aout",    "septembre", "octobre", "novembre", "décembre"};
    return liste;
}

const QStringList& Intermittent::moisEnMinuscules()
{
    return mois();
}

const QStringList& Intermittent::moisEnMajuscules()
{
    static const QStringList liste{"JANVIER", "FEVRIER", "MARS",      "AVRIL",   "MAI",      "JUIN",
                                   "JUILLET", "AOUT",    "SEPTEMBRE", "OCTOBRE", "NOVEMBRE", "DECEMBRE"};
    return liste;
}

const QStringList& Intermittent::professions()
{
    static const QStringList liste{"Artiste", "Ouvrier", "Technicien", "Régime Général"};
    return liste;
}

const QStringList& Intermittent::sexes()
{
    static const QStringList liste{"Mme", "Mlle", "Mr"};
    return liste;
}

const QStringList& Intermittent::abattements()
{
    static const QStringList liste{"0", "20", "25"};
    return liste;
}

const QStringList& Intermittent::securiteSocialePrestations()
{
    static const QStringList liste{"Accident du travail", "Maladie", "Maternité", "Paternité"};
    return liste;
}

QString Intermittent::dossierTravailParDefaut()
{
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) + QStringLiteral("/Orvia");
}

QString Intermittent::fichierTravailParDefaut()
{
    return QStringLiteral("%1/Orvia/Orvia.%2")
        .arg(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation), QStringLiteral("cv4"));
}

QString Intermittent::ancienFichierTravailParDefaut()
{
    return QDir::homePath() + QStringLiteral("/orvia.orv");
}

// --- Lookups ------------------------------------------------------------------------
// Free text is always bound; ids are formatted as the unsigned numbers they are.

int Intermittent::retrouveEmploiId(const QString& emploi)
{
    return int(m_db.entier("SELECT e_id FROM emplois WHERE e_emploi=?;", {emploi}));
}

QString Intermittent::retrouveEmploiDepuisId(int id)
{
    return m_db.texte("SELECT e_emploi FROM emplois WHERE e_id=?;", {id});
}

QString Intermittent::retrouveEmploiUtilisateur()
{
    return m_db.texte("SELECT e_emploi AS emploi FROM emplois JOIN utilisateur ON u_emploi_id=e_id WHERE u_id=1;");
}

int Intermittent::retrouveCiviliteId(const QString& civilite)
{
    return int(m_db.entier("SELECT c_id FROM civilites WHERE c_civilite_courte=?;", {civilite}));
}

QString Intermittent::retrouveCiviliteDepuisId(int id)
{
    return m_db.texte(QStringLiteral("SELECT c_civilite_courte FROM civilites WHERE c_id='%1';").arg(uint(id)));
}

int Intermittent::retrouveAbattementId(const QString& pourcentage)
{
    return int(m_db.entier("SELECT a_id FROM abattements WHERE a_pourcentage=?;", {pourcentage}));
}

QString Intermittent::retrouveAbattementDepuisId(int id)
{
    return QString::number(
        m_db.entier(QStringLiteral("SELECT a_pourcentage FROM abattements WHERE a_id=%1;").arg(uint(id))));
}

int Intermittent::retrouveAbattementIdUtilisateur()
{
    return int(m_db.entier("SELECT u_abattement AS abattement_id FROM utilisateur WHERE utilisateur.u_id=1;"));
}

int Intermittent::retrouveContratTypeId(const QString& type)
{
    return int(m_db.entier("SELECT ct_id FROM contratstypes WHERE ct_type=?;", {type}));
}

QString Intermittent::retrouveContratTypeDepuisId(int id)
{
    return m_db.texte(QStringLiteral("SELECT ct_type FROM contratstypes WHERE ct_id=%1;").arg(uint(id)));
}

QString Intermittent::retrouveContratTypeAEDepuisId(int id)
{
    return m_db.texte(QStringLiteral("SELECT ae_type FROM autoentrepreneurtypes WHERE ae_id = %1;").arg(uint(id)));
}

int Intermittent::retrouveEmployeurId(const QString& raisonSociale)
{
    return int(m_db.entier("SELECT e_id FROM employeurs WHERE e_raison_sociale=?;", {raisonSociale}));
}

QString Intermittent::retrouveEmployeurDepuisId(int id)
{
    return m_db.texte(QStringLiteral("SELECT e_raison_sociale FROM employeurs WHERE e_id='%1';").arg(uint(id)));
}

int Intermittent::retrouveFraisTypeIdDepuisType(const QString& type)
{
    return int(m_db.entier("SELECT ft_id FROM fraistypes WHERE ft_type=?;", {type}));
}

QString Intermittent::retrouveFraisTypeDepuisId(int id)
{
    return m_db.texte(QStringLiteral("SELECT ft_type FROM fraistypes WHERE ft_id='%1';").arg(uint(id)));
}

int Intermittent::retrouveSecuriteSocialeTypeId(const QString& type)
{
    return int(m_db.entier("SELECT sst_id FROM securitesocialetypes WHERE sst_type=?;", {type}));
}

QString Intermittent::retrouveSecuriteSocialeTypeDepuisId(int id)
{
    return m_db.texte(QStringLiteral("SELECT sst_type FROM securitesocialetypes WHERE sst_id='%1';").arg(uint(id)));
}

int Intermittent::retrouvePeriodeId(const QString& libelle)
{
    return int(m_db.entier("SELECT p_id FROM periodes WHERE p_libelle=?;", {libelle}));
}

int Intermittent::retrouveIdPeriodeEnCours()
{
    return int(m_db.entier("SELECT u_periode_en_cours FROM utilisateur WHERE u_id=1;"));
}

int Intermittent::retrouveIdPeriodeLaPlusRecente()
{
    const QString dateMaxi = m_db.texte("SELECT MAX(p_date_fin) AS dateMaxi FROM periodes;");
    return int(m_db.entier("SELECT p_id AS id FROM periodes WHERE p_date_fin = ?;", {dateMaxi}));
}

QDateTime Intermittent::retrouveDateOuvertureDroits()
{
    return Dates::lectureAvecDecalage(m_db.texte("SELECT u_date_debut_dossier FROM utilisateur WHERE u_id=1;"));
}

QDateTime Intermittent::retrouveDateOuvertureDroitsUtilisateur()
{
    return Dates::lectureAvecDecalage(m_db.texte("SELECT p_date_debut FROM periodes JOIN utilisateur ON "
                                                 "u_periode_en_cours = p_id WHERE utilisateur.u_id=1;"));
}

int Intermittent::allongementPRA()
{
    const QDate debut = Dates::depuisSQLite(m_db.texte(
        "SELECT p_date_debut FROM periodes JOIN utilisateur ON u_periode_en_cours = p_id WHERE utilisateur.u_id=1;"));
    const QDate fin = Dates::depuisSQLite(m_db.texte(
        "SELECT p_date_fin FROM periodes JOIN utilisateur ON u_periode_en_cours = p_id WHERE utilisateur.u_id=1;"));
    // The count starts at the opening of rights, the sum at the period's start: the two
    // bounds differ on purpose.
    const QDate ouverture = retrouveDateOuvertureDroitsUtilisateur().date();
    const qint64 nombre =
        m_db.entier(QStringLiteral("SELECT COUNT(*) AS nombreSS FROM securitesociale WHERE (ss_debut BETWEEN "
                                   "'%1' AND '%2');")
                        .arg(Dates::versSQLite(ouverture), Dates::versSQLite(fin)));
    if (nombre < 1)
        return 0;
    return int(m_db.entier(QStringLiteral("SELECT SUM(ss_incidence_periode) AS incidencePeriode FROM "
                                          "securitesociale WHERE (ss_debut BETWEEN '%1' AND '%2');")
                               .arg(Dates::versSQLite(debut), Dates::versSQLite(fin))));
}

QDate Intermittent::retrouveDateFinDePeriodeEnCours()
{
    allongementPeriodeDeReference = allongementPRA();
    const QDate fin = Dates::depuisSQLite(m_db.texte(
        "SELECT p_date_fin FROM periodes JOIN utilisateur ON u_periode_en_cours = p_id WHERE utilisateur.u_id=1;"));
    if (allongementPeriodeDeReference < 1 || !fin.isValid())
        return fin;
    return fin.addDays(allongementPeriodeDeReference);
}

double Intermittent::retrouveTauxValideUtilisateur()
{
    return m_db.reel("SELECT u_taux_valide AS taux_valide FROM utilisateur WHERE utilisateur.u_id=1;");
}

QDate Intermittent::retrouveDateNaissanceUtilisateur()
{
    return Dates::depuisSQLite(m_db.texte("SELECT u_naissance FROM utilisateur WHERE u_id=1;"));
}

QString Intermittent::retrouveNomUtilisateur()
{
    return m_db.texte("SELECT u_nom FROM utilisateur WHERE u_id=1;");
}

QString Intermittent::findDvOrganismFromId(int id)
{
    return m_db.texte(QStringLiteral("SELECT dvo_nom FROM droitsvoisinsorganismes WHERE dvo_id = %1;").arg(uint(id)));
}

int Intermittent::findDvOrganismId(const QString& nom)
{
    return int(m_db.entier("SELECT dvo_id FROM droitsvoisinsorganismes WHERE dvo_nom = ?;", {nom}));
}

QString Intermittent::findDvCategoryFromId(int id)
{
    return m_db.texte(QStringLiteral("SELECT dvt_type FROM droitsvoisinstypes WHERE dvt_id = %1;").arg(uint(id)));
}

int Intermittent::findDvCategoryId(const QString& type)
{
    return int(m_db.entier("SELECT dvt_id FROM droitsvoisinstypes WHERE dvt_type = ?;", {type}));
}

QString Intermittent::findQualificationFromId(int id)
{
    return m_db.texte(QStringLiteral("SELECT q_libelle FROM qualites WHERE q_id = %1;").arg(uint(id)));
}

int Intermittent::findQualificationId(const QString& libelle)
{
    return int(m_db.entier("SELECT q_id FROM qualites WHERE q_libelle = ?", {libelle}));
}

int Intermittent::findGroupId(const QString& libelle)
{
    return int(m_db.entier("SELECT p_id FROM prestations WHERE p_libelle = ?;", {libelle}));
}

int Intermittent::findPerformanceId(const QString& libelle)
{
    return int(m_db.entier("SELECT pt_id AS idType FROM prestationstypes WHERE pt_libelle = ?", {libelle}));
}

double Intermittent::findDiscountAmountFromId(int id)
{
    return m_db.reel(QStringLiteral("SELECT r_montant FROM remises WHERE r_id = %1;").arg(uint(id)));
}

QString Intermittent::findDiscountTypeFromId(int id)
{
    const qint64 type = m_db.entier(QStringLiteral("SELECT r_type FROM remises WHERE r_id = %1;").arg(uint(id)));
    return type == 1 ? QStringLiteral("€") : QStringLiteral("%");
}

int Intermittent::findPropositionStatus(const QString& libelle)
{
    return int(m_db.entier("SELECT pl_statut FROM propositionslibelles WHERE pl_libelle = ?;", {libelle}));
}

int Intermittent::findPropositionLabelId(const QString& libelle)
{
    return int(m_db.entier("SELECT pl_id FROM propositionslibelles WHERE pl_libelle = ?;", {libelle}));
}

int Intermittent::findDelayIdFromNumber(int nombre, const QString& unite)
{
    const int type = unite == QStringLiteral("mois") ? 1 : 0;
    return int(m_db.entier("SELECT d_id FROM delais WHERE d_nombre = ? AND d_type = ?;", {nombre, type}));
}

bool Intermittent::isFileLocked()
{
    return m_db.entier("SELECT f_locked FROM file WHERE f_id = 1;") == 1;
}

int Intermittent::compteLesEnregistrements(const QString& table)
{
    // A table name cannot be bound; only plain identifiers are accepted.
    static const QRegularExpression identifiant(QStringLiteral("^[A-Za-z_][A-Za-z0-9_]*$"));
    if (!identifiant.match(table).hasMatch())
        return 0;
    return int(m_db.entier(QStringLiteral("SELECT COUNT(*) FROM %1;").arg(table)));
}

void Intermittent::enregistreDatePreferee(int id, const QDate& date)
{
    m_db.executer(QStringLiteral("UPDATE datesPeriodesPreferees SET dpp_date='%1' WHERE dpp_id=%2;")
                      .arg(Dates::versSQLite(date))
                      .arg(uint(id)));
}

QDateTime Intermittent::retrouveDatePreferee(int id)
{
    return Dates::lectureAvecDecalage(
        m_db.texte(QStringLiteral("SELECT dpp_date FROM datesPeriodesPreferees WHERE dpp_id=%1;").arg(uint(id))));
}

void Intermittent::enregistreDatePreferee(const QString& element, const QDate& date)
{
    m_db.executer("UPDATE datesPeriodesPreferees SET dpp_date=? WHERE dpp_element = ?;",
                  {Dates::versSQLite(date), element});
}

QDateTime Intermittent::retrouveDatePreferee(const QString& element)
{
    return Dates::lectureAvecDecalage(
        m_db.texte("SELECT dpp_date FROM datesPeriodesPreferees WHERE dpp_element = ?;", {element}));
}

QStringList Intermittent::rempliPopup(const QString& table)
{
    if (table == QStringLiteral("employeurs"))
        return m_db.colonne("SELECT e_raison_sociale FROM employeurs ORDER BY e_raison_sociale ASC;");
    if (table == QStringLiteral("fraistypes"))
        return m_db.colonne("SELECT ft_type FROM fraistypes ORDER BY fraistypes ASC;");
    return {};
}

namespace {

Intermittent::Choix choixDepuis(BaseDeDonnees& base, const QString& sql)
{
    Intermittent::Choix choix;
    Requete r(base, sql);
    while (r.suivante())
        choix.append({int(r.entier(0)), r.texte(1)});
    return choix;
}

} // namespace

Intermittent::Choix Intermittent::choixEmployeurs()
{
    return choixDepuis(m_db, QStringLiteral("SELECT e_id, e_raison_sociale FROM employeurs ORDER BY e_raison_sociale "
                                            "ASC;"));
}

Intermittent::Choix Intermittent::choixEmplois()
{
    return choixDepuis(m_db, QStringLiteral("SELECT e_id, e_emploi FROM emplois ORDER BY e_id ASC;"));
}

Intermittent::Choix Intermittent::choixAbattements()
{
    return choixDepuis(m_db, QStringLiteral("SELECT a_id, a_pourcentage FROM abattements ORDER BY a_pourcentage ASC;"));
}

Intermittent::Choix Intermittent::choixTypesDeFrais()
{
    return choixDepuis(m_db, QStringLiteral("SELECT ft_id, ft_type FROM fraistypes ORDER BY ft_type ASC;"));
}

QMap<int, QString> Intermittent::libellesDesTypesDeContrat()
{
    QMap<int, QString> libelles;
    for (const auto& [id, libelle] : choixDepuis(m_db, QStringLiteral("SELECT ct_id, ct_type FROM contratstypes UNION "
                                                                      "SELECT ae_id, ae_type FROM "
                                                                      "autoentrepreneurtypes;")))
        libelles.insert(id, libelle);
    return libelles;
}

QStringList Intermittent::typesAutoEntrepreneur(bool parLibelle)
{
    return m_db.colonne(parLibelle ? QStringLiteral("SELECT ae_type FROM autoentrepreneurtypes ORDER BY ae_type ASC;")
                                   : QStringLiteral("SELECT ae_type FROM autoentrepreneurtypes ORDER BY ae_id ASC;"));
}

int Intermittent::retrouveTypeAutoEntrepreneurId(const QString& type)
{
    return int(m_db.entier(QStringLiteral("SELECT ae_id FROM autoentrepreneurtypes WHERE ae_type = ?;"), {type}));
}

QStringList Intermittent::tousLesEmplois()
{
    return m_db.colonne("SELECT e_emploi FROM emplois;");
}

QStringList Intermittent::tousLesAbattements()
{
    return m_db.colonne("SELECT a_pourcentage FROM abattements;");
}

QStringList Intermittent::tousLesTypes()
{
    return m_db.colonne("SELECT ct_type FROM contratstypes;");
}

QStringList Intermittent::rempliListeAbattements()
{
    return m_db.colonne("SELECT a_pourcentage FROM abattements ORDER BY a_pourcentage ASC;");
}

QStringList Intermittent::rempliListeDelais()
{
    QStringList liste;
    Requete r(m_db, "SELECT d_nombre, d_type FROM delais ORDER BY d_type ASC, d_nombre ASC;");
    while (r.suivante())
        liste << QStringLiteral("%1 %2").arg(r.texte(0),
                                             r.entier(1) == 1 ? QStringLiteral("mois") : QStringLiteral("jours"));
    return liste;
}

QStringList Intermittent::fillPerformancesGroups()
{
    return m_db.colonne("SELECT p_libelle FROM prestations ORDER BY p_libelle ASC;");
}

} // namespace corvane
