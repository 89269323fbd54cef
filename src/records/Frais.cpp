#include "records/Frais.h"

#include "store/Dates.h"
#include "store/FormatFrancais.h"
#include "store/PointDeSauvegarde.h"

#include <QHash>
#include <sqlite3.h>

namespace corvane {

namespace {

// Amounts are written into the statements with two decimals ("%2.2f").
QString deuxDecimales(double montant)
{
    return QString::number(montant, 'f', 2);
}

QString u(int valeur)
{
    return QString::number(uint(valeur));
}

QString sansFrais(const QString& liste, int fraisId)
{
    QStringList ids = liste.split(QLatin1Char(','), Qt::SkipEmptyParts);
    ids.removeAll(QString::number(fraisId));
    return ids.join(QLatin1Char(','));
}

} // namespace

Frais::Frais(const QString& chemin) : Intermittent(chemin) {}

Frais::Frais(BaseDeDonnees& connexion) : Intermittent(connexion) {}

const QStringList& Frais::clesListe()
{
    static const QStringList cles{"Id Frais", "Date", "Date SQLite", "Categorie",
                                  "Montant",  "Note", "Fichier",     "KmOuEuro"};
    return cles;
}

const QStringList& Frais::clesEcran()
{
    static const QStringList cles = QStringList(clesListe()) << "Rembourse"
                                                             << "Id Contrat Lie"
                                                             << "Contrat Lie";
    return cles;
}

QString Frais::titreColonneMontant(int categorie)
{
    return categorie > 0 && !estKilometrage(categorie) ? QStringLiteral("Euros") : QStringLiteral("Km/Euros");
}

QString Frais::ordreDeTri(const QString& sens)
{
    if (sens == QStringLiteral("DESC"))
        return QStringLiteral(" ORDER BY f_date ASC");
    return QStringLiteral(" ORDER BY f_date DESC");
}

QString Frais::unite(int categorieId)
{
    return estKilometrage(categorieId) ? QStringLiteral("km") : QStringLiteral("€");
}

QString Frais::texteMontant(double montant, int categorieId)
{
    return estKilometrage(categorieId) ? enNombre(montant) + QStringLiteral(" km") : enEuros(montant);
}

QString Frais::designationContrat(const QDate& debut, const QString& employeur)
{
    QString texte = QStringLiteral("du %1").arg(Dates::versAffichage(debut));
    if (!employeur.isEmpty())
        texte += QStringLiteral(" chez %1").arg(employeur);
    return texte;
}

int Frais::compteLesFrais()
{
    return int(m_db.entier(QStringLiteral("SELECT COUNT(*) AS nombreFrais FROM frais;")));
}

int Frais::compteLesFraisParCategorie(int categorieId)
{
    return int(m_db.entier(
        QStringLiteral("SELECT COUNT(*) AS nombreFrais FROM frais WHERE f_categorie='%1';").arg(u(categorieId))));
}

bool Frais::fraisExiste(int id)
{
    return m_db.entier(QStringLiteral("SELECT COUNT(*) FROM frais WHERE f_id = ?;"), {id}) > 0;
}

std::optional<Depense> Frais::chargeFrais(int id)
{
    Requete r(m_db, QStringLiteral("SELECT f_categorie, f_details, f_montant, f_date, f_fichier, f_rembourse FROM "
                                   "frais WHERE f_id = %1;")
                        .arg(u(id)));
    if (!r.suivante())
        return std::nullopt;
    Depense d;
    d.id = id;
    d.categorieId = int(r.entier(0));
    d.details = r.texte(1);
    d.montant = r.reel(2);
    d.date = Dates::depuisSQLite(r.texte(3));
    d.fichier = r.texte(4);
    d.rembourse = r.entier(5) != 0;
    d.contratLie = contratLieAuFrais(id);
    return d;
}

QString Frais::refusValeurs(const Depense& d)
{
    if (d.categorieId <= 0 ||
        m_db.entier(QStringLiteral("SELECT COUNT(*) FROM fraistypes WHERE ft_id = ?;"), {d.categorieId}) == 0)
        return QStringLiteral("Veuillez choisir la catégorie de la dépense.");
    if (const QString r = SaisieFrancaise::refusDate(d.date); !r.isEmpty())
        return QStringLiteral("Date : %1.").arg(r);
    if (estKilometrage(d.categorieId)) {
        if (const QString r = SaisieFrancaise::refusNombre(d.montant, kDistance); !r.isEmpty())
            return QStringLiteral("Distance : %1.").arg(r);
    } else if (const QString r = SaisieFrancaise::refusNombre(d.montant, Limites::kMontant); !r.isEmpty()) {
        return QStringLiteral("Montant : %1.").arg(r);
    }
    if (d.contratLie > 0 &&
        m_db.entier(QStringLiteral("SELECT COUNT(*) FROM contrats WHERE c_id = ?;"), {d.contratLie}) == 0)
        return QStringLiteral("Le contrat lié à la dépense n'existe pas.");
    return {};
}

int Frais::enregistreFrais(const Depense& d)
{
    if (!refusValeurs(d).isEmpty())
        return 0;
    PointDeSauvegarde ecriture(m_db);
    if (m_db.executer(QStringLiteral("INSERT INTO frais (f_categorie, f_details, f_montant, f_date, f_fichier) "
                                     "VALUES (%1, ?, %2, '%3', ?);")
                          .arg(u(d.categorieId), deuxDecimales(d.montant), Dates::versSQLite(d.date)),
                      {texteNonNul(d.details), texteNonNul(d.fichier)}) != SQLITE_DONE)
        return 0;
    const int id = int(m_db.dernierIdInsere());
    // The insert leaves the flag to the column's default, which upgraded documents set to 1.
    if (m_db.executer(QStringLiteral("UPDATE frais SET f_rembourse = ? WHERE f_id = ?;"), {int(d.rembourse), id}) !=
            SQLITE_DONE ||
        !lieAuContrat(id, d.contratLie) || !ecriture.valider())
        return 0;
    return id;
}

bool Frais::modifieFrais(const Depense& d)
{
    if (!refusValeurs(d).isEmpty() || !fraisExiste(d.id))
        return false;
    PointDeSauvegarde ecriture(m_db);
    return m_db.executer(QStringLiteral("UPDATE frais SET f_categorie=%1, f_details=?, f_montant=%2, f_date='%3', "
                                        "f_fichier=?, f_rembourse = ? WHERE f_id=?;")
                             .arg(u(d.categorieId), deuxDecimales(d.montant), Dates::versSQLite(d.date)),
                         {texteNonNul(d.details), texteNonNul(d.fichier), int(d.rembourse), d.id}) == SQLITE_DONE &&
           lieAuContrat(d.id, d.contratLie) && ecriture.valider();
}

bool Frais::supprimeFrais(int id)
{
    // The link table's cascades are not enforced: the links go first, by hand.
    PointDeSauvegarde ecriture(m_db);
    return lieAuContrat(id, 0) &&
           m_db.executer(QStringLiteral("DELETE FROM frais WHERE f_id='%1';").arg(u(id))) == SQLITE_DONE &&
           ecriture.valider();
}

bool Frais::supprimeFraisParCategorie(int categorieId)
{
    PointDeSauvegarde ecriture(m_db);
    const QStringList ids =
        m_db.colonne(QStringLiteral("SELECT f_id FROM frais WHERE f_categorie = %1;").arg(u(categorieId)));
    for (const QString& id : ids)
        if (!lieAuContrat(id.toInt(), 0))
            return false;
    return m_db.executer(QStringLiteral("DELETE FROM frais WHERE f_categorie='%1';").arg(u(categorieId))) ==
               SQLITE_DONE &&
           ecriture.valider();
}

int Frais::contratLieAuFrais(int fraisId)
{
    return int(m_db.entier(QStringLiteral("SELECT contrat_id FROM frais JOIN contrats_frais ON frais_id = f_id AND "
                                          "contrat_id = f_contrat_lie WHERE f_id = ? AND f_contrat_lie != '' LIMIT 1;"),
                           {fraisId}));
}

bool Frais::lieAuContrat(int fraisId, int contratId)
{
    const int actuel = contratLieAuFrais(fraisId);
    // An expense that other contracts list as well (the contract form lets one be ticked twice)
    // is tidied too when it moves.
    const bool ailleurs =
        m_db.entier(QStringLiteral("SELECT COUNT(*) FROM contrats_frais WHERE frais_id = ? AND contrat_id != ?;"),
                    {fraisId, actuel}) > 0;
    if (actuel == contratId && !ailleurs)
        return true;
    PointDeSauvegarde ecriture(m_db);
    // Every contract that lists the expense forgets it.
    Requete listes(m_db, QStringLiteral("SELECT c_id, c_frais_lies FROM contrats WHERE ',' || c_frais_lies || ',' "
                                        "LIKE '%,' || ? || ',%';"));
    listes.lier(1, fraisId);
    QList<QPair<int, QString>> aReecrire;
    while (listes.suivante())
        aReecrire.append({int(listes.entier(0)), sansFrais(listes.texte(1), fraisId)});
    for (const auto& [contrat, liste] : aReecrire)
        if (m_db.executer(QStringLiteral("UPDATE contrats SET c_frais_lies = ? WHERE c_id = ?;"), {liste, contrat}) !=
            SQLITE_DONE)
            return false;
    if (m_db.executer(QStringLiteral("DELETE FROM contrats_frais WHERE frais_id = %1;").arg(u(fraisId))) != SQLITE_DONE)
        return false;
    if (contratId <= 0)
        return m_db.executer(QStringLiteral("UPDATE frais SET f_contrat_lie = '' WHERE f_id = %1;").arg(u(fraisId))) ==
                   SQLITE_DONE &&
               ecriture.valider();
    // As the contract form links its expenses.
    const QString liste = m_db.texte(QStringLiteral("SELECT c_frais_lies FROM contrats WHERE c_id = ?;"), {contratId});
    QStringList ids = liste.split(QLatin1Char(','), Qt::SkipEmptyParts);
    ids << QString::number(fraisId);
    return m_db.executer(
               QStringLiteral("UPDATE frais SET f_contrat_lie = %1  WHERE f_id = %2;").arg(u(contratId), u(fraisId))) ==
               SQLITE_DONE &&
           m_db.executer(QStringLiteral("INSERT INTO contrats_frais (contrat_id, frais_id) VALUES (%1, %2);")
                             .arg(u(contratId), u(fraisId))) == SQLITE_DONE &&
           m_db.executer(QStringLiteral("UPDATE contrats SET c_frais_lies = ? WHERE c_id = ?;"),
                         {ids.join(QLatin1Char(',')), contratId}) == SQLITE_DONE &&
           ecriture.valider();
}

// --- Listing -------------------------------------------------------------------------------

QString Frais::construitClauseWhere(const FiltreFrais& filtre) const
{
    const QString categorie = u(filtre.categorie);
    if (filtre.filtre == QStringLiteral("PERIODE")) {
        const QString du = Dates::versSQLite(filtre.du), au = Dates::versSQLite(filtre.au);
        if (filtre.categorie > 0)
            return QStringLiteral("WHERE f_categorie='%1' AND f_date BETWEEN '%2' AND '%3'").arg(categorie, du, au);
        return QStringLiteral("WHERE f_date BETWEEN '%1' AND '%2'").arg(du, au);
    }
    if (filtre.filtre == QStringLiteral("ANNEE")) {
        const QString annee =
            QStringLiteral("f_date BETWEEN date('now', 'start of year') AND date('now', 'start of year', '+1 year')");
        if (filtre.categorie > 0)
            return QStringLiteral("WHERE f_categorie='%1' AND %2").arg(categorie, annee);
        return QStringLiteral("WHERE ") + annee;
    }
    if (filtre.categorie > 0)
        return QStringLiteral("WHERE f_categorie=%1").arg(categorie);
    return {};
}

Table Frais::listeLesFrais(const FiltreFrais& filtre, bool colonnesEcran)
{
    clauseWhere = construitClauseWhere(filtre);
    Table table{colonnesEcran ? clesEcran() : clesListe(), {}};
    // The categories' labels read once, not once a row.
    QHash<int, QString> categories;
    Requete libelles(m_db, QStringLiteral("SELECT ft_id, ft_type FROM fraistypes;"));
    while (libelles.suivante())
        categories.insert(int(libelles.entier(0)), libelles.texte(1));

    QString sql = QStringLiteral("SELECT f_id, f_categorie, f_details, f_montant, f_date, f_fichier FROM frais %1%2;");
    if (colonnesEcran)
        // The linked contract as the link table holds it, named by its start and its employer.
        sql = QStringLiteral("SELECT f_id, f_categorie, f_details, f_montant, f_date, f_fichier, f_rembourse, c_id, "
                             "c_debut_contrat, e_raison_sociale FROM frais LEFT JOIN (SELECT DISTINCT contrat_id, "
                             "frais_id FROM contrats_frais) AS liens ON liens.frais_id = f_id AND liens.contrat_id = "
                             "f_contrat_lie AND f_contrat_lie != '' LEFT JOIN contrats ON c_id = liens.contrat_id "
                             "LEFT JOIN employeurs ON e_id = c_employeur_id %1%2;");
    Requete r(m_db, sql.arg(clauseWhere, ordreDeTri(filtre.sens)));
    while (r.suivante()) {
        const int categorie = int(r.entier(1));
        const QString stockee = r.texte(4);
        QVariantList rangee{int(r.entier(0)), Dates::versAffichage(Dates::depuisSQLite(stockee)),
                            stockee,          categories.value(categorie),
                            r.reel(3),        r.texte(2),
                            r.texte(5),       unite(categorie)};
        if (colonnesEcran) {
            const bool lie = !r.estNul(7);
            rangee << int(r.entier(6)) << (lie ? int(r.entier(7)) : 0)
                   << (lie ? designationContrat(Dates::depuisSQLite(r.texte(8)), r.texte(9)) : QString());
        }
        table.rangees.append(rangee);
    }
    return table;
}

double Frais::cumulFrais()
{
    return m_db.reel(QStringLiteral("SELECT SUM(f_montant) AS cumulFrais FROM frais %1;").arg(clauseWhere));
}

Frais::Cumuls Frais::cumulsParUnite()
{
    Cumuls c;
    Requete r(m_db, QStringLiteral("SELECT COUNT(*), TOTAL(CASE WHEN f_categorie = %1 THEN 0 ELSE f_montant END), "
                                   "TOTAL(CASE WHEN f_categorie = %1 THEN f_montant ELSE 0 END) FROM frais %2;")
                        .arg(u(kCategorieKilometrage), clauseWhere));
    if (r.suivante()) {
        c.nombre = int(r.entier(0));
        c.euros = r.reel(1);
        c.kilometres = r.reel(2);
    }
    return c;
}

Table Frais::cumulsParCategorie()
{
    Table table{{"Catégorie", "Nombre", "Montant", "KmOuEuro"}, {}};
    Requete r(m_db, QStringLiteral("SELECT f_categorie, ft_type, COUNT(*), TOTAL(f_montant) FROM frais LEFT JOIN "
                                   "fraistypes ON ft_id = f_categorie %1 GROUP BY f_categorie ORDER BY ft_type;")
                        .arg(clauseWhere));
    while (r.suivante())
        table.rangees.append({r.texte(1), int(r.entier(2)), r.reel(3), unite(int(r.entier(0)))});
    return table;
}

Intermittent::Choix Frais::contratsProposes()
{
    Choix choix;
    Requete r(m_db, QStringLiteral("SELECT c_id, c_debut_contrat, e_raison_sociale FROM contrats LEFT JOIN employeurs "
                                   "ON e_id = c_employeur_id ORDER BY c_debut_contrat DESC, c_id DESC;"));
    while (r.suivante())
        choix.append({int(r.entier(0)), designationContrat(Dates::depuisSQLite(r.texte(1)), r.texte(2))});
    return choix;
}

} // namespace corvane
