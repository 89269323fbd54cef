#include "manager/Propositions.h"

#include "store/Dates.h"
#include "store/PointDeSauvegarde.h"
#include "store/SaisieFrancaise.h"

#include <sqlite3.h>

#include <cmath>

namespace corvane {

namespace {

constexpr auto kFormatHeure = "HH:mm:ss";

double auCentime(double montant)
{
    return std::round(montant * 100.0) / 100.0;
}

QString texteHeure(const QTime& heure)
{
    return (heure.isValid() ? heure : QTime(0, 0)).toString(QString::fromLatin1(kFormatHeure));
}

} // namespace

// --- Statuses and texts -----------------------------------------------------------------------

const QList<int>& Propositions::statutsDuMenu()
{
    static const QList<int> codes{kPreparation, kEnvoyee, kAcceptee, kRefusee, kFacturee};
    return codes;
}

int Propositions::statutDeLIndex(int index)
{
    return statutsDuMenu().value(index, kPreparation);
}

int Propositions::indexDuStatut(int statut)
{
    return qMax(0, int(statutsDuMenu().indexOf(statut)));
}

QString Propositions::libelleStatut(int statut)
{
    switch (statut) {
    case kEnvoyee:
        return QStringLiteral("Envoyée");
    case kAcceptee:
        return QStringLiteral("Acceptée");
    case kRefusee:
        return QStringLiteral("Refusée");
    case kFacturee:
        return QStringLiteral("Facturée");
    default:
        return QStringLiteral("En préparation");
    }
}

QString Propositions::imageStatut(int statut)
{
    switch (statut) {
    case kEnvoyee:
        return QStringLiteral("ENVOYEE");
    case kAcceptee:
        return QStringLiteral("ACCEPTEE");
    case kRefusee:
        return QStringLiteral("REFUSEE");
    case kFacturee:
        return QStringLiteral("FACTUREE");
    default:
        return {};
    }
}

const QStringList& Propositions::motsStatuts()
{
    // In the order of statutsDuMenu().
    static const QStringList mots{"preparation", "envoyee", "acceptee", "refusee", "facturee"};
    return mots;
}

QString Propositions::libelleParPersonne(const QString& prestation, int personnes)
{
    return QStringLiteral("%1 (%2 personnes)").arg(prestation).arg(personnes);
}

QString Propositions::titreAlertes()
{
    return QStringLiteral("Propositions");
}

QString Propositions::titreGestion()
{
    return QStringLiteral("Gestion des Propositions");
}

QString Propositions::titreEmployeurs()
{
    return QStringLiteral("Gestion des employeurs");
}

QString Propositions::messageFacturee()
{
    return QStringLiteral(
        "Selon la loi, une proposition facturée ainsi que la facture associée, ne peuvent pas être modifiées.");
}

QString Propositions::messageLieeAUnEvenement()
{
    return QStringLiteral("Cette proposition ne peut pas être supprimée tant qu'elle est liée à un événement.");
}

QString Propositions::messageAucuneSelection()
{
    return QStringLiteral("Aucune proposition n'est sélectionnée...");
}

QString Propositions::messageLigneSansSelection()
{
    return QStringLiteral("Sélectionnez d'abord une proposition...");
}

QString Propositions::messageOrganisateurIncomplet()
{
    return QStringLiteral("Veuillez renseigner le nom et la commune.");
}

QString Propositions::messageOrganisateurExistant()
{
    return QStringLiteral("Cet établissement existe déjà...");
}

// --- Headings ---------------------------------------------------------------------------------

bool Propositions::propositionExiste(int id)
{
    return m_db.entier(QStringLiteral("SELECT COUNT(*) FROM propositionslibelles WHERE pl_id = ?;"), {id}) > 0;
}

std::optional<EnteteProposition> Propositions::entete(int id)
{
    Requete r(m_db, QStringLiteral("SELECT pl_id, pl_libelle, pl_employeur_id, pl_date, pl_statut, pl_commune, "
                                   "pl_heure, pl_heure_flag, pl_duree, pl_duree_flag, pl_charges_montant, "
                                   "pl_charges_flag, pl_qualite FROM propositionslibelles WHERE pl_id = ?;"));
    r.lier(1, id);
    if (!r.suivante())
        return std::nullopt;
    EnteteProposition e;
    e.id = int(r.entier(0));
    e.libelle = r.texte(1);
    e.employeurId = int(r.entier(2));
    e.date = Dates::depuisSQLite(r.texte(3));
    e.statut = int(r.entier(4));
    e.commune = r.texte(5);
    e.heure = QTime::fromString(r.texte(6).left(8), QString::fromLatin1(kFormatHeure));
    e.heureDonnee = r.entier(7) == 1;
    e.duree = QTime::fromString(r.texte(8).left(8), QString::fromLatin1(kFormatHeure));
    e.dureeDonnee = r.entier(9) == 1;
    e.charges = r.reel(10);
    e.chargesNonAjoutees = r.entier(11) == 1;
    e.qualiteId = int(r.entier(12));
    return e;
}

QString Propositions::refusEntete(const EnteteProposition& e)
{
    if (e.libelle.trimmed().isEmpty())
        return QStringLiteral("Veuillez saisir un libellé pour la proposition.");
    if (retrouveEmployeurDepuisId(e.employeurId).isEmpty())
        return QStringLiteral("Veuillez choisir un organisateur.");
    if (const QString r = SaisieFrancaise::refusDate(e.date); !r.isEmpty())
        return QStringLiteral("Date : %1.").arg(r);
    if (const QString r = SaisieFrancaise::refusNombre(e.charges, Limites::kMontant); !r.isEmpty())
        return QStringLiteral("Charges : %1.").arg(r);
    if ((e.heureDonnee && !e.heure.isValid()) || (e.dureeDonnee && !e.duree.isValid()))
        return QStringLiteral("Veuillez saisir une heure et une durée valides.");
    return {};
}

int Propositions::enregistreProposition(const EnteteProposition& e)
{
    if (!refusEntete(e).isEmpty())
        return 0;
    const int code = m_db.executer(
        QStringLiteral("INSERT INTO propositionslibelles (pl_libelle, pl_employeur_id, pl_date, pl_statut, "
                       "pl_commune, pl_heure, pl_heure_flag, pl_duree, pl_duree_flag, pl_charges_montant, "
                       "pl_charges_flag, pl_qualite) VALUES (?, ?, ?, 0, ?, ?, ?, ?, ?, ?, ?, ?);"),
        {e.libelle.trimmed(), e.employeurId, Dates::versSQLite(e.date), texteNonNul(e.commune), texteHeure(e.heure),
         e.heureDonnee ? 1 : 0, texteHeure(e.duree), e.dureeDonnee ? 1 : 0, auCentime(e.charges),
         e.chargesNonAjoutees ? 1 : 0, e.qualiteId});
    return code == SQLITE_DONE ? int(m_db.dernierIdInsere()) : 0;
}

bool Propositions::modifieProposition(const EnteteProposition& e)
{
    if (!propositionExiste(e.id) || !refusEntete(e).isEmpty())
        return false;
    return m_db.executer(QStringLiteral("UPDATE propositionslibelles SET pl_libelle = ?, pl_employeur_id = ?, "
                                        "pl_date = ?, pl_commune = ?, pl_heure = ?, pl_heure_flag = ?, pl_duree = ?, "
                                        "pl_duree_flag = ?, pl_charges_montant = ?, pl_charges_flag = ?, "
                                        "pl_qualite = ? WHERE pl_id = ?;"),
                         {e.libelle.trimmed(), e.employeurId, Dates::versSQLite(e.date), texteNonNul(e.commune),
                          texteHeure(e.heure), e.heureDonnee ? 1 : 0, texteHeure(e.duree), e.dureeDonnee ? 1 : 0,
                          auCentime(e.charges), e.chargesNonAjoutees ? 1 : 0, e.qualiteId, e.id}) == SQLITE_DONE;
}

QString Propositions::changeStatut(int id, int statut, bool* ecrit)
{
    if (ecrit)
        *ecrit = false;
    const std::optional<EnteteProposition> e = entete(id);
    if (!e || !statutsDuMenu().contains(statut))
        return {};
    // The notice does not stop the change: the user is told, and the status is written.
    const QString avertissement = e->statut == kFacturee ? messageFacturee() : QString();
    const bool ok = m_db.executer(QStringLiteral("UPDATE propositionslibelles SET pl_statut = ? WHERE pl_id = ?;"),
                                  {statut, id}) == SQLITE_DONE;
    if (ecrit)
        *ecrit = ok;
    return avertissement;
}

QString Propositions::refusSuppression(int id)
{
    // A text match on purpose: "LIKE '%1%'" also finds the events of propositions 10 to 19, 21….
    const QString sql = QStringLiteral("SELECT COUNT(*) FROM evenements WHERE e_proposition_id LIKE '%") +
                        QString::number(id) + QStringLiteral("%';");
    return m_db.entier(sql) != 0 ? messageLieeAUnEvenement() : QString();
}

bool Propositions::supprimeProposition(int id)
{
    if (!propositionExiste(id) || !refusSuppression(id).isEmpty())
        return false;
    PointDeSauvegarde point(m_db);
    if (!point.estOuvert())
        return false;
    if (m_db.executer(QStringLiteral("DELETE FROM propositions WHERE p_libelle_id = %1;").arg(uint(id))) !=
            SQLITE_DONE ||
        m_db.executer(QStringLiteral("DELETE FROM propositionslibelles WHERE pl_id = %1;").arg(uint(id))) !=
            SQLITE_DONE)
        return false;
    return point.valider();
}

const QStringList& Propositions::clesListe()
{
    static const QStringList cles{"Id",          "Libellé", "Organisateur", "Date",
                                  "Date SQLite", "Commune", "Statut",       "Montant"};
    return cles;
}

Table Propositions::listeDesPropositions()
{
    Table table{clesListe(), {}};
    QList<int> ids;
    {
        Requete r(m_db, QStringLiteral("SELECT pl_id, pl_libelle, e_raison_sociale, pl_date, pl_commune, pl_statut "
                                       "FROM propositionslibelles LEFT JOIN employeurs ON pl_employeur_id = e_id "
                                       "ORDER BY pl_date DESC, pl_id DESC;"));
        while (r.suivante()) {
            const QString jour = r.texte(3);
            ids << int(r.entier(0));
            table.rangees.append({int(r.entier(0)), r.texte(1), r.texte(2),
                                  Dates::versAffichage(Dates::depuisSQLite(jour)), jour, r.texte(4), int(r.entier(5)),
                                  0.0});
        }
    }
    const int montant = table.colonne(QStringLiteral("Montant"));
    for (qsizetype i = 0; i < ids.size(); ++i)
        table.rangees[i][montant] = calculatesTotalAmount(ids.at(i));
    return table;
}

// --- Lines ------------------------------------------------------------------------------------

QString Propositions::refusLigne(const LigneProposition& l)
{
    if (!propositionExiste(l.propositionId))
        return messageLigneSansSelection();
    TarifsPropositions tarifs(m_db);
    const std::optional<Prestation> prestation = tarifs.prestation(l.prestationId);
    if (!prestation)
        return QStringLiteral("Veuillez choisir une prestation.");
    if (!tarifs.remise(l.remiseId))
        return QStringLiteral("Veuillez choisir une remise.");
    if (!tarifs.delai(l.delaiId))
        return QStringLiteral("Veuillez choisir un délai.");
    if (const QString r = SaisieFrancaise::refusDate(l.date); !r.isEmpty())
        return QStringLiteral("Date : %1.").arg(r);
    // A service priced per person is worth nothing without anybody.
    if (const QString r = SaisieFrancaise::refusEntier(l.personnes, prestation->parPersonne ? 1 : 0, kPersonnesMaximum);
        !r.isEmpty())
        return QStringLiteral("Nombre de personnes : %1.").arg(r);
    return {};
}

int Propositions::ajouteLigne(const LigneProposition& l)
{
    if (!refusLigne(l).isEmpty())
        return 0;
    const int employeur = int(m_db.entier(
        QStringLiteral("SELECT pl_employeur_id FROM propositionslibelles WHERE pl_id = ?;"), {l.propositionId}));
    const int code = m_db.executer(
        QStringLiteral("INSERT INTO propositions (p_libelle_id, p_employeur_id, p_remise_id, p_prestationtype_id, "
                       "p_delai_id, p_date, p_nbre_personnes) VALUES (?, ?, ?, ?, ?, ?, ?);"),
        {l.propositionId, employeur, l.remiseId, l.prestationId, l.delaiId, Dates::versSQLite(l.date), l.personnes});
    return code == SQLITE_DONE ? int(m_db.dernierIdInsere()) : 0;
}

bool Propositions::supprimeLigne(int id)
{
    return m_db.executer(QStringLiteral("DELETE FROM propositions WHERE p_id = %1;").arg(uint(id))) == SQLITE_DONE &&
           m_db.modifications() > 0;
}

const QStringList& Propositions::clesLignes()
{
    static const QStringList cles{"Id",     "Date",         "Date SQLite", "Groupe",  "Prestation",
                                  "Prix",   "Par personne", "Personnes",   "Montant", "Id Remise",
                                  "Remise", "Id Délai",     "Délai",       "Note"};
    return cles;
}

Table Propositions::lignesDeLaProposition(int id)
{
    Table table{clesLignes(), {}};
    // The joins of the total: a line the total leaves out is not shown either.
    Requete r(m_db, QStringLiteral(
                        "SELECT propositions.p_id, p_date, prestations.p_libelle, pt_libelle, pt_montant, "
                        "pt_par_personne, p_nbre_personnes, r_id, r_montant, r_type, d_id, d_nombre, d_type, pt_note "
                        "FROM propositions JOIN prestationstypes ON p_prestationtype_id = pt_id JOIN prestations ON "
                        "pt_prestation_id = prestations.p_id JOIN remises ON p_remise_id = r_id JOIN employeurs ON "
                        "p_employeur_id = e_id LEFT JOIN delais ON p_delai_id = d_id WHERE p_libelle_id = ? ORDER BY "
                        "propositions.p_id ASC;"));
    r.lier(1, id);
    while (r.suivante()) {
        const QString jour = r.texte(1);
        const bool parPersonne = r.entier(5) == 1;
        const int personnes = int(r.entier(6));
        const double prix = r.reel(4);
        const Remise remise{int(r.entier(7)), r.reel(8), int(r.entier(9)), QString()};
        const Delai delai{int(r.entier(10)), int(r.entier(11)), int(r.entier(12))};
        table.rangees.append({int(r.entier(0)), Dates::versAffichage(Dates::depuisSQLite(jour)), jour, r.texte(2),
                              parPersonne ? libelleParPersonne(r.texte(3), personnes) : r.texte(3), prix,
                              parPersonne ? 1 : 0, personnes, parPersonne ? prix * personnes : prix, remise.id,
                              TarifsPropositions::libelleRemise(remise), delai.id,
                              delai.id ? TarifsPropositions::libelleDelai(delai) : QString(), r.texte(13)});
    }
    return table;
}

QList<LigneProposition> Propositions::lignes(int id)
{
    QList<LigneProposition> liste;
    Requete r(m_db, QStringLiteral("SELECT p_id, p_libelle_id, p_employeur_id, p_remise_id, p_prestationtype_id, "
                                   "p_delai_id, p_date, p_nbre_personnes FROM propositions WHERE p_libelle_id = ? "
                                   "ORDER BY p_id ASC;"));
    r.lier(1, id);
    while (r.suivante())
        liste.append({int(r.entier(0)), int(r.entier(1)), int(r.entier(2)), int(r.entier(3)), int(r.entier(4)),
                      int(r.entier(5)), Dates::depuisSQLite(r.texte(6)), int(r.entier(7))});
    return liste;
}

bool Propositions::remplaceLignes(int id, const QList<LigneProposition>& nouvelles)
{
    PointDeSauvegarde point(m_db);
    if (!point.estOuvert() ||
        m_db.executer(QStringLiteral("DELETE FROM propositions WHERE p_libelle_id = %1;").arg(uint(id))) != SQLITE_DONE)
        return false;
    for (LigneProposition l : nouvelles) {
        l.propositionId = id;
        if (ajouteLigne(l) == 0)
            return false;
    }
    return point.valider();
}

int Propositions::enregistreAvecLignes(const EnteteProposition& e, const QList<LigneProposition>& nouvelles,
                                       QString* refus)
{
    auto refuser = [refus](const QString& texte) {
        if (refus)
            *refus = texte;
        return 0;
    };
    if (const QString r = refusEntete(e); !r.isEmpty())
        return refuser(r);
    PointDeSauvegarde point(m_db);
    if (!point.estOuvert())
        return refuser(QStringLiteral("Le document ne peut pas être modifié."));
    const int id = e.id > 0 ? (modifieProposition(e) ? e.id : 0) : enregistreProposition(e);
    if (id == 0)
        return refuser(QStringLiteral("La proposition n'a pas pu être enregistrée."));
    if (m_db.executer(QStringLiteral("DELETE FROM propositions WHERE p_libelle_id = %1;").arg(uint(id))) != SQLITE_DONE)
        return refuser(QStringLiteral("La proposition n'a pas pu être enregistrée."));
    for (LigneProposition l : nouvelles) {
        l.propositionId = id;
        if (const QString r = refusLigne(l); !r.isEmpty())
            return refuser(r);
        if (ajouteLigne(l) == 0)
            return refuser(QStringLiteral("La proposition n'a pas pu être enregistrée."));
    }
    return point.valider() ? id : refuser(QStringLiteral("La proposition n'a pas pu être enregistrée."));
}

// --- Total ------------------------------------------------------------------------------------

DecompteProposition Propositions::decompte(int id)
{
    DecompteProposition d;
    {
        Requete r(m_db, QStringLiteral(
                            "SELECT pl_charges_montant, pl_charges_flag FROM propositionslibelles WHERE pl_id = %1;")
                            .arg(uint(id)));
        if (r.suivante() && r.entier(1) == 0)
            d.charges = r.reel(0);
    }
    int delaiId = 0;
    {
        Requete r(m_db,
                  QStringLiteral(
                      "SELECT p_employeur_id, p_remise_id, p_prestationtype_id, p_delai_id, p_date, "
                      "pt_prestation_id, pt_libelle, pt_montant, pt_note, p_libelle, r_montant, r_type, "
                      "pl_charges_montant, pl_charges_flag, pt_par_personne, propositions.p_nbre_personnes FROM "
                      "propositions JOIN prestationstypes ON p_prestationtype_id = pt_id JOIN prestations ON "
                      "pt_prestation_id = prestations.p_id JOIN remises ON p_remise_id = r_id JOIN employeurs ON "
                      "p_employeur_id = e_id JOIN propositionslibelles ON p_libelle_id = pl_id WHERE p_libelle_id = "
                      "%1 ORDER BY propositions.p_id ASC;")
                      .arg(uint(id)));
        while (r.suivante()) {
            const double prix = r.reel(7);
            d.lignes += r.entier(14) == 1 ? prix * double(r.entier(15)) : prix;
            // One discount for the whole proposition: the last line's.
            d.remiseAppliquee = Remise{int(r.entier(1)), r.reel(10), int(r.entier(11)), QString()};
            delaiId = int(r.entier(3));
            ++d.nombreDeLignes;
        }
    }
    if (d.nombreDeLignes > 0)
        d.remise = montantRemise(d.lignes, d.remiseAppliquee);
    if (delaiId > 0)
        d.delai = TarifsPropositions(m_db).delai(delaiId).value_or(Delai{});
    d.total = d.lignes + d.charges - d.remise;
    return d;
}

double Propositions::montantRemise(double lignes, const Remise& remise)
{
    if (remise.id == TarifsPropositions::kAucuneRemise)
        return 0.0;
    if (remise.type == TarifsPropositions::kTypeMontant)
        return remise.montant;
    if (remise.type == TarifsPropositions::kTypePourcentage)
        return lignes * remise.montant / 100.0; // on the services only, never on the charges
    return 0.0;
}

// --- Organisers -------------------------------------------------------------------------------

QPair<QString, int> Propositions::communeEtQualiteOrganisateur(const QString& raisonSociale)
{
    Requete r(m_db, QStringLiteral("SELECT e_commune, e_qualite_id FROM employeurs WHERE e_raison_sociale = ?;"));
    r.lier(1, raisonSociale);
    if (!r.suivante())
        return {QString(), 0};
    return {r.texte(0), int(r.entier(1))};
}

QString Propositions::refusOrganisateur(const QString& nom, const QString& commune)
{
    if (nom.trimmed().isEmpty() || commune.trimmed().isEmpty())
        return messageOrganisateurIncomplet();
    if (retrouveEmployeurId(nom.trimmed()) != 0)
        return messageOrganisateurExistant();
    return {};
}

int Propositions::ajouteOrganisateur(const QString& nom, const QString& commune)
{
    if (!refusOrganisateur(nom, commune).isEmpty())
        return 0;
    // The columns of a new employer's form, the others at their defaults; an organiser is a
    // prospect until a contract is signed with it.
    return m_db.executer(QStringLiteral("INSERT INTO employeurs (e_raison_sociale, e_adresse, e_codepostal, "
                                        "e_commune, e_email, e_interlocuteur, e_telephone, e_fax, "
                                        "e_contratmodele_id, e_conventionne, e_prospect) VALUES (?, '', '', ?, '', "
                                        "'', '', '', 0, 1, 1);"),
                         {nom.trimmed(), commune.trimmed()}) == SQLITE_DONE
               ? int(m_db.dernierIdInsere())
               : 0;
}

// --- Events -----------------------------------------------------------------------------------

bool Propositions::evenementExiste(int evenementId)
{
    return m_db.entier(QStringLiteral("SELECT COUNT(*) FROM evenements WHERE e_id = ?;"), {evenementId}) > 0;
}

int Propositions::employeurDeLEvenement(int evenementId)
{
    return int(m_db.entier(QStringLiteral("SELECT e_employeur_id FROM evenements WHERE e_id = ?;"), {evenementId}));
}

int Propositions::propositionDeLEvenement(int evenementId)
{
    return int(m_db.entier(QStringLiteral("SELECT e_proposition_id FROM evenements WHERE e_id = ?;"), {evenementId}));
}

} // namespace corvane
