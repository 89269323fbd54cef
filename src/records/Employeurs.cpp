#include "records/Employeurs.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include <sqlite3.h>

namespace corvane {

namespace {

// Column of each display key, in the list's order.
const QList<QPair<QString, QString>>& colonnesEtCles()
{
    static const QList<QPair<QString, QString>> liste{
        {"e_id", "Id"},
        {"e_raison_sociale", "Enseigne"},
        {"e_adresse", "Adresse"},
        {"e_codepostal", "Code Postal"},
        {"e_commune", "Commune"},
        {"e_email", "Email"},
        {"e_interlocuteur", "Interlocuteur"},
        {"e_telephone", "Telephone"},
        {"e_fax", "Fax"},
        {"e_contratmodele_id", "ContratModeleId"},
        {"e_conventionne", "Conventionne"},
        {"e_latitude", "Latitude"},
        {"e_longitude", "Longitude"},
        {"e_no_siret", "Siret"},
        {"e_no_licence_spectacle", "Licence Spectacle"},
        {"e_couleur", "Couleur"},
        {"e_guso", "Is Guso"},
        {"e_qualite_id", "Qualité Id"},
        {"e_no_guso", "Numéro Guso"},
        {"e_prospect", "Is Prospect"},
        {"e_code_ape", "APE"},
    };
    return liste;
}

} // namespace

Employeurs::Employeurs(const QString& chemin) : Intermittent(chemin) {}

const QStringList& Employeurs::clesListe()
{
    static const QStringList cles = [] {
        QStringList l;
        for (const auto& [colonne, cle] : colonnesEtCles())
            l << cle;
        return l;
    }();
    return cles;
}

Employeur Employeurs::depuisLigne(const Ligne& l)
{
    Employeur e;
    e.id = l.value("Id").toInt();
    e.raisonSociale = l.value("Enseigne").toString();
    e.adresse = l.value("Adresse").toString();
    e.codePostal = l.value("Code Postal").toString();
    e.commune = l.value("Commune").toString();
    e.email = l.value("Email").toString();
    e.interlocuteur = l.value("Interlocuteur").toString();
    e.telephone = l.value("Telephone").toString();
    e.fax = l.value("Fax").toString();
    e.contratModeleId = l.value("ContratModeleId").toInt();
    e.conventionne = l.value("Conventionne", 1).toInt();
    e.latitude = l.value("Latitude").toDouble();
    e.longitude = l.value("Longitude").toDouble();
    e.siret = l.value("Siret").toString();
    e.licenceSpectacle = l.value("Licence Spectacle").toString();
    e.couleur = l.value("Couleur", QStringLiteral("0,0,0")).toString();
    e.guso = l.value("Is Guso").toInt();
    e.qualiteId = l.value("Qualité Id", 2).toInt();
    e.numeroGuso = l.value("Numéro Guso").toString();
    e.prospect = l.value("Is Prospect", 1).toInt();
    e.codeApe = l.value("APE").toString();
    return e;
}

Ligne Employeurs::versLigne(const Employeur& e)
{
    return {{"Id", e.id},
            {"Enseigne", e.raisonSociale},
            {"Adresse", e.adresse},
            {"Code Postal", e.codePostal},
            {"Commune", e.commune},
            {"Email", e.email},
            {"Interlocuteur", e.interlocuteur},
            {"Telephone", e.telephone},
            {"Fax", e.fax},
            {"ContratModeleId", e.contratModeleId},
            {"Conventionne", e.conventionne},
            {"Latitude", e.latitude},
            {"Longitude", e.longitude},
            {"Siret", e.siret},
            {"Licence Spectacle", e.licenceSpectacle},
            {"Couleur", e.couleur},
            {"Is Guso", e.guso},
            {"Qualité Id", e.qualiteId},
            {"Numéro Guso", e.numeroGuso},
            {"Is Prospect", e.prospect},
            {"APE", e.codeApe}};
}

// --- Counts -------------------------------------------------------------------------------

int Employeurs::compteLesEmployeurs()
{
    return int(m_db.entier(QStringLiteral("SELECT COUNT(*) AS nombreEmployeurs FROM employeurs;")));
}

int Employeurs::compteLesEmployeursAvecRaisonSocialeCommune(const QString& raisonSociale, const QString& commune)
{
    return int(m_db.entier(QStringLiteral("SELECT COUNT(*) AS nombreEmployeurs FROM employeurs WHERE "
                                          "e_raison_sociale=? AND e_commune=?;"),
                           {texteNonNul(raisonSociale), texteNonNul(commune)}));
}

int Employeurs::compteLesEmployeursParModeleDeContrat(int modeleId)
{
    return int(
        m_db.entier(QStringLiteral("SELECT COUNT(*) AS nombreEmployeurs FROM employeurs WHERE e_contratmodele_id='%1';")
                        .arg(uint(modeleId))));
}

int Employeurs::existanceEmployeur(const QString& raisonSociale, const QString& codePostal, const QString& commune)
{
    return int(m_db.entier(QStringLiteral("SELECT COUNT(*) AS nombreEmployeurs FROM employeurs WHERE "
                                          "(e_raison_sociale = ? AND e_codepostal = ? AND e_commune = ?);"),
                           {texteNonNul(raisonSociale), texteNonNul(codePostal), texteNonNul(commune)}));
}

int Employeurs::compteLesContrats(int id)
{
    return int(m_db.entier(QStringLiteral("SELECT COUNT(*) FROM contrats WHERE c_employeur_id=%1;").arg(uint(id))));
}

// --- Writing --------------------------------------------------------------------------------

QString Employeurs::messageExisteDeja()
{
    return QStringLiteral("Cet employeur existe déjà.");
}

QString Employeurs::messageRaisonSocialeObligatoire()
{
    return QStringLiteral("La raison sociale de l'employeur est obligatoire.");
}

QString Employeurs::refusEnregistrement(const Employeur& e)
{
    if (e.raisonSociale.trimmed().isEmpty())
        return messageRaisonSocialeObligatoire();
    if (!std::isfinite(e.latitude) || std::abs(e.latitude) > 90.0 || !std::isfinite(e.longitude) ||
        std::abs(e.longitude) > 180.0)
        return QStringLiteral("La position de l'employeur doit avoir une latitude entre -90 et 90 et une longitude "
                              "entre -180 et 180.");
    // Same name in another town (or postal code) is another employer.
    const int autres =
        int(m_db.entier(QStringLiteral("SELECT COUNT(*) FROM employeurs WHERE e_raison_sociale = ? AND "
                                       "e_codepostal = ? AND e_commune = ? AND e_id <> %1;")
                            .arg(uint(e.id)),
                        {texteNonNul(e.raisonSociale), texteNonNul(e.codePostal), texteNonNul(e.commune)}));
    return autres > 0 ? messageExisteDeja() : QString();
}

int Employeurs::enregistreEmployeur(const Employeur& e)
{
    const int code = m_db.executer(
        QStringLiteral("INSERT INTO employeurs (e_raison_sociale, e_adresse, e_codepostal, e_commune, e_email, "
                       "e_interlocuteur, e_telephone, e_fax, e_contratmodele_id, e_conventionne) VALUES (?, ?, ?, ?, "
                       "?, ?, ?, ?, %1, %2);")
            .arg(uint(e.contratModeleId))
            .arg(uint(e.conventionne)),
        {texteNonNul(e.raisonSociale), texteNonNul(e.adresse), texteNonNul(e.codePostal), texteNonNul(e.commune),
         texteNonNul(e.email), texteNonNul(e.interlocuteur), texteNonNul(e.telephone), texteNonNul(e.fax)});
    return code == SQLITE_DONE ? int(m_db.dernierIdInsere()) : 0;
}

bool Employeurs::modifieEmployeur(const Employeur& e)
{
    return m_db.executer(QStringLiteral("UPDATE employeurs SET e_raison_sociale=?, e_adresse=?, e_codepostal=?, "
                                        "e_commune=?, e_email=?, e_interlocuteur=?, e_telephone=?, e_fax=?, "
                                        "e_contratmodele_id=%1, e_conventionne=%2 WHERE e_id=?;")
                             .arg(uint(e.contratModeleId))
                             .arg(uint(e.conventionne)),
                         {texteNonNul(e.raisonSociale), texteNonNul(e.adresse), texteNonNul(e.codePostal),
                          texteNonNul(e.commune), texteNonNul(e.email), texteNonNul(e.interlocuteur),
                          texteNonNul(e.telephone), texteNonNul(e.fax), e.id}) == SQLITE_DONE;
}

bool Employeurs::enregistreComplements(const Employeur& e)
{
    return m_db.executer(QStringLiteral("UPDATE employeurs SET e_latitude=?, e_longitude=?, e_no_siret=?, "
                                        "e_no_licence_spectacle=?, e_couleur=?, e_guso=%1, e_qualite_id=%2, "
                                        "e_no_guso=?, e_prospect=%3, e_code_ape=? WHERE e_id=%4;")
                             .arg(uint(e.guso))
                             .arg(uint(e.qualiteId))
                             .arg(uint(e.prospect))
                             .arg(uint(e.id)),
                         {e.latitude, e.longitude, texteNonNul(e.siret), texteNonNul(e.licenceSpectacle),
                          texteNonNul(e.couleur), texteNonNul(e.numeroGuso), texteNonNul(e.codeApe)}) == SQLITE_DONE;
}

bool Employeurs::annuleContratsModeles(int modeleId)
{
    return m_db.exec(QStringLiteral("UPDATE employeurs SET e_contratmodele_id=0 WHERE e_contratmodele_id=%1;")
                         .arg(uint(modeleId))) == SQLITE_OK;
}

bool Employeurs::supprimeEmployeur(int id)
{
    return m_db.exec(QStringLiteral("DELETE FROM employeurs WHERE e_id='%1';").arg(uint(id))) == SQLITE_OK;
}

bool Employeurs::enregistreLesCochesPourId(int id, bool conventionne)
{
    return m_db.exec(QStringLiteral("UPDATE employeurs SET e_conventionne=%1 WHERE e_id=%2;")
                         .arg(conventionne ? 1 : 0)
                         .arg(uint(id))) == SQLITE_OK;
}

// --- Reading --------------------------------------------------------------------------------

int Employeurs::retrouveIdEmployeur(const QString& raisonSociale)
{
    return int(m_db.entier(QStringLiteral("SELECT e_id FROM employeurs WHERE e_raison_sociale=?;"), {raisonSociale}));
}

Table Employeurs::listeLesEmployeurs()
{
    QStringList colonnes;
    for (const auto& [colonne, cle] : colonnesEtCles())
        colonnes << colonne;
    Table table{clesListe(), {}};
    Requete r(m_db,
              QStringLiteral("SELECT %1 FROM employeurs ORDER BY e_raison_sociale ASC;").arg(colonnes.join(", ")));
    while (r.suivante()) {
        QVariantList valeurs;
        valeurs.reserve(colonnes.size());
        for (int i = 0; i < colonnes.size(); ++i)
            valeurs << r.valeur(i);
        table.rangees << valeurs;
    }
    return table;
}

std::optional<Employeur> Employeurs::employeur(int id)
{
    const Table table = listeLesEmployeurs();
    const int colonneId = table.colonne(QStringLiteral("Id"));
    for (qsizetype rangee = 0; rangee < table.size(); ++rangee) {
        if (table.valeur(rangee, colonneId).toInt() == id)
            return depuisLigne(table.ligne(rangee));
    }
    return std::nullopt;
}

QList<QPair<int, QString>> Employeurs::qualites()
{
    QList<QPair<int, QString>> liste;
    Requete r(m_db, QStringLiteral("SELECT q_id, q_libelle FROM qualites ORDER BY q_libelle ASC;"));
    while (r.suivante())
        liste.append({int(r.entier(0)), r.texte(1)});
    return liste;
}

QStringList Employeurs::tousLesEmployeurs()
{
    return m_db.colonne(QStringLiteral("SELECT e_raison_sociale FROM employeurs ORDER BY e_raison_sociale ASC;"));
}

// --- Deleting -------------------------------------------------------------------------------

QString Employeurs::titreVerification()
{
    return QStringLiteral("Vérification des données...");
}

QString Employeurs::questionContratsAttribues()
{
    return QStringLiteral(
        "Des contrats sont attribués à cet employeur.\n\nSouhaitez-vous tout supprimer, ou ne rien faire ?");
}

bool Employeurs::supprimeEmployeurAvecVerification(int id, Dialogues& dialogues)
{
    if (compteLesContrats(id) > 0) {
        const QString reponse = dialogues.question(titreVerification(), questionContratsAttribues(), {"Tout", "Rien"});
        if (reponse != QStringLiteral("Tout"))
            return false;
        supprimeEmployeurEtContrats(id);
        return true;
    }
    supprimeEmployeurEtModeles(id);
    return true;
}

void Employeurs::supprimeEmployeurEtContrats(int id)
{
    m_db.exec(QStringLiteral("DELETE FROM contrats WHERE c_employeur_id='%1';").arg(uint(id)));
    m_db.exec(QStringLiteral("DELETE FROM employeurs WHERE e_id='%1';").arg(uint(id)));
}

void Employeurs::supprimeEmployeurEtModeles(int id)
{
    m_db.exec(QStringLiteral("DELETE FROM employeurs WHERE e_id = %1;").arg(uint(id)));
    m_db.exec(QStringLiteral("DELETE FROM contratsmodeles WHERE cm_employeur = %1;").arg(uint(id)));
}

// --- Totals ---------------------------------------------------------------------------------

Ligne Employeurs::cumulsPourEmployeur(int id)
{
    Requete r(m_db, QStringLiteral("SELECT SUM(c_nbre_heures) AS total_heures, SUM(c_nbre_jours) AS total_jours, "
                                   "SUM(c_salaire_brut) AS total_salaires_bruts, SUM(c_salaire_net) AS "
                                   "total_salaires_nets FROM contrats WHERE c_employeur_id=%1;")
                        .arg(uint(id)));
    const bool ligne = r.suivante();
    return {{"Heures", ligne ? r.entier(0) : 0},
            {"Journées", ligne ? r.entier(1) : 0},
            {"Salaires bruts", ligne ? r.reel(2) : 0.0},
            {"Salaires nets", ligne ? r.reel(3) : 0.0}};
}

GraphiqueEmployeurs GraphiqueEmployeurs::principaux(int nombre) const
{
    QList<int> ordre(bruts.size());
    std::iota(ordre.begin(), ordre.end(), 0);
    std::stable_sort(ordre.begin(), ordre.end(), [this](int a, int b) {
        return bruts.at(a).value("Amount").toDouble() > bruts.at(b).value("Amount").toDouble();
    });
    GraphiqueEmployeurs choisis;
    const QList<std::pair<const Lignes*, Lignes*>> series{
        {&bruts, &choisis.bruts}, {&nets, &choisis.nets}, {&netsAPayer, &choisis.netsAPayer}};
    for (const auto& [source, cible] : series) {
        double autres = 0.0;
        for (int rang = 0; rang < ordre.size(); ++rang) {
            const Ligne& l = source->at(ordre.at(rang));
            if (rang < nombre || ordre.size() == nombre + 1)
                *cible << l;
            else
                autres += l.value("Amount").toDouble();
        }
        if (ordre.size() > nombre + 1)
            *cible << Ligne{{"Label", QStringLiteral("Autres")}, {"Amount", autres}};
    }
    return choisis;
}

GraphiqueEmployeurs Employeurs::graphiqueDesSalaires()
{
    GraphiqueEmployeurs graphique;
    Requete r(m_db,
              QStringLiteral("SELECT SUM(c_salaire_brut), SUM(c_salaire_net), SUM(c_salaire_net_a_payer), "
                             "e_raison_sociale FROM contrats JOIN employeurs WHERE c_employeur_id = e_id GROUP BY "
                             "e_raison_sociale;"));
    while (r.suivante()) {
        const QString nom = r.texte(3);
        graphique.bruts << Ligne{{"Label", nom}, {"Amount", r.reel(0)}};
        graphique.nets << Ligne{{"Label", nom}, {"Amount", r.reel(1)}};
        graphique.netsAPayer << Ligne{{"Label", nom}, {"Amount", r.reel(2)}};
    }
    return graphique;
}

} // namespace corvane
