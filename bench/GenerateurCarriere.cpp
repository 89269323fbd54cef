#include "GenerateurCarriere.h"

#include "PlanCarriere.h"
#include "manager/Employes.h"
#include "manager/Evenements.h"
#include "manager/Propositions.h"
#include "manager/Structures.h"
#include "manager/TarifsPropositions.h"
#include "store/BaseDeDonnees.h"
#include "store/Dates.h"
#include "store/Fichiers.h"
#include "store/Horloge.h"

#include <QFile>
#include <QFileInfo>
#include <sqlite3.h>

namespace corvane::bench {

namespace {

QString dates(const QList<QDate>& jours)
{
    QStringList textes;
    for (const QDate& jour : jours)
        textes << Dates::versAffichage(jour);
    return textes.join(QLatin1Char(','));
}

// Writes a plan into an open, empty document. Returns "" or the reason of the first failure.
class Ecriture
{
public:
    Ecriture(BaseDeDonnees& base, const PlanCarriere& plan) : m_base(base), m_plan(plan) {}

    QString ecrire()
    {
        employeurs();
        contrats();
        frais();
        periodesEtProfil();
        arrets();
        historiques();
        return m_erreur;
    }

    // The back office of the performer's own companies, written through the manager's classes so
    // that their rules hold (both id lists of an attachment, an event's staff, the lines' totals).
    // Fixed content, placed around the career's "today" and among its first employers.
    QString ecrireManager(BilanCarriere& bilan)
    {
        Structures structures(m_base);
        const int avril = structures.ajouteStructure(QStringLiteral("Compagnie d'Avril"));
        const int treteaux = structures.ajouteStructure(QStringLiteral("Les Tréteaux du Nord"));
        if (avril == 0 || treteaux == 0)
            return QStringLiteral("les structures n'ont pas pu être écrites.");
        bilan.structures = 2;

        struct Personne
        {
            const char *prenom, *nom, *adresse, *codePostal, *ville, *lieuNaissance, *departement, *fonction;
            int sexe, age, mois, jour;
            bool avril, treteaux;
        };
        static const Personne personnes[] = {
            {"Lucie", "Fontaine", "12 rue des Martyrs", "75009", "Paris", "Nantes", "44109", "Comédienne", 2, 36, 3,
             14, true, false},
            {"Thomas", "Mercier", "5 passage Josset", "75011", "Paris", "Rennes", "35238", "Metteur en scène", 1, 46,
             11, 2, true, false},
            {"Antoine", "Garnier", "3 rue Oberkampf", "75011", "Paris", "Lyon", "69383", "Éclairagiste", 1, 41, 5, 17,
             true, false},
            {"Julien", "Lefebvre", "7 place des Héros", "62000", "Arras", "Lille", "59350", "Régisseur son", 1, 39, 1,
             9, true, true},
            {"Inès", "Baptiste", "38 rue Nationale", "59000", "Lille", "Amiens", "80021", "Comédienne", 2, 32, 7, 21,
             false, true},
            {"Camille", "Roussel", "21 rue de Béthune", "59000", "Lille", "Roubaix", "59512", "Musicienne", 2, 34, 9,
             30, false, true},
        };
        Employes employes(m_base);
        QList<int> dAvril, duNord;
        int ordre = 0;
        for (const Personne& p : personnes) {
            Employe e;
            e.prenom = QString::fromUtf8(p.prenom);
            e.nom = QString::fromUtf8(p.nom);
            e.adresse = QString::fromUtf8(p.adresse);
            e.codePostal = QString::fromUtf8(p.codePostal);
            e.ville = QString::fromUtf8(p.ville);
            e.naissance = QDate(m_plan.fin.year() - p.age, p.mois, p.jour);
            e.lieuNaissance = QString::fromUtf8(p.lieuNaissance);
            e.nir = nirDe(p.sexe, e.naissance, QString::fromLatin1(p.departement), 112 + 37 * ordre++);
            e.fonction = QString::fromUtf8(p.fonction);
            const int id = employes.enregistreEmploye(e);
            if (id == 0)
                return QStringLiteral("l'employé %1 %2 n'a pas pu être écrit.").arg(e.prenom, e.nom);
            if (p.avril)
                dAvril << id;
            if (p.treteaux)
                duNord << id;
            ++bilan.employes;
        }
        if (!structures.rattacheEmployes(avril, dAvril) || !structures.rattacheEmployes(treteaux, duNord))
            return QStringLiteral("les employés n'ont pas pu être rattachés à leurs structures.");

        // Propositions to five organisers, one of each status, priced with the document's own services.
        TarifsPropositions tarifs(m_base);
        auto prestation = [&tarifs](const char* libelle) {
            const std::optional<Prestation> p = tarifs.prestationParLibelle(QString::fromUtf8(libelle));
            return p ? p->id : 0;
        };
        auto remise = [&tarifs](double montant, int type) {
            for (const Remise& r : tarifs.remises())
                if (r.type == type && qFuzzyCompare(r.montant + 1.0, montant + 1.0))
                    return r.id;
            return 0;
        };
        auto delai = [&tarifs](int nombre, int type) {
            for (const Delai& d : tarifs.delais())
                if (d.type == type && d.nombre == nombre)
                    return d.id;
            return 0;
        };
        const int aucune = TarifsPropositions::kAucuneRemise;
        struct Offre
        {
            const char* libelle;
            int employeur, jours, statut;
            double charges;
            bool chargesAPart;
            QTime heure, duree;
            int remiseId, delaiId;
            QList<const char*> prestations;
        };
        const QList<Offre> offres{
            {"Festival des Arts de la Rue", 0, -210, Propositions::kFacturee, 350.0, false, QTime(20, 30), QTime(1, 30),
             remise(10, TarifsPropositions::kTypePourcentage), delai(15, 0), {"Spectacle de Magie", "Sonorisation"}},
            {"Fête de la musique", 1, -160, Propositions::kRefusee, 0.0, false, QTime(), QTime(), aucune, delai(7, 0),
             {"Bal"}},
            {"Arbre de Noël du comité d'entreprise", 2, -45, Propositions::kAcceptee, 120.0, true, QTime(15, 0),
             QTime(1, 0), remise(50, TarifsPropositions::kTypeMontant), delai(1, 1),
             {"Spectacle de Ballons", "Eclairage", "Local"}},
            {"Saison jeune public", 3, 30, Propositions::kEnvoyee, 280.0, false, QTime(10, 0), QTime(0, 50),
             remise(5, TarifsPropositions::kTypePourcentage), delai(15, 0), {"Classique", "National"}},
            {"Carnaval de printemps", 4, 75, Propositions::kPreparation, 0.0, false, QTime(), QTime(), aucune,
             delai(2, 1), {"DJ"}},
        };
        Propositions propositions(m_base);
        QList<int> idsPropositions;
        for (const Offre& o : offres) {
            EnteteProposition entete;
            entete.libelle = QString::fromUtf8(o.libelle);
            entete.employeurId = int(m_employeurs.at(o.employeur % m_employeurs.size()));
            const auto [commune, qualite] =
                propositions.communeEtQualiteOrganisateur(propositions.retrouveEmployeurDepuisId(entete.employeurId));
            entete.commune = commune;
            entete.qualiteId = qualite;
            entete.date = m_plan.fin.addDays(o.jours);
            entete.heure = o.heure;
            entete.heureDonnee = o.heure.isValid();
            entete.duree = o.duree;
            entete.dureeDonnee = o.duree.isValid();
            entete.charges = o.charges;
            entete.chargesNonAjoutees = o.chargesAPart;
            QList<LigneProposition> lignes;
            for (const char* libelle : o.prestations) {
                LigneProposition ligne;
                ligne.prestationId = prestation(libelle);
                ligne.remiseId = o.remiseId;
                ligne.delaiId = o.delaiId;
                ligne.date = entete.date;
                lignes << ligne;
            }
            QString refus;
            const int id = propositions.enregistreAvecLignes(entete, lignes, &refus);
            bool ecrit = false;
            if (id != 0)
                propositions.changeStatut(id, o.statut, &ecrit);
            if (!ecrit)
                return QStringLiteral("la proposition « %1 » n'a pas pu être écrite : %2")
                    .arg(entete.libelle, refus);
            idsPropositions << id;
            ++bilan.propositions;
        }

        // Events: the invoiced and accepted propositions played, a reading and a rehearsal without
        // one; the newest is paid in part.
        struct Date
        {
            const char* nom;
            int proposition; // index in the offers, -1 for none
            int employeur, jours, structure;
            int payes; // how many of the staff, in its order, are paid
        };
        const Date dates[] = {
            {"Festival des Arts de la Rue", 0, 0, -210, avril, 4},
            {"Arbre de Noël du comité d'entreprise", 2, 2, -45, treteaux, 2},
            {"Lecture en médiathèque", -1, 6, -120, treteaux, 3},
            {"Répétition publique", -1, 5, -75, avril, 0},
        };
        Evenements evenements(m_base);
        for (const Date& d : dates) {
            Evenement e;
            e.date = m_plan.fin.addDays(d.jours);
            e.nom = QString::fromUtf8(d.nom);
            e.propositionId = d.proposition >= 0 ? idsPropositions.at(d.proposition) : 0;
            e.employeurId = int(m_employeurs.at(d.employeur % m_employeurs.size()));
            e.structureId = d.structure;
            const int id = evenements.enregistreEvenement(e);
            if (id == 0)
                return QStringLiteral("l'événement « %1 » n'a pas pu être écrit.").arg(e.nom);
            const QStringList salaries = evenements.salaries(id).split(QLatin1Char(','), Qt::SkipEmptyParts);
            for (int i = 0; i < d.payes && i < salaries.size(); ++i)
                if (!evenements.basculePaye(id, salaries.at(i).toInt()))
                    return QStringLiteral("l'événement « %1 » n'a pas pu être réglé.").arg(e.nom);
            ++bilan.evenements;
        }
        return {};
    }

private:
    // Runs a prepared statement with its values; the first failure is kept.
    qint64 executer(Requete& requete, const QVariantList& valeurs)
    {
        requete.reinitialiser();
        requete.lierTout(valeurs);
        if (requete.executer() != SQLITE_DONE && m_erreur.isEmpty())
            m_erreur = m_base.derniereErreur().isEmpty() ? QStringLiteral("erreur SQLite %1").arg(requete.code())
                                                         : m_base.derniereErreur();
        return m_base.dernierIdInsere();
    }

