"""The Gradle plugin in real builds, and what they build under Wine."""

import glob
import os
import shutil
import subprocess
import sys
import unittest

import builds

WORK = os.path.join(builds.WORK, "gradle \u00e4")
HOME = os.path.join(builds.CACHE, "gradle-home")
# The JDK's compiler, because this Gradle lacks what its own compiler processes are made of.
INIT = """allprojects {
    tasks.withType(JavaCompile).configureEach {
        options.fork = true
        options.forkOptions.executable = System.getProperty('java.home') + '/bin/javac'
    }
}
"""
# What Gradle's own start scripts open.
OPENED = ("java.base/java.lang", "java.base/java.lang.invoke", "java.base/java.util", "java.base/java.net",
          "java.base/java.nio.charset", "java.base/java.util.concurrent.atomic", "java.prefs/java.util.prefs")

_installation = []


def gradle(folder, *arguments):
    """Runs Gradle in a folder: (exit code, everything that it printed)."""
    java = os.path.join(builds.environment()["JAVA_HOME"], "bin", "java")
    return builds.run(
        [java, *(f"--add-opens={package}=ALL-UNNAMED" for package in OPENED), "-Dorg.gradle.internal.instrumentation.agent=false", "-Dfile.encoding=UTF-8", "-cp",
         os.path.join(_installation[0], "lib", "*"), "org.gradle.launcher.GradleMain", "--no-daemon",
         "--gradle-user-home", HOME, "--project-cache-dir", os.path.join(folder, ".gradle"), "--console", "plain",
         "--init-script", os.path.join(WORK, "init.gradle"), "--warning-mode", "all", *arguments], folder, 600)


def setUpModule():
    """Puts Gradle together, unless it is there, and copies the example into a folder of its own."""
    builds.prepare()
    _installation.append(subprocess.check_output(
        [sys.executable, os.path.join(builds.ROOT, "scripts", "lib", "assemble_gradle.py")],
        text=True, env=builds.environment()).strip())
    shutil.rmtree(WORK, ignore_errors=True)
    os.makedirs(WORK)
    with open(os.path.join(WORK, "init.gradle"), "w", encoding="ascii") as file:
        file.write(INIT)


def copy_example(name):
    """A copy of examples/gradle that finds the plugin where it was built."""
    folder = os.path.join(WORK, name)
    shutil.copytree(os.path.join(builds.ROOT, "examples", "gradle"), folder,
                    ignore=shutil.ignore_patterns("build", ".gradle"))
    builds.replace(os.path.join(folder, "settings.gradle"), "'../../dist/repository'",
                   f"'file://{builds.REPOSITORY}'")
    with open(os.path.join(folder, "settings.gradle"), "a", encoding="utf-8") as file:
        file.write("\nbuildCache { local { directory = file('cache') } }\n")
    return folder


class ExampleTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        """Builds the example three times: at first, unchanged, and after its results were deleted."""
        cls.folder = copy_example("example")
        options = ("--configuration-cache", "--build-cache", "assemble", "tarnCheck", "tarnZip")
        cls.first = gradle(cls.folder, *options)
        cls.second = gradle(cls.folder, *options)
        shutil.rmtree(os.path.join(cls.folder, "build", "tarn"), ignore_errors=True)
        cls.third = gradle(cls.folder, *options)
        cls.application = os.path.join(cls.folder, "build", "tarn", "Hello")

    def expect(self, build, *lines):
        self.assertEqual(0, build[0], build[1][-4000:])
        for line in lines:
            self.assertIn(line, build[1])

    def test_shows_its_window(self):
        self.expect(self.first)
        builds.link_runtime(self.application)
        self.assertTrue(builds.shows_window(self.application, "Hello", "Hello Example"))

    def test_has_the_jar_the_dependency_and_the_settings(self):
        self.expect(self.first)
        names = {os.path.relpath(path, self.application)
                 for path in glob.glob(os.path.join(self.application, "**"), recursive=True)}
        self.assertLessEqual({"Hello.exe", "Hello.ini", "hello-2.1.0.jar", "lib/commons-lang3-3.14.0.jar"}, names)

    def test_names_the_plugin_of_this_version(self):
        with open(os.path.join(self.folder, "build.gradle"), encoding="utf-8") as file:
            self.assertIn(f"version '{builds.version()}'", file.read())

    def test_is_packed_into_a_zip_file(self):
        self.expect(self.first)
        names = builds.entries(os.path.join(self.folder, "build", "distributions", "Hello-2.1.0-windows-x64.zip"))
        self.assertIn("Hello/Hello.exe", names)

    def test_is_up_to_date_when_nothing_changed(self):
        self.expect(self.second, "Task :tarnWrap UP-TO-DATE", "Task :tarnCheck UP-TO-DATE")

    def test_its_configuration_is_kept(self):
        self.expect(self.second, "Reusing configuration cache.")

    def test_comes_from_the_build_cache(self):
        self.expect(self.third, "Task :tarnWrap FROM-CACHE")


class MistakeTest(unittest.TestCase):
    def test_a_bad_icon_is_named_in_one_line(self):
        folder = copy_example("bad icon")
        with open(os.path.join(folder, "src", "main", "icon.png"), "w", encoding="ascii") as file:
            file.write("This is no picture.\n")
        code, output = gradle(folder, "tarnWrap")
        self.assertNotEqual(0, code)
        wrong = [line for line in output.splitlines() if line.startswith("> ") and "icon.png" in line]
        self.assertEqual(1, len(wrong), output[-4000:])
        self.assertIn("tarn { }", wrong[0])


if __name__ == "__main__":
    unittest.main()
