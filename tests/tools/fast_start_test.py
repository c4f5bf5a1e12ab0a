"""tarn wrap --fast-start and the archive of a shipped runtime, with real runtimes."""

import os
import re
import shutil
import signal
import subprocess
import tempfile
import time
import unittest

from tarn_program import JDK, LAUNCHER, RUNTIMES, FolderTest, run

NOTES = "Notes"
TIME = 1_700_000_000  # of every jar


class FastStartTest(FolderTest):
    """An application whose output names the version of its library and where the JVM found it."""

    @classmethod
    def setUpClass(cls):
        cls.shared = os.path.join(os.environ.get("TMPDIR", "/tmp"), f"tarn-fast-start-{os.getpid()}")
        cls.addClassCleanup(shutil.rmtree, cls.shared, ignore_errors=True)
        for version in ("one", "two"):
            folder = os.path.join(cls.shared, version)
            os.makedirs(folder)
            with open(os.path.join(folder, "App.java"), "w", encoding="ascii") as source:
                source.write("public class App {\n"
                             "  public static void main(String[] arguments) {\n"
                             "    System.out.println(Library.TEXT + '.');\n"
                             "    System.exit(7);\n"
                             "  }\n"
                             "}\n"
                             # Not a constant, which the compiler would copy.
                             "class Library {\n"
                             f"  static final String TEXT = \"{version}\".toString();\n"
                             "}\n")
            subprocess.run([os.path.join(JDK, "javac"), "--release", "11", "-d", folder, "-nowarn",
                            os.path.join(folder, "App.java")], check=True)
            # Without compression, so that both jars have the same size.
            cls.pack(version + ".jar", folder)
            # The same application as a module; its main class must not be in the unnamed package.
            module = os.path.join(cls.shared, "module " + version)
            os.makedirs(module)
            with open(os.path.join(module, "module-info.java"), "w", encoding="ascii") as source:
                source.write("module notes { }\n")
            with open(os.path.join(module, "App.java"), "w", encoding="ascii") as source:
                with open(os.path.join(folder, "App.java"), encoding="ascii") as plain:
                    source.write("package notes;\n" + plain.read())
            subprocess.run([os.path.join(JDK, "javac"), "--release", "11", "-d", module, "-nowarn",
                            os.path.join(module, "module-info.java"),
                            os.path.join(module, "App.java")], check=True)
            cls.pack("module " + version + ".jar", module, "notes.")

    @classmethod
    def pack(cls, name, folder, package=""):
        names = [os.path.join(package.replace(".", "/"), "App.class"),
                 os.path.join(package.replace(".", "/"), "Library.class")]
        if package:
            names.append("module-info.class")
        subprocess.run([os.path.join(JDK, "jar"), "--create", "--no-compress", "--main-class",
                        package + "App", "--file", os.path.join(cls.shared, name)] +
                       [word for name in names for word in ("-C", folder, name)], check=True)

    @classmethod
    def runtime(cls, version):
        """A copy of the runtime with the archive of its own classes. One is enough for all tests."""
        home = os.path.join(cls.shared, "runtime" + version)
        if not os.path.exists(home):
            shutil.copytree(os.path.join(RUNTIMES, version), home)
            subprocess.run(["wine", os.path.join(home, "bin", "java.exe"), "-Xshare:dump"],
                           check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                           timeout=600)
        return home

    def setUp(self):
        super().setUp()
        self.use_folder("tarn-tests-")

    def use_folder(self, prefix):
        # Java 21 archives no classes of jars below a folder with a space or another letter.
        self.folder = tempfile.mkdtemp(prefix=prefix)
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.local = self.path("local")
        os.mkdir(self.local)

    def put_version(self, version, name="app.jar"):
        """Puts a version's jar there; its size and time are those of the other version's."""
        shutil.copyfile(os.path.join(self.shared, version + ".jar"), self.path(name))
        os.utime(self.path(name), (TIME, TIME))

    def wrap(self, *options, **others):
        return self.expect("wrap", "app.jar", "--launcher", LAUNCHER, "--out", "out", "--name", NOTES,
                           "--replace", "--set",
                           "Application/Output File=" + self.windows_path("output.txt"),
                           *options, seconds=600, **others)[1]

    def windows_path(self, *names):
        return "Z:" + self.path(*names).replace("/", "\\")

    def begin(self, folder="out", log="classes.log"):
        """Starts the application: its process."""
        # Relative to the executable's folder, which is the current directory.
        environment = os.environ | {"JAVA_TOOL_OPTIONS": "-Xlog:class+load:file=" + log}
        process = subprocess.Popen(["wine", self.path(folder, NOTES + ".exe")], cwd=self.folder,
                                   env=environment, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        return process

    def finish(self, process, folder="out", log="classes.log"):
        """Waits for the end: whether the JVM found the library in the archive."""
        self.assertEqual(7, process.wait(300), "the application's own exit code")
        loaded = self.read(folder, log).decode(errors="replace")
        self.assertIn("java.lang.Object source: shared objects file", loaded,
                      "the runtime's own archive is always used")
        library = re.search(r"\] (?:notes\.)?Library source: (.*)", loaded).group(1).strip()
        return library == "shared objects file (top)"

    def start(self, folder="out"):
        """Starts the application: whether the JVM found its library in the archive."""
        return self.finish(self.begin(folder), folder)

    def version(self):
        return self.read("output.txt").decode().strip()

    def archives(self):
        return sorted(name for name in os.listdir(self.local) if name.endswith(".jsa"))


class ArchiveTest(FastStartTest):
    def make(self, version="21", *options, modules=""):
        self.wrap("--fast-start", "--ends-with", "exit", "--set",
                  f"Application/Fast Start={self.windows_path('local', NOTES)}{modules}",
                  "--set", "Java Runtime Environment/JRE Path=" +
                  "Z:" + self.runtime(version).replace("/", "\\"), *options)

    def make_plain(self):
        self.put_version("one")
        self.make()
        os.utime(self.path("out", "app.jar"), (TIME, TIME))

    def test_a_replaced_jar_of_equal_time_and_size_never_meets_old_classes(self):
        self.make_plain()
        self.assertFalse(self.start())
        first = self.archives()
        self.assertEqual(1, len(first))
        self.assertTrue(self.start(), "the second start reads the archive")
        self.assertEqual("one.", self.version())

        before = os.stat(self.path("out", "app.jar"))
        self.put_version("two", os.path.join("out", "app.jar"))
        after = os.stat(self.path("out", "app.jar"))
        self.assertEqual((before.st_size, before.st_mtime), (after.st_size, after.st_mtime))
        self.assertFalse(self.start())
        self.assertEqual("two.", self.version())
        second = self.archives()
        self.assertEqual((1, False), (len(second), second == first), "the old archive was removed")
        self.assertTrue(self.start())
        self.assertEqual("two.", self.version())

    def test_two_installations_have_archives_of_their_own(self):
        self.make_plain()
        self.start()
        shutil.copytree(self.path("out"), self.path("other"))
        self.put_version("two", os.path.join("other", "app.jar"))
        self.start(folder="other")
        self.assertEqual(2, len(self.archives()))
        self.assertTrue(self.start())
        self.assertEqual("one.", self.version())
        self.assertTrue(self.start(folder="other"))
        self.assertEqual("two.", self.version())

    def test_an_archive_that_cannot_be_written_or_is_damaged_costs_nothing(self):
        self.make_plain()
        # `start` expects the runtime's own archive, and the application's exit code.
        shutil.rmtree(self.local)
        self.put("local", b"a file")
        self.assertFalse(self.start())
        os.remove(self.local)
        self.start()
        [archive] = self.archives()
        path = os.path.join(self.local, archive)
        os.chmod(path, 0o644)
        with open(path, "r+b") as file:
            file.write(bytes(4096))
        self.assertFalse(self.start(), "a damaged one is not read, but written again")
        self.assertTrue(self.start())

    def test_a_module_that_was_replaced_by_one_of_equal_time_and_size_never_meets_old_classes(self):
        self.put_version("module one")
        self.make(modules=";app.jar")
        os.utime(self.path("out", "app.jar"), (TIME, TIME))
        self.assertIn(b"--add-modules=notes", self.read("out", NOTES + ".ini"))
        self.assertFalse(self.start())
        self.assertTrue(self.start())
        self.put_version("module two", os.path.join("out", "app.jar"))
        self.assertFalse(self.start())
        self.assertEqual("two.", self.version())

    def test_java_25_archives_the_jar_in_a_single_file_below_a_folder_with_a_space(self):
        self.use_folder("tarn tests ")
        self.put_version("one")
        self.make("25", "--single-file")
        self.assertFalse(self.start())
        self.assertTrue(self.start())
        self.assertEqual("one.", self.version())

    def test_a_start_while_the_first_one_ends_reads_only_a_complete_archive(self):
        self.make_plain()
        first = self.begin(log="first.log")
        end = time.monotonic() + 300
        while not self.archives():
            self.assertIsNone(first.poll(), "no archive was written")
            self.assertLess(time.monotonic(), end)
            time.sleep(0.001)  # polling interval
        first.send_signal(signal.SIGSTOP)
        self.addCleanup(first.send_signal, signal.SIGCONT)
        [archive] = self.archives()
        with open(os.path.join(self.local, archive), "rb") as file:
            is_complete = file.read(1) not in (b"", b"\0")
        self.assertEqual(is_complete, self.start(), "only a complete archive is read")
        first.send_signal(signal.SIGCONT)
        self.assertFalse(self.finish(first, log="first.log"))
        self.assertEqual([archive], self.archives())
        self.assertTrue(self.start(), "the first one has written it")


class RuntimeArchiveTest(FastStartTest):
    ARCHIVE = os.path.join("out", "jre64", "bin", "server", "classes.jsa")

    def setUp(self):
        super().setUp()
        self.put_version("one")

    def test_a_shipped_runtime_gets_the_archive_of_its_own_classes(self):
        source = os.path.join(RUNTIMES, "17")
        self.assertFalse(os.path.exists(os.path.join(source, "bin", "server", "classes.jsa")))
        self.assertNotIn("classes.jsa", self.wrap("--runtime", source))
        self.assertGreater(os.path.getsize(self.path(self.ARCHIVE)), 1_000_000)
        self.assertTrue(os.access(self.path(self.ARCHIVE), os.W_OK), "can be replaced and removed")
        self.assertFalse(os.path.exists(os.path.join(source, "bin", "server", "classes.jsa")),
                         "the user's runtime is unchanged")
        code, output, errors = run(["wine", self.path("out", "jre64", "bin", "java.exe"),
                                    "-Xshare:on", "-version"], self.folder, seconds=300)
        self.assertEqual(0, code, output + errors)

    def test_without_wine_it_says_what_to_run(self):
        warnings = self.wrap("--runtime", os.path.join(RUNTIMES, "17"),
                             env=os.environ | {"WINEPREFIX": self.path("no prefix")})
        self.assertIn("jre64\\bin\\java.exe -Xshare:dump", warnings)
        self.assertFalse(os.path.exists(self.path(self.ARCHIVE)))
        self.expect("check", os.path.join("out", NOTES + ".ini"), "--strict")

    def test_a_failure_is_a_warning_and_leaves_no_file(self):
        self.put("broken/bin/java.exe", b"no program")
        os.mkdir(self.path("broken", "bin", "server"))
        shutil.copy(os.path.join(RUNTIMES, "17", "bin", "server", "jvm.dll"),
                    self.path("broken", "bin", "server"))
        self.assertIn("-Xshare:dump", self.wrap("--runtime", "broken"))
        self.assertEqual(["jvm.dll"], os.listdir(self.path("out", "jre64", "bin", "server")))

    def test_it_is_not_made_on_request(self):
        self.assertEqual("", self.wrap("--runtime", os.path.join(RUNTIMES, "17"),
                                       "--no-runtime-archive"))
        self.assertFalse(os.path.exists(self.path(self.ARCHIVE)))

    def test_fast_start_refuses_a_runtime_that_writes_no_archive(self):
        message = self.expect_failure("wrap", "app.jar", "--launcher", LAUNCHER, "--out", "out",
                                      "--fast-start", "--runtime", os.path.join(RUNTIMES, "17"))
        self.assertIn("is Java 17.0.9: --fast-start needs Java 21 or newer", message)


if __name__ == "__main__":
    unittest.main()