    qint64 cle(const QString& sql, const QString& libelle)
    {
        const qint64 id = m_base.entier(sql, {libelle});
        if (id == 0 && m_erreur.isEmpty())
            m_erreur = QStringLiteral("« %1 » manque dans les listes de référence du document.").arg(libelle);
        return id;
    }

    void employeurs()
    {
        Requete employeur(
            m_base, QStringLiteral("INSERT INTO employeurs (e_raison_sociale, e_adresse, e_codepostal, e_commune, "
                                   "e_email, e_interlocuteur, e_telephone, e_fax, e_contratmodele_id, "
                                   "e_conventionne, e_latitude, e_longitude, e_no_siret, e_no_licence_spectacle, "
                                   "e_prospect, e_couleur, e_guso, e_qualite_id, e_no_guso, e_code_ape) VALUES "
                                   "(?, ?, ?, ?, ?, ?, ?, '', 0, ?, ?, ?, ?, ?, 0, ?, ?, ?, ?, ?);"));
        for (const EmployeurPlan& e : m_plan.employeurs) {
            // Positions a street or two apart within the town.
            const double dLat = (qHash(e.raisonSociale) % 200) / 10000.0 - 0.01;
            const double dLon = (qHash(e.adresse) % 200) / 10000.0 - 0.01;
            m_employeurs << executer(employeur,
                                     {e.raisonSociale, e.adresse, e.ville.codePostal, e.ville.nom, e.email,
                                      e.interlocuteur, e.telephone, e.conventionne, e.ville.latitude + dLat,
                                      e.ville.longitude + dLon, e.siret, e.licence, e.couleur, e.guso,
                                      cle(QStringLiteral("SELECT q_id FROM qualites WHERE q_libelle = ?;"), e.qualite),
                                      e.noGuso, e.codeApe});
        }
        const qint64 transport =
            cle(QStringLiteral("SELECT ft_id FROM fraistypes WHERE ft_type = ?;"), QStringLiteral("Transport"));
        Requete modele(
            m_base, QStringLiteral("INSERT INTO contratsmodeles (cm_libelle, cm_emploi_id, cm_type_id, cm_nbre_jours, "
                                   "cm_nbre_heures, cm_salaire_brut, cm_salaire_net, cm_employeur, cm_associer_frais, "
                                   "cm_fraistype_id, cm_frais_montant, cm_frais_details, cm_salaire_net_a_payer) "
                                   "VALUES (?, 1, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?);"));
        Requete association(m_base, QStringLiteral("UPDATE employeurs SET e_contratmodele_id = ? WHERE e_id = ?;"));
        for (const ModelePlan& m : m_plan.modeles) {
            const qint64 employeur = m.employeur >= 0 ? m_employeurs.at(m.employeur) : 1;
            const qint64 id =
                executer(modele, {m.libelle, m.type, m.jours, m.heures, m.brut, m.net, employeur,
                                  m.associerFrais ? 1 : 0, transport, m.fraisMontant, m.fraisDetails, m.netAPayer});
            if (m.employeur >= 0)
                executer(association, {id, employeur});
        }
    }

