#!/usr/bin/env python3
"""Runs the measurement host without a display: exit statuses, messages and pictures."""
import os
import signal
import struct
import subprocess
import sys
import tempfile
import time
import unittest
import zlib
from collections import Counter

HOST = sys.argv.pop(1)

# Of colour scheme 0; the caption is in the colour of the curve.
TRACE = b"\x50\x50\x50"
CAPTION_PIXELS = 2000


def read_png(path):
    """Width, height and, for each colour, the count of its pixels. 8 bits a channel, not interlaced."""
    with open(path, "rb") as file:
        data = file.read()
    assert data[:8] == b"\x89PNG\r\n\x1a\n", path
    at, packed = 8, b""
    while at < len(data):
        length, kind = struct.unpack(">I4s", data[at:at + 8])
        body = data[at + 8:at + 8 + length]
        if kind == b"IHDR":
            width, height, depth, colour, _, _, interlace = struct.unpack(">IIBBBBB", body)
        elif kind == b"IDAT":
            packed += body
        at += length + 12
    assert depth == 8 and interlace == 0 and colour in (2, 6)
    size = 3 if colour == 2 else 4
    raw, stride = zlib.decompress(packed), width * size
    before, colours = bytearray(stride), Counter()
    for row in range(height):
        start = row * (stride + 1)
        line = bytearray(raw[start + 1:start + 1 + stride])
        unfilter(raw[start], line, before, size)
        colours.update(bytes(line[i:i + 3]) for i in range(0, stride, size))
        before = line
    return width, height, colours


def unfilter(kind, line, above, size):
    for i in range(len(line) if kind else 0):
        left = line[i - size] if i >= size else 0
        corner = above[i - size] if i >= size else 0
        if kind == 1:
            guess = left
        elif kind == 2:
            guess = above[i]
        elif kind == 3:
            guess = (left + above[i]) // 2
        else:
            base = left + above[i] - corner
            guess = min((left, above[i], corner), key=lambda v: abs(base - v))
        line[i] = (line[i] + guess) & 255


class CommandLine(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def write(self, name, text):
        with open(os.path.join(self.folder, name), "w", encoding="utf-8") as file:
            file.write(text)

    def host(self, *arguments):
        return subprocess.run([HOST, *arguments], cwd=self.folder, capture_output=True, text=True,
                              timeout=120)

    def expect(self, result, status, errors):
        self.assertEqual(result.stderr.splitlines(), ["sparlow-host: " + e for e in errors])
        self.assertEqual(result.returncode, status)

    def colours(self, picture, size=(1000, 600)):
        width, height, colours = read_png(os.path.join(self.folder, picture))
        self.assertEqual((width, height), size)
        return colours

    def pictures(self, folder="pictures"):
        path = os.path.join(self.folder, folder)
        return sorted(os.listdir(path)) if os.path.isdir(path) else []

    def test_measurement_leaves_three_pictures(self):
        result = self.host("--seconds", "2", "--scheme", "1", "--size", "500x300",
                           "--pictures", "deep/down")
        self.expect(result, 0, [])
        self.assertRegex(result.stdout, r"^\d+ samples in 2(\.0\d+)? s: delay min [\d.e-]+, median "
                         r"[\d.e-]+, 99th percentile [\d.]+, max [\d.]+ us; [\d.]+ samples/s\n"
                         r"pictures: deep/down/early.png deep/down/midway.png "
                         r"deep/down/finished.png\n$")
        self.assertEqual(self.pictures("deep/down"), ["early.png", "finished.png", "midway.png"])
        for picture in self.pictures("deep/down"):
            # Background, grid, frame and curve.
            self.assertGreaterEqual(len(self.colours("deep/down/" + picture, (500, 300))), 4)

    def test_long_record_is_rendered_in_its_picture(self):
        result = self.host("--synthetic", "300k")
        self.expect(result, 0, [])
        self.assertIn("300000 samples", result.stdout)
        self.assertGreater(self.colours("pictures/finished.png")[TRACE], 10 * CAPTION_PIXELS)

    def test_good_files(self):
        self.write("a b.txt", "# x y\n0 1\n1 2\n2 1\n")
        self.write("c", "0,5\n1,6\n")
        result = self.host("a b.txt", "c")
        self.expect(result, 0, [])
        self.assertIn("a b.txt: 3 samples, x 0 to 2, y 1 to 2\nc: 2 samples", result.stdout)
        self.assertEqual(self.pictures(), ["finished-1.png", "finished-2.png"])

    def test_one_bad_file_among_good_ones(self):
        self.write("good", "0 1\n1 2\n")
        self.write("word", "0 1\n1 two\n")
        self.expect(self.host("nosuch", "good", "word"), 1,
                    ["nosuch: No such file or directory", "word:2: 'two' is not a number"])
        self.assertEqual(self.pictures(), ["finished-1.png", "finished-2.png"])

    def test_good_part_of_a_truncated_file_is_shown(self):
        self.write("cut", "0 1\n1 2\n2")
        self.expect(self.host("cut"), 1, ["cut:3: the file ends after x, without y"])
        self.assertEqual(self.pictures(), ["finished.png"])

    def test_nothing_to_show(self):
        self.write("empty", "")
        self.write("nan", "0 nan\n")
        self.expect(self.host("nosuch"), 2, ["nosuch: No such file or directory"])
        self.expect(self.host("empty"), 2, ["empty: no samples"])
        self.expect(self.host("nan"), 2,
                    ["nan:1: not a finite number, skipped",
                     "nan: 1 sample skipped: not a finite number", "nan: no samples"])
        self.assertEqual(self.pictures(), [])

    def test_bad_options(self):
        self.expect(self.host("--bogus"), 2, ["unknown option '--bogus'; --help lists all"])
        self.expect(self.host("--seconds", "soon"), 2,
                    ["--seconds: 'soon' is not a number of seconds above 0"])
        self.write("file", "")
        self.expect(self.host("--pictures", "file/below"), 2, ["file/below: Not a directory"])

    def test_help_and_version(self):
        self.assertIn("usage: sparlow-host", self.host("--help").stdout)
        self.assertRegex(self.host("--version").stdout, r"^sparlow-host \d+\.\d+\.\d+\n$")

    def test_interrupt_ends_a_measurement_with_all_that_it_leaves(self):
        process = subprocess.Popen([HOST, "--seconds", "24"], cwd=self.folder, text=True,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.addCleanup(process.stdout.close)
        self.addCleanup(process.stderr.close)
        self.addCleanup(process.kill)
        while not self.pictures() and process.poll() is None:
            time.sleep(0.05)
        process.send_signal(signal.SIGINT)
        output, errors = process.communicate(timeout=60)
        self.assertEqual((process.returncode, errors), (0, ""))
        self.assertRegex(output, r"^\d+ samples in ")
        self.assertEqual(self.pictures(), ["early.png", "finished.png"])


if __name__ == "__main__":
    unittest.main()
