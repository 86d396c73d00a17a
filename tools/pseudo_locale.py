"""Makes a translation that shows what is not translated and what has no room: every text of a .ts file
in accented letters, half as long again and in brackets. What stands for something else stays: %1, %n,
mnemonics, line breaks, file name patterns.

usage: pseudo_locale.py TS-FILE PSEUDO-TS-FILE
"""
import re
import sys
import xml.etree.ElementTree as ET

LETTERS = str.maketrans("AaCcEeIiNnOoUuYy", "ÀàÇçÈèÌìÑñÒòÙùÝý")
KEPT = re.compile(r"(%L?\d+|%n|&.|\n|<[^>]*>|\(\*\.\w+\))")


def pseudo(text):
    """The text in the language of nobody; it grows by half, a short one by more."""
    parts = KEPT.split(text)
    said = "".join(part if index % 2 else part.translate(LETTERS) for index, part in enumerate(parts))
    letters = sum(len(part) for part in parts[::2])
    filling = "·" * max(2, letters * 2 // 5)
    before = said[:len(said) - len(said.lstrip())]
    after = said[len(said.rstrip()):]
    return f"{before}[{said.strip()}{filling}]{after}"


def main(source, target):
    tree = ET.parse(source)
    tree.getroot().set("language", "pseudo")
    for message in tree.iter("message"):
        translation = message.find("translation")
        translation.attrib.pop("type", None)
        text = pseudo(message.find("source").text or "")
        forms = translation.findall("numerusform")
        for form in forms:
            form.text = text
        if not forms:
            translation.text = text
    tree.write(target, encoding="utf-8", xml_declaration=True)


if __name__ == "__main__":
    main(*sys.argv[1:])
