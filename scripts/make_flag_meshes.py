#!/usr/bin/env python3
"""Writes the flag meshes of the route planner and the point tools as COLLADA files.

    make_flag_meshes.py OUTPUT_DIRECTORY

Each flag is a grey pole standing on the ground (z up, foot at the origin) with a coloured cloth at
its top and a coloured plate around its foot, made of boxes. The size is in the view's units before the tools scale it to a constant size
on screen: 3 units high.
"""
import os
import sys

import collada

POLE_GREY = (0.55, 0.57, 0.6)
FLAGS = {
    "RouteWayFlag.dae": (0.16, 0.47, 0.77),
    "RouteWayFlagHighLight.dae": (1.0, 0.78, 0.1),
    "RouteEndFlag.dae": (0.86, 0.2, 0.18),
    "flag.dae": (0.2, 0.7, 0.35),
    "WayFlag.dae": (0.16, 0.47, 0.77),
    "EndFlag.dae": (0.86, 0.2, 0.18),
}


def flag_document(colour):
    return collada.document({
        "pole": ([collada.box(-0.08, -0.08, 0.0, 0.08, 0.08, 3.0)], POLE_GREY),
        # The cloth at the top and a plate on the ground, so that the flag shows from above too.
        "cloth": ([collada.box(0.08, -0.04, 1.8, 1.9, 0.04, 2.9), collada.box(-1.0, -1.0, 0.0, 1.0, 1.0, 0.06)], colour),
    })


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    os.makedirs(sys.argv[1], exist_ok=True)
    for file_name, colour in FLAGS.items():
        with open(os.path.join(sys.argv[1], file_name), "w", encoding="utf-8") as output:
            output.write(flag_document(colour))


if __name__ == "__main__":
    main()
