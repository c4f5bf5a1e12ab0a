"""Headers, sections, imports and size of the executable."""

import os
import unittest

import pefile

from image import LAUNCHER, ROOT, RT_GROUP_ICON, RT_ICON, load, resources

KIB = 1024
WANTED_SIZE = 64 * KIB
LARGEST_SIZE = 84 * KIB

# Windows loads these into every GUI process. Any other import would delay each start; libraries
# that are needed later are loaded on demand.
ALLOWED_IMPORTS = {"kernel32.dll", "user32.dll", "gdi32.dll", "advapi32.dll", "msvcrt.dll"}


class HeadersTest(unittest.TestCase):
    def has_characteristic(self, name):
        value = pefile.DLL_CHARACTERISTICS["IMAGE_DLLCHARACTERISTICS_" + name]
        return bool(load().OPTIONAL_HEADER.DllCharacteristics & value)

    def test_is_a_64_bit_program_with_windows(self):
        self.assertEqual(pefile.MACHINE_TYPE["IMAGE_FILE_MACHINE_AMD64"],
                         load().FILE_HEADER.Machine)
        self.assertEqual(pefile.SUBSYSTEM_TYPE["IMAGE_SUBSYSTEM_WINDOWS_GUI"],
                         load().OPTIONAL_HEADER.Subsystem)

    def test_is_loaded_at_a_random_address(self):
        self.assertTrue(self.has_characteristic("DYNAMIC_BASE"))
        self.assertTrue(self.has_characteristic("HIGH_ENTROPY_VA"))
        # The flags have no effect on an image without relocations.
        self.assertTrue(hasattr(load(), "DIRECTORY_ENTRY_BASERELOC"))
        self.assertFalse(load().FILE_HEADER.IMAGE_FILE_RELOCS_STRIPPED)

    def test_may_use_the_whole_address_space(self):
        # Without the flag a 64-bit process, Java included, is limited to 2 GiB of address space.
        self.assertTrue(load().FILE_HEADER.IMAGE_FILE_LARGE_ADDRESS_AWARE)

    def test_forbids_running_data(self):
        self.assertTrue(self.has_characteristic("NX_COMPAT"))

    def test_has_no_section_that_is_writable_and_executable(self):
        write = pefile.SECTION_CHARACTERISTICS["IMAGE_SCN_MEM_WRITE"]
        execute = pefile.SECTION_CHARACTERISTICS["IMAGE_SCN_MEM_EXECUTE"]
        sections = load().sections
        self.assertTrue(sections)
        for section in sections:
            self.assertNotEqual(write | execute, section.Characteristics & (write | execute),
                                section.Name)

    def test_starts_in_code(self):
        # With link-time optimisation the linker has been seen to lose the entry point and to take
        # the first byte of the code for it.
        entry = load().OPTIONAL_HEADER.AddressOfEntryPoint
        section = load().get_section_by_rva(entry)
        self.assertTrue(section.Characteristics &
                        pefile.SECTION_CHARACTERISTICS["IMAGE_SCN_MEM_EXECUTE"])
        self.assertNotEqual(section.VirtualAddress, entry)

    def test_has_no_work_for_each_thread(self):
        # A TLS callback would run for every thread that Java starts.
        self.assertFalse(hasattr(load(), "DIRECTORY_ENTRY_TLS"))

    def test_reserves_the_usual_stack(self):
        self.assertEqual(1024 * KIB, load().OPTIONAL_HEADER.SizeOfStackReserve)

    def test_carries_no_symbols_and_no_build_time(self):
        self.assertEqual(0, load().FILE_HEADER.NumberOfSymbols)
        self.assertEqual(0, load().FILE_HEADER.TimeDateStamp)

    def test_does_not_know_where_it_was_built(self):
        with open(LAUNCHER, "rb") as file:
            content = file.read()
        self.assertNotIn(ROOT.encode(), content)
        self.assertNotIn(ROOT.encode("utf-16-le"), content)


class ImportsTest(unittest.TestCase):
    def test_imports_only_what_every_program_with_a_window_has(self):
        names = {entry.dll.decode().lower() for entry in load().DIRECTORY_ENTRY_IMPORT}
        self.assertIn("kernel32.dll", names)
        print("static imports:", ", ".join(sorted(names)))
        self.assertEqual(set(), names - ALLOWED_IMPORTS)

    def test_delays_no_import(self):
        # Libraries that are needed later are loaded by name, from the system folder only.
        self.assertFalse(hasattr(load(), "DIRECTORY_ENTRY_DELAY_IMPORT"))


class SizeTest(unittest.TestCase):
    def test_keeps_to_its_size_without_the_icon(self):
        icon = sum(len(data) for kind in (RT_ICON, RT_GROUP_ICON) for _, _, data in resources(kind))
        size = os.path.getsize(LAUNCHER) - icon
        print(f"launcher.exe: {size / KIB:.1f} KiB without its icon ({icon / KIB:.1f} KiB); "
              f"wanted {WANTED_SIZE // KIB}, at most {LARGEST_SIZE // KIB}")
        self.assertLessEqual(size, LARGEST_SIZE)


if __name__ == "__main__":
    unittest.main()
