#include "records/FraisTypes.h"

#include "records/Frais.h"
#include "store/PointDeSauvegarde.h"

#include <sqlite3.h>

namespace corvane {

FraisTypes::FraisTypes(const QString& chemin) : Intermittent(chemin) {}

FraisTypes::FraisTypes(BaseDeDonnees& connexion) : Intermittent(connexion) {}

QString FraisTypes::titreFenetre()
{
    return QStringLiteral("Gestion des catégories de frais");
}

QString FraisTypes::boutonFermer()
{
    return QStringLiteral("Fermer");
}

QString FraisTypes::messageNomVide()
{
    return QStringLiteral("Veuillez saisir un nom pour la nouvelle catégorie.");
}

QString FraisTypes::messageExisteDeja()
{
    return QStringLiteral("Une catégorie porte déjà ce nom.");
}

QString FraisTypes::messageKilometrage()
{
    return QStringLiteral("La catégorie des frais kilométriques ne peut pas être supprimée : ses montants sont des "
                          "distances, que le calcul des frais réels utilise.");
}

QString FraisTypes::messageCategorieInconnue()
{
    return QStringLiteral("Cette catégorie n'existe pas.");
}

QString FraisTypes::questionFraisClasses(int nombre)
{
    const QString classes = nombre > 1 ? QStringLiteral("%1 frais sont classés dans cette catégorie.").arg(nombre)
                                       : QStringLiteral("Un frais est classé dans cette catégorie.");
    return classes + QStringLiteral("\n\nSouhaitez-vous tout supprimer, ou ne rien faire ?");
}

const QStringList& FraisTypes::clesListe()
{
    static const QStringList cles{"Id", "Catégorie", "Frais"};
    return cles;
}

Table FraisTypes::listeLesCategories()
{
    Table table{clesListe(), {}};
    Requete r(m_db, QStringLiteral("SELECT ft_id, ft_type, (SELECT COUNT(*) FROM frais WHERE f_categorie = ft_id) FROM "
                                   "fraistypes ORDER BY ft_type ASC;"));
    while (r.suivante())
        table.rangees.append({int(r.entier(0)), r.texte(1), int(r.entier(2))});
    return table;
}

bool FraisTypes::categorieExiste(int id)
{
    return m_db.entier(QStringLiteral("SELECT COUNT(*) FROM fraistypes WHERE ft_id = ?;"), {id}) > 0;
}

QString FraisTypes::refusNom(const QString& nom, int idExclu)
{
    const QString propre = nom.trimmed();
    if (propre.isEmpty())
        return messageNomVide();
    // Categories are found by their label: two that differ only in case could not be told apart.
    Requete r(m_db, QStringLiteral("SELECT ft_id, ft_type FROM fraistypes;"));
    while (r.suivante())
        if (int(r.entier(0)) != idExclu && r.texte(1).trimmed().compare(propre, Qt::CaseInsensitive) == 0)
            return messageExisteDeja();
    return {};
}

int FraisTypes::enregistreCategorie(const QString& nom)
{
    if (!refusNom(nom).isEmpty())
        return 0;
    if (m_db.executer(QStringLiteral("INSERT INTO fraistypes (ft_type) VALUES (?);"), {nom.trimmed()}) != SQLITE_DONE)
        return 0;
    return int(m_db.dernierIdInsere());
}

bool FraisTypes::renommeCategorie(int id, const QString& nom)
{
    if (!categorieExiste(id) || !refusNom(nom, id).isEmpty())
        return false;
    return m_db.executer(QStringLiteral("UPDATE fraistypes SET ft_type=? WHERE ft_id=?;"), {nom.trimmed(), id}) ==
           SQLITE_DONE;
}

QString FraisTypes::refusSuppression(int id)
{
    if (!categorieExiste(id))
        return messageCategorieInconnue();
    if (Frais::estKilometrage(id))
        return messageKilometrage();
    return {};
}

bool FraisTypes::supprimeCategorie(int id)
{
    if (!refusSuppression(id).isEmpty())
        return false;
    PointDeSauvegarde ecriture(m_db);
    return Frais(m_db).supprimeFraisParCategorie(id) &&
           m_db.executer(QStringLiteral("DELETE FROM fraistypes WHERE ft_id=%1;").arg(uint(id))) == SQLITE_DONE &&
           ecriture.valider();
}

bool FraisTypes::supprimeCategorieAvecVerification(int id, Dialogues& dialogues)
{
    if (const QString refus = refusSuppression(id); !refus.isEmpty()) {
        dialogues.information(titreFenetre(), refus, boutonFermer());
        return false;
    }
    const int nombre = Frais(m_db).compteLesFraisParCategorie(id);
    if (nombre > 0 && dialogues.question(titreFenetre(), questionFraisClasses(nombre),
                                         {QStringLiteral("Tout"), QStringLiteral("Rien")}) != QStringLiteral("Tout"))
        return false;
    return supprimeCategorie(id);
}

} // namespace corvane
