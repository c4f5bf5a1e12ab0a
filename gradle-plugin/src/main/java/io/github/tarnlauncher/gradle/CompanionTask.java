package io.github.tarnlauncher.gradle;

import io.github.tarnlauncher.plugin.Companion;
import io.github.tarnlauncher.plugin.CompanionRequest;
import io.github.tarnlauncher.plugin.CompanionRun;
import io.github.tarnlauncher.plugin.PluginCache;
import io.github.tarnlauncher.plugin.PluginException;
import java.io.IOException;
import java.nio.file.Path;
import org.gradle.api.GradleException;
import org.gradle.api.Task;
import org.gradle.api.file.FileSystemLocation;
import org.gradle.api.provider.Provider;

/** What the tasks that create something share. */
final class CompanionTask {
    private CompanionTask() {}

    /** Carries out a request for a task. Errors of the companion program become the task's failure. */
    static void run(Task task, CompanionRequest<?> request) {
        Path folder = task.getTemporaryDir().toPath();
        try {
            CompanionRun run =
                Companion.unpackBelow(PluginCache.ofUser()).run(request.writeTo(folder.resolve("options.toml")), folder);
            for (String warning : run.warnings("", "")) task.getLogger().warn("warning: {}", warning);
            if (run.exitCode() != 0) {
                throw new GradleException(run.failure("", "") + " in the block tarn { } of the build script");
            }
        } catch (IOException failure) {
            throw new GradleException(PluginException.describe(failure), failure);
        }
    }

    /** A file or folder as a path; null if it is not set. */
    static Path pathOf(Provider<? extends FileSystemLocation> file) {
        return file.isPresent() ? file.get().getAsFile().toPath() : null;
    }
}
