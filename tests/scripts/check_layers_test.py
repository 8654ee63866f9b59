#!/usr/bin/env python3
"""Runs the layer check over small trees, a sound one and that one with one thing wrong at a time."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK = sys.argv.pop()

SOUND = {
    "sparlow/sparlow.h": '#include "sparlow/ui/View.h"\n',
    "sparlow/platform/paint/CDC.h": "#include <cstdint>\n",
    "sparlow/platform/paint/CDC.cpp": '#include "sparlow/platform/paint/CDC.h"\n',
    "sparlow/axis/DoublePair.h": "#include <emmintrin.h>\n",
    "sparlow/platform/window/CWnd.h": '#include "sparlow/platform/paint/CDC.h"\n',
    "sparlow/platform/window/CWnd.cpp": '#include "sparlow/platform/window/CWnd.h"\n',
    "sparlow/platform/qt/Application.h": '#include "sparlow/platform/window/CWnd.h"\n',
    "sparlow/platform/qt/Peer.h": "#include <QWidget>\n",
    "sparlow/axis/Axis.h": '#include "sparlow/platform/paint/CDC.h"\n',
    "sparlow/data/Data.h": '#include "sparlow/axis/Axis.h"\n',
    "sparlow/view/ViewData.h": '#include "sparlow/data/Data.h"\n',
    "sparlow/graph/Graph.h": '#include "sparlow/view/ViewData.h"\n',
    "sparlow/ui/View.h": '#include "sparlow/graph/Graph.h"\n',
    "examples/host/main.cpp": '#include "sparlow/platform/qt/Application.h"\n#include <QWidget>\n',
    "tests/qt/PeerTest.cpp": '#include "sparlow/platform/qt/Peer.h"\n',
}

# A file, what it holds instead, and where the check must point.
WRONG = [
    ("sparlow/platform/paint/CDC.h", '#include "sparlow/axis/Axis.h"', "CDC.h:1: platform/paint must not use axis"),
    ("sparlow/axis/Axis.h", '#include "sparlow/data/Data.h"', "Axis.h:1: axis must not use data"),
    ("sparlow/data/Data.h", '\n  #  include "sparlow/view/ViewData.h"', "Data.h:2: data must not use view"),
    ("sparlow/view/ViewData.h", '#include "sparlow/graph/Graph.h"', "view must not use graph"),
    ("sparlow/graph/Graph.h", '#include "sparlow/ui/View.h"', "graph must not use ui"),
    ("sparlow/ui/View.h", '#include "sparlow/platform/qt/Application.h"', "ui must not use platform/qt"),
    ("sparlow/ui/View.h", '#include "sparlow/sparlow.h"', "ui must not use sparlow.h"),
    ("sparlow/sparlow.h", '#include "sparlow/platform/qt/Application.h"', "must not use platform/qt"),
    ("sparlow/platform/qt/Peer.h", '#include "sparlow/axis/Axis.h"', "platform/qt must not use axis"),
    ("sparlow/graph/Graph.h", "#include <QWidget>", "Qt header <QWidget>"),
    ("sparlow/platform/window/CWnd.h", "#include <QtCore/qglobal.h>", "Qt header <QtCore/qglobal.h>"),
    ("sparlow/axis/DoublePair.h", "#include <unistd.h>", "not of the standard library"),
    ("sparlow/platform/paint/CDC.h", "#include <emmintrin.h>", "not of the standard library"),
    ("sparlow/platform/paint/CDC.cpp", "#include <unistd.h>", "not of the standard library"),
    ("sparlow/platform/paint/CDC.cpp", '#include "sparlow/platform/window/CWnd.h"', "platform/paint must not use platform/window"),
    ("sparlow/platform/paint/CDC.h", '#include "sparlow/platform/window/CWnd.h"', "platform/paint must not use platform/window"),
    ("sparlow/view/ViewData.h", '#include "sparlow/platform/window/CWnd.h"', "view must not use platform/window"),
    ("sparlow/axis/Axis.h", '#include "Other.h"', "not named from the root"),
    ("sparlow/axis/Axis.h", '#include "sparlow/axis/Gone.h"', "no header sparlow/axis/Gone.h"),
    ("sparlow/axis/Axis.h", '#include "sparlow/axis/Axis.h"', "in a circle"),
    ("sparlow/other/New.h", "", "not settled"),
    ("examples/host/main.cpp", '#include "sparlow/platform/qt/Peer.h"', "is private"),
    ("tests/graph/GraphTest.cpp", '#include "sparlow/platform/qt/Peer.h"', "is private"),
]


def check(files):
    with tempfile.TemporaryDirectory() as root:
        for name, text in files.items():
            file = Path(root, name)
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(text, encoding="utf-8")
        return subprocess.run([CHECK, root], capture_output=True, text=True, check=False)


class CheckLayersTest(unittest.TestCase):
    def test_sound_tree_passes(self):
        result = check(SOUND)
        self.assertEqual((result.returncode, result.stdout + result.stderr), (0, ""))

    def test_each_wrong_include_is_found(self):
        for name, text, message in WRONG:
            with self.subTest(file=name, holds=text):
                result = check({**SOUND, name: text + "\n"})
                self.assertIn(message, result.stdout)
                self.assertEqual((result.returncode, result.stderr), (1, ""))

    def test_circle_over_several_headers_is_found(self):
        files = {f"sparlow/data/{a}.h": f'#include "sparlow/data/{b}.h"\n' for a, b in ("AB", "BC", "CA")}
        result = check({**SOUND, **files})
        self.assertEqual(result.returncode, 1)
        self.assertIn("sparlow/data/A.h -> sparlow/data/B.h -> sparlow/data/C.h -> sparlow/data/A.h",
                      result.stdout)


if __name__ == "__main__":
    unittest.main()
