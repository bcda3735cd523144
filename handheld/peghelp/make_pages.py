#!/usr/bin/env python3
"""Makes the help pages, one a language: make_pages.py OUTPUT_FOLDER

The pages in resources/help quote the program by number and name, so that they always agree with it: {50010} is that
text of Localization.dll, {ID_FILE_PLAY} a menu command, {IDS_PAGE_FILE} a page or menu title, {include FILE} another
file of the folder.
"""
import html
import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "handheld" / "localization"))
import text_files  # noqa: E402

SOURCES = ROOT / "resources" / "help"
MENUS = ROOT / "resources" / "languages"
PAGE = "Lumetta Mobile Camera Help"

PLACE = re.compile(r"\{([^{}]+)\}")
MENU_ITEM = re.compile(r'MENUITEM\s+"([^"]+)",\s*(\w+)')
TITLE = re.compile(r'(IDS_\w+) \+ IDS_\w+ \* LANGUAGE_\w+,\s*"([^"]+)"')


class PageError(Exception):
    """A page that cannot be made; the message says why."""


def captions(stem):
    """Menu commands and titles of a language, by name."""
    source = (MENUS / f"{stem}.rc").read_text(encoding="utf-8")
    return {name: caption for caption, name in MENU_ITEM.findall(source)} | dict(TITLE.findall(source))


def page(stem, texts):
    names = captions(stem)

    def fill(match):
        place = match[1]
        if place.startswith("include "):
            return expand(place.removeprefix("include "))
        text = texts.get(int(place)) if place.isdigit() else names.get(place)
        if text is None:
            raise PageError(f"{stem}.htm: nothing is called {match[0]}")
        return html.escape(text.strip(), quote=False)

    def expand(file):
        return PLACE.sub(fill, (SOURCES / file).read_text(encoding="utf-8"))

    return expand(f"{stem}.htm")


def main(arguments):
    if len(arguments) != 1:
        sys.exit(__doc__)
    try:
        for language, file in zip(text_files.LANGUAGES, text_files.read_all()):
            stem = Path(language.file).stem
            name = f"{PAGE}.htm" if stem == "en" else f"{PAGE}.{stem}.htm"
            Path(arguments[0], name).write_text(page(stem, file.texts), encoding="utf-8")
    except (PageError, text_files.TextFileError, OSError) as error:
        sys.exit(f"make_pages.py: {error}")


if __name__ == "__main__":
    main(sys.argv[1:])
