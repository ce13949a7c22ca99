"""That every text of the host has a German translation: the tool that collects the texts of the sources finds no new one."""

import glob
import os
import re
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree

HOST = os.path.realpath(os.path.join(os.path.dirname(__file__), "..", "..", "standalone", "host"))
LUPDATE = "/usr/lib/qt6/bin/lupdate"


def messages(root):
    """Context, text and its element, for all but the keys of the module, what is said about them, and Qt's own texts."""
    for context in root.iter("context"):
        if not re.fullmatch("CAMERA|ADVICE|Q.*", context.find("name").text):
            for message in context.iter("message"):
                yield context.find("name").text, message.find("source").text, message.find("translation")


class Translations(unittest.TestCase):
    def test_german_is_complete(self):
        sources = [path for suffix in ("cpp", "h") for path in glob.glob(f"{HOST}/**/*.{suffix}", recursive=True)]
        with tempfile.TemporaryDirectory() as folder:
            collected = os.path.join(folder, "all.ts")
            subprocess.run([LUPDATE, "-silent", *sources, "-ts", collected], check=True, stderr=subprocess.DEVNULL)
            wanted = {(context, text) for context, text, _ in messages(xml.etree.ElementTree.parse(collected).getroot())}
        german = xml.etree.ElementTree.parse(os.path.join(HOST, "translations", "module_host_de.ts")).getroot()
        there = {(context, text): translation for context, text, translation in messages(german)}
        self.assertGreater(len(wanted), 150, "the texts of the host")
        self.assertEqual(wanted - there.keys(), set(), "not translated")
        self.assertEqual(there.keys() - wanted, set(), "no longer in the program")
        for (_, text), translation in there.items():
            self.assertNotEqual("".join(translation.itertext()).strip(), "", text)
            for place in ("%1", "%2", "%3", "%4", "%n"):
                self.assertEqual(place in text, place in "".join(translation.itertext()), text)


if __name__ == "__main__":
    unittest.main()
