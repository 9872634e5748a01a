#!/usr/bin/env python3
"""The program's data files, damaged in every way that a file can be, and read back by a pilot that goes on."""
import os
import shutil
import struct
import subprocess
from pathlib import Path
from random import Random

from attack import NO_GAME, PATIENCE, SANITIZER, Attack, Ended, Finding, Player

FOREIGN = (b"", b"\0", b"\xff" * 4096, b"GIF89a" + b"\x80" * 500, "été\r\n".encode() * 300, b"\x7fELF" + bytes(300))
UPDATE_PAGE = "".join(f"<tr><td>Jeu {n}</td><td>1.{n}</td></tr>\r\n" for n in range(60)).encode("latin-1")
IN_A_RUN = 50  # of one pilot
TO_SHOW_A_BOX = 6  # seconds


def mutated(random, octets, stock):
    """The bytes cut, flipped, grown, doubled, moved, or replaced by another file's or by foreign ones."""
    kind = random.randrange(10)
    place = random.randrange(len(octets) + 1)
    if kind == 0:
        return octets[:place]
    if kind == 1:
        return octets + bytes(random.randrange(256) for _ in range(random.randrange(1, 2000)))
    if kind == 2:
        return octets[:place] + octets[random.randrange(len(octets) + 1) :]
    if kind == 3:
        return random.choice(FOREIGN)
    if kind == 4:
        return random.choice(stock)
    if kind == 5:
        other = random.choice(stock)
        return octets[:place] + other[place:]
    out = bytearray(octets)
    for _ in range(1 if kind < 8 else random.randrange(1, 200)):
        if not out:
            break
        # Counts, indices and lengths stand at the beginning of a slot of 128 bytes.
        place = random.randrange(len(out))
        place = place // 128 * 128 + random.randrange(4) if random.random() < 0.6 else place
        if place < len(out):
            out[place] = random.choice((0, 1, 2, 127, 128, 255, out[place] ^ 1 << random.randrange(8)))
    return bytes(out)


def saved_game(player, file):
    player.choose_file("Fichier_lire", file.name)
    if player.pilot.waits_for != "fin" and player.state("Etape") != NO_GAME:
        player.play(2)


def configuration(player, file):
    player.choose_file("menu_recharger", file.name)
    player.do("menu score_facile")
    player.back_to_map()


def cards(player, _):
    player.do("menu MenuFicheur")
    player.answer_boxes()
    for button in ("BTN_Down", "BTN_Left", "BTN_Up", "BTN_Right"):
        player.do("clic " + button)
        player.answer_boxes()
    player.back_to_map()


def page(player, file):
    player.do("page " + str(file))
    player.do("menu FichierVersion")
    player.back_to_map()


# A file under the folder, and who reads it again in a run that goes on, at each number of them.
READ_AT_WILL = (("programme/souper.CAI", saved_game, 8000), ("programme/autre.SCI", configuration, 5000),
                ("programme/ARDANE.INF", cards, 4000), ("page", page, 2500))  # fmt: skip
# Those that a start reads.
READ_AT_START = (("programme/ardane.pts", 600), ("programme/petit.SCI", 600), ("programme/registre", 600),
                 ("secours/partie", 500), ("secours/ecriture", 500))  # fmt: skip

DESKTOP = 3000
# As the toolkit keeps the place of a window: magic number, version, frame, normal place, screen, states, width.
GEOMETRY = struct.pack(">IHH4i4iiBBi4i", 0x1D9D0CB, 3, 0, 10, 10, 900, 700, 10, 40, 900, 700, 0, 0, 0, 1280, 10, 40,
                       900, 700)  # fmt: skip
WINDOW = "[fenetre]\nechelle=1.5\ngeometrie=@ByteArray({})\n".format(
    "".join(f"\\x{octet:x}" for octet in GEOMETRY)).encode()  # fmt: skip


def stock_of(attack):
    """A folder with one of each file: a game saved, another interrupted, scores announced, cards, a page."""
    base = attack.base()
    player = Player(attack, base)
    player.start()
    player.keep_configuration("autre", lambda: player.do("clic Bouton(16)"))
    player.new_game("Zoé")
    player.play(3)
    player.do("menu Fichier_enregistrer")
    player.do("texte Nom_fichier souper")
    player.do("clic Bouton_OK")
    player.back_to_map()
    player.new_game("Zoé")
    player.play(3)
    player.pilot.kill()
    player.end((-9,))
    (base / "secours/ecriture").write_bytes(announced(base / "programme/petit.SCI"))
    (base / "page").write_bytes(UPDATE_PAGE)
    link = base / "programme/ardane.pts"
    octets = link.read_bytes()
    link.unlink()
    link.write_bytes(octets)
    return base


