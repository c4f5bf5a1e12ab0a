"""The Gradle plugin in builds that TestKit drives: gradle-plugin/src/test/java, classes GradleBuildIT."""

import glob
import os
import shutil
import unittest
import xml.etree.ElementTree as ElementTree

import builds
import windows_jmods

WORK = os.path.join(builds.WORK, "testkit")
REPORTS = os.path.join(builds.ROOT, "build", "plugins", "tarn-gradle-plugin", "surefire-reports")


class TestKitTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        """Runs all of them in one process, so that they share Gradle's daemon."""
        builds.prepare()
        shutil.rmtree(WORK, ignore_errors=True)
        os.makedirs(WORK)
        settings = os.path.join(WORK, "settings.xml")
        builds.write_settings(settings)
        jmods = windows_jmods.create(builds.environment()["JAVA_HOME"], builds.RUNTIMES, builds.WORK)
        for path in glob.glob(os.path.join(REPORTS, "*BuildIT.xml")):
            os.remove(path)
        cls.code, cls.output = builds.maven(
            os.path.join(builds.ROOT, "gradle-plugin"), "--settings", settings, f"-Drevision={builds.version()}",
            f"-Dtarn.gradle={builds.gradle_installation()}", f"-Dtarn.work={WORK}", f"-Dtarn.jmods={jmods}",
            "-Dtest=*IT", "test")

    def test_every_build_ends_as_expected(self):
        failed, passed = [], 0
        for path in glob.glob(os.path.join(REPORTS, "*BuildIT.xml")):
            for case in ElementTree.parse(path).getroot().iter("testcase"):
                problems = [problem for problem in case if problem.tag in ("failure", "error", "skipped")]
                failed += [f"{case.get('name')}: {problem.text}" for problem in problems]
                passed += not problems
        self.assertEqual([], failed)
        self.assertEqual(0, self.code, self.output[-4000:])
        self.assertGreater(passed, 0)


if __name__ == "__main__":
    unittest.main()
