"""The Maven plugin in real builds, and what they build under Wine."""

import filecmp
import glob
import os
import re
import shutil
import subprocess
import unittest
import xml.etree.ElementTree as ElementTree

import builds
import windows_jmods

HERE = os.path.dirname(os.path.abspath(__file__))
WORK = os.path.join(builds.WORK, "maven")
PROJECTS = os.path.join(WORK, "projects \u00e4")


def setUpModule():
    """Builds all projects at once: what each of them came to is looked at by the tests."""
    builds.prepare()
    shutil.rmtree(WORK, ignore_errors=True)
    os.makedirs(WORK)
    settings = os.path.join(WORK, "settings.xml")
    builds.write_settings(settings)
    jmods = windows_jmods.create(builds.environment()["JAVA_HOME"], builds.RUNTIMES, builds.WORK)
    # The toolchain of linked-runtime: the same JDK by another path.
    os.environ["TARN_TEST_JDK"] = os.path.join(WORK, "jdk")
    os.symlink(builds.environment()["JAVA_HOME"], os.environ["TARN_TEST_JDK"])
    code, output = builds.maven(
        os.path.join(HERE, "maven"), f"-Dtarn.work={WORK}", f"-Dtarn.settings={settings}",
        f"-Dtarn.version={builds.version()}",
        f"-Dtarn.testJmods={jmods}", f"-Dtarn.testSign={write_signing_script()}",
        f"-Dtarn.testRuntime={os.path.join(builds.RUNTIMES, '21')}", "invoker:run")
    if code != 0:
        raise RuntimeError(output[-4000:])


def write_signing_script():
    """Makes a throw-away key, and the script that signs a file in place with it."""
    key, certificate, script = (os.path.join(WORK, name) for name in ("key.pem", "certificate.pem", "sign.sh"))
    subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-keyout", key, "-out",
                    certificate, "-subj", "/CN=Throw-away", "-addext", "extendedKeyUsage=codeSigning"], check=True,
                   stdin=subprocess.DEVNULL, capture_output=True)
    with open(script, "w", encoding="utf-8") as file:
        file.write(f"""osslsigncode sign -certs '{certificate}' -key '{key}' -in "$1" -out "$1.signed" &&
    mv "$1.signed" "$1"
""")
    return script


class MavenTest(unittest.TestCase):
    def log(self, project):
        with open(os.path.join(PROJECTS, project, "build.log"), encoding="utf-8") as file:
            return file.read()

    def expect_as_wanted(self, project):
        """The build succeeded, or failed where its invoker.properties say so."""
        for path in glob.glob(os.path.join(WORK, "reports", "BUILD-*.xml")):
            build = ElementTree.parse(path).getroot()
            if build.get("project").split("/")[0] == project:
                self.assertEqual("success", build.get("result"), self.log(project)[-4000:])
                return
        self.fail(f"{project} was not built")

    def application(self, project, name, *modules):
        self.expect_as_wanted(project)
        return os.path.join(PROJECTS, project, *modules, "target", "tarn", name)

    def error(self, project):
        """The first error of a build that failed as wanted."""
        self.expect_as_wanted(project)
        return next(line for line in self.log(project).splitlines() if line.startswith("[ERROR]"))


class OneJarTest(MavenTest):
    def test_starts_with_the_runtime_and_the_options_of_the_pom(self):
        application = self.application("one-jar", "final")
        self.assertTrue(os.path.isfile(os.path.join(application, "jre64", "bin", "server", "jvm.dll")))
        self.assertIn("one jar: 1, 2 3", builds.start(application, "final"))

    def test_has_an_archive_of_its_classes_after_the_first_start(self):
        application = self.application("one-jar", "final")
        archives = os.path.join(builds.local_application_data(), "final")
        shutil.rmtree(archives, ignore_errors=True)
        for _ in range(2):
            # Java may say something about the archive, too.
            self.assertIn("one jar: 1, 2 3", builds.start(application, "final"))
            archive, = glob.glob(os.path.join(archives, "final-*.jsa"))
        self.assertGreater(os.path.getsize(archive), 0)

    def test_has_what_the_pom_adds(self):
        self.assertTrue(os.path.isfile(os.path.join(self.application("one-jar", "final"), "notes \u00e4.txt")))

    def test_carries_the_names_of_the_pom(self):
        with open(os.path.join(self.application("one-jar", "final"), "final.exe"), "rb") as file:
            content = file.read()
        for text in ("One Jar Gr\u00f6\u00dfe", "Example Ltd", "2.1.0"):
            self.assertIn(text.encode("utf-16-le"), content)

    def test_is_attached_as_a_zip_file(self):
        application = self.application("one-jar", "final")
        names = builds.entries(os.path.join(os.path.dirname(application), "one-jar-2.1.0-windows-x64.zip"))
        self.assertIn("final/final.exe", names)
        self.assertIn("final/notes \u00e4.txt", names)

    def test_is_made_once_when_nothing_changes(self):
        self.expect_as_wanted("one-jar")
        self.assertEqual((1, 1), (self.log("one-jar").count("[INFO] created "),
                                  self.log("one-jar").count("is up to date")))


