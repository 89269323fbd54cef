#include "manager/Evenements.h"

#include "manager/ListesIds.h"
#include "store/Dates.h"
#include "store/PointDeSauvegarde.h"
#include "store/SaisieFrancaise.h"

#include <sqlite3.h>

namespace corvane {

namespace {

QVariantList valeurs(const Evenement& e)
{
    return {Dates::versSQLite(e.date), texteNonNul(e.nom.trimmed()), e.propositionId, e.employeurId, e.structureId};
}

// The event's payment row written with its staff: updated when there is one, else inserted.
bool ecritPersonnel(BaseDeDonnees& base, int id, const QString& salaries)
{
    if (base.entier(QStringLiteral("SELECT COUNT(*) FROM evenementspaiements WHERE ep_evenement_id = ?;"), {id}) > 0)
        return base.executer(
                   QStringLiteral("UPDATE evenementspaiements SET ep_salaries = ? WHERE ep_evenement_id = ?;"),
                   {salaries, id}) == SQLITE_DONE;
    return base.executer(
               QStringLiteral("INSERT INTO evenementspaiements (ep_evenement_id, ep_salaries) VALUES (?, ?);"),
               {id, salaries}) == SQLITE_DONE;
}

} // namespace

const QStringList& Evenements::clesListe()
{
    static const QStringList cles{"Id",          "date",       "nom",       "propositionId", "employeurId",
                                  "structureId", "dateSQLite", "employeur", "structure",     "nonPayes",
                                  "proposition", "salaries",   "payes"};
    return cles;
}

const QStringList& Evenements::clesPaiements()
{
    static const QStringList cles{"id", "prenom", "nom", "paye"};
    return cles;
}

QString Evenements::titreAlertes()
{
    return QStringLiteral("Gestion des Événements");
}

Intermittent::Choix Evenements::choixPropositions()
{
    Choix choix;
    Requete r(m_db, QStringLiteral("SELECT pl_id, pl_libelle FROM propositionslibelles;"));
    while (r.suivante())
        choix.append({int(r.entier(0)), r.texte(1)});
    return choix;
}

QString Evenements::refusValeurs(const Evenement& e)
{
    if (const QString r = SaisieFrancaise::refusDate(e.date); !r.isEmpty())
        return QStringLiteral("Date : %1.").arg(r);
    if (e.nom.trimmed().isEmpty())
        return QStringLiteral("Veuillez saisir le nom de l'événement.");
    if (m_db.entier(QStringLiteral("SELECT COUNT(*) FROM employeurs WHERE e_id = ?;"), {e.employeurId}) == 0)
        return QStringLiteral("Veuillez choisir l'organisateur.");
    if (m_db.entier(QStringLiteral("SELECT COUNT(*) FROM structures WHERE s_id = ?;"), {e.structureId}) == 0)
        return QStringLiteral("Veuillez choisir une structure.");
    if (e.propositionId != 0 &&
        m_db.entier(QStringLiteral("SELECT COUNT(*) FROM propositionslibelles WHERE pl_id = ?;"), {e.propositionId}) ==
            0)
        return QStringLiteral("Cette proposition n'existe pas.");
    return {};
}

bool Evenements::evenementExiste(int id)
{
    return m_db.entier(QStringLiteral("SELECT COUNT(*) FROM evenements WHERE e_id = ?;"), {id}) > 0;
}

std::optional<Evenement> Evenements::evenement(int id)
{
    Requete r(m_db, QStringLiteral("SELECT e_date, e_nom, e_proposition_id, e_employeur_id, e_structure_id FROM "
                                   "evenements WHERE e_id = ?;"));
    r.lier(1, id);
    if (!r.suivante())
        return std::nullopt;
    return Evenement{Dates::depuisSQLite(r.texte(0)), r.texte(1), int(r.entier(2)), int(r.entier(3)), int(r.entier(4))};
}

QString Evenements::personnelDeLaStructure(int structureId)
{
    return m_db
        .colonne(QStringLiteral("SELECT e_id FROM employes WHERE e_structures LIKE ? ORDER BY e_id ASC;"),
                 {ListesIds::motifTexte(structureId)})
        .join(QLatin1Char(','));
}

int Evenements::enregistreEvenement(const Evenement& evenement)
{
    if (!refusValeurs(evenement).isEmpty())
        return 0;
    PointDeSauvegarde point(m_db);
    if (!point.estOuvert())
        return 0;
    if (m_db.executer(QStringLiteral("INSERT INTO evenements (e_date, e_nom, e_proposition_id, e_employeur_id, "
                                     "e_structure_id) VALUES (?, ?, ?, ?, ?);"),
                      valeurs(evenement)) != SQLITE_DONE)
        return 0;
    const int id = int(m_db.dernierIdInsere());
    if (!ecritPersonnel(m_db, id, personnelDeLaStructure(evenement.structureId)))
        return 0;
    return point.valider() ? id : 0;
}

bool Evenements::modifieEvenement(int id, const Evenement& evenement)
{
    if (!evenementExiste(id) || !refusValeurs(evenement).isEmpty())
        return false;
    PointDeSauvegarde point(m_db);
    if (!point.estOuvert())
        return false;
    QVariantList v = valeurs(evenement);
    v.append(id);
    if (m_db.executer(QStringLiteral("UPDATE evenements SET e_date = ?, e_nom = ?, e_proposition_id = ?, "
                                     "e_employeur_id = ?, e_structure_id = ? WHERE e_id = ?;"),
                      v) != SQLITE_DONE)
        return false;
    if (!ecritPersonnel(m_db, id, personnelDeLaStructure(evenement.structureId)))
        return false;
    return point.valider();
}

bool Evenements::supprimeEvenement(int id)
{
    if (!evenementExiste(id))
        return false;
    PointDeSauvegarde point(m_db);
    if (!point.estOuvert())
        return false;
    if (m_db.executer(QStringLiteral("DELETE FROM evenements WHERE e_id = %1;").arg(uint(id))) != SQLITE_DONE ||
        m_db.executer(QStringLiteral("DELETE FROM evenementspaiements WHERE ep_evenement_id = %1;").arg(uint(id))) !=
            SQLITE_DONE)
        return false;
    return point.valider();
}

QString Evenements::salaries(int id)
{
    return m_db.texte(QStringLiteral("SELECT ep_salaries FROM evenementspaiements WHERE ep_evenement_id = ?;"), {id});
}

QString Evenements::payes(int id)
{
    return m_db.texte(QStringLiteral("SELECT ep_payes FROM evenementspaiements WHERE ep_evenement_id = ?;"), {id});
}

std::optional<QString> Evenements::basculePaye(int evenementId, int employeId)
{
    if (!ListesIds::contient(salaries(evenementId), employeId))
        return std::nullopt;
    const QString avant = payes(evenementId);
    const bool nonPaye = ListesIds::sauf(salaries(evenementId), avant).contains(employeId);
    const QString apres = nonPaye ? ListesIds::ajoute(avant, employeId) : ListesIds::retire(avant, employeId);
    if (m_db.executer(QStringLiteral("UPDATE evenementspaiements SET ep_payes = ? WHERE ep_evenement_id = ?;"),
                      {apres, evenementId}) != SQLITE_DONE)
        return std::nullopt;
    return apres;
}

int Evenements::nonPayes(int id)
{
    return int(ListesIds::sauf(salaries(id), payes(id)).size());
}

Table Evenements::listeLesEvenements()
{
    // The labels and the payment row joined in, rather than looked up once a row.
    Requete r(m_db, QStringLiteral(
                        "SELECT ev.e_id, ev.e_date, ev.e_nom, ev.e_proposition_id, ev.e_employeur_id, "
                        "ev.e_structure_id, em.e_raison_sociale, s.s_nom, pl.pl_libelle, ep.ep_salaries, ep.ep_payes "
                        "FROM evenements AS ev LEFT JOIN employeurs AS em ON em.e_id = ev.e_employeur_id LEFT JOIN "
                        "structures AS s ON s.s_id = ev.e_structure_id LEFT JOIN propositionslibelles AS pl ON "
                        "pl.pl_id = ev.e_proposition_id LEFT JOIN evenementspaiements AS ep ON ep.ep_evenement_id = "
                        "ev.e_id GROUP BY ev.e_id ORDER BY ev.e_date DESC, ev.e_id DESC;"));
    Table table{clesListe(), {}};
    while (r.suivante()) {
        const QString jour = r.texte(1);
        const QString salaries = r.texte(9);
        const QString payes = r.texte(10);
        table.rangees.append({int(r.entier(0)), Dates::versAffichage(Dates::depuisSQLite(jour)), r.texte(2),
                              int(r.entier(3)), int(r.entier(4)), int(r.entier(5)), jour, r.texte(6), r.texte(7),
                              int(ListesIds::sauf(salaries, payes).size()), r.texte(8), salaries, payes});
    }
    return table;
}

Table Evenements::paiements(int id)
{
    const QString liste = salaries(id);
    const QList<int> nonPayes = ListesIds::sauf(liste, payes(id));
    Table table{clesPaiements(), {}};
    Requete r(m_db, QStringLiteral("SELECT e_prenom, e_nom FROM employes WHERE e_id = ?;"));
    for (const int employe : ListesIds::ids(liste)) {
        r.reinitialiser();
        r.lier(1, employe);
        const bool trouve = r.suivante();
        table.rangees.append({employe, trouve ? r.texte(0) : QString(), trouve ? r.texte(1) : QString(),
                              nonPayes.contains(employe) ? QStringLiteral("0") : QStringLiteral("1")});
    }
    return table;
}

} // namespace corvane
