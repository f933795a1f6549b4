#!/usr/bin/env python3
"""Draws the recording and capture tools' PNG pictures from simple shapes.

    scripts/make_record_icons.py      (writes rviz_plugin/plugin/resources/record/image/)
"""
import pathlib

from make_viewer_icons import Canvas

OUT = pathlib.Path(__file__).resolve().parent.parent / "rviz_plugin/plugin/resources/record/image"

BACKGROUND, SHAPE, WHITE = (40, 40, 40, 255), (150, 150, 150, 255), (255, 255, 255, 255)


def no_image():
    """What a recording shows while its camera sends nothing: a crossed-out camera on dark grey."""
    c = Canvas(320, 180)
    c.rect(0, 0, 320, 180, BACKGROUND)
    for x0, y0, x1, y1 in ((120, 65, 190, 65), (120, 115, 190, 115), (120, 65, 120, 115), (190, 65, 190, 115)):
        c.line(x0, y0, x1, y1, 5, SHAPE)
    c.triangle((192, 90), (215, 72), (215, 108), SHAPE)
    c.line(110, 130, 225, 50, 6, SHAPE)
    c.save("no_image.png", OUT)


def play():
    c = Canvas(16, 16)
    c.triangle((4, 2), (14, 8), (4, 14), WHITE)
    c.save("play.png", OUT)


def pause():
    c = Canvas(16, 16)
    c.rect(3, 2, 6.5, 14, WHITE)
    c.rect(9.5, 2, 13, 14, WHITE)
    c.save("pause.png", OUT)


if __name__ == "__main__":
    OUT.mkdir(parents=True, exist_ok=True)
    no_image()
    play()
    pause()