class MultiModuleTest(MavenTest):
    def test_starts_with_the_jar_of_the_other_module(self):
        application = self.application("multi-module", "application", "application")
        builds.link_runtime(application)
        self.assertEqual("multi-module: from another module", builds.start(application, "application"))

    def test_has_the_dependencies_of_scope_runtime_and_no_others(self):
        application = self.application("multi-module", "application", "application")
        self.assertEqual(["commons-lang3-3.14.0.jar", "library-2.1.0.jar"],
                         sorted(os.listdir(os.path.join(application, "lib"))))


    def test_its_setup_program_installs_it(self):
        application = self.application("multi-module", "application", "application")
        installed = os.path.join(WORK, "installed")
        builds.run_silently(os.path.join(os.path.dirname(application), "application-2.1.0-setup.exe"),
                            "/S", "/D=" + builds.windows_path(installed))
        try:
            self.assertTrue(os.path.isfile(os.path.join(installed, "lib", "library-2.1.0.jar")))
            builds.link_runtime(installed)
            self.assertEqual("multi-module: from another module", builds.start(installed, "application"))
        finally:
            os.remove(os.path.join(installed, "jre64"))
            builds.run_silently(os.path.join(installed, "uninstall.exe"), "/S", "_?=" + builds.windows_path(installed))

    def times(self, event, file):
        """How often the builds of the three goals say this about a file."""
        return len(re.findall(rf"\[INFO\] {event}.*{file}", self.log("multi-module")))

    def test_its_setup_program_is_made_once(self):
        self.application("multi-module", "application", "application")
        self.assertEqual(1, self.times("created ", r"-setup\.exe"))
        self.assertEqual(2, len(re.findall(r"-setup\.exe is up to date", self.log("multi-module"))))

    def test_its_msi_is_made_again_when_the_manifests_are_missing(self):
        folder = os.path.dirname(self.application("multi-module", "application", "application"))
        self.assertEqual(2, self.times("created ", r"\.msi"))
        self.assertEqual(1, len(re.findall(r"\.msi is up to date", self.log("multi-module"))))
        manifests = [name for name in os.listdir(folder) if name.endswith((".yaml", ".json"))]
        self.assertEqual(["application.json", "ExampleLtd.application.installer.yaml",
                          "ExampleLtd.application.locale.en-US.yaml", "ExampleLtd.application.yaml"],
                         sorted(manifests, key=str.lower))

    def test_its_msi_and_the_executable_inside_are_signed(self):
        folder = os.path.dirname(self.application("multi-module", "application", "application"))
        unpacked = os.path.join(WORK, "unpacked")
        subprocess.run(["msiextract", "-C", unpacked, os.path.join(folder, "application-2.1.0.msi")], check=True,
                       capture_output=True)
        executable, = glob.glob(os.path.join(unpacked, "**", "application.exe"), recursive=True)
        for file in (os.path.join(folder, "application-2.1.0.msi"), executable):
            done = subprocess.run(["osslsigncode", "verify", "-CAfile", os.path.join(WORK, "certificate.pem"), "-in", file],
                                  check=False, capture_output=True)
            self.assertIn(b"Signature verification: ok", done.stdout)

    def test_its_setup_programs_are_artifacts(self):
        folder = os.path.dirname(self.application("multi-module", "application", "application"))
        deployed = os.path.join(PROJECTS, "multi-module", "deployed", "com", "example", "tests", "application", "2.1.0")
        for file, artifact in (("application-2.1.0-setup.exe", "application-2.1.0-setup.exe"),
                               ("application-2.1.0.msi", "application-2.1.0-setup.msi")):
            self.assertTrue(filecmp.cmp(os.path.join(folder, file), os.path.join(deployed, artifact), shallow=False))


class ShadedJarTest(MavenTest):
    def test_starts_without_the_jars_that_it_contains(self):
        application = self.application("shaded", "shaded")
        self.assertFalse(os.path.exists(os.path.join(application, "lib")))
        builds.link_runtime(application)
        self.assertEqual("shaded: Word", builds.start(application, "shaded"))


