#!/usr/bin/env python3
"""Makes the C++ table of all texts: make_texts.py OUTPUT_HEADER"""
import sys
from pathlib import Path

import text_files


def literal(text):
    """A wide string literal in plain ASCII, so that no compiler setting can spoil it."""
    plain = (c if " " <= c <= "~" and c not in '\\"' else f"\\x{ord(c):04x}\" L\"" for c in text)
    return 'L"' + "".join(plain) + '"'


def header(files):
    ids = sorted(set().union(*(file.texts for file in files)))
    first, last = ids[0], ids[-1]
    lines = [
        "// Made by make_texts.py from the files in texts/.",
        "#pragma once",
        "",
        f"inline constexpr unsigned long kFirstTextId = {first};",
        f"inline constexpr const wchar_t* kTexts[{len(files)}][{last - first + 1}] = {{",
    ]
    for language, file in zip(text_files.LANGUAGES, files):
        lines.append(f"    {{  // {language.name}")
        lines += [f"        {literal(file.texts.get(text_id, ''))}," for text_id in range(first, last + 1)]
        lines.append("    },")
    lines.append("};")
    return "\n".join(lines) + "\n"


def main(arguments):
    if len(arguments) != 1:
        sys.exit(__doc__)
    try:
        Path(arguments[0]).write_text(header(text_files.read_all()), encoding="ascii")
    except (text_files.TextFileError, OSError) as error:
        sys.exit(f"make_texts.py: {error}")


if __name__ == "__main__":
    main(sys.argv[1:])
