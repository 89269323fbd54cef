#!/usr/bin/env python3
"""Whole-process measurements on generated careers: the command line's JSON listing against
sqlite3 running the same statements, its peak memory, the desktop program's start-up to
its first painted window (on the contracts section, the Pôle Emploi section, then the
dashboard) with its peak memory, and the command line's whole-file export.

    python3 bench/mesures.py [--liste] [--tours N] [BUILD_DIR]        (default: build)

Each figure is the median of N runs (five by default) of wall time, and the largest resident
size seen. --liste measures the command line's JSON listing alone.
"""
import argparse
import os
import statistics
import subprocess
import tempfile
import time

TOURS = 5

# What `contrat lister --json` runs for "tous": the jobs, the listing, the grouped count, the totals.
REQUETES = """
SELECT e_id, e_emploi FROM emplois;
SELECT c_employeur_id, c_debut_contrat, c_fin_contrat, c_emploi_id, c_nbre_heures, c_nbre_jours, c_salaire_brut,
 c_salaire_net, e_raison_sociale, contrats.c_id, c_liste_dates, c_abattement, c_effectue, c_paye, c_note, c_type,
 c_fonction, c_conges, e_guso, c_annee_encaissement, c_lieu, liens.frais, c_aem_fp, c_pas FROM contrats JOIN employeurs
 ON c_employeur_id = employeurs.e_id LEFT JOIN (SELECT contrat_id, GROUP_CONCAT(frais_id) AS frais FROM contrats_frais
 GROUP BY contrat_id) AS liens ON liens.contrat_id = contrats.c_id WHERE (((c_effectue=0) OR (c_effectue=1)))
 ORDER BY c_debut_contrat DESC;
SELECT COUNT(c_id) AS nombrePeriodesGroupees FROM contrats WHERE (((julianday(c_fin_contrat) -
 julianday(c_debut_contrat)) + 1) >= 5) AND ((c_effectue=0) OR (c_effectue=1));
SELECT SUM(c_nbre_heures), SUM(c_nbre_jours), SUM(c_salaire_brut), SUM(c_salaire_net) FROM contrats WHERE
 (((c_effectue=0) OR (c_effectue=1)));
"""


def mesurer(commande, env=None, attendre=None):
    """Wall time of one run, and the child's peak resident size in MB (this run alone: the
    children's overall figure would hide any run smaller than an earlier one)."""
    debut = time.perf_counter()
    if attendre:
        p = subprocess.Popen(commande, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, env=env, text=True)
        for ligne in p.stdout:
            if ligne.strip() == attendre:
                duree = time.perf_counter() - debut
                break
        else:
            raise SystemExit("le programme s'est arrêté sans peindre sa fenêtre")
        _, statut, usage = os.wait4(p.pid, 0)
    else:
        p = subprocess.Popen(commande, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, env=env)
        _, statut, usage = os.wait4(p.pid, 0)
        duree = time.perf_counter() - debut
    p.returncode = os.waitstatus_to_exitcode(statut)
    if not attendre and p.returncode != 0:
        raise subprocess.CalledProcessError(p.returncode, commande)
    return duree, usage.ru_maxrss / 1024


def serie(commande, env=None, attendre=None):
    durees, pics = [], []
    for _ in range(TOURS):
        d, p = mesurer(commande, env, attendre)
        durees.append(d)
        pics.append(p)
    return statistics.median(durees), max(pics)


def main():
    global TOURS
    arguments = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    arguments.add_argument("build", nargs="?", default="build")
    arguments.add_argument("--liste", action="store_true", help="the JSON listing alone")
    arguments.add_argument("--tours", type=int, default=TOURS, help="runs per figure")
    options = arguments.parse_args()
    TOURS = options.tours
    genere = os.path.join(options.build, "bench", "corvane-genere")
    ligne_de_commande = os.path.join(options.build, "src", "cli", "corvane-cli")
    corvane = os.path.join(options.build, "src", "app", "corvane")

    with tempfile.TemporaryDirectory() as dossier:
        documents = {}
        for n in (5000, 20000) if options.liste else (5000, 20000, 50000):
            documents[n] = os.path.join(dossier, f"carriere-{n}.cv4")
            subprocess.run([genere, "--contrats", str(n), documents[n]], stdout=subprocess.DEVNULL, check=True)

        cli, cli_pic = serie([ligne_de_commande, "--json", "contrat", "lister", documents[5000]])
        sql, _ = serie(["sqlite3", "-json", documents[5000], REQUETES])
        print(f"contrat lister --json, 5 000 contrats : {cli * 1000:.0f} ms (sqlite3 -json : {sql * 1000:.0f} ms, "
              f"rapport {cli / sql:.2f})")
        _, pic = serie([ligne_de_commande, "--json", "contrat", "lister", documents[20000]])
        print(f"contrat lister --json, 20 000 contrats : pic mémoire {pic:.0f} Mo")
        if options.liste:
            return

        # A throwaway home whose settings open the contracts section, the heaviest at start-up.
        maison = os.path.join(dossier, "maison")
        os.makedirs(os.path.join(maison, ".config", "Corvane"))
        with open(os.path.join(maison, ".config", "Corvane", "Corvane.conf"), "w") as f:
            f.write("[General]\nLastTabUsed=2\nOpenLastTab=true\nConfiguration_FichierSauvegardeAuto=false\n")
        env = dict(os.environ, HOME=maison, XDG_CONFIG_HOME=os.path.join(maison, ".config"),
                   CORVANE_MESURE_DEMARRAGE="1", QT_QPA_PLATFORM=os.environ.get("QT_QPA_PLATFORM", "offscreen"))
        for n in (5000, 50000):
            duree, pic = serie([corvane, documents[n]], env, attendre="peinte")
            nombre = f"{n:,}".replace(",", " ")
            print(f"corvane, {nombre} contrats : première fenêtre peinte en {duree * 1000:.0f} ms, "
                  f"pic mémoire {pic:.0f} Mo")

        # The same start-up on the "Pôle Emploi" section, which computes the rights before it paints.
        with open(os.path.join(maison, ".config", "Corvane", "Corvane.conf"), "w") as f:
            f.write("[General]\nLastTabUsed=7\nOpenLastTab=true\nConfiguration_FichierSauvegardeAuto=false\n")
        duree, pic = serie([corvane, documents[5000]], env, attendre="peinte")
        print(f"corvane, 5 000 contrats, section Pôle Emploi : première fenêtre peinte en {duree * 1000:.0f} ms, "
              f"pic mémoire {pic:.0f} Mo")
        # The dashboard, the section a new user sees first, and its whole-file export of three PDFs.
        with open(os.path.join(maison, ".config", "Corvane", "Corvane.conf"), "w") as f:
            f.write("[General]\nLastTabUsed=0\nOpenLastTab=true\nConfiguration_FichierSauvegardeAuto=false\n")
        duree, pic = serie([corvane, documents[5000]], env, attendre="peinte")
        print(f"corvane, 5 000 contrats, tableau de bord : première fenêtre peinte en {duree * 1000:.0f} ms, "
              f"pic mémoire {pic:.0f} Mo")
        duree, pic = serie([ligne_de_commande, "pdf", documents[5000], "--dossier", "--sortie",
                            os.path.join(dossier, "export")])
        print(f"pdf --dossier, 5 000 contrats : trois rapports en {duree * 1000:.0f} ms, pic mémoire {pic:.0f} Mo")


if __name__ == "__main__":
    main()
