#!/usr/bin/env python3
"""Damages a copy of the text files in one way at a time and expects tools/check_texts.py to say so."""
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[3]
CHECK = ROOT / "tools" / "check_texts.py"
TEXTS = ROOT / "handheld" / "localization" / "texts"


class CheckTexts(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name) / "texts"
        shutil.copytree(TEXTS, self.folder)

    def run_check(self):
        return subprocess.run([sys.executable, str(CHECK), str(self.folder)], capture_output=True, text=True)

    def edit(self, file, old, new):
        path = self.folder / file
        content = path.read_text(encoding="utf-8")
        self.assertEqual(content.count(old), 1, f"{old!r} in {file}")
        path.write_text(content.replace(old, new), encoding="utf-8")

    def expect(self, *words):
        result = self.run_check()
        self.assertEqual(result.returncode, 1, result.stdout)
        self.assertNotIn("Traceback", result.stderr)
        for word in words:
            self.assertIn(word, result.stderr)

    def test_the_files_are_in_order(self):
        result = self.run_check()
        self.assertEqual((result.returncode, result.stderr), (0, ""))

    def test_windows_editors_do_no_harm(self):
        path = self.folder / "fr.txt"
        path.write_bytes(b"\xef\xbb\xbf" + path.read_bytes().replace(b"\n", b"\r\n"))
        self.assertEqual(self.run_check().returncode, 0)

    def test_missing_text(self):
        self.edit("de.txt", "50080 = Dieses Bild löschen?\n", "")
        self.expect("de.txt: 50080: missing")

    def test_repeated_text(self):
        self.edit("it.txt", "50096 = Elimina\n", "50096 = Elimina\n50099 = x\n")
        self.expect("it.txt", "50099 appears twice")

    def test_text_nobody_asks_for(self):
        self.edit("it.txt", "50096 = Elimina\n", "50096 = Elimina\n50111 = y\n")
        self.expect("it.txt: 50111: nobody asks")

    def test_missing_file(self):
        (self.folder / "ko.txt").unlink()
        self.expect("ko.txt: cannot be read")

    def test_not_utf8(self):
        path = self.folder / "es.txt"
        path.write_bytes(path.read_bytes().decode("utf-8").encode("cp1252", "replace"))
        self.expect("es.txt: cannot be read as UTF-8")

    def test_line_without_number(self):
        self.edit("pt.txt", "50003 = Cancelar", "Cancelar")
        self.expect("pt.txt:", 'neither "number = text"')

    def test_empty_text(self):
        self.edit("ko.txt", "50062 = 소리", '50062 = ""')
        self.expect("ko.txt: 50062: empty")

    def test_long_text(self):
        self.edit("de.txt", "50064 = Standard", "50064 = Zurücksetzen")
        self.expect("de.txt: 50064: 12 columns, button has room for 10")

    def test_full_width_characters_take_two_columns(self):
        self.edit("zh-hans.txt", "50003 = 取消", "50003 = 取消取消取消")
        self.expect("zh-hans.txt: 50003: 12 columns")

    def test_long_row(self):
        self.edit("it.txt", "50010 = Bilanciamento bianco", "50010 = Bilanciamento del bianco")
        self.edit("it.txt", "50015 = Fluorescenza", "50015 = Fluorescenza auto")
        self.expect("it.txt: 50010: row of 44 columns")

    def test_equal_values(self):
        self.edit("fr.txt", "50085 = 6 secondes", "50085 = 4 secondes")
        self.expect("fr.txt: 50047: two values with the same text")

    def test_character_outside_the_fonts(self):
        self.edit("de.txt", "50062 = Ton", "50062 = Tön\u0142")
        self.expect("de.txt: 50062: \u0142 (U+0142) is not in the handheld's fonts")

    def test_traditional_character_in_simplified_text(self):
        self.edit("zh-hans.txt", "50086 = 版本", "50086 = 版號")
        self.expect("zh-hans.txt: 50086", "U+865F")

    def test_invisible_character(self):
        self.edit("es.txt", "50062 = Audio", "50062 = Au\u200bdio")
        self.expect("es.txt: 50062: invisible character U+200B")

    def test_tab(self):
        self.edit("es.txt", "50062 = Audio", "50062 = Au\tdio")
        self.expect("es.txt: 50062: invisible character U+0009")

    def test_format_and_mnemonic_characters(self):
        self.edit("it.txt", "50062 = Audio", "50062 = %s & Audio")
        self.expect('50062: "%"', '50062: "&"')

    def test_unquoted_blank(self):
        self.edit("it.txt", "50062 = Audio", "50062 = Audio ")
        self.expect("it.txt:", "needs quotation marks")

    def test_stray_blank(self):
        self.edit("it.txt", "50062 = Audio", '50062 = "Audio "')
        self.expect("it.txt: 50062: blank at the beginning or end")

    def test_missing_joint(self):
        self.edit("it.txt", '50099 = " è stato salvato."', "50099 = è stato salvato.")
        self.edit("it.txt", '50100 = "Eliminare la cartella "', "50100 = Eliminare la cartella")
        self.expect("it.txt: 50099: must begin", "it.txt: 50100: must end")

    def test_wide_joint(self):
        self.edit("it.txt", '50099 = " è stato salvato."', '50099 = "  è stato salvato."')
        self.expect("it.txt: 50099: more than one blank")

    def test_equal_stored_names(self):
        self.edit("ko.txt", "50052 = 셀프타이머", "50052 = 카메라 소리")
        self.expect('ko.txt: 50052: "카메라 소리" is the stored name of 50042')

    def test_stored_name_of_another_setting(self):
        self.edit("es.txt", "50047 = Revisión inmediata", "50047 = Brightness")
        self.expect('es.txt: 50047: "brightness" is the stored name of another setting')

    def test_stored_name_of_another_option(self):
        self.edit("es.txt", "50047 = Revisión inmediata", "50047 = SelfTime")
        self.expect('es.txt: 50047: "selftime" is the stored name of 50052')

    def test_stored_name_with_backslash(self):
        self.edit("es.txt", "50047 = Revisión inmediata", "50047 = Ver\\ya")
        self.expect("es.txt: 50047: a stored name has no backslash")

    def test_translated_stored_name(self):
        self.edit("de.txt", "50091 = business card", "50091 = Visitenkarte")
        self.expect("de.txt: 50091: must stay")

    def test_changed_comment(self):
        self.edit("de.txt", "# Self-timer: option;", "# Selbstauslöser: option;")
        self.expect("de.txt: line", "differs from English outside the texts")

    def test_reordered_texts(self):
        self.edit("de.txt", "50002 = OK\n50003 = Abbrechen\n", "50003 = Abbrechen\n50002 = OK\n")
        self.expect("de.txt: line", "differs from English")

    def test_lost_end(self):
        path = self.folder / "de.txt"
        path.write_text(path.read_text(encoding="utf-8") + "# end\n", encoding="utf-8")
        self.expect("de.txt: lines at the end differ")

    def test_fixed_english(self):
        self.edit("en.txt", "50052 = Self-Timer", "50052 = Self Timer")
        self.expect('en.txt: 50052: must read "Self-Timer"')

    def test_stated_room(self):
        self.edit("en.txt", "#   button 10\n", "#   button 12\n")
        self.expect("en.txt: the table at the top does not give 10 columns to button")


if __name__ == "__main__":
    unittest.main()
