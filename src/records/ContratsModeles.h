#pragma once

#include "store/Dialogues.h"
#include "store/Intermittent.h"

#include <QString>
#include <optional>

namespace corvane {

// One contract template: what it fills in a new contract.
struct ContratModele
{
    int id = 0;
    QString libelle;
    int emploiId = 1;
    int typeId = 1;
    int jours = 0;
    int heures = 0;
    double salaireBrut = 0.0;
    double salaireNet = 0.0;
    double salaireNetAPayer = 0.0;
    int employeurId = 1; // 'Inconnu'
    int associerFrais = 0;
    int fraisTypeId = 0;
    double fraisMontant = 0.0;
    QString fraisDetails;
};

// The contract templates (table `contratsmodeles`).
class ContratsModeles : public Intermittent
{
public:
    explicit ContratsModeles(const QString& chemin = QString());
    explicit ContratsModeles(BaseDeDonnees& connexion) : Intermittent(connexion) {}

    // The templates an employer carries as their own.
    int compteLesModelesDeLEmployeur(int employeurId);

    // The list's display keys ("Id", "Nom du modèle", …).
    static const QStringList& clesListe();
    static ContratModele depuisLigne(const Ligne& ligne);

    // Inserts the template; returns its id (0 on failure).
    int enregistreContratsModele(const ContratModele& modele);
    bool modifieContratsModele(const ContratModele& modele);
    // Net to pay and the expense to create with the contract, which the two statements above leave out.
    bool enregistreComplements(const ContratModele& modele);
    bool supprimeContratsModele(int id);
    // Asks first when employers use the template; "Oui" deletes it and clears it from them.
    // True when the template was deleted.
    bool supprimeContratsModeleAvecVerification(int id, Dialogues& dialogues);
    static QString titreVerification();
    static QString questionEmployeursAssocies();

    // What a save refuses ("" when it may be saved): no label, a figure out of its bounds, or
    // a label another template has.
    QString refusEnregistrement(const ContratModele& modele);
    static QString messageLibelleObligatoire();
    static QString messageExisteDeja();

    int retrouveIdContratsModele(const QString& libelle);
    QString retrouveLibelleFromId(int id);
    // Every template, ordered by label, with the display keys.
    Lignes listeLesModeles_v4();
    QStringList tousLesModeles();
    std::optional<ContratModele> contenuDuModele(const QString& libelle);
    // The template an employer carries: job, type, days, hours, gross and net, and the expense
    // to create with the contract.
    std::optional<ContratModele> contenuDuModeleDepuisEmployeurId(int employeurId);

    // The kinds a template of that job may take: contract types in key order, or for the
    // self-employed job, the self-employment types by label.
    QStringList typesPourEmploi(int emploiId);
    // The id of a kind label for that job (0 when unknown).
    int typeIdPourEmploi(int emploiId, const QString& type);
    QString typePourEmploi(int emploiId, int typeId);
    static constexpr int kEmploiAutoEntrepreneur = 5;
};

} // namespace corvane
