#!/usr/bin/env python3
"""Play at random for as long as one likes, through the pilot or the desktop's windows: memory stays flat, no
descriptor and no temporary file is left, and an answer takes no longer at the end than at the beginning. Hours
are those of the program's own clock: it may run faster than ours."""
import argparse
import os
import random
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "attack"))
from attack import HOUSE, NO_GAME, Attack, Player, temporary_files  # noqa: E402

LEVELS = ("niveau_facile", "niveau_moyen", "niveau_difficile", "niveau_expert")
WARM_UP = 0.2  # of the games: by then everything has been shown and loaded once
MORE_MEMORY = 2048  # KiB that a run may have grown by after that: the allocator's own
SLOWER = 1.05
TICKS_OF_THOUGHT, TICKS_A_SECOND = 6, 2


class Thinker(Player):
    """Looks at the map for three seconds before each click: in the pilot it is told how time goes by."""

    ticks = 0

    def click_on_town(self, town):
        self.do(f"tic {TICKS_OF_THOUGHT}")
        self.ticks += TICKS_OF_THOUGHT
        super().click_on_town(town)

    def seconds(self):
        return self.ticks / TICKS_A_SECOND


class Watch:
    """Looks at a process at the end of each game. `clock` tells the seconds that it has lived through."""

    def __init__(self, pid, folder, interval, clock):
        self._process, self._folder, self._interval, self._clock = Path(f"/proc/{pid}"), folder, interval, clock
        self._told = clock()
        self.memory, self.descriptors, self.medians, self._left = [], [], [], set()

    def end_of_game(self, median):
        status = (self._process / "status").read_text()
        self.memory.append(int(status.split("VmRSS:")[1].split()[0]))
        self.descriptors.append(len(os.listdir(self._process / "fd")))
        self.medians.append(median)
        # It plays on meanwhile: one that is being written has gone by the end of the next game.
        left = set(temporary_files(self._folder))
        if still := left & self._left:
            sys.exit(f"FINDING: temporary files: {still}")
        self._left = left
        if self._clock() - self._told >= self._interval:
            self._told = self._clock()
            self.tell()

    def tell(self):
        print(f"{self._clock():.0f} s, {len(self.memory)} games, {self.memory[-1]} KiB, "
              f"{self.descriptors[-1]} descriptors, median answer {statistics.median(self.medians[-50:]):.0f} µs",
              flush=True)  # fmt: skip

    def judge(self, speed):
        self.tell()
        warm = int(len(self.memory) * WARM_UP)
        memory, medians = self.memory[warm:], self.medians[warm:]
        part = max(1, len(memory) // 5)
        first, last = statistics.median(medians[:part]), statistics.median(medians[-part:])
        grown = max(memory[-part:]) - max(memory[:part])
        print(f"Memory {max(memory[:part])} to {max(memory[-part:])} KiB; descriptors {min(self.descriptors)} to "
              f"{max(self.descriptors)}; median answer {first:.0f} to {last:.0f} µs", flush=True)  # fmt: skip
        findings = []
        if grown > MORE_MEMORY:
            findings.append(f"memory has grown by {grown} KiB")
        if min(self.descriptors[-part:]) > min(self.descriptors[warm : warm + part]):
            findings.append("descriptors are left open")
        if speed and last > first * SLOWER:
            findings.append("answers take longer")
        for finding in findings:
            print("FINDING: " + finding)
        return 1 if findings else 0


def faster_clock():
    for library in Path("/usr/lib").glob("*/faketime/libfaketime.so.1"):
        return str(library)
    sys.exit("A clock that runs faster comes with libfaketime.")


def through_the_desktop(options, folder):
    program = options.programs / "desktop_soak"
    temporary, of_the_system = folder / "tmp", folder / "run"
    temporary.mkdir()
    of_the_system.mkdir(mode=0o700)
    environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "TMPDIR": str(temporary),
                   "XDG_RUNTIME_DIR": str(of_the_system)}  # fmt: skip
    if options.faster != 1:
        environment |= {"LD_PRELOAD": faster_clock(), "FAKETIME": f"+0 x{options.faster}"}
    begun = time.monotonic()
    run = subprocess.Popen([program, str(options.seconds), str(options.games), str(options.seed)],
                           stdout=subprocess.PIPE, text=True, env=environment)  # fmt: skip
    watch = Watch(run.pid, temporary, options.interval, lambda: (time.monotonic() - begun) * options.faster)
    for line in run.stdout:
        if not line.startswith("game:"):
            sys.exit("FINDING: " + line)
        watch.end_of_game(float(line.split()[-2]) / options.faster)  # its processor time runs faster too
    if run.wait() != 0:
        sys.exit(f"FINDING: it ended with {run.returncode}")
    if left := list(temporary.iterdir()):
        sys.exit(f"FINDING: files are left: {left}")
    return watch


def between_games(player, drawn):
    visit = drawn.choice(("MenuSon", "Menu_liste", "MenuCouleurPréfectures", "MenuFicheur", "score_facile", "save"))
    if visit != "save":
        player.do("menu " + visit)
        player.back_to_map()
        return
    player.new_game("Ida")
    player.play(1)
    player.do("menu Fichier_enregistrer")
    player.do("texte Nom_fichier souper")
    player.do("clic Bouton_OK")
    player.back_to_map()
    if player.state("Etape") == NO_GAME:
        player.choose_file("Fichier_lire", "souper.CAI")


def through_the_pilot(options):
    """Games of two provinces."""
    attack = Attack.over(options.programs / "ardane-pilote")
    drawn = random.Random(options.seed)
    folder = attack.base()
    player = Thinker(attack, folder)
    watch = Watch(player.pilot.pid, folder, options.interval, player.seconds)
    player.start()
    while player.seconds() < options.seconds and len(watch.memory) < options.games:
        between_games(player, drawn)
        player.choose_file("menu_recharger", "petit.SCI")
        player.new_game("Zoé", drawn.choice(LEVELS))
        player.clicks = []
        player.play()
        watch.end_of_game(statistics.median(player.clicks) / 1e3)
        player.boxes.clear()
    player.do("menu fichier_quitter")
    player.end((0,))
    attack.remove()
    return watch


def main():
    options = argparse.ArgumentParser(description=__doc__)
    options.add_argument("through", choices=("pilot", "desktop"))
    options.add_argument("--seconds", type=int, default=600, help="of its clock (%(default)s); 43200 are twelve hours")
    options.add_argument("--faster", type=int, default=1, help="the desktop's clock runs so many times as fast")
    options.add_argument("--games", type=int, default=10**6, help="no more than so many")
    options.add_argument("--seed", type=int, default=1)
    options.add_argument("--interval", type=int, default=60, help="seconds between two figures (%(default)s)")
    options.add_argument("--no-speed", action="store_true", help="judge memory, descriptors and files alone")
    options.add_argument("--programs", type=Path, default=HOUSE / "build/release/programme")
    options = options.parse_args()
    if options.through == "pilot":
        watch = through_the_pilot(options)
    else:
        with tempfile.TemporaryDirectory() as folder:
            watch = through_the_desktop(options, Path(folder))
    sys.exit(watch.judge(not options.no_speed))


if __name__ == "__main__":
    main()
