"""tarn stamp: what another reader of executables finds in its result."""

import os
import struct
import unittest

import pefile

from tarn_program import LAUNCHER, PROGRAMS, FolderTest, picture

RT_ICON, RT_STRING, RT_RCDATA, RT_GROUP_ICON, RT_VERSION, RT_MANIFEST = 3, 6, 10, 14, 16, 24
SETTINGS = "[Application]\r\nCmd = \u00e4 b\r\n"
ALL = ["--version", "2.1.3-beta", "--product", "Gr\u00fc\u00dfe", "--company", "Maker",
       "--settings", "app.ini", "--icon", "icon.png", "--jar", "app.jar",
       "--set-string", "210=Keine Klasse\\n\u20ac"]


def resources(image):
    """All resources: {(type, name, language): bytes}."""
    found = {}
    for kind in image.DIRECTORY_ENTRY_RESOURCE.entries:
        for name in kind.directory.entries:
            for language in name.directory.entries:
                data = language.data.struct
                key = (kind.id, str(name.name) if name.name else name.id, language.id)
                found[key] = image.get_data(data.OffsetToData, data.Size)
    return found


def texts(image):
    return {key.decode(): value.decode() for information in image.FileInfo[0]
            for table in getattr(information, "StringTable", [])
            for key, value in table.entries.items()}


