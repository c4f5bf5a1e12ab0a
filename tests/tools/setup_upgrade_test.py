"""tarn setup: what an upgrade and the uninstaller do with files of users, and after a failure."""

import os
import resource
import shutil
import signal
import stat
import unittest

from installed_product import InstalledProductTest, read, wait_until, window_titles
from tarn_program import RUNTIMES

FAILED = 2
LARGEST_FILE = 64 << 10  # less than the launcher, more than the stub's own libraries


def limit_files():
    """Makes each write beyond the size fail, like that to a full disk."""
    signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
    resource.setrlimit(resource.RLIMIT_FSIZE, (LARGEST_FILE, LARGEST_FILE))


class UpgradeTest(InstalledProductTest):
    """From version 1.0 to 3.0, whose settings differ."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        shutil.copytree(cls.path("app2.0"), cls.path("app3.0"))
        settings = read(cls.path("app1.0", "TarnViewer.ini"))
        cls.put("app3.0/TarnViewer.ini", settings.replace(
            b"[Application]\r\n",
            b"[Application]\r\nFast Start=%LOCALAPPDATA%\\TarnViewer\\TarnViewer\r\n"))
        cls.put("app3.0/run.log", b"new")
        for version in ("1.0", "3.0"):
            cls.tarn("setup", "app" + version, "--version", version, "--out",
                     f"setup{version}.exe")

    def setUp(self):
        self.addCleanup(shutil.rmtree, self.prefix.local("TarnViewer"), ignore_errors=True)
        self.addCleanup(self.remove_product)
        self.registry = self.prefix.registry()
        self.files = self.prefix.files()
        self.assertEqual(0, self.setup("1.0"))

    def contents(self):
        """The path of each installed file and folder, and the bytes of the files."""
        found = {}
        for folder, folders, files in os.walk(self.installed()):
            found.update((os.path.join(folder, name), None) for name in folders)
            found.update((os.path.join(folder, name), read(os.path.join(folder, name)))
                         for name in files)
        return found

    def change_settings(self):
        changed = read(self.installed("TarnViewer.ini")) + b"; mine\r\n"
        with open(self.installed("TarnViewer.ini"), "wb") as file:
            file.write(changed)
        return changed

    def test_changed_settings_remain_beside_the_new_ones(self):
        changed = self.change_settings()
        self.assertEqual(0, self.setup("3.0"))
        self.assertEqual(read(self.path("app3.0", "TarnViewer.ini")),
                         read(self.installed("TarnViewer.ini")))
        self.assertEqual(changed, read(self.installed("TarnViewer.ini.old")))
        self.assertEqual(0, self.uninstall())
        self.assertEqual({"TarnViewer.ini.old", "uninstall.exe"}, set(os.listdir(self.installed())))

    def test_unchanged_settings_are_replaced_and_go_without_a_trace(self):
        self.assertEqual(0, self.setup("3.0"))
        self.assertEqual(read(self.path("app3.0", "TarnViewer.ini")),
                         read(self.installed("TarnViewer.ini")))
        self.assertEqual(0, self.uninstall())
        self.assertEqual(["uninstall.exe"], os.listdir(self.installed()))
        self.assertEqual(set(), self.prefix.registry() ^ self.registry)

    def test_files_of_users_in_the_way_of_new_ones_are_renamed(self):
        os.makedirs(self.installed("new"))
        with open(self.installed("new", "only in 2.txt"), "wb") as file:
            file.write(b"mine")
        self.assertEqual(0, self.setup("3.0"))
        self.assertEqual(b"2", read(self.installed("new", "only in 2.txt")))
        self.assertEqual(b"mine", read(self.installed("new", "only in 2.txt.old")))

    def test_a_file_in_the_way_of_a_new_folder_is_renamed(self):
        with open(self.installed("new"), "wb") as file:
            file.write(b"mine")
        self.assertEqual(0, self.setup("3.0"))
        self.assertEqual(b"2", read(self.installed("new", "only in 2.txt")))
        self.assertEqual(b"mine", read(self.installed("new.old")))

    def test_a_full_disk_leaves_the_old_version_as_it_was(self):
        self.change_settings()
        before = self.contents()
        registry = self.prefix.registry()
        self.assertEqual(FAILED, self.prefix.call(["wine", self.path("setup3.0.exe"), "/S"],
                                                  preexec_fn=limit_files))
        self.assertEqual(before, self.contents())
        self.assertEqual(registry, self.prefix.registry())

    def test_a_file_that_cannot_be_moved_leaves_the_old_version_as_it_was(self):
        self.change_settings()
        # A JVM opens its log like most programs, so that the file cannot be renamed.
        java = self.prefix.start(
            os.path.join(RUNTIMES, "17", "bin", "java.exe"), "-cp", self.path("viewer.jar"),
            "-Xlog:gc:file=" + self.prefix.windows_path(self.installed("run.log")), "demo.Viewer")
        self.addCleanup(java.kill)
        self.assertTrue(wait_until(lambda: "Viewer: nothing" in window_titles()))
        before = self.contents()
        self.assertEqual(FAILED, self.setup("3.0"))
        self.prefix.run("taskkill", "/f", "/im", "java.exe")
        java.wait()
        self.assertEqual(before, self.contents())

    def test_a_folder_that_cannot_be_created_is_a_failure(self):
        self.assertEqual(0, self.uninstall())
        shutil.rmtree(self.installed())
        with open(self.installed(), "wb") as file:
            file.write(b"mine")
        self.addCleanup(os.remove, self.installed())
        self.assertEqual(FAILED, self.setup("1.0"))
        self.assertEqual(b"mine", read(self.installed()))
        self.assertEqual(set(), self.prefix.registry() ^ self.registry)

    def test_the_archives_of_the_launcher_go_with_it(self):
        self.assertEqual(0, self.setup("3.0"))
        folder = self.prefix.local("TarnViewer")
        os.makedirs(folder)
        archives = ["TarnViewer-01234567-0123456789abcdef.jsa",
                    "TarnViewer-89abcdef-fedcba9876543210.jsa"]
        others = ["TarnViewer-01234567-0123456789abcdef.jsa.txt", "errors.txt",
                  "TarnViewer-01234567-0123456789abcde.jsa", "Viewer-01234567-0123456789abcdef.jsa",
                  "TarnViewer-012345670-123456789abcdef.jsa"]
        for name in archives + others:
            with open(os.path.join(folder, name), "wb") as file:
                file.write(b"1")
        os.chmod(os.path.join(folder, archives[0]), stat.S_IREAD)
        self.assertEqual(0, self.uninstall())
        self.assertEqual(set(others), set(os.listdir(folder)))

        self.assertEqual(0, self.setup("3.0"))
        for name in os.listdir(folder):
            os.remove(os.path.join(folder, name))
        with open(os.path.join(folder, archives[0]), "wb") as file:
            file.write(b"1")
        self.assertEqual(0, self.uninstall())
        self.assertFalse(os.path.exists(folder))


if __name__ == "__main__":
    unittest.main()
