package io.github.tarnlauncher.gradle;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.jar.JarOutputStream;
import java.util.jar.Manifest;
import org.gradle.testkit.runner.BuildResult;
import org.gradle.testkit.runner.TaskOutcome;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.Test;

/**
 * Builds with a real Gradle, driven by TestKit. tests/plugins/testkit_test.py runs them and sets the system properties:
 * {@code tarn.gradle}, an installation of Gradle; {@code tarn.work}, a folder for projects; {@code tarn.jmods}, modules
 * of a JDK for Windows.
 */
class GradleBuildIT {
    private static final String WRAP = ":tarnWrap";

    @BeforeAll
    static void configureGradle() throws IOException {
        Path home = Files.createDirectories(SampleProject.work().resolve("testkit"));
        // The assembled installation has no agent.
        Files.writeString(home.resolve("gradle.properties"), "org.gradle.internal.instrumentation.agent=false\n");
    }

    private static TaskOutcome outcome(BuildResult result, String task) {
        return result.task(task).getOutcome();
    }

    private static void assertOneLine(String report, String... parts) {
        long lines = report.lines().filter(line -> line.contains(parts[0])).count();
        assertEquals(1, lines, report);
        for (String part : parts) assertTrue(report.contains(part), report);
    }

    @Test
    void whatHasNotChangedIsUpToDate() throws IOException {
        SampleProject project = new SampleProject("unchanged");
        assertEquals(TaskOutcome.SUCCESS, outcome(project.build("tarnWrap", "tarnCheck", "tarnZip"), WRAP));
        BuildResult second = project.build("tarnWrap", "tarnCheck", "tarnZip");
        for (String task : new String[] {WRAP, ":tarnCheck", ":tarnZip"}) {
            assertEquals(TaskOutcome.UP_TO_DATE, outcome(second, task), task);
        }
    }

    @Test
    void aChangedJarOfTheSameSizeIsWrappedAgain() throws IOException {
        SampleProject project = new SampleProject("changed jar");
        project.script("jar { preserveFileTimestamps = false; entryCompression = 'STORED' }");
        project.write("src/main/resources/word.txt", "morning");
        project.build("tarnWrap");
        project.write("src/main/resources/word.txt", "evening");
        assertEquals(TaskOutcome.SUCCESS, outcome(project.build("tarnWrap"), WRAP));
        byte[] jar = Files.readAllBytes(project.path("build/tarn/hello/hello-2.1.0.jar"));
        assertTrue(new String(jar, StandardCharsets.ISO_8859_1).contains("evening"));
    }

    @Test
    void aFileThatIsNoLongerAddedLeavesTheResult() throws IOException {
        SampleProject project = new SampleProject("added");
        project.write("notes.txt", "notes");
        project.script("tarn.add.from 'notes.txt'").build("tarnWrap");
        assertTrue(Files.exists(project.path("build/tarn/hello/notes.txt")));
        project.script().build("tarnWrap");
        assertFalse(Files.exists(project.path("build/tarn/hello/notes.txt")));
    }

    @Test
    void aFolderWithOtherFilesIsNotReplaced() throws IOException {
        SampleProject project = new SampleProject("other files");
        project.write("documents/letter.txt", "Dear reader");
        project.script("tarnWrap.destination = file('documents')");
        assertOneLine(project.failure("tarnWrap"), "is not replaced");
        assertEquals("Dear reader", Files.readString(project.path("documents/letter.txt")));
    }

    @Test
    void aNameThatLeavesTheFolderIsRefused() throws IOException {
        SampleProject project = new SampleProject("leaving");
        assertOneLine(project.script("tarn.name = '../..'").failure("tarnWrap"), "is not a valid name");
        assertTrue(Files.exists(project.path("build.gradle")));
    }

    @Test
    void theResultOfAnotherFolderComesFromTheBuildCache() throws IOException {
        String script = "tarn.title = 'From the cache'\njar { preserveFileTimestamps = false }";
        new SampleProject("cache 1").script(script).build("--build-cache", "tarnWrap", "tarnCheck");
        SampleProject second = new SampleProject("cache 2").script(script);
        BuildResult result = second.build("--build-cache", "tarnWrap", "tarnCheck");
        assertEquals(TaskOutcome.FROM_CACHE, outcome(result, WRAP));
        assertEquals(TaskOutcome.FROM_CACHE, outcome(result, ":tarnCheck"));
        assertTrue(Files.exists(second.path("build/tarn/hello/hello.exe")));
    }

    @Test
    void theConfigurationIsKeptWhileAValueChanges() throws IOException {
        SampleProject project = new SampleProject("configuration");
        project.script("tarn.arguments = providers.fileContents(layout.projectDirectory.file('arguments.txt')).asText");
        project.write("arguments.txt", "first");
        project.build("--configuration-cache", "tarnWrap", "tarnCheck", "tarnZip");
        project.write("arguments.txt", "second");
        BuildResult result = project.build("--configuration-cache", "tarnWrap", "tarnCheck", "tarnZip");
        assertTrue(result.getOutput().contains("Reusing configuration cache."), result.getOutput());
        assertEquals(TaskOutcome.SUCCESS, outcome(result, WRAP));
        assertTrue(project.settings("hello").contains("second"), project.settings("hello"));
    }

