#pragma once

#include <QStringList>

namespace corvane::Schema {

// The statements that create a current-generation document, in order:
// one CREATE TABLE per table, then its seed rows.
const QStringList& creationV4();
// The statements of a generation-3 document, the target of the old-format conversion.
const QStringList& creationV3();

// The generation-3 to 4 part of the upgrade pass, in three pieces: the worked dates
// are filled after the first and the year of payment after the second. Each
// statement is run on its own, so that one that fails does not stop the others.
const QStringList& miseAJourV4AvantDatesTravaillees();
const QStringList& miseAJourV4AvantAnneeEncaissement();
const QStringList& miseAJourV4Fin();

// The occupations of `emplois`, in id order (ids from 1).
const QStringList& emplois();

// The link table between contracts and expenses, which the upgrade creates when missing.
QString creationContratsFrais();

// The statements concatenated into the one text that is run in one call.
QString texte(const QStringList& instructions);

} // namespace corvane::Schema
