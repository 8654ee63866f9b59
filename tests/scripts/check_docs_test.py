#!/usr/bin/env python3
"""Runs the check of the documents over small trees, a sound one and that one with one thing wrong."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK = sys.argv.pop()

SOUND = {
    "sparlow/data/Store.h": "class Store;\nint end;\n",
    "sparlow/graph/Graph.cpp": "",
    "README.md": "`sparlow/data` and `sparlow/data/Store.h`, `sparlow-host`, \"sparlow/graph/Graph.cpp\".",
    "CONTRIBUTING.md": "<!-- part of sparlow/data/Store.h -->\n```cpp\nclass Store;\n```\n",
    "docs/road-of-an-update.md": "Add: `Store.h`. Paint: `Graph.cpp`.",
    "docs/road-of-an-update.txt": "add sparlow/data/Store.h\npaint sparlow/graph/Graph.cpp\n",
}

# A file, what it holds instead, and what must be told of it.
WRONG = [
    ("README.md", "See `sparlow/data/Stores.h`.", "README.md: no file sparlow/data/Stores.h"),
    ("sparlow/data/Store.h", "struct Store;\n", "CONTRIBUTING.md: sparlow/data/Store.h"),
    ("docs/road-of-an-update.md", "`Store.h`, `BigGraph.cpp`", "Graph.cpp is on the road and not named"),
    ("docs/road-of-an-update.txt", "add sparlow/data/Old.h\n", "no file sparlow/data/Old.h"),
]


def run_check(files):
    with tempfile.TemporaryDirectory() as folder:
        for name, text in files.items():
            path = Path(folder, name)
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
        return subprocess.run([CHECK, folder], capture_output=True, text=True, check=False)


class CheckDocs(unittest.TestCase):
    def test_a_sound_tree_has_no_faults(self):
        result = run_check(SOUND)
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))

    def test_each_fault_is_found(self):
        for name, text, told in WRONG:
            with self.subTest(told):
                result = run_check({**SOUND, name: text})
                self.assertEqual(result.returncode, 1)
                self.assertIn(told, result.stdout)


unittest.main()
