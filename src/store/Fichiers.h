#pragma once

#include "store/Dialogues.h"
#include "store/Intermittent.h"

#include <QDate>

namespace corvane {

// The parameters of a new document, as the new-document assistant gathers them.
struct NouveauDocument
{
    QString nomDuFichier;
    int abattementState = 0; // 1: the user renounces the professional-expenses abatement
    double taux = 0.0;       // validated daily rate
    int emploiId = 1;        // id in `emplois`
    QDate dateOuvertureDesDroits;
    int civiliteId = 1;
    QString prenom;
    QString nom;
    bool isAutoEntrepreneur = false;
    QString password;
    int isLocked = 0;
};

// Creates documents, recognises the generation of a file on disk, brings documents
// up to date on every opening and converts the earlier product's old generations.
//
// Generations, as texts: "4" (current), "3", "2.5", "2", "1", and "0" for a file
// without any table.
class Fichiers : public Intermittent
{
public:
    Fichiers() = default;
    // The current-generation creation script.
    explicit Fichiers(const NouveauDocument& parametres);

    static QString versionProgramme();
    // End of a new document's first period for an occupation, when the rights open on `ouverture`.
    static QDate finPremierePeriode(int emploiId, const QDate& ouverture);

    // "Période du dd/MM/yyyy au dd/MM/yyyy", the label of a period.
    static QString libellePeriode(const QDate& debut, const QDate& fin);

    // The fifteen preferred date ranges of a new document, key and date, in the order they are written.
    static QList<QPair<QString, QDate>> datesPrefereesInitiales(const QDate& ouverture, const QDate& fin);

    // Creates the document at `nomDuFichier`. Refuses an existing path.
    bool nouveauV4();

    // The generation of a file, read without writing a byte. Empty text, with
    // erreur() set, when the file is missing, not a database or damaged.
    // `verifierPages`: SQLite's quick check of every page first, which a document about
    // to be written needs; a command that only reads does without (it reads the whole file).
    QString checkVersion(const QString& chemin, bool verifierPages = true);
    // The same without the empty-catalogue test.
    QString version(const QString& chemin);

    // Opens a file as the program does, converting it when the user agrees.
    // Returns the path of the document that ends up open ("" when none).
    QString ouvertureSQLite(const QString& chemin, const QString& dejaOuvert, Dialogues& dialogues);

    // The upgrade pass on the open connection.
    void nouveautesVerif();

    // Converts a file of generation 1, 2 or 2.5 into a generation-3 copy beside it and
    // returns the copy's path ("" and erreur() on failure). The original is not touched.
    QString conversionFichier(const QString& chemin, const QString& generation);
    static QString cheminConversion(const QString& chemin);

    QString erreur() const { return m_erreur; }
    QString versionOrvia() const { return m_versionOrvia; }
    // Of the last ouvertureSQLite: the generation of the file asked for, and the copy made.
    QString generationInitiale() const { return m_generationInitiale; }
    QString cheminConverti() const { return m_cheminConverti; }

    const QString& sql() const { return m_sql; }

private:
    QString ouvrir(const QString& chemin, const QString& dejaOuvert, Dialogues& dialogues);
    QString version(BaseDeDonnees& base);
    bool verifierEcriture(const QString& chemin);
    bool colonneManquante(const QString& table, const QString& colonne);
    void ajouterColonneSiManquante(const QString& table, const QString& colonne, const QString& definition);
    void executerChacune(const QStringList& instructions);
    void remplirDatesTravailleesDepuisListe();
    void remplirAnneeEncaissementDepuisDebut();
    void remplirDatesTravailleesEtAnnee();
    void echouer(const QString& message);

    NouveauDocument m_parametres;
    QString m_sql;
    QString m_versionOrvia = QStringLiteral("0");
    QString m_generationInitiale;
    QString m_cheminConverti;
    QString m_erreur;
};

} // namespace corvane
