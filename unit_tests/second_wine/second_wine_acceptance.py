"""What only the second Wine can do: a screen reader's view of the dialogs, and cameras whose pictures are not RGB32."""

import os
import re
import subprocess
import tempfile
import time
import unittest

import desktop
from host_run import WINE_RUN, HostRun, camera
from png_pixels import Picture

BUILD = os.environ["MODULE_CAMERA_BUILD"]
ROLES = {"50000": "Button", "50006": "Image", "50020": "Text", "50026": "Group", "50032": "Window"}
# What has a name, and where the focus goes.
CAPTURE = """Window "Camera Diagnostics"
Text "Camera Capture Test"
Button "Close the window"
Image "Camera"
Tab: Button "Close the window"
Tab: Image "Camera"
Tab: Text "Camera Capture Test"
Tab: Button "Close the window"
"""
BARCODE = """Window "Camera Diagnostics"
Text "Camera Barcode Test"
Button "Close the window"
Text "Hold a barcode in front of the camera, inside the marks."
Image "Camera"
Text "Press Fail if the camera does not read the barcode."
Button "Fail"
Tab: Button "Close the window"
Tab: Text "Hold a barcode in front of the camera, inside the marks."
Tab: Image "Camera"
Tab: Text "Press Fail if the camera does not read the barcode."
Tab: Button "Fail"
Tab: Text "Camera Barcode Test"
Tab: Button "Close the window"
"""


class AutomationAcceptance(unittest.TestCase):
    maxDiff = None

    def read(self, test, *answers):
        """What a screen reader is told of the dialog that comes up after these answers."""
        with tempfile.TemporaryFile() as output:
            reader = subprocess.Popen([WINE_RUN, os.path.join(BUILD, "unit_tests", "ui_automation_client.exe")],
                                      stdin=subprocess.PIPE, stdout=output, stderr=subprocess.DEVNULL)

            def read(_):
                reader.communicate(b"\n", timeout=60)
                desktop.press("Escape")

            desktop.answer(lambda: HostRun([camera()], "-Mcamera", f"Q{test}", "0", "--ui", "--answer", "ask",
                                           "--timeout", "60"), *answers, read, *((desktop.keys("alt+y"),) if answers else ()))
            output.seek(0)
            return output.read().decode().replace("\r", "")

    def check(self, name, expected, *answers):
        told = re.sub(r'\b500\d\d(?= ")', lambda number: ROLES.get(number[0], number[0]), self.read(name[0], *answers))
        with open(os.path.join(BUILD, f"ui-automation-{name}.txt"), "w", encoding="utf-8") as file:
            file.write(told)
        print(f"{name}:\n{told}", flush=True)
        named, window = "", None
        for line in told.splitlines():
            text = line.strip()
            if not line.startswith("Tab:"):
                text, *place = text.rsplit(" ", 4)
                left, top, width, height = map(float, place)
                window = window or (width, height)
                self.assertTrue(0 <= left < left + width <= window[0] and 0 <= top < top + height <= window[1], line)
            named += text + "\n" if not text.endswith('""') else ""
        self.assertEqual(named, expected)

    def test_capture_dialog(self):
        self.check("capture", CAPTURE, desktop.keys("Return"))

    def test_barcode_dialog(self):
        self.check("barcode", BARCODE)


class FormatAcceptance(unittest.TestCase):
    def test_colours_and_rows_are_right(self):
        for form in ("yuy2", "nv12"):
            with self.subTest(form):
                run = HostRun([camera(format=form)], "-Mcamera", "Qc", "0", "--ui", "--answer", "pass", "--timeout", "3")
                report, = run.reports
                self.assertEqual((report["result"], report["messages"]), (0, []), run.error)
                picture = Picture(run.picture("dialog-end"))
                self.assertIsNotNone(picture.find_corners(640, 480, ((255, 0, 0), (0, 255, 0), (0, 0, 255), (255, 255, 0)), 12))


class MonitorsAcceptance(unittest.TestCase):
    """On the monitors of tools/two_monitors."""

    def test_the_dialog_has_the_scale_of_the_monitor_that_it_is_dragged_to(self):
        video = r"HKCC\System\CurrentControlSet\Control\Video"
        listed = subprocess.run([WINE_RUN, "reg", "query", video, "/s"], stdout=subprocess.PIPE, check=True).stdout.decode()
        second, = re.findall(r"^(HKEY_CURRENT_CONFIG\\System.*\\0001)\r?$", listed, re.MULTILINE)
        subprocess.run([WINE_RUN, "reg", "add", second, "/v", "Dpi", "/t", "REG_DWORD", "/d", "192", "/f"], check=True)
        sizes = []

        def drag(window):
            sizes.append((window.width, window.height))
            for way in (1280, -1280):
                desktop.drag(window.x + 150, window.y + 20, window.x + 150 + way, window.y + 20)
                time.sleep(3)  # until Wine and Qt have followed
                window = desktop.Window(window.number)
                sizes.append((window.width, window.height))
            desktop.press("Escape")

        desktop.answer(lambda: HostRun([camera()], "-Mcamera", "Qc", "0", "--ui", "--answer", "ask", "--timeout", "60"),
                       desktop.keys("Return"), drag, desktop.keys("alt+y"))
        print(sizes, flush=True)
        (width, height), doubled, again = sizes
        self.assertEqual((doubled, again), ((2 * width, 2 * height), (width, height)))
