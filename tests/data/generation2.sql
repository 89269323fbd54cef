-- An Orvia 2 document: the planned engagements appear, and the persistence
-- framework keeps its own schema table.
CREATE TABLE QLP_SchemaTable (QLP_table VARCHAR, QLP_version INTEGER);
INSERT INTO QLP_SchemaTable VALUES ('declarations', 2);
CREATE TABLE utilisateur (u_id INTEGER PRIMARY KEY, u_nom VARCHAR, u_prenom VARCHAR, u_nomusage VARCHAR, u_telephone VARCHAR, u_nir VARCHAR, u_naissance DATETIME, u_adresse VARCHAR, u_codepostal VARCHAR, u_commune VARCHAR, u_job VARCHAR, u_identifiant VARCHAR, u_civilite VARCHAR, u_email VARCHAR, u_mobile VARCHAR, u_fax VARCHAR, u_date_ouverture DATETIME, u_taux REAL, u_abattement INTEGER, u_conges_spectacles VARCHAR, u_guso VARCHAR, u_audiens VARCHAR);
INSERT INTO utilisateur VALUES (1, 'Martin', 'Zoé', '', '0140000000', '290017500000011', '1990-01-20 00:00:00 +0100', '8 boulevard Voltaire', '75011', 'Paris', 'Artiste', '1122334C', 'Mlle', 'zoe@exemple.fr', '0600000001', '', '2006-02-01 00:00:00 +0100', 41.26, 25, 'CS-1', 'G-2', 'A-3');
CREATE TABLE etablissements (et_id INTEGER PRIMARY KEY, et_nom VARCHAR, et_adresse VARCHAR, et_codepostal VARCHAR, et_commune VARCHAR, et_telephone VARCHAR, et_contact VARCHAR, et_email VARCHAR, et_fax VARCHAR);
INSERT INTO etablissements VALUES (1, 'Compagnie l''Étourdie', '5 rue Oberkampf', '75011', 'Paris', '0143000000', 'Anne', 'anne@etourdie.fr', '0143000001');
INSERT INTO etablissements VALUES (2, 'Radio France', '116 avenue du Président Kennedy', '75016', 'Paris', '', 'Service paie', '', '');
CREATE TABLE frais (f_id INTEGER PRIMARY KEY, f_date DATETIME, f_categorie VARCHAR, f_libelle VARCHAR, f_montant REAL);
INSERT INTO frais VALUES (1, '2006-03-03 00:00:00 +0100', 'Transport', 'Navigo', 54.5);
CREATE TABLE declarations (d_id INTEGER PRIMARY KEY, d_etablissement_id INTEGER, d_debut DATETIME, d_fin DATETIME, d_heures INTEGER, d_jours INTEGER, d_dates VARCHAR, d_brut REAL, d_net REAL, d_abattement INTEGER, d_paye INTEGER, d_note VARCHAR, d_type VARCHAR, d_fonction VARCHAR, d_emploi VARCHAR, d_conges INTEGER);
INSERT INTO declarations VALUES (1, 1, '2006-03-25 00:00:00 +0100', '2006-03-27 00:00:00 +0200', 36, 3, '25,26,27', 600.0, 471.0, 25, 1, 'Reprise', 'Prestations', 'Comédienne', 'Artiste', 1);
INSERT INTO declarations VALUES (2, 2, '2006-04-10 00:00:00 +0200', '2006-04-10 00:00:00 +0200', 4, 1, '10', 120.0, 94.0, 25, 1, '', 'Enseignements', 'Lectrice', 'Artiste', 0);
CREATE TABLE cachets_planifies (cp_id INTEGER PRIMARY KEY, cp_etablissement_id INTEGER, cp_debut DATETIME, cp_fin DATETIME, cp_heures INTEGER, cp_jours INTEGER, cp_brut REAL, cp_note VARCHAR);
INSERT INTO cachets_planifies VALUES (1, 1, '2006-06-21 00:00:00 +0200', '2006-06-21 00:00:00 +0200', 12, 1, 250.0, 'Fête de la musique');
CREATE TABLE archives (a_id INTEGER PRIMARY KEY, a_debut DATETIME, a_fin DATETIME);
