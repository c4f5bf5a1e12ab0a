"""tarn wrap: kinds of applications that do not start as jars on a class path do, on real runtimes."""

import collections
import os
import re
import subprocess
import time
import unittest

from tarn_program import JDK, LAUNCHER, ROOT, RUNTIMES, FolderTest, class_file, run

SOURCES = os.path.join(ROOT, "tests", "tools", "application_kinds")
APPLICATIONS = os.environ.get("TARN_APPLICATIONS", os.path.join(
    os.path.dirname(RUNTIMES), "applications"))

# Wine has no graphics card to offer on a virtual screen, and the windows would stay black.
# With Debian's Wine 10, Java 11 and 17 find no random numbers for the names of temporary files unless
# they read the network adapters in the way of IPv4.
ON_WINE = ("-Dprism.order=sw -Dsun.java2d.d3d=false -Dsun.java2d.noddraw=true "
           "-Djava.net.preferIPv4Stack=true")
PATIENCE = 120  # seconds, for a busy machine


def windows():
    """The windows on the screen: {title: "WIDTHxHEIGHT+X+Y"}."""
    for _ in range(100):
        tree = subprocess.run(["xwininfo", "-root", "-tree"], stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, text=True, errors="replace", check=False)
        # Fails when a window is closed while the tree is being read.
        if tree.returncode == 0:
            break
    else:
        raise AssertionError(tree.stderr)
    found = re.findall(r'^ +0x[0-9a-f]+ "(.*)": \(.*\) +(\d+x\d+)\S+ +(\+-?\d+\+-?\d+)$',
                       tree.stdout, re.M)
    return {title: size + place for title, size, place in found}


def has_picture(area):
    """Whether a part of the screen shows a window's content: it is neither black nor of one colour."""
    picture = subprocess.check_output(["import", "-silent", "-window", "root", "-crop", area,
                                       "-depth", "8", "rgb:-"])
    colours = collections.Counter(picture[at:at + 3] for at in range(0, len(picture), 3))
    return len(colours) > 2 and colours.most_common(1)[0][0] != b"\0\0\0"


def wait_until(condition):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        if condition():
            return True
        time.sleep(0.1)  # between two reads of the condition
    return False


class KindTest(FolderTest):
    def compile(self, *arguments):
        code, output, errors = run([os.path.join(JDK, "javac"), "-d", "classes", *arguments],
                                   self.folder)
        self.assertEqual(0, code, output + errors)

    def jar(self, name, *arguments):
        code, output, errors = run([os.path.join(JDK, "jar"), "--create", "--file", name,
                                    *arguments], self.folder)
        self.assertEqual(0, code, output + errors)

    def wrap(self, jar, name, *options, runtime=None):
        """Wraps into the folder NAME, as NAME.exe: the warnings."""
        if runtime:
            home = "Z:" + os.path.join(RUNTIMES, runtime).replace("/", "\\")
            options += ("--set", "Java Runtime Environment/JRE Path=" + home)
        return self.expect("wrap", jar, "--launcher", LAUNCHER, "--out", name, "--name", name,
                           "--replace", *options)[1]

    def settings(self, name):
        text = self.read(name, name + ".ini").decode("ascii")
        return dict(re.findall(r"^([^;=\r\n]+)=(.*)\r$", text, re.M))

    def start(self, name):
        process = subprocess.Popen(["wine", self.path(name, name + ".exe")], cwd=self.folder,
                                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)

        def end():
            process.kill()
            process.wait()
        self.addCleanup(end)
        return process

    def errors_of(self, name):
        """The file that "Error File" names, in the folder of Wine's user."""
        users = os.path.join(os.environ["WINEPREFIX"], "drive_c", "users")
        for user in os.listdir(users):
            file = os.path.join(users, user, "AppData", "Local", name, "errors.txt")
            if os.path.exists(file):
                with open(file, encoding="utf-8", errors="replace") as opened:
                    return opened.read()
        return None

    def expect_window(self, name, title):
        """Starts the application. A window whose title begins so has to be on the screen, with
        something in it."""
        process = self.start(name)

        def areas():
            return [area for each, area in windows().items() if each.startswith(title)]

        def is_seen():
            return process.poll() is not None or any(map(has_picture, areas()))
        self.assertTrue(wait_until(is_seen), f"{title} is not among {windows()}")
        self.assertIsNone(process.poll(), self.errors_of(name))
        process.kill()
        process.wait()
        self.assertTrue(wait_until(lambda: not areas()))


