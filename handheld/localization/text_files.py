"""Reads the text files of Localization.dll: one file per language, lines "number = text"."""
import re
from pathlib import Path
from typing import NamedTuple

FOLDER = Path(__file__).resolve().parent / "texts"


class Language(NamedTuple):
    name: str
    file: str
    code_page: str  # of a handheld sold with this language; its fonts hold just these characters


# In the order of the program's language index.
LANGUAGES = (
    Language("English", "en.txt", "cp1252"),
    Language("Simplified Chinese", "zh-hans.txt", "gb2312"),
    Language("Traditional Chinese", "zh-hant.txt", "big5"),
    Language("German", "de.txt", "cp1252"),
    Language("French", "fr.txt", "cp1252"),
    Language("Italian", "it.txt", "cp1252"),
    Language("Portuguese", "pt.txt", "cp1252"),
    Language("Spanish", "es.txt", "cp1252"),
    Language("Korean", "ko.txt", "euc_kr"),
)

LINE = re.compile(r"(\d{5}) = (.*)")


class TextFileError(Exception):
    """A file that cannot be understood; the message names file and line."""


class TextFile(NamedTuple):
    texts: dict  # id -> text
    frame: list  # the file without its translation: comment lines, and the ids in their order


def read(path):
    """Reads one file. A byte-order mark and Windows line ends, as editors leave them, do no harm."""
    try:
        lines = path.read_text(encoding="utf-8-sig").splitlines()
    except (OSError, UnicodeDecodeError) as error:
        raise TextFileError(f"{path.name}: cannot be read as UTF-8: {error}") from None
    texts, frame = {}, []
    for number, line in enumerate(lines, 1):
        if not line or line.startswith("#"):
            frame.append(line)
            continue
        match = LINE.fullmatch(line)
        if not match:
            raise TextFileError(f'{path.name}:{number}: neither "number = text" nor a comment: {line}')
        text_id, text = int(match[1]), match[2]
        if text_id in texts:
            raise TextFileError(f"{path.name}:{number}: {text_id} appears twice")
        if len(text) >= 2 and text[0] == text[-1] == '"':
            text = text[1:-1]
        elif text != text.strip():
            raise TextFileError(f"{path.name}:{number}: a text with a blank at its end needs quotation marks")
        texts[text_id] = text
        frame.append(text_id)
    return TextFile(texts, frame)


def read_all(folder=FOLDER):
    """All languages, in the order of LANGUAGES."""
    return [read(Path(folder) / language.file) for language in LANGUAGES]
