#include "manager/Employes.h"

#include "manager/ListesIds.h"
#include "store/Dates.h"
#include "store/Horloge.h"
#include "store/SaisieFrancaise.h"

#include <sqlite3.h>

namespace corvane {

namespace {

Employe nettoye(Employe e)
{
    e.prenom = e.prenom.trimmed();
    e.nom = e.nom.trimmed();
    return e;
}

QString dateStockee(const QDate& jour)
{
    return jour.isValid() ? Dates::versSQLite(jour) : QStringLiteral("");
}

QVariantList valeurs(const Employe& e)
{
    return {texteNonNul(e.prenom),        texteNonNul(e.nom),   texteNonNul(e.adresse),
            texteNonNul(e.codePostal),    texteNonNul(e.ville), dateStockee(e.naissance),
            texteNonNul(e.lieuNaissance), texteNonNul(e.nir),   texteNonNul(e.fonction)};
}

} // namespace

const QStringList& Employes::clesListe()
{
    static const QStringList cles{"Id",  "Prénom",         "Nom", "Adresse",  "Code Postal", "Ville",
                                  "DOB", "Lieu Naissance", "NIR", "Fonction", "DOB SQLite",  "Structures"};
    return cles;
}

QString Employes::titreAlertes()
{
    return QStringLiteral("Gestion des employés");
}

QString Employes::messageNomVide()
{
    return QStringLiteral("Veuillez saisir le prénom et le nom de l'employé.");
}

QString Employes::messageEmployeExistant()
{
    return QStringLiteral("Un employé porte déjà ce prénom et ce nom.");
}

QString Employes::messageEmployeUtilise()
{
    return QStringLiteral("Cet employé ne peut pas être supprimé car vous l'utilisez pour certaines structures.");
}

Table Employes::listeLesEmployes()
{
    Requete r(m_db, QStringLiteral("SELECT e_id, e_prenom, e_nom, e_adresse, e_code_postal, e_ville, e_dob, "
                                   "e_lieu_naissance, e_nir, e_fonction, e_structures FROM employes ORDER BY e_nom "
                                   "ASC, e_prenom ASC, e_id ASC;"));
    Table table{clesListe(), {}};
    while (r.suivante()) {
        const QString naissance = r.texte(6);
        const QDate jour = Dates::depuisSQLite(naissance);
        table.rangees.append({int(r.entier(0)), r.texte(1), r.texte(2), r.texte(3), r.texte(4), r.texte(5),
                              jour.isValid() ? Dates::versAffichage(jour) : QString(), r.texte(7), r.texte(8),
                              r.texte(9), naissance, r.texte(10)});
    }
    return table;
}

bool Employes::employeExiste(int id)
{
    return m_db.entier(QStringLiteral("SELECT COUNT(*) FROM employes WHERE e_id = ?;"), {id}) > 0;
}

std::optional<Employe> Employes::employe(int id)
{
    Requete r(m_db, QStringLiteral("SELECT e_prenom, e_nom, e_adresse, e_code_postal, e_ville, e_dob, "
                                   "e_lieu_naissance, e_nir, e_fonction FROM employes WHERE e_id = ?;"));
    r.lier(1, id);
    if (!r.suivante())
        return std::nullopt;
    return Employe{r.texte(0), r.texte(1), r.texte(2), r.texte(3), r.texte(4), Dates::depuisSQLite(r.texte(5)),
                   r.texte(6), r.texte(7), r.texte(8)};
}

QString Employes::structuresDeLEmploye(int id)
{
    return m_db.texte(QStringLiteral("SELECT e_structures FROM employes WHERE e_id = ?;"), {id});
}

QString Employes::refusValeurs(const Employe& employe, int idExclu)
{
    const Employe e = nettoye(employe);
    if (e.prenom.isEmpty() || e.nom.isEmpty())
        return messageNomVide();
    if (e.naissance.isValid())
        if (const QString r =
                SaisieFrancaise::refusDate(e.naissance, Limites::premiereNaissance(), Horloge::aujourdhui());
            !r.isEmpty())
            return QStringLiteral("Date de naissance : %1.").arg(r);
    Requete r(m_db, QStringLiteral("SELECT e_id, e_prenom, e_nom FROM employes;"));
    while (r.suivante())
        if (int(r.entier(0)) != idExclu && r.texte(1).trimmed().compare(e.prenom, Qt::CaseInsensitive) == 0 &&
            r.texte(2).trimmed().compare(e.nom, Qt::CaseInsensitive) == 0)
            return messageEmployeExistant();
    return {};
}

int Employes::enregistreEmploye(const Employe& employe)
{
    if (!refusValeurs(employe).isEmpty())
        return 0;
    QVariantList v = valeurs(nettoye(employe));
    v.prepend(QStringLiteral(""));
    return m_db.executer(
               QStringLiteral("INSERT INTO employes (e_structures, e_prenom, e_nom, e_adresse, e_code_postal, "
                              "e_ville, e_dob, e_lieu_naissance, e_nir, e_fonction) VALUES (?, ?, ?, ?, ?, "
                              "?, ?, ?, ?, ?);"),
               v) == SQLITE_DONE
               ? int(m_db.dernierIdInsere())
               : 0;
}

bool Employes::modifieEmploye(int id, const Employe& employe)
{
    if (!employeExiste(id) || !refusValeurs(employe, id).isEmpty())
        return false;
    QVariantList v = valeurs(nettoye(employe));
    v.append(id);
    return m_db.executer(QStringLiteral("UPDATE employes SET e_prenom = ?, e_nom = ?, e_adresse = ?, e_code_postal = "
                                        "?, e_ville = ?, e_dob = ?, e_lieu_naissance = ?, e_nir = ?, e_fonction = ? "
                                        "WHERE e_id = ?;"),
                         v) == SQLITE_DONE;
}

QString Employes::refusSuppression(int id)
{
    if (m_db.entier(QStringLiteral("SELECT COUNT(*) FROM structures WHERE s_employes LIKE ?;"),
                    {ListesIds::motifTexte(id)}) != 0)
        return messageEmployeUtilise();
    return {};
}

bool Employes::supprimeEmploye(int id)
{
    if (!employeExiste(id) || !refusSuppression(id).isEmpty())
        return false;
    return m_db.executer(QStringLiteral("DELETE FROM employes WHERE e_id = %1;").arg(uint(id))) == SQLITE_DONE;
}

} // namespace corvane
