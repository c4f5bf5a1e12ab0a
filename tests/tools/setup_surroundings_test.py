"""tarn setup: what surrounds a setup program, planted libraries and the user's language."""

import ntpath
import os
import shutil
import subprocess
import tempfile
import unittest

from installed_product import InstalledProductTest, wait_until, window_titles
from tarn_program import ROOT

# Reports each load. With the names of libraries that the stub of NSIS or Windows' own libraries
# load; not those that the stub imports, which Windows takes from its list of "KnownDLLs".
# Not msimg32, uxtheme and version either, which Wine's own libraries load from the folder of every
# program with a window, unlike those of Windows.
PROGRAMS = os.path.join(ROOT, "build", "release", "tests", "programs")
PLANTED = os.path.join(PROGRAMS, "planted_library.dll")
NAMES = ("apphelp", "bcrypt", "clbcatq", "comdlg32", "cryptbase", "dwmapi", "iphlpapi", "ntmarta",
         "oleacc", "profapi", "propsys", "riched20", "riched32", "secur32", "setupapi", "shfolder",
         "userenv", "usp10", "windowscodecs", "winmm")


class PlantedLibrariesTest(InstalledProductTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.put("downloads/readme", b"")
        cls.tarn("setup", "app1.0", "--out", "downloads/setup.exe")
        for name in NAMES:
            shutil.copy(PLANTED, cls.path("downloads", name + ".dll"))

    def setUp(self):
        self.log = self.path("planted.log")
        # By default Wine takes most of these libraries from itself, wherever a program finds them.
        overrides = self.prefix.environment.get("WINEDLLOVERRIDES", "")
        self.environment = self.prefix.environment | {
            "PLANTED_LOG": "Z:" + self.log,
            "WINEDLLOVERRIDES": overrides + ";" + ",".join(NAMES) + "=n,b"}

    def run_there(self, *command):
        """Runs a program in the folder of the planted libraries: its exit code."""
        return subprocess.run(["wine", *command], cwd=self.path("downloads"), check=False,
                              stdin=subprocess.DEVNULL, capture_output=True, timeout=120,
                              env=self.environment).returncode

    def test_a_silent_setup_program_loads_none_from_its_folder(self):
        self.assertEqual(0, self.run_there("setup.exe", "/S"))
        self.assertFalse(os.path.exists(self.log))
        self.assertEqual(0, self.uninstall())
        shutil.rmtree(self.installed())

    def test_the_wizard_loads_none_from_its_folder(self):
        with subprocess.Popen(["wine", "setup.exe"], cwd=self.path("downloads"),
                              env=self.environment, stdin=subprocess.DEVNULL) as setup:
            self.assertTrue(wait_until(lambda: "TarnViewer 1.0" in window_titles()))
            self.prefix.run("taskkill", "/f", "/im", "setup.exe")
            setup.wait()
        self.assertFalse(os.path.exists(self.log))

    def test_a_program_with_the_usual_search_order_loads_all_of_them_from_its_folder(self):
        self.addCleanup(lambda: os.remove(self.log))
        shutil.copy(os.path.join(PROGRAMS, "load_libraries.exe"), self.path("downloads"))
        self.assertEqual(0, self.run_there("load_libraries.exe", *(name + ".dll" for name in NAMES)))
        with open(self.log, encoding="utf-16-le") as file:
            loaded = file.read().splitlines()
        folder = "Z:" + self.path("downloads").replace("/", "\\")
        self.assertEqual([ntpath.join(folder, name + ".dll") for name in NAMES], loaded)


class LanguageTest(InstalledProductTest):
    def test_the_wizard_has_the_users_language_with_its_own_texts(self):
        locales = tempfile.mkdtemp(prefix="tarn-locales-")
        self.addCleanup(shutil.rmtree, locales)
        subprocess.check_call(["localedef", "-i", "de_DE", "-f", "UTF-8",
                               os.path.join(locales, "de_DE.UTF-8")])
        self.tarn("setup", "app1.0", "--out", "german.exe")
        self.assertEqual(0, self.prefix.run(self.path("german.exe"), "/S"))
        self.addCleanup(shutil.rmtree, self.installed(), ignore_errors=True)
        self.addCleanup(self.uninstall)
        # Wine's trace of the texts that are drawn.
        drawn = self.path("drawn.txt")
        with open(drawn, "wb") as trace:
            process = subprocess.Popen(
                ["wine", self.installed("uninstall.exe"),
                 "_?=" + self.prefix.windows_path(self.installed())], stdin=subprocess.DEVNULL,
                stdout=subprocess.DEVNULL, stderr=trace, env=self.prefix.environment | {
                    "LC_ALL": "de_DE.UTF-8", "LOCPATH": locales, "WINEDEBUG": "+text"})
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)

        def has(text):
            with open(drawn, "rb") as trace:
                return text in trace.read()
        for text in (b"TarnViewer wird von diesem Computer entfernt. Dateien, die Sie dem",
                     b"Deinstall"):
            self.assertTrue(wait_until(lambda wanted=text: has(wanted)), text)


if __name__ == "__main__":
    unittest.main()
