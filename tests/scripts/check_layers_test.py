#!/usr/bin/env python3
"""Runs the layer check over small trees, a sound one and that one with one thing wrong."""

import small_trees

SOUND = {
    "sparlow/sparlow.h": '#include "sparlow/graph/Graph.h"\n',
    "sparlow/platform/window/CWnd.h": "#include <cstdint>\n",
    "sparlow/platform/qt/Application.h": '#include "sparlow/platform/window/CWnd.h"\n',
    "sparlow/platform/qt/Peer.h": "#include <QWidget>\n",
    "sparlow/axis/DoublePair.h": "#include <emmintrin.h>\n",
    "sparlow/axis/Axis.h": '#include "sparlow/axis/DoublePair.h"\n',
    "sparlow/view/ViewData.h": '#include "sparlow/axis/Axis.h"\n',
    "sparlow/graph/Graph.h": '#include "sparlow/view/ViewData.h"\n#include "sparlow/platform/window/CWnd.h"\n',
    "examples/host/main.cpp": '#include "sparlow/platform/qt/Application.h"\n#include <QWidget>\n',
    "tests/qt/PeerTest.cpp": '#include "sparlow/platform/qt/Peer.h"\n',
}

# A file, what it holds instead, and where the check must point.
WRONG = [
    ("sparlow/axis/Axis.h", '\n  #  include "sparlow/view/ViewData.h"', "Axis.h:2: axis must not use view"),
    ("sparlow/graph/Graph.h", '#include "sparlow/platform/qt/Application.h"', "graph must not use platform/qt"),
    ("sparlow/graph/Graph.h", '#include "sparlow/sparlow.h"', "graph must not use sparlow.h"),
    ("sparlow/platform/qt/Peer.h", '#include "sparlow/axis/Axis.h"', "platform/qt must not use axis"),
    ("sparlow/graph/Graph.h", "#include <QWidget>", "Qt header <QWidget>"),
    ("sparlow/axis/Axis.h", "#include <emmintrin.h>", "not of the standard library"),
    ("sparlow/axis/Axis.h", '#include "Other.h"', "not named from the root"),
    ("sparlow/axis/Axis.h", '#include "sparlow/axis/Gone.h"', "no header sparlow/axis/Gone.h"),
    ("sparlow/axis/DoublePair.h", '#include "sparlow/axis/Axis.h"',
     "sparlow/axis/Axis.h -> sparlow/axis/DoublePair.h -> sparlow/axis/Axis.h"),
    ("sparlow/other/New.h", "", "not settled"),
    ("tests/graph/GraphTest.cpp", '#include "sparlow/platform/qt/Peer.h"', "is private"),
]

small_trees.run(SOUND, WRONG)
