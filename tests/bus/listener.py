# A player who does not see: keys go out through the accessibility bus, and what comes back is what a screen
# reader would say. Nothing else of the program is known here.
import signal
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

KEYSYMS = {
    "Échap": 0xFF1B, "Entrée": 0xFF0D, "Tab": 0xFF09, "Espace": 0x20, "Début": 0xFF50, "Fin": 0xFF57,
    "Gauche": 0xFF51, "Haut": 0xFF52, "Droite": 0xFF53, "Bas": 0xFF54, "Page préc": 0xFF55, "Page suiv": 0xFF56,
    "F1": 0xFFBE, "F10": 0xFFC7,
}  # fmt: skip
# By the numbers of a standard keyboard: what is held down is no character.
MODIFIERS = {"Ctrl": 37, "Maj": 50, "Alt": 64}
EVENTS = (
    "object:property-change:accessible-name",
    "object:state-changed:focused",
    "object:state-changed:showing",
    "window:activate",
)
# What a screen reader says by itself as soon as it comes up.
SPOKEN_BY_ITSELF = (Atspi.Role.NOTIFICATION,)
WINDOWS = (Atspi.Role.FRAME, Atspi.Role.DIALOG, Atspi.Role.ALERT)


class Silence(Exception):
    """What was waited for has not been heard in time."""


class Listener:
    """Starts the program and keeps all that is said."""

    def __init__(self, command, deadline):
        self.transcript = []
        self.front = None  # the window that is in front
        self.focus = None
        self._new = []  # said since the last key
        self._arrivals = []  # what was said of what has got the focus since then
        self._deadline = deadline
        self._stopped = False
        # Whoever runs out of patience still gets the transcript.
        signal.signal(signal.SIGTERM, self._stop)
        self._listener = Atspi.EventListener.new(self._on_event)
        for kind in EVENTS:
            self._listener.register(kind)
        self._started = time.monotonic()
        self.program = subprocess.Popen(command)

    def _stop(self, *_):
        self._stopped = True

    # What is heard.

    def _on_event(self, event):
        try:
            self._take(event)
        except GLib.Error:
            pass  # the object has gone since

    def _take(self, event):
        source = event.source
        if event.type == "window:activate":
            self.front = source
            self._say(source.get_name())
            for text in texts_of(source):
                self._say(text)
        elif event.type == "object:state-changed:focused":
            if event.detail1:
                self.focus = source
                said = spoken(source)
                self._say(said)
                self._arrivals.append(said)
        elif event.type == "object:property-change:accessible-name":
            if source == self.focus:
                self._say(source.get_name())
        elif event.detail1 and source.get_role() in SPOKEN_BY_ITSELF:
            self._say(source.get_name())

    def _say(self, text):
        if not text:
            return
        self.transcript.append(f"{time.monotonic() - self._started:7.2f}  {text}")
        self._new.append(text)

    def _wait(self, heard, what):
        end = time.monotonic() + self._deadline
        context = GLib.MainContext.default()
        wake = GLib.timeout_add(100, lambda: True)
        try:
            while (result := heard()) is None:
                if self._stopped or time.monotonic() > end:
                    raise Silence(f"{what}: nothing but {self._new[-5:]}")
                if self.program.poll() is not None:
                    raise Silence(f"{what}: the program has ended with {self.program.returncode}")
                context.iteration(True)
            return result
        finally:
            GLib.source_remove(wake)

    def hear(self, wanted, what):
        """Waits until something has been said since the last keys that is wanted, and returns it."""
        return self._wait(lambda: next(filter(wanted, self._new), None), what)

    def pause(self, seconds=0.3):
        """Waits until nothing more is said."""
        still = time.monotonic()

        def quiet():
            nonlocal still
            if self._new:
                self._new.clear()
                still = time.monotonic()
            return time.monotonic() - still > seconds or None

        self._wait(quiet, "silence")

    def ask(self, *keys):
        """Presses keys each of which gives the focus to something, and returns what is said of the last."""
        self.press(*keys)
        self._wait(lambda: len(self._arrivals) >= len(keys) or None, keys[-1])
        return self._arrivals[-1]

    # What is pressed.

    def press(self, *keys):
        """Presses keys, such as "Ctrl+Droite", one after the other. What was said before is forgotten."""
        self._new.clear()
        self._arrivals.clear()
        for key in keys:
            self.transcript.append(f"{time.monotonic() - self._started:7.2f}  [{key}]")
            names = key.split("+")
            held = [MODIFIERS[name] for name in names if name in MODIFIERS]
            for code in held:
                self._send(code, Atspi.KeySynthType.PRESS)
            if names[-1] not in MODIFIERS:
                self._send(KEYSYMS.get(names[-1]) or ord(names[-1]), Atspi.KeySynthType.SYM)
            for code in reversed(held):
                self._send(code, Atspi.KeySynthType.RELEASE)

    @staticmethod
    def _send(code, kind):
        if not Atspi.generate_keyboard_event(code, None, kind):
            raise Silence("no key can be sent")

    def end(self):
        self.program.kill()
        self.program.wait()


def shown(node):
    return node.get_state_set().contains(Atspi.StateType.SHOWING)


def children(node):
    return [child for i in range(node.get_child_count()) if (child := node.get_child_at_index(i)) is not None]


def leads_to_field(label):
    return any(r.get_relation_type() == Atspi.RelationType.LABEL_FOR for r in label.get_relation_set())


def texts_of(window):
    """What a dialog tells by itself: its labels that name no other control."""
    if window.get_role() == Atspi.Role.FRAME:
        return
    for node in children(window):
        if node.get_role() == Atspi.Role.LABEL and not leads_to_field(node):
            yield node.get_name()
        yield from texts_of(node)


ROLES_WITH_TEXT = (Atspi.Role.TEXT, Atspi.Role.ENTRY)
# Screen readers do not say of a text that it is one.
ROLES_NOT_SAID = (Atspi.Role.LABEL, Atspi.Role.CANVAS)


def spoken(node):
    """What is said of a control that has got the focus."""
    parts = [node.get_name(), "" if node.get_role() in ROLES_NOT_SAID else node.get_role_name()]
    if node.get_role() in ROLES_WITH_TEXT:
        parts.append(Atspi.Text.get_text(node, 0, -1))
    return ", ".join(part for part in parts if part)
