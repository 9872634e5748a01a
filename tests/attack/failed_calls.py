#!/usr/bin/env python3
"""Whole sessions of which one system call after another fails: once, or from there on."""
from attack import Attack
from calls import calls_of_a_session, session_with

ERRORS = ("EIO", "ENOSPC", "EACCES", "EMFILE")
# A pilot that can write no more cannot talk either; what fails for ever must leave it its voice and its ears.
ONLY_ONCE = ("write", "writev", "read", "close", "fcntl", "newfstatat", "lseek")


def main():
    attack = Attack("Failed system calls", 3235)
    base = attack.base()
    calls = calls_of_a_session(attack, base)
    strokes = [f"{name}:error={error}:when={number}{often}" for name, number in calls for error in ERRORS
               for often in ("", "+") if not (often and name in ONLY_ONCE)]  # fmt: skip
    print(f"{len(calls)} calls touch the folder, {len(strokes)} ways to fail", flush=True)
    attack.random.shuffle(strokes)
    attack.each((stroke.split(":")[0], stroke, 1, lambda folder, s=stroke: session_with(attack, base, folder, s, (0, 1, 2)))
                for stroke in strokes[: attack.options.count])  # fmt: skip
    attack.close()


main()
