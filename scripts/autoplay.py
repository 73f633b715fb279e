#!/usr/bin/env python3
"""Plays the game in its real window, as a person would, with xdotool.

Run it with DISPLAY set to a display where the program has just started. It
names a new user, then plays: it clicks the hand's cards from the right until
one is taken (a refused card shows a notice, which it closes), pays the pot
when none is, closes the standings after each hand, and answers the end of the
game with "No" (closing the top ten list if the user won). Screenshots of each
form go to the directory given with --shots.

It works at any zoom of the program. Its places are the design's logical
pixels; the zoom's factor is the table window's inside width over the
design's, and the table lies at the window's bottom, below a menu bar of
whatever height is left. Each place maps to the screen's pixel at the middle
of its logical pixel, so that a colour read there is that pixel's own even
where the factor isn't whole.

It never sleeps in place of looking. Every wait is on what the screen shows:
a form's window mapped, holding the keyboard or gone, and on the table the
human's turn marker and the watched rows below the buttons (the hand, the
human's and the left seat's panels), which a move that is taken always
changes. It looks every few hundredths of a second until the one deadline of
--timeout. Its only pauses are a person's: a glance at the standings before
answering the end of the game, and the rests of the pointer's tour.
"""
import argparse
import ctypes
import os
import subprocess
import time

POLL = 0.02  # seconds between two looks at the screen

# The windows, by their captions (xdotool matches regardless of case): the
# table's, and every form over it. The user form and the notice of a refused
# move both bear just the program's name.
MAIN = "DOVRIN v3"
FORMS = "^Lantern! Dovrin|^Hand Over"
NAMED = "Lantern! Dovrin"
HAND_OVER = "Hand Over - Current Standings"
GAME_OVER = "Lantern! Dovrin - Game Over"
TOP_TEN = "Lantern! Dovrin - Top Ten List"

# The table below the menu bar, in logical pixels from its top left corner.
CLIENT_WIDTH, CLIENT_HEIGHT = 642, 446
WATCHED_TOP = 280  # below the Pay the Pot button, whose look changes under the pointer
MARKER = (533, 300)  # inside the human's turn marker, left of the name on it
ON_TURN, IDLE = (255, 255, 0), (255, 128, 255)  # the marker's two colours
HAND_MIDDLE = 388  # the middle of the hand row's cards
HAND_FROM, HAND_TO = 100, 515  # the hand row lies between the seats' panels
CARD_WIDTH, CARD_SPACING = 71, 24
PAY_POT = (580, 244)
ASIDE = (300, 200)  # bare table, where nothing answers the pointer


class TimedOut(Exception):
    pass


def xdo(*args):
    return subprocess.run(["xdotool", *args], capture_output=True, text=True).stdout.strip()


def window(name):
    ids = xdo("search", "--onlyvisible", "--name", name).split()
    return ids[0] if ids else None


def form_shown():
    """The form shown over the table, as its caption and its window, or
    nothing."""
    form = window(FORMS)
    return (xdo("getwindowname", form), form) if form else None


def viewable(window_id):
    info = subprocess.run(["xwininfo", "-id", window_id], capture_output=True, text=True).stdout
    return "IsViewable" in info


def focused(window_id):
    return xdo("getwindowfocus", "-f") == window_id


def geometry(window_id):
    """The window's inside on the screen: left, top, width, height."""
    info = subprocess.run(["xwininfo", "-id", window_id], capture_output=True, text=True).stdout
    fields = dict(line.strip().split(": ", 1) for line in info.splitlines() if ": " in line)
    return tuple(int(fields[key]) for key in
                 ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))


class XImage(ctypes.Structure):
    _fields_ = [(name, ctypes.c_int) for name in ("width", "height", "xoffset", "format")] + \
               [("data", ctypes.c_void_p)] + \
               [(name, ctypes.c_int) for name in ("byte_order", "bitmap_unit", "bitmap_bit_order",
                                                  "bitmap_pad", "depth", "bytes_per_line", "bits_per_pixel")]


class Screen:
    """Pictures of a part of the screen, straight from the X server: a
    picture is taken in a few milliseconds, where an ImageMagick grab takes
    a quarter of a second."""

    def __init__(self):
        x11 = ctypes.CDLL("libX11.so.6")
        x11.XOpenDisplay.restype = ctypes.c_void_p
        x11.XOpenDisplay.argtypes = [ctypes.c_char_p]
        x11.XDefaultRootWindow.restype = ctypes.c_ulong
        x11.XDefaultRootWindow.argtypes = [ctypes.c_void_p]
        x11.XGetImage.restype = ctypes.POINTER(XImage)
        x11.XGetImage.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_int,
                                  ctypes.c_uint, ctypes.c_uint, ctypes.c_ulong, ctypes.c_int]
        x11.XDestroyImage.argtypes = [ctypes.POINTER(XImage)]
        self.x11 = x11
        self.display = x11.XOpenDisplay(None)
        if not self.display:
            raise SystemExit("autoplay: can't open the display")
        self.root = x11.XDefaultRootWindow(self.display)

    def grab(self, left, top, width, height):
        all_planes, z_pixmap = 0xFFFFFFFF, 2
        image = self.x11.XGetImage(self.display, self.root, left, top, width, height, all_planes, z_pixmap)
        if not image:
            raise SystemExit("autoplay: the table is off the screen")
        try:
            if image.contents.bits_per_pixel != 32:
                raise SystemExit("autoplay: needs a screen of 24 or 32 bits a pixel")
            stride = image.contents.bytes_per_line
            return Picture(ctypes.string_at(image.contents.data, stride * height), stride, left, top)
        finally:
            self.x11.XDestroyImage(image)


