package io.github.tarnlauncher.gradle;

import io.github.tarnlauncher.plugin.CheckReport;
import io.github.tarnlauncher.plugin.Companion;
import io.github.tarnlauncher.plugin.PluginCache;
import io.github.tarnlauncher.plugin.PluginException;
import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import org.gradle.api.DefaultTask;
import org.gradle.api.GradleException;
import org.gradle.api.file.DirectoryProperty;
import org.gradle.api.file.RegularFileProperty;
import org.gradle.api.provider.ListProperty;
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

    /** The ids of findings that are accepted; by default those of the extension {@code tarn}. */
    @Input
    public abstract ListProperty<String> getAllow();

    /** The findings, one a line. */
    @OutputFile
    public abstract RegularFileProperty getReport();

    /** Runs the companion program. */
    @TaskAction
    public void check() {
        try {
            run();
        } catch (IOException failure) {
            throw new GradleException(PluginException.describe(failure), failure);
        }
    }

    private void run() throws IOException {
        Path settings = getApplication().get().getAsFile().toPath().resolve(getExecutableName().get() + ".ini");
        Path reportFile = getReport().get().getAsFile().toPath();
        if (!Files.exists(settings)) {
            Files.writeString(reportFile, "The settings are inside the executable.\n");
            return;
        }
        CheckReport report = Companion.unpackBelow(PluginCache.ofUser()).check(settings, getAllow().get());
        List<String> lines = new ArrayList<>();
        for (CheckReport.Finding finding : report.findings()) {
            // Without the folder: the build cache brings the report to other folders, too.
            lines.add(finding.describe(settings.getFileName().toString()));
            if (finding.isFailure()) getLogger().error(finding.describe(settings.toString()));
        }
        Files.write(reportFile, lines);
        if (!report.failures().isEmpty()) {
            throw new GradleException(report.summary(settings) + "; change the block tarn { } of the build script");
        }
    }
}
