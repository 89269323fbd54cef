#include "records/DroitsVoisins.h"

#include "store/Dates.h"
#include "store/SaisieFrancaise.h"

#include <sqlite3.h>

#include <cmath>

namespace corvane {

namespace {

Intermittent::Choix choix(BaseDeDonnees& base, const QString& sql)
{
    Intermittent::Choix liste;
    Requete r(base, sql);
    while (r.suivante())
        liste.append({int(r.entier(0)), r.texte(1)});
    return liste;
}

// The key of the label, exact first, then differing in case only (in any script: SQLite's
// LOWER() folds ASCII alone, and "Comédien" must meet "COMÉDIEN").
int idDepuisLibelle(const Intermittent::Choix& liste, const QString& libelle)
{
    for (const auto& [id, texte] : liste)
        if (texte == libelle)
            return id;
    for (const auto& [id, texte] : liste)
        if (texte.compare(libelle, Qt::CaseInsensitive) == 0)
            return id;
    return 0;
}

// Euros to the cent, half away from zero: a sum of cents shows no binary fraction.
double auCentime(double montant)
{
    return std::round(montant * 100.0) / 100.0;
}

} // namespace

const QStringList& DroitsVoisins::clesListe()
{
    static const QStringList cles{"Id", "Date", "Date SQLite", "Organism", "Amount", "Category", "Details"};
    return cles;
}

const QStringList& DroitsVoisins::clesTotaux()
{
    static const QStringList cles{"Name", "Amount"};
    return cles;
}

QString DroitsVoisins::titreAlertes()
{
    return QStringLiteral("Gestion des Droits voisins");
}

QString DroitsVoisins::titreCategories()
{
    return QStringLiteral("Gestion des catégories de droits voisins");
}

QString DroitsVoisins::titreDoublon()
{
    return QStringLiteral("Droits voisins");
}

QString DroitsVoisins::messageCategorieExistante()
{
    return QStringLiteral("Cette catégorie existe déjà...");
}

QString DroitsVoisins::messageNomVide()
{
    return QStringLiteral("Veuillez saisir un nom pour la nouvelle catégorie.");
}

QString DroitsVoisins::messageNomVideRenommage()
{
    return QStringLiteral("Veuillez saisir un nom pour la catégorie.");
}

QString DroitsVoisins::titreVerification()
{
    return QStringLiteral("Vérification des données...");
}

QString DroitsVoisins::questionDroitsAttribues(const QString& categorie)
{
    return QStringLiteral("Des droits sont attribués à la catégorie : %1.\n\nSouhaitez-vous tout supprimer, ou ne "
                          "rien faire ?")
        .arg(categorie);
}

QString DroitsVoisins::boutonToutSupprimer()
{
    return QStringLiteral("Tout supprimer");
}

QString DroitsVoisins::boutonNeRienFaire()
{
    return QStringLiteral("Ne rien faire");
}

// --- Bodies and categories --------------------------------------------------------------------

Intermittent::Choix DroitsVoisins::organismes()
{
    return choix(m_db, QStringLiteral("SELECT dvo_id, dvo_nom FROM droitsvoisinsorganismes ORDER BY dvo_nom ASC;"));
}

Intermittent::Choix DroitsVoisins::categories()
{
    return choix(m_db, QStringLiteral("SELECT dvt_id, dvt_type FROM droitsvoisinstypes ORDER BY dvt_id ASC;"));
}

int DroitsVoisins::retrouveOrganismeId(const QString& nom)
{
    return idDepuisLibelle(organismes(), nom);
}

int DroitsVoisins::retrouveCategorieId(const QString& type)
{
    return idDepuisLibelle(categories(), type);
}

// --- Payments ---------------------------------------------------------------------------------

QString DroitsVoisins::refusValeurs(const DroitVoisin& d)
{
    if (const QString r = SaisieFrancaise::refusDate(d.date); !r.isEmpty())
        return QStringLiteral("Date : %1.").arg(r);
    if (const QString r = SaisieFrancaise::refusNombre(d.montant, Limites::kMontant); !r.isEmpty())
        return QStringLiteral("Montant : %1.").arg(r);
    if (findDvOrganismFromId(d.organismeId).isEmpty())
        return QStringLiteral("Veuillez choisir un organisme.");
    if (!categorieExiste(d.categorieId))
        return QStringLiteral("Veuillez choisir une catégorie.");
    return {};
}

bool DroitsVoisins::droitVoisinExiste(int id)
{
    return m_db.entier(QStringLiteral("SELECT COUNT(*) FROM droitsvoisins WHERE dv_id = ?;"), {id}) > 0;
}

std::optional<DroitVoisin> DroitsVoisins::droitVoisin(int id)
{
    Requete r(m_db, QStringLiteral("SELECT dv_categorie, dv_details, dv_montant, dv_date, dv_organisme_id FROM "
                                   "droitsvoisins WHERE dv_id = ?;"));
    r.lier(1, id);
    if (!r.suivante())
        return std::nullopt;
    return DroitVoisin{Dates::depuisSQLite(r.texte(3)), int(r.entier(4)), int(r.entier(0)), r.reel(2), r.texte(1)};
}

int DroitsVoisins::enregistreDroitVoisin(const DroitVoisin& d)
{
    if (!refusValeurs(d).isEmpty())
        return 0;
    const int code = m_db.executer(
        QStringLiteral("INSERT INTO droitsvoisins (dv_categorie, dv_details, dv_montant, "
                       "dv_date, dv_organisme_id) VALUES (?, ?, ?, ?, ?);"),
        {d.categorieId, texteNonNul(d.details), auCentime(d.montant), Dates::versSQLite(d.date), d.organismeId});
    return code == SQLITE_DONE ? int(m_db.dernierIdInsere()) : 0;
}

bool DroitsVoisins::modifieDroitVoisin(int id, const DroitVoisin& d)
{
    if (!droitVoisinExiste(id) || !refusValeurs(d).isEmpty())
        return false;
    return m_db.executer(QStringLiteral("UPDATE droitsvoisins SET dv_categorie = ?, dv_details = ?, dv_montant = ?, "
                                        "dv_date = ?, dv_organisme_id = ? WHERE dv_id = ?;"),
                         {d.categorieId, texteNonNul(d.details), auCentime(d.montant), Dates::versSQLite(d.date),
                          d.organismeId, id}) == SQLITE_DONE;
}

bool DroitsVoisins::supprimeDroitVoisin(int id)
{
    return m_db.executer(QStringLiteral("DELETE FROM droitsvoisins WHERE dv_id = %1;").arg(uint(id))) == SQLITE_DONE;
}

Table DroitsVoisins::listeLesDroitsVoisins(int organismeId, const QString& classement)
{
    const QString filtre =
        organismeId > 0 ? QStringLiteral("WHERE (dv_organisme_id = %1)").arg(organismeId) : QString();
    const QString sens = classement == QStringLiteral("DESC") ? QStringLiteral("DESC") : QStringLiteral("ASC");
    // The labels joined in, rather than looked up once a row.
    Requete r(m_db, QStringLiteral("SELECT dv_id, dv_date, dvo_nom, dv_montant, dvt_type, dv_details FROM "
                                   "droitsvoisins LEFT JOIN droitsvoisinsorganismes ON dvo_id = dv_organisme_id LEFT "
                                   "JOIN droitsvoisinstypes ON dvt_id = dv_categorie %1 ORDER BY dv_date %2, dv_id %2;")
                        .arg(filtre, sens));
    Table table{clesListe(), {}};
    while (r.suivante()) {
        const QString jour = r.texte(1);
        table.rangees.append({int(r.entier(0)), Dates::versAffichage(Dates::depuisSQLite(jour)), jour, r.texte(2),
                              r.reel(3), r.texte(4), r.texte(5)});
    }
    return table;
}

Table DroitsVoisins::totauxParOrganisme()
{
    Requete r(m_db, QStringLiteral("SELECT dvo_id, dvo_nom, SUM(dv_montant) FROM droitsvoisinsorganismes LEFT JOIN "
                                   "droitsvoisins ON dvo_id = dv_organisme_id GROUP BY dvo_id ORDER BY dvo_id ASC;"));
    Table table{clesTotaux(), {}};
    while (r.suivante())
        table.rangees.append({r.texte(1), r.estNul(2) ? QVariant() : QVariant(auCentime(r.reel(2)))});
    return table;
}

// --- Categories -------------------------------------------------------------------------------

QString DroitsVoisins::refusCategorie(const QString& nom, int idExclu)
{
    const QString n = nom.trimmed();
    if (n.isEmpty())
        return idExclu > 0 ? messageNomVideRenommage() : messageNomVide();
    for (const auto& [id, type] : categories())
        if (id != idExclu && type.trimmed().compare(n, Qt::CaseInsensitive) == 0)
            return messageCategorieExistante();
    return {};
}

int DroitsVoisins::ajouteCategorie(const QString& nom)
{
    if (!refusCategorie(nom).isEmpty())
        return 0;
    return m_db.executer(QStringLiteral("INSERT INTO droitsvoisinstypes (dvt_type) VALUES (?);"), {nom.trimmed()}) ==
                   SQLITE_DONE
               ? int(m_db.dernierIdInsere())
               : 0;
}

bool DroitsVoisins::renommeCategorie(int id, const QString& nom)
{
    if (!categorieExiste(id) || !refusCategorie(nom, id).isEmpty())
        return false;
    return m_db.executer(QStringLiteral("UPDATE droitsvoisinstypes SET dvt_type = ? WHERE dvt_id = ?;"),
                         {nom.trimmed(), id}) == SQLITE_DONE;
}

bool DroitsVoisins::categorieExiste(int id)
{
    return m_db.entier(QStringLiteral("SELECT COUNT(*) FROM droitsvoisinstypes WHERE dvt_id = ?;"), {id}) > 0;
}

int DroitsVoisins::compteLesDroitsDeLaCategorie(int id)
{
    return int(m_db.entier(
        QStringLiteral("SELECT COUNT(*) AS counter FROM droitsvoisins WHERE dv_categorie = %1;").arg(uint(id))));
}

bool DroitsVoisins::supprimeCategorieAvecVerification(int id, Dialogues& dialogues)
{
    if (!categorieExiste(id))
        return false;
    if (compteLesDroitsDeLaCategorie(id) > 0 &&
        dialogues.question(titreVerification(), questionDroitsAttribues(findDvCategoryFromId(id)),
                           {boutonToutSupprimer(), boutonNeRienFaire()}) != boutonToutSupprimer())
        return false;
    return supprimeCategorieEtDroits(id);
}

bool DroitsVoisins::supprimeCategorieEtDroits(int id)
{
    // Both or neither: payments are never left without their category.
    if (m_db.exec(QStringLiteral("BEGIN IMMEDIATE;")) != SQLITE_OK)
        return false;
    const bool ok =
        m_db.executer(QStringLiteral("DELETE FROM droitsvoisins WHERE dv_categorie = %1;").arg(uint(id))) ==
            SQLITE_DONE &&
        m_db.executer(QStringLiteral("DELETE FROM droitsvoisinstypes WHERE dvt_id = %1;").arg(uint(id))) == SQLITE_DONE;
    m_db.exec(ok ? QStringLiteral("COMMIT;") : QStringLiteral("ROLLBACK;"));
    return ok;
}

} // namespace corvane