class Picture:
    def __init__(self, data, stride, left, top):
        self.data, self.stride = data, stride
        self.left, self.top = left, top  # on the screen

    def __eq__(self, other):
        return isinstance(other, Picture) and self.data == other.data

    def rgb(self, point):
        """The colour at a point of the screen within the picture."""
        x, y = point
        at = (y - self.top) * self.stride + 4 * (x - self.left)
        blue, green, red = self.data[at:at + 3]
        return red, green, blue


class Player:
    def __init__(self, args):
        self.args = args
        self.deadline = time.monotonic() + args.timeout
        self.screen = Screen()
        self.hands = 0

    def wait(self, what, condition):
        """condition()'s first answer that isn't empty, looked for every POLL
        seconds until the deadline."""
        while True:
            answer = condition()
            if answer:
                return answer
            if time.monotonic() > self.deadline:
                raise TimedOut(what)
            time.sleep(POLL)

    def press(self, form, what, key):
        """Presses a key on a form once the form holds the keyboard, and
        waits until its window has gone."""
        self.wait(f"{what} to take the keyboard", lambda: focused(form))
        xdo("key", key)
        self.wait(f"{what} to close", lambda: not viewable(form))

    def shot(self, name):
        if self.args.shots:
            subprocess.run(["import", "-window", "root", os.path.join(self.args.shots, name + ".png")])

    # The table.

    def find_table(self):
        """The zoom's factor and the table's place on the screen, from the
        main window's inside: the table fills its width and its bottom."""
        left, top, width, height = geometry(self.main)
        self.scale = width / CLIENT_WIDTH
        self.left, self.top = left, top + height - CLIENT_HEIGHT * self.scale
        self.width, self.bottom = width, top + height

    def at(self, x, y, origin=None):
        """The screen's pixel at the middle of a logical pixel of the table,
        or of the window whose inside's top left corner is origin."""
        left, top = origin or (self.left, self.top)
        return int(left + (x + 0.5) * self.scale), int(top + (y + 0.5) * self.scale)

    def look(self):
        """The watched rows of the table."""
        top = self.at(0, WATCHED_TOP)[1]
        return self.screen.grab(self.left, top, self.width, self.bottom - top)

    def marker(self, picture):
        return picture.rgb(self.at(*MARKER))

    def on_turn(self, picture):
        return self.marker(picture) == ON_TURN

    def hand(self, picture):
        """The hand row's left edge and its number of cards, from the white of
        the cards on the row's middle line."""
        white = [x for x in range(HAND_FROM, HAND_TO) if min(picture.rgb(self.at(x, HAND_MIDDLE))) > 200]
        if not white:
            return 0, 0
        # The cards' black borders lie one pixel outside their white.
        width = white[-1] - white[0] + 3
        return white[0] - 1, round((width - CARD_WIDTH) / CARD_SPACING) + 1

    def point(self, x, y, origin=None):
        """The pointer over a logical place, as xdotool's arguments."""
        return ["mousemove", *map(str, self.at(x, y, origin))]

    def click(self, x, y):
        """Clicks at a place of the table, then takes the pointer aside, so
        that no tooltip or highlight stays under it."""
        xdo(*self.point(x, y), "click", "1", *self.point(*ASIDE))

    def turn(self):
        """Waits until the table is the human's to play on, or a form shows.
        Answers the form's name and window, or "turn" with the table's
        watched rows: the human's marker lit, cards in the hand, and the
        same picture twice in a row."""
        last = [None]

        def state():
            picture = self.look()
            form = form_shown()
            if form:
                return form
            settled = picture == last[0]
            last[0] = picture
            if settled and self.on_turn(picture) and self.hand(picture)[1]:
                return "turn", picture
            return None

        return self.wait("the human's turn", state)

    def move(self, x, y, before):
        """Makes a move by a click and answers whether it was taken. A refused
        move shows the notice: it is closed, and the table is waited for until
        it looks as it did before the move."""

        def answer():
            picture = self.look()
            form = form_shown()
            if form and form[0] == NAMED:
                return "refused", form[1]
            if form or picture != before:
                return "taken", None
            return None

        self.click(x, y)
        outcome, notice = self.wait("an answer to the move", answer)
        if outcome == "taken":
            return True
        self.press(notice, "the notice", "Return")
        self.wait("the table as it was before the refused move", lambda: self.look() == before)
        return False

    def play_turn(self, picture):
        row_left, cards = self.hand(picture)
        for index in range(cards - 1, -1, -1):
            x = row_left + index * CARD_SPACING + (30 if index == cards - 1 else 12)
            if self.move(x, HAND_MIDDLE, picture):
                return
        self.move(PAY_POT[0], PAY_POT[1], picture)

    def tour(self):
        """Into the pot, the fox, the owl and the cat on the bare table, each
        from outside its box, resting a moment at each, as a person's pointer
        does, so that each animal's answer is heard whole."""
        for x, y in ((300, 265), (60, 265), (300, 265), (20, 380), (300, 380), (20, 120),
                     (300, 120), (535, 130), (300, 200)):
            xdo(*self.point(x, y))
            time.sleep(0.3)

    # The game.

    def play(self):
        user_form = self.wait("the user form", lambda: window(f"^{NAMED}$"))
        self.wait("the user form to take the keyboard", lambda: focused(user_form))
        xdo("key", "ctrl+a")
        xdo("type", "--delay", "20", self.args.user)
        xdo("key", "Return")
        self.wait("the user form to close", lambda: not viewable(user_form))
        self.main = window(MAIN)
        self.find_table()

        while True:
            state, found = self.turn()
            if state == GAME_OVER:
                print(f"game over after {self.hands + 1} hands")
                return self.end_game(found)
            if state == HAND_OVER:
                self.hands += 1
                self.wait("the standings to take the keyboard", lambda: focused(found))
                self.shot(f"hand_over_{self.hands}")
                if self.hands == self.args.hands:
                    print(f"stopped after {self.hands} hands")
                    return 0
                self.press(found, "the standings", "Return")
            elif state != "turn":  # any other form, such as a notice too late for its move
                self.press(found, f'"{state}"', "Return")
            else:
                if self.args.tour:
                    self.args.tour = False
                    self.tour()
                    continue
                self.play_turn(found)

    def end_game(self, game_over):
        """Answers "No" (or "Yes" with --again), photographs the fanfare of a
        high score while it plays, closes the top ten list that a winner sees
        after it, and waits until the program has closed its window (with
        --again: until the table is back, and photographs it)."""
        self.wait("the end of the game to take the keyboard", lambda: focused(game_over))
        self.shot("game_over")
        # The form tells who has won half a second after it opens, and
        # nothing on the screen shows when: a person reads the standings
        # first, and so does this.
        time.sleep(1)
        left, top, _, _ = geometry(game_over)
        button = 405 if self.args.again else 1485  # "Yes" or "No", in twips from the form's left
        xdo(*self.point((button + 540) // 15, (1980 + 180) // 15, (left, top)), "click", "1")
        self.wait("the end of the game to close", lambda: not viewable(game_over))

        fanfare_shots = [6, 14]  # seconds into the fanfare
        fanfare_start = [None]

        def after_game():
            form = form_shown()
            if form and form[0] == TOP_TEN:
                return "top ten", form[1]
            if not self.args.again and not viewable(self.main):
                return "closed", None
            picture = self.look()
            if self.args.again and self.on_turn(picture) and self.hand(picture)[1]:
                return "again", None
            # The fanfare's stage covers the table and its turn markers.
            if self.marker(picture) not in (ON_TURN, IDLE):
                fanfare_start[0] = fanfare_start[0] or time.monotonic()
                if fanfare_shots and time.monotonic() - fanfare_start[0] >= fanfare_shots[0]:
                    self.shot(f"fanfare_{fanfare_shots.pop(0)}s")
            return None

        outcome, top_ten = self.wait("what follows the end of the game", after_game)
        if outcome != "top ten":
            return 0
        self.wait("the top ten list to take the keyboard", lambda: focused(top_ten))
        self.shot("top_ten")
        print("the user won: top ten list shown")
        self.press(top_ten, "the top ten list", "Return")
        if self.args.again:
            self.turn()
            self.shot("table_after_top_ten")
        else:
            self.wait("the program to close its window", lambda: not viewable(self.main))
        return 0


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--user", default="Tester")
    parser.add_argument("--shots", default="")
    parser.add_argument("--timeout", type=float, default=600)
    parser.add_argument("--hands", type=int, default=0, help="stop after this many hands (0: play the game out)")
    parser.add_argument("--again", action="store_true",
                        help="answer Yes at the game's end, and stop when the table is back")
    parser.add_argument("--tour", action="store_true",
                        help="first move the pointer across the pot and the three animals")
    args = parser.parse_args()
    try:
        return Player(args).play()
    except TimedOut as waiting:
        shown = xdo("search", "--onlyvisible", "--name", ".", "getwindowname", "%@").splitlines()
        print(f"timed out waiting for {waiting}; windows shown: {shown}")
        return 1


if __name__ == "__main__":
    raise SystemExit(main())