    void contrats()
    {
        Requete contrat(m_base,
                        QStringLiteral("INSERT INTO contrats (c_employeur_id, c_emploi_id, c_debut_contrat, "
                                       "c_fin_contrat, c_nbre_heures, c_salaire_brut, c_salaire_net, c_abattement, "
                                       "c_nbre_jours, c_liste_dates, c_effectue, c_paye, c_note, c_type, c_fonction, "
                                       "c_conges, c_dates_travaillees, c_frais_lies, c_salaire_net_a_payer, "
                                       "c_annee_encaissement, c_lieu, c_aem_fp, c_pas) VALUES (?, ?, ?, ?, ?, ?, ?, ?, "
                                       "?, '', ?, ?, ?, ?, ?, ?, ?, '', ?, ?, ?, ?, ?);"));
        for (const ContratPlan& c : m_plan.contrats) {
            QVariantList valeurs;
            valeurs << m_employeurs.at(c.employeur) << c.emploi << c.debut() << c.fin() << c.heures << c.brut << c.net
                    << c.abattement << int(c.dates.size()) << c.effectue << c.paye << c.note << c.type << c.fonction
                    << c.conges << dates(c.dates) << c.netAPayer << c.anneeEncaissement << c.lieu << c.aemFp << c.pas;
            m_contrats << executer(contrat, valeurs);
        }
    }

