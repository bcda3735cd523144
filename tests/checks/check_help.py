#!/usr/bin/python3
"""The help pages: every language tells the same, leads everywhere it promises and quotes whatever the program shows."""

import html.parser
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "handheld" / "peghelp"))
import make_pages  # noqa: E402

# Texts that the help has no word for: captions and headings that speak for themselves, the parts of the About
# window, and a name that is never shown.
UNQUOTED = {50007, 50008, 50041, 50066, 50068, 50069, 50070, 50071, 50072, 50086, 50091, 50094}

# What the viewer of the help knows; anything else it would pass over.
KNOWN_TAGS = {"html", "head", "meta", "title", "body", "h1", "h2", "h3", "p", "br", "b", "kbd", "a", "ul", "ol", "li",
              "table", "tr", "td", "th"}
UNCLOSED = {"meta", "br"}


class Reader(html.parser.HTMLParser):
    """Notes the tags, the anchors and links, and the text without its tags."""

    def __init__(self):
        super().__init__()
        self.shape, self.open, self.problems = [], [], []
        self.ids, self.links, self.words = [], [], ""

    def handle_starttag(self, tag, attributes):
        self.shape.append(tag)
        if tag not in KNOWN_TAGS:
            self.problems.append(f"<{tag}> is not among the tags of a help page")
        if tag not in UNCLOSED:
            self.open.append(tag)
        values = dict(attributes)
        if "id" in values:
            self.ids.append(values["id"])
        if "href" in values:
            self.links.append(values["href"])

    def handle_endtag(self, tag):
        if not self.open or self.open.pop() != tag:
            self.problems.append(f"</{tag}> closes nothing")

    def handle_data(self, data):
        self.words += data


def read(page):
    reader = Reader()
    reader.feed(page)
    reader.close()
    return reader


def problems_of(page, texts, names, model):
    yield from page.problems
    if page.open:
        yield f"never closed: {page.open}"
    # The order of keys and links inside a sentence is a language's own affair.
    inner = {"kbd", "a", "b"}
    if [tag for tag in page.shape if tag not in inner] != [tag for tag in model.shape if tag not in inner]:
        yield "its parts are not those of the English page"
    if len(page.ids) != len(set(page.ids)) or sorted(page.ids) != sorted(model.ids):
        yield f"its anchors are {page.ids}"
    if sorted(page.links) != sorted(model.links):
        yield f"its links are {page.links}"
    for link in page.links:
        if not link.startswith("#") or link[1:] not in page.ids:
            yield f"{link} leads nowhere"
    for number, text in texts.items():
        if number not in UNQUOTED and text.strip() not in page.words:
            yield f"says nothing of {number}: {text}"
    for name, caption in names.items():
        if caption not in page.words:
            yield f"says nothing of {name}: {caption}"


def main():
    failed = False
    files = list(zip(make_pages.text_files.LANGUAGES, make_pages.text_files.read_all()))
    model = None
    for language, file in files:
        stem = pathlib.Path(language.file).stem
        try:
            page = read(make_pages.page(stem, file.texts))
            model = model or page
            problems = list(problems_of(page, file.texts, make_pages.captions(stem), model))
        except (make_pages.PageError, OSError) as error:
            problems = [str(error)]
        print(f"FAILED help {language.name}: " + "; ".join(problems) if problems else f"ok help {language.name}")
        failed |= bool(problems)
    return failed


if __name__ == "__main__":
    sys.exit(main())
