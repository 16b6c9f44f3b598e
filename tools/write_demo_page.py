#!/usr/bin/env python3
"""Writes a page into the program that runs on this display, and takes pictures of it on the way."""
import os
import pathlib
import subprocess
import sys

import handwriting

SCALE = float(os.environ.get("PICTURE_SCALE", "1"))
# x of tool buttons in the window's client area, in page pixels as all places here
PAGE_TOOLS = {"pen 2": 74, "pen 3": 93, "palette": 131, "space": 158, "eraser": 177}
EDITOR_TOOLS = 219
MANAGER_TOOLS = 181
CALENDAR = 88
TOOL_ROW = 599  # y of the tool bar's middle


def tool(*arguments):
    done = subprocess.run(["xdotool", *map(str, arguments)], check=True, capture_output=True, text=True)
    return done.stdout.strip()


def window_named(name):
    window = tool("search", "--sync", "--onlyvisible", "--name", name).split("\n")[0]
    place = dict(line.split("=") for line in tool("getwindowgeometry", "--shell", window).split("\n"))
    return int(place["X"]), int(place["Y"]), int(place["WIDTH"]), int(place["HEIGHT"])


def take_picture(window, path):
    left, top, width, height = window
    tool("sleep", 0.7)
    subprocess.run(["import", "-window", "root", "-crop", f"{width}x{height}+{left}+{top}", "+repage", str(path)],
                   check=True)


class Page:
    def __init__(self):
        left, top, width, height = window_named("Inkwright$")
        self.window = (left, top, width, height)
        # The caption and frame lie around the client area of 480 x 614.
        border = (width - round(480 * SCALE)) // 2
        self.left = left + border
        self.top = top + height - border - round(588 * SCALE) - round(26 * SCALE)

    def on_screen(self, x, y):
        return self.left + round((x + 0.3) * SCALE), self.top + round((y + 0.3) * SCALE)

    def stroke(self, points):
        self.drag(points)
        tool("mouseup", 1)

    def drag(self, points):
        steps = ["mousemove", *self.on_screen(*points[0]), "mousedown", 1]
        for x, y in points[1:]:
            steps += ["mousemove", *self.on_screen(x, y), "sleep", 0.012]
        tool(*steps)

    def write(self, text, left, baseline, size, seed):
        for points in handwriting.write(text, left, baseline, size, seed):
            self.stroke(points)

    def click(self, x, y=TOOL_ROW, button=1):
        tool("mousemove", *self.on_screen(x, y), "click", button)

    def picture(self, path, pointer_away=True):
        if pointer_away:
            tool("mousemove", 1, 1)
        take_picture(self.window, path)


def sun(center_x, center_y):
    import math
    circle = [(round(center_x + 15 * math.cos(a / 6)), round(center_y + 15 * math.sin(a / 6))) for a in range(39)]
    rays = []
    for i in range(9):
        angle = i * 2 * math.pi / 9
        rays.append([(round(center_x + r * math.cos(angle)), round(center_y + r * math.sin(angle))) for r in (21, 25, 30)])
    return [circle] + rays


