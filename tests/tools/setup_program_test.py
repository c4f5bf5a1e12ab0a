"""tarn setup: what a setup program installs, upgrades and removes, under Wine."""

import filecmp
import os
import shutil
import subprocess
import unittest

from installed_product import InstalledProductTest, read, wait_until, window_titles


class PerUserTest(InstalledProductTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        for version in ("1.0", "2.0"):
            cls.tarn("setup", "app" + version, "--out", f"setup{version}.exe", "--desktop-shortcut",
                     "--associate", ".tdoc=Tarn document", "--protocol", "tarndemo=Tarn link")

    def setUp(self):
        self.addCleanup(self.remove_product)
        self.registry = self.prefix.registry()
        self.files = self.prefix.files()

    def expect_nothing_left(self):
        # The uninstaller cannot delete itself when it runs where it is.
        if os.path.exists(self.installed()):
            os.remove(self.installed("uninstall.exe"))
            os.rmdir(self.installed())
        self.assertEqual(set(), self.prefix.registry() ^ self.registry)
        self.assertEqual(set(), self.prefix.files() ^ self.files)

    def test_a_silent_installation_has_each_file_with_its_time_and_goes_without_a_trace(self):
        self.assertEqual(0, self.setup("1.0"))
        for folder, _, files in os.walk(self.path("app1.0")):
            relative = os.path.relpath(folder, self.path("app1.0"))
            for name in files:
                ours = os.path.join(folder, name)
                theirs = self.installed(os.path.normpath(os.path.join(relative, name)))
                self.assertTrue(filecmp.cmp(ours, theirs, shallow=False), theirs)
                # Windows' file times have steps of 100 nanoseconds.
                self.assertEqual(os.stat(ours).st_mtime_ns // 100,
                                 os.stat(theirs).st_mtime_ns // 100, theirs)
        added = "\n".join(self.prefix.registry() - self.registry)
        folder = self.prefix.windows_path(self.installed()).replace("\\", "\\\\")
        for value in ('"DisplayName"="TarnViewer"', '"DisplayVersion"="1.0"', '"Publisher"="Acme"',
                      f'"DisplayIcon"="{folder}\\\\TarnViewer.exe,0"', '"NoModify"=dword:00000001',
                      f'"InstallLocation"="{folder}"', '"NoRepair"=dword:00000001',
                      f'"UninstallString"="\\"{folder}\\\\uninstall.exe\\""',
                      f'"QuietUninstallString"="\\"{folder}\\\\uninstall.exe\\" /S"',
                      "EstimatedSize", '.tdoc\\OpenWithProgids]"Acme.TarnViewer.tdoc"=""',
                      '.tdoc]@="Acme.TarnViewer.tdoc"', '"URL Protocol"=""'):
            self.assertIn(value, added)
        self.assertNotIn("HKEY_LOCAL_MACHINE", added)
        for shortcut in (self.prefix.user("Desktop", "TarnViewer.lnk"),
                         self.shortcut(self.prefix.user("AppData", "Roaming"))):
            self.assertIn("TarnViewer.exe".encode("utf-16-le"), read(shortcut))
        self.assertEqual(0, self.uninstall())
        self.expect_nothing_left()

    def test_an_upgrade_replaces_old_files_and_keeps_the_users(self):
        self.assertEqual(0, self.setup("1.0", "/D=C:\\Other"))
        folder = self.prefix.drive("Other")
        self.assertTrue(os.path.exists(os.path.join(folder, "old", "only in 1.txt")))
        for name in ("old/mine.txt", "mine.txt"):
            with open(os.path.join(folder, name), "wb") as file:
                file.write(b"mine")
        with open(os.path.join(folder, "TarnViewer.ini"), "ab") as file:
            file.write(b"; mine\r\n")
        self.assertEqual(0, self.setup("2.0"))
        self.assertFalse(os.path.exists(os.path.join(folder, "old", "only in 1.txt")))
        self.assertTrue(os.path.exists(os.path.join(folder, "new", "only in 2.txt")))
        self.assertEqual(b"mine", read(os.path.join(folder, "old", "mine.txt")))
        self.assertTrue(read(os.path.join(folder, "TarnViewer.ini")).endswith(b"; mine\r\n"))
        self.assertFalse(os.path.exists(self.installed()))

        before = self.prefix.files()
        self.assertEqual(3, self.setup("1.0"), "a downgrade is refused")
        self.assertEqual(before, self.prefix.files())
        self.assertIn('"DisplayVersion"="2.0"', "\n".join(self.prefix.registry() - self.registry))

        self.assertEqual(0, self.uninstall(folder=folder))
        left = {"Other/" + name for name in ("", "old", "old/mine.txt", "mine.txt",
                                                    "TarnViewer.ini", "uninstall.exe")}
        self.assertEqual({os.path.normpath(name) for name in left}, self.prefix.files() - self.files)
        self.assertEqual(set(), self.prefix.registry() ^ self.registry)
        subprocess.check_call(["rm", "-r", folder])

    def test_changed_settings_go_when_asked(self):
        self.assertEqual(0, self.setup("1.0"))
        with open(self.installed("TarnViewer.ini"), "ab") as file:
            file.write(b"; mine\r\n")
        self.assertEqual(0, self.uninstall("/SETTINGS"))
        self.expect_nothing_left()

    def test_defaults_and_values_of_others_stay(self):
        key = "HKCU\\Software\\Classes\\.tdoc"
        self.prefix.run("reg", "add", key, "/ve", "/d", "Other.Document", "/f")
        self.prefix.run("reg", "add", key + "\\OpenWithProgids", "/v", "Other.Document", "/f")
        # Wine 8 does not merge HKEY_CURRENT_USER into HKEY_CLASSES_ROOT, where setup looks.
        self.prefix.run("reg", "add", key.replace("HKCU", "HKLM"), "/ve", "/d", "Other.Document", "/f")
        before = self.prefix.registry()
        self.assertEqual(0, self.setup("1.0"))
        self.assertIn('.tdoc]@="Other.Document"', "\n".join(self.prefix.registry()))
        self.assertNotIn('.tdoc]@="Acme.TarnViewer.tdoc"', "\n".join(self.prefix.registry()))
        self.assertEqual(0, self.uninstall())
        self.assertEqual(set(), self.prefix.registry() ^ before)
        for root in ("HKCU", "HKLM"):
            self.prefix.run("reg", "delete", key.replace("HKCU", root), "/f")
        self.expect_nothing_left()

    def test_nothing_is_replaced_or_removed_while_the_application_runs(self):
        self.assertEqual(0, self.setup("1.0"))
        before = self.prefix.files()
        process = self.prefix.start(self.installed("TarnViewer.exe"))
        self.assertTrue(wait_until(lambda: "Viewer: nothing" in window_titles()))
        self.assertEqual(4, self.setup("2.0"))
        self.assertEqual(4, self.uninstall())
        self.assertEqual(set(), {name for name in self.prefix.files() ^ before if "viewer" in name})
        self.assertIn('"DisplayVersion"="1.0"', "\n".join(self.prefix.registry()))
        self.end_application()
        process.wait()
        self.assertEqual(0, self.setup("2.0"))
        self.assertEqual(0, self.uninstall())

    def test_a_folder_whose_paths_would_be_too_long_is_refused(self):
        self.assertEqual(5, self.setup("1.0", "/D=C:\\" + "a" * 230))
        self.expect_nothing_left()


class WizardTest(InstalledProductTest):
    def picture(self):
        return subprocess.check_output(["import", "-silent", "-window", "root", "rgb:-"])

    def press(self, key):
        """Presses a key and waits until the screen shows something else."""
        before = self.picture()
        subprocess.check_call(["xdotool", "key", key])
        self.assertTrue(wait_until(lambda: self.picture() != before), f"{key} has no effect")

    def test_leads_from_the_welcome_to_the_running_application(self):
        self.put("LICENSE", "Licence of the viewer: \u00e4\n".encode())
        self.tarn("setup", "app1.0", "--out", "wizard.exe", "--license", "LICENSE")
        setup = self.prefix.start(self.path("wizard.exe"))
        self.addCleanup(setup.kill)
        self.assertTrue(wait_until(lambda: "TarnViewer 1.0" in window_titles()))
        # A key that comes before the window has the focus is lost.
        self.assertTrue(wait_until(lambda: len(set(self.picture())) > 50))
        self.press("Return")  # the licence
        self.press("Return")  # the folder
        self.assertFalse(os.path.exists(self.installed()))
        self.press("Return")  # installs
        self.assertTrue(wait_until(lambda: os.path.exists(self.installed("uninstall.exe"))))

        def is_finished():
            subprocess.check_call(["xdotool", "key", "Return"])
            return setup.poll() is not None
        self.assertTrue(wait_until(is_finished))
        self.assertEqual(0, setup.returncode)
        self.assertTrue(wait_until(lambda: "Viewer: nothing" in window_titles()), window_titles())
        self.end_application()
        self.assertEqual(0, self.uninstall())
        shutil.rmtree(self.installed())


class PerMachineTest(InstalledProductTest):
    """For all users, because Wine 8 finds associations in HKEY_LOCAL_MACHINE only."""

    def test_documents_links_and_the_shortcut_open_in_one_instance(self):
        self.tarn("setup", "app1.0", "--out", "machine.exe", "--per-machine",
                  "--associate", ".tdoc=Tarn document", "--protocol", "tarndemo=Tarn link")
        registry, files = self.prefix.registry(), self.prefix.files()
        # A path with a space would be quoted for the uninstaller, which then returns at once.
        folder = self.prefix.drive("Machine")
        self.assertEqual(0, self.prefix.run(self.path("machine.exe"), "/S", "/D=C:\\Machine"))
        self.assertTrue(os.path.exists(os.path.join(folder, "TarnViewer.exe")))
        self.open_in_one_instance("tarndemo", self.shortcut("ProgramData"))
        self.end_application()
        self.assertEqual(0, self.uninstall(folder=folder))
        subprocess.check_call(["rm", "-r", folder])
        self.assertEqual(set(), self.prefix.registry() ^ registry)
        # The application has an error file of its own.
        left = {name for name in self.prefix.files() ^ files
                if "viewer" in name.lower() and "AppData" not in name}
        self.assertEqual(set(), left)


if __name__ == "__main__":
    unittest.main()
