# Opens the windows of the program and looks at what they tell: controls without a name, names that only the program
# knows, fields that their labels do not lead to, numbers in pieces, roles that are not right.
#   every_window.py REPORT PROGRAM [ARGUMENT...]
import re
import sys

from listener import Atspi, Silence, children, leads_to_field, shown, spoken
from play_by_ear import Player, is_judged, start_game

# A name in one word with a number or an underscore, or in words run together, is one of the program's own.
IDENTIFIER = re.compile(r"^[A-Za-zÀ-ÿ]+(_\w+|\d+|\(\d+\))$|^[A-Z]?[a-zà-ÿ]+[A-Z]\w*$")
CONTROLS = (
    Atspi.Role.PUSH_BUTTON, Atspi.Role.TOGGLE_BUTTON, Atspi.Role.CHECK_BOX, Atspi.Role.RADIO_BUTTON, Atspi.Role.TEXT,
    Atspi.Role.ENTRY, Atspi.Role.LIST, Atspi.Role.MENU_ITEM, Atspi.Role.CANVAS,
    Atspi.Role.FRAME, Atspi.Role.DIALOG, Atspi.Role.ALERT,
)  # fmt: skip
MOST_CONTROLS = 50
FIELDS = (Atspi.Role.TEXT, Atspi.Role.ENTRY, Atspi.Role.LIST)


def all_shown(node):
    if not shown(node):
        return
    yield node
    for child in children(node):
        yield from all_shown(child)


def faults_of(window):
    nodes = list(all_shown(window))
    labels = [node for node in nodes if node.get_role() == Atspi.Role.LABEL]
    idle_labels = {node.get_name() for node in labels} - {node.get_name() for node in labels if leads_to_field(node)}
    for node in nodes:
        name, role = node.get_name(), node.get_role_name()
        focusable = node.get_state_set().contains(Atspi.StateType.FOCUSABLE)
        # A label may be there for a text to come.
        if not name.strip() and (focusable or node.get_role() in CONTROLS):
            yield f"un {role} sans nom"
        if IDENTIFIER.match(name):
            yield f"un {role} nommé « {name} »"
        if name.isdigit() and node.get_role() != Atspi.Role.LABEL:
            yield f"un {role} qui ne dit que « {name} »"
        if node.get_role() in FIELDS and name in idle_labels:
            yield f"« {name} » ne mène pas à son champ"


class Visitor(Player):
    """Looks at each window that comes up, and writes down what it tells."""

    def __init__(self, command):
        super().__init__(command)
        self.report = []
        self.faults = set()

    def look(self, what, role):
        self.pause()
        window = self.front
        title = f"{what} : {window.get_role_name()} « {window.get_name()} »"
        nodes = [f"{node.get_role_name()} : {node.get_name()}" for node in all_shown(window)]
        self.report += [title, *(f"    {node}" for node in nodes)]
        self.faults |= {f"{what} : {fault}" for fault in faults_of(window)}
        if window.get_role() != role:
            self.faults.add(f"{title}, et non {role.value_nick}")
        return nodes

    def click(self, name):
        """The button of that name in the window in front."""
        said = spoken(self.focus)
        for _ in range(MOST_CONTROLS):
            if said == f"{name}, push button":
                self.press("Espace")
                return self.pause()
            said = self.ask("Tab")
        raise Silence(f"no button {name}, but {said}")

    def one_value(self, nodes, pattern):
        told = [node for node in nodes if re.search(pattern, node)]
        if len(told) != 1:
            self.faults.add(f"{pattern} : {told}")

    # Where the windows are found.

    def from_menus(self):
        for menu, entry, role, button in WINDOWS:
            self.choose(menu, entry)
            self.look(entry, role)
            if button:
                self.click(button)

    def from_the_bar(self):
        self.pause()
        self.seek("Droite", "A propos...", self.ask("Alt"))
        self.press("Entrée")
        self.look("A propos...", Atspi.Role.ALERT)
        self.click("OK")

    def help(self):
        self.press("F1")
        self.look("aide", Atspi.Role.FRAME)
        self.press("Échap")
        self.pause()

    def card(self):
        self.choose("Révision", "Révision")
        self.agree()
        self.come_back()
        self.ask("Ctrl+Page suiv")
        self.press("Entrée")
        self.look("fiche", Atspi.Role.DIALOG)
        self.click("OK")

    def game_and_statistics(self):
        start_game(self)
        nodes = self.look("partie", Atspi.Role.FRAME)
        self.one_value(nodes, r"Score : 999 999$")
        self.one_value(nodes, r"Provinces à placer : 110$")
        self.one_value(nodes, r"Forme de la province$")
        # A game in which nothing has been clicked is given up without a word.
        self.ask("Ctrl+Page suiv")
        self.press("Entrée")
        self.hear(is_judged, "a judgement")
        self.press("Ctrl+n")
        self.look("abandon", Atspi.Role.ALERT)
        self.click("Oui")
        self.look("fin de la partie", Atspi.Role.ALERT)
        self.click("OK")
        self.look("scores de la partie", Atspi.Role.DIALOG)
        self.click("Statistiques")
        self.look("statistiques, Provinces", Atspi.Role.DIALOG)
        for table in ("Régions", "Villes", "Provinces"):
            self.click(table)
            self.look(f"statistiques, {table}", Atspi.Role.DIALOG)
        self.click("Fermer")
        self.click("OK")


def main(report, *command):
    visitor = Visitor(command)
    try:
        visitor.hear(lambda said: said.startswith("OK,"), "a box")
        visitor.look("boîte", Atspi.Role.ALERT)
        visitor.press("Entrée")
        visitor.agree()
        visitor.come_back()
        visitor.look("fenêtre principale", Atspi.Role.FRAME)
        visitor.from_menus()
        visitor.from_the_bar()
        visitor.help()
        visitor.card()
        visitor.game_and_statistics()
    finally:
        visitor.end()
        with open(report, "w", encoding="utf-8") as file:
            file.write("\n".join([*visitor.report, *sorted(visitor.faults)]) + "\n")
    if visitor.faults:
        raise Silence("\n".join(sorted(visitor.faults)))


# The window of an entry, what it is, and the button that leaves it; none for the main window, which stays.
WINDOWS = [
    ("Fichier", "Nouvelle partie", Atspi.Role.DIALOG, "Annuler"),
    ("Paramétrer", "Recharger un paramétrage existant", Atspi.Role.DIALOG, "Annuler"),
    ("Paramétrer", "Définir le dossier du fichier d'information", Atspi.Role.DIALOG, "OK"),
    ("Paramétrer", "Choisir la couleur du repère des capitales", Atspi.Role.DIALOG, "Fermer"),
    ("Paramétrer", "Editer les fiches d'information", Atspi.Role.DIALOG, "Quitter"),
    ("Paramétrer", "Afficher le paramétrage courant", Atspi.Role.FRAME, None),
    ("Score", "Niveau facile", Atspi.Role.DIALOG, "OK"),
    ("Révision", "Création d'une liste classée par provinces", Atspi.Role.ALERT, "OK"),
]


if __name__ == "__main__":
    main(*sys.argv[1:])
