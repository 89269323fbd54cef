#include "store/Schema.h"

namespace corvane::Schema {

namespace {

// Reference tables and seed rows shared by both generations.
const char* const kAbattements[] = {
    "CREATE TABLE abattements (a_id INTEGER PRIMARY KEY, a_pourcentage INTEGER);",
    "INSERT INTO abattements (a_pourcentage) VALUES (0);",
    "INSERT INTO abattements (a_pourcentage) VALUES (20);",
    "INSERT INTO abattements (a_pourcentage) VALUES (25);",
};

const char* const kCivilites[] = {
    "CREATE TABLE civilites (c_id INTEGER PRIMARY KEY, c_civilite_courte VARCHAR, c_civilite_longue VARCHAR);",
    "INSERT INTO civilites (c_civilite_courte, c_civilite_longue) VALUES ('Mme', 'Madame');",
    "INSERT INTO civilites (c_civilite_courte, c_civilite_longue) VALUES ('Mlle', 'Mademoiselle');",
    "INSERT INTO civilites (c_civilite_courte, c_civilite_longue) VALUES ('Mr', 'Monsieur');",
};

const char* const kEmploisCommuns[] = {
    "CREATE TABLE emplois (e_id INTEGER PRIMARY KEY, e_emploi VARCHAR);",
    "INSERT INTO emplois (e_emploi) VALUES ('Artiste');",
    "INSERT INTO emplois (e_emploi) VALUES ('Ouvrier');",
    "INSERT INTO emplois (e_emploi) VALUES ('Technicien');",
    "INSERT INTO emplois (e_emploi) VALUES ('Régime Général');",
};

const char* const kAutoEntrepreneur[] = {
    "INSERT INTO emplois (e_emploi) VALUES ('Auto Entrepreneur');",
    "CREATE TABLE autoentrepreneurtypes (ae_id INTEGER PRIMARY KEY, ae_type VARCHAR);",
    "INSERT INTO autoentrepreneurtypes (ae_id, ae_type) VALUES (100, 'Ventes de marchandises (BIC)');",
    "INSERT INTO autoentrepreneurtypes (ae_id, ae_type) VALUES (101, 'Prestations de services BIC');",
    "INSERT INTO autoentrepreneurtypes (ae_id, ae_type) VALUES (102, 'Prestations de services BNC');",
    "INSERT INTO autoentrepreneurtypes (ae_id, ae_type) VALUES (103, 'Activités libérales (BNC)');",
    "CREATE TABLE autoentrepreneuractivites (aea_id INTEGER PRIMARY KEY, aea_activite VARCHAR);",
    "INSERT INTO autoentrepreneuractivites (aea_id, aea_activite) VALUES (1, 'Prestations de services');",
    "INSERT INTO autoentrepreneuractivites (aea_id, aea_activite) VALUES (2, 'Prestations de services "
    "artisanales');",
    "INSERT INTO autoentrepreneuractivites (aea_id, aea_activite) VALUES (3, 'Vente de marchandises, "
    "restauration, hébergement');",
    "INSERT INTO autoentrepreneuractivites (aea_id, aea_activite) VALUES (4, 'Achat revente pour un artisan');",
    "INSERT INTO autoentrepreneuractivites (aea_id, aea_activite) VALUES (5, 'Artisan en double immatriculation "
    "CCI/CMA');",
};

// The profile columns that every generation since 3 has.
#define COLONNES_UTILISATEUR_V3                                                                                        \
    "u_id INTEGER PRIMARY KEY, u_nom VARCHAR, u_prenom VARCHAR, u_pseudonyme VARCHAR, u_telephone VARCHAR(10), "       \
    "u_nir VARCHAR(15), u_naissance DATETIME, u_adresse VARCHAR, u_codepostal VARCHAR(5), u_commune VARCHAR(100), "    \
    "u_emploi_id INTEGER, u_identifiant_assedic VARCHAR(15), u_date_debut_dossier DATETIME, "                          \
    "u_conges_spectacles VARCHAR(30), u_guso VARCHAR(30), u_civilite_id INTEGER, u_audiens VARCHAR(30), "              \
    "u_email VARCHAR(100), u_lieu_naissance VARCHAR(100), u_nationalite VARCHAR(50), u_pays VARCHAR(100), "            \
    "u_fax VARCHAR(10), u_photo VARCHAR, u_srj_valide REAL, u_taux_valide REAL, u_abattement INTEGER, "                \
    "u_periode_en_cours INTEGER, u_nbre_enfants INTEGER, u_carte_identite VARCHAR, u_permis_conduire VARCHAR, "        \
    "u_telephone_mobile VARCHAR(10), u_rib_etablissement VARCHAR(30), u_rib_guichet VARCHAR(30), "                     \
    "u_rib_compte VARCHAR(30), u_rib_cle VARCHAR(5)"

const char* const kUtilisateurV4 =
    "CREATE TABLE utilisateur (" COLONNES_UTILISATEUR_V3
    ", u_web VARCHAR DEFAULT '', u_autoentrepreneur_flag INTEGER DEFAULT 0, u_autoentrepreneur_periode INTEGER "
    "DEFAULT 3, u_ae_prelevementliberatoire INTEGER DEFAULT 0, u_ae_categoriepro INTEGER DEFAULT 1, u_vehicule_type "
    "INTEGER DEFAULT 1, u_vehicule_puissance INTEGER DEFAULT 0, u_poleemploi_password VARCHAR DEFAULT '', u_latitude "
    "REAL DEFAULT 0, u_longitude REAL DEFAULT 0, u_conges_password VARCHAR DEFAULT '', u_ae_siret VARCHAR DEFAULT '', "
    "u_ae_password VARCHAR DEFAULT '', u_sacem VARCHAR DEFAULT '', u_ae_activite INTEGER DEFAULT 1, u_annee_blanche "
    "INTEGER DEFAULT 0);";

const char* const kUtilisateurV3 = "CREATE TABLE utilisateur (" COLONNES_UTILISATEUR_V3 ");";

const char* const kContratsTypes[] = {
    "CREATE TABLE contratstypes (ct_id INTEGER PRIMARY KEY, ct_type VARCHAR);",
    "INSERT INTO contratstypes (ct_type) VALUES ('Prestations');",
    "INSERT INTO contratstypes (ct_type) VALUES ('Enseignements');",
    "INSERT INTO contratstypes (ct_type) VALUES ('Formations');",
    "INSERT INTO contratstypes (ct_type) VALUES ('Régime Général');",
};

#define COLONNES_CONTRATS_V3                                                                                           \
    "c_id INTEGER PRIMARY KEY, c_employeur_id INTEGER, c_emploi_id INTEGER, c_debut_contrat DATETIME, "                \
    "c_fin_contrat DATETIME, c_nbre_heures INTEGER, c_salaire_brut REAL, c_salaire_net REAL, c_abattement INTEGER, "   \
    "c_nbre_jours INTEGER, c_liste_dates VARCHAR, c_effectue INTEGER, c_paye INTEGER, c_note VARCHAR, c_type "         \
    "INTEGER, c_fonction VARCHAR, c_conges INTEGER"

const char* const kContratsV4 =
    "CREATE TABLE contrats (" COLONNES_CONTRATS_V3
    ", c_dates_travaillees VARCHAR DEFAULT '', c_frais_lies VARCHAR DEFAULT '', c_salaire_net_a_payer REAL DEFAULT "
    "0, c_annee_encaissement INTEGER, c_lieu VARCHAR DEFAULT '');";
const char* const kContratsV3 = "CREATE TABLE contrats (" COLONNES_CONTRATS_V3 ");";

#define COLONNES_MODELES_V3                                                                                            \
    "cm_id INTEGER PRIMARY KEY, cm_libelle VARCHAR, cm_emploi_id INTEGER, cm_type_id INTEGER, cm_nbre_jours "          \
    "INTEGER, cm_nbre_heures INTEGER, cm_salaire_brut REAL, cm_salaire_net REAL, cm_employeur INTEGER DEFAULT 1"

const char* const kModelesV4 = "CREATE TABLE contratsmodeles (" COLONNES_MODELES_V3
                               ", cm_associer_frais INTEGER DEFAULT 0, cm_fraistype_id INTEGER, cm_frais_montant REAL, "
                               "cm_frais_details VARCHAR DEFAULT '');";
const char* const kModelesV3 = "CREATE TABLE contratsmodeles (" COLONNES_MODELES_V3 ");";

const char* const kSecuriteSocialeTypesV3[] = {
    "CREATE TABLE securitesocialetypes (sst_id INTEGER PRIMARY KEY, sst_type VARCHAR);",
    "INSERT INTO securitesocialetypes (sst_type) VALUES ('Accident du travail');",
    "INSERT INTO securitesocialetypes (sst_type) VALUES ('Maladie');",
    "INSERT INTO securitesocialetypes (sst_type) VALUES ('Maternité');",
    "INSERT INTO securitesocialetypes (sst_type) VALUES ('Paternité');",
};
const char* const kSecuriteSocialeTypesAjouts[] = {
    "INSERT INTO securitesocialetypes (sst_type) VALUES ('Consultation Généraliste');",
    "INSERT INTO securitesocialetypes (sst_type) VALUES ('Consultation Spécialiste');",
    "INSERT INTO securitesocialetypes (sst_type) VALUES ('Pharmacie');",
};

#define COLONNES_SECURITESOCIALE_V3                                                                                    \
    "ss_id INTEGER PRIMARY KEY, ss_debut DATETIME, ss_fin DATETIME, ss_type_id INTEGER, ss_note VARCHAR, "             \
    "ss_rembourse INTEGER, ss_nbre_jours INTEGER, ss_nbre_jours_suspendus INTEGER, ss_incidence_heures INTEGER, "      \
    "ss_incidence_periode INTEGER, ss_total_ij REAL DEFAULT 0, ss_ald INTEGER DEFAULT 0"

const char* const kSecuriteSocialeV4 =
    "CREATE TABLE securitesociale (" COLONNES_SECURITESOCIALE_V3 ", ss_rembourse_mutuelle INTEGER DEFAULT 0);";
const char* const kSecuriteSocialeV3 = "CREATE TABLE securitesociale (" COLONNES_SECURITESOCIALE_V3 ");";

#define COLONNES_EMPLOYEURS_V3                                                                                         \
    "e_id INTEGER PRIMARY KEY, e_raison_sociale VARCHAR, e_adresse VARCHAR, e_codepostal VARCHAR, e_commune VARCHAR, " \
    "e_email VARCHAR, e_interlocuteur VARCHAR, e_telephone VARCHAR, e_fax VARCHAR, e_contratmodele_id INTEGER, "       \
    "e_conventionne INTEGER DEFAULT 1, e_latitude REAL DEFAULT 0, e_longitude REAL DEFAULT 0"

const char* const kEmployeursV4[] = {
    "CREATE TABLE employeurs (" COLONNES_EMPLOYEURS_V3
    ", e_no_siret VARCHAR DEFAULT '', e_no_licence_spectacle VARCHAR DEFAULT '', e_prospect INTEGER DEFAULT 1, "
    "e_couleur VARCHAR DEFAULT '0,0,0', e_guso INTEGER DEFAULT 0, e_qualite_id INTEGER DEFAULT 2, e_no_guso VARCHAR "
    "DEFAULT '', e_code_ape VARCHAR DEFAULT '');",
    "INSERT INTO employeurs (e_raison_sociale, e_adresse, e_codepostal, e_commune, e_email, e_interlocuteur, "
    "e_telephone, e_fax, e_contratmodele_id, e_conventionne, e_prospect, e_couleur) VALUES ('Inconnu', 'Inconnue', "
    "'', 'Inconnue', '', 'Inconnu', '', '', 0, 1, 0, '0,0,0');",
};
const char* const kEmployeursV3[] = {
    "CREATE TABLE employeurs (" COLONNES_EMPLOYEURS_V3 ");",
    "INSERT INTO employeurs (e_raison_sociale, e_adresse, e_codepostal, e_commune, e_email, e_interlocuteur, "
    "e_telephone, e_fax, e_contratmodele_id, e_conventionne) VALUES ('Inconnu', 'Inconnue', '', 'Inconnue', '', "
    "'Inconnu', '', '', 0, 1);",
};

const char* const kFraisTypes[] = {
    "CREATE TABLE fraistypes (ft_id INTEGER PRIMARY KEY, ft_type TEXT(255));",
    "INSERT INTO fraistypes (ft_type) VALUES ('Kilométrage');",
    "INSERT INTO fraistypes (ft_type) VALUES ('Accessoire');",
    "INSERT INTO fraistypes (ft_type) VALUES ('Autoroute');",
    "INSERT INTO fraistypes (ft_type) VALUES ('Carburant');",
    "INSERT INTO fraistypes (ft_type) VALUES ('Communication');",
    "INSERT INTO fraistypes (ft_type) VALUES ('Divers');",
    "INSERT INTO fraistypes (ft_type) VALUES ('Documentation');",
    "INSERT INTO fraistypes (ft_type) VALUES ('Hébergement');",
    "INSERT INTO fraistypes (ft_type) VALUES ('Informatique');",
    "INSERT INTO fraistypes (ft_type) VALUES ('Logiciel');",
    "INSERT INTO fraistypes (ft_type) VALUES ('Matériel');",
    "INSERT INTO fraistypes (ft_type) VALUES ('Restauration');",
    "INSERT INTO fraistypes (ft_type) VALUES ('Transport');",
    "INSERT INTO fraistypes (ft_type) VALUES ('Vêtement');",
};

const char* const kContratsFrais =
    "CREATE TABLE contrats_frais (id INTEGER NOT NULL, contrat_id INTEGER NOT NULL REFERENCES contrats(c_id) ON "
    "DELETE CASCADE, frais_id INTEGER NOT NULL REFERENCES frais(f_id) ON DELETE CASCADE, PRIMARY KEY (id));";

#define COLONNES_FRAIS_V3                                                                                              \
    "f_id INTEGER PRIMARY KEY, f_categorie INTEGER, f_details VARCHAR, f_montant REAL, f_date DATETIME, f_fichier "    \
    "VARCHAR"
const char* const kFraisV4 =
    "CREATE TABLE frais (" COLONNES_FRAIS_V3 ", f_contrat_lie VARCHAR DEFAULT '', f_rembourse INTEGER DEFAULT 0);";
const char* const kFraisV3 = "CREATE TABLE frais (" COLONNES_FRAIS_V3 ");";

#define COLONNES_PERIODES_V3                                                                                           \
    "p_id INTEGER PRIMARY KEY, p_date_debut DATETIME, p_date_fin DATETIME, p_libelle VARCHAR, p_notes VARCHAR"
const char* const kPeriodesV4 = "CREATE TABLE periodes (" COLONNES_PERIODES_V3
                                ", p_conges TINYINT DEFAULT 0, p_franchise_salaires TINYINT DEFAULT 0, p_attente "
                                "TINYINT DEFAULT 7);";
const char* const kPeriodesV3 = "CREATE TABLE periodes (" COLONNES_PERIODES_V3 ");";

const char* const kHistoriques[] = {
    "CREATE TABLE datesPeriodesPreferees (dpp_id INTEGER PRIMARY KEY, dpp_element VARCHAR, dpp_date DATETIME);",
    "CREATE TABLE congeshistorique (ch_id INTEGER PRIMARY KEY, ch_date DATETIME, ch_montant REAL, ch_encaisse "
    "INTEGER);",
    "CREATE TABLE fiscalitehistorique (fh_id INTEGER PRIMARY KEY, fh_date DATETIME, fh_montant REAL, fh_credit "
    "INTEGER);",
    "CREATE TABLE assedichistorique (ah_id INTEGER PRIMARY KEY, ah_date DATETIME, ah_montant REAL);",
    "CREATE TABLE fichiersauvegardes (fs_id INTEGER PRIMARY KEY, fs_date DATETIME);",
};

const char* const kPrestations[] = {
    "CREATE TABLE prestations (p_id INTEGER PRIMARY KEY, p_libelle VARCHAR);",
    "INSERT INTO prestations (p_libelle) VALUES ('Animation');",
    "INSERT INTO prestations (p_libelle) VALUES ('Concert');",
    "INSERT INTO prestations (p_libelle) VALUES ('Technique');",
    "INSERT INTO prestations (p_libelle) VALUES ('Déplacement');",
};

const char* const kPrestationsTypesV4[] = {
    "CREATE TABLE prestationstypes (pt_id INTEGER PRIMARY KEY, pt_prestation_id INTEGER, pt_libelle VARCHAR, "
    "pt_montant REAL, pt_note VARCHAR, pt_par_personne INTEGER DEFAULT 0);",
};

const char* const kPrestationsTypesLignes[] = {
    "INSERT INTO prestationstypes (pt_prestation_id, pt_libelle, pt_montant, pt_note) VALUES (1, 'Spectacle de "
    "Magie', 1500, 'Emerveillement des petits et des grands');",
    "INSERT INTO prestationstypes (pt_prestation_id, pt_libelle, pt_montant, pt_note) VALUES (1, 'Spectacle de "
    "Ballons', 700, 'Découvrez de nouvelles formes');",
    "INSERT INTO prestationstypes (pt_prestation_id, pt_libelle, pt_montant, pt_note) VALUES (2, 'Bal', 4500, "
    "'Animation de 4 h');",
    "INSERT INTO prestationstypes (pt_prestation_id, pt_libelle, pt_montant, pt_note) VALUES (2, 'Classique', 1000, "
    "'Concert actoustique');",
    "INSERT INTO prestationstypes (pt_prestation_id, pt_libelle, pt_montant, pt_note) VALUES (2, 'DJ', 950, "
    "'Animation non stop, horaires à votre convenance');",
    "INSERT INTO prestationstypes (pt_prestation_id, pt_libelle, pt_montant, pt_note) VALUES (3, 'Eclairage', 800, "
    "'4 heures');",
    "INSERT INTO prestationstypes (pt_prestation_id, pt_libelle, pt_montant, pt_note) VALUES (3, 'Montage vidéo', "
    "2500, '5 jours');",
    "INSERT INTO prestationstypes (pt_prestation_id, pt_libelle, pt_montant, pt_note) VALUES (3, 'Sonorisation', "
    "950, '4 heures');",
    "INSERT INTO prestationstypes (pt_prestation_id, pt_libelle, pt_montant, pt_note) VALUES (4, 'Local', 50, "
    "'Rayon de 35 km');",
    "INSERT INTO prestationstypes (pt_prestation_id, pt_libelle, pt_montant, pt_note) VALUES (4, 'National', 200, "
    "'Partout en France');",
};

const char* const kManagerV4Suite[] = {
    "CREATE TABLE remises (r_id INTEGER PRIMARY KEY, r_montant REAL, r_type INTEGER, r_note VARCHAR);",
    "INSERT INTO remises (r_montant, r_type, r_note) VALUES (0, -1, 'Aucune remise');",
    "INSERT INTO remises (r_montant, r_type, r_note) VALUES (5, 0, 'Pour deux contrats');",
    "INSERT INTO remises (r_montant, r_type, r_note) VALUES (10, 0, 'Pour 5 contrats');",
    "INSERT INTO remises (r_montant, r_type, r_note) VALUES (15, 0, '');",
    "INSERT INTO remises (r_montant, r_type, r_note) VALUES (20, 0, 'Remise fidélité');",
    "INSERT INTO remises (r_montant, r_type, r_note) VALUES (50, 1, 'Frais de déplacements offerts');",
    "INSERT INTO remises (r_montant, r_type, r_note) VALUES (200, 1, 'Frais de déplacements offerts');",
    "CREATE TABLE delais (d_id INTEGER PRIMARY KEY, d_nombre INTEGER, d_type INTEGER);",
    "INSERT INTO delais (d_nombre, d_type) VALUES (7, 0);",
    "INSERT INTO delais (d_nombre, d_type) VALUES (15, 0);",
    "INSERT INTO delais (d_nombre, d_type) VALUES (1, 1);",
    "INSERT INTO delais (d_nombre, d_type) VALUES (2, 1);",
    "CREATE TABLE propositionslibelles (pl_id INTEGER PRIMARY KEY, pl_libelle VARCHAR, pl_employeur_id INTEGER, "
    "pl_date DATETIME, pl_statut INTEGER DEFAULT 0, pl_commune VARCHAR, pl_heure DATETIME, pl_heure_flag INTEGER, "
    "pl_duree DATETIME, pl_duree_flag INTEGER, pl_charges_montant REAL, pl_charges_flag INTEGER, pl_qualite "
    "INTEGER);",
    "CREATE TABLE propositions (p_id INTEGER PRIMARY KEY, p_libelle_id INTEGER, p_employeur_id INTEGER, p_remise_id "
    "INTEGER, p_prestationtype_id INTEGER, p_delai_id INTEGER, p_date DATETIME, p_nbre_personnes INTEGER DEFAULT 0);",
    "CREATE TABLE file (f_id INTEGER PRIMARY KEY, f_version INTEGER DEFAULT 4, f_locked INTEGER, f_password VARCHAR "
    "DEFAULT '');",
    "INSERT INTO file (f_locked) VALUES (0);",
    "CREATE TABLE factures (f_id INTEGER PRIMARY KEY, f_number VARCHAR, f_date DATETIME, f_proposition_id INTEGER);",
    "CREATE TABLE droitsvoisinstypes (dvt_id INTEGER PRIMARY KEY, dvt_type TEXT(255));",
    "INSERT INTO droitsvoisinstypes (dvt_type) VALUES ('Artiste-interprète');",
    "INSERT INTO droitsvoisinstypes (dvt_type) VALUES ('Cascadeur');",
    "INSERT INTO droitsvoisinstypes (dvt_type) VALUES ('Chanteur');",
    "INSERT INTO droitsvoisinstypes (dvt_type) VALUES ('Chef d''orchestre');",
    "INSERT INTO droitsvoisinstypes (dvt_type) VALUES ('Comédien');",
    "INSERT INTO droitsvoisinstypes (dvt_type) VALUES ('Danseur');",
    "INSERT INTO droitsvoisinstypes (dvt_type) VALUES ('Divers');",
    "INSERT INTO droitsvoisinstypes (dvt_type) VALUES ('Musicien');",
    "CREATE TABLE droitsvoisinsorganismes (dvo_id INTEGER PRIMARY KEY, dvo_nom TEXT(255));",
    "INSERT INTO droitsvoisinsorganismes (dvo_nom) VALUES ('Adami');",
    "INSERT INTO droitsvoisinsorganismes (dvo_nom) VALUES ('Agessa');",
    "INSERT INTO droitsvoisinsorganismes (dvo_nom) VALUES ('SACD');",
    "INSERT INTO droitsvoisinsorganismes (dvo_nom) VALUES ('Sacem');",
    "INSERT INTO droitsvoisinsorganismes (dvo_nom) VALUES ('Scpp');",
    "INSERT INTO droitsvoisinsorganismes (dvo_nom) VALUES ('Spedidam');",
    "INSERT INTO droitsvoisinsorganismes (dvo_nom) VALUES ('Sppf');",
    "INSERT INTO droitsvoisinsorganismes (dvo_nom) VALUES ('Spré');",
    "CREATE TABLE droitsvoisins (dv_id INTEGER PRIMARY KEY, dv_categorie INTEGER, dv_details VARCHAR, dv_montant "
    "REAL, dv_date DATETIME, dv_organisme_id INTEGER);",
    "CREATE TABLE qualites (q_id INTEGER PRIMARY KEY, q_libelle TEXT(255));",
    "INSERT INTO qualites (q_libelle) VALUES ('Association');",
    "INSERT INTO qualites (q_libelle) VALUES ('Aucune');",
    "INSERT INTO qualites (q_libelle) VALUES ('Comité d''entreprise');",
    "INSERT INTO qualites (q_libelle) VALUES ('Entreprise');",
    "INSERT INTO qualites (q_libelle) VALUES ('Particulier');",
};

// The manager's staff and events: the same tables in both scripts.
const char* const kPersonnel[] = {
    "CREATE TABLE structures (s_id INTEGER PRIMARY KEY, s_nom TEXT(255), s_employes TEXT(255) DEFAULT '');",
    "CREATE TABLE employes (e_id INTEGER PRIMARY KEY, e_structures TEXT(255) DEFAULT '', e_prenom TEXT(255), e_nom "
    "TEXT(255), e_adresse TEXT(255) DEFAULT '', e_code_postal TEXT(255) DEFAULT '', e_ville TEXT(255) DEFAULT '', "
    "e_dob TEXT(255) DEFAULT '', e_lieu_naissance TEXT(255) DEFAULT '', e_nir TEXT(255) DEFAULT '', e_fonction "
    "TEXT(255) DEFAULT '');",
    "CREATE TABLE evenements (e_id INTEGER PRIMARY KEY, e_date TEXT(255) DEFAULT '', e_nom TEXT(255), "
    "e_proposition_id INTEGER DEFAULT 0, e_employeur_id INTEGER, e_structure_id INTEGER);",
    "CREATE TABLE evenementspaiements (ep_id INTEGER PRIMARY KEY, ep_evenement_id INTEGER, ep_salaries TEXT(255), "
    "ep_payes TEXT(255) DEFAULT '');",
};

// --- The upgrade of a generation-3 document, as first shipped -------------------------
// Each entry runs on its own. Its differences from the creation script are part of
// what upgraded documents hold: a sixth discount of type 0, a second (15, 0) delay
// carried by the quotes' heading table, the organisations in another order, two
// seed rows whose unescaped apostrophe makes them fail, and other column defaults.

const char* const kMiseAJourPartie1[] = {
    "ALTER TABLE utilisateur ADD COLUMN u_autoentrepreneur_flag INTEGER DEFAULT 0;",
    "ALTER TABLE utilisateur ADD COLUMN u_autoentrepreneur_periode INTEGER DEFAULT 3;",
    "ALTER TABLE utilisateur ADD COLUMN u_ae_prelevementliberatoire INTEGER DEFAULT 0;",
    "ALTER TABLE utilisateur ADD COLUMN u_ae_categoriepro INTEGER DEFAULT 1;",
    "ALTER TABLE utilisateur ADD COLUMN u_ae_activite INTEGER DEFAULT 1;",
};

const char* const kMiseAJourPartie2[] = {
    "ALTER TABLE securitesociale ADD COLUMN ss_rembourse_mutuelle INTEGER DEFAULT 0;",
    "ALTER TABLE employeurs ADD COLUMN e_no_siret DEFAULT '';",
    "ALTER TABLE employeurs ADD COLUMN e_no_licence_spectacle DEFAULT '';",
    "ALTER TABLE employeurs ADD COLUMN e_prospect DEFAULT 0;",
};

const char* const kMiseAJourPrestationsTypes =
    "CREATE TABLE prestationstypes (pt_id INTEGER PRIMARY KEY, pt_prestation_id INTEGER, pt_libelle VARCHAR, "
    "pt_montant REAL, pt_note VARCHAR);";

const char* const kMiseAJourPartie3[] = {
    "CREATE TABLE remises (r_id INTEGER PRIMARY KEY, r_montant REAL, r_type INTEGER, r_note VARCHAR);",
    "INSERT INTO remises (r_montant, r_type, r_note) VALUES (0, -1, 'Aucune remise');",
    "INSERT INTO remises (r_montant, r_type, r_note) VALUES (5, 0, 'Pour deux contrats');",
    "INSERT INTO remises (r_montant, r_type, r_note) VALUES (10, 0, 'Pour 5 contrats');",
    "INSERT INTO remises (r_montant, r_type, r_note) VALUES (15, 0, '');",
    "INSERT INTO remises (r_montant, r_type, r_note) VALUES (20, 0, 'Remise fidélité');",
    "INSERT INTO remises (r_montant, r_type, r_note) VALUES (50, 0, 'Frais de déplacements offerts');",
    "INSERT INTO remises (r_montant, r_type, r_note) VALUES (200, 1, 'Frais de déplacements offerts');",
    "CREATE TABLE delais (d_id INTEGER PRIMARY KEY, d_nombre INTEGER, d_type INTEGER);",
    "INSERT INTO delais (d_nombre, d_type) VALUES (7, 0);",
    "INSERT INTO delais (d_nombre, d_type) VALUES (15, 0);",
    "INSERT INTO delais (d_nombre, d_type) VALUES (1, 1);",
    "INSERT INTO delais (d_nombre, d_type) VALUES (2, 1);",
    "CREATE TABLE propositionslibelles (pl_id INTEGER PRIMARY KEY, pl_libelle VARCHAR, pl_employeur_id INTEGER, "
    "pl_date DATETIME, pl_statut INTEGER DEFAULT 0, pl_commune VARCHAR, pl_heure DATETIME, pl_heure_flag INTEGER, "
    "pl_duree DATETIME, pl_duree_flag INTEGER, pl_charges_montant REAL, pl_charges_flag INTEGER, pl_qualite "
    "INTEGER); INSERT INTO delais (d_nombre, d_type) VALUES (15, 0);",
    "CREATE TABLE propositions (p_id INTEGER PRIMARY KEY, p_libelle_id INTEGER, p_employeur_id INTEGER, p_remise_id "
    "INTEGER, p_prestationtype_id INTEGER, p_delai_id INTEGER, p_date DATETIME);",
    "ALTER TABLE contrats ADD COLUMN c_dates_travaillees VARCHAR DEFAULT '';",
};

const char* const kMiseAJourPartie4[] = {
    "ALTER TABLE contrats ADD COLUMN c_frais_lies VARCHAR DEFAULT '';",
    "ALTER TABLE frais ADD COLUMN f_contrat_lie VARCHAR DEFAULT '';",
    "ALTER TABLE utilisateur ADD COLUMN u_web VARCHAR DEFAULT '';",
    "ALTER TABLE utilisateur ADD COLUMN u_vehicule_type INTEGER DEFAULT 1;",
    "ALTER TABLE utilisateur ADD COLUMN u_vehicule_puissance INTEGER DEFAULT 0;",
    "ALTER TABLE contratsmodeles ADD COLUMN cm_associer_frais INTEGER DEFAULT 0;",
    "ALTER TABLE contratsmodeles ADD COLUMN cm_fraistype_id INTEGER;",
    "ALTER TABLE contratsmodeles ADD COLUMN cm_frais_montant REAL;",
    "ALTER TABLE contratsmodeles ADD COLUMN cm_frais_details VARCHAR DEFAULT '';",
    "ALTER TABLE contrats ADD COLUMN c_salaire_net_a_payer REAL DEFAULT 0;",
    "ALTER TABLE contrats ADD COLUMN c_annee_encaissement INTEGER;",
};

const char* const kMiseAJourPartie5[] = {
    "ALTER TABLE frais ADD COLUMN f_rembourse INTEGER DEFAULT 1;",
    "ALTER TABLE employeurs ADD COLUMN e_couleur VARCHAR DEFAULT '0,0,0';",
    "ALTER TABLE utilisateur ADD COLUMN u_poleemploi_password VARCHAR DEFAULT '';",
    "ALTER TABLE contrats ADD COLUMN c_lieu VARCHAR DEFAULT '';",
    "CREATE TABLE file (f_id INTEGER PRIMARY KEY, f_version INTEGER DEFAULT 4, f_locked INTEGER, f_password "
    "VARCHAR);",
    "INSERT INTO file (f_locked) VALUES (0);",
    "CREATE TABLE factures (f_id INTEGER PRIMARY KEY, f_number VARCHAR, f_date DATETIME, f_proposition_id INTEGER);",
    "ALTER TABLE utilisateur ADD COLUMN u_latitude REAL DEFAULT 0;",
    "ALTER TABLE utilisateur ADD COLUMN u_longitude REAL DEFAULT 0;",
    "ALTER TABLE utilisateur ADD COLUMN u_conges_password VARCHAR DEFAULT '';",
    "ALTER TABLE utilisateur ADD COLUMN u_ae_siret VARCHAR DEFAULT '';",
    "ALTER TABLE utilisateur ADD COLUMN u_ae_password VARCHAR DEFAULT '';",
    "ALTER TABLE utilisateur ADD COLUMN u_ae_siret VARCHAR DEFAULT '';",
    "ALTER TABLE utilisateur ADD COLUMN u_ae_password VARCHAR DEFAULT '';",
    "ALTER TABLE employeurs ADD COLUMN e_guso INTEGER DEFAULT 0;",
    "CREATE TABLE droitsvoisinstypes (dvt_id INTEGER PRIMARY KEY, dvt_type TEXT(255));",
    "INSERT INTO droitsvoisinstypes (dvt_type) VALUES ('Artiste-interprète');",
    "INSERT INTO droitsvoisinstypes (dvt_type) VALUES ('Cascadeur');",
    "INSERT INTO droitsvoisinstypes (dvt_type) VALUES ('Chanteur');",
    "INSERT INTO droitsvoisinstypes (dvt_type) VALUES ('Chef d'orchestre');",
    "INSERT INTO droitsvoisinstypes (dvt_type) VALUES ('Comédien');",
    "INSERT INTO droitsvoisinstypes (dvt_type) VALUES ('Danseur');",
    "INSERT INTO droitsvoisinstypes (dvt_type) VALUES ('Divers');",
    "INSERT INTO droitsvoisinstypes (dvt_type) VALUES ('Musicien');",
    "CREATE TABLE droitsvoisinsorganismes (dvo_id INTEGER PRIMARY KEY, dvo_nom TEXT(255));",
    "INSERT INTO droitsvoisinsorganismes (dvo_nom) VALUES ('Adami');",
    "INSERT INTO droitsvoisinsorganismes (dvo_nom) VALUES ('Sacem');",
    "INSERT INTO droitsvoisinsorganismes (dvo_nom) VALUES ('Scpp');",
    "INSERT INTO droitsvoisinsorganismes (dvo_nom) VALUES ('Spedidam');",
    "INSERT INTO droitsvoisinsorganismes (dvo_nom) VALUES ('Sppf');",
    "INSERT INTO droitsvoisinsorganismes (dvo_nom) VALUES ('Spré');",
    "CREATE TABLE droitsvoisins (dv_id INTEGER PRIMARY KEY, dv_categorie INTEGER, dv_details VARCHAR, dv_montant "
    "REAL, dv_date DATETIME, dv_organisme_id INTEGER);",
    "ALTER TABLE prestationstypes ADD COLUMN pt_par_personne INTEGER DEFAULT 0;",
    "ALTER TABLE propositions ADD COLUMN p_nbre_personnes INTEGER DEFAULT 0;",
    "CREATE TABLE qualites (q_id INTEGER PRIMARY KEY, q_libelle TEXT(255));",
    "INSERT INTO qualites (q_libelle) VALUES ('Association');",
    "INSERT INTO qualites (q_libelle) VALUES ('Aucune');",
    "INSERT INTO qualites (q_libelle) VALUES ('Comité d'entreprise');",
    "INSERT INTO qualites (q_libelle) VALUES ('Entreprise');",
    "INSERT INTO qualites (q_libelle) VALUES ('Particulier');",
    "ALTER TABLE employeurs ADD COLUMN e_qualite_id INTEGER DEFAULT 2;",
    "ALTER TABLE employeurs ADD COLUMN e_no_guso VARCHAR DEFAULT '';",
    "ALTER TABLE employeurs ADD COLUMN e_code_ape VARCHAR DEFAULT '';",
};

const char* const kMiseAJourPartie6[] = {
    "ALTER TABLE utilisateur ADD COLUMN u_sacem VARCHAR DEFAULT '';",
};

template <typename Liste>
void ajouter(QStringList& script, const Liste& instructions)
{
    for (const char* instruction : instructions)
        script << QString::fromUtf8(instruction);
}

void ajouter(QStringList& script, const char* instruction)
{
    script << QString::fromUtf8(instruction);
}

QStringList construireV4()
{
    QStringList s;
    ajouter(s, kAbattements);
    ajouter(s, kCivilites);
    ajouter(s, kEmploisCommuns);
    ajouter(s, kAutoEntrepreneur);
    ajouter(s, kUtilisateurV4);
    ajouter(s, kContratsTypes);
    ajouter(s, kContratsV4);
    ajouter(s, kModelesV4);
    ajouter(s, kSecuriteSocialeTypesV3);
    ajouter(s, kSecuriteSocialeTypesAjouts);
    ajouter(s, kSecuriteSocialeV4);
    ajouter(s, kEmployeursV4);
    ajouter(s, kFraisTypes);
    ajouter(s, kContratsFrais);
    ajouter(s, kFraisV4);
    ajouter(s, kPeriodesV4);
    ajouter(s, kHistoriques);
    ajouter(s, kPrestations);
    ajouter(s, kPrestationsTypesV4);
    ajouter(s, kPrestationsTypesLignes);
    ajouter(s, kManagerV4Suite);
    ajouter(s, kPersonnel);
    return s;
}

QStringList construireV3()
{
    QStringList s;
    ajouter(s, kAbattements);
    ajouter(s, kCivilites);
    ajouter(s, kEmploisCommuns);
    ajouter(s, kUtilisateurV3);
    ajouter(s, kContratsTypes);
    ajouter(s, kContratsV3);
    ajouter(s, kModelesV3);
    ajouter(s, kSecuriteSocialeTypesV3);
    ajouter(s, kSecuriteSocialeV3);
    ajouter(s, kEmployeursV3);
    ajouter(s, kFraisTypes);
    ajouter(s, kFraisV3);
    ajouter(s, kPeriodesV3);
    ajouter(s, kHistoriques);
    return s;
}

QStringList construireMiseAJourAvantDates()
{
    QStringList s;
    ajouter(s, kAutoEntrepreneur);
    ajouter(s, kMiseAJourPartie1);
    ajouter(s, kSecuriteSocialeTypesAjouts);
    ajouter(s, kMiseAJourPartie2);
    ajouter(s, kPrestations);
    ajouter(s, kMiseAJourPrestationsTypes);
    ajouter(s, kPrestationsTypesLignes);
    ajouter(s, kMiseAJourPartie3);
    return s;
}

QStringList construireMiseAJourFin()
{
    QStringList s;
    ajouter(s, kMiseAJourPartie5);
    ajouter(s, kPersonnel);
    ajouter(s, kMiseAJourPartie6);
    return s;
}

} // namespace

const QStringList& creationV4()
{
    static const QStringList script = construireV4();
    return script;
}

const QStringList& creationV3()
{
    static const QStringList script = construireV3();
    return script;
}

QString texte(const QStringList& instructions)
{
    return instructions.join(QLatin1Char('\n'));
}

} // namespace corvane::Schema

namespace corvane::Schema {

const QStringList& emplois()
{
    static const QStringList liste{"Artiste", "Ouvrier", "Technicien", "Régime Général", "Auto Entrepreneur"};
    return liste;
}

QString creationContratsFrais()
{
    return QString::fromUtf8(kContratsFrais);
}

const QStringList& miseAJourV4AvantDatesTravaillees()
{
    static const QStringList script = construireMiseAJourAvantDates();
    return script;
}

const QStringList& miseAJourV4AvantAnneeEncaissement()
{
    static const QStringList script = [] {
        QStringList s;
        ajouter(s, kMiseAJourPartie4);
        return s;
    }();
    return script;
}

const QStringList& miseAJourV4Fin()
{
    static const QStringList script = construireMiseAJourFin();
    return script;
}

} // namespace corvane::Schema
