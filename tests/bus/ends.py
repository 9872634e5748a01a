# Ends that a player meets on a real screen, and the program's exit codes: a start that is refused, and a screen
# that is lost in the middle of a game.
#   ends.py TRANSCRIPT PROGRAM --registre FILE --programme FOLDER
import os
import signal
import subprocess
import sys

from listener import Silence
from play_by_ear import DEADLINE, Player, is_judged, start_game


def expect(what, found, wanted):
    if found != wanted:
        raise Silence(f"{what}: {found} and not {wanted}")


def refused_start(player):
    """Without the map's points. The box says so, and it is no error of the program's."""
    player.agree()  # with the offer of other games
    player.hear(lambda said: "Le fichier PTS est absent" in said, "what is missing")
    player.agree()
    expect("refused start", player.program.wait(DEADLINE), 0)


def lost_screen(player, command):
    """The toolkit ends the program in its own way, and the next start has the game."""
    player.agree()  # with the making of the cards
    player.come_back()
    start_game(player)
    player.ask("Ctrl+Page suiv")
    player.press("Entrée")
    player.hear(is_judged, "a judgement")
    player.pause()
    os.kill(int(os.environ["SCREEN_PROCESS"]), signal.SIGKILL)
    expect("lost screen", player.program.wait(DEADLINE), 1)
    kept = subprocess.run([*command, "--secours"], capture_output=True, check=True, text=True).stdout
    if "La partie interrompue de Lise" not in kept:
        raise Silence(f"the game is lost: {kept}")


def main(transcript, *command):
    points = os.path.join(command[command.index("--programme") + 1], "ardane.pts")
    told = []

    def run(play, *arguments):
        player = Player(command)
        try:
            play(player, *arguments)
        finally:
            player.end()
            told.extend([f"== {play.__name__}", *player.transcript])
            with open(transcript, "w", encoding="utf-8") as file:
                file.write("\n".join(told) + "\n")

    os.rename(points, points + ".absent")
    run(refused_start)
    os.rename(points + ".absent", points)
    run(lost_screen, command)


if __name__ == "__main__":
    main(*sys.argv[1:])
