#!/usr/bin/env python3
"""Plays the installed program under wine with the real mouse and keyboard of its screen.

    play.py PROGRAM_FOLDER LIFELINE PICTURES

PROGRAM_FOLDER is a path of the host, LIFELINE the folder that the program keeps the game under way in. What is asked
is read there, by the program without a screen, which takes the game up from a copy and tells where the answer lies.
"""
import json
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

SCREEN = "1280x1024x32"
NEXT_STAGE = "Etape suivante"
SOMEWHERE = 200, 300  # on land, in pixels of the window
MENU = 21  # the height of the menu bar, in pixels
PATIENCE = 60  # seconds


def xdotool(*words):
    return subprocess.run(["xdotool", *map(str, words)], check=True, capture_output=True, text=True).stdout.strip()


def windows():
    """Identifiers of the windows on the screen, with their titles."""
    found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", ""], capture_output=True, text=True)
    titles = {}
    for window in found.stdout.split():
        title = subprocess.run(["xdotool", "getwindowname", window], capture_output=True, text=True).stdout.strip()
        if title:
            titles[window] = title
    return titles


def wait_for(condition, what):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        if result := condition():
            return result
        time.sleep(0.2)
    raise SystemExit(f"Attendu en vain : {what}. À l'écran : {windows()}")


class Pilot:
    """The program without a screen, over a copy of the lifeline."""

    def __init__(self, program, folder):
        self.process = subprocess.Popen(
            ["wine", str(program / "ardane-pilote.exe"), "--registre", f"{folder}/registre", "--dossier", str(folder),
             "--secours", f"{folder}/secours", "--écran", SCREEN],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True, encoding="utf-8")  # fmt: skip

    def say(self, command):
        self.process.stdin.write(command + "\n")
        self.process.stdin.flush()
        lines = []
        while not lines or "attend" not in lines[-1]:
            lines.append(json.loads(self.process.stdout.readline()))
        return lines

    def state(self, path):
        return self.say(f"état {path}")[0]["état"]

    def control(self, name):
        return self.say(f"contrôle {name}")[0]["contrôle"]

    def start(self):
        waiting = self.say("démarrer")[-1]["attend"]
        while waiting != "Ecran_principal":
            if waiting == "boîte":
                buttons = self.say("boîte")[0]["boîte"]["boutons"]
                waiting = self.say("répondre oui" if "Oui" in buttons else "répondre ok")[-1]["attend"]
            else:
                waiting = self.say("clic Bouton_OK")[-1]["attend"]

    def leave(self):
        self.process.stdin.close()
        self.process.wait()


class Game:
    def __init__(self, program, lifeline, pictures):
        self.program, self.lifeline, self.pictures = program, lifeline, pictures
        self.shown = 0

    def picture(self, name):
        self.shown += 1
        path = self.pictures / f"{self.shown:02} {name}.png"
        subprocess.run(["import", "-window", "root", str(path)], check=True)

    def asked(self):
        """What the game under way asks, and what is left of it; None where none is."""
        if not (self.lifeline / "partie").is_file():
            return None
        with tempfile.TemporaryDirectory() as folder:
            folder = pathlib.Path(folder)
            shutil.copytree(self.lifeline, folder / "secours")
            pilot = Pilot(self.program, folder)
            pilot.start()
            question = {name: pilot.state(name) for name in ("Etape", "ProvinceCourante", "ProvincesRestantes")}
            town = pilot.state(f"TableVilles({question['ProvinceCourante']})")
            map_, across, down = (pilot.control(name) for name in ("Carte", "barre_h", "barre_v"))
            question["x"] = map_["gauche"] + town["x"] + 3 - across["valeur"]
            question["y"] = map_["haut"] + town["y"] + 4 - down["valeur"]
            pilot.leave()
        return question

    def kept(self):
        try:
            return (self.lifeline / "partie").read_bytes()
        except FileNotFoundError:
            return None

    def play(self, window, until):
        """Answers right, one click a question, until so many provinces are found or the stage is over."""
        clicks = 0
        if not self.kept():  # a game in which nothing has been clicked yet is not
            click(window, *SOMEWHERE)
            wait_for(self.kept, "la partie gardée")
        while (asked := self.asked()) and asked["Etape"] == 1 and 110 - asked["ProvincesRestantes"] < until:
            kept = self.kept()
            click(window, asked["x"], MENU + asked["y"])
            clicks += 1
            wait_for(lambda: self.kept() != kept or NEXT_STAGE in windows().values(), f"la réponse {clicks}")
            if NEXT_STAGE in windows().values():
                print(f"{clicks} clics, l'étape est finie", flush=True)
                self.picture("étape suivante")
                return answer(NEXT_STAGE, "Return")
        print(f"{clicks} clics, il reste {asked['ProvincesRestantes']} provinces", flush=True)


