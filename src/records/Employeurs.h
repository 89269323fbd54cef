#pragma once

#include "store/Dialogues.h"
#include "store/Intermittent.h"

#include <QString>
#include <optional>

namespace corvane {

// One employer, as the edit panel holds it. The defaults are those of a new row.
struct Employeur
{
    int id = 0;
    QString raisonSociale, adresse, codePostal, commune, email, interlocuteur, telephone, fax;
    int contratModeleId = 0; // 0: no template
    int conventionne = 1;
    double latitude = 0.0, longitude = 0.0;
    QString siret, licenceSpectacle;
    QString couleur = QStringLiteral("0,0,0");
    int guso = 0;
    int qualiteId = 2; // 'Aucune'
    QString numeroGuso;
    int prospect = 1;
    QString codeApe;
};

// One series of the employers' chart: rows with "Label" (the employer) and "Amount".
struct GraphiqueEmployeurs
{
    Lignes bruts;
    Lignes nets;
    Lignes netsAPayer;

    // The employers of the largest gross sums, largest first, and the others summed as "Autres";
    // a chart of a hundred employers cannot be read.
    GraphiqueEmployeurs principaux(int nombre) const;
};

// The employers (table `employeurs`), the counterparties of contracts.
class Employeurs : public Intermittent
{
public:
    explicit Employeurs(const QString& chemin = QString());
    explicit Employeurs(BaseDeDonnees& connexion) : Intermittent(connexion) {}

    // The list's display keys, in column order ("Id", "Enseigne", …).
    static const QStringList& clesListe();
    static Employeur depuisLigne(const Ligne& ligne); // a row of listeLesEmployeurs
    static Ligne versLigne(const Employeur& employeur);

    int compteLesEmployeurs();
    int compteLesEmployeursAvecRaisonSocialeCommune(const QString& raisonSociale, const QString& commune);
    int compteLesEmployeursParModeleDeContrat(int modeleId);
    // Employers with that name, postal code and town.
    int existanceEmployeur(const QString& raisonSociale, const QString& codePostal, const QString& commune);

    // Inserts the ten columns of the form; returns the new id (0 on failure).
    int enregistreEmployeur(const Employeur& employeur);
    bool modifieEmployeur(const Employeur& employeur);
    // The columns the form's statements leave out (position, numbers, colour, flags, quality).
    bool enregistreComplements(const Employeur& employeur);
    // What a save refuses ("" when it may be saved): no name, another employer with the same
    // name, postal code and town, or a position off the globe.
    QString refusEnregistrement(const Employeur& employeur);
    static QString messageExisteDeja();
    static QString messageRaisonSocialeObligatoire();

    bool annuleContratsModeles(int modeleId);
    bool supprimeEmployeur(int id);
    int retrouveIdEmployeur(const QString& raisonSociale);
    Table listeLesEmployeurs();
    std::optional<Employeur> employeur(int id);
    QStringList tousLesEmployeurs();
    bool enregistreLesCochesPourId(int id, bool conventionne);

    // Contracts recorded with the employer.
    int compteLesContrats(int id);
    // The two ways out: with contracts, a question ("Tout" deletes the contracts and the
    // employer, "Rien" nothing); without, the employer and the templates naming it go at once.
    // True when the employer was deleted.
    bool supprimeEmployeurAvecVerification(int id, Dialogues& dialogues);
    static QString titreVerification();
    static QString questionContratsAttribues();
    // The "Tout" answer: the employer's contracts and the employer; its templates stay.
    void supprimeEmployeurEtContrats(int id);
    // An employer without contracts: the employer and the templates naming it.
    void supprimeEmployeurEtModeles(int id);

    // "Journées", "Heures", "Salaires bruts", "Salaires nets" of the employer's contracts.
    Ligne cumulsPourEmployeur(int id);
    // The employers' qualities (id and label), by label.
    QList<QPair<int, QString>> qualites();
    // Gross, net and net-to-pay sums per employer name.
    GraphiqueEmployeurs graphiqueDesSalaires();

    // Copies the employers of another document that this one lacks (same name, postal code
    // and town). Returns the number imported, or -1 with *refus set (the open file, or not a document).
    int importeEmployeursDepuis(const QString& cheminSource, QString* refus);
    static QString titreImport();
    static QString messageFichierDejaOuvert();
    static QString messageFichierIllisible();
};

} // namespace corvane
