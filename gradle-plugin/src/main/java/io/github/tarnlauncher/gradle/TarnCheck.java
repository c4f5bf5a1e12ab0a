package io.github.tarnlauncher.gradle;

import io.github.tarnlauncher.plugin.CheckReport;
import io.github.tarnlauncher.plugin.Companion;
import io.github.tarnlauncher.plugin.CompanionRun;
import io.github.tarnlauncher.plugin.PluginCache;
import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import org.gradle.api.DefaultTask;
import org.gradle.api.GradleException;
import org.gradle.api.file.DirectoryProperty;
import org.gradle.api.file.RegularFileProperty;
import org.gradle.api.provider.Property;
import org.gradle.api.tasks.CacheableTask;
import org.gradle.api.tasks.Input;
import org.gradle.api.tasks.InputDirectory;
import org.gradle.api.tasks.OutputFile;
import org.gradle.api.tasks.PathSensitive;
import org.gradle.api.tasks.PathSensitivity;
import org.gradle.api.tasks.TaskAction;

/** Checks the settings of a wrapped application, and the jars and the runtime beside them. A mistake fails the build. */
@CacheableTask
public abstract class TarnCheck extends DefaultTask {
    /** The application's folder; by default that of {@code tarnWrap}. */
    @InputDirectory
    @PathSensitive(PathSensitivity.RELATIVE)
    public abstract DirectoryProperty getApplication();

    /** The name of the executable. */
    @Input
    public abstract Property<String> getExecutableName();

    /** The findings, one a line. */
    @OutputFile
    public abstract RegularFileProperty getReport();

    /** Runs the companion program. */
    @TaskAction
    public void check() {
        try {
            run();
        } catch (IOException failure) {
            throw new GradleException(failure.getMessage(), failure);
        }
    }

    private void run() throws IOException {
        Path folder = getApplication().get().getAsFile().toPath();
        Path settings = folder.resolve(getExecutableName().get() + ".ini");
        Path report = getReport().get().getAsFile().toPath();
        if (!Files.exists(settings)) {
            Files.writeString(report, "The settings are inside the executable.\n");
            return;
        }
        CompanionRun run = Companion.unpackBelow(PluginCache.ofUser())
            .run(List.of("check", "--strict", "--json", settings.toString()), folder);
        if (run.output().isBlank()) throw new GradleException(run.failure("", ""));
        List<String> lines = new ArrayList<>();
        int failures = 0;
        for (CheckReport.Finding finding : CheckReport.parse(run.output()).findings()) {
            String line = finding.describe(settings.toString());
            lines.add(line);
            if (!finding.isFailure()) continue;
            ++failures;
            getLogger().error(line);
        }
        Files.write(report, lines);
        if (failures > 0 || run.exitCode() != 0) {
            throw new GradleException(settings + ": " + failures + (failures == 1 ? " finding" : " findings")
                + "; change the block tarn { } of the build script");
        }
    }
}
