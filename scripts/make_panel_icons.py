#!/usr/bin/env python3
"""Draws the vehicle panels' SVG icons from simple shapes and writes their Qt resource file.

    scripts/make_panel_icons.py      (writes rviz_plugin/plugin/resources/vehicle_panels/)

Sizes matter: the panels lay icons out at their default size in design pixels.
"""
import math
import pathlib

OUT = pathlib.Path(__file__).resolve().parent.parent / "rviz_plugin/plugin/resources/vehicle_panels"
CYAN, GREY, DARK, WHITE = "#00dfff", "#98999e", "#3a3b40", "#ffffff"
GREEN, RED, YELLOW, ORANGE, BLUE = "#22d36b", "#ff3f3f", "#ffc400", "#ff8a00", "#2f7bff"

icons = {}


def svg(name, width, height, body):
    icons[name] = (f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" '
                   f'viewBox="0 0 {width} {height}">\n{body}\n</svg>\n')


def text(x, y, content, size, color, weight="bold"):
    return (f'<text x="{x}" y="{y}" font-family="DejaVu Sans, sans-serif" font-size="{size}" '
            f'font-weight="{weight}" fill="{color}" text-anchor="middle">{content}</text>')


def arrow(cx, cy, length, angle, color, width=3):
    """An arrow from the centre outwards at angle (degrees, 0 up, clockwise)."""
    rad = math.radians(angle)
    dx, dy = math.sin(rad), -math.cos(rad)
    x0, y0 = cx - dx * length / 2, cy - dy * length / 2
    x1, y1 = cx + dx * length / 2, cy + dy * length / 2
    head = length * 0.35
    left = (x1 - head * (dx * 0.8 - dy * 0.6), y1 - head * (dy * 0.8 + dx * 0.6))
    right = (x1 - head * (dx * 0.8 + dy * 0.6), y1 - head * (dy * 0.8 - dx * 0.6))
    return (f'<line x1="{x0:.1f}" y1="{y0:.1f}" x2="{x1:.1f}" y2="{y1:.1f}" stroke="{color}" '
            f'stroke-width="{width}" stroke-linecap="round"/>'
            f'<polygon points="{x1:.1f},{y1:.1f} {left[0]:.1f},{left[1]:.1f} {right[0]:.1f},{right[1]:.1f}" '
            f'fill="{color}"/>')


def lamp_arrow(name, direction, color):
    """A turn lamp, 21 x 19: a filled arrow pointing left or right."""
    points = "1,9.5 9,1 9,6 20,6 20,13 9,13 9,18" if direction == "left" else "20,9.5 12,1 12,6 1,6 1,13 12,13 12,18"
    svg(name, 21, 19, f'<polygon points="{points}" fill="{color}"/>')


def triangle(name, color, up):
    points = "7,0 14,10 0,10" if up else "0,0 14,0 7,10"
    svg(name, 14, 10, f'<polygon points="{points}" fill="{color}"/>')


def badge(name, size, glyph, color=CYAN, fill="none"):
    r = size / 2 - 2
    svg(name, size, size, f'<circle cx="{size/2}" cy="{size/2}" r="{r}" fill="{fill}" stroke="{color}" '
                          f'stroke-width="2"/>' + glyph(size))


def glyph_arrow(angle, color=CYAN):
    return lambda s: arrow(s / 2, s / 2, s * 0.5, angle, color)


def glyph_text(content, color=CYAN):
    return lambda s: text(s / 2, s / 2 + s * 0.16, content, s * 0.42, color)


def camel_icon(label):
    words = label.replace("\n", " ").split()
    name = "".join(w.lower().capitalize() for w in words)
    return name[0].lower() + name[1:] + "Pic"


# The instrument cluster.
# The wheel's middle stays free for the speed drawn over it: spokes from the hub ring outwards.
spokes = "".join(
    f'<line x1="{56 + 27 * math.sin(math.radians(a)):.1f}" y1="{56 - 27 * math.cos(math.radians(a)):.1f}" '
    f'x2="{56 + 40 * math.sin(math.radians(a)):.1f}" y2="{56 - 40 * math.cos(math.radians(a)):.1f}" '
    f'stroke="{GREY}" stroke-width="6"/>' for a in (90, 180, 270))
