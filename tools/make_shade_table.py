#!/usr/bin/env python3
"""Prints the table of shades that the colour tests compare with: single precision done by rounding every
result of Python's own arithmetic, independently of the C++ code.

Usage: tools/make_shade_table.py > tests/ink/ShadeTable.inc
"""
import math
import random
import struct


def f(x):
    return struct.unpack('<f', struct.pack('<f', x))[0]


C510, C60, C360, C255, CBYTE = (f(x) for x in (0.0019607844, 0.016666668, 0.0027777778, 255.0, 0.003921569))


def to_hls(color):
    r, g, b = color & 255, color >> 8 & 255, color >> 16 & 255
    hi, lo = max(r, g, b), min(r, g, b)
    light = f((hi + lo) * C510)
    if hi == lo:
        return 0.0, light, 0.0
    d = hi - lo
    sat = f(d / (hi + lo)) if light <= 0.5 else f(d / (510 - (hi + lo)))
    rc, gc, bc = f((hi - r) / d), f((hi - g) / d), f((hi - b) / d)
    hue = 0.0
    if r == hi:
        hue = f(60 * f(f(6 + bc) - gc))
    if g == hi:
        hue = f(60 * f(f(2 + rc) - bc))
    if b == hi:
        hue = f(60 * f(f(4 + gc) - rc))
    if hue > 360:
        hue = f(hue - 360)
    return hue, light, sat


def value(m1, m2, hue):
    if hue > 360:
        hue = f(hue - 360)
    elif hue < 0:
        hue = f(hue + 360)
    v = m1
    if hue < 60:
        v = f(m1 + f(f(f(m2 - m1) * hue) * C60))
    elif hue < 180:
        v = m2
    elif hue < 240:
        v = f(m1 + f(f(f(m2 - m1) * f(240 - hue)) * C60))
    return math.trunc(f(v * C255)) & 255


def from_hls(hue, light, sat):
    if sat == 0:
        grey = math.trunc(light * 255.0) & 255
        return grey | grey << 8 | grey << 16
    m2 = f(f(light * sat) + light) if light <= 0.5 else f(f(sat + light) - f(sat * light))
    m1 = f(f(2 * light) - m2)
    return value(m1, m2, f(hue + 120)) | value(m1, m2, hue) << 8 | value(m1, m2, f(hue - 120)) << 16


def shade(color, factor):
    hue, light, sat = to_hls(color)
    h, l, s = math.trunc(f(f(hue * C360) * 255)), math.trunc(f(light * 255)), math.trunc(f(sat * 255))
    l = min(max(l + math.trunc(f(l * factor)), 0), 255)
    return from_hls(f(f(h * CBYTE) * 360), f(l * CBYTE), f(s * CBYTE))


def fine_shade(color, factor):
    hue, light, sat = to_hls(color)
    return from_hls(hue, f(f(light * factor) + light), sat)


def main():
    random.seed(7)
    colors = [0x000000, 0xFFFFFF, 0x808080, 0x4040FF, 0x40FF40, 0xFF4040, 0xFF40FF, 0x0000FF, 0x00FF00, 0xFF0000,
              0x00FFFF, 0xFFFF00, 0xFF00FF, 0x010101, 0xFEFFFF, 0x123456]
    colors += [random.randrange(1 << 24) for _ in range(8)]
    print('// Made by tools/make_shade_table.py: {colour, factor, Shade, FineShade}.')
    for color in colors:
        for factor in (-1.0, -0.15, -0.1, -0.05, 0.0, 0.39, 0.8, 2.5):
            x = f(factor)
            print(f'{{0x{color:06X}, {factor}f, 0x{shade(color, x):06X}, 0x{fine_shade(color, x):06X}}},')


main()
