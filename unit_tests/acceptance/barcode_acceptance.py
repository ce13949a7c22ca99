"""Acceptance runs of the barcode test: the finished DLL reads codes of a real encoder through virtual cameras."""

import unittest

import desktop
from host_run import HostRun, camera

BARCODE = ("-Mcamera", "Qb", "0", "--ui")
HINT = "POSSIBLE_DEFECTIVE_COMPONENTS: CAMERA_DEVICE"
LENGTHS = "".join(chr(ord("A") + place % 26) for place in range(61))


def code(text, symbology="qr", **more):
    return dict(symbology=symbology, text=text, **{"from": 1, **more})


def showing(*codes, faults=(), **more):
    """A camera before which these codes are held."""
    return camera(picture=dict(kind="barcode", codes=codes, **more), faults=list(faults))


class BarcodeAcceptance(unittest.TestCase):
    maxDiff = None

    def check(self, given, result, messages, *arguments):
        run = HostRun([given], *BARCODE, *(arguments or ("--answer", "pass")))
        report, = run.reports
        self.assertEqual((report["result"], report["messages"]), (result, messages), run.error)
        progress = [(entry["percent"], entry["text"]) for entry in report["progress"]]
        percents = [percent for percent, _ in progress]
        self.assertEqual(percents, sorted(percents), "progress only rises")
        self.assertEqual(run.status, {0: 0, 1: 1}.get(result, 3))
        return report

    def test_a_code_that_comes_into_view_is_reported(self):
        report = self.check(showing(code("Serial123abc")), 0, ["BARCODE_VALUE Serial123abc"])
        self.assertEqual([(entry["percent"], entry["text"]) for entry in report["progress"]],
                         [(0, ""), (30, ""), (50, ""), (50, ""), (100, "BARCODE_VALUE Serial123abc"), (100, "")])
        self.assertGreater(report["seconds"], 1)

    def test_every_symbology(self):
        for symbology, text in (("data-matrix", "Matrix7x"), ("aztec", "Aztec42"), ("pdf417", "Pdf417Text"),
                                ("code-128", "Label128x"), ("code-39", "LABEL39"),
                                ("ean-13", "4006381333931")):
            with self.subTest(symbology):
                self.check(showing(code(text, symbology), size=0.8, noise=0.02), 0, ["BARCODE_VALUE " + text])

    def test_an_implausible_value_gets_one_more_try(self):
        report = self.check(showing(code("Serial-123")), 4, ["BARCODE_CANCELED_DUE_INVALID_INPUT"])
        self.assertGreater(report["seconds"], 6)
        report = self.check(showing(code("Serial-123", to=3), code("Serial123", **{"from": 3})), 0,
                            ["BARCODE_VALUE Serial123"])
        self.assertGreater(report["seconds"], 6)

    def test_sixty_characters_are_the_most(self):
        self.check(showing(code(LENGTHS[:60])), 0, ["BARCODE_VALUE " + LENGTHS[:60]])
        self.check(showing(code(LENGTHS)), 4, ["BARCODE_CANCELED_DUE_INVALID_INPUT"])

    def test_closing_the_dialog_cancels_without_a_message(self):
        self.check(showing(), 4, [], "--answer", "close")

    def test_failures_of_the_stream(self):
        self.check(showing(faults=[dict(kind="removed", at=1)]), 4, ["FAILED_TO_CAPTURE_DEVICE_WAS_REMOVED"])
        report = self.check(showing(faults=[dict(kind="stall", at=0)]), 4, ["FAILED_TO_CAPTURE"])
        self.assertGreater(report["seconds"], 5)

    def test_both_tests_run_in_the_order_of_their_letters(self):
        run = HostRun([showing(code("Both1"))], "-Mcamera", "Qc b", "0", "--ui", "--answer", "pass", "--timeout", "1")
        self.assertEqual([(report["result"], report["messages"]) for report in run.reports],
                         [(0, []), (0, ["BARCODE_VALUE Both1"])])


class BarcodeUserAcceptance(unittest.TestCase):
    def check(self, step, result, messages):
        run = desktop.answer(lambda: HostRun([showing()], *BARCODE, "--answer", "ask"), step)
        report, = run.reports
        print("->", report["word"], report["messages"], flush=True)
        self.assertEqual((report["result"], report["messages"]), (result, messages))

    def test_a_click_on_the_fail_button_fails_with_the_hint_last(self):
        self.check(lambda window: desktop.click(window.x + window.width - 100, window.y + window.height - 35),
                   1, ["BARCODE_FAIL_SCAN_MESSAGE", HINT])

    def test_keyboard_alone_fails_or_closes(self):
        for keys, result, messages in ((("space",), 1, ["BARCODE_FAIL_SCAN_MESSAGE", HINT]), (("Tab", "space"), 4, []),
                                       (("Escape",), 4, [])):
            with self.subTest(keys):
                self.check(desktop.keys(*keys), result, messages)


if __name__ == "__main__":
    unittest.main()
