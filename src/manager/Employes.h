#pragma once

#include "store/Intermittent.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <optional>

namespace corvane {

// One employee of the user's structures, as the form holds it.
struct Employe
{
    QString prenom;
    QString nom;
    QString adresse;
    QString codePostal;
    QString ville;
    QDate naissance; // invalid: not given, stored as ""
    QString lieuNaissance;
    QString nir;
    QString fonction;
};

// The staff of the user's structures (table `employes`). Each employee keeps the list of its
// structures (`e_structures`), written by the structures' attach and detach.
class Employes : public Intermittent
{
public:
    explicit Employes(const QString& chemin = QString()) : Intermittent(chemin) {}
    explicit Employes(BaseDeDonnees& connexion) : Intermittent(connexion) {}

    // "Id", "Prénom", "Nom", "Adresse", "Code Postal", "Ville", "DOB" (dd/MM/yyyy, "" when not
    // given), "Lieu Naissance", "NIR", "Fonction", "DOB SQLite" (as stored), "Structures" (the
    // stored id list); by last name.
    static const QStringList& clesListe();

    static QString titreAlertes(); // "Gestion des employés"
    static QString messageNomVide();
    static QString messageEmployeExistant();
    static QString messageEmployeUtilise();

    Table listeLesEmployes();
    bool employeExiste(int id);
    std::optional<Employe> employe(int id);
    QString structuresDeLEmploye(int id);

    // Why an employee may not be saved ("" when it may): a first or last name missing, a birth
    // date outside 1900 to today, or another employee of the same first and last name
    // (whatever their case). Names are kept without their surrounding blanks.
    QString refusValeurs(const Employe& employe, int idExclu = 0);
    // The key written, or 0 on refusal or failure.
    int enregistreEmploye(const Employe& employe);
    bool modifieEmploye(int id, const Employe& employe);

    // Why an employee may not be deleted ("" when it may): a structure's list matches its id as
    // text, so employee 1 is held while a structure lists employee 12.
    QString refusSuppression(int id);
    bool supprimeEmploye(int id);
};

} // namespace corvane