    void frais()
    {
        Requete depense(m_base,
                        QStringLiteral("INSERT INTO frais (f_categorie, f_details, f_montant, f_date, "
                                       "f_fichier, f_contrat_lie, f_rembourse) VALUES (?, ?, ?, ?, '', ?, ?);"));
        Requete lien(m_base, QStringLiteral("INSERT INTO contrats_frais (contrat_id, frais_id) VALUES (?, ?);"));
        QHash<QString, qint64> categories;
        QMap<int, QStringList> lies; // contract index: expense ids
        for (const FraisPlan& f : m_plan.frais) {
            if (!categories.contains(f.categorie))
                categories.insert(f.categorie,
                                  cle(QStringLiteral("SELECT ft_id FROM fraistypes WHERE ft_type = ?;"), f.categorie));
            const QString contrat = f.contrat >= 0 ? QString::number(m_contrats.at(f.contrat)) : QString();
            const qint64 id =
                executer(depense, {categories.value(f.categorie), f.details, f.montant, f.date, contrat, f.rembourse});
            if (f.contrat >= 0) {
                executer(lien, {m_contrats.at(f.contrat), id});
                lies[f.contrat] << QString::number(id);
            }
        }
        Requete liste(m_base, QStringLiteral("UPDATE contrats SET c_frais_lies = ? WHERE c_id = ?;"));
        for (auto it = lies.cbegin(); it != lies.cend(); ++it)
            executer(liste, {it.value().join(QLatin1Char(',')), m_contrats.at(it.key())});
    }

