#!/usr/bin/env python3
"""Whole sessions killed at one system call after another, each followed by a start that takes up what is left."""
from attack import Attack
from calls import calls_of_a_session, session_with


def main():
    attack = Attack("Kills", 1000)
    base = attack.base()
    calls = calls_of_a_session(attack, base)
    print(f"{len(calls)} calls touch the folder", flush=True)
    attack.random.shuffle(calls)
    strokes = [(name, f"{name}:signal=KILL:when={number}") for name, number in calls[: attack.options.count]]
    attack.each((name, s, 1, lambda folder, s=s: session_with(attack, base, folder, s, (-9, 137))) for name, s in strokes)
    attack.close()


main()
