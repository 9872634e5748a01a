#!/usr/bin/env python3
"""Looks for newer versions under wine, on a site that is good and on some that are not.

    https.py PROGRAM_FOLDER KEYS PICTURES

Called by https.sh. The page names a game; what the program remembers of it tells whether the page was believed.
"""
import pathlib
import socket
import ssl
import subprocess
import sys
import threading
import time

import play

UPDATES = r"HKEY_CURRENT_USER\Software\Mirabonde\Updates"
PAGE = "/jeux/listejeux.htm"
SLOWEST = 30  # seconds of a connection

# What the site is, whether its page counts.
SITES = [("bon", True), ("étranger", False), ("ailleurs", False), ("muet", False), ("bon", True)]


class Site:
    """One that answers each request by a page, unless it is silent ("muet")."""

    def __init__(self, kind, game, keys):
        self.page = f"<html><!--{game}#9.99#01/01/2030#Un jeu--></html>".encode("cp1252")
        self.context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        if kind != "muet":
            self.context.load_cert_chain(keys / f"{kind}.pem", keys / f"{kind}.key")
        self.is_silent = kind == "muet"
        self.asked, self.failed = [], []
        self.socket = socket.create_server(("127.0.0.1", 443))
        self.socket.settimeout(0.5)
        self.is_closed = False
        self.thread = threading.Thread(target=self.serve, daemon=True)
        self.thread.start()

    def serve(self):
        unanswered = []
        while not self.is_closed:
            try:
                connection, _ = self.socket.accept()
            except TimeoutError:
                continue
            if self.is_silent:
                unanswered.append(connection)
                continue
            connection.settimeout(SLOWEST)
            try:
                with self.context.wrap_socket(connection, server_side=True) as secured:
                    if not (request := secured.recv(4096)):
                        raise ConnectionError("fermé sans un mot")
                    self.asked.append(request.split(b" ")[1].decode())
                    secured.sendall(b"HTTP/1.1 200 OK\r\nContent-Length: %d\r\n\r\n%s" % (len(self.page), self.page))
            except OSError as error:
                self.failed.append(str(error))

    def close(self):
        self.is_closed = True
        self.thread.join()
        self.socket.close()


def known_games():
    told = subprocess.run(["wine", "reg", "query", UPDATES], capture_output=True, text=True, errors="replace")
    return told.stdout


def looked_for(game, window, kind, name, keys):
    """Whether the program believes the page of a site of this kind."""
    site = Site(kind, name, keys)
    play.xdotool("windowactivate", window)
    time.sleep(1)
    begun = time.monotonic()
    play.key("alt+f", "v")
    play.named("Publicité gratuite")
    took = time.monotonic() - begun
    game.picture(kind)
    play.answer("Publicité gratuite", "Return")
    site.close()
    is_believed = name in known_games()
    print(f"{kind} : {took:.1f} s, demandé {site.asked}, refusé {site.failed}, retenu {is_believed}", flush=True)
    play.expect(not is_believed or site.asked == [PAGE], "c'est la page qui a été lue")
    return is_believed


def main():
    program, keys, pictures = (pathlib.Path(argument) for argument in sys.argv[1:])
    pictures.mkdir(parents=True)
    subprocess.run(["wine", "reg", "delete", r"HKEY_CURRENT_USER\Software\Mirabonde", "/f"], capture_output=True)
    game = play.Game(program, None, pictures)
    process = play.start(game)
    play.answer("Publicité gratuite", "Return")
    play.answer("Création du fichier", "Return")
    window = play.main_window()
    for number, (kind, counts) in enumerate(SITES, 1):
        # On a machine that is busy otherwise a good site may take longer than the program waits.
        for attempt in range(5 if counts else 1):
            if looked_for(game, window, kind, f"Essai{number}", keys) == counts:
                break
        else:
            raise SystemExit(f"Il n'en est rien : le site « {kind} »")
    play.leave(game, process)


if __name__ == "__main__":
    main()