def announced(scores):
    """As persistence/lifeline.h has it: a score file that was about to be written."""

    def slot(octets):
        return octets.ljust(128, b"\0")

    def block(octets):
        return slot(len(octets).to_bytes(4, "little")) + octets.ljust((len(octets) + 127) // 128 * 128, b"\0")

    form = "Scores à écrire, forme 1".encode("cp1252")
    return (slot(len(form).to_bytes(2, "little") + form) + slot(b"\0\0") + block(bytes(scores))
            + block(scores.read_bytes()))  # fmt: skip


def read_at_will(attack, base, folder, file, read, number, seed):
    """So many of one file, in one run of the pilot or more."""
    random = Random(seed)
    attack.copy(base, folder)
    (folder / "secours/partie").unlink()
    (folder / "secours/ecriture").unlink()
    octets = (folder / file).read_bytes()
    stock = [(folder / other).read_bytes() for other, _, _ in READ_AT_WILL]
    player = None
    for _ in range(number):
        if player is None:
            player = Player(attack, folder)
            player.start()
        (folder / file).unlink(missing_ok=True)
        (folder / file).write_bytes(mutated(random, octets, stock))
        try:
            read(player, folder / file)
            if player.pilot.waits_for == "fin":
                raise Ended
        except Ended:
            player.end()
            raise Finding("it ends the program: " + str(player.boxes[-1:])) from None
    player.do("menu fichier_quitter")
    player.answer_boxes()
    player.back_to_map()
    player.end((0,))


def read_at_start(attack, base, folder, file, seed):
    random = Random(seed)
    attack.copy(base, folder)
    stock = [(folder / other).read_bytes() for other, _ in READ_AT_START]
    (folder / file).write_bytes(mutated(random, (folder / file).read_bytes(), stock))
    player = Player(attack, folder)
    player.start()
    if player.pilot.waits_for == "Ecran_principal":
        player.new_game("Ida")
        player.play(1)
        player.do("menu fichier_quitter")
        player.answer_boxes()
        player.back_to_map()
    # Without its table of places it cannot start: by a refusal, or by the error of a number that no table has.
    player.end((0, 1) if file == "programme/ardane.pts" else (0,))


def shown_on_the_desktop(attack, base, folder, seed):
    """A start of the desktop that decodes every picture, many of them damaged, and reads the place of its window."""
    random = Random(seed)
    attack.copy(base, folder)
    (folder / "secours/partie").unlink()
    shown, shipped = folder / "programme/images", (attack.pilot.parent / "images").resolve()
    shown.unlink()
    shutil.copytree(shipped, shown, copy_function=lambda here, there: Path(there).symlink_to(here))
    pictures = sorted(file for file in shown.rglob("*") if file.is_symlink())
    stock = [random.choice(pictures).read_bytes() for _ in range(IN_A_RUN)]
    for picture in random.sample(pictures, IN_A_RUN - 1):
        octets = picture.read_bytes()
        picture.unlink()
        picture.write_bytes(mutated(random, octets, stock))
    (folder / "programme/fenetre.ini").write_bytes(mutated(random, WINDOW, stock))
    run = subprocess.Popen([attack.pilot.parent / "ardane", "--programme", folder / "programme", "--registre",
                            folder / "programme/registre", "--pret-et-quitter"],
                           env={**os.environ, "QT_QPA_PLATFORM": "offscreen", "XDG_STATE_HOME": str(folder)},
                           stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True, errors="replace")  # fmt: skip
    try:
        errors = run.communicate(timeout=TO_SHOW_A_BOX)[1]
    except subprocess.TimeoutExpired:
        # It tells the player what is missing, and would wait for him.
        run.terminate()
        try:
            errors = run.communicate(timeout=PATIENCE)[1]
        except subprocess.TimeoutExpired:
            run.kill()
            raise Finding("the desktop hangs") from None
    if run.returncode != 0 or SANITIZER.search(errors):
        raise Finding(f"the desktop ends with {run.returncode}: {errors[-500:]}")


def main():
    attack = Attack("Mutated files", 25000)
    base = stock_of(attack)
    everything = sum(number for *_, number in (*READ_AT_WILL, *READ_AT_START))
    share = attack.options.count / (everything + DESKTOP)
    trials = []
    for file, read, number in READ_AT_WILL:
        for _ in range(round(number * share / IN_A_RUN) or 1):
            seed = attack.random.random()
            trials.append((file, f"{file}, {seed}", IN_A_RUN, lambda folder, f=file, r=read, s=seed:
                           read_at_will(attack, base, folder, f, r, IN_A_RUN, s)))  # fmt: skip
    for file, number in READ_AT_START:
        for _ in range(round(number * share) or 1):
            seed = attack.random.random()
            trials.append((file, f"{file}, {seed}", 1, lambda folder, f=file, s=seed:
                           read_at_start(attack, base, folder, f, s)))  # fmt: skip
    for _ in range(round(DESKTOP * share / IN_A_RUN)):
        seed = attack.random.random()
        trials.append(("pictures and window", f"desktop, {seed}", IN_A_RUN, lambda folder, s=seed:
                       shown_on_the_desktop(attack, base, folder, s)))  # fmt: skip
    attack.random.shuffle(trials)
    attack.each(trials)
    attack.close()


if __name__ == "__main__":
    main()
