"""String table, manifest, version information and icon of the executable."""

import os
import re
import unittest
import xml.etree.ElementTree as ElementTree

from image import (ENGLISH_UNITED_STATES, ROOT, RT_GROUP_ICON, RT_ICON, RT_MANIFEST, RT_STRING,
                   RT_VERSION, RUNTIMES, load, resources, string_table)

TEXTS = {
    202: "Windows exception: %s (errno = %d).\n",
    203: "JNI exception: %s\nReason: %s.\n",
    204: "COM error: %s (errno = %d).\n",
    205: "JNI exception: %s.\n",
    206: "The Java Runtime Environment (JRE) was not found. Please  download and install a JRE "
         "with a server JVM (%s) from:",
    207: "The Java Runtime Environment (JRE) was not found. Please  download and install a JRE "
         "(%s) from:",
    208: "failed to get the module path",
    209: "Java Class Path was not specified in INI file.",
    210: "Main class was not specified in INI file.",
    211: "Failed to load Main Class: %s.\n",
    212: "cannot find CreateJavaVM JNI",
    213: "failed to create the Java VM",
    214: "Browse for JRE folder",
    215: "Could not find the main class %s.\n",
    216: "No main method found in specified class.\n",
    217: "latest version",
    218: "maximum version %s",
    219: "minimum version %s",
    220: "version %s is required",
    221: "version between %s and %s",
    222: "Failed to load Java VM library: %s (errno = %d).\n",
    223: "failed to initialize",
    224: "failed to initialize module",
    225: "unknown",
    226: "thread detached from VM",
    227: "JNI version error",
    228: "not enough memory",
    229: "VM already created",
    230: "invalid arguments",
}

SETTINGS_2005 = "{http://schemas.microsoft.com/SMI/2005/WindowsSettings}"
SETTINGS_2016 = "{http://schemas.microsoft.com/SMI/2016/WindowsSettings}"
COMPATIBILITY = "{urn:schemas-microsoft-com:compatibility.v1}"
# Java runtimes still list it, although no supported one runs on it.
WINDOWS_VISTA = "{e2011457-1546-43c5-a5fe-008deee3d3f0}"


class StringTableTest(unittest.TestCase):
    def test_has_every_text(self):
        table = string_table()
        for number, text in TEXTS.items():
            with self.subTest(number=number):
                self.assertEqual(text, table.get(number))

    def test_has_one_language(self):
        self.assertEqual({ENGLISH_UNITED_STATES},
                         {language for _, language, _ in resources(RT_STRING)})


class ResourcesTest(unittest.TestCase):
    def test_has_each_resource_once(self):
        for kind in range(1, 25):
            with self.subTest(kind=kind):
                keys = [(number, language) for number, language, _ in resources(kind)]
                self.assertEqual(len(set(keys)), len(keys), keys)


class ManifestTest(unittest.TestCase):
    def manifest(self, *path):
        found = list(resources(RT_MANIFEST, *path))
        self.assertEqual(1, len(found))
        self.assertEqual(1, found[0][0], "only resource 1 counts for a new process")
        return ElementTree.fromstring(found[0][2])

    def javaw(self):
        for name in sorted(os.listdir(RUNTIMES)):
            path = os.path.join(RUNTIMES, name, "bin", "javaw.exe")
            if os.path.exists(path):
                yield name, self.manifest(path)

    def test_is_aware_of_resolutions_as_the_runtimes_own_launcher_is(self):
        ours = self.manifest()
        compared = 0
        for name, theirs in self.javaw():
            for tag in (SETTINGS_2005 + "dpiAware", SETTINGS_2016 + "dpiAwareness"):
                with self.subTest(runtime=name, tag=tag):
                    expected = [element.text for element in theirs.iter(tag)]
                    self.assertEqual(1, len(expected))
                    self.assertEqual(expected, [element.text for element in ours.iter(tag)])
                    compared += 1
        self.assertGreater(compared, 0, f"no runtime in {RUNTIMES}")

    def test_knows_the_windows_versions_that_the_runtimes_know(self):
        tag = COMPATIBILITY + "supportedOS"
        ours = {element.get("Id").lower() for element in self.manifest().iter(tag)}
        for name, theirs in self.javaw():
            with self.subTest(runtime=name):
                expected = {element.get("Id").lower() for element in theirs.iter(tag)}
                self.assertEqual(expected - {WINDOWS_VISTA}, ours)

    def test_asks_for_visual_styles(self):
        identities = [element.attrib for element in self.manifest().iter()
                      if element.tag.endswith("assemblyIdentity")]
        styles = [i for i in identities if i["name"] == "Microsoft.Windows.Common-Controls"]
        self.assertEqual(["6.0.0.0"], [identity["version"] for identity in styles])

    def test_runs_as_its_invoker(self):
        levels = [element for element in self.manifest().iter()
                  if element.tag.endswith("requestedExecutionLevel")]
        self.assertEqual([("asInvoker", "false")],
                         [(level.get("level"), level.get("uiAccess")) for level in levels])

    def test_leaves_the_code_page_to_the_system(self):
        for element in self.manifest().iter():
            self.assertNotIn("activecodepage", element.tag.lower())


class VersionTest(unittest.TestCase):
    def texts(self):
        for information in load().FileInfo[0]:
            for table in getattr(information, "StringTable", []):
                return {key.decode(): value.decode() for key, value in table.entries.items()}
        return {}

    def test_is_the_project_s(self):
        with open(os.path.join(ROOT, "CMakeLists.txt"), encoding="utf-8") as file:
            version = re.search(r"project\(tarn VERSION ([0-9.]+)", file.read()).group(1)
        fixed = load().VS_FIXEDFILEINFO[0]
        for high, low in ((fixed.FileVersionMS, fixed.FileVersionLS),
                          (fixed.ProductVersionMS, fixed.ProductVersionLS)):
            parts = (high >> 16, high & 0xFFFF, low >> 16)
            self.assertEqual(version, ".".join(map(str, parts)))
        self.assertEqual(version, self.texts()["FileVersion"])
        self.assertEqual(version, self.texts()["ProductVersion"])

    def test_says_what_the_file_is(self):
        texts = self.texts()
        self.assertEqual("Tarn", texts["ProductName"])
        self.assertEqual("launcher.exe", texts["OriginalFilename"])
        self.assertTrue(texts["FileDescription"])
        self.assertEqual(1, len(list(resources(RT_VERSION))))


class IconTest(unittest.TestCase):
    def test_has_the_sizes_that_the_shell_shows(self):
        groups = list(resources(RT_GROUP_ICON))
        self.assertTrue(groups)
        # Explorer shows the icon group with the lowest id.
        _, _, data = min(groups)
        count = int.from_bytes(data[4:6], "little")
        entries = [data[6 + 14 * i:6 + 14 * (i + 1)] for i in range(count)]
        self.assertLessEqual({16, 32, 48}, {entry[0] for entry in entries})
        pictures = {number for number, _, _ in resources(RT_ICON)}
        for entry in entries:
            self.assertIn(int.from_bytes(entry[12:14], "little"), pictures)


if __name__ == "__main__":
    unittest.main()
