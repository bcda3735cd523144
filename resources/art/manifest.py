"""Every bitmap and icon of the program: its resource id, its drawing, and how it is finished.

Finishes (render.py does them):
  PANEL    opaque picture
  OVERLAY  light glyph for the live view: gets a dark outline one pixel wide, the rest is transparent
  ON_STRIP part of the strip (button, lettering): blended with the strip where it will lie, transparent around
  SPRITE   hard-edged image on the transparent colour
"""

from collections import namedtuple

PANEL, OVERLAY, ON_STRIP, SPRITE = "panel", "overlay", "on_strip", "sprite"

# source: a drawing, or several laid over each other. box: x, y, width, height in the drawing.
# at: where an ON_STRIP bitmap lies on the strip.
Bitmap = namedtuple("Bitmap", "id name source box finish at", defaults=[None])
# sizes: tiles of the drawing, side by side, one per size.
Icon = namedtuple("Icon", "id name source box_per_size")


def tiles(source, width, height, finish, ids_and_names):
    """Bitmaps of one size that stand side by side in one drawing."""
    return [Bitmap(number, name, source, (place * width, 0, width, height), finish)
            for place, (number, name) in enumerate(ids_and_names)]


def button(source, width, height, at, normal, pressed, name):
    """The two pictures of a screen button, side by side in its drawing."""
    return [Bitmap(normal, f"{name}_normal", source, (0, 0, width, height), ON_STRIP, at),
            Bitmap(pressed, f"{name}_pressed", source, (width, 0, width, height), ON_STRIP, at)]


STRIP = [
    Bitmap(133, "strip_base", "strip.svg", (0, 0, 240, 108), PANEL),
    Bitmap(336, "strip_still_large", "strip.svg+emblem_still.svg+emblem_large.svg", (0, 0, 240, 108), PANEL),
    Bitmap(335, "strip_still_small", "strip.svg+emblem_still.svg+emblem_small.svg", (0, 0, 240, 108), PANEL),
    Bitmap(265, "strip_video", "strip.svg+emblem_video.svg", (0, 0, 240, 108), PANEL),
]

BUTTONS = [
    *button("button_shutter.svg", 49, 49, (174, 21), 287, 278, "button_shutter"),
    *button("button_round.svg+glyph_menu.svg", 30, 30, (61, 47), 285, 279, "button_menu"),
    *button("button_round.svg+glyph_play.svg", 30, 30, (101, 47), 286, 280, "button_play"),
    *button("button_zoom_out.svg", 32, 31, (91, 8), 281, 282, "button_zoom_out"),
    *button("button_zoom_in.svg", 32, 31, (127, 8), 283, 284, "button_zoom_in"),
]

# Lettering: one line per pair of slots (Still, Video): name, place on the strip, size, ids of the two sets.
# "symbols" is for German, Spanish, French, Italian and Portuguese, "english" for every other language.
Lettering = namedtuple("Lettering", "name at size symbols english")
LETTERING = [
    Lettering("shutter", (174, 76), (49, 9), (174, 175), (136, 137)),
    Lettering("menu", (60, 80), (32, 7), (178, 179), (155, 156)),
    Lettering("play", (100, 80), (32, 7), (176, 177), (134, 135)),
    Lettering("zoom_out", (60, 9), (27, 18), (180, 181), (143, 144)),
    Lettering("zoom_in", (163, 9), (25, 18), (182, 183), (145, 146)),
]


def lettering_bitmaps():
    """Each set is drawn in place on two strips, Still above Video."""
    for line in LETTERING:
        for language, ids in (("symbols", line.symbols), ("english", line.english)):
            for row, (mode, number) in enumerate(zip(("still", "video"), ids)):
                box = (line.at[0], line.at[1] + 108 * row, *line.size)
                yield Bitmap(number, f"lettering_{language}_{line.name}_{mode}", f"lettering_{language}.svg",
                             box, ON_STRIP, line.at)


OVERLAYS = [
    Bitmap(401, "centre_mark", "centre_mark.svg", (0, 0, 74, 34), OVERLAY),
    Bitmap(402, "card_frame_large", "card_frame_large.svg", (0, 0, 206, 128), OVERLAY),
    Bitmap(403, "card_frame_small", "card_frame_small.svg", (0, 0, 136, 84), OVERLAY),
    *tiles("status_icons.svg", 22, 20, OVERLAY,
           [(404, "mode_still"), (405, "mode_video"), (411, "white_balance_daylight"),
            (412, "white_balance_fluorescent"), (413, "white_balance_tungsten"),
            (414, "colour_black_and_white"), (415, "colour_sepia")]),
    *tiles("countdown.svg", 40, 40, OVERLAY,
           [(420 + digit, f"countdown_{digit}") for digit in range(11)] + [(431, "self_timer")]),
    *tiles("recording.svg", 36, 20, OVERLAY,
           [(440, "recording_idle"), (441, "recording_1"), (442, "recording_2"), (443, "recording_3")]),
    Bitmap(450, "zoom_scale", "zoom_scale.svg", (0, 0, 102, 16), OVERLAY),
    Bitmap(451, "zoom_mark", "zoom_scale.svg", (102, 0, 9, 9), OVERLAY),
    Bitmap(452, "memory_card", "memory_card.svg", (0, 0, 46, 18), OVERLAY),
]

OTHERS = [
    Bitmap(460, "background", "background.svg", (0, 0, 240, 180), PANEL),
    Bitmap(240, "about", "about.svg", (0, 0, 48, 48), PANEL),
    Bitmap(173, "folder", "folder.svg", (0, 0, 16, 16), SPRITE),
]

BITMAPS = [*STRIP, *BUTTONS, *lettering_bitmaps(), *OVERLAYS, *OTHERS]

ICONS = [
    Icon(128, "application", "application.svg", [(0, 0, 32, 32), (32, 0, 16, 16)]),
    Icon(200, "setting_white_balance", "setting_icons.svg", [(0, 0, 16, 16)]),
    Icon(196, "setting_colour", "setting_icons.svg", [(16, 0, 16, 16)]),
    Icon(201, "setting_quality", "setting_icons.svg", [(32, 0, 16, 16)]),
    Icon(199, "setting_resolution", "setting_icons.svg", [(48, 0, 16, 16)]),
    Icon(195, "setting_metering", "setting_icons.svg", [(64, 0, 16, 16)]),
]
