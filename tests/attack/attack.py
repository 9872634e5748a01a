"""What the attacks have in common: a program folder of their own, a talk with the pilot, a player, and the counting
of what was tried and what was found."""
import argparse
import json
import os
import random
import re
import select
import shutil
import subprocess
import sys
import tempfile
import threading
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

HOUSE = Path(__file__).resolve().parents[2]
PATIENCE = 60  # seconds without an answer: a hang
MAP = "Ecran_principal"
NO_GAME = 0
TO_FIND = {1: "ProvinceCourante", 2: "VilleCourante", 3: "ProvinceCourante"}
REGIONS = 4
SANITIZER = re.compile(r"AddressSanitizer|runtime error|LeakSanitizer")
TO_LEAVE = {"Affichage_scores": "Command1", "Stats": "Command1", "Edition": "BTN_quit", "Pompe": "BTN_OK", "Palette": "BoutonFermeture",
            "Sélection_partie": "Bouton_annuler", "nouvelle_partie": "Bouton_annuler",
            "Paramétrage_répertoires": "Bouton_OK"}  # fmt: skip


class Finding(Exception):
    """What no attack may bring about."""


class Ended(Exception):
    """The pilot has ended, or was killed."""


class Attack:
    """Options, the random source, progress and the closing line."""

    def __init__(self, what, count, arguments=None):
        options = argparse.ArgumentParser(description=what)
        options.add_argument("--count", type=int, default=count, help="how many to try at least (%(default)s)")
        options.add_argument("--seed", type=int, default=1)
        options.add_argument("--pilot", type=Path, default=HOUSE / "build/release/programme/ardane-pilote")
        options.add_argument("--only", nargs="*", help="only what findings were called, to try them again")
        options.add_argument("--jobs", type=int, default=8, help="so many at once")
        options.add_argument("--keep", type=Path, help="a folder to copy what a finding was made in to")
        self.what, self.options = what, options.parse_args(arguments)
        self.random = random.Random(self.options.seed)
        self.tried, self.findings, self.tally = 0, 0, {}
        self._lock = threading.Lock()
        self._told = self._begun = time.monotonic()
        # In memory where there is such a place: each session waits for the disk a hundred times.
        memory = "/dev/shm" if os.path.isdir("/dev/shm") else None
        self._scratch = tempfile.TemporaryDirectory(prefix="attaque-", dir=memory)
        self.scratch = Path(self._scratch.name)
        self.pilot = self.options.pilot.resolve()

    @classmethod
    def over(cls, pilot):
        """Folders and pilots for who does not attack."""
        return cls("", 0, ["--pilot", str(pilot)])

    def remove(self):
        self._scratch.cleanup()

    def each(self, trials):
        """Makes trials (kind, what, number, trial), where trial(folder) tries so many times and raises what it finds.
        Each has a new folder, which goes when it has been tried."""
        with ThreadPoolExecutor(self.options.jobs) as jobs:
            wanted = (t for t in trials if self.options.only is None or t[1] in self.options.only)
            for _ in jobs.map(self._try, wanted):
                pass

    def _try(self, trial_and_name):
        kind, what, number, trial = trial_and_name
        folder = Path(tempfile.mkdtemp(dir=self.scratch))
        try:
            trial(folder)
        except Finding as finding:
            self.finding(f"{what}: {finding}", folder)
        except Ended:
            self.finding(f"{what}: it ended", folder)
        finally:
            shutil.rmtree(folder)
        self.count(kind, number)

    def count(self, kind, number=1):
        with self._lock:
            self.tried += number
            self.tally[kind] = self.tally.get(kind, 0) + number
            if time.monotonic() - self._told > 5:
                self._told = time.monotonic()
                print(f"{self.tried} of {self.options.count}, {self.findings} findings", flush=True)

    def note(self, kind):
        """Worth telling at the end, and no finding."""
        with self._lock:
            self.tally[kind] = self.tally.get(kind, 0) + 1

    def finding(self, what, folder=None):
        with self._lock:
            self.findings += 1
            print(f"FINDING: {what}", flush=True)
            if folder is not None and self.options.keep:
                kept = self.options.keep / str(self.findings)
                shutil.rmtree(kept, ignore_errors=True)
                shutil.copytree(folder, kept, symlinks=True)

    def close(self):
        kinds = ", ".join(f"{kind} {n}" for kind, n in sorted(self.tally.items()))
        seconds = time.monotonic() - self._begun
        print(f"{self.what}: {self.tried} in {seconds:.0f} s, seed {self.options.seed} ({kinds}); "
              f"{self.findings} findings", flush=True)  # fmt: skip
        self.remove()
        sys.exit(1 if self.findings else 0)

    def copy(self, base, folder):
        shutil.copytree(base, folder, symlinks=True, dirs_exist_ok=True)
        # Settings and the lifeline name the folder; names of one length keep what is counted right.
        for file in (folder / "programme/registre", *(folder / "secours").glob("*")):
            if file.is_file():
                file.write_bytes(file.read_bytes().replace(bytes(base), bytes(folder)))

    def new_folder(self):
        """A program folder in which nothing has been played."""
        folder = Path(tempfile.mkdtemp(dir=self.scratch))
        (folder / "programme").mkdir()
        for file in ("ardane.pts", "images", *(f"carte_{s}.wav" for s in ("er", "es", "ga", "hl", "ok", "pe"))):
            (folder / "programme" / file).symlink_to(self.pilot.parent / file)
        return folder

    def base(self):
        """A folder with a configuration of two provinces of one region, in use, and Lou's score in it."""
        folder = self.new_folder()
        player = Player(self, folder)
        player.start()
        player.keep_configuration("petit", lambda: player.leave_out_all_but(2))
        player.new_game("Lou")
        player.play()
        player.do("menu fichier_quitter")
        player.end()
        return folder


