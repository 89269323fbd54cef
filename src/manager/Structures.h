#pragma once

#include "store/Intermittent.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace corvane {

// The user's companies and troupes (table `structures`), each with the list of its employees
// (`s_employes`). An employee's own list of structures (`e_structures`) is kept in step with
// it: attaching or detaching writes both, in one transaction.
class Structures : public Intermittent
{
public:
    explicit Structures(const QString& chemin = QString()) : Intermittent(chemin) {}
    explicit Structures(BaseDeDonnees& connexion) : Intermittent(connexion) {}

    // "id", "nom", "employes" (the stored id list), by name.
    static const QStringList& clesListe();

    static QString titreAlertes(); // "Gestion des Structures"
    static QString messageNomVide();
    static QString messageStructureExistante();
    static QString messageStructureUtilisee();

    Table listeLesStructures();
    Choix choixStructures();
    bool structureExiste(int id);
    QString nomStructure(int id);
    // The structure of that name, the exact one first, then one differing in case only; 0 when none.
    int retrouveStructureId(const QString& nom);
    QString employesDeLaStructure(int id);

    // Why a name may not be given to a structure ("" when it may): empty, or another
    // structure's, whatever its case. The name is kept without its surrounding blanks.
    QString refusNom(const QString& nom, int idExclu = 0);
    // The key written, or 0 on refusal or failure.
    int ajouteStructure(const QString& nom);
    bool renommeStructure(int id, const QString& nom);

    // Why a structure may not be deleted ("" when it may): an event uses it.
    QString refusSuppression(int id);
    // Deletes the structure and takes its id out of its employees' lists; false on refusal.
    bool supprimeStructure(int id);

    // The outline's drop: the structure joins each employee's list and the employees the
    // structure's. Unknown records are refused; employees already attached stay as they are.
    bool rattacheEmployes(int structureId, const QList<int>& employes);
    // The outline's "Retirer de la structure": each id out of the other's list.
    bool detacheEmploye(int structureId, int employeId);
};

} // namespace corvane
