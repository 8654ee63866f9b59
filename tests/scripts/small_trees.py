"""Tests of a check that is run over small trees: a sound one, and that one with one thing wrong."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path


def run(sound, wrong):
    """Runs the check that the last argument of the program names.

    sound: what each file of a sound tree holds. wrong: a file, what it holds instead, and what the
    check must print then.
    """
    check = sys.argv.pop()

    def result_of(files):
        with tempfile.TemporaryDirectory() as root:
            for name, text in files.items():
                file = Path(root, name)
                file.parent.mkdir(parents=True, exist_ok=True)
                file.write_text(text, encoding="utf-8")
            ran = subprocess.run([check, root], capture_output=True, text=True, check=False)
            return ran.returncode, ran.stdout, ran.stderr

    class SmallTrees(unittest.TestCase):
        def test_a_sound_tree_passes(self):
            self.assertEqual(result_of(sound), (0, "", ""))

        def test_each_fault_is_found(self):
            for name, text, message in wrong:
                with self.subTest(file=name, holds=text):
                    code, printed, errors = result_of({**sound, name: text + "\n"})
                    self.assertIn(message, printed)
                    self.assertEqual((code, errors), (1, ""))

    tests = unittest.defaultTestLoader.loadTestsFromTestCase(SmallTrees)
    sys.exit(not unittest.TextTestRunner().run(tests).wasSuccessful())
