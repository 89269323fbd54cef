#include "manager/Structures.h"

#include "manager/ListesIds.h"
#include "store/PointDeSauvegarde.h"

#include <sqlite3.h>

namespace corvane {

namespace {

bool employeExiste(BaseDeDonnees& base, int id)
{
    return base.entier(QStringLiteral("SELECT COUNT(*) FROM employes WHERE e_id = ?;"), {id}) > 0;
}

QString structuresDeLEmploye(BaseDeDonnees& base, int id)
{
    return base.texte(QStringLiteral("SELECT e_structures FROM employes WHERE e_id = ?;"), {id});
}

bool ecritStructuresDeLEmploye(BaseDeDonnees& base, int id, const QString& liste)
{
    return base.executer(QStringLiteral("UPDATE employes SET e_structures = ? WHERE e_id = ?;"), {liste, id}) ==
           SQLITE_DONE;
}

bool ecritEmployesDeLaStructure(BaseDeDonnees& base, int id, const QString& liste)
{
    return base.executer(QStringLiteral("UPDATE structures SET s_employes = ? WHERE s_id = ?;"), {liste, id}) ==
           SQLITE_DONE;
}

} // namespace

const QStringList& Structures::clesListe()
{
    static const QStringList cles{"id", "nom", "employes"};
    return cles;
}

QString Structures::titreAlertes()
{
    return QStringLiteral("Gestion des Structures");
}

QString Structures::messageNomVide()
{
    return QStringLiteral("Veuillez saisir un nom pour la structure.");
}

QString Structures::messageStructureExistante()
{
    return QStringLiteral("Une structure porte déjà ce nom.");
}

QString Structures::messageStructureUtilisee()
{
    return QStringLiteral("Cette structure ne peut pas être supprimée car vous l'utilisez pour certains événements.");
}

Table Structures::listeLesStructures()
{
    Requete r(m_db, QStringLiteral("SELECT s_id, s_nom, s_employes FROM structures ORDER BY s_nom COLLATE NOCASE ASC, "
                                   "s_id ASC;"));
    Table table{clesListe(), {}};
    while (r.suivante())
        table.rangees.append({int(r.entier(0)), r.texte(1), r.texte(2)});
    return table;
}

Intermittent::Choix Structures::choixStructures()
{
    Choix choix;
    const Table table = listeLesStructures();
    for (qsizetype i = 0; i < table.size(); ++i)
        choix.append({table.valeur(i, 0).toInt(), table.valeur(i, 1).toString()});
    return choix;
}

bool Structures::structureExiste(int id)
{
    return m_db.entier(QStringLiteral("SELECT COUNT(*) FROM structures WHERE s_id = ?;"), {id}) > 0;
}

QString Structures::nomStructure(int id)
{
    return m_db.texte(QStringLiteral("SELECT s_nom FROM structures WHERE s_id = ?;"), {id});
}

int Structures::retrouveStructureId(const QString& nom)
{
    const Choix choix = choixStructures();
    for (const auto& [id, texte] : choix)
        if (texte == nom)
            return id;
    for (const auto& [id, texte] : choix)
        if (texte.compare(nom, Qt::CaseInsensitive) == 0)
            return id;
    return 0;
}

QString Structures::employesDeLaStructure(int id)
{
    return m_db.texte(QStringLiteral("SELECT s_employes FROM structures WHERE s_id = ?;"), {id});
}

QString Structures::refusNom(const QString& nom, int idExclu)
{
    const QString n = nom.trimmed();
    if (n.isEmpty())
        return messageNomVide();
    for (const auto& [id, texte] : choixStructures())
        if (id != idExclu && texte.trimmed().compare(n, Qt::CaseInsensitive) == 0)
            return messageStructureExistante();
    return {};
}

int Structures::ajouteStructure(const QString& nom)
{
    if (!refusNom(nom).isEmpty())
        return 0;
    return m_db.executer(QStringLiteral("INSERT INTO structures (s_nom) VALUES (?);"), {nom.trimmed()}) == SQLITE_DONE
               ? int(m_db.dernierIdInsere())
               : 0;
}

bool Structures::renommeStructure(int id, const QString& nom)
{
    if (!structureExiste(id) || !refusNom(nom, id).isEmpty())
        return false;
    return m_db.executer(QStringLiteral("UPDATE structures SET s_nom = ? WHERE s_id = ?;"), {nom.trimmed(), id}) ==
           SQLITE_DONE;
}

QString Structures::refusSuppression(int id)
{
    if (m_db.entier(QStringLiteral("SELECT COUNT(*) FROM evenements WHERE e_structure_id = %1;").arg(uint(id))) != 0)
        return messageStructureUtilisee();
    return {};
}

bool Structures::supprimeStructure(int id)
{
    if (!structureExiste(id) || !refusSuppression(id).isEmpty())
        return false;
    PointDeSauvegarde point(m_db);
    if (!point.estOuvert())
        return false;
    // The employees are found by a text match on their lists: an employee of structure 12 is
    // read for structure 1 too, and written back unchanged, since only the exact id is taken out.
    QList<QPair<int, QString>> employes;
    {
        Requete r(m_db, QStringLiteral("SELECT e_id, e_structures FROM employes WHERE e_structures LIKE ?;"));
        r.lier(1, ListesIds::motifTexte(id));
        while (r.suivante())
            employes.append({int(r.entier(0)), r.texte(1)});
    }
    for (const auto& [employe, liste] : employes)
        if (!ecritStructuresDeLEmploye(m_db, employe, ListesIds::retire(liste, id)))
            return false;
    if (m_db.executer(QStringLiteral("DELETE FROM structures WHERE s_id = %1;").arg(uint(id))) != SQLITE_DONE)
        return false;
    return point.valider();
}

bool Structures::rattacheEmployes(int structureId, const QList<int>& employes)
{
    if (!structureExiste(structureId) || employes.isEmpty())
        return false;
    for (const int employe : employes)
        if (!employeExiste(m_db, employe))
            return false;
    PointDeSauvegarde point(m_db);
    if (!point.estOuvert())
        return false;
    QString liste = employesDeLaStructure(structureId);
    for (const int employe : employes) {
        liste = ListesIds::ajoute(liste, employe);
        if (!ecritStructuresDeLEmploye(m_db, employe,
                                       ListesIds::ajoute(structuresDeLEmploye(m_db, employe), structureId)))
            return false;
    }
    if (!ecritEmployesDeLaStructure(m_db, structureId, liste))
        return false;
    return point.valider();
}

bool Structures::detacheEmploye(int structureId, int employeId)
{
    if (!structureExiste(structureId) || !employeExiste(m_db, employeId))
        return false;
    PointDeSauvegarde point(m_db);
    if (!point.estOuvert())
        return false;
    if (!ecritEmployesDeLaStructure(m_db, structureId,
                                    ListesIds::retire(employesDeLaStructure(structureId), employeId)) ||
        !ecritStructuresDeLEmploye(m_db, employeId,
                                   ListesIds::retire(structuresDeLEmploye(m_db, employeId), structureId)))
        return false;
    return point.valider();
}

} // namespace corvane
