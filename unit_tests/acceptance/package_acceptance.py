"""The packages as their users get them: unpacked into a folder with an awkward name, in a Wine prefix that nobody prepared,
without any setting of ours."""

import json
import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest
import zipfile

from host_run import PROJECT, camera, wine_path

BUILD = os.environ.get("MODULE_CAMERA_BUILD", os.path.join(PROJECT, "build", "windows"))
WINE, SERVER = (os.path.join(os.environ.get("MODULE_CAMERA_WINE", "/usr/lib/wine"), name)
                for name in ("wine64", "wineserver64"))
# What Wine has under a name, Windows has, too; and both have the names of Windows 10's sets of functions.
WINDOWS = "/usr/lib/x86_64-linux-gnu/wine/x86_64-windows"
COMPILER, OBJDUMP = "x86_64-w64-mingw32-g++-posix", "x86_64-w64-mingw32-objdump"
STAND_INS = ["mf.dll", "mfreadwrite.dll", "virtual_camera.exe"]
CAPTURE = ["-Mcamera", "Qc", "0", "--ui", "--answer", "pass", "--timeout", "1", "--json", "-"]


def pack(folder):
    subprocess.run(["cpack", "--config", os.path.join(BUILD, "CPackConfig.cmake"), "-B", folder], check=True,
                   stdout=subprocess.DEVNULL)
    return sorted(os.path.join(folder, name) for name in os.listdir(folder) if name.endswith(".zip"))


