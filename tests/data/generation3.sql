-- A generation-3 document as the earlier product wrote it before the additions that
-- the upgrade pass probes for one by one (job and contract-kind 'Régime Général',
-- template employer, sickness allowances, employer agreement and position).
CREATE TABLE abattements (a_id INTEGER PRIMARY KEY, a_pourcentage INTEGER);
INSERT INTO abattements (a_pourcentage) VALUES (0);
INSERT INTO abattements (a_pourcentage) VALUES (20);
INSERT INTO abattements (a_pourcentage) VALUES (25);
CREATE TABLE civilites (c_id INTEGER PRIMARY KEY, c_civilite_courte VARCHAR, c_civilite_longue VARCHAR);
INSERT INTO civilites (c_civilite_courte, c_civilite_longue) VALUES ('Mme', 'Madame');
INSERT INTO civilites (c_civilite_courte, c_civilite_longue) VALUES ('Mlle', 'Mademoiselle');
INSERT INTO civilites (c_civilite_courte, c_civilite_longue) VALUES ('Mr', 'Monsieur');
CREATE TABLE emplois (e_id INTEGER PRIMARY KEY, e_emploi VARCHAR);
INSERT INTO emplois (e_emploi) VALUES ('Artiste');
INSERT INTO emplois (e_emploi) VALUES ('Ouvrier');
INSERT INTO emplois (e_emploi) VALUES ('Technicien');
CREATE TABLE utilisateur (u_id INTEGER PRIMARY KEY, u_nom VARCHAR, u_prenom VARCHAR, u_pseudonyme VARCHAR, u_telephone VARCHAR(10), u_nir VARCHAR(15), u_naissance DATETIME, u_adresse VARCHAR, u_codepostal VARCHAR(5), u_commune VARCHAR(100), u_emploi_id INTEGER, u_identifiant_assedic VARCHAR(15), u_date_debut_dossier DATETIME, u_conges_spectacles VARCHAR(30), u_guso VARCHAR(30), u_civilite_id INTEGER, u_audiens VARCHAR(30), u_email VARCHAR(100), u_lieu_naissance VARCHAR(100), u_nationalite VARCHAR(50), u_pays VARCHAR(100), u_fax VARCHAR(10), u_photo VARCHAR, u_srj_valide REAL, u_taux_valide REAL, u_abattement INTEGER, u_periode_en_cours INTEGER, u_nbre_enfants INTEGER, u_carte_identite VARCHAR, u_permis_conduire VARCHAR, u_telephone_mobile VARCHAR(10), u_rib_etablissement VARCHAR(30), u_rib_guichet VARCHAR(30), u_rib_compte VARCHAR(30), u_rib_cle VARCHAR(5));
INSERT INTO utilisateur VALUES (1, 'Dupré', 'Hélène', 'Léna D''Arc', '0102030405', '285037512345678', '1985-03-12 00:00:00.000', '12 rue des Lilas', '75011', 'Paris', 1, '1234567A', '2013-10-01 00:00:00.000', 'CS-998877', 'G-4455', 1, 'AUD-12', 'helene@exemple.fr', 'Lyon', 'Française', 'France', '', '', 98.5, 52.73, 2, 2, 1, 'CI-77', 'PC-88', '0611223344', '30004', '00123', '12345678901', '42');
CREATE TABLE contratstypes (ct_id INTEGER PRIMARY KEY, ct_type VARCHAR);
INSERT INTO contratstypes (ct_type) VALUES ('Prestations');
INSERT INTO contratstypes (ct_type) VALUES ('Enseignements');
INSERT INTO contratstypes (ct_type) VALUES ('Formations');
CREATE TABLE contrats (c_id INTEGER PRIMARY KEY, c_employeur_id INTEGER, c_emploi_id INTEGER, c_debut_contrat DATETIME, c_fin_contrat DATETIME, c_nbre_heures INTEGER, c_salaire_brut REAL, c_salaire_net REAL, c_abattement INTEGER, c_nbre_jours INTEGER, c_liste_dates VARCHAR, c_effectue INTEGER, c_paye INTEGER, c_note VARCHAR, c_type INTEGER, c_fonction VARCHAR, c_conges INTEGER);
-- one day, no list: the start's day alone
INSERT INTO contrats VALUES (1, 2, 1, '2013-10-05 00:00:00.000', '2013-10-05 00:00:00.000', 12, 250.0, 195.5, 2, 1, '', 1, 1, 'Première', 1, 'Comédienne', 1);
-- a list within one month
INSERT INTO contrats VALUES (2, 2, 1, '2013-11-03 00:00:00.000', '2013-11-12 00:00:00.000', 36, 750.0, 586.5, 2, 3, '3,4,12', 1, 1, 'Tournée', 1, 'Comédienne', 1);
-- a list across two months: the largest day falls in the end's month
INSERT INTO contrats VALUES (3, 3, 1, '2014-01-30 00:00:00.000', '2014-02-02 00:00:00.000', 36, 900.0, 702.0, 2, 3, '30,31,2', 1, 0, 'L''hiver', 1, 'Chanteuse', 1);
-- across the spring clock change
INSERT INTO contrats VALUES (5, 3, 1, '2014-03-29 00:00:00.000', '2014-04-01 00:00:00.000', 48, 1000.0, 780.0, 3, 4, '29,30,31,1', 1, 0, '', 2, 'Intervenante', 0);
-- planned, not carried out
INSERT INTO contrats VALUES (6, 1, 1, '2014-06-10 00:00:00.000', '2014-06-10 00:00:00.000', 12, 300.0, 0.0, 2, 1, NULL, 0, 0, NULL, 1, NULL, 1);
CREATE TABLE contratsmodeles (cm_id INTEGER PRIMARY KEY, cm_libelle VARCHAR, cm_emploi_id INTEGER, cm_type_id INTEGER, cm_nbre_jours INTEGER, cm_nbre_heures INTEGER, cm_salaire_brut REAL, cm_salaire_net REAL);
INSERT INTO contratsmodeles VALUES (1, 'Cachet l''été', 1, 1, 1, 12, 250.0, 195.5);
CREATE TABLE securitesocialetypes (sst_id INTEGER PRIMARY KEY, sst_type VARCHAR);
INSERT INTO securitesocialetypes (sst_type) VALUES ('Accident du travail');
INSERT INTO securitesocialetypes (sst_type) VALUES ('Maladie');
INSERT INTO securitesocialetypes (sst_type) VALUES ('Maternité');
INSERT INTO securitesocialetypes (sst_type) VALUES ('Paternité');
CREATE TABLE securitesociale (ss_id INTEGER PRIMARY KEY, ss_debut DATETIME, ss_fin DATETIME, ss_type_id INTEGER, ss_note VARCHAR, ss_rembourse INTEGER, ss_nbre_jours INTEGER, ss_nbre_jours_suspendus INTEGER, ss_incidence_heures INTEGER, ss_incidence_periode INTEGER);
INSERT INTO securitesociale VALUES (1, '2014-02-10 00:00:00.000', '2014-02-20 00:00:00.000', 2, 'Grippe', 1, 11, 2, 11, 11);
CREATE TABLE employeurs (e_id INTEGER PRIMARY KEY, e_raison_sociale VARCHAR, e_adresse VARCHAR, e_codepostal VARCHAR, e_commune VARCHAR, e_email VARCHAR, e_interlocuteur VARCHAR, e_telephone VARCHAR, e_fax VARCHAR, e_contratmodele_id INTEGER);
INSERT INTO employeurs VALUES (1, 'Inconnu', 'Inconnue', '', 'Inconnue', '', 'Inconnu', '', '', 0);
INSERT INTO employeurs VALUES (2, 'Théâtre de l''Odéon', 'Place de l''Odéon', '75006', 'Paris', 'contact@odeon.fr', 'M. Martin', '0144854000', '', 1);
INSERT INTO employeurs VALUES (3, 'Opéra de Lyon', '1 place de la Comédie', '69001', 'Lyon', '', 'Mme Roux', '0472004500', '0472004501', 0);
CREATE TABLE fraistypes (ft_id INTEGER PRIMARY KEY, ft_type TEXT(255));
INSERT INTO fraistypes (ft_type) VALUES ('Kilométrage');
INSERT INTO fraistypes (ft_type) VALUES ('Accessoire');
INSERT INTO fraistypes (ft_type) VALUES ('Autoroute');
INSERT INTO fraistypes (ft_type) VALUES ('Carburant');
INSERT INTO fraistypes (ft_type) VALUES ('Communication');
INSERT INTO fraistypes (ft_type) VALUES ('Divers');
INSERT INTO fraistypes (ft_type) VALUES ('Documentation');
INSERT INTO fraistypes (ft_type) VALUES ('Hébergement');
INSERT INTO fraistypes (ft_type) VALUES ('Informatique');
INSERT INTO fraistypes (ft_type) VALUES ('Logiciel');
INSERT INTO fraistypes (ft_type) VALUES ('Matériel');
INSERT INTO fraistypes (ft_type) VALUES ('Restauration');
INSERT INTO fraistypes (ft_type) VALUES ('Transport');
INSERT INTO fraistypes (ft_type) VALUES ('Vêtement');
CREATE TABLE frais (f_id INTEGER PRIMARY KEY, f_categorie INTEGER, f_details VARCHAR, f_montant REAL, f_date DATETIME, f_fichier VARCHAR);
INSERT INTO frais VALUES (1, 1, 'Paris - Lyon', 92.4, '2014-01-30 00:00:00.000', '');
INSERT INTO frais VALUES (2, 8, 'Hôtel l''Étoile', 65.0, '2014-01-31 00:00:00.000', '/home/h/recu.pdf');
CREATE TABLE periodes (p_id INTEGER PRIMARY KEY, p_date_debut DATETIME, p_date_fin DATETIME, p_libelle VARCHAR, p_notes VARCHAR);
INSERT INTO periodes VALUES (1, '2012-10-01 00:00:00.000', '2013-09-30 00:00:00.000', 'Période du 01/10/2012 au 30/09/2013', '');
INSERT INTO periodes VALUES (2, '2013-10-01 00:00:00.000', '2014-08-15 00:00:00.000', 'Période du 01/10/2013 au 15/08/2014', 'Période initiale');
CREATE TABLE datesPeriodesPreferees (dpp_id INTEGER PRIMARY KEY, dpp_element VARCHAR, dpp_date DATETIME);
INSERT INTO datesPeriodesPreferees (dpp_element, dpp_date) VALUES ('contrats_debut', '2013-10-01 00:00:00.000');
INSERT INTO datesPeriodesPreferees (dpp_element, dpp_date) VALUES ('contrats_fin', '2014-08-15 00:00:00.000');
CREATE TABLE congeshistorique (ch_id INTEGER PRIMARY KEY, ch_date DATETIME, ch_montant REAL, ch_encaisse INTEGER);
INSERT INTO congeshistorique VALUES (1, '2014-05-02 00:00:00.000', 412.3, 1);
CREATE TABLE fiscalitehistorique (fh_id INTEGER PRIMARY KEY, fh_date DATETIME, fh_montant REAL, fh_credit INTEGER);
CREATE TABLE assedichistorique (ah_id INTEGER PRIMARY KEY, ah_date DATETIME, ah_montant REAL);
INSERT INTO assedichistorique VALUES (1, '2014-03-04 00:00:00.000', 1180.62);
CREATE TABLE fichiersauvegardes (fs_id INTEGER PRIMARY KEY, fs_date DATETIME);
