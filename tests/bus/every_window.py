# Opens the windows of the program by its menus and looks at what they tell: controls without a name, names that
# only the program knows, roles that are not right.
#   every_window.py REPORT PROGRAM [ARGUMENT...]
import re
import sys

from listener import Atspi, Silence, children, shown
from play_by_ear import Player

# A name in one word with a number or an underscore, or in words run together, is one of the program's own.
IDENTIFIER = re.compile(r"^[A-Za-zÀ-ÿ]+(_\w+|\d+|\(\d+\))$|^[A-Z]?[a-zà-ÿ]+[A-Z]\w*$")
CONTROLS = (
    Atspi.Role.PUSH_BUTTON, Atspi.Role.TOGGLE_BUTTON, Atspi.Role.CHECK_BOX, Atspi.Role.RADIO_BUTTON, Atspi.Role.TEXT,
    Atspi.Role.ENTRY, Atspi.Role.LIST, Atspi.Role.MENU_ITEM, Atspi.Role.CANVAS,
    Atspi.Role.FRAME, Atspi.Role.DIALOG, Atspi.Role.ALERT,
)  # fmt: skip


def all_shown(node):
    if not shown(node):
        return
    yield node
    for child in children(node):
        yield from all_shown(child)


def faults_of(window):
    for node in all_shown(window):
        name, role = node.get_name(), node.get_role_name()
        focusable = node.get_state_set().contains(Atspi.StateType.FOCUSABLE)
        # A label may be there for a text to come.
        if not name.strip() and (focusable or node.get_role() in CONTROLS):
            yield f"{window.get_name()} : un {role} sans nom"
        if IDENTIFIER.match(name):
            yield f"{window.get_name()} : un {role} nommé « {name} »"


def main(report, *command):
    player = Player(command)
    faults, lines = [], []

    def look(what):
        player.pause()
        window = player.front
        lines.append(f"{what} : {window.get_role_name()} « {window.get_name()} »")
        lines.extend(f"    {node.get_role_name()} : {node.get_name()}" for node in all_shown(window))
        faults.extend(faults_of(window))

    try:
        player.hear(lambda said: said.startswith("OK,"), "a box")
        look("boîte")
        player.press("Entrée")
        player.agree()
        player.come_back()
        look("fenêtre principale")
        if player.front.get_role() != Atspi.Role.FRAME:
            faults.append("la fenêtre principale n'est pas une fenêtre")
        for menu, entry, close in WINDOWS:
            player.choose(menu, entry)
            look(entry)
            leave(player, close)
    finally:
        player.end()
        with open(report, "w", encoding="utf-8") as file:
            file.write("\n".join([*lines, *faults]) + "\n")
    if faults:
        raise Silence("\n".join(sorted(set(faults))))


def leave(player, button):
    """By the button of that name in the window in front."""
    if button is None:  # the main window stays
        return None
    for node in all_shown(player.front):
        if node.get_name() == button and node.get_role() == Atspi.Role.PUSH_BUTTON:
            Atspi.Action.do_action(node, 0)
            return player.pause()
    raise Silence(f"no button {button} in {player.front.get_name()}")


# The window of an entry, and the button that leaves it.
WINDOWS = [
    ("Fichier", "Nouvelle partie", "Annuler"),
    ("Paramétrer", "Recharger un paramétrage existant", "Annuler"),
    ("Paramétrer", "Définir le dossier du fichier d'information", "OK"),
    ("Paramétrer", "Editer les fiches d'information", "Quitter"),
    ("Paramétrer", "Afficher le paramétrage courant", None),
    ("Score", "Niveau facile", "OK"),
]


if __name__ == "__main__":
    main(*sys.argv[1:])
