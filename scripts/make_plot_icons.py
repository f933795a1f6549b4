#!/usr/bin/env python3
"""Draws the plot panel's PNG icons from simple shapes.

    scripts/make_plot_icons.py      (writes rviz_plugin/plugin/resources/plot/image/)
"""
import pathlib

from make_viewer_icons import Canvas

OUT = pathlib.Path(__file__).resolve().parent.parent / "rviz_plugin/plugin/resources/plot/image"

GREY, ORANGE, DARK, BLUE = (153, 153, 153, 255), (239, 119, 72, 255), (51, 51, 51, 255), (30, 94, 255, 255)
LIGHT, WHITE, RED = (200, 200, 200, 255), (255, 255, 255, 255), (217, 48, 48, 255)


def save(canvas, name):
    canvas.save(name, OUT)


def chart(name, color):
    c = Canvas(16, 16)
    c.line(2, 2, 2, 14, 1.4, DARK)
    c.line(2, 14, 14, 14, 1.4, DARK)
    c.line(4, 11, 7, 7, 1.5, color)
    c.line(7, 7, 10, 9, 1.5, color)
    c.line(10, 9, 14, 3, 1.5, color)
    save(c, name)


def grid(name, color):
    c = Canvas(16, 16)
    for x0, y0 in ((2, 2), (9, 2), (2, 9), (9, 9)):
        c.rect(x0, y0, x0 + 5, y0 + 5, color)
    save(c, name)


def cross(name, color, width=1.6):
    c = Canvas(16, 16)
    c.line(4, 4, 12, 12, width, color)
    c.line(12, 4, 4, 12, width, color)
    save(c, name)


def axis():
    c = Canvas(16, 16)
    c.line(3, 1.5, 3, 13, 1.4, DARK)
    c.line(3, 13, 14.5, 13, 1.4, DARK)
    c.triangle((3, 0.5), (1, 3.5), (5, 3.5), DARK)
    c.triangle((15.5, 13), (12.5, 11), (12.5, 15), DARK)
    save(c, "axis.png")


def setup():
    c = Canvas(16, 16)
    c.ring(8, 8, 4.5, 2.2, DARK)
    for x0, y0, x1, y1 in ((8, 0.5, 8, 3), (8, 13, 8, 15.5), (0.5, 8, 3, 8), (13, 8, 15.5, 8)):
        c.line(x0, y0, x1, y1, 2.4, DARK)
    save(c, "setup.png")


def more():
    c = Canvas(16, 16)
    for x in (3, 8, 13):
        c.ring(x, 8, 0.8, 1.8, DARK)
    save(c, "more.png")


def split(name, horizontal):
    c = Canvas(16, 16)
    c.rect(1.5, 1.5, 14.5, 14.5, DARK)
    c.rect(2.8, 2.8, 13.2, 13.2, WHITE)
    if horizontal:
        c.rect(2, 7.3, 14, 8.7, DARK)
    else:
        c.rect(7.3, 2, 8.7, 14, DARK)
    save(c, name)


def frame(name, inset):
    c = Canvas(16, 16)
    c.rect(1.5 + inset, 1.5 + inset, 14.5 - inset, 14.5 - inset, DARK)
    c.rect(2.8 + inset, 4 + inset, 13.2 - inset, 13.2 - inset, WHITE)
    save(c, name)


def restore_zoom():
    c = Canvas(16, 16)
    c.ring(7, 7, 4.5, 1.6, DARK)
    c.line(10.5, 10.5, 14.5, 14.5, 2, DARK)
    c.rect(4.5, 6.3, 9.5, 7.7, DARK)
    save(c, "restore_zoom.png")


def warning():
    c = Canvas(16, 16)
    c.triangle((8, 1), (15, 14.5), (1, 14.5), ORANGE)
    c.rect(7.2, 5, 8.8, 10, WHITE)
    c.rect(7.2, 11.5, 8.8, 13, WHITE)
    save(c, "warning.png")


def save_as():
    c = Canvas(16, 16)
    c.rect(2, 2, 14, 14, DARK)
    c.rect(4, 3.3, 12, 7, WHITE)
    c.rect(5, 9.5, 11, 14, WHITE)
    save(c, "save_as_template.png")


if __name__ == "__main__":
    OUT.mkdir(parents=True, exist_ok=True)
    chart("plot.png", ORANGE)
    grid("template.png", DARK)
    grid("default_template.png", BLUE)
    cross("close.png", GREY)
    cross("remove.png", RED)
    cross("delete.png", GREY, 1.3)
    axis()
    setup()
    more()
    split("split_horizontal.png", True)
    split("split_vertical.png", False)
    frame("maximize.png", 0)
    frame("restore.png", 2)
    restore_zoom()
    warning()
    save_as()
    grid("template_settings.png", DARK)
    grid("template_settings_disabled.png", LIGHT)