class JavaFxTest(KindTest):
    def make(self, version):
        library = os.path.join(APPLICATIONS, "javafx" + version)
        self.compile("--release", "11", "-cp", library + "/*",
                     os.path.join(SOURCES, "javafx", "demo", "Window.java"))
        self.jar("fx.jar", "--main-class", "demo.Window", "-C", "classes", ".")
        return library

    def test_its_window_is_seen_on_two_runtimes(self):
        for version, number, runtime in (("17", "17.0.10", "17"), ("21", "21.0.2", "25")):
            with self.subTest(version):
                library = self.make(version)
                name = "TarnFx" + version
                warnings = self.wrap("fx.jar", name, "--class-path", library,
                                     "--vm-parameters", ON_WINE, runtime=runtime)
                self.assertEqual("", warnings)
                self.assertEqual("fx.jar", self.settings(name)["Class Path"])
                self.expect_window(
                    name, f"JavaFX {number} on Java {runtime} in module javafx.controls")

    def test_a_start_without_it_leaves_a_message(self):
        self.make("17")
        warnings = self.wrap("fx.jar", "TarnNoFx", runtime="17")
        self.assertIn("no jar contains JavaFX", warnings)
        process = self.start("TarnNoFx")
        self.assertEqual(1, process.wait(PATIENCE))
        self.assertIn("javafx/application/Application", self.errors_of("TarnNoFx"))

    def test_jars_for_other_systems_give_a_warning(self):
        self.put_jar("app.jar", {"Main-Class": "demo.Main"}, {"demo/Main.class": class_file(11)})
        self.put_jar("lib/javafx-graphics-21-linux.jar", {}, {"libprism_sw.so": b"x"})
        self.put_jar("lib/swt.jar", {}, {"libswt-gtk.so": b"x"})
        self.put_jar("lib/other-1.0-mac.jar", {}, {"a": b"x"})
        warnings = self.wrap("app.jar", "app", "--class-path", "lib")
        for warning in ("javafx-graphics-21-linux.jar: is for Linux", "swt.jar: is for Linux",
                        "other-1.0-mac.jar: is for macOS"):
            self.assertIn(warning, warnings)


class SwtTest(KindTest):
    def test_its_window_is_seen_on_two_runtimes(self):
        library = os.path.join(APPLICATIONS, "swt")
        self.compile("--release", "11", "-cp", library + "/*",
                     os.path.join(SOURCES, "swt", "demo", "Window.java"))
        self.jar("swt.jar", "--main-class", "demo.Window", "-C", "classes", ".")
        for runtime in ("17", "21"):
            with self.subTest(runtime):
                name = "TarnSwt" + runtime
                self.assertEqual("", self.wrap("swt.jar", name, "--class-path", library,
                                               "--vm-parameters", ON_WINE, runtime=runtime))
                self.expect_window(name, f"SWT on Java {runtime}")


class ModularApplicationTest(KindTest):
    def setUp(self):
        super().setUp()
        self.compile("--release", "11", "--module-source-path", os.path.join(SOURCES, "modules"),
                     "-m", "demo.app,demo.greeting")
        self.jar("my app.jar", "--main-class", "demo.app.Window", "-C", "classes/demo.app", ".")
        self.jar("lib/greeting.jar", "-C", "classes/demo.greeting", ".")

    def jar(self, name, *arguments):
        os.makedirs(os.path.dirname(self.path(name)), exist_ok=True)
        super().jar(name, *arguments)

    def test_its_window_is_seen_on_two_runtimes(self):
        for runtime in ("11", "25"):
            with self.subTest(runtime):
                name = "TarnModules" + runtime
                self.assertEqual("", self.wrap("my app.jar", name, "--class-path", "lib",
                                               "--vm-parameters", ON_WINE, runtime=runtime))
                self.expect_window(name, "Hello from module demo.greeting to module demo.app on "
                                         "Java " + runtime)

    def test_it_starts_on_the_class_path_when_told(self):
        self.wrap("my app.jar", "TarnClassPath", "--class-path", "lib", "--start-as", "class-path",
                  "--vm-parameters", ON_WINE, runtime="17")
        self.assertEqual("my app.jar;lib\\greeting.jar",
                         self.settings("TarnClassPath")["Class Path"])
        self.expect_window("TarnClassPath", "Hello from unnamed module @")

    def test_a_module_that_is_missing_gives_a_warning(self):
        warnings = self.wrap("my app.jar", "app")
        self.assertIn("demo.app requires the module demo.greeting", warnings)
        self.assertNotIn("Virtual Machine Parameters", self.settings("app"))
        self.assertIn("demo.greeting", self.expect_failure(
            "wrap", "my app.jar", "--launcher", LAUNCHER, "--out", "o", "--start-as", "module"))


class ManifestOptionsTest(KindTest):
    def test_options_of_the_manifest_reach_every_runtime(self):
        self.compile("--release", "8", os.path.join(SOURCES, "options", "demo", "Opened.java"))
        self.put("manifest", b"Main-Class: demo.Opened\nAdd-Opens: java.base/java.lang\n"
                             b"Add-Exports: java.base/sun.nio.ch\n"
                             b"Enable-Native-Access: ALL-UNNAMED\n")
        self.jar("options.jar", "--manifest", "manifest", "-C", "classes", ".")
        for runtime in ("11", "25"):
            name = "TarnOptions" + runtime
            self.assertEqual("", self.wrap("options.jar", name, runtime=runtime))
            self.assertEqual("1.8", self.settings(name)["Minimum Version"])
            self.assertEqual(0, self.start(name).wait(PATIENCE))
            self.assertIn("opened on Java " + runtime, self.errors_of(name))

    def test_the_oldest_java_is_that_of_the_newest_class(self):
        self.put_jar("app.jar", {"Main-Class": "demo.Main", "Class-Path": "lib/a.jar"}, {
            "demo/Main.class": class_file(8), "demo/Newer.class": class_file(11),
            "META-INF/versions/21/demo/Main.class": class_file(21),
            "module-info.class": class_file(25)})
        self.put_jar("lib/a.jar", {}, {"a/A.class": class_file(8)})
        self.wrap("app.jar", "app")
        self.assertEqual("11", self.settings("app")["Minimum Version"])
        self.put_jar("lib/a.jar", {}, {"a/A.class": class_file(17)})
        self.wrap("app.jar", "app")
        self.assertEqual("17", self.settings("app")["Minimum Version"])


if __name__ == "__main__":
    unittest.main()
