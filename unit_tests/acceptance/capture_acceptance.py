"""Acceptance runs of the capture test: the finished DLL, loaded by the host, on virtual cameras, with real windows."""

import os
import unittest

import desktop
from host_run import PROGRAMS, HostRun, camera, wine_path
from png_pixels import Picture

CAPTURE = ("-Mcamera", "Qc", "0", "--ui")
HINT = "POSSIBLE_DEFECTIVE_COMPONENTS: CAMERA_DEVICE"
CORNERS = ((255, 0, 0), (0, 255, 0), (0, 0, 255), (255, 255, 0))


def fault(kind, **more):
    return [dict(kind=kind, **more)]


class CaptureAcceptance(unittest.TestCase):
    maxDiff = None

    def check(self, run, result, word, messages, last_progress=(100, "")):
        report, = run.reports
        self.assertEqual((report["result"], report["word"], report["messages"]), (result, word, messages), run.error)
        progress = [(entry["percent"], entry["text"]) for entry in report["progress"]]
        self.assertEqual(progress[-1], last_progress)
        percents = [percent for percent, _ in progress]
        self.assertEqual(percents, sorted(percents), "progress only rises")
        self.assertEqual(run.status, {0: 0, 1: 1}.get(result, 3))
        return report

    def kinds(self, report):
        return [(request["kind"], request.get("text", "")) for request in report["requests"]]

    def test_right_picture_passes_and_is_shown_upright(self):
        for seconds in (2, 20):  # a busy machine paints the first frame later
            run = HostRun([camera()], *CAPTURE, "--answer", "pass", "--timeout", str(seconds))
            report = self.check(run, 0, "passed", [])
            self.assertEqual([(entry["percent"], entry["text"]) for entry in report["progress"]],
                             [(0, ""), (1, ""), (30, ""), (50, ""), (50, ""), (80, ""), (100, ""), (100, "")])
            self.assertEqual(self.kinds(report), [("message", "INITIAL_MESSAGE"), ("dialog", ""),
                                                  ("question", "CHECK_CAMERA_IMAGE")])
            self.assertGreater(report["seconds"], seconds)
            place = Picture(run.picture("dialog-end")).find_corners(640, 480, CORNERS)
            if place:
                break
        self.assertIsNotNone(place, "the camera's picture is on the screen as the dialog closes")

    def test_wrong_picture_fails_with_the_hint_last(self):
        run = HostRun([camera()], *CAPTURE, "--answer", "fail", "--timeout", "1")
        self.check(run, 1, "failed", ["CAMERA_RESULT_FAILED", HINT], (100, HINT))

    def test_closing_the_dialog_leads_to_the_question(self):
        run = HostRun([camera()], *CAPTURE, "--answer", "close", "--timeout", "30")
        report = self.check(run, 4, "cancelled", [])
        self.assertEqual(self.kinds(report)[-1], ("question", "CHECK_CAMERA_IMAGE"))
        self.assertLess(report["seconds"], 20)

    def test_removal_and_invalidation_during_the_picture(self):
        for kind in ("removed", "invalidated"):
            with self.subTest(kind):
                run = HostRun([camera(faults=fault(kind, at=1))], *CAPTURE, "--answer", "pass", "--timeout", "30")
                report = self.check(run, 4, "cancelled", ["FAILED_TO_CAPTURE_DEVICE_WAS_REMOVED"])
                self.assertEqual(report["progress"][-2]["text"], "FAILED_TO_CAPTURE_DEVICE_WAS_REMOVED")
                self.assertEqual(len(report["requests"]), 2, "no question is asked")

    def test_stall_times_out_after_just_over_five_seconds(self):
        run = HostRun([camera(faults=fault("stall", at=0))], *CAPTURE, "--answer", "pass")
        report = self.check(run, 5, "error", ["FAILED_TO_CAPTURE_DUE_TIMEOUT"])
        self.assertGreater(report["seconds"], 5)
        self.assertLess(report["seconds"], 9)

    def test_ticks_are_waited_out(self):
        run = HostRun([camera(faults=fault("tick", at=0.5))], *CAPTURE, "--answer", "pass", "--timeout", "2")
        self.check(run, 0, "passed", [])

    def test_failures_of_the_stream(self):
        for kind, more in (("end-of-stream", {"at": 0.5}), ("error", {"at": 0.5}), ("first-read-fails", {}),
                           ("size-change", {"at": 0.5, "width": 320, "height": 240})):
            with self.subTest(kind):
                run = HostRun([camera(faults=fault(kind, **more))], *CAPTURE, "--answer", "pass", "--timeout", "30")
                self.check(run, 4, "cancelled", ["FAILED_TO_CAPTURE"])

    def test_camera_that_cannot_be_opened_or_set_up(self):
        run = HostRun([camera(faults=fault("no-open"))], *CAPTURE, "--answer", "pass")
        self.check(run, 4, "cancelled", ["CANNOT_ACCESS_DEVICE"], (100, "CANNOT_ACCESS_DEVICE"))
        run = HostRun([camera(faults=fault("not-rgb32"))], *CAPTURE, "--answer", "pass")
        self.check(run, 5, "error", ["FAILED_TO_INITIALIZE"], (100, "FAILED_TO_INITIALIZE"))

    def test_without_windows_the_test_is_not_supported(self):
        run = HostRun([camera()], "-Mcamera", "Qc", "0")
        report, = run.reports
        self.assertEqual((report["result"], report["messages"], report["progress"]), (6, [], []))
        self.assertEqual(run.status, 3)

    def test_cancellation_and_events_of_the_host(self):
        run = HostRun([camera()], *CAPTURE, "--answer", "pass", "--cancel-after", "2", "--timeout", "30")
        self.check(run, 4, "cancelled", [])
        run = HostRun([camera()], *CAPTURE, "--answer", "pass", "--event-after", "2:1", "--timeout", "30")
        self.check(run, 4, "cancelled", ["TEST_ABORTED_BY_EVENT"])


