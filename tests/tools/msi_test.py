"""tarn setup --msi: what an MSI installs, upgrades and removes, under Wine."""

import filecmp
import os
import shutil
import unittest
import unittest.mock

from installed_product import InstalledProductTest

REFUSED = 1603 & 0xff  # ERROR_INSTALL_FAILURE, of which wine returns the low 8 bits


class MsiTest(InstalledProductTest):
    @classmethod
    def setUpClass(cls):
        # A cabinet has local times.
        cls.enterClassContext(unittest.mock.patch.dict(os.environ, TZ="UTC"))
        super().setUpClass()
        for version in ("1.0", "2.0"):
            cls.tarn("setup", "app" + version, "--msi", "--out", f"viewer{version}.msi",
                     "--associate", ".tdoc=#Tarn [document]", "--protocol", "tdoc=Tarn link")

    def msiexec(self, action, version, *options):
        return self.prefix.run("msiexec", action, self.path(f"viewer{version}.msi"), "/qn", *options)

    def setUp(self):
        self.registry = self.prefix.registry()
        self.files = self.prefix.files()

    def expect_nothing_left(self):
        self.assertEqual(set(), self.prefix.registry() ^ self.registry)
        # Folders of Windows Installer and of the start menu that every Windows has.
        left = {name for name in self.prefix.files() ^ self.files
                if not name.endswith(("Microsoft/Installer", "Roaming/Microsoft"))}
        self.assertEqual(set(), left)

    def test_an_installation_has_each_file_with_its_time_and_goes_without_a_trace(self):
        self.assertEqual(0, self.msiexec("/i", "1.0"))
        for folder, _, files in os.walk(self.path("app1.0")):
            relative = os.path.relpath(folder, self.path("app1.0"))
            for name in files:
                ours = os.path.join(folder, name)
                theirs = self.installed(os.path.normpath(os.path.join(relative, name)))
                self.assertTrue(filecmp.cmp(ours, theirs, shallow=False), theirs)
                # A cabinet counts in steps of two seconds.
                self.assertLessEqual(abs(os.path.getmtime(ours) - os.path.getmtime(theirs)), 2, theirs)
        added = "\n".join(self.prefix.registry() - self.registry)
        folder = self.prefix.windows_path(self.installed()).replace("\\", "\\\\")
        for value in ('"DisplayName"="TarnViewer"', '"DisplayVersion"="1.0.0"', '"Publisher"="Acme"',
                      '"NoModify"=dword:00000001', f'"InstallLocation"="{folder}\\\\"',
                      '.tdoc\\OpenWithProgids]"Acme.TarnViewer.tdoc"=""', '"URL Protocol"=""',
                      '.tdoc]@="Acme.TarnViewer.tdoc"', '@="#Tarn [document]"'):
            self.assertIn(value, added)
        with open(self.shortcut(self.prefix.user("AppData", "Roaming")), "rb") as file:
            self.assertIn("TarnViewer.exe".encode("utf-16-le"), file.read())
        self.assertEqual(0, self.msiexec("/x", "1.0"))
        self.expect_nothing_left()

    def test_an_upgrade_replaces_the_old_version_and_a_downgrade_is_refused(self):
        settings = self.prefix.user("AppData", "Roaming", "TarnViewer", "TarnViewer.ini")
        os.makedirs(os.path.dirname(settings))
        with open(settings, "wb") as file:
            file.write(b"mine")
        self.assertEqual(0, self.msiexec("/i", "1.0"))
        with open(self.installed("mine.txt"), "wb") as file:
            file.write(b"mine")
        self.assertEqual(0, self.msiexec("/i", "2.0"))
        self.assertFalse(os.path.exists(self.installed("old")))
        self.assertTrue(os.path.exists(self.installed("new", "only in 2.txt")))
        values = self.prefix.registry()
        self.assertIn('"DisplayVersion"="2.0.0"', "\n".join(values))
        self.assertNotIn('"DisplayVersion"="1.0.0"', "\n".join(values))
        self.assertIn('.tdoc]@="Acme.TarnViewer.tdoc"', "\n".join(values))

        before = self.prefix.files()
        self.assertEqual(REFUSED, self.msiexec("/i", "1.0"))
        self.assertEqual(before, self.prefix.files())
        self.assertEqual(values, self.prefix.registry())

        self.assertEqual(0, self.msiexec("/x", "2.0"))
        self.assertEqual(["mine.txt"], os.listdir(self.installed()))
        self.assertTrue(os.path.exists(settings))
        shutil.rmtree(self.installed())
        shutil.rmtree(os.path.dirname(settings))
        self.expect_nothing_left()

    def test_the_default_of_another_application_stays(self):
        key = "HKLM\\Software\\Classes\\.tdoc"
        self.prefix.run("reg", "add", key, "/ve", "/d", "Other.Document", "/f")
        self.addCleanup(self.prefix.run, "reg", "delete", key, "/f")
        before = self.prefix.registry()
        self.assertEqual(0, self.msiexec("/i", "1.0"))
        self.assertNotIn('.tdoc]@="Acme.TarnViewer.tdoc"', "\n".join(self.prefix.registry()))
        self.assertEqual(0, self.msiexec("/x", "1.0"))
        self.assertEqual(set(), self.prefix.registry() ^ before)

    def test_for_all_users_documents_links_and_the_shortcut_open_in_one_instance(self):
        # For all users, because Wine 8 finds associations in HKEY_LOCAL_MACHINE only.
        self.tarn("setup", "app1.0", "--msi", "--per-machine", "--out", "viewer-all.msi",
                  "--associate", ".tdoc=Tarn document", "--protocol", "tdoc=Tarn link")
        self.assertEqual(0, self.msiexec("/i", "-all"))
        self.assertTrue(os.path.exists(self.prefix.drive("Program Files", "TarnViewer")))
        # Wine's Windows Installer uses the user's start menu even then.
        self.open_in_one_instance("tdoc", self.shortcut(self.prefix.user("AppData", "Roaming")))
        self.end_application()
        self.assertEqual(0, self.msiexec("/x", "-all"))
        self.assertEqual(set(), self.prefix.registry() ^ self.registry)
        self.assertFalse(os.path.exists(self.prefix.drive("Program Files", "TarnViewer")))


if __name__ == "__main__":
    unittest.main()
