#pragma once

#include <QList>
#include <QString>

namespace corvane {

// The official forms the business manager opens as they are, nothing filled in. Corvane does
// not ship them: the user keeps the administration's and the union's own files in a folder
// chosen in the preferences ("Formulaires officiels"), each under the name below.
struct FormulaireOfficiel
{
    QString nom;         // the file's name without ".pdf": "cerfa_14886-01"
    QString menu;        // the menu entry: "Déclaration préalable à l'embauche (DPAE)"
    QString designation; // "la déclaration préalable à l'embauche (cerfa n° 14886*01)"
    QString source;      // where the administration or the union publishes it
};

namespace FormulairesOfficiels {

// The pre-hiring declaration, the standard engagement contract, the standard mandate and the
// attendance sheet, in the menu's order.
const QList<FormulaireOfficiel>& tous();

QString titreAlertes(); // "Formulaires officiels"

// "<dossier>/<nom>.pdf"; "" without a folder.
QString chemin(const QString& dossier, const FormulaireOfficiel& formulaire);
// The path when the file is there, else "" with the reason (French) in *absent: which form it
// is, where it is published, and where Corvane looked for it.
QString trouver(const QString& dossier, const FormulaireOfficiel& formulaire, QString* absent);

} // namespace FormulairesOfficiels

} // namespace corvane
