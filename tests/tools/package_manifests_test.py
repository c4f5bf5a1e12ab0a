"""tarn setup --url: the manifests for package managers are what their published schemas accept.

The schemas in manifest_schemas/ contain what the published ones demand of the fields that we write.
"""

import hashlib
import json
import os
import unittest

import jsonschema
import yaml

from tarn_program import LAUNCHER, ROOT, FolderTest

JAR = os.path.join(ROOT, "build", "release", "tests", "fixtures.jar")
SCHEMAS = os.path.join(ROOT, "tests", "tools", "manifest_schemas")
URL = "https://example.org/get/Viewer-1.10%20setup"


class PackageManifestsTest(FolderTest):
    def setUp(self):
        super().setUp()
        self.expect("wrap", JAR, "--launcher", LAUNCHER, "--out", "app", "--name", "Viewer",
                    "--vendor", "Acme: \"Tools\"", "--version", "1.10", "--description", "yes # no")

    def make(self, name, *options):
        self.expect("setup", "app", "--out", name, "--url", URL, "--associate", ".tdoc=Text",
                    "--protocol", "tdoc=Link", *options)

    def check(self, text, schema):
        with open(os.path.join(SCHEMAS, schema + ".json"), encoding="utf-8") as file:
            rules = json.load(file)
        jsonschema.Draft7Validator.check_schema(rules)
        jsonschema.validate(text, rules)
        return text

    def check_winget(self):
        found = {}
        for end, schema in (("", "version"), (".installer", "installer"),
                            (".locale.en-US", "default_locale")):
            content = yaml.safe_load(self.read("AcmeTools.Viewer" + end + ".yaml"))
            found[schema] = self.check(content, "winget_" + schema)
        return found

    def check_scoop(self):
        return self.check(json.loads(self.read("Viewer.json")), "scoop")

    def sha256(self, name):
        return hashlib.sha256(self.read(name)).hexdigest()

    def test_an_msi_is_described_for_winget_and_scoop(self):
        self.make("viewer.msi", "--msi")
        found = self.check_winget()
        installer = found["installer"]
        self.assertEqual("1.10", installer["PackageVersion"])
        self.assertEqual(("msi", "user"), (installer["InstallerType"], installer["Scope"]))
        self.assertEqual([{"Architecture": "x64", "InstallerUrl": URL,
                           "InstallerSha256": self.sha256("viewer.msi")}], installer["Installers"])
        entry, = installer["AppsAndFeaturesEntries"]
        self.assertEqual("1.10.0", entry["DisplayVersion"])
        self.assertEqual("yes # no", found["default_locale"]["ShortDescription"])
        files = self.check_scoop()["architecture"]["64bit"]
        self.assertEqual(self.sha256("viewer.msi"), files["hash"])
        self.assertEqual(URL, files["url"])

    def test_a_setup_program_is_described_for_winget_and_scoop(self):
        self.make("viewer.exe", "--license-name", "MIT", "--homepage", "https://example.org/viewer")
        found = self.check_winget()
        self.assertEqual("nullsoft", found["installer"]["InstallerType"])
        self.assertEqual("MIT", found["default_locale"]["License"])
        scoop = self.check_scoop()
        self.assertEqual("https://example.org/viewer", scoop["homepage"])
        self.assertEqual(URL + "#/setup.exe", scoop["architecture"]["64bit"]["url"])

    def test_what_the_schemas_do_not_accept_is_refused_before_anything_is_made(self):
        for options, message in ((["--url", "example.org/viewer.exe"], "--url"),
                                 (["--url", URL, "--homepage", "none"], "--homepage"),
                                 (["--url", URL, "--vendor", "X"], "the vendor"),
                                 (["--url", URL, "--version", "1:2"], "the version")):
            with self.subTest(options=options):
                self.assertIn(message, self.expect_failure("setup", "app", *options))

    def test_without_an_address_there_are_none(self):
        self.expect("setup", "app", "--msi", "--out", "viewer.msi")
        self.assertEqual([], [name for name in self.names() if name.endswith((".yaml", ".json"))])


if __name__ == "__main__":
    unittest.main()
