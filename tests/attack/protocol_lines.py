#!/usr/bin/env python3
"""Lines that the pilot's contract does not know, and lines that it does, damaged: each has its answer, the ones that
cannot be carried out an `erreur`, and the session goes on."""
import tempfile
from pathlib import Path

from attack import Attack, Ended, Finding, Pilot

AT_ONCE = 200
VALUES = ["0", "1", "-1", "111", "32768", "2147483648", "-9999999999999", "1e309", "NaN", "null", "true", '"x"', '"é"',
          "[1,2]", "{}", '{"a":', "[" * 50000, '"' + "x" * 5000 + '"', "0.5", '"\\ud800"', "01", ""]  # fmt: skip
PATHS = ["Score", "Etape", "TableProvinces(12).points_perdus(0)", "Meilleurs_scores(1,3).nom", "TableVilles(330).x",
         "Nom_joueur", "Ordre_jeux(1)", "Ordre_jeux(9)", "TableProvinces(0)", "TableProvinces(111)", "Score.x", "(", "a(",
         "Meilleurs_scores(1)", "Meilleurs_scores(5,11).score", "TableProvinces(99999999999).nom", ""]  # fmt: skip
CONTROLS = ["bouton_sortie", "Pays(12)", "Pays(111)", "Digit(0)", "Carte", "barre_v", "Bouton(1)", "Bouton(17)", "BTN(1)",
            "Ecran_principal", "Ecran_principal!Carte", "x!y", "Nom_fichier", "TXT_INFOS", "Command1", "BTN_OK", "Pays(",
            "Fichier", "niveau_expert", "boîte_nom_joueur", "Bouton_gruge", "BoutonPasse", ""]  # fmt: skip
MENUS = ["fichier_nouveau", "menu_fichier", "Menu_aide", "Menu_défaut", "menu_définir", "Menu_révision", "MenuFicheur",
         "score_facile", "Menu_affiche_paramètres", "Menu_à_propos", "MenuSon", "rien", ""]  # fmt: skip
NUMBERS = ["0", "1", "3", "-1", "300", "662", "99999", "2147483647", "99999999999999999999", "x", "", "1.5"]
WORDS = ["ok", "oui", "non", "peut-être", ""]
TEXTS = ["Zoé", "", "a\\nb", "\\", "\\x", "#1", "#0", "#-1", "..", "x" * 3000, "\x00", "€œ☃"]
KNOWN = {"démarrer": [], "menu": [MENUS], "clic": [CONTROLS], "double_clic": [CONTROLS], "clic_carte": [NUMBERS, NUMBERS],
         "curseur": [NUMBERS, NUMBERS], "texte": [CONTROLS, TEXTS], "entrée": [CONTROLS], "valeur": [CONTROLS, NUMBERS],
         "fermer": [], "répondre": [WORDS], "tic": [["0", "1", "3", "-1", "2000000000", "x"]], "touche": [["F1", "F2"]],
         "hasard": [["0", "0.5", "1", "-1", "x", "0.1 0.2", ""]], "page": [["!", "/", "/dev/null", "nulle_part"]],
         "registre": [["", "HKEY_CURRENT_USER\\Software\\x | a | b", "|", "||", "a\\" * 400 + "| a | b"]],
         "fixer": [PATHS, VALUES], "état": [PATHS], "contrôle": [CONTROLS], "contrôles": [], "dessus": [NUMBERS, NUMBERS],
         "fenêtres": [], "boîte": []}  # fmt: skip
ENDS = ("quitter",)


def garbage(random):
    """A line that is no command: bytes, JSON, or a word of another case."""
    kind = random.randrange(4)
    if kind == 0:
        return bytes(random.randrange(1, 256) for _ in range(random.randrange(1, 80)))
    if kind == 1:
        return ('{"' + random.choice(sorted(KNOWN)) + '":' + random.choice(VALUES)[:400] + "}").encode()
    if kind == 2:
        return ("[" * random.randrange(1, 400)).encode()
    return random.choice(sorted(KNOWN)).upper().encode() + b"!" + str(random.random()).encode()


def line_of(random):
    word = random.choice(sorted(KNOWN))
    return " ".join([word, *(random.choice(values) for values in KNOWN[word])]).encode()


def damaged(random):
    line = bytearray(line_of(random))
    for _ in range(random.randrange(1, 4)):
        place = random.randrange(len(line) + 1)
        line[place : place + random.randrange(2)] = bytes([random.randrange(256)]) * random.randrange(3)
    return bytes(line)


def harmless(line):
    """As one line, and none that ends the session."""
    line = line.replace(b"\n", b" ").replace(b"\r", b" ")
    return b"x" if line.split(b" ")[0].decode(errors="replace") in ENDS else line


def bad_lines(attack, pilot, number):
    """Each has its own `erreur`, and nothing has changed."""
    before = pilot.say("état")
    lines = [harmless(garbage(attack.random)) for _ in range(number)]
    lines = [line for line in lines if line.strip()]
    pilot.write(b"\n".join(lines) + b"\n")
    answers = pilot.lines(len(lines))
    if len(answers) != 2 * len(lines) or not all("erreur" in answer for answer in answers[::2]):
        raise Finding(f"a line without its erreur: {[line[:60] for line in lines]}")
    if pilot.say("état") != before:
        raise Finding("a line that is refused has changed something")
    attack.count("garbage", len(lines))


def any_lines(attack, pilot, number):
    """Commands with every kind of argument, and damaged ones."""
    for _ in range(number):
        sound = attack.random.random() < 0.5
        line = harmless(line_of(attack.random) if sound else damaged(attack.random))
        if not line.strip():
            continue
        pilot.write(line + b"\n")
        try:
            answers = pilot.lines(1)
        except (Ended, Finding) as finding:
            raise Finding(f"after {line[:200]!r}: {type(finding).__name__} {finding}") from None
        attack.count("commands" if sound else "damaged commands")
        if pilot.waits_for == "fin":
            fatal = [a for a in answers if "fatale" in a]
            if fatal:
                attack.note("errors that end the program")
            return


def session(attack, folder):
    pilot = Pilot(attack, folder, seed=attack.random.randrange(10**6))
    try:
        bad_lines(attack, pilot, AT_ONCE)
        for command in ("démarrer", "répondre ok", "répondre ok", "menu fichier_nouveau", "clic bouton_sortie"):
            pilot.say(command)
        while pilot.waits_for != "fin" and attack.random.random() < 0.95:
            bad_lines(attack, pilot, AT_ONCE)
            any_lines(attack, pilot, AT_ONCE // 2)
    except Ended:
        pass
    pilot.end()


def main():
    attack = Attack("Protocol lines", 115885)
    base = attack.base()
    while attack.tried < attack.options.count:
        folder = Path(tempfile.mkdtemp(dir=attack.scratch))
        attack.copy(base, folder)
        try:
            session(attack, folder)
        except Finding as finding:
            attack.finding(finding, folder)
    attack.close()


main()