    @Test
    void aValueIsNotComputedForABuildThatDoesNotNeedIt() throws IOException {
        SampleProject project = new SampleProject("lazy");
        project.script("tarn.vendor = provider { throw new GradleException('computed') }");
        project.build("jar");
        assertTrue(project.failure("tarnWrap").contains("computed"));
    }

    @Test
    void aNameThatIsSetLaterIsUsedEverywhere() throws IOException {
        SampleProject project = new SampleProject("later");
        project.script("tasks.named('tarnWrap').get()", "afterEvaluate { tarn.name = 'Later' }");
        project.build("tarnCheck", "tarnZip");
        assertTrue(Files.exists(project.path("build/tarn/Later/Later.exe")));
        assertTrue(Files.exists(project.path("build/distributions/Later-2.1.0-windows-x64.zip")));
    }

    @Test
    void settingsInsideTheExecutableNeedNoCheck() throws IOException {
        SampleProject project = new SampleProject("single");
        assertEquals(TaskOutcome.SUCCESS, outcome(project.script("tarn.singleFile = true").build("tarnCheck"), ":tarnCheck"));
    }

    @Test
    void aRuntimeIsLinkedOnceByTheToolchain() throws IOException {
        SampleProject project = new SampleProject("linked");
        project.script("tarn.jlink {", "    jmods = file('" + SampleProject.property("tarn.jmods") + "')",
            "    options = ['--disable-plugin', 'generate-jli-classes', '--disable-plugin', 'system-modules']", "}");
        project.build("tarnWrap");
        assertTrue(Files.exists(project.path("build/tarn/hello/jre64/bin/server/jvm.dll")));
        assertEquals(TaskOutcome.UP_TO_DATE, outcome(project.build("tarnWrap"), WRAP));
    }

    @Test
    void aSetupProgramIsMadeOnce() throws IOException {
        SampleProject project = new SampleProject("setup");
        project.write("LICENSE.txt", "You may use it.\n");
        project.script("tarn.vendor = 'Example Ltd'", "tarn.installer {", "    license = file('LICENSE.txt')",
            "    associate = ['.hello=Greeting']", "    protocol = ['greet=Greeting']", "    desktopShortcut = true", "}");
        project.build("tarnSetup");
        assertTrue(Files.size(project.path("build/tarn-setup/hello-2.1.0-setup.exe")) > 0);
        assertEquals(TaskOutcome.UP_TO_DATE, outcome(project.build("tarnSetup"), ":tarnSetup"));
    }

    @Test
    void anMsiIsSignedAndPublishedWithItsManifests() throws IOException {
        SampleProject project = new SampleProject("msi");
        project.write("sign.sh", "echo \"${1##*/}\" >>signed.txt\n");
        project.script("apply plugin: 'maven-publish'", "group = 'com.example'", "tarn.vendor = 'Example Ltd'",
            "tarn.installer {", "    msi = true", "    url = 'https://example.com/hello.msi'",
            "    sign = \"cd '$projectDir' && sh sign.sh\"", "}", "publishing {",
            "    repositories { maven { url = layout.buildDirectory.dir('repository') } }",
            "    publications {", "        application(MavenPublication) {",
            "            artifact(tasks.named('tarnSetup').flatMap { it.setupFile }) {",
            "                classifier = 'setup'", "                extension = 'msi'", "            }",
            "            artifact tarnZip", "        }", "    }", "}");
        project.build("publish");
        Path published = project.path("build/repository/com/example/hello/2.1.0");
        assertArrayEquals(Files.readAllBytes(project.path("build/tarn-setup/hello-2.1.0.msi")),
            Files.readAllBytes(published.resolve("hello-2.1.0-setup.msi")));
        assertTrue(Files.exists(published.resolve("hello-2.1.0-windows-x64.zip")));
        assertEquals(List.of("hello.exe", "package.msi"), Files.readAllLines(project.path("signed.txt")));
        Files.delete(project.path("build/tarn-setup/hello.json"));
        assertEquals(TaskOutcome.SUCCESS, outcome(project.build("tarnSetup"), ":tarnSetup"));
        assertTrue(Files.exists(project.path("build/tarn-setup/hello.json")));
    }

    @Test
    void aFastStartNeedsNoMoreThanItsProperty() throws IOException {
        SampleProject project = new SampleProject("fast");
        project.script("tarn.fastStart = true").build("tarnCheck");
        assertTrue(project.settings("hello").contains("Fast Start=%LOCALAPPDATA%\\hello\\hello"), project.settings("hello"));
    }