def click(window, x, y):
    """A click on a place of a window's contents."""
    xdotool("mousemove", "--window", window, int(x), int(y), "click", 1)


def key(*keys):
    xdotool("key", "--delay", 60, *keys)


def named(words):
    """Waits for a window whose title has these words."""
    return wait_for(lambda: next((w for w, title in windows().items() if words in title), None), words)


def answer(words, *keys):
    """Waits for a box or a window, answers it by keys and waits until it has gone."""
    window = named(words)
    xdotool("windowactivate", window)
    time.sleep(0.5)
    key(*keys)
    wait_for(lambda: window not in windows(), f"la fin de « {words} »")


def press(window, left, top, width):
    """A click on a place of a window that is designed so wide."""
    shown = int(dict(line.split("=") for line in xdotool("getwindowgeometry", "--shell", window).splitlines())["WIDTH"])
    click(window, left * shown / width, top * shown / width)


def start(game, *options):
    return subprocess.Popen(["wine", str(game.program / "ardane.exe"), *options])


def leave(game, process):
    """Quits, and says yes or OK to what is asked."""
    key("ctrl+q")
    time.sleep(2)
    game.picture("en quittant")
    end = time.monotonic() + PATIENCE
    while process.poll() is None and time.monotonic() < end:
        if {"Statistiques", "Meilleurs scores"} & set(windows().values()):
            key("alt+F4")
        else:
            key("Left", "Return")  # to the first of two buttons
        time.sleep(1)
    if process.wait(PATIENCE) != 0:
        raise SystemExit(f"Le programme s'est terminé par {process.returncode}.")


def first_start(game):
    """The first start of an installed program: the folder of the player's files, the news, the cards."""
    process = start(game)
    named("Choix du répertoire")
    game.picture("premier démarrage")
    answer("Choix du répertoire", "Return")
    window = named("Paramétrage des répertoires")
    game.picture("choix du dossier")
    press(window, 371, 341, 420)  # OK
    answer("Publicité gratuite", "Return")
    game.picture("accueil")
    answer("Création du fichier", "Return")
    named("L'Ardane et ses provinces")
    time.sleep(2)
    game.picture("la fenêtre")
    leave(game, process)


def new_game(game):
    key("ctrl+n")
    window = named("Nouvelle partie")
    xdotool("windowactivate", window)
    xdotool("type", "--delay", 60, "Zoe")
    game.picture("nouvelle partie")
    press(window, 89, 279, 312)  # OK
    wait_for(lambda: window not in windows(), "la partie commencée")


def main():
    program, lifeline, pictures = (pathlib.Path(argument) for argument in sys.argv[1:])
    game = Game(program, lifeline, pictures)
    first_start(game)
    process = start(game, "--sans-cadre")
    window = named("L'Ardane et ses provinces")
    time.sleep(3)
    new_game(game)
    game.play(window, 40)
    game.picture("quarante réponses")

    key("ctrl+s")
    chooser = named("Arrêt en cours de jeu")
    xdotool("windowactivate", chooser)
    xdotool("type", "--delay", 60, "Souper")
    game.picture("enregistrer")
    key("Return")
    wait_for(lambda: chooser not in windows(), "la partie enregistrée")
    key("ctrl+o")
    chooser = named("Arrêt en cours de jeu")
    time.sleep(1)
    game.picture("reprendre")
    press(chooser, 250, 72, 420)
    press(chooser, 163, 348, 420)
    wait_for(lambda: chooser not in windows(), "la partie reprise")
    time.sleep(1)
    game.picture("la partie reprise")
    game.play(window, 110)
    time.sleep(2)
    game.picture("la deuxième étape")
    leave(game, process)


if __name__ == "__main__":
    main()
