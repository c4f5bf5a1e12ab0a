"""What the tests of setup programs share: a Wine prefix of their own, and an application to install."""

import os
import re
import shutil
import subprocess
import tempfile
import time
import unittest

from tarn_program import JDK, LAUNCHER, ROOT, RUNTIMES, PROGRAMS, run

SOURCES = os.path.join(ROOT, "tests", "tools", "installed_application")
PATIENCE = 120  # seconds, for a busy machine

# Keys that every Windows has, but a new prefix lacks.
USUAL_KEYS = [root + "\\Software\\" + key for root in ("HKCU", "HKLM") for key in (
    "Classes\\Applications", "RegisteredApplications",
    "Microsoft\\Windows\\CurrentVersion\\Uninstall")] + [
    key + "\\Installer\\" + kind
    for key in ("HKCU\\Software\\Microsoft", "HKLM\\Software\\Classes")
    for kind in ("Products", "Features", "UpgradeCodes")]


def wait_until(condition):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        if condition():
            return True
        time.sleep(0.05)  # polling interval
    return False


def read(path):
    with open(path, "rb") as file:
        return file.read()


def window_titles():
    """The titles of the windows on the screen."""
    tree = subprocess.run(["xwininfo", "-root", "-tree"], check=False, capture_output=True)
    return re.findall(r'^ +0x[0-9a-f]+ "(.*)": \(', tree.stdout.decode(errors="replace"), re.M)