    @Test
    void aBadAssociationOfTheSetupProgramIsNamed() throws IOException {
        SampleProject project = new SampleProject("bad setup");
        project.script("tarn.installer.associate = ['hello=Greeting']");
        assertOneLine(project.failure("tarnSetup"), "associate", "tarn { }");
    }

    @Test
    void modulesForAnotherSystemAreRefused() throws IOException {
        SampleProject project = new SampleProject("foreign modules");
        project.script("tarn.jlink {", "    jmods = file('" + System.getProperty("java.home") + "/jmods')",
            "    modules = ['java.base']", "}");
        assertOneLine(project.failure("tarnWrap"), "are not for Windows");
    }

    @Test
    void aToolchainOfThisSystemIsNoRuntimeForWindows() throws IOException {
        SampleProject project = new SampleProject("toolchain");
        project.script("tarn.runtime = javaToolchains.launcherFor(java.toolchain).map { it.metadata.installationPath }");
        assertOneLine(project.failure("tarnWrap"), "runtime", "tarn { }");
    }

    @Test
    void runtimeAndJlinkExcludeEachOther() throws IOException {
        SampleProject project = new SampleProject("both");
        String jmods = SampleProject.property("tarn.jmods").toString();
        project.script("tarn.runtime = file('src')", "tarn.jlink { jmods = file('" + jmods + "') }");
        assertOneLine(project.failure("tarnWrap"), "runtime and jlink exclude each other");
    }

    @Test
    void aMissingMainClassSaysWhatToWrite() throws IOException {
        assertOneLine(new SampleProject("no main class").script("tarn.mainClass = null").failure("tarnWrap"),
            "specify mainClass", "tarn { }");
    }

    @Test
    void aMissingFileIsNamedWithItsProperty() throws IOException {
        String report = new SampleProject("missing icon").script("tarn.icon = file('none.png')").failure("tarnWrap");
        assertTrue(report.contains("icon") && report.contains("none.png"), report);
    }

    @Test
    void aBadIconIsNamedInOneLine() throws IOException {
        SampleProject project = new SampleProject("bad icon");
        project.write("icon.png", "This is no picture.\n");
        assertOneLine(project.script("tarn.icon = file('icon.png')").failure("tarnWrap"), "icon.png", "tarn { }");
        assertFalse(Files.exists(project.path("build/tarn/hello/hello.exe")));
    }

    @Test
    void aFindingFailsTheCheck() throws IOException {
        SampleProject project = new SampleProject("finding");
        project.script("def settings = file('build/tarn/hello/hello.ini')",
            "tarnWrap.doLast { settings << '\\n[Own]\\nKey=1\\n' }");
        assertOneLine(project.failure("tarnCheck"), "hello.ini: 1 finding");
    }

    @Test
    void anAcceptedFindingFailsNoTask() throws IOException {
        SampleProject project = new SampleProject("accepted");
        project.script("tarn.allow = ['unknown-section']", "tarn.set = ['Own/Key=1']");
        assertEquals(TaskOutcome.SUCCESS, outcome(project.build("tarnCheck"), ":tarnCheck"));
    }

    @Test
    void aDependencyWithAnImpossibleNameIsNamed() throws IOException {
        // A device, a separator of class paths, a variable, a stream of another file, a name that Windows shortens.
        for (String name : new String[] {"aux.jar", "a;b.jar", "a%b.jar", "x:y.jar", "end.jar "}) {
            SampleProject project = projectWithLibraries(name);
            assertOneLine(project.failure("tarnWrap"), name, "rename it");
            assertFalse(Files.exists(project.path("build/tarn/hello/hello.exe")), name);
        }
    }

    @Test
    void dependenciesWhoseNamesDifferInCaseOnlyAreNamed() throws IOException {
        SampleProject project = projectWithLibraries("Same.jar", "more/same.jar");
        assertOneLine(project.failure("tarnWrap"), "more/same.jar", "Same.jar", "does not distinguish");
        assertFalse(Files.exists(project.path("build/tarn/hello/hello.exe")));
    }

    private static SampleProject projectWithLibraries(String... names) throws IOException {
        SampleProject project = new SampleProject("hostile");
        StringBuilder libraries = new StringBuilder();
        for (String name : names) {
            Path library = project.path("libs/" + name);
            Files.createDirectories(library.getParent());
            try (JarOutputStream jar = new JarOutputStream(Files.newOutputStream(library), new Manifest())) {
                jar.finish();
            }
            libraries.append(", 'libs/").append(name).append('\'');
        }
        return project.script("dependencies { runtimeOnly files(" + libraries.substring(2) + ") }");
    }

    @Test
    void aCacheThatCannotBeUsedNamesTheVariable() throws IOException {
        SampleProject project = new SampleProject("no cache");
        project.write("file", "");
        Map<String, String> environment = new HashMap<>(System.getenv());
        environment.put("TARN_CACHE", project.path("file").toString());
        assertOneLine(project.failure(environment, "tarnWrap"), "TARN_CACHE");
    }
}