class StampTest(FolderTest):
    def setUp(self):
        super().setUp()
        self.put("app.ini", SETTINGS.encode("utf-16"))
        self.put("icon.png", picture(300, 200))
        self.put_jar("app.jar", {"Main-Class": "a.Main"}, {"text": "x" * 1000})

    def stamp(self, *options, source=LAUNCHER, out="app.exe", **more):
        self.expect("stamp", source, "--out", out, *options, **more)
        return pefile.PE(self.path(out))

    def test_everything_is_found_by_another_reader(self):
        image = self.stamp(*ALL)
        self.assertEqual([], image.get_warnings())
        self.assertTrue(image.verify_checksum())
        found = resources(image)
        self.assertEqual(b"[Application]\r\nCmd=\xc3\xa4 b\r\n", found[RT_RCDATA, "SETTINGS", 0x409])
        self.assertIn("Keine Klasse\n\u20ac".encode("utf-16-le"), found[RT_STRING, 14, 0x409])
        self.assertIn("Browse for JRE folder".encode("utf-16-le"), found[RT_STRING, 14, 0x409])
        fixed = image.VS_FIXEDFILEINFO[0]
        self.assertEqual((2 << 16 | 1, 3 << 16), (fixed.FileVersionMS, fixed.FileVersionLS))
        self.assertEqual(
            {"ProductName": "Gr\u00fc\u00dfe", "FileDescription": "Gr\u00fc\u00dfe",
             "CompanyName": "Maker", "FileVersion": "2.1.3-beta", "ProductVersion": "2.1.3-beta",
             "OriginalFilename": "app.exe", "InternalName": "app"},
            {key: value for key, value in texts(image).items() if key != "LegalCopyright"})
        group = found[RT_GROUP_ICON, 1, 0x409]
        entries = [struct.unpack_from("<BBBBHHIH", group, 6 + 14 * i)
                   for i in range(struct.unpack_from("<H", group, 4)[0])]
        self.assertEqual([16, 24, 32, 48, 64, 0], [entry[0] for entry in entries])
        for entry in entries:
            self.assertEqual(entry[6], len(found[RT_ICON, entry[7], 0x409]))
        self.assertEqual(6, len([key for key in found if key[0] == RT_ICON]), "no old pictures")
        self.assertEqual(self.read("app.jar"), image.get_overlay()[-len(self.read("app.jar")):])

    def test_everything_else_stays(self):
        before, after = pefile.PE(LAUNCHER), self.stamp(*ALL)
        for old, new in zip(before.sections, after.sections):
            if old.Name.rstrip(b"\0") in (b".rsrc", b".reloc"):
                continue
            self.assertEqual((old.Name, old.VirtualAddress, old.Misc_VirtualSize),
                             (new.Name, new.VirtualAddress, new.Misc_VirtualSize))
            self.assertEqual(old.get_data(), new.get_data()[:len(old.get_data())], old.Name)
        self.assertEqual(len(before.sections), len(after.sections))
        self.assertEqual(before.OPTIONAL_HEADER.AddressOfEntryPoint,
                         after.OPTIONAL_HEADER.AddressOfEntryPoint)
        relocations = [[(entry.rva, entry.type) for block in image.DIRECTORY_ENTRY_BASERELOC
                        for entry in block.entries] for image in (before, after)]
        self.assertEqual(*relocations)
        old, new = resources(before), resources(after)
        for kind in (5, RT_MANIFEST):
            self.assertEqual({k: v for k, v in old.items() if k[0] == kind},
                             {k: v for k, v in new.items() if k[0] == kind})

    def test_the_image_is_laid_out_as_the_loader_wants_it(self):
        image = self.stamp(*ALL)
        header = image.OPTIONAL_HEADER
        end = None
        for section in image.sections:
            self.assertEqual(0, section.PointerToRawData % header.FileAlignment)
            if end is not None:
                self.assertEqual(end, section.VirtualAddress, "no gap, no overlap")
            size = -(-section.Misc_VirtualSize // header.SectionAlignment) * header.SectionAlignment
            end = section.VirtualAddress + size
        self.assertEqual(end, header.SizeOfImage)

    def test_a_stamped_file_can_be_stamped_again(self):
        self.stamp(*ALL)
        once = self.read("app.exe")
        self.stamp(*ALL, source="app.exe")
        self.assertEqual(once, self.read("app.exe"))
        self.stamp("--version", "9", source="app.exe")
        image = self.stamp(*ALL, source="app.exe")
        self.assertEqual(once, self.read("app.exe"))
        self.assertEqual("2.1.3-beta", texts(image)["FileVersion"])

    def test_both_programs_give_the_same_bytes(self):
        files = {}
        for program in PROGRAMS:
            self.stamp(*ALL, program=program)
            files[program] = self.read("app.exe")
        self.assertEqual(files["linux"], files["windows"])

    def test_an_ico_file_comes_as_it_is(self):
        icon = os.path.join(os.path.dirname(LAUNCHER), "..", "..", "resources", "launcher.ico")
        found = resources(self.stamp("--icon", icon))
        old = resources(pefile.PE(LAUNCHER))
        for kind in (RT_ICON, RT_GROUP_ICON):
            self.assertEqual({k: v for k, v in old.items() if k[0] == kind},
                             {k: v for k, v in found.items() if k[0] == kind})

    def test_warns_of_settings_that_have_no_effect_there(self):
        self.put("splash.ini", b"[Display]\nSplash Screen=a.png\n")
        _, errors = self.expect("stamp", LAUNCHER, "--out", "a.exe", "--settings", "splash.ini")
        self.assertIn("splash.ini: section [Display] only has an effect", errors)


class BadInputTest(FolderTest):
    def test_what_is_no_executable(self):
        self.put("text.exe", b"MZ but nothing else" * 100)
        self.assertIn("text.exe: is not a Windows executable",
                      self.expect_failure("stamp", "text.exe", "--out", "app.exe"))

    def test_an_executable_that_is_cut_short(self):
        with open(LAUNCHER, "rb") as file:
            content = file.read()
        self.put("half.exe", content[:len(content) // 2])
        self.assertIn("half.exe: is truncated or corrupt",
                      self.expect_failure("stamp", "half.exe", "--out", "app.exe"))

    def test_files_that_are_missing_or_of_another_kind(self):
        self.put("a.txt", b"text")
        for option, name, problem in (("--icon", "none.png", "cannot be read"),
                                      ("--icon", "a.txt", "is neither an .ico nor a .png"),
                                      ("--jar", "a.txt", "is not a jar"),
                                      ("--settings", "none.ini", "cannot be read")):
            with self.subTest(option=option, name=name):
                message = self.expect_failure("stamp", LAUNCHER, "--out", "app.exe", option, name)
                self.assertIn(name, message)
                self.assertIn(problem, message)

    def test_words_that_cannot_be_meant(self):
        for text in ("210", "=x", "x=y", "70000=x", "-1=x"):
            with self.subTest(text=text):
                self.assertIn(text, self.expect_failure("stamp", LAUNCHER, "--out", "app.exe",
                                                        "--set-string=" + text))

    def test_a_folder_that_cannot_be_written(self):
        # Not even root can create files there.
        self.assertIn("/proc/app.exe", self.expect_failure("stamp", LAUNCHER, "--out",
                                                           "/proc/app.exe"))

    def test_a_full_disk_leaves_the_old_file(self):
        # A limit for the size of files, which ends a write half-way as a full disk does.
        self.put("app.exe", b"old")
        command = "trap '' XFSZ; ulimit -f 40; exec \"$0\" \"$@\""
        PROGRAMS["full"] = ["bash", "-c", command] + PROGRAMS["linux"]
        self.addCleanup(PROGRAMS.pop, "full")
        self.assertIn("app.exe: cannot be written",
                      self.expect_failure("stamp", LAUNCHER, "--out", "app.exe", program="full"))
        self.assertEqual(b"old", self.read("app.exe"))


if __name__ == "__main__":
    unittest.main()
