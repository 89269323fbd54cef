#pragma once

#include <QDate>
#include <QString>

namespace corvane {

class Rapport;

// The documents the business manager composes for an organiser: the priced proposition letter
// and a simple engagement contract.

// The product's web address, printed at the foot of the letter after "Généré par ".
QString adresseSiteCorvane();

// "Sécurité Sociale 2026 11 21": the letter is offered under the social-security report's name,
// as it always was.
QString nomLettreProposition(const QDate& jour);
// "Contrat d'engagement 21 11 2026": day, month and year, without zeros in front.
QString nomContratEngagement(const QDate& jour);

// "PROPOSITION DE PRESTATIONS" for the proposition `propositionId`: the sender and the organiser,
// the services with their total, the deposit of 30 % to send back with the agreement, and the
// footer. False (nothing composed) when the document cannot be read or has no such proposition.
bool composerLettreProposition(Rapport& rapport, const QString& document, int propositionId);

// "CONTRAT D'ENGAGEMENT" between the employer `employeurId` (an organiser) and the user. False
// when the document cannot be read or has no such employer.
bool composerContratEngagement(Rapport& rapport, const QString& document, int employeurId);

} // namespace corvane