    void periodesEtProfil()
    {
        // The first period is the one the document was created with.
        Requete premiere(m_base, QStringLiteral("UPDATE periodes SET p_date_debut = ?, p_date_fin = ?, p_libelle = ?, "
                                                "p_notes = ?, p_conges = ?, p_franchise_salaires = ?, p_attente = ? "
                                                "WHERE p_id = 1;"));
        Requete suivante(m_base, QStringLiteral("INSERT INTO periodes (p_date_debut, p_date_fin, p_libelle, p_notes, "
                                                "p_conges, p_franchise_salaires, p_attente) VALUES (?, ?, ?, ?, ?, ?, "
                                                "?);"));
        qint64 enCours = 1;
        for (int i = 0; i < m_plan.periodes.size(); ++i) {
            const PeriodePlan& p = m_plan.periodes.at(i);
            const QVariantList valeurs{
                p.debut, p.fin, Fichiers::libellePeriode(p.debut, p.fin), p.notes, p.conges, p.franchise, p.attente};
            if (i == 0)
                executer(premiere, valeurs);
            else
                enCours = executer(suivante, valeurs);
        }
        const PeriodePlan& derniere = m_plan.periodes.last();
        // The profile of a Paris performer, every value bound.
        const QDate naissance(m_plan.debut.year() - 23, 5, 14);
        const QList<QPair<const char*, QVariant>> champs{
            {"u_naissance", naissance},
            {"u_adresse", QStringLiteral("24 rue de la Roquette")},
            {"u_codepostal", QStringLiteral("75011")},
            {"u_commune", QStringLiteral("Paris")},
            {"u_pays", QStringLiteral("France")},
            {"u_nationalite", QStringLiteral("Française")},
            {"u_lieu_naissance", QStringLiteral("Lyon")},
            {"u_telephone", QStringLiteral("0143556789")},
            {"u_telephone_mobile", QStringLiteral("0612457890")},
            {"u_email", QStringLiteral("claire.martin@exemple.fr")},
            {"u_nir", nir(naissance)},
            {"u_identifiant_assedic", QStringLiteral("4821937K")},
            {"u_conges_spectacles", QStringLiteral("C4471902")},
            {"u_guso", QStringLiteral("0012874503")},
            {"u_audiens", QStringLiteral("A2219843")},
            {"u_date_debut_dossier", derniere.debut},
            {"u_srj_valide", derniere.srj},
            {"u_taux_valide", derniere.taux},
            {"u_periode_en_cours", enCours},
            {"u_nbre_enfants", m_plan.enfants},
            {"u_rib_etablissement", QStringLiteral("30004")},
            {"u_rib_guichet", QStringLiteral("00820")},
            {"u_rib_compte", QStringLiteral("00010123456")},
            {"u_rib_cle", QStringLiteral("42")},
            {"u_rib_iban", QStringLiteral("FR7630004008200001012345642")},
            {"u_latitude", 48.8575},
            {"u_longitude", 2.3795},
            {"u_vehicule_type", 1},
            {"u_vehicule_puissance", 4},
            {"u_pas", m_plan.tauxPas.value(m_plan.fin.year(), 0.0)},
        };
        QStringList affectations;
        QVariantList valeurs;
        for (const auto& [colonne, valeur] : champs) {
            affectations << QString::fromLatin1(colonne) + QStringLiteral(" = ?");
            valeurs << valeur;
        }
        Requete profil(
            m_base,
            QStringLiteral("UPDATE utilisateur SET %1 WHERE u_id = 1;").arg(affectations.join(QStringLiteral(", "))));
        executer(profil, valeurs);
        // The screens' remembered ranges show the current period.
        Requete preferee(m_base,
                         QStringLiteral("UPDATE datesPeriodesPreferees SET dpp_date = ? WHERE dpp_element = ?;"));
        const QPair<const char*, QDate> dates[] = {
            {"contrats_debut", derniere.debut},           {"contrats_fin", derniere.fin},
            {"simulation_debut", derniere.debut},         {"simulation_fin", derniere.fin},
            {"securite_sociale_debut", derniere.debut},   {"securite_sociale_fin", derniere.fin},
            {"securite_sociale_verification", m_plan.fin}};
        for (const auto& [cle, date] : dates)
            executer(preferee, {date, QString::fromLatin1(cle)});
    }

