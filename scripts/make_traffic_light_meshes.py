#!/usr/bin/env python3
"""Writes the traffic light meshes of the 3D traffic light display as COLLADA files.

    make_traffic_light_meshes.py OUTPUT_DIRECTORY

A light head faces the car, which looks along +x: the lamps' faces lie toward -x. z is up, y to the
viewer's left. Sizes in metres before the display scales an intersection.

    cubeBack.dae          housing of a head of three lamps (0.2 x 0.6 x 1.8, centred)
    board_circle.dae      a round lamp (disc of radius 0.22 in front of the housing)
    arrow_back.dae        the dark board behind an arrow lamp
    arrow_left.dae        an arrow lamp pointing left
    num_back.dae          the board of a countdown (0.2 x 0.6 x 0.5)
    digital_1..14.dae     the countdown's left digits, tens 0 to 13 (on the board's left half)
    digital_15..24.dae    its right digits, ones 0 to 9 (on the board's right half)
"""
import math
import os
import sys

import collada

HOUSING = (0.12, 0.12, 0.13)
LAMP = (0.85, 0.85, 0.85)
FRONT = -0.1  # the housing's face toward the car

# Segments a to g of a seven-segment digit, lit per digit.
DIGIT_SEGMENTS = {
    0: "abcdef", 1: "bc", 2: "abdeg", 3: "abcdg", 4: "bcfg", 5: "acdfg", 6: "acdefg", 7: "abc", 8: "abcdefg",
    9: "abcdfg",
}


def disc(radius, x0, x1, sides=24):
    """A flat cylinder along x, centred on the x axis."""
    corners = [(x, 0.0, 0.0) for x in (x0, x1)]
    for k in range(sides):
        angle = 2 * math.pi * k / sides
        corners += [(x, radius * math.cos(angle), radius * math.sin(angle)) for x in (x0, x1)]
    triangles = []
    for k in range(sides):
        a0, a1 = 2 + 2 * k, 3 + 2 * k
        b0, b1 = 2 + 2 * ((k + 1) % sides), 3 + 2 * ((k + 1) % sides)
        triangles += [(0, b0, a0), (1, a1, b1), (a0, b0, b1), (a0, b1, a1)]
    return corners, triangles


def prism(outline, x0, x1):
    """A flat prism along x over a convex outline of (y, z) points."""
    corners = [(x, y, z) for (y, z) in outline for x in (x0, x1)]
    n = len(outline)
    triangles = []
    for k in range(1, n - 1):
        triangles += [(0, 2 * (k + 1), 2 * k), (1, 2 * k + 1, 2 * (k + 1) + 1)]
    for k in range(n):
        a0, a1 = 2 * k, 2 * k + 1
        b0, b1 = 2 * ((k + 1) % n), 2 * ((k + 1) % n) + 1
        triangles += [(a0, b0, b1), (a0, b1, a1)]
    return corners, triangles


def digit(value, y_centre):
    """The lit segments of one digit at y_centre on the number board's face (0.2 wide, 0.36 high)."""
    w, h, t = 0.1, 0.18, 0.025
    x0, x1 = FRONT - 0.03, FRONT - 0.01
    segments = {
        "a": (-w, h - t, w, h + t), "g": (-w, -t, w, t), "d": (-w, -h - t, w, -h + t),
        "f": (w - t, 0, w + t, h), "b": (-w - t, 0, -w + t, h),
        "e": (w - t, -h, w + t, 0), "c": (-w - t, -h, -w + t, 0),
    }
    shapes = []
    for name in DIGIT_SEGMENTS[value]:
        y0, z0, y1, z1 = segments[name]
        shapes.append(collada.box(x0, y_centre + y0, z0, x1, y_centre + y1, z1))
    return shapes


def left_digits(tens):
    """Tens 0..13 on the board's left half: one digit, or a 1 and a digit from ten on."""
    if tens < 10:
        return digit(tens, 0.15)
    return digit(1, 0.24) + digit(tens - 10, 0.1)


def meshes():
    result = {
        "cubeBack.dae": {"housing": ([collada.box(-0.1, -0.3, -0.9, 0.1, 0.3, 0.9)], HOUSING)},
        "board_circle.dae": {"lamp": ([disc(0.22, FRONT - 0.04, FRONT)], LAMP)},
        "arrow_back.dae": {"board": ([collada.box(FRONT - 0.02, -0.26, -0.26, FRONT, 0.26, 0.26)], HOUSING)},
        "arrow_left.dae": {"lamp": ([prism([(0.22, 0.0), (0.02, 0.2), (0.02, -0.2)], FRONT - 0.05, FRONT - 0.02),
                                     collada.box(FRONT - 0.05, -0.2, -0.07, FRONT - 0.02, 0.03, 0.07)], LAMP)},
        "num_back.dae": {"board": ([collada.box(-0.1, -0.3, -0.25, 0.1, 0.3, 0.25)], HOUSING)},
    }
    for tens in range(14):
        result["digital_%d.dae" % (tens + 1)] = {"digit": (left_digits(tens), LAMP)}
    for ones in range(10):
        result["digital_%d.dae" % (ones + 15)] = {"digit": (digit(ones, -0.15), LAMP)}
    return result


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    os.makedirs(sys.argv[1], exist_ok=True)
    for file_name, parts in meshes().items():
        with open(os.path.join(sys.argv[1], file_name), "w", encoding="utf-8") as output:
            output.write(collada.document(parts))


if __name__ == "__main__":
    main()
