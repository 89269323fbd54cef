#include "manager/FormulairesOfficiels.h"

#include <QDir>
#include <QFileInfo>

namespace corvane::FormulairesOfficiels {

const QList<FormulaireOfficiel>& tous()
{
    static const QList<FormulaireOfficiel> liste{
        {QStringLiteral("cerfa_14886-01"), QStringLiteral("Déclaration préalable à l'embauche (DPAE)"),
         QStringLiteral("la déclaration préalable à l'embauche (cerfa n° 14886*01)"),
         QStringLiteral("Elle est publiée par l'Urssaf (www.urssaf.fr) ; la déclaration peut aussi se faire en "
                        "ligne sur net-entreprises (www.net-entreprises.fr).")},
        {QStringLiteral("Contrat_SNACOPVA_actualise_2014"), QStringLiteral("Contrat d'engagement type (SNACOPVA)"),
         QStringLiteral("le contrat d'engagement type du syndicat SNACOPVA-CGT (version actualisée en 2014)"),
         QStringLiteral("Il est diffusé par le SNACOPVA-CGT, syndicat de la Fédération CGT du spectacle "
                        "(www.fnsac-cgt.com).")},
        {QStringLiteral("M_A_N_D_A_T_Type_Conventionnel_"), QStringLiteral("Mandat type conventionnel"),
         QStringLiteral("le mandat type conventionnel"),
         QStringLiteral("Il est diffusé par le SNACOPVA-CGT, syndicat de la Fédération CGT du spectacle "
                        "(www.fnsac-cgt.com).")},
        {QStringLiteral("Fpres09"), QStringLiteral("Feuille de présence"),
         QStringLiteral("la feuille de présence des artistes engagés"),
         QStringLiteral("Elle est diffusée par les syndicats d'artistes, par exemple le SNACOPVA-CGT avec son "
                        "contrat d'engagement type (www.fnsac-cgt.com).")},
    };
    return liste;
}

QString titreAlertes()
{
    return QStringLiteral("Formulaires officiels");
}

QString chemin(const QString& dossier, const FormulaireOfficiel& formulaire)
{
    if (dossier.trimmed().isEmpty())
        return {};
    return QDir(dossier).filePath(formulaire.nom + QStringLiteral(".pdf"));
}

QString trouver(const QString& dossier, const FormulaireOfficiel& formulaire, QString* absent)
{
    const QString fichier = chemin(dossier, formulaire);
    if (!fichier.isEmpty() && QFileInfo(fichier).isFile())
        return fichier;
    if (absent) {
        const QString lieu =
            fichier.isEmpty()
                ? QStringLiteral("Aucun dossier de formulaires officiels n'est choisi dans les Préférences "
                                 "(« Formulaires officiels »).")
                : QStringLiteral("Le fichier « %1 » est introuvable dans le dossier des formulaires officiels "
                                 "(%2).")
                      .arg(formulaire.nom + QStringLiteral(".pdf"), QDir::toNativeSeparators(dossier));
        const QString suite =
            fichier.isEmpty()
                ? QStringLiteral("Enregistrez-le sous le nom « %1 » dans un dossier, puis choisissez ce dossier dans "
                                 "les Préférences.")
                : QStringLiteral("Enregistrez-le dans ce dossier sous le nom « %1 », ou choisissez un autre dossier "
                                 "dans les Préférences.");
        *absent = QStringLiteral("%1\n\nCe formulaire est %2. %3\n\n%4")
                      .arg(lieu, formulaire.designation, formulaire.source,
                           suite.arg(formulaire.nom + QStringLiteral(".pdf")));
    }
    return {};
}

} // namespace corvane::FormulairesOfficiels
