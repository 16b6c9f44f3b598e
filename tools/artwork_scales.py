"""Small pictures at one and a half, two and three times their size. What was placed pixel by pixel is enlarged by the rule
that corners stay corners and steps become slopes: a pixel's part takes the colour of the two neighbours that meet there,
where those agree and the others do not."""


def _part(grid, x, y, dx, dy):
    """The colour of the part of pixel (x, y) that lies towards (dx, dy), each -1, 0 or 1."""
    height, width = len(grid), len(grid[0])

    def at(u, v):
        return grid[min(max(v, 0), height - 1)][min(max(u, 0), width - 1)]

    here = at(x, y)
    if dx == 0 or dy == 0:
        return here
    side, end = at(x + dx, y), at(x, y + dy)
    return side if side == end and side != at(x - dx, y) and end != at(x, y - dy) else here


def enlarge(grid, times):
    """A grid of colours, two or three times as large."""
    steps = {2: (-1, 1), 3: (-1, 0, 1)}[times]
    return [[_part(grid, x, y, dx, dy) for x in range(len(grid[0])) for dx in steps]
            for y in range(len(grid)) for dy in steps]


def halve(grid, keep):
    """Half as large: each pixel the mean of four, but `keep`, which stands for nothing, where most of them are that."""
    def mean(colors):
        rest = [color for color in colors if color != keep]
        if len(rest) < 2:
            return keep
        return tuple(round(sum(color[i] for color in rest) / len(rest)) for i in range(3))

    return [[mean([grid[y][x], grid[y][x + 1], grid[y + 1][x], grid[y + 1][x + 1]]) for x in range(0, len(grid[0]), 2)]
            for y in range(0, len(grid), 2)]


def strip(pictures, tenths, keep):
    """Pictures (grids of one size) side by side at 10, 15, 20 or 30 tenths of their size."""
    def scaled(grid):
        if tenths == 10:
            return grid
        return halve(enlarge(grid, 3), keep) if tenths == 15 else enlarge(grid, tenths // 10)

    sized = [scaled(grid) for grid in pictures]
    return [sum((grid[y] for grid in sized), []) for y in range(len(sized[0]))]