class JavaFxTest(MavenTest):
    def test_has_the_jars_for_windows(self):
        application = self.application("javafx", "javafx")
        names = [os.path.basename(path)
                 for path in glob.glob(os.path.join(application, "**", "*.jar"), recursive=True)]
        self.assertIn("javafx-graphics-21.0.5-win.jar", names)
        self.assertEqual([], [name for name in names if "linux" in name or "mac" in name])

    def test_shows_its_window(self):
        application = self.application("javafx", "javafx")
        builds.link_runtime(application)
        self.assertIn("JavaFX: shown", builds.start(application, "javafx"))


class LinkedRuntimeTest(MavenTest):
    def test_starts_with_the_runtime_that_is_linked_for_it(self):
        application = self.application("linked-runtime", "linked-runtime")
        with open(os.path.join(application, "jre64", "release"), encoding="utf-8") as file:
            self.assertIn('MODULES="java.base"', file.read())
        feature = windows_jmods.feature_of(builds.environment()["JAVA_HOME"])
        self.assertRegex(builds.start(application, "linked-runtime"), rf"^linked: {feature}\.")

    def test_is_linked_by_the_toolchain(self):
        self.application("linked-runtime", "linked-runtime")
        self.assertIn("with the jlink of " + os.path.join(WORK, "jdk"), self.log("linked-runtime"))


class MistakeTest(MavenTest):
    def test_no_main_class_says_what_to_write(self):
        self.assertIn("<mainClass>", self.error("no-main-class"))

    def test_a_bad_icon_is_named(self):
        self.assertIn("icon.png", self.error("bad-icon"))

    def test_a_goal_before_the_jar_names_the_phase(self):
        self.assertIn("mvn package", self.error("too-early"))

    def test_a_finding_has_file_and_line(self):
        self.expect_as_wanted("findings")
        found = [line for line in self.log("findings").splitlines() if line.startswith("[ERROR]")]
        place = os.path.join("App", "App.ini:2: warning: ")
        self.assertTrue(any(place in line for line in found), found)

    def test_a_failure_leaves_no_result(self):
        for project in ("no-main-class", "bad-icon", "too-early"):
            self.expect_as_wanted(project)
            left = glob.glob(os.path.join(PROJECTS, project, "target", "tarn", "*"))
            self.assertEqual([], [path for path in left if not path.endswith(".toml")])


class ExampleTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = os.path.join(WORK, "example \u00e4")
        shutil.copytree(os.path.join(builds.ROOT, "examples", "maven"), cls.folder,
                        ignore=shutil.ignore_patterns("target"))
        builds.replace(os.path.join(cls.folder, "pom.xml"), "${project.baseUri}../../dist/repository",
                       f"file://{builds.REPOSITORY}")
        cls.cache = os.path.join(WORK, "prepared cache")
        builds.prepare_companion(cls.cache)
        cls.code, cls.output = builds.maven(cls.folder, "package", cache=cls.cache)

    def test_shows_its_window(self):
        self.assertEqual(0, self.code, self.output[-4000:])
        application = os.path.join(self.folder, "target", "tarn", "Hello")
        builds.link_runtime(application)
        self.assertTrue(builds.shows_window(application, "Hello", "Hello Example"))

    def test_is_built_with_a_prepared_cache_to_which_nothing_is_written(self):
        self.assertEqual(0, self.code, self.output[-4000:])
        self.assertEqual({builds.PREPARED}, {os.stat(path).st_mtime for path in
                                             (self.cache, *glob.glob(os.path.join(self.cache, "**"), recursive=True))})

    def test_names_the_plugin_of_this_version(self):
        with open(os.path.join(builds.ROOT, "examples", "maven", "pom.xml"), encoding="utf-8") as file:
            self.assertIn(f"<version>{builds.version()}</version>", file.read())


class HelpTest(unittest.TestCase):
    def test_lists_the_parameters_of_each_goal(self):
        code, output = builds.maven(
            os.path.join(builds.ROOT, "examples", "maven"), "--settings", os.path.join(WORK, "settings.xml"),
            f"io.github.tarn-launcher:tarn-maven-plugin:{builds.version()}:help", "-Ddetail")
        self.assertEqual(0, code, output[-4000:])
        # The name of a goal is at the start of a line.
        goals = dict(re.findall(r"(?ms)^tarn:(\w+)$(.*?)(?=^\S|\Z)", output))
        expected = {"wrap": ("mainClass", "icon", "runtime", "attach", "name", "allow"),
                    "check": ("name", "outputDirectory", "allow"),
                    "setup": ("name", "id", "license", "associate", "msi", "sign", "attachSetup")}
        for goal, parameters in expected.items():
            for parameter in parameters:
                self.assertRegex(goals[goal], rf"(?m)^ +{parameter}\b", goal)
        # The goal reports no findings.
        self.assertNotRegex(goals["setup"], r"(?m)^ +allow\b")


if __name__ == "__main__":
    unittest.main()
