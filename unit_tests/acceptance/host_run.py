"""One run of the finished programs: virtual cameras planted, module_host started on them, everything it left read back."""

import json
import os
import subprocess
import tempfile

PROJECT = os.path.realpath(os.path.join(os.path.dirname(__file__), "..", ".."))
PROGRAMS = os.environ.get("MODULE_CAMERA_PROGRAMS", os.path.join(PROJECT, "build", "windows", "stage"))
WINE_RUN = os.path.join(PROJECT, "tools", "wine_run")
ENCODE_CODES = os.path.join(PROJECT, "tools", "encode_codes")


def wine_path(path):
    return "Z:" + path.replace("/", "\\")


def camera(name="Test Camera", connection="usb", **more):
    """A camera's description; `more` replaces or adds fields."""
    fields = {"name": name, "manufacturer": "Acme", "description": "Acme Video Device", "connection": connection,
              "hardwareId": "USB\\VID_0ACE&PID_0001", "driverVersion": "1.2.3.4", "width": 640, "height": 480,
              "framesPerSecond": 30, "picture": {"kind": "test-pattern"}}
    fields.update(more)
    return fields


def run(program, *arguments, timeout=60):
    # Files instead of pipes: the first program of a Wine prefix starts services that inherit its output and outlive it.
    with tempfile.TemporaryFile() as output, tempfile.TemporaryFile() as error:
        done = subprocess.run([WINE_RUN, os.path.join(PROGRAMS, program), *arguments], stdin=subprocess.DEVNULL,
                              stdout=output, stderr=error, timeout=timeout, check=False)
        texts = []
        for file in (output, error):
            file.seek(0)
            texts.append(file.read().decode().replace("\r", ""))
    return done.returncode, *texts


def plant(cameras, folder):
    path = os.path.join(folder, "cameras.json")
    with open(path, "w", encoding="utf-8") as file:
        json.dump({"cameras": cameras}, file)
    drawings = os.path.join(folder, "drawings")
    os.mkdir(drawings)
    path = subprocess.run([ENCODE_CODES, path, drawings], stdout=subprocess.PIPE, check=True).stdout.decode().strip()
    status, _, error = run("virtual_camera.exe", "plant", wine_path(path))
    if status != 0:
        raise RuntimeError(f"the cameras could not be planted: {error}")


class HostRun:
    """The outcome of module_host: exit status, terminal texts, one report a test, the folder of pictures."""

    def __init__(self, cameras, *arguments, timeout=60):
        self.folder = tempfile.mkdtemp(prefix="module_camera-")
        self.pictures = os.path.join(self.folder, "pictures")
        report = os.path.join(self.folder, "report.json")
        plant(cameras, self.folder)
        if "--list" not in arguments:
            arguments += ("--json", wine_path(report))
        if "--ui" in arguments:
            arguments += ("--pictures", wine_path(self.pictures))
        self.status, self.output, self.error = run("module_host.exe", *arguments, timeout=timeout)
        self.reports = []
        if os.path.exists(report):
            with open(report, encoding="utf-8") as file:
                self.reports = [json.loads(line) for line in file]

    def picture(self, name):
        """The file of the only run's picture of this name; none where it has none."""
        files = [picture["file"] for picture in self.reports[0].get("pictures", ()) if picture["name"] == name]
        return os.path.join(self.folder, *files) if files else None
