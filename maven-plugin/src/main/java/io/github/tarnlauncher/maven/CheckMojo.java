package io.github.tarnlauncher.maven;

import io.github.tarnlauncher.plugin.CheckReport;
import io.github.tarnlauncher.plugin.Companion;
import io.github.tarnlauncher.plugin.CompanionRun;
import io.github.tarnlauncher.plugin.PluginCache;
import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import org.apache.maven.plugin.MojoExecutionException;
import org.apache.maven.plugin.MojoFailureException;
import org.apache.maven.plugins.annotations.LifecyclePhase;
import org.apache.maven.plugins.annotations.Mojo;

/**
 * Checks the settings of the result as the launcher will read them, and the jars and the runtime beside them. A mistake
 * fails the build, with the settings file and the line.
 */
@Mojo(name = "check", defaultPhase = LifecyclePhase.VERIFY, threadSafe = true)
public final class CheckMojo extends AbstractTarnMojo {
    /** Checks the result of the goal wrap. */
    @Override
    public void execute() throws MojoExecutionException, MojoFailureException {
        if (skip) {
            getLog().info("skipped");
            return;
        }
        try {
            check();
        } catch (IOException failure) {
            throw new MojoExecutionException(Messages.of(failure), failure);
        }
    }

    private void check() throws IOException, MojoFailureException {
        Path folder = outputDirectory.toPath().resolve(executableName());
        Path settings = folder.resolve(executableName() + ".ini");
        if (!Files.exists(settings) && Files.exists(folder.resolve(executableName() + ".exe"))) {
            getLog().info("the settings are inside " + executableName() + ".exe; no settings file to check");
            return;
        }
        if (!Files.exists(settings)) {
            throw new MojoFailureException(settings + " is missing: run the goal tarn:wrap before tarn:check, with the "
                + "same <name> and <outputDirectory>" + Messages.WHERE_TO_CONFIGURE);
        }
        CompanionRun run = Companion.unpackBelow(PluginCache.ofUser())
            .run(List.of("check", "--strict", "--json", settings.toString()), folder);
        if (run.output().isBlank()) throw new MojoFailureException(run.failure("<", ">"));
        int failures = 0;
        for (CheckReport.Finding finding : CheckReport.parse(run.output()).findings()) {
            String text = finding.describe(settings.toString());
            if (finding.isFailure()) {
                ++failures;
                getLog().error(text);
            } else {
                getLog().info(text);
            }
        }
        if (failures > 0 || run.exitCode() != 0) {
            throw new MojoFailureException(settings + ": " + failures + (failures == 1 ? " finding" : " findings")
                + "; change <set>, <vmParameters> or what is named above" + Messages.WHERE_TO_CONFIGURE);
        }
    }
}
