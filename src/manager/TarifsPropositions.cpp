#include "manager/TarifsPropositions.h"

#include "store/FormatFrancais.h"

#include <sqlite3.h>

#include <cmath>

namespace corvane {

namespace {

Prestation lirePrestation(const Requete& r)
{
    return Prestation{int(r.entier(0)), int(r.entier(1)), r.texte(2), r.reel(3), r.texte(4), r.entier(5) == 1};
}

constexpr auto kColonnesPrestation = "SELECT pt_id, pt_prestation_id, pt_libelle, pt_montant, pt_note, "
                                     "pt_par_personne FROM prestationstypes ";

// Euros to the cent, half away from zero.
double auCentime(double montant)
{
    return std::round(montant * 100.0) / 100.0;
}

} // namespace

QString TarifsPropositions::titreRemises()
{
    return QStringLiteral("Gestion des remises");
}

QString TarifsPropositions::titreRemisesProposition()
{
    return QStringLiteral("Gestion des Remises");
}

QString TarifsPropositions::titreDelais()
{
    return QStringLiteral("Gestion des délais");
}

QString TarifsPropositions::titrePrestations()
{
    return QStringLiteral("Prestations");
}

QString TarifsPropositions::messageRemiseExistante()
{
    return QStringLiteral("Cette remise existe déjà...");
}

QString TarifsPropositions::messageDelaiExistant()
{
    return QStringLiteral("Ce délai existe déjà...");
}

QString TarifsPropositions::messagePrestationExistante()
{
    return QStringLiteral("Cette prestation existe déjà...");
}

QString TarifsPropositions::unite(int type)
{
    if (type == kTypePourcentage)
        return QStringLiteral("%");
    if (type == kTypeMontant)
        return QStringLiteral("€");
    return {};
}

QString TarifsPropositions::uniteDelai(int type)
{
    return type == 1 ? QStringLiteral("mois") : QStringLiteral("jours");
}

int TarifsPropositions::typeDelai(const QString& unite)
{
    if (unite == QStringLiteral("jours"))
        return 0;
    if (unite == QStringLiteral("mois"))
        return 1;
    return -1;
}

QString TarifsPropositions::libelleRemise(const Remise& remise)
{
    if (remise.id == kAucuneRemise || remise.type == kTypeSansRemise)
        return QStringLiteral("Aucune remise");
    return QStringLiteral("%1 %2").arg(enNombre(remise.montant), unite(remise.type));
}

QString TarifsPropositions::libelleDelai(const Delai& delai)
{
    return QStringLiteral("%1 %2").arg(delai.nombre).arg(uniteDelai(delai.type));
}

// --- Services ---------------------------------------------------------------------------------

Intermittent::Choix TarifsPropositions::groupes()
{
    Choix liste;
    Requete r(m_db, QStringLiteral("SELECT p_id, p_libelle FROM prestations ORDER BY p_libelle ASC;"));
    while (r.suivante())
        liste.append({int(r.entier(0)), r.texte(1)});
    return liste;
}

QList<Prestation> TarifsPropositions::prestations(int groupeId)
{
    QList<Prestation> liste;
    Requete r(m_db, QString::fromLatin1(kColonnesPrestation) +
                        (groupeId > 0 ? QStringLiteral("WHERE pt_prestation_id = ? ") : QString()) +
                        QStringLiteral("ORDER BY pt_prestation_id ASC, pt_libelle ASC;"));
    if (groupeId > 0)
        r.lier(1, groupeId);
    while (r.suivante())
        liste.append(lirePrestation(r));
    return liste;
}

std::optional<Prestation> TarifsPropositions::prestation(int id)
{
    Requete r(m_db, QString::fromLatin1(kColonnesPrestation) + QStringLiteral("WHERE pt_id = ?;"));
    r.lier(1, id);
    if (!r.suivante())
        return std::nullopt;
    return lirePrestation(r);
}

std::optional<Prestation> TarifsPropositions::prestationParLibelle(const QString& libelle)
{
    Requete r(m_db, QStringLiteral("SELECT pt_montant, pt_note, pt_par_personne FROM prestationstypes WHERE "
                                   "pt_libelle = ?;"));
    r.lier(1, libelle);
    if (!r.suivante())
        return std::nullopt;
    Prestation p;
    p.id = findPerformanceId(libelle);
    p.libelle = libelle;
    p.montant = r.reel(0);
    p.note = r.texte(1);
    p.parPersonne = r.entier(2) == 1;
    p.groupeId =
        int(m_db.entier(QStringLiteral("SELECT pt_prestation_id FROM prestationstypes WHERE pt_id = ?;"), {p.id}));
    return p;
}

QString TarifsPropositions::refusPrestation(const Prestation& p)
{
    if (p.libelle.trimmed().isEmpty())
        return QStringLiteral("Veuillez saisir un libellé pour la prestation.");
    if (m_db.entier(QStringLiteral("SELECT COUNT(*) FROM prestationstypes WHERE pt_libelle = ?;"),
                    {p.libelle.trimmed()}) > 0)
        return messagePrestationExistante();
    if (const QString r = SaisieFrancaise::refusNombre(p.montant, kPrix); !r.isEmpty())
        return QStringLiteral("Montant : %1.").arg(r);
    if (m_db.entier(QStringLiteral("SELECT COUNT(*) FROM prestations WHERE p_id = ?;"), {p.groupeId}) == 0)
        return QStringLiteral("Veuillez choisir un groupe de prestations.");
    return {};
}

int TarifsPropositions::ajoutePrestation(const Prestation& p)
{
    if (!refusPrestation(p).isEmpty())
        return 0;
    const int code = m_db.executer(
        QStringLiteral("INSERT INTO prestationstypes (pt_prestation_id, pt_libelle, "
                       "pt_montant, pt_note, pt_par_personne) VALUES (?, ?, ?, ?, ?);"),
        {p.groupeId, p.libelle.trimmed(), auCentime(p.montant), texteNonNul(p.note), p.parPersonne ? 1 : 0});
    return code == SQLITE_DONE ? int(m_db.dernierIdInsere()) : 0;
}

// --- Discounts --------------------------------------------------------------------------------

QList<Remise> TarifsPropositions::remises()
{
    QList<Remise> liste;
    Requete r(m_db, QStringLiteral("SELECT r_id, r_montant, r_type, r_note FROM remises ORDER BY r_id = 1 DESC, "
                                   "r_type ASC, r_montant ASC, r_id ASC;"));
    while (r.suivante())
        liste.append({int(r.entier(0)), r.reel(1), int(r.entier(2)), r.texte(3)});
    return liste;
}

QList<Remise> TarifsPropositions::remisesProposees()
{
    // The pop-up's statement, with the keys that its labels stand for.
    QList<Remise> liste;
    Requete r(m_db, QStringLiteral("SELECT r_montant, r_type, r_id, r_note FROM remises WHERE r_id != 1 ORDER BY "
                                   "r_type ASC;"));
    while (r.suivante())
        liste.append({int(r.entier(2)), r.reel(0), int(r.entier(1)), r.texte(3)});
    return liste;
}

std::optional<Remise> TarifsPropositions::remise(int id)
{
    Requete r(m_db, QStringLiteral("SELECT r_id, r_montant, r_type, r_note FROM remises WHERE r_id = ?;"));
    r.lier(1, id);
    if (!r.suivante())
        return std::nullopt;
    return Remise{int(r.entier(0)), r.reel(1), int(r.entier(2)), r.texte(3)};
}

QString TarifsPropositions::noteRemise(int id)
{
    return m_db.texte(QStringLiteral("SELECT r_note AS note FROM remises WHERE r_id = ?;"), {id});
}

QString TarifsPropositions::refusRemise(const Remise& remise)
{
    if (remise.type != kTypePourcentage && remise.type != kTypeMontant)
        return QStringLiteral("Veuillez choisir un pourcentage ou un montant.");
    const Bornes bornes = remise.type == kTypePourcentage ? Limites::kPourcentage : kPrix;
    if (const QString r = SaisieFrancaise::refusNombre(remise.montant, bornes); !r.isEmpty())
        return QStringLiteral("Remise : %1.").arg(r);
    if (remise.montant <= 0.0)
        return QStringLiteral("Remise : la remise doit être supérieure à zéro.");
    if (m_db.entier(QStringLiteral("SELECT COUNT(*) AS compteur FROM remises WHERE r_montant = ? AND r_type = ?;"),
                    {auCentime(remise.montant), remise.type}) != 0)
        return messageRemiseExistante();
    return {};
}

int TarifsPropositions::ajouteRemise(const Remise& remise)
{
    if (!refusRemise(remise).isEmpty())
        return 0;
    if (m_db.executer(QStringLiteral("INSERT INTO remises (r_montant, r_type, r_note) VALUES (?, ?, ?);"),
                      {auCentime(remise.montant), remise.type, texteNonNul(remise.note)}) != SQLITE_DONE)
        return 0;
    return int(m_db.entier(QStringLiteral("SELECT LAST_INSERT_ROWID() as LASTID FROM remises;")));
}

QString TarifsPropositions::refusSuppressionRemise(int id)
{
    if (!remise(id))
        return QStringLiteral("Cette remise n'existe pas.");
    if (id == kAucuneRemise)
        return QStringLiteral("La ligne « Aucune remise » ne peut pas être supprimée.");
    // A line whose discount is gone would drop out of its proposition's total.
    if (m_db.entier(QStringLiteral("SELECT COUNT(*) FROM propositions WHERE p_remise_id = ?;"), {id}) > 0)
        return QStringLiteral("Cette remise ne peut pas être supprimée car vous l'utilisez pour certaines "
                              "propositions.");
    return {};
}

bool TarifsPropositions::supprimeRemise(int id)
{
    if (!refusSuppressionRemise(id).isEmpty())
        return false;
    return m_db.executer(QStringLiteral("DELETE FROM remises WHERE r_id = %1;").arg(uint(id))) == SQLITE_DONE;
}

// --- Delays -----------------------------------------------------------------------------------

QList<Delai> TarifsPropositions::delais()
{
    QList<Delai> liste;
    Requete r(m_db, QStringLiteral("SELECT d_id, d_nombre, d_type FROM delais ORDER BY d_type ASC, d_nombre ASC;"));
    while (r.suivante())
        liste.append({int(r.entier(0)), int(r.entier(1)), int(r.entier(2))});
    return liste;
}

std::optional<Delai> TarifsPropositions::delai(int id)
{
    Requete r(m_db, QStringLiteral("SELECT d_id, d_nombre, d_type FROM delais WHERE d_id = ?;"));
    r.lier(1, id);
    if (!r.suivante())
        return std::nullopt;
    return Delai{int(r.entier(0)), int(r.entier(1)), int(r.entier(2))};
}

QString TarifsPropositions::refusDelai(const Delai& delai)
{
    if (delai.type != 0 && delai.type != 1)
        return QStringLiteral("Veuillez choisir des jours ou des mois.");
    const int maximum = delai.type == 0 ? kNombreMaximumJours : kNombreMaximumMois;
    if (const QString r = SaisieFrancaise::refusEntier(delai.nombre, 1, maximum); !r.isEmpty())
        return QStringLiteral("Délai : %1.").arg(r);
    if (findDelayIdFromNumber(delai.nombre, uniteDelai(delai.type)) != 0)
        return messageDelaiExistant();
    return {};
}

int TarifsPropositions::ajouteDelai(const Delai& delai)
{
    if (!refusDelai(delai).isEmpty())
        return 0;
    return m_db.executer(QStringLiteral("INSERT INTO delais (d_nombre, d_type) VALUES (?, ?);"),
                         {delai.nombre, delai.type}) == SQLITE_DONE
               ? int(m_db.dernierIdInsere())
               : 0;
}

QString TarifsPropositions::refusSuppressionDelai(int id)
{
    if (!delai(id))
        return QStringLiteral("Ce délai n'existe pas.");
    if (m_db.entier(QStringLiteral("SELECT COUNT(*) FROM propositions WHERE p_delai_id = ?;"), {id}) > 0)
        return QStringLiteral("Ce délai ne peut pas être supprimé car vous l'utilisez pour certaines propositions.");
    return {};
}

bool TarifsPropositions::supprimeDelai(int id)
{
    if (!refusSuppressionDelai(id).isEmpty())
        return false;
    return m_db.executer(QStringLiteral("DELETE FROM delais WHERE d_id = %1;").arg(uint(id))) == SQLITE_DONE;
}

} // namespace corvane
