-- An Orvia 1 document (.orv). Dates were written as date descriptions.
CREATE TABLE utilisateur (u_id INTEGER PRIMARY KEY, u_nom VARCHAR, u_prenom VARCHAR, u_nomusage VARCHAR, u_telephone VARCHAR, u_nir VARCHAR, u_naissance DATETIME, u_adresse VARCHAR, u_codepostal VARCHAR, u_commune VARCHAR, u_job VARCHAR, u_identifiant VARCHAR);
INSERT INTO utilisateur VALUES (1, 'Lefèvre', 'Noël', 'Noé l''Ancien', '0490001122', '176058412345612', '1976-05-02 00:00:00 +0200', '3 chemin d''Avignon', '84000', 'Avignon', 'Technicien', '7654321B');
CREATE TABLE etablissements (et_id INTEGER PRIMARY KEY, et_nom VARCHAR, et_adresse VARCHAR, et_codepostal VARCHAR, et_commune VARCHAR, et_telephone VARCHAR, et_contact VARCHAR);
INSERT INTO etablissements VALUES (1, 'Festival d''Avignon', 'Cloître Saint-Louis', '84000', 'Avignon', '0490141414', 'Régie');
INSERT INTO etablissements VALUES (4, 'Son & Lumière', '', '13001', 'Marseille', '', '');
CREATE TABLE frais (f_id INTEGER PRIMARY KEY, f_date DATETIME, f_categorie VARCHAR, f_libelle VARCHAR, f_montant REAL);
INSERT INTO frais VALUES (1, '2004-07-08 00:00:00 +0200', 'Carburant', 'Plein', 61.347);
INSERT INTO frais VALUES (2, '2004-07-09 00:00:00 +0200', 'Frais divers anciens', 'Câbles', 18.0);
CREATE TABLE declarations (d_id INTEGER PRIMARY KEY, d_etablissement_id INTEGER, d_debut DATETIME, d_fin DATETIME, d_heures INTEGER, d_jours INTEGER, d_dates VARCHAR, d_brut REAL, d_net REAL, d_abattement INTEGER, d_paye INTEGER, d_note VARCHAR);
INSERT INTO declarations VALUES (1, 1, '2004-07-08 00:00:00 +0200', '2004-07-10 00:00:00 +0200', 24, 3, '8,9,10', 420.0, 330.5, 20, 1, 'Montage');
INSERT INTO declarations VALUES (2, 4, '2004-07-30 00:00:00 +0200', '2004-08-01 00:00:00 +0200', 16, 2, '30,1', 300.0, 236.0, 0, 0, '');
INSERT INTO declarations VALUES (3, 99, '2004-09-02 00:00:00 +0200', '2004-09-02 00:00:00 +0200', 8, 1, '', 150.0, 118.0, 20, 1, 'Employeur disparu');
CREATE TABLE archives (a_id INTEGER PRIMARY KEY, a_debut DATETIME, a_fin DATETIME);
INSERT INTO archives VALUES (1, '2003-01-01 00:00:00 +0100', '2003-12-31 00:00:00 +0100');