svg("wheelPic", 112, 112, f'<circle cx="56" cy="56" r="40" fill="none" stroke="{GREY}" stroke-width="7"/>{spokes}'
                          f'<circle cx="56" cy="56" r="27" fill="none" stroke="{DARK}" stroke-width="2"/>'
                          f'<rect x="52" y="12" width="8" height="9" fill="{CYAN}"/>')
ticks = "".join(f'<line x1="0" y1="{y}" x2="{8 if y % 20 == 7 else 4}" y2="{y}" stroke="{GREY}" stroke-width="1"/>'
                for y in range(7, 95, 10))
svg("rulerBarPic", 28, 100, f'<rect x="0.5" y="0.5" width="27" height="99" rx="3" fill="#1c1d21" stroke="{DARK}"/>{ticks}')
svg("signalPic", 21, 19, f'<polygon points="10.5,1 20,18 1,18" fill="none" stroke="{RED}" stroke-width="2"/>'
                         f'<polygon points="10.5,7 15,15 6,15" fill="{RED}"/>')
svg("leftGuiderPic", 46, 12, f'<line x1="0" y1="6" x2="38" y2="6" stroke="{CYAN}" stroke-width="2"/>'
                             f'<polygon points="46,6 36,0 36,12" fill="{CYAN}"/>')
svg("rightGuiderPic", 46, 12, f'<line x1="8" y1="6" x2="46" y2="6" stroke="{CYAN}" stroke-width="2"/>'
                              f'<polygon points="0,6 10,0 10,12" fill="{CYAN}"/>')
lamp_arrow("leftSignalPic", "left", GREEN)
lamp_arrow("rightSignalPic", "right", GREEN)
lamp_arrow("unLeftSignalPic", "left", DARK)
lamp_arrow("unRightSignalPic", "right", DARK)
lamp_arrow("controlLightSignalPic", "left", GREEN)
lamp_arrow("controlRightSignalPic", "right", GREEN)
triangle("brakeUpPic", RED, True)
triangle("brakeDownPic", RED, False)
triangle("gasUpPic", CYAN, True)
triangle("gasDownPic", CYAN, False)
svg("gearPic", 20, 22, f'<rect x="0.5" y="0.5" width="19" height="21" rx="4" fill="#0b4f5c" stroke="{CYAN}"/>')

# The scene function.
svg("carPic", 30, 50, f'<rect x="3" y="2" width="24" height="46" rx="8" fill="{WHITE}"/>'
                      f'<rect x="6" y="10" width="18" height="9" rx="2" fill="{DARK}"/>'
                      f'<rect x="6" y="34" width="18" height="6" rx="2" fill="{DARK}"/>')
svg("obstaclePic", 30, 30, f'<rect x="2" y="2" width="26" height="26" rx="6" fill="{ORANGE}"/>')
svg("arrowPic", 16, 16, arrow(8, 8, 14, 0, WHITE, 2))
svg("framePic", 100, 26, f'<rect x="1" y="1" width="98" height="24" rx="5" fill="none" stroke="{GREY}" stroke-width="1.5"/>')
scenes = {
    "goStraightPic": glyph_arrow(0), "byPassPic": glyph_arrow(30), "stopPic": lambda s: (
        f'<rect x="{s*0.32}" y="{s*0.32}" width="{s*0.36}" height="{s*0.36}" fill="{RED}"/>'),
    "startPic": lambda s: f'<polygon points="{s*0.38},{s*0.3} {s*0.72},{s/2} {s*0.38},{s*0.7}" fill="{GREEN}"/>',
    "summonPic": glyph_text("S"), "keepLanePic": lambda s: (
        f'<line x1="{s*0.3}" y1="{s*0.25}" x2="{s*0.3}" y2="{s*0.75}" stroke="{GREY}" stroke-width="2"/>'
        f'<line x1="{s*0.7}" y1="{s*0.25}" x2="{s*0.7}" y2="{s*0.75}" stroke="{GREY}" stroke-width="2"/>'
        + arrow(s / 2, s / 2, s * 0.4, 0, CYAN)),
    "idleFuncPic": glyph_text("Z", GREY), "followPic": lambda s: (
        f'<rect x="{s*0.38}" y="{s*0.2}" width="{s*0.24}" height="{s*0.2}" fill="{ORANGE}"/>'
        + arrow(s / 2, s * 0.62, s * 0.3, 0, CYAN)),
    "mergeLeftPic": glyph_arrow(-45), "mergeRightPic": glyph_arrow(45), "mergeCancelPic": glyph_text("X", RED),
    "onGoingFuncLeftPic": glyph_arrow(-90), "onGoingFuncRightPic": glyph_arrow(90), "uTurnPic": glyph_arrow(180),
    "avoidPic": glyph_text("!", ORANGE)}
