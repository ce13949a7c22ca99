"""Acceptance runs of the program itself: its command line, its reports, its window, and modules that are broken."""

import json
import os
import re
import resource
import signal
import subprocess
import tempfile
import time
import unittest

import desktop
from host_run import PROGRAMS, HostRun, camera, plant, run, wine_path

CAPTURE = ("-Mcamera", "Qc", "0")
BROKEN_MODULE = os.environ.get("MODULE_CAMERA_BROKEN_MODULE", "")


def open_text(name):
    with open(name, encoding="utf-8") as file:
        return file.read()


class CommandLineAcceptance(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        plant([camera("Inner", "display"), camera("Outer")], cls.folder.name)

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def host(self, *arguments, status=0):
        code, output, error = run("module_host.exe", *arguments)
        self.assertEqual(code, status, output + error)
        return output, error

    def file(self, name):
        return os.path.join(self.folder.name, name)

    def content(self, name):
        return open_text(self.file(name))

    def test_help_and_version_need_no_module(self):
        output, _ = self.host("--help", "--module", "nothing.dll")
        for word in ("--json", "--repeat", "Exit codes"):
            self.assertIn(word, output)
        self.assertRegex(self.host("--version", "--module", "nothing.dll")[0], r"^module_host \d+\.\d+\.\d+\.\d+, Qt 6")
        self.assertIn("b, barcode", self.host("-Mcamera", "--help")[0])

    def test_standard_output_holds_json_only(self):
        cameras = json.loads(self.host("--list", "--json", "-")[0])
        self.assertEqual([(entry["id"], entry["name"]) for entry in cameras], [("0", "Inner"), ("1", "Outer")])
        output, error = self.host("-Mcamera", "Qc", cameras[1]["uniqueId"], "0", "--json", "-", status=3)
        lines = [json.loads(line) for line in output.splitlines()]
        self.assertEqual([(line["camera"]["name"], line["word"]) for line in lines],
                         [("Outer", "not supported"), ("Inner", "not supported")])
        self.assertIn("Not supported", error)
        self.assertEqual(self.host(*CAPTURE, "--quiet", status=3), ("", ""))

    def test_repeats_and_logs_in_german(self):
        output, _ = self.host(*CAPTURE, "--repeat", "3", "--language", "de", "--log", wine_path(self.file("log.txt")), status=3)
        self.assertEqual(output.count("Nicht unterst\u00fctzt"), 3)
        self.assertEqual(len(re.findall(r"^\d{4}-\d\d-\d\dT\S+ +Ergebnis", self.content("log.txt"), re.M)), 3)

    def test_reports_are_written_once_and_made_again(self):
        names = ["a.json", "a.html", "a.xml"]
        wanted = [word for option, name in zip(("--json", "--html", "--junit"), names)
                  for word in (option, wine_path(self.file(name)))]
        self.host(*CAPTURE, *wanted, "--reports", wine_path(self.file("each")), status=3)
        stem = r"Inner_capture_\d{4}-\d\d-\d\dT\d\d-\d\d-\d\d_not-supported"
        self.assertRegex(" ".join(sorted(os.listdir(self.file("each")))), rf"^{stem}\.html {stem}\.json$")
        before = [self.content(name) for name in names]
        _, error = self.host(*CAPTURE, *wanted[:2], status=2)
        self.assertIn("already there", error)
        self.host("--report", wine_path(self.file("a.json")), "--html", wine_path(self.file("b.html")))
        self.assertEqual([self.content(name) for name in (*names, "b.html")], [*before, before[1]])

    def test_a_report_that_finds_no_room_is_told(self):
        def no_room():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (2000, 2000))
        with tempfile.TemporaryFile() as error:
            done = subprocess.run([os.path.join(os.path.dirname(__file__), "..", "..", "tools", "wine_run"),
                                   os.path.join(PROGRAMS, "module_host.exe"), *CAPTURE, "--repeat", "3", "--quiet",
                                   "--json", wine_path(self.file("full.json"))], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                  stderr=error, timeout=60, check=False, preexec_fn=no_room)
            error.seek(0)
            self.assertIn(b"full.json could not be written", error.read())
        self.assertEqual(done.returncode, 4)
        for line in self.content("full.json").splitlines():
            json.loads(line)

    def test_a_broken_module_is_an_error_and_no_crash(self):
        for fault, sentence in (("null", "no interface"), ("throw", "bad day"), ("no-resource", "no names"),
                                ("no-manager", "cannot look for cameras"), ("run", "bad run"), ("unknown", "result 77")):
            with self.subTest(fault):
                os.environ["BROKEN_MODULE"] = fault
                output, error = self.host(*CAPTURE, "--module", wine_path(BROKEN_MODULE), status=4)
                self.assertIn(sentence, output + error)


class WindowAcceptance(unittest.TestCase):
    def test_a_whole_run_by_keyboard_alone(self):
        def close(window):
            desktop.keys("alt+y")(window)
            time.sleep(3)
            desktop.press("alt+F4")

        outcome = desktop.answer(lambda: HostRun([camera()], "--answer", "ask", "--timeout", "60"),
                                 desktop.keys("Return"), desktop.keys("Escape"), close,
                                 first=desktop.keys("Tab", "Tab", "space"))
        report, = outcome.reports
        self.assertEqual((report["word"], report["ending"]["by"], outcome.status), ("passed", "itself", 0))

    def test_cameras_come_and_go_while_the_window_is_open(self):
        with tempfile.TemporaryDirectory() as folder:
            log = os.path.join(folder, "log.txt")

            def wait_for(text):
                end = time.monotonic() + 20
                while time.monotonic() < end:
                    if os.path.exists(log) and open_text(log).rstrip().endswith(text):
                        return
                    time.sleep(0.1)
                self.fail(f"{text}: {open_text(log)}")

            def come_and_go(_):
                wait_for("Cameras: Inner, Outer")
                run("virtual_camera.exe", "unplug", "Outer")
                wait_for("Cameras: Inner")
                run("virtual_camera.exe", "plug", "Outer")
                wait_for("Cameras: Inner, Outer")
                desktop.press("ctrl+r")

            def pull_out(_):
                run("virtual_camera.exe", "unplug", "Inner")
                wait_for("Cameras: Outer")
                desktop.press("alt+F4")

            outcome = desktop.answer(lambda: HostRun([camera("Inner", "display"), camera("Outer")], "--answer", "ask",
                                                     "--timeout", "60", "--log", wine_path(log)),
                                     desktop.keys("Return"), pull_out, first=come_and_go)
        # What the test after it meets depends on how fast the list follows.
        self.assertEqual((outcome.reports[0]["word"], outcome.reports[0]["messages"]),
                         ("cancelled", ["FAILED_TO_CAPTURE_DEVICE_WAS_REMOVED"]))

    def test_closing_while_a_camera_hangs_in_opening_waits_for_the_end(self):
        def close(window):
            desktop.keys("Return")(window)
            time.sleep(1)
            desktop.press("alt+F4")

        outcome = desktop.answer(lambda: HostRun([camera(faults=[{"kind": "slow-open", "seconds": 4}])], "--answer", "ask"),
                                 close, first=desktop.keys("Tab", "Tab", "space"))
        report, = outcome.reports
        self.assertEqual((report["word"], report["ending"]["by"], outcome.status), ("cancelled", "user", 0))
        self.assertGreater(report["seconds"], 4)


if __name__ == "__main__":
    unittest.main()
