#pragma once

#include "store/Intermittent.h"

namespace corvane {

// Path-taking twins of the lookups: each opens the document, runs its one
// statement and closes it again before returning.
namespace Functions {

int execSqlWithFile(const QString& sql, const QString& chemin);
int recordsInWithFile(const QString& table, const QString& chemin);
bool isDBOpened(const QString& chemin);
bool isFileLockedWithFile(const QString& chemin);

int retrouveEmploiIdWithFile(const QString& emploi, const QString& chemin);
QString retrouveEmploiDepuisIdWithFile(int id, const QString& chemin);
QString retrouveEmploiUtilisateurFromFile(const QString& chemin);
int retrouveCiviliteIdWithFile(const QString& civilite, const QString& chemin);
int retrouveAbattementIdWithFile(const QString& pourcentage, const QString& chemin);
QString retrouveAbattementDepuisIdWithFile(int id, const QString& chemin);
int retrouveContratTypeIdWithFile(const QString& type, const QString& chemin);
QString retrouveContratTypeDepuisIdWithFile(int id, const QString& chemin);
int retrouveEmployeurIdWithFile(const QString& raisonSociale, const QString& chemin);
QString retrouveEmployeurDepuisIdWithFile(int id, const QString& chemin);
int retrouveFraisTypeIdWithFile(const QString& type, const QString& chemin);
QString retrouveFraisTypeDepuisIdWithFile(int id, const QString& chemin);
QDateTime retrouveDateOuvertureDroitsUtilisateurFromFile(const QString& chemin);

void enregistreDatePrefereeInFile(const QString& element, const QDate& date, const QString& chemin);
QDateTime retrouveDatePrefereeFromFile(const QString& element, const QString& chemin);

QStringList rempliListeEmployeursWithFile(const QString& chemin);
QStringList rempliListeFraisTypesWithFile(const QString& chemin);

// "," becomes "."; every other character is kept.
QString virguleEnPoint(const QString& texte);

} // namespace Functions
} // namespace corvane