for name, glyph in scenes.items():
    badge(name, 46, glyph)

# The traffic elements.
for label, letter in [("Single", "S"), ("Fusion", "F"), ("Rtk", "R"), ("Vision", "V"), ("Lidar", "L"),
                      ("Integrated", "I")]:
    badge(camel_icon(label), 24, glyph_text(letter))
LAMPS = {"redPic": (20, RED), "yellowPic": (51, YELLOW), "greenPic": (83, GREEN)}
svg("trafficLightPic", 36, 110, f'<rect x="1" y="1" width="34" height="108" rx="8" fill="#111215" stroke="{GREY}"/>' +
    "".join(f'<circle cx="18" cy="{y}" r="13" fill="{DARK}"/>' for y, _ in LAMPS.values()))
for name, (y, color) in LAMPS.items():
    svg(name, 36, 110, f'<circle cx="18" cy="{y}" r="13" fill="{color}"/>')
light_types = {"straightPic": [0], "turnLeftPic": [-90], "turnAroundPic": [180], "turnLeftAroundPic": [-90, 180],
               "turnAroundStraightPic": [180, 0], "turnLeftStraightPic": [-90, 0],
               "turnLeftAroundStraightPic": [-90, 180, 0]}
for name, angles in light_types.items():
    svg(name, 30, 30, "".join(arrow(15, 15, 22, a, GREEN, 3) for a in angles))
svg("speedLimitPic", 36, 36, f'<circle cx="18" cy="18" r="16" fill="{WHITE}" stroke="{RED}" stroke-width="4"/>')
warnings = ["Crossroad", "T Junction", "Y Junction", "Roundabout", "Series bends", "Uphill", "Downhill",
            "Alert \n people", "Alert \n children", "Watch lights", "Village", "Tunnel", "Accident \n area",
            "Slow down", "Detour \n both", "Detour \n left", "Detour \n right", "Road \n construction", "Dangerous"]
for label in warnings:
    letters = "".join(w[0].upper() for w in label.replace("\n", " ").split())[:2]
    svg(camel_icon(label), 56, 56, f'<polygon points="28,3 54,51 2,51" fill="{YELLOW}" stroke="#000" stroke-width="3"/>'
                                   + text(28, 44, letters, 16, "#000"))
prohibitions = ["No \n thoroughfare", "No entry", "No honking", "No truck", "No left", "No right", "No \n straight",
                "No \n overtaking", "No U turn", "No left \n right", "No straight \n left"]
for label in prohibitions:
    letters = "".join(w[0].upper() for w in label.replace("\n", " ").split()[1:])[:2]
    svg(camel_icon(label), 56, 56, f'<circle cx="28" cy="28" r="25" fill="{WHITE}" stroke="{RED}" stroke-width="6"/>'
                                   + text(28, 35, letters, 18, "#000")
                                   + f'<line x1="11" y1="11" x2="45" y2="45" stroke="{RED}" stroke-width="4"/>')
for label, angle in [("Keep left", -135), ("Keep \n right", 135)]:
    svg(camel_icon(label), 56, 56, f'<circle cx="28" cy="28" r="26" fill="{BLUE}"/>' + arrow(28, 28, 32, angle, WHITE, 5))

