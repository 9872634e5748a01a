#!/usr/bin/env python3
"""Two runs at once over one folder and one file of settings: each round both play at once, and what they leave is
whole."""
from concurrent.futures import ThreadPoolExecutor

from attack import Attack, Finding, Player, temporary_files


def cards(player, text):
    player.do("menu MenuFicheur")
    player.do("texte TXT_INFOS " + text)
    player.back_to_map()


def colour(player, number):
    player.do("menu MenuCouleurPréfectures")
    player.do(f"clic ChoixCouleur({number})")
    player.back_to_map()


def saved_game(player, name):
    player.new_game(name)
    player.play(1)
    player.do("menu Fichier_enregistrer")
    player.do("texte Nom_fichier " + name)
    player.do("clic Bouton_OK")
    player.back_to_map()
    player.choose_file("Fichier_lire", name + ".CAI")


def whole_game(player, name):
    player.new_game(name)
    player.play()


def lists(player, _):
    for entry in ("Menu_liste", "Menu_liste_souspréf"):
        player.do("menu " + entry)
        player.back_to_map()


def one_of_two(attack, folder, deeds, number):
    # The lifeline is the first run's alone, as on the desktop.
    player = Player(attack, folder, errors=f"erreurs{number}", lifeline=number == 0)
    player.start()
    for deed, what in deeds:
        deed(player, what)
    player.do("menu fichier_quitter")
    player.answer_boxes()
    player.back_to_map()
    player.end((0,))
    return player


def round_of_two(attack, base, folder, deeds):
    attack.copy(base, folder)
    with ThreadPoolExecutor(2) as both:
        runs = [both.submit(one_of_two, attack, folder, deeds[n], n) for n in range(2)]
        for run in runs:
            run.result()
    check = Player(attack, folder)
    check.start()
    names = [check.state(f"Meilleurs_scores(1,{rank})")["nom"] for rank in range(1, 11)]
    # A start that reads a score file while the other run rewrites it gives it up. The desktop never has two such runs.
    if "Lou" not in names:
        attack.note("score file given up")
    check.do("menu fichier_quitter")
    check.end((0,))
    if "refusé" in check.pilot.errors:
        raise Finding(check.pilot.errors)
    if left := temporary_files(folder):
        raise Finding(f"temporary files are left: {left}")


def main():
    attack = Attack("Rounds of two instances", 2000)
    base = attack.base()
    what = ((cards, ("Une fiche", "Une autre")), (colour, (1, 2, 3)), (saved_game, ("Zoé", "Ida")),
            (whole_game, ("Zoé", "Ida")), (lists, ("",)))  # fmt: skip

    def draw():
        deed, arguments = attack.random.choice(what)
        return deed, attack.random.choice(arguments)

    rounds = [[[draw() for _ in range(2)] for _ in range(2)] for _ in range(attack.options.count)]
    attack.each(("rounds", str(n), 1, lambda folder, d=deeds: round_of_two(attack, base, folder, d))
                for n, deeds in enumerate(rounds))  # fmt: skip
    attack.close()


main()
