#!/usr/bin/env python3
"""Kill -9 figures: writes to a generated career document, each killed with SIGKILL at a
random moment, then reopened by Corvane.

Each round runs `corvane-cli contrat ajouter` with a note of its own, kills it after a
random delay (uniform over 1.2 times a command's usual duration, so that some finish),
then opens the document with Corvane (`info`, which repairs an interrupted write, then
`ouvrir`, the program's own opening) and lists every contract. A contract whose command
exited 0 is acknowledged and must be there in every later round; a document that
Corvane cannot reopen is a failure. Exit status 1 when a record is lost or a document
cannot be reopened.

    bench/kill9.py [--build build] [--manches 150] [--graine 1]      (or: make kill9)
"""

import argparse
import json
import os
import random
import shutil
import sqlite3
import statistics
import subprocess
import sys
import tempfile
import time


def lancer(cli, *arguments):
    return subprocess.run([cli, "--json", *arguments], capture_output=True, text=True)


def main():
    options = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    options.add_argument("--build", default="build")
    options.add_argument("--manches", type=int, default=150)
    options.add_argument("--graine", type=int, default=1)
    options = options.parse_args()
    cli = os.path.join(options.build, "src/cli/corvane-cli")
    genere = os.path.join(options.build, "bench/corvane-genere")
    hasard = random.Random(options.graine)

    dossier = tempfile.mkdtemp(prefix="corvane-kill9-")
    document = os.path.join(dossier, "carriere.cv4")
    subprocess.run([genere, "--annees", "3", "--contrats", "400", "--graine", "7", document],
                   check=True, capture_output=True)
    employeur = json.loads(lancer(cli, "employeur", "lister", document).stdout)["employeurs"][0]["Enseigne"]

    def ajout(note):
        return [cli, "--json", "contrat", "ajouter", document, "--employeur", employeur,
                "--debut", "2024-03-01", "--note", note]

    # A command's usual duration, measured on writes that are not killed.
    durees = []
    for i in range(5):
        debut = time.monotonic()
        subprocess.run(ajout(f"mesure-{i}"), check=True, capture_output=True)
        durees.append(time.monotonic() - debut)
    duree = statistics.median(durees)

    acquittes = set()  # notes of the contracts whose command exited 0
    tues = 0
    tues_enregistres = 0
    journaux = 0
    perdus = set()
    non_rouverts = 0
    for manche in range(options.manches):
        note = f"kill9-{manche}"
        processus = subprocess.Popen(ajout(note), stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        time.sleep(hasard.uniform(0, 1.2 * duree))
        tue = processus.poll() is None
        if tue:
            processus.kill()
        processus.communicate()
        if tue:
            tues += 1
            journaux += os.path.exists(document + "-journal")
        elif processus.returncode == 0:
            acquittes.add(note)
        else:
            print(f"manche {manche} : la commande a échoué ({processus.returncode})", file=sys.stderr)

        # Corvane reopens the document: first a reading command, then the program's opening.
        info = lancer(cli, "info", document)
        ouvrir = lancer(cli, "ouvrir", document)
        if info.returncode != 0 or ouvrir.returncode != 0 or json.loads(info.stdout).get("generation") != "4":
            non_rouverts += 1
            print(f"manche {manche} : document non rouvert : {info.stderr}{ouvrir.stderr}", file=sys.stderr)
            continue
        liste = lancer(cli, "contrat", "lister", document, "--periode", "tous")
        notes = {str(ligne.get("Note")) for ligne in json.loads(liste.stdout)["contrats"]}
        perdus |= acquittes - notes
        if tue and note in notes:
            tues_enregistres += 1
        base = sqlite3.connect(f"file:{document}?mode=ro", uri=True)
        if base.execute("PRAGMA integrity_check;").fetchone()[0] != "ok":
            non_rouverts += 1
            print(f"manche {manche} : integrity_check n'a pas répondu « ok »", file=sys.stderr)
        base.close()

    print(f"Manches : {options.manches} (durée usuelle d'une commande : {duree * 1000:.0f} ms)")
    print(f"Commandes tuées (SIGKILL) : {tues}, dont {tues_enregistres} après l'enregistrement, "
          f"{journaux} en laissant un journal")
    print(f"Enregistrements acquittés (sortie 0) : {len(acquittes)}")
    print(f"Enregistrements acquittés perdus : {len(perdus)}")
    print(f"Documents que Corvane n'a pas pu rouvrir : {non_rouverts}")
    if perdus or non_rouverts:
        print(f"Document gardé pour examen : {document}")
        return 1
    shutil.rmtree(dossier)
    return 0


if __name__ == "__main__":
    sys.exit(main())