class Prefix:
    """A copy of the session's Wine prefix, so that nothing that is installed reaches other tests."""

    def __init__(self):
        source = os.environ["WINEPREFIX"]
        # Before the copy, what is in the server's memory has to be in its files.
        subprocess.run(["wine", "reg", "query", "HKCU\\Software"], check=True, capture_output=True)
        self.path = tempfile.mkdtemp(prefix="tarn-setup-prefix-")
        for name in os.listdir(source):
            if name != "drive_c":
                subprocess.check_call(["cp", "-a", os.path.join(source, name), self.path])
        drive = os.path.join(self.path, "drive_c")
        os.mkdir(drive)
        for name in os.listdir(os.path.join(source, "drive_c")):
            # Windows' own files are not written to.
            linked = ["-l"] if name == "windows" else []
            subprocess.check_call(["cp", "-a", *linked, os.path.join(source, "drive_c", name), drive])
        self.environment = dict(os.environ, WINEPREFIX=self.path)
        self.environment.pop("TARN_WINE_SESSION", None)
        # A server of its own that stays, with no pipe of a test as its output.
        self.call(["wineserver", "-p"])
        for key in USUAL_KEYS:
            self.run("reg", "add", key, "/f")
        os.makedirs(self.local("Programs"), exist_ok=True)

    def close(self):
        self.call(["wineserver", "-k"])
        self.call(["wineserver", "-w"])
        shutil.rmtree(self.path, ignore_errors=True)

    def call(self, command, **options):
        return subprocess.run(command, env=self.environment, stdin=subprocess.DEVNULL,
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False,
                              timeout=PATIENCE, **options).returncode

    def run(self, *command):
        """Runs a Windows program to its end: its exit code."""
        return self.call(["wine", *command])

    def start(self, *command):
        return subprocess.Popen(["wine", *command], env=self.environment, stdin=subprocess.DEVNULL,
                                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def drive(self, *names):
        return os.path.join(self.path, "drive_c", *names)

    def user(self, *names):
        users = self.drive("users")
        name, = (each for each in os.listdir(users) if each != "Public")
        return os.path.join(users, name, *names)

    def local(self, *names):
        return self.user("AppData", "Local", *names)

    def windows_path(self, path):
        return "C:\\" + os.path.relpath(path, self.drive()).replace("/", "\\")

    def registry(self):
        """The lines of the registry that installations change, each with its key."""
        lines = set()
        for key in ("HKCU\\Software", "HKLM\\Software\\Classes",
                    "HKLM\\Software\\RegisteredApplications",
                    "HKLM\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall"):
            file = self.drive("export.reg")
            self.run("reg", "export", key, "C:\\export.reg", "/y")
            with open(file, encoding="utf-16") as exported:
                current = ""
                for line in exported.read().splitlines():
                    if line.startswith("["):
                        current = line
                    lines.add(current + line)
            os.remove(file)
        # What Wine itself notes about windows and recent documents.
        return {line for line in lines if "Explorer" not in line and "\\Wine\\" not in line}

    def files(self):
        found = set()
        for folder, folders, files in os.walk(self.drive()):
            relative = os.path.relpath(folder, self.drive())
            if relative == "." and "windows" in folders:
                folders.remove("windows")
            # Temporary files, and what Wine records about recent documents.
            folders[:] = [name for name in folders if name not in ("Temp", "Recent", "temp")]
            found |= {os.path.normpath(os.path.join(relative, name)) for name in files + folders}
        return found


class InstalledProductTest(unittest.TestCase):
    """A wrapped application in two versions, and a prefix to install them in."""

    NAME = "TarnViewer"
    folder = None  # shared by the classes of a module
    prefix = None

    @classmethod
    def setUpClass(cls):
        if InstalledProductTest.folder is None:
            InstalledProductTest.prepare()

    @classmethod
    def clear(cls):
        cls.folder = cls.prefix = None

    @classmethod
    def prepare(cls):
        unittest.addModuleCleanup(cls.clear)
        cls.folder = tempfile.mkdtemp(prefix="tarn setup \u00e4 ")
        unittest.addModuleCleanup(shutil.rmtree, cls.folder, ignore_errors=True)
        cls.prefix = Prefix()
        unittest.addModuleCleanup(cls.prefix.close)
        code, _, errors = run([os.path.join(JDK, "javac"), "--release", "11", "-d", "classes",
                               os.path.join(SOURCES, "demo", "Viewer.java")], cls.folder)
        assert code == 0, errors
        code, _, errors = run([os.path.join(JDK, "jar"), "--create", "--file", "viewer.jar",
                               "--main-class", "demo.Viewer", "-C", "classes", "."], cls.folder)
        assert code == 0, errors
        cls.put("old/only in 1.txt", b"1")
        cls.put("new/only in 2.txt", b"2")
        cls.put("extra/a $b ${NAME} \u00e4 %PATH%.txt", b"text")
        for version, added in (("1.0", "old"), ("2.0", "new")):
            home = "Z:" + os.path.join(RUNTIMES, "17").replace("/", "\\")
            cls.tarn("wrap", "viewer.jar", "--launcher", LAUNCHER, "--out", "app" + version,
                     "--name", cls.NAME, "--vendor", "Acme", "--version", version,
                     "--single-instance", "--add", "extra", "--add", added,
                     "--vm-parameters", "-Djava.net.preferIPv4Stack=true",
                     "--set", "Java Runtime Environment/JRE Path=" + home)

    @classmethod
    def path(cls, *names):
        return os.path.join(cls.folder, *names)

    @classmethod
    def put(cls, name, content):
        os.makedirs(os.path.dirname(cls.path(name)), exist_ok=True)
        with open(cls.path(name), "wb") as file:
            file.write(content)

    @classmethod
    def tarn(cls, *arguments):
        code, output, errors = run(PROGRAMS["linux"] + list(arguments), cls.folder)
        assert code == 0, errors
        return output.strip()

    def installed(self, *names):
        return self.prefix.local("Programs", self.NAME, *names)

    def setup(self, version, *options):
        """Runs the setup program of a version silently: its exit code."""
        return self.prefix.run(self.path(f"setup{version}.exe"), "/S", *options)

    def remove_product(self):
        """Removes what is installed, also what the uninstaller leaves."""
        self.uninstall()
        shutil.rmtree(self.installed(), ignore_errors=True)

    def uninstall(self, *options, folder=None):
        """Runs the uninstaller where it is, which is how its exit code is seen."""
        folder = folder or self.installed()
        return self.prefix.run(os.path.join(folder, "uninstall.exe"), "/S", *options,
                               "_?=" + self.prefix.windows_path(folder))

    def shortcut(self, *start_menu):
        return self.prefix.drive(*start_menu, "Microsoft", "Windows", "Start Menu", "Programs",
                                 self.NAME + ".lnk")

    def open_in_one_instance(self, scheme, shortcut):
        """Opens two documents, a link and the shortcut, which have to arrive in one application."""
        documents = self.prefix.drive("documents")
        os.makedirs(documents)
        self.addCleanup(shutil.rmtree, documents)
        for name in ("first one.tdoc", "second.tdoc"):
            with open(os.path.join(documents, name), "wb") as file:
                file.write(b"")
        for opened, title in (
                ("C:\\documents\\first one.tdoc", "Viewer: first one.tdoc"),
                ("C:\\documents\\second.tdoc", "Viewer again: second.tdoc"),
                (scheme + ":link", f"Viewer again: {scheme}:link"),
                (self.prefix.windows_path(shortcut), "Viewer again: nothing")):
            self.prefix.run("start", opened)
            self.assertTrue(wait_until(lambda wanted=title: wanted in window_titles()),
                            f"{title} is not among {window_titles()}")

    def end_application(self):
        self.prefix.run("taskkill", "/f", "/im", self.NAME + ".exe")
        self.assertTrue(wait_until(
            lambda: not any(title.startswith("Viewer") for title in window_titles())))