class Pilot:
    """One run of the pilot in a folder, under `wrapper` if there is one."""

    def __init__(self, attack, folder, wrapper=(), seed=1, errors="erreurs", lifeline=True):
        self._errors = open(folder / errors, "w+b")
        self._process = subprocess.Popen(
            [*wrapper, attack.pilot, "--programme", folder / "programme", "--dossier", folder / "programme",
             "--registre", folder / "programme/registre", *(("--secours", folder / "secours") if lifeline else ()),
             "--date", "2026-11-21", "--hasard", str(seed)],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=self._errors, bufsize=0)  # fmt: skip
        self.pid = self._process.pid
        self.waits_for = "rien"
        self._rest = b""

    def lines(self, number_of_answers):
        """What the pilot writes up to that many lines that bear the key `attend`."""
        lines = []
        while number_of_answers > 0:
            while b"\n" not in self._rest:
                if not select.select([self._process.stdout], [], [], PATIENCE)[0]:
                    raise Finding("no answer: it hangs")
                more = os.read(self._process.stdout.fileno(), 1 << 16)
                if not more:
                    raise Ended
                self._rest += more
            *whole, self._rest = self._rest.split(b"\n")
            for n, line in enumerate(whole):
                lines.append(json.loads(line))
                if "attend" in lines[-1]:
                    number_of_answers -= 1
                    self.waits_for = lines[-1]["attend"]
                    if number_of_answers == 0:
                        self._rest = b"\n".join([*whole[n + 1 :], self._rest])
                        break
        return lines

    def write(self, octets):
        try:
            self._process.stdin.write(octets)
        except BrokenPipeError:
            raise Ended from None

    def say(self, command):
        """The events that follow a command."""
        if self.waits_for == "fin":
            raise Ended
        self.write(command.encode() + b"\n")
        return self.lines(1)[:-1]

    def read(self, path):
        for line in self.say("état " + path):
            return line.get("état")

    def processor_time(self):
        """In nanoseconds."""
        try:
            return int(Path(f"/proc/{self.pid}/schedstat").read_text().split()[0])
        except (OSError, IndexError):
            return 0

    def kill(self):
        self._process.kill()

    def end(self, expected=(0, 1)):
        """Waits for its end; a finding if that was none of the expected ones."""
        try:
            self._process.stdin.close()
        except BrokenPipeError:
            pass
        try:
            self._process.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            self._process.kill()
            raise Finding("it does not end") from None
        finally:
            self._process.stdout.close()
        self._errors.seek(0)
        self.errors = self._errors.read().decode(errors="replace")
        self._errors.close()
        if SANITIZER.search(self.errors):
            raise Finding("sanitizer: " + self.errors[:2000])
        if self._process.returncode not in expected:
            raise Finding(f"it ended with {self._process.returncode}: {self.errors[-300:]}")


