"""A user at the desktop: finds the program's windows and works them with real key and mouse events (xdotool)."""

import subprocess
import threading
import time


def _xdotool(*arguments):
    return subprocess.run(["xdotool", *arguments], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                          check=False).stdout.decode()


class Window:
    def __init__(self, number):
        values = dict(line.split("=") for line in _xdotool("getwindowgeometry", "--shell", number).split() if "=" in line)
        self.number = number
        self.x, self.y = int(values.get("X", -1)), int(values.get("Y", -1))
        self.width, self.height = int(values.get("WIDTH", 0)), int(values.get("HEIGHT", 0))


def wait_for_new_window(known, seconds=20):
    """The window that shows up beside those in `known`, a set of numbers to which it is added."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        for number in _xdotool("search", "--onlyvisible", "--name", ".").split():
            if number in known:
                continue
            window = Window(number)
            if window.width > 100 and window.height > 100:
                known.add(number)
                time.sleep(0.7)  # until it is painted and has the focus
                return Window(number)
        time.sleep(0.1)
    raise TimeoutError("no new window came up")


def window_at(number, x, y, seconds=20):
    """The window when it has come to this place; wherever it is, when it has not."""
    end = time.monotonic() + seconds
    while True:
        window = Window(number)
        if (window.x, window.y) == (x, y) or time.monotonic() > end:
            return window
        time.sleep(0.1)


def press(*keys):
    _xdotool("key", *keys)


def keys(*names):
    """A step for `answer`: works the window with these keys, and prints which window had the focus for each."""
    def step(window):
        for name in names:
            title = _xdotool("getwindowfocus", "getwindowname").strip()
            print(f"{title} ({window.width}x{window.height}): {name}", flush=True)
            press(name)
            time.sleep(0.3)  # until the program has acted on it
    return step


def answer(run, *steps, first=lambda window: None):
    """What `run` returns while a user acts: one step for each window that comes up after the first, the host's own, for which
    there is a step of its own."""
    outcome = []
    thread = threading.Thread(target=lambda: outcome.append(run()))
    thread.start()
    known = set()
    try:
        first(wait_for_new_window(known))
        for step in steps:
            step(wait_for_new_window(known))
    finally:
        thread.join(90)
    return outcome[0]


def click(x, y):
    _xdotool("mousemove", str(x), str(y), "click", "1")


def drag(from_x, from_y, to_x, to_y):
    _xdotool("mousemove", str(from_x), str(from_y), "mousedown", "1")
    for step in range(1, 6):
        _xdotool("mousemove", str(from_x + (to_x - from_x) * step // 5), str(from_y + (to_y - from_y) * step // 5))
        time.sleep(0.05)
    _xdotool("mouseup", "1")
