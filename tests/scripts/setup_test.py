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


class Setup(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.tools = Path(folder.name) / "tools"
        self.tools.mkdir()
        self.log = Path(folder.name) / "log"
        for path in reversed(os.environ["PATH"].split(os.pathsep)):
            for tool in Path(path).glob("*"):
                # ccache under a compiler's name looks for that compiler further along.
                if tool.name == "ccache" or tool.resolve().name != "ccache":
                    (self.tools / tool.name).unlink(missing_ok=True)
                    (self.tools / tool.name).symlink_to(tool)
        self.lack("apt-get", "apt-cache", "dpkg-query", "sudo")

    def lack(self, *names):
        for name in names:
            (self.tools / name).unlink(missing_ok=True)

    def put(self, name, text):
        self.lack(name)
        (self.tools / name).write_text("#!/bin/bash\n" + text)
        (self.tools / name).chmod(0o755)

    def run_setup(self, *arguments, **environment):
        return subprocess.run([SETUP, *arguments], text=True, capture_output=True, check=False,
                              env={**os.environ, **environment, "PATH": str(self.tools)})

    def test_without_apt_it_tells_what_is_missing_and_that_alone(self):
        self.lack("ninja", "ninja-build", "ccache", "clang-format")
        self.put("cmake", "echo cmake version 3.18.4\n")
        ran = self.run_setup()
        self.assertEqual(ran.returncode, 1)
        told = [line.strip().split(" (")[0] for line in ran.stderr.splitlines()[1:]]
        self.assertEqual(told, ["cmake 3.22 or newer", "ninja"])

    def test_either_compiler_will_do_and_the_one_of_cxx_must(self):
        self.put("g++", "exit 1\n")
        self.put("clang++", "exit 0\n")
        ran = self.run_setup()
        self.assertEqual((ran.returncode, ran.stdout, ran.stderr), (0, "", ""))
        self.assertEqual(self.run_setup(CXX="no-such-compiler").returncode, 1)

    def test_with_apt_it_installs_what_is_missing_and_looks_again(self):
        bring = f"ln -s {shutil.which('ninja')} {self.tools}/ninja\n"
        self.put("apt-get", f'echo "$@" >>{self.log}\n[[ $* != *ninja-build* ]] || {bring}')
        # One package that this Debian doesn't have under that name.
        self.put("apt-cache", '[[ $2 == libclang-rt-dev ]] || echo "$2 | 1"\n')
        self.put("dpkg-query", "")
        self.put("sudo", 'exec "$@"\n')
        self.lack("ninja", "ninja-build")
        self.put("clang++", "exit 1\n")
        self.assertEqual(self.run_setup().returncode, 0)
        self.assertEqual(self.run_setup("--checks", "clang").returncode, 1)
        install = "-q -y install --no-install-recommends "
        calls = [call for call in self.log.read_text().splitlines() if "update" not in call]
        self.assertEqual(calls, [install + "ninja-build", install + "clang"])


unittest.main()
