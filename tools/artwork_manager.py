"""The manager's pictures, drawn from rectangles and lines: tree images, tool bar, banner, note mark."""
import math

MASK = (0, 255, 0)
FACE = (192, 192, 192)
INK, BLUE, LIGHT, RED = (52, 58, 72), (52, 96, 176), (176, 204, 240), (208, 56, 56)
PAPER, RULE, GOLD, DARK_GOLD = (255, 255, 255), (170, 186, 210), (250, 208, 96), (176, 132, 32)
GREEN, GREY, DIM = (48, 140, 80), (150, 150, 158), (196, 198, 204)


class Picture:
    def __init__(self, width, height, back):
        self.width, self.height = width, height
        self.pixels = [[back] * width for _ in range(height)]

    def dot(self, x, y, color):
        if 0 <= x < self.width and 0 <= y < self.height:
            self.pixels[y][x] = color

    def box(self, left, top, right, bottom, edge, fill=None):
        """Corners inclusive."""
        for y in range(top, bottom + 1):
            for x in range(left, right + 1):
                on_edge = x in (left, right) or y in (top, bottom)
                if on_edge or fill:
                    self.dot(x, y, edge if on_edge else fill)

    def line(self, x0, y0, x1, y1, color):
        steps = max(abs(x1 - x0), abs(y1 - y0), 1)
        for i in range(steps + 1):
            self.dot(round(x0 + (x1 - x0) * i / steps), round(y0 + (y1 - y0) * i / steps), color)

    def disc(self, cx, cy, radius, color):
        for y in range(self.height):
            for x in range(self.width):
                if math.hypot(x - cx, y - cy) <= radius:
                    self.dot(x, y, color)