    // A social-security number of a woman born in Lyon, with its key.
    static QString nir(const QDate& naissance)
    {
        return nirDe(2, naissance, QStringLiteral("69383"), 42);
    }

    // A social-security number: sex, year and month of birth, town of birth (department and
    // commune), order number, then its key.
    static QString nirDe(int sexe, const QDate& naissance, const QString& lieu, int numero)
    {
        const QString debut = QString::number(sexe) + QStringLiteral("%1").arg(naissance.year() % 100, 2, 10, QChar(u'0')) +
                              QStringLiteral("%1").arg(naissance.month(), 2, 10, QChar(u'0')) + lieu +
                              QStringLiteral("%1").arg(numero, 3, 10, QChar(u'0'));
        return debut + QStringLiteral("%1").arg(97 - debut.toLongLong() % 97, 2, 10, QChar(u'0'));
    }

    void arrets()
    {
        Requete arret(m_base, QStringLiteral("INSERT INTO securitesociale (ss_debut, ss_fin, ss_type_id, ss_note, "
                                             "ss_rembourse, ss_nbre_jours, ss_nbre_jours_suspendus, "
                                             "ss_incidence_heures, ss_incidence_periode, ss_total_ij, ss_ald, "
                                             "ss_rembourse_mutuelle) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?);"));
        for (const ArretPlan& a : m_plan.arrets)
            executer(arret, {a.debut, a.fin, a.type, a.note, a.rembourse, a.nbreJours, a.joursSuspendus,
                             a.incidenceHeures, a.incidencePeriode, a.totalIj, a.ald, a.rembourseMutuelle});
    }

    void historiques()
    {
        Requete allocation(m_base,
                           QStringLiteral("INSERT INTO assedichistorique (ah_date, ah_montant) VALUES (?, ?);"));
        for (const VersementPlan& v : m_plan.allocations)
            executer(allocation, {v.date, v.montant});
        Requete conges(m_base, QStringLiteral("INSERT INTO congeshistorique (ch_date, ch_montant, ch_encaisse) VALUES "
                                              "(?, ?, ?);"));
        for (const VersementPlan& v : m_plan.conges)
            executer(conges, {v.date, v.montant, v.drapeau});
        Requete impot(m_base, QStringLiteral("INSERT INTO fiscalitehistorique (fh_date, fh_montant, fh_credit) VALUES "
                                             "(?, ?, ?);"));
        for (const VersementPlan& v : m_plan.impots)
            executer(impot, {v.date, v.montant, v.drapeau});
        Requete droit(m_base,
                      QStringLiteral("INSERT INTO droitsvoisins (dv_categorie, dv_details, dv_montant, dv_date, "
                                     "dv_organisme_id) VALUES (?, ?, ?, ?, ?);"));
        for (const DroitVoisinPlan& d : m_plan.droitsVoisins)
            executer(
                droit,
                {cle(QStringLiteral("SELECT dvt_id FROM droitsvoisinstypes WHERE dvt_type = ?;"), d.categorie),
                 d.details, d.montant, d.date,
                 cle(QStringLiteral("SELECT dvo_id FROM droitsvoisinsorganismes WHERE dvo_nom = ?;"), d.organisme)});
    }

