#pragma once

#include <QDate>
#include <QString>

namespace corvane {

class Rapport;
struct ChoixImpressions;

// "Sécurité Sociale 2026 11 21": year, month and day, without zeros in front; the name the
// social-security report is exported under (without ".pdf").
QString nomRapportSecuriteSociale(const QDate& jour);

// "Compte rendu de Sécurité Sociale": the social rights on `verification` (the day chosen on the
// screen) and the list of every period, as `choix` asks. False (nothing composed) when the document
// cannot be read.
bool composerRapportSecuriteSociale(Rapport& rapport, const QString& document, const ChoixImpressions& choix,
                                    const QDate& verification);

} // namespace corvane
