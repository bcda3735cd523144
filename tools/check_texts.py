#!/usr/bin/env python3
"""Checks the texts of Localization.dll: complete, short enough for the screen, printable on the handheld.

    tools/check_texts.py [FOLDER]     checks the text files (of another folder)

Prints every fault and ends with 1, or a summary line and 0.
"""
import sys
import unicodedata
from pathlib import Path
from typing import NamedTuple

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "handheld" / "localization"))
import text_files  # noqa: E402


class Kind(NamedTuple):
    name: str
    room: int  # columns; a full-width character takes two
    ids: tuple


KINDS = (
    Kind("title", 20, (50004, 50066)),
    Kind("button", 10, (50002, 50003, 50063, 50064, 50095, 50096)),
    Kind("heading", 30, (50007, 50008, 50041, 50094)),
    Kind("option", 26, (50010, 50021, 50028, 50035, 50036, 50042, 50047, 50052, 50088)),
    Kind("value", 18, (50011, 50013, 50015, 50017, 50019, 50022, 50024, 50026, 50029, 50031, 50033, 50037, 50039,
                       50043, 50044, 50054, 50056, 50083, 50084, 50085)),
    Kind("description", 110, (50012, 50014, 50016, 50018, 50020, 50023, 50025, 50027, 50030, 50032, 50034, 50038,
                              50040, 50045, 50046, 50048, 50049, 50050, 50051, 50053, 50055, 50057)),
    Kind("label", 24, (50058, 50059, 50060, 50062)),
    Kind("component", 24, (50068, 50069, 50070, 50071, 50072)),
    Kind("column", 12, (50086,)),
    Kind("message", 120, (50076, 50077, 50078, 50080, 50081, 50097, 50101)),
    Kind("fragment", 70, (50098, 50099, 50100, 50102, 50103, 50104)),
    Kind("key", 255, (50091,)),
)
ALL_IDS = {text_id for kind in KINDS for text_id in kind.ids}

# A row of a settings page reads "option (value)"; the picture sizes are the same in every language.
ROW_ROOM = 38
ROWS = {
    50010: (50011, 50013, 50015, 50017, 50019),
    50021: (50022, 50024, 50026),
    50028: (50029, 50031, 50033),
    50035: ("1280x1024", "1280x960", "640x480", "320x240"),
    50036: (50037, 50039),
    50042: (50043, 50044),
    50047: (50043, 50083, 50084, 50085),
    50052: (50043, 50054, 50056),
    50088: (50043, 50044),
}

# Texts under which the setup page stores its choices, with the names that start-up reads.
KEYS = {50042: "camera sound", 50047: "instant review", 50052: "selftime", 50091: "business card"}
OTHER_KEYS = ("awb", "color", "imagequality", "resolution", "ae metering", "aviresolution", "recordwithaudio",
              "actionmode", "defaultfolder", "filename prefix", "jpgno", "avino", "brightness")

# Something is put before or after these; all other texts stand alone, without outer blanks.
JOINED_BEHIND = (50098, 50099)
JOINED_BEFORE = (50100, 50102, 50104)
JOINED_EITHER = (50103,)
OPENING_MARKS = "：'"

# English wording that other parts of the program repeat.
FIXED_ENGLISH = {50004: "Lumetta Camera", 50035: "Resolution", 50042: "Camera Sounds", 50043: "Off", 50044: "On",
                 50047: "Instant Review", 50052: "Self-Timer", 50058: "Filename prefix:",
                 50059: "Current counter value", 50060: "Save pictures in:", 50062: "Audio", 50083: "2 seconds",
                 50088: "Business Card Framing Aid", 50091: "business card", 50094: "Please select folder"}


def columns(text):
    return sum(2 if unicodedata.east_asian_width(c) in "WF" else 1 for c in text)


def character_faults(text, code_page):
    for c in text:
        if c in "%&":
            yield f'"{c}" has a meaning of its own in formats and captions'
        elif unicodedata.category(c) in ("Cc", "Cf", "Co", "Cn", "Cs", "Zl", "Zp"):
            yield f"invisible character U+{ord(c):04X}"
        else:
            try:
                c.encode(code_page)
            except UnicodeEncodeError:
                yield f"{c} (U+{ord(c):04X}) is not in the handheld's fonts ({code_page})"