def write_page(folder):
    page = Page()
    page.write("Garden plans", 26, 34, 13, 1)
    page.write("tomatoes by the south wall", 26, 100, 13, 2)
    page.write("beans, peas - 2 rows", 26, 150, 13, 3)
    page.write("sweet basil in the pot", 26, 200, 13, 4)
    page.click(PAGE_TOOLS["pen 2"])
    page.write("Water early!", 200, 262, 15, 5)
    page.stroke([(200 + i, 276 + (i // 9) % 2) for i in range(0, 150, 3)])
    page.click(PAGE_TOOLS["pen 3"])
    page.write("1", 40, 330, 12, 6)
    page.write("sow the beans in may", 70, 330, 12, 7)
    page.write("2", 40, 376, 12, 8)
    page.write("then the tomatoes", 70, 376, 12, 9)
    for trace in sun(400, 90):
        page.stroke(trace)
    page.picture(folder / "editor.png")
    page.click(PAGE_TOOLS["palette"])
    window_named("Color Palette")
    page.picture(folder / "palette.png")
    page.click(300, 420)  # a tap outside
    tool("sleep", 0.5)
    close_window()
    save_as = window_named("Save As")
    if folder.name != "pictures":
        take_picture(save_as, folder / "save_as.png")
    tool("sleep", 0.5, "type", "Garden plans")
    tool("key", "Return", "sleep", 1)


def show_eraser_and_space(folder):
    page = Page()
    page.click(PAGE_TOOLS["eraser"])
    page.stroke([(70 + i, 130 - i // 4) for i in range(0, 180, 4)])
    page.picture(folder / "eraser.png")
    page.click(PAGE_TOOLS["space"])
    page.drag([(320, y) for y in range(220, 275, 3)])
    page.picture(folder / "space.png", pointer_away=False)
    tool("mouseup", 1)
    close_window()


def close_window():
    tool("search", "--onlyvisible", "--name", "Inkwright$", "windowfocus")
    tool("key", "ctrl+w")


def select_first_note():
    tool("key", "Home", "sleep", 0.3)
    for key in ("Right", "Down", "Right", "Down"):
        tool("key", key, "sleep", 0.3)


def show_manager(folder):
    page = Page()
    select_first_note()
    page.picture(folder / "manager.png")
    tool("key", "ctrl+f")
    window_named("Find...")
    tool("sleep", 0.5, "type", "garden")
    page.picture(folder / "find.png")
    tool("key", "Escape", "sleep", 0.5)
    page.click(MANAGER_TOOLS)
    tool("sleep", 0.5, "key", "Down", "Down", "Down", "Return")
    window_named("Options")
    page.picture(folder / "options.png")
    tool("key", "ctrl+Tab")
    page.picture(folder / "names.png")
    tool("key", "Escape", "sleep", 0.5)
    page.click(CALENDAR)
    page.picture(folder / "calendar.png")
    close_window()


def show_dialogs(folder):
    """Those of the manager that the guide does not show."""
    page = Page()
    page.click(CALENDAR)  # as the manager was left
    tool("sleep", 0.5)
    select_first_note()

    def show(keys, name, title):
        tool("sleep", 0.5, "key", *keys)
        if title:
            window_named(title)
        page.picture(folder / f"{name}.png")
        tool("key", "Escape", "sleep", 0.5, "key", "Escape", "sleep", 0.5)

    page.click(MANAGER_TOOLS)
    show(["Down"], "menu", None)
    page.click(MANAGER_TOOLS)
    show(["Up", "Return"], "about", "About")
    show(["Delete"], "question", "Confirm")
    for downs, name, title in ((5, "alarm", None), (7, "date", "Date$")):
        page.click(95, 58, button=3)
        show(["Down"] * downs + ["Return"], name, title)
    show(["F2"], "label", None)
    close_window()


def send(_):
    page = Page()
    page.click(EDITOR_TOOLS)
    tool("sleep", 0.5, "key", "Up", "Return")
    window_named("^ Inkwright$")  # no mail program here


def show_notice(folder):
    take_picture(window_named("Alarm$"), folder / "notice.png")
    close_window()


def show_memo(folder):
    page = Page()
    page.click(EDITOR_TOOLS)
    tool("sleep", 0.5, "key", "Down", "Return", "sleep", 1)
    tool("type", "--delay", 30, "Radishes, peas, sweet basil")
    tool("key", "Return", "type", "--delay", 30, "Two bags of earth")
    page.picture(folder / "memo.png")
    tool("key", "Escape", "sleep", 0.5)
    close_window()


if __name__ == "__main__":
    shows = {"page": write_page, "dialogs": show_dialogs, "tools": show_eraser_and_space, "manager": show_manager, "memo": show_memo,
             "notice": show_notice, "mail": send}
    shows[sys.argv[1]](pathlib.Path(sys.argv[2]))