def folder(picture, left, fill, is_open):
    picture.box(left + 1, 3, left + 6, 5, DARK_GOLD, fill)
    picture.box(left + 1, 5, left + 14, 13, DARK_GOLD, fill)
    if is_open:
        for row in range(5):
            picture.line(left + 4 - row // 2 + 0, 8 + row, left + 15 - row // 2, 8 + row, PAPER if row == 0 else GOLD)
        picture.line(left + 4, 8, left + 15, 8, DARK_GOLD)
        picture.line(left + 4, 8, left + 1, 13, DARK_GOLD)
        picture.line(left + 15, 8, left + 13, 13, DARK_GOLD)
        picture.line(left + 1, 13, left + 13, 13, DARK_GOLD)


def sheet(picture, left, rule=RULE, edge=INK):
    picture.box(left + 3, 1, left + 12, 14, edge, PAPER)
    for y in (4, 7, 10):
        picture.line(left + 5, y, left + 10, y, rule)


def calendar(picture, left, head, fill=PAPER):
    picture.box(left + 1, 2, left + 14, 14, INK, fill)
    picture.box(left + 1, 2, left + 14, 5, INK, head)
    for y in (7, 9, 11):
        for x in (4, 7, 10):
            picture.box(left + x, y, left + x + 1, y, GREY)
    for x in (4, 11):
        picture.line(left + x, 0, left + x, 3, INK)


def bell(picture, left):
    for y, half in enumerate((0, 2, 3, 3, 4, 4, 4, 5, 6)):
        picture.line(left + 8 - half, 2 + y, left + 8 + half, 2 + y, GOLD)
        picture.dot(left + 8 - half, 2 + y, DARK_GOLD)
        picture.dot(left + 8 + half, 2 + y, DARK_GOLD)
    picture.line(left + 2, 11, left + 14, 11, DARK_GOLD)
    picture.box(left + 7, 12, left + 9, 13, DARK_GOLD, DARK_GOLD)


def tree_images():
    picture = Picture(16 * 14, 16, MASK)
    at = [16 * i for i in range(14)]
    sheet(picture, at[0] - 1)
    picture.box(at[0] + 5, 3, at[0] + 14, 15, INK, PAPER)
    for y in (6, 9, 12):
        picture.line(at[0] + 7, y, at[0] + 12, y, BLUE)
    folder(picture, at[1], GOLD, False)
    folder(picture, at[2], (236, 190, 80), True)
    sheet(picture, at[3], BLUE)
    calendar(picture, at[4], RED)
    calendar(picture, at[5], BLUE)
    calendar(picture, at[6], BLUE, LIGHT)
    sheet(picture, at[7], BLUE)
    picture.disc(at[7] + 11, 11, 4, RED)
    picture.line(at[7] + 11, 9, at[7] + 11, 11, PAPER)
    picture.line(at[7] + 11, 11, at[7] + 13, 11, PAPER)
    sheet(picture, at[8], DIM, GREY)
    for radius, color in ((7.2, RED), (5.4, MASK)):
        picture.disc(at[9] + 8, 8, radius, color)
    bell(picture, at[10])
    bell(picture, at[11])
    picture.disc(at[11] + 12, 4, 3, RED)
    picture.box(at[12] + 8, 8, at[12] + 15, 15, INK, (255, 250, 190))
    picture.line(at[12] + 10, 11, at[12] + 13, 11, INK)
    picture.line(at[12] + 10, 13, at[12] + 12, 13, INK)
    picture.box(at[13] + 2, 2, at[13] + 13, 13, INK, (255, 250, 190))
    for y in (5, 7, 9):
        picture.line(at[13] + 4, y, at[13] + 11, y, INK)
    return picture


def arrow(picture, left, direction):
    tip = left + (2 if direction < 0 else 9)
    for i in range(5):
        picture.line(tip - direction * i, 7 - i, tip - direction * i, 7 + i, BLUE)


def manager_tools():
    picture = Picture(12 * 9, 14, FACE)
    at = [12 * i for i in range(9)]
    picture.box(at[0] + 1, 1, at[0] + 8, 12, INK, PAPER)
    picture.box(at[0] + 8, 7, at[0] + 9, 12, GREEN)
    picture.box(at[0] + 6, 9, at[0] + 11, 10, GREEN)
    picture.box(at[1] + 1, 1, at[1] + 8, 12, INK, PAPER)
    for y in (4, 6, 8):
        picture.line(at[1] + 3, y, at[1] + 6, y, BLUE)
    picture.line(at[1] + 10, 4, at[1] + 5, 11, RED)
    picture.line(at[1] + 11, 4, at[1] + 6, 11, RED)
    for offset in (0, 1):
        picture.line(at[2] + 2 + offset, 3, at[2] + 9 + offset, 10, RED)
        picture.line(at[2] + 9 + offset, 3, at[2] + 2 + offset, 10, RED)
    picture.box(at[3] + 1, 2, at[3] + 10, 12, INK, PAPER)
    picture.box(at[3] + 1, 2, at[3] + 10, 4, INK, RED)
    for y in (7, 9):
        for x in (3, 5, 7):
            picture.dot(at[3] + x, y, INK)
    arrow(picture, at[4], -1)
    picture.box(at[5] + 2, 3, at[5] + 9, 11, INK, PAPER)
    picture.box(at[5] + 4, 6, at[5] + 7, 9, BLUE, BLUE)
    arrow(picture, at[6], 1)
    picture.disc(at[7] + 5, 5, 4, INK)
    picture.disc(at[7] + 5, 5, 2.6, LIGHT)
    picture.line(at[7] + 8, 8, at[7] + 10, 12, INK)
    picture.line(at[7] + 9, 8, at[7] + 11, 12, INK)
    picture.box(at[8] + 1, 2, at[8] + 10, 10, INK, PAPER)
    for y in (4, 6, 8):
        picture.line(at[8] + 3, y, at[8] + 8, y, INK)
    return picture


def curve(picture, points, color, width):
    """A line with soft edges through the points."""
    cover = {}
    for (x0, y0), (x1, y1) in zip(points, points[1:]):
        length = max(math.hypot(x1 - x0, y1 - y0), 0.01)
        for y in range(math.floor(min(y0, y1) - width - 1), math.ceil(max(y0, y1) + width + 2)):
            for x in range(math.floor(min(x0, x1) - width - 1), math.ceil(max(x0, x1) + width + 2)):
                along = max(0, min(1, ((x - x0) * (x1 - x0) + (y - y0) * (y1 - y0)) / length ** 2))
                distance = math.hypot(x - x0 - along * (x1 - x0), y - y0 - along * (y1 - y0))
                share = max(0, min(1, width / 2 + .5 - distance))
                cover[x, y] = max(cover.get((x, y), 0), share)
    for (x, y), share in cover.items():
        if 0 <= x < picture.width and 0 <= y < picture.height:
            below = picture.pixels[y][x]
            picture.dot(x, y, tuple(round(b + (c - b) * share) for b, c in zip(below, color)))


class Paper:
    """A picture in pixels of the handheld, drawn `scale` times as large."""

    def __init__(self, width, height, back, scale):
        self.scale = scale
        self.picture = Picture(round(width * scale), round(height * scale), back)

    def rule(self, left, y, right, color):
        """A horizontal line, corners inclusive."""
        top, below = round(y * self.scale), max(round((y + 1) * self.scale), round(y * self.scale) + 1)
        self.picture.box(round(left * self.scale), top, round((right + 1) * self.scale) - 1, below - 1, color, color)

    def curve(self, points, color, width):
        curve(self.picture, [(x * self.scale, y * self.scale) for x, y in points], color, width * self.scale)

    def write(self, handwriting, text, left, baseline, size, seed, color, width):
        # Traces come as whole pixels: for a large picture they are to be finer.
        fine = 1 if self.scale == 1 else 8
        for stroke in handwriting.write(text, left * fine, baseline * fine, size * fine, seed):
            self.curve([(x / fine, y / fine) for x, y in stroke], color, width)


def ruled_paper(scale):
    paper = Paper(240, 70, (244, 246, 250), scale)
    for y in (22, 46, 68):
        paper.rule(0, y, 239, (214, 222, 234))
    return paper


def banner(handwriting, scale):
    """The program's name as if written by hand, on quiet ruled paper."""
    paper = ruled_paper(scale)
    paper.write(handwriting, "Inkwright", 42, 46, 15, 3, BLUE, 2.2)
    paper.curve([(44 + i, 56 + 2.4 * math.sin(i / 9)) for i in range(0, 150, 2)], RED, 1.4)
    return paper.picture


def beginning(handwriting, scale):
    """The same paper for who has no folder yet: how to begin, in a quiet hand."""
    paper = ruled_paper(scale)
    for text, left, baseline, seed in (("Begin with Tools, New Folder,", 10, 22, 4), ("then New Note, and write.", 34, 46, 6)):
        paper.write(handwriting, text, left, baseline, 7, seed, (96, 116, 160), 1.2)
    return paper.picture


def note_mark(handwriting, scale):
    """What stands behind the head of a previewed note, at its right: a faint pen."""
    paper = Paper(80, 25, (236, 238, 242), scale)
    for y in (0, 24):
        paper.rule(0, y, 79, (214, 218, 226))
    for x in (0, 79):
        for y in range(25):
            paper.rule(x, y, x, (214, 218, 226))
    for y in (8, 16):
        paper.rule(4, y, 75, (214, 222, 234))
    paper.write(handwriting, "ink", 24, 18, 7, 5, (140, 156, 184), 1.2)
    return paper.picture
