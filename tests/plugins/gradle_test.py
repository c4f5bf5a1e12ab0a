"""The example of the Gradle plugin as a user builds it, and what it builds under Wine."""

import glob
import os
import shutil
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
        [java, *(f"--add-opens={package}=ALL-UNNAMED" for package in OPENED),
         "-Dorg.gradle.internal.instrumentation.agent=false", "-Dfile.encoding=UTF-8", "-cp",
         os.path.join(_installation[0], "lib", "*"), "org.gradle.launcher.GradleMain", "--no-daemon",
         "--gradle-user-home", HOME, "--project-cache-dir", os.path.join(folder, ".gradle"), "--console", "plain",
         "--init-script", os.path.join(WORK, "init.gradle"), "--warning-mode", "all", *arguments], folder, 600)


def setUpModule():
    """Puts Gradle together, unless it is there, and copies the example into a folder of its own."""
    builds.prepare()
    _installation.append(builds.gradle_installation())
    shutil.rmtree(WORK, ignore_errors=True)
    os.makedirs(WORK)
    with open(os.path.join(WORK, "init.gradle"), "w", encoding="ascii") as file:
        file.write(INIT)


def copy_example():
    """A copy of examples/gradle that finds the plugin where it was built."""
    folder = os.path.join(WORK, "example")
    shutil.copytree(os.path.join(builds.ROOT, "examples", "gradle"), folder,
                    ignore=shutil.ignore_patterns("build", ".gradle"))
    builds.replace(os.path.join(folder, "settings.gradle"), "'../../dist/repository'",
                   f"'file://{builds.REPOSITORY}'")
    return folder


class ExampleTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = copy_example()
        cls.code, cls.output = gradle(cls.folder, "assemble", "tarnCheck", "tarnZip")
        cls.application = os.path.join(cls.folder, "build", "tarn", "Hello")

    def setUp(self):
        self.assertEqual(0, self.code, self.output[-4000:])

    def test_shows_its_window(self):
        builds.link_runtime(self.application)
        self.assertTrue(builds.shows_window(self.application, "Hello", "Hello Example"))

    def test_has_the_jar_the_dependency_and_the_settings(self):
        names = {os.path.relpath(path, self.application)
                 for path in glob.glob(os.path.join(self.application, "**"), recursive=True)}
        self.assertLessEqual({"Hello.exe", "Hello.ini", "hello-2.1.0.jar", "lib/commons-lang3-3.14.0.jar"}, names)

    def test_names_the_plugin_of_this_version(self):
        with open(os.path.join(self.folder, "build.gradle"), encoding="utf-8") as file:
            self.assertIn(f"version '{builds.version()}'", file.read())

    def test_is_packed_into_a_zip_file(self):
        names = builds.entries(os.path.join(self.folder, "build", "distributions", "Hello-2.1.0-windows-x64.zip"))
        self.assertIn("Hello/Hello.exe", names)


if __name__ == "__main__":
    unittest.main()
