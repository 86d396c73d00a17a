#!/usr/bin/env python3
"""Writes the texts that the prepared reports' layouts show, marked as lupdate looks for them.

usage: layout_texts.py FOLDER
"""

import json
import pathlib
import sys
import tomllib

SHOWN = ("title", "noun", "note", "heading", "unit", "blank")


def texts_of(table):
    """The texts of a layout, of its columns or of its chart."""
    for key, value in table.items():
        if key in SHOWN:
            yield value
        elif key == "words":
            yield from value
        elif key == "chart":
            yield from texts_of(value)
        elif key == "column":
            for column in value:
                yield from texts_of(column)


def main():
    texts = {"rows", "no", "yes"}  # what stands for a text that a layout leaves out
    for layout in sorted(pathlib.Path(sys.argv[1]).glob("*.rpt")):
        texts.update(texts_of(tomllib.loads(layout.read_text(encoding="utf-8"))))
    for text in sorted(texts - {""}):
        print(f'QT_TRANSLATE_NOOP("ReportLayouts", {json.dumps(text, ensure_ascii=False)});')


main()
