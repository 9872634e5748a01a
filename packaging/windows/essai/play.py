#!/usr/bin/env python3
"""Plays the installed program under wine with the real mouse and keyboard of its screen.

    play.py parties|doubles-clics PROGRAM_FOLDER LIFELINE DOCUMENTS PICTURES

`doubles-clics` takes up the game that `parties` has saved. These are folders of the host: LIFELINE is where the program keeps the game under way. What is asked is read there, by the program without a screen, which takes the game up from a copy and tells where the answer lies.
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
PROVINCES, REGIONS = 1, 4  # the first two stages
SOMEWHERE = 200, 300  # on land, in pixels of the window
MENU = 21  # the height of the menu bar, in pixels
PATIENCE = 300  # seconds, on a machine that is busy otherwise


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
        while (asked := self.asked()) and asked["Etape"] == PROVINCES and 110 - asked["ProvincesRestantes"] < until:
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


def double_click(path):
    """What the desktop does then; lives as long as the program that it starts."""
    return subprocess.Popen(["wine", "start", "/wait", "/unix", str(path)])


def ended(process, what):
    if process.wait(PATIENCE) != 0:
        raise SystemExit(f"{what} s'est terminé par {process.returncode}.")


def main_window():
    return named("L'Ardane et ses provinces")


def expect(condition, what):
    if not condition:
        raise SystemExit(f"Il n'en est rien : {what}. À l'écran : {windows()}")


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
    ended(process, "Le programme")


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
    main_window()
    time.sleep(2)
    game.picture("la fenêtre")
    leave(game, process)


def typed_into(title, text):
    """The window of that title, with the text in the box that has its keyboard."""
    window = named(title)
    xdotool("windowactivate", window)
    xdotool("type", "--delay", 60, text)
    return window


def new_game(game):
    key("ctrl+n")
    window = typed_into("Nouvelle partie", "Zoe")
    game.picture("nouvelle partie")
    press(window, 89, 279, 312)  # OK
    wait_for(lambda: window not in windows(), "la partie commencée")


def in_front():
    """The window on top; wine gives it no keyboard where another program asks for it."""
    told = subprocess.run(["xprop", "-root", "_NET_CLIENT_LIST_STACKING"], check=True, capture_output=True, text=True)
    return str(int(told.stdout.split()[-1], 16))


def second_start(game, window):
    """Ends at once, and the first one's window stands before what covered it."""
    other = subprocess.Popen(["wine", "notepad"])
    named("Notepad")
    wait_for(lambda: in_front() != window, "une autre fenêtre devant")
    ended(start(game), "Le second programme")
    wait_for(lambda: in_front() == window, "la première fenêtre devant")
    expect(list(windows().values()).count(windows()[window]) == 1, "une seule partie est ouverte")
    game.picture("le second lancement")
    other.terminate()
    xdotool("windowactivate", window)


def end_of_session(game, process):
    """Asks nothing, and the next start offers the game as it stood."""
    before = game.asked()
    subprocess.run(["wineboot", "-e"], check=True, timeout=PATIENCE)
    ended(process, "Le programme, à la fin de la session,")
    process = start(game, "--sans-cadre")
    named("Partie en cours")
    game.picture("la partie interrompue")
    answer("Partie en cours", "Return")
    window = main_window()
    time.sleep(3)
    game.picture("après la fin de la session")
    expect(game.asked() == before, "la partie reprise est celle que la fin de la session a interrompue")
    return process, window


def save(game):
    key("ctrl+s")
    chooser = typed_into("Arrêt en cours de jeu", "Souper")
    game.picture("enregistrer")
    key("Return")
    wait_for(lambda: chooser not in windows(), "la partie enregistrée")


def double_clicks(game, documents):
    """A saved game goes on, at the stage it was saved in, and a configuration is taken up."""
    process = double_click(documents / "Souper.CAI")
    main_window()
    wait_for(lambda: not (documents / "Souper.CAI").exists(), "la partie du double clic")
    time.sleep(2)
    game.picture("double clic sur une partie")
    expect(game.asked()["Etape"] == REGIONS, "la partie du double clic est dans sa deuxième étape")
    leave(game, process)
    process = double_click(documents / "ARDANE.SCI")
    named("Chargement")
    game.picture("double clic sur un paramétrage")
    answer("Chargement", "Return")
    leave(game, process)


def games(game):
    first_start(game)
    process = start(game, "--sans-cadre")
    window = main_window()
    time.sleep(3)
    new_game(game)
    game.play(window, 40)
    game.picture("quarante réponses")
    second_start(game, window)

    save(game)
    key("ctrl+o")
    chooser = named("Arrêt en cours de jeu")
    time.sleep(1)
    game.picture("reprendre")
    press(chooser, 250, 72, 420)
    press(chooser, 163, 348, 420)
    wait_for(lambda: chooser not in windows(), "la partie reprise")
    time.sleep(1)
    game.picture("la partie reprise")
    process, window = end_of_session(game, process)
    game.play(window, 110)
    time.sleep(2)
    game.picture("la deuxième étape")
    save(game)
    leave(game, process)


def main():
    program, lifeline, documents, pictures = (pathlib.Path(argument) for argument in sys.argv[2:])
    pictures.mkdir(parents=True)
    game = Game(program, lifeline, pictures)
    if sys.argv[1] == "parties":
        games(game)
    else:
        double_clicks(game, documents)


if __name__ == "__main__":
    main()
