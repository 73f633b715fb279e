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


def notice_shown(timeout=1.0):
    """Whether the notice of a refused move shows within the timeout: it
    comes after the refusal's sound has played."""
    end = time.time() + timeout
    while time.time() < end:
        if window("^Lantern! Dovrin$"):
            return True
        time.sleep(0.05)
    return False


def close_notice():
    """Closes the notice and waits until it has gone, so that the next move
    isn't taken for refused by the same notice."""
    xdo("key", "Return")
    end = time.time() + 2
    while window("^Lantern! Dovrin$") and time.time() < end:
        time.sleep(0.05)


def shot(directory, name):
    if directory:
        subprocess.run(["import", "-window", "root", os.path.join(directory, name + ".png")])


def answer_game_over(game_over, shots, deadline, again):
    """Answers "No" (or "Yes" with again), photographs the fanfare of a high
    score while it plays, closes the top ten list that a winner sees after it,
    and waits until the program has closed its window (with again: until the
    table is back, and photographs it)."""
    button = 405 if again else 1485
    click_twips(game_over, button + 540, 1980 + 180)
    clicked = time.time()
    fanfare_shots = [6, 14]  # seconds after the answer
    while time.time() < deadline:
        time.sleep(0.5)
        if not window("DOVRIN v3"):
            return 0
        if window("Game Over"):  # the click came before the form was ready
            click_twips(window("Game Over"), button + 540, 1980 + 180)
            continue
        top_ten = window("Top Ten List")
        if top_ten:
            time.sleep(1)  # let its fanfare start
            shot(shots, "top_ten")
            print("the user won: top ten list shown")
            click_twips(top_ten, 1245 + 600, 3855 + 180)  # "&OK"
            if again:
                time.sleep(2)
                shot(shots, "table_after_top_ten")
                return 0
        elif fanfare_shots and time.time() - clicked >= fanfare_shots[0]:
            shot(shots, f"fanfare_{fanfare_shots.pop(0)}s")
    print("timed out at the end of the game")
    return 1


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--user", default="Tester")
    parser.add_argument("--shots", default="")
    parser.add_argument("--timeout", type=float, default=600)
    parser.add_argument("--hands", type=int, default=0, help="stop after this many hands (0: play the game out)")
    parser.add_argument("--pause", type=float, default=1.0,
                        help="seconds to wait after a move for the computers' turns (longer with sound)")
    parser.add_argument("--again", action="store_true",
                        help="answer Yes at the game's end, and stop when the table is back")
    parser.add_argument("--tour", action="store_true",
                        help="first move the pointer across the pot and the three animals")
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
            return answer_game_over(game_over, args.shots, deadline, args.again)
        if window("Hand Over"):
            hands += 1
            if hands == args.hands:
                shot(args.shots, f"hand_over_{hands}")
                print(f"stopped after {hands} hands")
                return 0
            shot(args.shots, f"hand_over_{hands}")
            xdo("key", "Return")
            cards = 13
            time.sleep(1.5)
            continue
        if args.tour:
            args.tour = False
            time.sleep(args.pause)  # the human's turn, where the animals listen
            # Into the pot, the fox, the owl and the cat on the bare table,
            # each from outside its box.
            for x, y in ((300, 265), (60, 265), (300, 265), (20, 380), (300, 380), (20, 120),
                         (300, 120), (535, 130), (300, 200)):
                xdo("mousemove", str(left + x), str(client_top + y))
                time.sleep(0.3)
        row_left = (9630 // 2 - ((cards - 1) * 360 + 1070) // 2) / 15
        played = False
        for index in range(cards - 1, -1, -1):
            x = left + row_left + index * 24 + (30 if index == cards - 1 else 12)
            y = client_top + 340 + 48
            xdo("mousemove", str(int(x)), str(int(y)), "click", "1")
            if notice_shown():
                close_notice()
                continue
            played = True
            cards -= 1
            break
        if not played:
            xdo("mousemove", str(left + 580), str(client_top + 244), "click", "1")
            if notice_shown():
                close_notice()
        time.sleep(args.pause)  # the computers' three turns
    print("timed out")
    return 1


if __name__ == "__main__":
    raise SystemExit(main())
