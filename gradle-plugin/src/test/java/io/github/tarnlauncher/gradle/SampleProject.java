package io.github.tarnlauncher.gradle;

import com.google.gson.JsonParser;
import io.github.tarnlauncher.plugin.Companion;
import java.io.File;
import java.io.IOException;
import java.io.InputStream;
import java.net.URI;
import java.net.URISyntaxException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import java.util.Map;
import java.util.stream.Collectors;
import java.util.stream.Stream;
import org.gradle.testkit.runner.BuildResult;
import org.gradle.testkit.runner.GradleRunner;

/** A project that TestKit builds with the plugin as it was just compiled. */
final class SampleProject {
    private static final String MAIN = GreetingMain.class.getName();

    private final Path folder;

    /** Creates the project in a folder of its own below the folder of the tests. */
    SampleProject(String name) throws IOException {
        folder = work().resolve(name + " \u00e4");
        deleteTree(folder);
        write("settings.gradle", "rootProject.name = 'hello'\n"
            + "buildCache { local { directory = new File(settingsDir, '../cache') } }\n");
        script("");
        Path main = path("src/main/resources/" + MAIN.replace('.', '/') + ".class");
        Files.createDirectories(main.getParent());
        try (InputStream content = GreetingMain.class.getResourceAsStream("GreetingMain.class")) {
            Files.copy(content, main);
        }
    }

    /** The folder of the tests, which the property {@code tarn.work} names. */
    static Path work() {
        return property("tarn.work");
    }

    /** A path that whoever starts the tests names. */
    static Path property(String name) {
        return Path.of(System.getProperty(name));
    }

    static void deleteTree(Path folder) throws IOException {
        if (!Files.exists(folder)) return;
        try (Stream<Path> below = Files.walk(folder)) {
            for (Path path : below.sorted((a, b) -> b.compareTo(a)).collect(Collectors.toList())) Files.delete(path);
        }
    }

    /** Sets the build script's lines after the block {@code plugins}. */
    SampleProject script(String... lines) throws IOException {
        write("build.gradle", "plugins {\n    id 'java'\n    id 'io.github.tarn-launcher.tarn'\n}\nversion = '2.1.0'\n"
            + "tarn.mainClass = '" + MAIN + "'\n" + String.join("\n", lines) + "\n");
        return this;
    }

    void write(String name, String content) throws IOException {
        Files.createDirectories(path(name).getParent());
        Files.writeString(path(name), content);
    }

    Path path(String name) {
        return folder.resolve(name);
    }

    String settings(String application) throws IOException {
        return Files.readString(path("build/tarn/" + application + "/" + application + ".ini"));
    }

    BuildResult build(String... arguments) {
        return runner(arguments).build();
    }

    /** A build that fails. Returns what Gradle reports as the reason. */
    String failure(String... arguments) {
        return reportOf(runner(arguments).buildAndFail());
    }

    String failure(Map<String, String> environment, String... arguments) {
        return reportOf(runner(arguments).withEnvironment(environment).buildAndFail());
    }

    private static String reportOf(BuildResult result) {
        String output = result.getOutput();
        int start = output.indexOf("* What went wrong:");
        int end = output.indexOf("* Try:");
        return start < 0 || end < start ? output : output.substring(start, end);
    }

    private GradleRunner runner(String... arguments) {
        List<String> all = new ArrayList<>(List.of(arguments));
        all.addAll(List.of("--console", "plain", "--warning-mode", "fail"));
        return GradleRunner.create().withGradleInstallation(property("tarn.gradle").toFile()).withProjectDir(folder.toFile())
            .withTestKitDir(work().resolve("testkit").toFile()).withPluginClasspath(pluginClasspath()).withArguments(all);
    }

    private static List<File> pluginClasspath() {
        return Stream.of(TarnPlugin.class, Companion.class, JsonParser.class).map(SampleProject::placeOf)
            .collect(Collectors.toList());
    }

    private static File placeOf(Class<?> type) {
        try {
            URI place = type.getProtectionDomain().getCodeSource().getLocation().toURI();
            return new File(place);
        } catch (URISyntaxException impossible) {
            throw new IllegalStateException(impossible);
        }
    }
}
