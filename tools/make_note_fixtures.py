#!/usr/bin/env python3
"""Writes the note files that the ink tests read: every version, and every kind of damage.

Usage: tools/make_note_fixtures.py [folder], by default tests/fixtures beside this script's folder.
The result is the same on every run; the files are kept in the repository.
"""
import pathlib
import struct
import sys

HEIGHT = 268
BACKGROUND = 0x00C0E0F0

# (colour, points in page coordinates), by slot for HEIGHT.
BANDS = {
    0: [(0x00123456, [(10, 10), (14, 18), (20, 30)]), (0x00FFFFFF, [(5, 60)])],
    1: [(0x000000FF, [(100, 250), (104, 270), (108, 290)])],
    2: [(0x00808080, [(50, 300), (60, 320)])],
    5: [(0x0000FF00, [(0, 800), (239, 810), (17, 805), (18, 806)])],
}
BAND_COUNT = 6


def header(version, count=BAND_COUNT, height=HEIGHT, background=BACKGROUND):
    return struct.pack('<IIii', version, background, count, height)


def record(color, points, offset=0, n=None, low=None, high=None):
    ys = [y for _, y in points] or [0]
    data = struct.pack('<iiiiii', len(points) if n is None else n, offset, color & 0xFFFF, color >> 16,
                       min(ys) if low is None else low, max(ys) if high is None else high)
    for x, y in points:
        data += struct.pack('<ii', x, y - offset)
    return data


def body(offset=0):
    data = b''
    for slot in range(BAND_COUNT):
        strokes = BANDS.get(slot, [])
        data += struct.pack('<I', len(strokes)) + b''.join(record(c, p, offset) for c, p in strokes)
    return data


def one(data, k=1, blocks=1):
    return header(5, blocks) + struct.pack('<I', k) + data


def main():
    folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else \
        pathlib.Path(__file__).resolve().parent.parent / 'tests' / 'fixtures'
    folder.mkdir(parents=True, exist_ok=True)
    good = {f'version-{v}': header(v) + body() for v in range(7)}
    good['version-garbage'] = header(0xDEADBEEF) + body()
    good['offset'] = header(5) + body(offset=7)
    good['no-bands'] = header(5, 0)
    good['negative-bands'] = header(5, -3) + b'whatever follows'
    good['empty-bands'] = header(5, 4) + bytes(16)
    good['bytes-behind'] = header(5) + body() + b'trailing bytes nobody reads'
    good['no-points'] = one(record(0x808080, []) + record(0xFF, [(1, 2)]), 2)
    good['above-page'] = one(record(0x808080, [(3, -700), (4, -690)]))
    good['far-away'] = one(record(0x2040FF, [(-2**31, -2**31), (2**31 - 1, 2**31 - 1), (100, 100), (-2**31, 90),
                                             (2**31 - 1, 91)], low=0, high=200))
    far_offset = struct.pack('<iiiiii', 3, 2**31 - 1, 0xFF, 0, 0, 200)
    far_offset += struct.pack('<iiiiii', 0, 2**31 - 1, 50, -2**31, 60, -2**31 + 40)
    good['offset-overflow'] = one(far_offset)
    old = record(0xFF, [(1, -2**31), (2, 2**31 - 1)], low=-2**31, high=2**31 - 1)
    good['version-3-extremes'] = header(3, 1) + struct.pack('<I', 1) + old

    point = record(0x808080, [(1, 2)])
    bad = {
        'empty-file': b'',
        'half-header': header(5)[:9],
        'header-only': header(5),
        'half-count': header(5) + b'\1\0',
        'half-head': one(point[:20]),
        'half-point': one(point[:-4]),
        'missing-stroke': one(point, 2),
        'missing-band': one(point, 1, 2),
        'negative-points': one(record(0x808080, [], n=-1) + bytes(64)),
        'lowest-points': one(record(0x808080, [], n=-2**31) + bytes(64)),
        'huge-points': one(record(0x808080, [], n=2**31 - 1) + bytes(64)),
        'many-points': one(record(0x808080, [(1, 2)] * 40, n=100000)),
        'huge-count': one(point, 0xFFFFFFFF),
        'huge-bands': one(point, 1, 2**31 - 1),
    }
    # Filed anew for a low band height this stroke's slot is beyond any page.
    good['far-below'] = one(record(0x808080, [(1, 2)], low=2**30, high=2**30))
    for name, data in good.items():
        (folder / f'{name}.ikw').write_bytes(data)
    for name, data in bad.items():
        (folder / f'damaged-{name}.ikw').write_bytes(data)


main()
