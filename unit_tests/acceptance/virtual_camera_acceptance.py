"""Acceptance runs of the virtual camera itself: cameras that come and go while programs run, and its faults as the finished
DLL meets them."""

import os
import tempfile
import threading
import time
import unittest

from host_run import HostRun, camera, plant, run, wine_path

CAPTURE = ("-Mcamera", "Qc", "0", "--ui", "--answer", "pass")
LOST = "FAILED_TO_CAPTURE_DEVICE_WAS_REMOVED"


def work(*arguments):
    """What virtual_camera answers: its status and what it printed."""
    status, output, error = run("virtual_camera.exe", *arguments)
    return status, (output + error).strip()


def listed():
    return [line.partition(": ")[2] for line in run("module_host.exe", "--list")[1].splitlines() if line.startswith("Camera ")]


class PlugAcceptance(unittest.TestCase):
    maxDiff = None

    def test_cameras_go_and_come_by_their_names(self):
        plant([camera("Outer"), camera("Twin", "display"), camera("Twin"), camera("2")], tempfile.mkdtemp(prefix="module_camera-"))
        self.assertEqual(sorted(listed()), ["2", "Outer", "Twin", "Twin"])
        self.assertEqual(work("unplug", "outer"), (0, ""))
        self.assertEqual(work("unplug", "2"), (0, ""))
        self.assertEqual(sorted(listed()), ["2", "Twin"])
        self.assertEqual(work("list"), (0, "0: Outer (unplugged, opens: 0)\n1: Twin (plugged in, opens: 0)\n"
                                           "2: Twin (unplugged, opens: 0)\n3: 2 (plugged in, opens: 0)"))
        self.assertEqual(work("plug", "Outer"), (0, ""))
        self.assertEqual(sorted(listed()), ["2", "Outer", "Twin"])
        self.assertEqual(work("plug", "Inner"),
                         (1, 'There is no camera "Inner"; there are 0 "Outer", 1 "Twin", 2 "Twin", 3 "2".'))
        self.assertEqual(work("plug", "twin"), (1, 'Several cameras are called "twin"; give the number of one: 1 "Twin", 2 "Twin".'))
        self.assertEqual(work("unplant"), (0, ""))
        self.assertEqual(work("plug", "Outer"), (1, 'There is no camera "Outer": no camera is planted.'))
        self.assertEqual(work("list"), (0, "No camera is planted."))

    def test_a_description_is_checked_without_being_planted(self):
        with tempfile.TemporaryDirectory() as folder:
            for text, status, sentence in (
                    ('{"cameras": [{"name": "A", "connection": "usb", "width": 64, "height": 64, "picture": '
                     '{"kind": "barcode", "codes": [{"symbology": "qr", "text": "A"}]}}]}', 0, "in order, 1 camera(s)."),
                    ('{"cameras": 1}', 1, "cameras is the number 1, but must be a list.")):
                path = os.path.join(folder, "c.json")
                with open(path, "w", encoding="utf-8") as file:
                    file.write(text)
                self.assertEqual(work("check", wine_path(path)), (status, f"{wine_path(path)}: {sentence}"))
        status, output = work("plough", "A")
        self.assertEqual(status, 2)
        self.assertIn("allowed are plant FILE, unplant, plug NAME, unplug NAME, list, check FILE and --help", output)

    def test_a_camera_that_is_unplugged_from_outside_ends_the_test(self):
        over = threading.Event()

        def unplug():
            while "opens: 1" not in work("list")[1] and not over.wait(0.2):
                pass
            # Until the program has registered, it is told nothing.
            while not over.wait(2):
                work("plug", "Test Camera")
                work("unplug", "Test Camera")

        user = threading.Thread(target=unplug, daemon=True)
        user.start()
        outcome = HostRun([camera()], *CAPTURE, "--timeout", "30")
        over.set()
        user.join()
        report, = outcome.reports
        self.assertEqual((report["result"], report["messages"]), (4, [LOST]), outcome.error)
        self.assertLess(report["seconds"], 25)
        self.assertEqual(listed(), [])
        self.assertEqual(work("plug", "Test Camera"), (0, ""))
        self.assertEqual(listed(), ["Test Camera"])


class FaultAcceptance(unittest.TestCase):
    def outcomes(self, faults, *arguments, **more):
        outcome = HostRun([camera(faults=faults, **more)], *(arguments or (*CAPTURE, "--timeout", "2")))
        self.assertTrue(outcome.reports, outcome.error)
        return [(report["result"], report["messages"], report["seconds"]) for report in outcome.reports]

    def test_a_camera_that_is_slow_to_open_is_waited_for(self):
        (result, messages, seconds), = self.outcomes([dict(kind="slow-open", seconds=3)])
        self.assertEqual((result, messages), (0, []))
        self.assertGreater(seconds, 5)

    def test_a_camera_that_is_unplugged_while_it_opens_cannot_be_opened(self):
        def unplug():
            while "opens: 1" not in work("list")[1]:
                time.sleep(0.1)
            work("unplug", "Test Camera")

        work("unplant")  # what an earlier test opened does not count
        user = threading.Thread(target=unplug, daemon=True)
        user.start()
        (result, messages, _), = self.outcomes([dict(kind="slow-open", seconds=5)])
        user.join(20)
        self.assertEqual((result, messages), (4, ["CANNOT_ACCESS_DEVICE"]))

    def test_a_camera_that_returns_can_be_opened_again(self):
        outcome = HostRun([camera(faults=[dict(kind="removed", at=1), dict(kind="returns", at=2)]), camera("Other")],
                          "-Mcamera", "Qc", "--ui", "--answer", "pass", "--timeout", "3", "--repeat", "2")
        self.assertEqual([(report["camera"]["name"], report["result"], report["messages"]) for report in outcome.reports],
                         2 * [("Test Camera", 4, [LOST]), ("Other", 0, [])], outcome.error)

    def test_a_camera_that_is_slow_to_stop_is_waited_for(self):
        (result, messages, seconds), = self.outcomes([dict(kind="slow-stop", seconds=4)])
        self.assertEqual((result, messages), (0, []))
        self.assertGreater(seconds, 6)

    def test_a_busy_camera_can_be_opened_later(self):
        picture = dict(kind="barcode", codes=[dict(symbology="qr", text="Later1")])
        found = self.outcomes([dict(kind="busy", times=1)], "-Mcamera", "Qc b", "0", "--ui", "--answer", "pass", picture=picture)
        self.assertEqual([outcome[:2] for outcome in found],
                         [(4, ["CANNOT_ACCESS_DEVICE"]), (0, ["BARCODE_VALUE Later1"])])

    def test_a_refused_read_is_a_failed_capture(self):
        (result, messages, _), = self.outcomes([dict(kind="read-refused")])
        self.assertEqual((result, messages), (4, ["FAILED_TO_CAPTURE"]))


if __name__ == "__main__":
    unittest.main()