def blank_faults(text_id, text):
    before, after = text[0].isspace(), text[-1].isspace()
    if text != text.strip() and "  " in text.replace(text.strip(), "x"):
        yield "more than one blank at the joint"
    if text_id in JOINED_BEHIND and (not before or after):
        yield "must begin, and not end, with a blank: it follows a path"
    elif text_id in JOINED_BEFORE and (before or not (after or text[-1] in OPENING_MARKS)):
        yield "must end, and not begin, with a blank: a path follows"
    elif text_id in JOINED_EITHER and after:
        yield "ends with a blank"
    elif text_id not in JOINED_BEHIND + JOINED_BEFORE + JOINED_EITHER and (before or after):
        yield "blank at the beginning or end"


def text_faults(kind, text_id, text, code_page):
    if not text.strip():
        yield "empty"
        return
    if columns(text) > kind.room:
        yield f"{columns(text)} columns, {kind.name} has room for {kind.room}: {text}"
    yield from character_faults(text, code_page)
    yield from blank_faults(text_id, text)


def row_faults(texts):
    for option, values in ROWS.items():
        labels = [texts.get(value, "") if isinstance(value, int) else value for value in values]
        for label in labels:
            row = f"{texts.get(option, '')} ({label})"
            if columns(row) > ROW_ROOM:
                yield f"{option}: row of {columns(row)} columns, room for {ROW_ROOM}: {row}"
        if len(set(labels)) < len(labels):
            yield f"{option}: two values with the same text: {', '.join(labels)}"


def key_faults(texts):
    taken = {name: "another setting" for name in OTHER_KEYS}
    taken.update((name, text_id) for text_id, name in KEYS.items())
    for text_id in KEYS:
        key = texts.get(text_id, "").casefold()
        owner = taken.setdefault(key, text_id)
        if owner != text_id:
            yield f'{text_id}: "{key}" is the stored name of {owner}'
        if "\\" in key:
            yield f"{text_id}: a stored name has no backslash"
    if texts.get(50091) != KEYS[50091]:
        yield f'50091: must stay "{KEYS[50091]}", it is no text but a stored name'


def language_faults(language, file):
    texts = file.texts
    yield from (f"{text_id}: missing" for text_id in sorted(ALL_IDS - texts.keys()))
    yield from (f"{text_id}: nobody asks for this text" for text_id in sorted(texts.keys() - ALL_IDS))
    for kind in KINDS:
        for text_id in kind.ids:
            if text_id in texts:
                for fault in text_faults(kind, text_id, texts[text_id], language.code_page):
                    yield f"{text_id}: {fault}"
    yield from row_faults(texts)
    yield from key_faults(texts)


def frame_faults(file, model):
    """The comments and the order of the texts are the same in all files; the first line names the language."""
    for number, (ours, theirs) in enumerate(zip(file.frame[1:], model.frame[1:]), 2):
        if ours != theirs:
            return [f"line {number}: differs from English outside the texts: {ours}"]
    return [] if len(file.frame) == len(model.frame) else ["lines at the end differ from English"]


def english_faults(file):
    for text_id, wanted in FIXED_ENGLISH.items():
        if file.texts.get(text_id) != wanted:
            yield f'{text_id}: must read "{wanted}"'
    rooms = {kind.name: kind.room for kind in KINDS} | {"row": ROW_ROOM}
    for name, room in rooms.items():
        if f"#   {name} {room}" not in file.frame:
            yield f"the table at the top does not give {room} columns to {name}"


def faults(folder):
    files = text_files.read_all(folder)
    for language, file in zip(text_files.LANGUAGES, files):
        own = list(language_faults(language, file))
        own += english_faults(file) if file is files[0] else frame_faults(file, files[0])
        yield from (f"{language.file}: {fault}" for fault in own)


def main(arguments):
    if len(arguments) > 1:
        sys.exit(__doc__)
    try:
        found = list(faults(Path(arguments[0]) if arguments else text_files.FOLDER))
    except text_files.TextFileError as error:
        found = [str(error)]
    for fault in found:
        print(fault, file=sys.stderr)
    if found:
        sys.exit(1)
    print(f"texts: {len(text_files.LANGUAGES)} languages of {len(ALL_IDS)} texts, all in order")


if __name__ == "__main__":
    main(sys.argv[1:])
