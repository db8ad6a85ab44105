# SPDX-License-Identifier: MIT
"""The doctor's table of Java members is the library's, row by row and in its order."""
import os
import pathlib
import re
import unittest

SOURCE = pathlib.Path(os.environ["KOVCTL_SOURCE"])


def without_comments(text):
    return re.sub(r"//[^\n]*", "", text)


def library_rows():
    text = without_comments((SOURCE / "java/catalogue.h").read_text(encoding="utf-8"))
    rows = []
    for table in re.finditer(r"ClassTable k\w+\{\s*\"([^\"]+)\", \{(.*?)\n\}\};", text, re.S):
        name, body = table.groups()
        row = r"\b(constructor|method|staticMethod)\(((?:[^()\"]|\"[^\"]*\")*)\)"
        for kind, strings in re.findall(row, body):
            texts = re.findall(r"\"([^\"]*)\"", strings)
            member = "<init>" if kind == "constructor" else texts[0]
            rows.append((name, member, texts[-1], kind == "staticMethod"))
    # Every row of the header was understood.
    assert len(rows) == len(re.findall(r"\b(?:constructor|method|staticMethod)\(\s*\"", text))
    return rows


def doctor_rows():
    text = without_comments(
        (SOURCE / "tools/kovctl/doctor/catalogue.cpp").read_text(encoding="utf-8"))
    rows = re.findall(r"\{\s*\"([^\"]+)\",\s*\"([^\"]+)\",\s*\"([^\"]+)\",\s*(true|false)\}", text)
    return [(name, member, signature, static == "true") for name, member, signature, static in rows]


class Catalogue(unittest.TestCase):
    def test_tables_are_the_same(self):
        self.assertEqual(doctor_rows(), library_rows())

    def test_nothing_is_left_out(self):
        self.assertEqual(len(library_rows()), 112)
        self.assertEqual(len({row[0] for row in library_rows()}), 17)


if __name__ == "__main__":
    unittest.main()
