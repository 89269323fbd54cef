-- An Orvia 2.5 document: the schema of version 2 without the framework's table,
-- and a few more profile fields.
CREATE TABLE utilisateur (u_id INTEGER PRIMARY KEY, u_nom VARCHAR, u_prenom VARCHAR, u_nomusage VARCHAR, u_telephone VARCHAR, u_nir VARCHAR, u_naissance DATETIME, u_adresse VARCHAR, u_codepostal VARCHAR, u_commune VARCHAR, u_job VARCHAR, u_identifiant VARCHAR, u_civilite VARCHAR, u_email VARCHAR, u_mobile VARCHAR, u_fax VARCHAR, u_date_ouverture DATETIME, u_taux REAL, u_abattement INTEGER, u_conges_spectacles VARCHAR, u_guso VARCHAR, u_audiens VARCHAR, u_srj REAL, u_lieu_naissance VARCHAR, u_nationalite VARCHAR);
INSERT INTO utilisateur VALUES (1, 'Nguyen', 'Minh', 'DJ Minh', '0320000000', '180125900000022', '1980-12-01 00:00:00 +0100', '1 rue Nationale', '59000', 'Lille', 'Ouvrier', '9988776D', 'Mr', 'minh@exemple.fr', '0700000002', '0320000001', '2007-05-15 00:00:00 +0200', 38.9, 20, 'CS-5', 'G-6', 'A-7', 77.4, 'Hanoï', 'Française');
CREATE TABLE etablissements (et_id INTEGER PRIMARY KEY, et_nom VARCHAR, et_adresse VARCHAR, et_codepostal VARCHAR, et_commune VARCHAR, et_telephone VARCHAR, et_contact VARCHAR, et_email VARCHAR, et_fax VARCHAR);
INSERT INTO etablissements VALUES (1, 'Le Splendid', '1 place du Mont de Terre', '59000', 'Lille', '', 'Régisseur', '', '');
CREATE TABLE frais (f_id INTEGER PRIMARY KEY, f_date DATETIME, f_categorie VARCHAR, f_libelle VARCHAR, f_montant REAL);
INSERT INTO frais VALUES (1, '2007-06-01 00:00:00 +0200', 'Matériel', 'Gaffer', 12.9);
INSERT INTO frais VALUES (2, '2007-06-02 00:00:00 +0200', 'Restauration', 'Repas d''équipe', 23.456);
CREATE TABLE declarations (d_id INTEGER PRIMARY KEY, d_etablissement_id INTEGER, d_debut DATETIME, d_fin DATETIME, d_heures INTEGER, d_jours INTEGER, d_dates VARCHAR, d_brut REAL, d_net REAL, d_abattement INTEGER, d_paye INTEGER, d_note VARCHAR, d_type VARCHAR, d_fonction VARCHAR, d_emploi VARCHAR, d_conges INTEGER);
INSERT INTO declarations VALUES (1, 1, '2007-06-01 00:00:00 +0200', '2007-06-03 00:00:00 +0200', 24, 3, '1,2,3', 480.0, 377.0, 20, 1, 'Installation', 'Prestations', 'Électricien', 'Ouvrier', 1);
CREATE TABLE cachets_planifies (cp_id INTEGER PRIMARY KEY, cp_etablissement_id INTEGER, cp_debut DATETIME, cp_fin DATETIME, cp_heures INTEGER, cp_jours INTEGER, cp_brut REAL, cp_note VARCHAR);
CREATE TABLE archives (a_id INTEGER PRIMARY KEY, a_debut DATETIME, a_fin DATETIME);
INSERT INTO archives VALUES (1, '2006-05-15 00:00:00 +0200', '2007-05-14 00:00:00 +0200');
