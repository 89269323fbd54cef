#pragma once

#include "store/Dialogues.h"
#include "store/Reglages.h"

#include <QDate>
#include <QString>

namespace corvane {

// Backup copies of the document, the date of the last one, and the known documents.
namespace Sauvegardes {

// The proposed base name of a backup: "Corvane", the user's surname and today's date,
// each when its flag is set (format 0: yyyyMMdd, 1: ddMMyyyy).
QString constructionNomFichierSauvegarde(bool prefixe, bool nom, bool date, const QString& chemin, int formatDate);

// Copies the document (consistently, even while it is open) to `destination`, then
// records today as the date of the last backup. False, with the reason, when the copy fails.
bool sauvegardeDe(const QString& source, const QString& destination, QString* erreur = nullptr);
// Records today as the date of the last backup. False, with the reason, when it cannot.
bool enregistrerDateSauvegarde(const QString& chemin, QString* erreur = nullptr);
// Only the copy.
bool copier(const QString& source, const QString& destination, QString* erreur = nullptr);

// The date of the last backup; invalid when there has been none.
QDate dateDerniereSauvegarde(const QString& chemin);

// The interactive backup: a save panel, the copy, the date, the messages.
void copieDeSauvegardeWithFile(const QString& chemin, Dialogues& dialogues, Reglages& reglages);

// Whether the automatic backup falls today: the last backup plus the configured days.
bool sauvegardePrevueAujourdhui(const QString& chemin, const Reglages& reglages);

// The known documents, under "Files".
void addFileToPreferences(const QString& chemin, Reglages& reglages);
void removeFileFromPreferences(const QString& chemin, Reglages& reglages);

} // namespace Sauvegardes
} // namespace corvane