class UserAcceptance(unittest.TestCase):
    """The tests ask a user, who answers with the keyboard and the mouse."""

    def answered(self, *steps):
        run = desktop.answer(lambda: HostRun([camera()], *CAPTURE, "--answer", "ask", "--timeout", "60"), *steps)
        report, = run.reports
        print("->", report["word"], report["messages"], flush=True)
        return report

    def test_keyboard_alone(self):
        # Return answers no question.
        for answer, result, messages in ((("alt+y",), 0, []), (("Return", "Tab", "Tab", "space"), 1,
                                                               ["CAMERA_RESULT_FAILED", HINT])):
            with self.subTest(answer):
                report = self.answered(desktop.keys("Return"), desktop.keys("Escape"), desktop.keys(*answer))
                self.assertEqual((report["result"], report["messages"]), (result, messages))
                self.assertLess(report["seconds"], 20)

    def test_mouse_drags_and_closes_the_dialog(self):
        places = []

        def drag_and_close(window):
            desktop.drag(window.x + 150, window.y + 20, window.x + 90, window.y + 60)
            moved = desktop.window_at(window.number, window.x - 60, window.y + 40)
            places.append((moved.x - window.x, moved.y - window.y))
            desktop.click(moved.x + moved.width - 24, moved.y + 24)

        report = self.answered(desktop.keys("Return"), drag_and_close, desktop.keys("Escape"))
        self.assertEqual(places, [(-60, 40)])
        self.assertEqual((report["result"], report["messages"]), (4, []))


class DiscoveryAcceptance(unittest.TestCase):
    maxDiff = None

    def test_cameras_are_listed_with_their_properties_in_order(self):
        run = HostRun([camera("Outer"), camera("Inner", "display", driverVersion="")], "--list")
        self.assertEqual(run.status, 0, run.error)
        lines = [line.strip() for line in run.output.splitlines()]
        self.assertEqual([line for line in lines if line.startswith("Camera ")], ["Camera 0: Inner", "Camera 1: Outer"])
        labels = [line.split(":")[0] for line in lines]
        common = ["Unique device identifier", "Description", "Manufacturer", "Type", "Hardware ID"]
        self.assertEqual(labels, ["Camera 0", *common, "Camera 1", *common, "Driver version"])
        self.assertIn("Type: Display", lines)
        self.assertIn("Type: USB", lines)
        self.assertIn("Driver version: 1.2.3.4", lines)

    def test_setup_classes_come_last_first(self):
        run = HostRun([camera("A", setupClass="camera"), camera("B", setupClass="media"),
                       camera("C", setupClass="image")], "--list")
        found = [line for line in run.output.splitlines() if line.startswith("Camera ")]
        self.assertEqual(found, ["Camera 0: B", "Camera 1: C", "Camera 2: A"])

    def test_no_camera(self):
        run = HostRun([], "--list")
        self.assertEqual((run.status, run.output), (0, "No camera was found.\n"))


class BadInputAcceptance(unittest.TestCase):
    def refused(self, *arguments):
        run = HostRun([camera()], *arguments)
        self.assertNotIn(run.status, (0, 1), run.output)
        self.assertEqual(run.reports, [])
        lines = [line for line in run.error.splitlines() if line]
        self.assertEqual(len(lines), 1, run.error)
        return lines[0]

    def test_every_mistake_gets_one_sentence(self):
        for arguments, words in (
                (("-Mcamera", "Qc", "7"), ["7", "0"]),
                (("-Mcamera", "Qc", "x"), ["x"]),
                (("-Mcamera", "Qz", "0"), ["z", "capture"]),
                (("-Mdisplay", "Qc", "0"), ["display", "camera"]),
                (("-Mcamera", "Qc", "0", "--bogus"), ["bogus"]),
                ((*CAPTURE, "--answer", "maybe"), ["maybe", "pass"]),
                ((*CAPTURE, "--timeout", "soon"), ["soon", "number"]),
                ((*CAPTURE, "--timeout", "4294967296"), ["4294967296", "4294967295"]),
                ((*CAPTURE, "--timeout", "2.5"), ["2.5", "whole number"]),
                (("-Mcamera", "Qc", "18446744073709551616"), ["18446744073709551616", "0"]),
                (("--list", "-Mcamera"), ["--list", "-M"]),
                ((*CAPTURE, "--html", "Z:\\nowhere\\a.html"), ["nowhere"]),
                (("--list", "--module", "nothing.dll"), ["nothing.dll"]),
                (("--list", "--module", wine_path(os.path.join(PROGRAMS, "host_services.dll"))),
                 ["host_services.dll", "GetModuleInterfaceInstance"])):
            with self.subTest(arguments):
                sentence = self.refused(*arguments)
                for word in words:
                    self.assertIn(word, sentence)


if __name__ == "__main__":
    unittest.main()
