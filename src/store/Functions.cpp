#include "store/Functions.h"

namespace corvane::Functions {

int execSqlWithFile(const QString& sql, const QString& chemin)
{
    Intermittent document(chemin);
    return document.db().exec(sql);
}

int recordsInWithFile(const QString& table, const QString& chemin)
{
    return Intermittent(chemin).compteLesEnregistrements(table);
}

bool isDBOpened(const QString& chemin)
{
    Intermittent document(chemin);
    Requete r(document.db(), QStringLiteral("SELECT COUNT(*) FROM contrats;"));
    return r.suivante();
}

bool isFileLockedWithFile(const QString& chemin)
{
    return Intermittent(chemin).isFileLocked();
}

int retrouveEmploiIdWithFile(const QString& emploi, const QString& chemin)
{
    return Intermittent(chemin).retrouveEmploiId(emploi);
}

QString retrouveEmploiDepuisIdWithFile(int id, const QString& chemin)
{
    return Intermittent(chemin).retrouveEmploiDepuisId(id);
}

QString retrouveEmploiUtilisateurFromFile(const QString& chemin)
{
    return Intermittent(chemin).retrouveEmploiUtilisateur();
}

int retrouveCiviliteIdWithFile(const QString& civilite, const QString& chemin)
{
    return Intermittent(chemin).retrouveCiviliteId(civilite);
}

int retrouveAbattementIdWithFile(const QString& pourcentage, const QString& chemin)
{
    return Intermittent(chemin).retrouveAbattementId(pourcentage);
}

QString retrouveAbattementDepuisIdWithFile(int id, const QString& chemin)
{
    return Intermittent(chemin).retrouveAbattementDepuisId(id);
}

int retrouveContratTypeIdWithFile(const QString& type, const QString& chemin)
{
    return Intermittent(chemin).retrouveContratTypeId(type);
}

QString retrouveContratTypeDepuisIdWithFile(int id, const QString& chemin)
{
    return Intermittent(chemin).retrouveContratTypeDepuisId(id);
}

int retrouveEmployeurIdWithFile(const QString& raisonSociale, const QString& chemin)
{
    return Intermittent(chemin).retrouveEmployeurId(raisonSociale);
}

QString retrouveEmployeurDepuisIdWithFile(int id, const QString& chemin)
{
    return Intermittent(chemin).retrouveEmployeurDepuisId(id);
}

int retrouveFraisTypeIdWithFile(const QString& type, const QString& chemin)
{
    return Intermittent(chemin).retrouveFraisTypeIdDepuisType(type);
}

QString retrouveFraisTypeDepuisIdWithFile(int id, const QString& chemin)
{
    return Intermittent(chemin).retrouveFraisTypeDepuisId(id);
}

QDateTime retrouveDateOuvertureDroitsUtilisateurFromFile(const QString& chemin)
{
    return Intermittent(chemin).retrouveDateOuvertureDroitsUtilisateur();
}

void enregistreDatePrefereeInFile(const QString& element, const QDate& date, const QString& chemin)
{
    Intermittent(chemin).enregistreDatePreferee(element, date);
}

QDateTime retrouveDatePrefereeFromFile(const QString& element, const QString& chemin)
{
    return Intermittent(chemin).retrouveDatePreferee(element);
}

QStringList rempliListeEmployeursWithFile(const QString& chemin)
{
    return Intermittent(chemin).rempliPopup(QStringLiteral("employeurs"));
}

QStringList rempliListeFraisTypesWithFile(const QString& chemin)
{
    Intermittent document(chemin);
    return document.db().colonne(QStringLiteral("SELECT ft_type FROM fraistypes ORDER BY ft_type ASC;"));
}

QString virguleEnPoint(const QString& texte)
{
    QString copie = texte;
    copie.replace(QLatin1Char(','), QLatin1Char('.'));
    return copie;
}

} // namespace corvane::Functions
