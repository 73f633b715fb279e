#!/usr/bin/env python3
"""Plays the game in its real window, as a person would, with xdotool.

Run it with DISPLAY set to a display where the program has just started and
shows its user form. It names a new user, then plays: it clicks the hand's
cards from the right until one is taken (a refused card shows a notice, which
it closes), pays the pot when none is, closes the standings after each hand,
and answers the end of the game with "No" (closing the top ten list if the user
won). Screenshots of each form go to the
directory given with --shots.
"""
import argparse
import os
import subprocess
import time


def xdo(*args):
    return subprocess.run(["xdotool", *args], capture_output=True, text=True).stdout.strip()


def window(name):
    ids = xdo("search", "--onlyvisible", "--name", name).split()
    return ids[0] if ids else None


def origin(window_id):
    lines = xdo("getwindowgeometry", window_id).splitlines()
    position = lines[1].split(": ", 1)[1].split(" ")[0]
    return tuple(int(v) for v in position.split(","))


def click_twips(window_id, x, y):
    """Clicks at a place of a form given in twips, as its design does."""
    left, top = origin(window_id)
    xdo("mousemove", str(left + x // 15), str(top + y // 15), "click", "1")


def shot(directory, name):
    if directory:
        subprocess.run(["import", "-window", "root", os.path.join(directory, name + ".png")])


def answer_no(game_over, shots, deadline):
    """Answers "No", closes the top ten list that a winner sees after it, and
    waits until the program has closed its window."""
    click_twips(game_over, 1485 + 540, 1980 + 180)  # "&No"
    while time.time() < deadline:
        time.sleep(0.5)
        if not window("DOVRIN v3"):
            return 0
        if window("Game Over"):  # the click came before the form was ready
            click_twips(window("Game Over"), 1485 + 540, 1980 + 180)
            continue
        top_ten = window("Top Ten List")
        if top_ten:
            time.sleep(1)  # let its fanfare start
            shot(shots, "top_ten")
            print("the user won: top ten list shown")
            click_twips(top_ten, 1245 + 600, 3855 + 180)  # "&OK"
    print("timed out at the end of the game")
    return 1


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--user", default="Tester")
    parser.add_argument("--shots", default="")
    parser.add_argument("--timeout", type=float, default=600)
    args = parser.parse_args()

    deadline = time.time() + args.timeout
    while not window("LANTERN! DOVRIN"):
        time.sleep(0.1)
    main_window = window("LANTERN! DOVRIN")
    time.sleep(1)
    xdo("key", "ctrl+a")
    xdo("type", "--delay", "20", args.user)
    xdo("key", "Return")
    time.sleep(1.5)

    geometry = dict(line.strip().split(": ", 1) for line in
                    xdo("getwindowgeometry", main_window).splitlines()[1:])
    left, top = (int(v) for v in geometry["Position"].split(" ")[0].split(","))
    width, height = (int(v) for v in geometry["Geometry"].split("x"))
    client_top = top + height - 446

    cards = 13
    hands = 0
    while time.time() < deadline:
        game_over = window("Game Over")
        if game_over:
            time.sleep(1)  # let its sound play
            shot(args.shots, "game_over")
            print(f"game over after {hands + 1} hands")
            return answer_no(game_over, args.shots, deadline)
        if window("Hand Over"):
            hands += 1
            shot(args.shots, f"hand_over_{hands}")
            xdo("key", "Return")
            cards = 13
            time.sleep(1.5)
            continue
        row_left = (9630 // 2 - ((cards - 1) * 360 + 1070) // 2) / 15
        played = False
        for index in range(cards - 1, -1, -1):
            x = left + row_left + index * 24 + (30 if index == cards - 1 else 12)
            y = client_top + 340 + 48
            xdo("mousemove", str(int(x)), str(int(y)), "click", "1")
            time.sleep(0.25)
            if window("^Lantern! Dovrin$"):
                xdo("key", "Return")
                time.sleep(0.1)
                continue
            played = True
            cards -= 1
            break
        if not played:
            xdo("mousemove", str(left + 580), str(client_top + 244), "click", "1")
            time.sleep(0.25)
            if window("^Lantern! Dovrin$"):
                xdo("key", "Return")
        time.sleep(1.0)  # the computers' three pauses
    print("timed out")
    return 1


if __name__ == "__main__":
    raise SystemExit(main())
