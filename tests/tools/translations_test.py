"""The translations hold every text of the sources, and each says with the same parts what its source says."""
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ET

ROOT = pathlib.Path(__file__).parents[2]
FILES = sorted((ROOT / "translations").glob("*.ts"))
sys.path.insert(0, str(ROOT / "tools"))
from pseudo_locale import pseudo  # noqa: E402

PLACES = re.compile(r"%L?\d+|%n")
MNEMONIC = re.compile(r"&(?!&)\S")


def messages(path):
    """Each text as its context, source, and all forms of its translation."""
    for context in ET.parse(path).iter("context"):
        for message in context.iter("message"):
            translation = message.find("translation")
            forms = translation.findall("numerusform") or [translation]
            yield (context.find("name").text, message.find("source").text or "",
                   [form.text or "" for form in forms], translation.get("type"))


def edges(text):
    return text[:1].isspace(), text[-1:].isspace()


class Translations(unittest.TestCase):
    def test_hold_the_texts_of_the_sources(self):
        with tempfile.TemporaryDirectory() as folder:
            for path in FILES:
                shutil.copy(path, folder)
            subprocess.run([ROOT / "tools/update_translations", folder], check=True, capture_output=True)
            for path in FILES:
                self.assertEqual(path.read_text(), (pathlib.Path(folder) / path.name).read_text(),
                                 f"{path.name}: run tools/update_translations")

    def test_are_complete_and_keep_the_parts(self):
        for path in FILES:
            for context, source, forms, kind in messages(path):
                with self.subTest(file=path.name, context=context, source=source):
                    self.assertIsNone(kind, "not translated")
                    for form in forms:
                        self.assertEqual(set(PLACES.findall(form)) - {"%n"},
                                         set(PLACES.findall(source)) - {"%n"})
                        self.assertEqual(len(MNEMONIC.findall(form)), len(MNEMONIC.findall(source)))
                        self.assertEqual(edges(form), edges(source))

    def test_pseudo_texts_keep_what_stands_for_something_else(self):
        self.assertEqual(pseudo(" of %1 "), " [òf %1··] ")
        self.assertEqual(pseudo("&Zoom"), "[&Zòòm··]")
        self.assertEqual(pseudo("Page (*.csv)"), "[Pàgè (*.csv)··]")


if __name__ == "__main__":
    unittest.main()
