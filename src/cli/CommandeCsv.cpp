#include "cli/CommandeEnregistrements.h"
#include "cli/Commandes.h"

#include "exchange/CsvParser.h"
#include "exchange/ExportCsv.h"
#include "exchange/ImportCsv.h"

#include <QDir>
#include <QFileInfo>

namespace corvane::cli {

namespace {

// The --encodage words, in the import window's list order.
const QStringList& motsEncodages()
{
    static const QStringList mots{"macroman", "utf-8", "utf-16be", "utf-16le", "utf-32be", "utf-32le"};
    return mots;
}

class CommandeCsv : public CommandeEnregistrements
{
public:
    QString nom() const override { return QStringLiteral("csv"); }
    QString usage() const override
    {
        return QStringLiteral("csv exporter FICHIER --source S --dossier DOSSIER [--entetes] | csv importer FICHIER "
                              "CSV --colonnes C1,C2,… [--separateur X] [--encodage E] [--titres]");
    }

protected:
    QStringList actions() const override { return {"exporter", "importer"}; }

    int executerAction(Contexte& contexte, const QString& action, const QStringList& liste) override
    {
        return action == QStringLiteral("exporter") ? exporter(contexte, liste) : importer(contexte, liste);
    }

private:
    int exporter(Contexte& contexte, const QStringList& liste)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"source"}, {"dossier"}, {"entetes", false}}, 1, &code))
            return code;
        if (!arguments.exiger({"source", "dossier"}))
            return mauvaisUsage(contexte, arguments.erreur());
        QString source;
        for (const QString& titre : ExportCsv::sources())
            if (titre.compare(arguments.valeur("source"), Qt::CaseInsensitive) == 0)
                source = titre;
        if (source.isEmpty())
            return mauvaisUsage(contexte, QStringLiteral("source inconnue : « %1 » (choix : %2)")
                                              .arg(arguments.valeur("source"), ExportCsv::sources().join(", ")));
        const QString chemin = cheminDocument(arguments);
        if (!documentAccessible(contexte, chemin, &code))
            return code;

        // The document is only read.
        BaseDeDonnees base;
        if (!base.ouvrirEnLecture(chemin))
            return echec(contexte, QStringLiteral("Le fichier « %1 » ne peut pas être lu : %2")
                                       .arg(QDir::toNativeSeparators(chemin), base.derniereErreur()));
        const ResultatExportCsv resultat = ExportCsv(base).exporter(
            source, QFileInfo(arguments.valeur("dossier")).absoluteFilePath(), arguments.contient("entetes"));
        if (!resultat.reussi())
            return echec(contexte, resultat.erreur);
        if (contexte.json)
            ecrireJson(contexte, {{"fichier", resultat.fichier}, {"lignes", resultat.lignes}});
        else
            contexte.sortie << "« " << source << " » : " << resultat.lignes
                            << (resultat.lignes > 1 ? " lignes écrites dans " : " ligne écrite dans ")
                            << QDir::toNativeSeparators(resultat.fichier) << Qt::endl;
        return Succes;
    }

    int importer(Contexte& contexte, const QStringList& liste)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"colonnes"}, {"separateur"}, {"encodage"}, {"titres", false}}, 2,
                      &code))
            return code;
        if (!arguments.exiger({"colonnes"}))
            return mauvaisUsage(contexte, arguments.erreur());

        // "-" is "- Ne pas importer -"; the headers' case does not matter.
        QStringList entetes;
        for (const QString& mot : arguments.valeur("colonnes").split(u',')) {
            const QString cherche = mot.trimmed() == QStringLiteral("-") ? ImportCsv::nePasImporter() : mot.trimmed();
            const auto trouve = std::find_if(
                ImportCsv::entetes().cbegin(), ImportCsv::entetes().cend(),
                [&cherche](const QString& entete) { return entete.compare(cherche, Qt::CaseInsensitive) == 0; });
            if (trouve == ImportCsv::entetes().cend())
                return mauvaisUsage(contexte, QStringLiteral("en-tête inconnu : « %1 » (choix : -, %2)")
                                                  .arg(mot, ImportCsv::entetes().mid(1).join(", ")));
            entetes << *trouve;
        }
        const QString motSeparateur = arguments.valeur("separateur", QStringLiteral(","));
        const QChar separateur = ImportCsv::separateur(motSeparateur);
        if (motSeparateur.isEmpty() || !CsvParser::refusDelimiteur(separateur).isEmpty())
            return mauvaisUsage(contexte, QStringLiteral("séparateur refusé : « %1 »").arg(motSeparateur));
        const int encodage = int(motsEncodages().indexOf(arguments.valeur("encodage", QStringLiteral("utf-8"))));
        if (encodage < 0)
            return mauvaisUsage(contexte, QStringLiteral("encodage inconnu : « %1 » (choix : %2)")
                                              .arg(arguments.valeur("encodage"), motsEncodages().join(", ")));
        const QString chemin = cheminDocument(arguments);
        if (!documentAccessible(contexte, chemin, &code))
            return code;

        // Everything is checked before the document is touched: a refusal leaves it as it was.
        const LectureCsv lecture =
            ImportCsv::lire(QFileInfo(arguments.positionnels().at(1)).absoluteFilePath(), separateur,
                            ImportCsv::encodage(encodage), arguments.contient("titres"));
        if (!lecture.estComplete())
            return echec(contexte, lecture.ligneErreur > 0 ? lecture.erreur + QStringLiteral(" Rien n'a été importé.")
                                                           : lecture.erreur);
        if (const QString refus = ImportCsv::refus(entetes, lecture.rangees.size()); !refus.isEmpty())
            return echec(contexte, refus);
        for (qsizetype i = lecture.colonnes.size(); i < entetes.size(); ++i)
            if (entetes.at(i) != ImportCsv::nePasImporter())
                return echec(contexte, QStringLiteral("Le fichier n'a que %1 : l'en-tête « %2 » est donné pour une "
                                                      "colonne qu'il n'a pas.")
                                           .arg(lecture.colonnes.size() > 1
                                                    ? QStringLiteral("%1 colonnes").arg(lecture.colonnes.size())
                                                    : QStringLiteral("%1 colonne").arg(lecture.colonnes.size()),
                                                entetes.at(i)));
        if (!preparerEcriture(contexte, chemin, &code))
            return code;

        BaseDeDonnees base;
        if (!base.ouvrir(chemin))
            return echec(contexte, QStringLiteral("Le fichier « %1 » ne peut pas être modifié : %2")
                                       .arg(QDir::toNativeSeparators(chemin), base.derniereErreur()));
        QString erreur;
        const int importes = ImportCsv::importer(base, lecture, entetes, &erreur);
        if (importes < 0)
            return echec(contexte, erreur);
        if (contexte.json)
            ecrireJson(contexte, {{"importes", importes}});
        else
            contexte.sortie << importes << (importes > 1 ? " employeurs importés." : " employeur importé.") << Qt::endl;
        return Succes;
    }
};

} // namespace

std::unique_ptr<Commande> commandeCsv()
{
    return std::make_unique<CommandeCsv>();
}

} // namespace corvane::cli