class Player:
    """Plays through the pilot. What goes wrong on the way he takes as it comes: a box he answers, a window that he
    does not want he leaves."""

    def __init__(self, attack, folder, wrapper=(), **options):
        self.folder = folder
        self.pilot = Pilot(attack, folder, wrapper, **options)
        self.boxes, self.clicks, self.answers, self.card = [], [], 0, ""
        self.told_not_written = self.congratulated = self.saved = self.offered = self.fatal = self.refused = False

    def do(self, command):
        events = self.pilot.say(command)
        for event in events:
            box = event.get("boîte")
            if isinstance(box, dict):
                self.boxes.append(box)
                self.congratulated |= "figurez dans le top ten" in box["texte"]
                self.told_not_written |= "Impossible d'écrire le fichier" in box["texte"]
                self.offered |= "La reprendre ?" in box["texte"]
            self.fatal |= "fatale" in event
        self.refused = any("erreur" in event for event in events)
        return events

    def answer_boxes(self, word=None):
        while self.pilot.waits_for == "boîte":
            self.do("répondre " + (word or ("oui" if "Oui" in self.boxes[-1]["boutons"] else "ok")))

    def back_to_map(self, or_window=MAP):
        """Answers boxes and leaves windows, down to the map, or to that window if it comes up before."""
        for _ in range(50):
            self.answer_boxes()
            if self.pilot.waits_for in (or_window, MAP, "rien", "fin"):
                return
            self.do("clic " + TO_LEAVE[self.pilot.waits_for] if self.pilot.waits_for in TO_LEAVE else "fermer")
            if self.refused:
                self.do("fermer")
            if self.pilot.waits_for == "boîte" and "cette fiche" in self.boxes[-1]["texte"]:
                # A card that cannot be written is only left as it was.
                self.answer_boxes()
                self.do("texte TXT_INFOS " + self.card)
        raise Finding(f"it does not come back to the map from {self.pilot.waits_for}: {self.boxes[-1:]}")

    def start(self):
        self.do("démarrer")
        self.back_to_map()

    def end(self, expected=(0, 1)):
        self.pilot.end(expected)

    def state(self, path):
        return self.pilot.read(path)

    def leave_out_all_but(self, number):
        provinces = self.state("TableProvinces")
        region = provinces[1]["région"]
        kept = [p for p in range(1, 111) if provinces[p]["région"] == region][:number]
        for p in range(1, 111):
            if p not in kept:
                self.click_on_town(p)

    def keep_configuration(self, name, change):
        self.do("menu menu_définir")
        change()
        self.do("clic BTN(1)")
        self.do("texte Nom_fichier " + name)
        self.do("clic Bouton_OK")
        self.back_to_map()
        if self.state("Etape") == 7:
            self.do("clic BTN(2)")
            self.back_to_map()

    def new_game(self, name, level="niveau_facile"):
        self.do("menu fichier_nouveau")
        self.back_to_map("nouvelle_partie")
        self.do("texte boîte_nom_joueur " + name)
        self.do("clic " + level)
        self.do("clic bouton_sortie")
        self.back_to_map()

    def click_on_town(self, town):
        """The first 110 are those of the provinces."""
        place = self.state(f"TableVilles({town})")
        self.do(f"clic_carte {place['x'] + 3} {place['y'] + 4}")

    def right_answer(self):
        """A town that answers the question, or stands in the province that does."""
        stage = self.state("Etape")
        if stage == REGIONS:
            region, to_choose = self.state("RégionCourante"), self.state("ResteRégion")
            chosen = self.state("SélectionRégion")[to_choose + 1 :]
            provinces = self.state("TableProvinces")
            town = next((p for p in range(1, 111) if provinces[p]["région"] == region and p not in chosen
                         and not provinces[p]["trouvée"] and not provinces[p]["inhibée"]), 1)  # fmt: skip
        else:
            town = self.state(TO_FIND[stage])
        return town

    def play(self, answers=10**6):
        """Answers rightly, to the end of the game or so many times."""
        for _ in range(answers):
            if self.pilot.waits_for != MAP or self.state("Etape") not in (*TO_FIND, REGIONS):
                return
            answer = self.right_answer()
            before = self.pilot.processor_time()
            self.click_on_town(answer)
            self.clicks.append(self.pilot.processor_time() - before)
            if self.refused:
                return
            self.answers += 1
            self.back_to_map()

    def choose_file(self, entry, name):
        """Takes up a saved game or a configuration."""
        self.do("menu " + entry)
        self.back_to_map("Sélection_partie")
        self.do("sélection Fichier " + name)
        self.do("clic Bouton_OK")
        self.back_to_map()

    def whole_session(self):
        """All that writes or reads a file, in one run."""
        self.start()
        for entry in ("MenuSon", "Menu_liste", "Menu_liste_souspréf", "Menu_langue", "Menu_langue"):
            self.do("menu " + entry)
            self.back_to_map()
        self.do("menu MenuCouleurPréfectures")
        self.do("clic ChoixCouleur(5)")
        self.back_to_map()
        self.do("menu MenuFicheur")
        if self.pilot.waits_for == "Edition":
            self.card = self.pilot.say("contrôle TXT_INFOS")[0]["contrôle"]["texte"]
            self.card = self.card.replace("\\", "\\\\").replace("\r", "").replace("\n", "\\n")
        self.do("texte TXT_INFOS Une fiche nouvelle.")
        self.do("clic BTN_Right")
        self.back_to_map()
        self.keep_configuration("autre", lambda: self.do("clic Bouton(16)"))
        self.new_game("Zoé")
        self.play(3)
        self.do("menu Fichier_enregistrer")
        self.do("texte Nom_fichier souper")
        self.do("clic Bouton_OK")
        self.saved = "Sélection_partie" != self.pilot.waits_for
        self.back_to_map()
        if self.state("Etape") == NO_GAME:
            self.choose_file("Fichier_lire", "souper.CAI")
        self.play(5)
        self.do("menu Menu_défaut")
        self.back_to_map()
        self.new_game("Zoé")
        self.play(1)
        self.choose_file("menu_recharger", "petit.SCI")
        self.new_game("Zoé")
        self.play()
        self.do("menu score_facile")
        self.do("clic BoutonStatistiques")
        self.back_to_map()
        self.do("menu fichier_quitter")
        self.answer_boxes()


def temporary_files(folder):
    """What no run may leave behind."""
    return [str(f) for f in folder.rglob("*") if "~" in f.name or f.suffix in (".tmp", ".nouveau", ".provisoire")]


def kept_scores(folder, name):
    """True if the lifeline keeps a score file of old that names that player."""
    return any(name.encode() in f.read_bytes() for f in (folder / "secours/scores").rglob("*.SCI") if f.is_file())