# The road elements.
DASHED = 'stroke-dasharray="8,6"'
lane_lines = "".join(f'<line x1="{x}" y1="0" x2="{x}" y2="95" stroke="{WHITE if x in (0, 318) else GREY}" '
                     f'stroke-width="2" {"" if x in (0, 318) else DASHED}/>' for x in (0, 106, 212, 318))
svg("lanePic", 318, 95, f'<rect x="0" y="0" width="318" height="95" fill="#24262b"/>{lane_lines}')
lane_types = [("normalPic", "N"), ("emergencyPic", "E"), ("escapePic", "Es"), ("busLanePic", "B"), ("brtPic", "Bt"),
              ("variablePic", "V"), ("disappearPic", "D"), ("newLanePic", "+"), ("accessPic", "A"), ("exitPic", "Ex"),
              ("rampLinkPic", "R"), ("constructingPic", "C"), ("parkingEntrancePic", "P"), ("parkingAreaPic", "Pa"),
              ("tidalLanePic", "T"), ("unknownLanePic", "?")]
for name, letters in lane_types:
    svg(name, 30, 30, f'<rect x="1" y="1" width="28" height="28" rx="6" fill="#0b3440" stroke="{CYAN}"/>'
                      + text(15, 20, letters, 12, CYAN))
roads = {"intersectionTJunctionPic": "M14 26 V12 M2 12 H26", "intersectionCrossroadsPic": "M14 2 V26 M2 14 H26",
         "intersectionYJunctionPic": "M14 26 V14 L4 3 M14 14 L24 3", "intersectionMultiFolksPic": "M14 26 V2 M14 14 L3 5 M14 14 L25 5 M2 14 H26",
         "intersectionObliquePic": "M14 26 V2 M4 22 L24 6", "intersectionMisalignedTPic": "M14 26 V10 M2 10 H26 M20 10 V2",
         "intersectionMisalignedYPic": "M14 26 V16 L5 3 M14 16 L24 8", "intersectionRoundAboutPic": "M14 26 V20 M14 2 V8 M2 14 H8 M20 14 H26"}
for name, path in roads.items():
    extra = '<circle cx="14" cy="14" r="6" fill="none" stroke="#ffffff" stroke-width="3"/>' if "RoundAbout" in name else ""
    svg(name, 28, 28, f'<path d="{path}" fill="none" stroke="{WHITE}" stroke-width="4" stroke-linecap="round"/>{extra}')
svg("intersectionUnknownPic", 28, 28, text(14, 21, "?", 18, GREY))
svg("changeLanePic", 28, 28, arrow(14, 14, 22, 45, GREEN, 3) + arrow(14, 14, 22, -45, GREEN, 3))
svg("unChangeLanePic", 28, 28, arrow(14, 14, 22, 45, DARK, 3) + arrow(14, 14, 22, -45, DARK, 3)
    + f'<line x1="3" y1="3" x2="25" y2="25" stroke="{RED}" stroke-width="3"/>')
svg("driveByLanePic", 28, 28, arrow(14, 14, 22, 0, GREEN, 3))
svg("unDriveByLanePic", 28, 28, arrow(14, 14, 22, 0, DARK, 3) + f'<line x1="3" y1="3" x2="25" y2="25" stroke="{RED}" stroke-width="3"/>')

(OUT / "icons").mkdir(parents=True, exist_ok=True)
for old in (OUT / "icons").glob("*.svg"):
    old.unlink()
for name, content in sorted(icons.items()):
    (OUT / "icons" / f"{name}.svg").write_text(content)
entries = "\n".join(f'    <file alias="{name}.svg">icons/{name}.svg</file>' for name in sorted(icons))
(OUT / "vehicle_panels.qrc").write_text(
    '<!DOCTYPE RCC>\n<!-- Written by scripts/make_panel_icons.py. -->\n<RCC version="1.0">\n'
    '  <qresource prefix="/icons">\n' + entries + '\n  </qresource>\n'
    '  <qresource prefix="/config">\n    <file alias="panel.ini">panel.ini</file>\n'
    '    <file alias="wheel.qss">wheel.qss</file>\n  </qresource>\n</RCC>\n')
print(f"{len(icons)} icons in {OUT / 'icons'}")
