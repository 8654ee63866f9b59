#!/usr/bin/env python3
"""Runs the check of the documents over small trees, a sound one and that one with one thing wrong."""

import small_trees

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
    ("sparlow/data/Store.h", "struct Store;", "CONTRIBUTING.md: sparlow/data/Store.h"),
    ("docs/road-of-an-update.md", "`Store.h`, `BigGraph.cpp`", "Graph.cpp is on the road and not named"),
    ("docs/road-of-an-update.txt", "add sparlow/data/Old.h", "no file sparlow/data/Old.h"),
]

small_trees.run(SOUND, WRONG)