    BaseDeDonnees& m_base;
    const PlanCarriere& m_plan;
    QString m_erreur;
    QList<qint64> m_employeurs, m_contrats; // ids, in plan order
};

// The document as the program creates it, then opened once so that the upgrade pass
// adds its columns, as on any document the program has opened.
bool creerDocument(const ParametresCarriere& parametres, const PlanCarriere& plan, QString& erreur)
{
    NouveauDocument p;
    p.nomDuFichier = parametres.chemin;
    p.nom = QStringLiteral("Martin");
    p.prenom = QStringLiteral("Claire");
    p.emploiId = 1;
    p.civiliteId = 1;
    p.taux = plan.periodes.first().taux;
    p.dateOuvertureDesDroits = plan.periodes.first().debut;
    Fichiers fichiers(p);
    if (!fichiers.nouveauV4()) {
        erreur = fichiers.erreur();
        return false;
    }
    DialoguesScriptes dialogues;
    Fichiers ouverture;
    if (ouverture.ouvertureSQLite(parametres.chemin, QString(), dialogues) != parametres.chemin) {
        erreur = ouverture.erreur();
        return false;
    }
    return true;
}

} // namespace

bool genererCarriere(const ParametresCarriere& parametres, BilanCarriere& bilan)
{
    bilan = BilanCarriere();
    if (QFileInfo::exists(parametres.chemin)) {
        bilan.erreur = QStringLiteral("le fichier « %1 » existe déjà : il n'est pas remplacé.").arg(parametres.chemin);
        return false;
    }
    ParametresCarriere p = parametres;
    if (!p.fin.isValid())
        p.fin = Horloge::aujourdhui();
    const PlanCarriere plan = planifierCarriere(p);

    // The document's own dates of creation (preferred ranges, first period) follow the career's "today".
    const bool horlogeFixee = Horloge::estFixee();
    const QDate jourFixe = Horloge::aujourdhui();
    Horloge::fixer(p.fin);
    QString erreur;
    bool reussi = creerDocument(p, plan, erreur);
    if (reussi) {
        BaseDeDonnees base;
        reussi = base.ouvrir(p.chemin) && base.exec(QStringLiteral("BEGIN;")) == SQLITE_OK;
        if (reussi) {
            Ecriture ecriture(base, plan);
            erreur = ecriture.ecrire();
            if (erreur.isEmpty() && p.manager)
                erreur = ecriture.ecrireManager(bilan);
            reussi = erreur.isEmpty() && base.exec(QStringLiteral("COMMIT;")) == SQLITE_OK;
            if (!reussi && erreur.isEmpty())
                erreur = base.derniereErreur();
        } else {
            erreur = base.derniereErreur();
        }
    }
    if (horlogeFixee)
        Horloge::fixer(jourFixe);
    else
        Horloge::reinitialiser();
    if (!reussi) {
        QFile::remove(p.chemin);
        bilan.erreur = erreur;
        return false;
    }

    bilan.debut = plan.debut;
    bilan.fin = plan.fin;
    bilan.employeurs = int(plan.employeurs.size());
    bilan.modeles = int(plan.modeles.size());
    bilan.contrats = int(plan.contrats.size());
    bilan.periodes = int(plan.periodes.size());
    bilan.frais = int(plan.frais.size());
    for (const FraisPlan& f : plan.frais)
        bilan.fraisLies += f.contrat >= 0 ? 1 : 0;
    bilan.arrets = int(plan.arrets.size());
    bilan.allocations = int(plan.allocations.size());
    bilan.conges = int(plan.conges.size());
    bilan.impots = int(plan.impots.size());
    bilan.droitsVoisins = int(plan.droitsVoisins.size());
    return true;
}

} // namespace corvane::bench
