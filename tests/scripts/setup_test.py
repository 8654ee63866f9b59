#!/usr/bin/env python3
"""Runs the set-up on machines that lack something: folders of links to the tools of this one."""

import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SETUP = sys.argv.pop()
# What a package system is called by, and what it does here: note the call, then bring ninja.
PACKAGE_TOOLS = ("apt-get", "apt-cache", "dpkg-query", "sudo")
APT_GET = """#!/bin/bash
echo "$@" >>{log}
[[ $* != *install*ninja-build* ]] || ln -s {ninja} {tools}/ninja
"""


class Setup(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.tools = Path(folder.name) / "tools"
        self.tools.mkdir()
        self.log = Path(folder.name) / "log"
        for path in reversed(os.environ["PATH"].split(os.pathsep)):
            for tool in Path(path).glob("*"):
                link = self.tools / tool.name
                # ccache under a compiler's name looks for that compiler further along.
                if tool.name != "ccache" and tool.resolve().name == "ccache":
                    continue
                link.unlink(missing_ok=True)
                if tool.name not in PACKAGE_TOOLS:
                    link.symlink_to(tool)

    def lack(self, *names):
        for name in names:
            (self.tools / name).unlink(missing_ok=True)

    def put(self, name, text):
        (self.tools / name).unlink(missing_ok=True)
        (self.tools / name).write_text(text)
        (self.tools / name).chmod(0o755)

    def debian(self):
        ninja = shutil.which("ninja")
        self.put("apt-get", APT_GET.format(log=self.log, ninja=ninja, tools=self.tools))
        # One package that this Debian doesn't have under that name.
        self.put("apt-cache", '#!/bin/bash\n[[ $2 == libclang-rt-dev ]] || echo "$2 | 1"\n')
        self.put("dpkg-query", "#!/bin/bash\n")
        self.put("sudo", '#!/bin/bash\nexec "$@"\n')

    def run_setup(self, *arguments, **environment):
        return subprocess.run([SETUP, *arguments], text=True, capture_output=True, check=False,
                              env={**os.environ, **environment, "PATH": str(self.tools)})

    def calls(self):
        return self.log.read_text().splitlines() if self.log.exists() else []

    def test_where_all_is_there_nothing_is_said_or_installed(self):
        self.debian()
        ran = self.run_setup()
        self.assertEqual((ran.returncode, ran.stdout, ran.stderr), (0, "", ""))
        self.assertEqual(self.calls(), [])

    def test_without_apt_it_tells_what_is_missing_and_that_alone(self):
        self.lack("ninja", "ninja-build", "ccache", "clang-format")
        self.put("cmake", "#!/bin/bash\necho cmake version 3.18.4\n")
        ran = self.run_setup()
        self.assertEqual(ran.returncode, 1)
        told = [line.strip().split(" (")[0] for line in ran.stderr.splitlines()[1:]]
        self.assertEqual(told, ["cmake 3.22 or newer", "ninja"])
        ran = self.run_setup("--checks", "clang-format")
        self.assertEqual(ran.returncode, 1)
        self.assertEqual(len(ran.stderr.splitlines()), 2)

    def test_either_compiler_will_do_and_the_one_of_cxx_must(self):
        self.put("g++", "#!/bin/bash\nexit 1\n")
        self.put("clang++", "#!/bin/bash\nexit 0\n")
        self.assertEqual(self.run_setup().returncode, 0)
        self.assertEqual(self.run_setup(CXX="no-such-compiler").returncode, 1)

    def test_with_apt_it_installs_what_is_missing_and_looks_again(self):
        self.debian()
        self.lack("ninja", "ninja-build")
        self.assertEqual(self.run_setup().returncode, 0)
        self.assertEqual(self.calls()[1:], ["-q -y install --no-install-recommends ninja-build"])
        self.put("clang++", "#!/bin/bash\nexit 1\n")
        ran = self.run_setup("--checks", "clang")
        self.assertEqual(ran.returncode, 1)
        self.assertIn("clang++", ran.stderr)
        self.assertEqual(self.calls()[-1], "-q -y install --no-install-recommends clang")


unittest.main()
