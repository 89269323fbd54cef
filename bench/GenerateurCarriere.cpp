#include "GenerateurCarriere.h"

#include "PlanCarriere.h"
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
        // Sex, year, month, department and town of birth (Lyon 3e), order number.
        const QString debut =
            QStringLiteral("2") + QStringLiteral("%1").arg(naissance.year() % 100, 2, 10, QChar(u'0')) +
            QStringLiteral("%1").arg(naissance.month(), 2, 10, QChar(u'0')) + QStringLiteral("69383042");
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
            erreur = Ecriture(base, plan).ecrire();
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
