# Learns the country and plays the stage of the provinces to its end, by keys and by what is heard of them.
#   play_by_ear.py TRANSCRIPT PROGRAM [ARGUMENT...]
import re
import sys

from listener import Listener, Silence

# One thing takes no longer, even where everything is checked as it runs.
DEADLINE = 30
MAP = "Carte"
LONGEST_MENU = 20


class Player(Listener):
    def __init__(self, command):
        super().__init__(command, DEADLINE)
        self.place = (0, 0)

    def agree(self):
        """With a box that only tells something, as soon as it is there."""
        self.hear(lambda said: said.startswith("OK,"), "a box")
        self.press("Entrée")

    def come_back(self):
        self.hear(lambda said: said == MAP, "the map")

    def choose(self, menu, entry):
        self.pause()
        self.seek("Droite", menu, self.ask("Alt"))
        self.seek("Bas", entry, self.ask("Bas"))
        self.press("Entrée")

    def seek(self, key, entry, said):
        for _ in range(LONGEST_MENU):
            if said.startswith(entry + ","):
                return
            said = self.ask(key)
        raise Silence(f"no {entry} in the menus")

    def stand(self, *keys):
        """Presses keys and asks where that has led: the name that is said, and the place."""
        self.ask(*keys, "o")
        said = self.hear(lambda said: "bords" in said, "the map's edges")
        edges = dict(re.findall(r"(nord|ouest) (\d+)", said))
        self.place = (int(edges["ouest"]), int(edges["nord"]))
        return said.split(" ; ")[0]

    def go(self, place):
        """From dot to dot as long as that comes nearer, the rest step by step."""
        while (far := distance(place, self.place)) > 40:
            across, down = place[0] - self.place[0], place[1] - self.place[1]
            if abs(across) > abs(down):
                self.stand("Ctrl+Droite" if across > 0 else "Ctrl+Gauche")
            else:
                self.stand("Ctrl+Bas" if down > 0 else "Ctrl+Haut")
            if distance(place, self.place) >= far:
                break
        keys = []
        for there, here, ahead, back in zip(place, self.place, ("Droite", "Bas"), ("Gauche", "Haut")):
            strides, rest = divmod(abs(there - here), 10)
            key = ahead if there > here else back
            keys += [f"Maj+{key}"] * strides + [key] * rest
        if keys:
            self.stand(*keys)
        if self.place != place:
            raise Silence(f"{place} could not be reached, but {self.place}")


def distance(one, other):
    return abs(one[0] - other[0]) + abs(one[1] - other[1])


def learn(player):
    """Where every province lies: by the dot of its capital, whose name stands on the card of the province."""
    player.choose("Révision", "Révision")
    player.agree()
    player.come_back()
    player.stand("Page préc", "Début")
    towns, provinces, known = {}, {}, set()
    while True:
        before = player.place
        town = player.stand("Ctrl+Page suiv")
        if player.place == before:
            break
        towns[town] = player.place
        if town in known:
            continue
        player.press("Entrée")
        player.hear(lambda said: said == "OK, push button", "a card")
        province, card = player.ask("Tab").split(", text, ")
        provinces[province], *others = re.findall(r"\* (.*)", card)
        known.update([provinces[province], *others])
        player.ask("Tab")
        player.press("Entrée")
        player.come_back()
    return {province: towns[capital] for province, capital in provinces.items()}


def is_judged(said):
    return said.startswith(("Juste", "Faux"))


def answer(player, place):
    """Clicks there, and returns what is judged."""
    player.go(place)
    player.press("Entrée")
    return player.hear(is_judged, "a judgement")


def start_game(player):
    player.choose("Fichier", "Nouvelle partie")
    player.hear(lambda said: said.startswith("Entrez votre nom, text"), "the field for the name")
    player.press(*"Lise")
    said = player.ask("Tab")
    while not said.startswith("Facile,"):
        said = player.ask("Tab")
    player.press("Espace")
    while not said.startswith("OK,"):
        said = player.ask("Tab")
    player.press("Entrée")
    return player.hear(lambda said: "Reste" in said, "the first question")


def question_of(said):
    return re.search(r"moi\.\.\. (.*?)\.(?: Reste|$)", said).group(1)


def err(player, places, question):
    """Clicks on another province than the one asked."""
    said = answer(player, next(place for province, place in places.items() if province != question))
    if not said.startswith("Faux. Score"):
        raise Silence(f"a wrong answer, and heard {said}")


def give_up(player):
    said = player.ask("Tab")
    while not said.startswith("Je passe !,"):
        said = player.ask("Tab")
    player.press("Espace")
    said = player.hear(lambda said: "Trouvez moi" in said, "another question")
    player.ask("Entrée")  # meant for the button, which has gone: it only tells where the cursor stands
    return said


def play(player, places):
    """The stage of the provinces. Errs once, and gives one question up."""
    said = start_game(player)
    left = int(said.rsplit(" ", 1)[1].rstrip("."))
    err(player, places, question_of(said))
    said = give_up(player)
    err(player, places, question_of(said))
    while left > 0:
        said = answer(player, places[question_of(said)])
        left -= 1
        if not said.startswith("Juste.") or (left > 0 and not said.endswith(f"Reste {left}.")):
            raise Silence(f"{left} are left, and heard {said}")
    player.hear(lambda said: said.startswith("Après les provinces"), "the end of the stage")
    player.agree()
    player.hear(lambda said: "Reste" in said, "the next stage")


def main(transcript, *command):
    player = Player(command)
    try:
        player.agree()  # with the offer of other games
        player.agree()  # with the making of the cards
        player.come_back()
        play(player, learn(player))
    finally:
        player.end()
        with open(transcript, "w", encoding="utf-8") as file:
            file.write("\n".join(player.transcript) + "\n")


if __name__ == "__main__":
    main(*sys.argv[1:])