class PackageAcceptance(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        # Where a run under Wine has its own, the run removes it at the latest.
        cls.folder = tempfile.mkdtemp(prefix="module_camera-", dir=os.environ.get("MODULE_CAMERA_PREFIX"))
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        cls.zips = pack(os.path.join(cls.folder, "packages"))
        for file in cls.zips:
            with zipfile.ZipFile(file) as packed:
                packed.extractall(os.path.join(cls.folder, "Kamera prüfen"))
        unpacked = [os.path.join(cls.folder, "Kamera prüfen", os.path.basename(file)[:-4]) for file in cls.zips]
        cls.debug, cls.sdk, cls.program = unpacked
        cls.environment = {"WINEPREFIX": os.path.join(cls.folder, "prefix"), "HOME": cls.folder, "LC_ALL": "C.UTF-8"}
        for name in ("PATH", "DISPLAY", "XAUTHORITY"):
            if name in os.environ:
                cls.environment[name] = os.environ[name]
        # The installers of optional parts of Wine would ask.
        cls.wine(WINE, "wineboot", "-i", WINEDLLOVERRIDES="mscoree,mshtml=")
        # What Wine's services say goes where the first program's output goes, for as long as the server runs.
        cls.wine(SERVER, "-p")
        cls.addClassCleanup(cls.wine, SERVER, "-k", "-w")
        cls.wine(WINE, "cmd.exe", "/c", "exit")

    @classmethod
    def wine(cls, *command, **environment):
        # Files instead of pipes: the first program of a Wine prefix starts services that inherit its output.
        with tempfile.TemporaryFile() as output, tempfile.TemporaryFile() as error:
            done = subprocess.run(command, env={**cls.environment, **environment}, stdin=subprocess.DEVNULL, stdout=output,
                                  stderr=error, timeout=120, check=False)
            output.seek(0)
            error.seek(0)
            text = (output.read() + error.read()).decode().replace("\r", "")
            # Wine's own remarks are not the program's.
            return done.returncode, re.sub(r"^[0-9a-f]{4}:(fixme|err|warn):.*\n", "", text, flags=re.MULTILINE)

    def copy(self, *more):
        """A copy of the unpacked program with further files beside it."""
        folder = os.path.join(self.folder, "Kamera prüfen", self.id().rpartition(".")[2])
        shutil.copytree(self.program, folder)
        for file in more:
            shutil.copy(file, folder)
        return folder

    def with_camera(self, *more):
        folder = self.copy(*(os.path.join(BUILD, "virtual_camera", name) for name in STAND_INS), *more)
        description = os.path.join(folder, "cameras.json")
        with open(description, "w", encoding="utf-8") as file:
            json.dump({"cameras": [camera()]}, file)
        return folder, (os.path.join(folder, "virtual_camera.exe"), "plant", wine_path(description))

    def run_host(self, folder, *arguments, **environment):
        return self.wine(WINE, os.path.join(folder, "module_host.exe"), *arguments, **environment)

    def test_EveryImportIsInThePackageOrInWindows(self):
        files = [os.path.join(folder, name) for folder, _, names in os.walk(self.program) for name in names]
        binaries = [file for file in files if file.endswith((".dll", ".exe"))]
        available = {name.lower() for name in os.listdir(self.program) + os.listdir(WINDOWS)} - {"opencl.dll", "vulkan-1.dll"}
        for binary in binaries:
            headers = subprocess.run([OBJDUMP, "-p", binary], stdout=subprocess.PIPE, check=True).stdout.decode()
            imports = {name.lower() for name in re.findall(r"DLL Name: (\S+)", headers)}
            missing = {name for name in imports - available if not name.startswith("api-ms-win-core-")}
            self.assertEqual(missing, set(), binary)
            self.assertTrue(imports, binary)
        for name in ("platforms/qwindows.dll", "imageformats/qsvg.dll", "iconengines/qsvgicon.dll", "Qt6Svg.dll"):
            self.assertIn(os.path.join(self.program, *name.split("/")), binaries)
        self.assertIn("LGPL-3.txt", os.listdir(os.path.join(self.program, "licences")))

    def test_TheSameBuildGivesTheSameBytes(self):
        again = pack(os.path.join(self.folder, "again"))
        self.assertEqual(len(again), 3)
        for one, other in zip(self.zips, again):
            with open(one, "rb") as first, open(other, "rb") as second:
                self.assertTrue(first.read() == second.read(), os.path.basename(one))
            with zipfile.ZipFile(one) as packed:
                self.assertEqual(packed.namelist(), sorted(packed.namelist()))
                self.assertEqual(len({entry.date_time for entry in packed.infolist()}), 1)

    def test_NoCameraIsTold(self):
        self.assertEqual(self.run_host(self.program, "--list"), (0, "No camera was found.\n"))

    def test_ACameraIsTested(self):
        folder, plant = self.with_camera()
        self.assertEqual(self.wine(WINE, *plant), (0, ""))
        status, output = self.run_host(folder, *CAPTURE)
        self.assertEqual(status, 0, output)
        self.assertIn('"word":"passed"', output)
        self.assertIn("Camera Capture Test", output)
        self.assertEqual(self.wine(WINE, plant[0], "unplant"), (0, ""))

    def test_NothingIsPlantedOnWindows(self):
        folder, plant = self.with_camera()
        with open(plant[0], "r+b") as file:
            binary = file.read()
            file.seek(0)
            # To this copy Wine looks like Windows.
            file.write(binary.replace(b"wine_get_version", b"wine_not_version"))
        status, output = self.wine(WINE, *plant)
        self.assertEqual((status, output), (1, "Virtual cameras are made for Wine; on Windows, connect a camera.\n"))
        self.assertEqual(self.run_host(folder, "--list"), (0, "No camera was found.\n"))

    def test_ALibraryThatCannotBeLoadedIsNamed(self):
        folder = self.copy()
        library = os.path.join(folder, "host_services.dll")
        module = wine_path(os.path.join(folder, "module_camera.dll"))
        needed = f"{module} could not be loaded because of host_services.dll, which it needs: "
        status, output = self.run_host(folder, "--list", WINEDLLOVERRIDES="mfplat=")
        self.assertEqual(status, 2)
        self.assertRegex(output, r"^Windows lacks Media Foundation \((?i:mfplat.dll) is missing\).*Media Feature Pack.*\n$")
        with open(library, "w", encoding="utf-8") as file:
            file.write("no library")
        status, output = self.run_host(folder, "--list")
        self.assertEqual((status, output[:len(needed)]), (2, needed), output)
        self.assertNotIn("missing", output)
        os.remove(library)
        self.assertEqual(self.run_host(folder, "--list"), (2, needed + "it is missing.\n"))

    def test_TheSdkAloneBuildsAHost(self):
        build = os.path.join(self.folder, "minimal host")
        for command in (["-S", os.path.join(self.sdk, "examples", "minimal_host"), "-B", build, "-DCMAKE_SYSTEM_NAME=Windows",
                         f"-DCMAKE_CXX_COMPILER={COMPILER}", f"-DCMAKE_PREFIX_PATH={self.sdk}"], ["--build", build]):
            done = subprocess.run(["cmake", *command], cwd=self.folder, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                                  check=False)
            self.assertEqual(done.returncode, 0, done.stdout.decode())
        folder, plant = self.with_camera(os.path.join(build, "minimal_host.exe"))
        self.assertEqual(self.wine(WINE, *plant), (0, ""))
        status, output = self.wine(WINE, os.path.join(folder, "minimal_host.exe"))
        self.assertEqual(status, 0, output)
        self.assertIn("cameras: 1\ncamera 0: Test Camera\n", output)
        self.assertEqual(self.wine(WINE, plant[0], "unplant"), (0, ""))

    def test_EachHeaderOfTheSdkCompilesAlone(self):
        for file in pathlib.Path(self.sdk, "include").rglob("*.h"):
            if "<QString>" not in file.read_text():
                subprocess.run([COMPILER, "-std=c++20", "-fsyntax-only", "-I", os.path.join(self.sdk, "include"),
                                "-include", file, "-x", "c++", os.devnull], check=True)

    def test_SymbolsLieApart(self):
        for name in ("module_host.exe", "module_camera.dll", "host_services.dll", "host_style.dll"):
            for file, has in ((os.path.join(self.program, name), False), (os.path.join(self.debug, name + ".debug"), True)):
                sections = subprocess.run([OBJDUMP, "-h", file], stdout=subprocess.PIPE, check=True).stdout.decode()
                self.assertEqual(".debug_info" in sections, has, file)


if __name__ == "__main__":
    unittest.main()
