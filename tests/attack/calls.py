"""The system calls of a session that touch its folder, by a traced one, and what must be right after a session of
which one was made to fail or to kill."""
import re
import tempfile
from pathlib import Path

from attack import Ended, Finding, Player, kept_scores, temporary_files

TRACED = "openat,write,writev,read,rename,renameat,renameat2,unlink,unlinkat,fsync,fdatasync,mkdir,mkdirat,fchmod," \
         "fchmodat,chmod,close,ftruncate,flock,fcntl,newfstatat,getdents64,lseek,pread64,link,linkat"  # fmt: skip
CALL = re.compile(r"^(?:\d+ +)?(\w+)\(")
OLD_SCORE, NEW_SCORE = "Lou", "Zoé"


def strace(*options):
    return ["strace", "-qq", *options]


def calls_of_a_session(attack, base):
    """Pairs of a name and the how many-th it is of that name."""
    folder, traced = Path(tempfile.mkdtemp(dir=attack.scratch)), attack.scratch / "trace"
    attack.copy(base, folder)
    player = Player(attack, folder, strace("-y", "-s", "0", "-o", traced, "-e", "trace=" + TRACED))
    player.whole_session()
    player.end()
    calls, numbers = [], {}
    for line in traced.read_text(errors="replace").splitlines():
        call = CALL.match(line)
        if call is None:
            continue
        name = call[1]
        numbers[name] = numbers.get(name, 0) + 1
        if str(folder) in line and "/erreurs" not in line:
            calls.append((name, numbers[name]))
    return calls


def session_with(attack, base, folder, inject, expected):
    """Plays a session in which strace's `inject` strikes, and looks at what is left."""
    attack.copy(base, folder)
    player = Player(attack, folder, strace("-o", "/dev/null", "-e", "trace=" + TRACED, "-e", "inject=" + inject))
    try:
        player.whole_session()
    except Ended:
        pass
    except Finding:
        # Who has no folder that can be written is asked for one, as often as it takes.
        if "Impossible d'écrire dans le répertoire" not in player.boxes[-1]["texte"]:
            raise
        player.pilot.kill()
        expected = (-9, 137)
    player.end(expected)
    check_what_is_left(attack, player)


def check_what_is_left(attack, player):
    """The next start finds every file whole: the scores of old and those the player was congratulated for, the
    settings, the cards, the saved game."""
    folder = player.folder
    check = Player(attack, folder)
    check.start()
    if check.pilot.waits_for == "fin":
        raise Finding("the next start ends")
    if left := temporary_files(folder):
        raise Finding(f"temporary files are left: {left}")
    settings = check.pilot.say("registre")[0]["registre"].get("HKEY_CURRENT_USER\\Software\\Mirabonde\\Ardane", {})
    if not {"version", "joueur", "répertoire", "fichier de lancement"} <= settings.keys():
        raise Finding(f"settings are lost: {settings}")
    names = []
    for file in sorted(folder.glob("programme/*.SCI")):
        check.choose_file("menu_recharger", file.name)
        names += [check.state(f"Meilleurs_scores(1,{rank})")["nom"] for rank in range(1, 11)]
    if OLD_SCORE not in names and not kept_scores(folder, OLD_SCORE):
        raise Finding("the score of old is lost")
    if player.congratulated and not player.told_not_written and NEW_SCORE not in names:
        raise Finding("the player was congratulated and his score is lost")
    check.do("menu MenuFicheur")
    cards = set()
    for _ in range(3):
        cards.add(check.pilot.say("contrôle TXT_INFOS")[0]["contrôle"]["texte"] if check.pilot.waits_for == "Edition"
                  else "refused")  # fmt: skip
        check.do("clic BTN_Right")
    check.back_to_map()
    if "refused" in cards:
        raise Finding("the cards are lost")
    for file in folder.glob("programme/*.CAI"):
        check.choose_file("Fichier_lire", file.name)
        if check.state("Etape") == 0:
            raise Finding(f"the saved game {file.name} is lost")
    check.do("menu fichier_quitter")
    check.answer_boxes()
    check.back_to_map()
    check.end((0,))
    if "refusé" in check.pilot.errors and not player.told_not_written:
        raise Finding("a file is refused: " + check.pilot.errors)
