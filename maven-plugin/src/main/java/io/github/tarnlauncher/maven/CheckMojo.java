package io.github.tarnlauncher.maven;

import io.github.tarnlauncher.plugin.CheckReport;
import io.github.tarnlauncher.plugin.Companion;
import io.github.tarnlauncher.plugin.PluginCache;
import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import org.apache.maven.plugin.MojoFailureException;
import org.apache.maven.plugins.annotations.LifecyclePhase;
import org.apache.maven.plugins.annotations.Mojo;
import org.apache.maven.plugins.annotations.Parameter;

/**
 * Checks the settings of the result as the launcher will read them, and the jars and the runtime beside them. A mistake
 * fails the build, with the settings file and the line.
 */
@Mojo(name = "check", defaultPhase = LifecyclePhase.VERIFY, threadSafe = true)
public final class CheckMojo extends AbstractTarnMojo {
    /** The ids of findings of {@code tarn check} that are accepted. Any other error or warning fails the goal. */
    @Parameter
    private List<String> allow;

    @Override
    void run() throws IOException, MojoFailureException {
        Path settings = applicationFolder().resolve(executableName() + ".ini");
        if (!Files.exists(settings) && Files.exists(applicationFolder().resolve(executableName() + ".exe"))) {
            getLog().info("the settings are inside " + executableName() + ".exe; no settings file to check");
            return;
        }
        if (!Files.exists(settings)) {
            throw new MojoFailureException(settings + " is missing: run the goal tarn:wrap before tarn:check, with the "
                + "same <name> and <outputDirectory>" + WHERE_TO_CONFIGURE);
        }
        CheckReport report = Companion.unpackBelow(PluginCache.ofUser()).check(settings, allow);
        for (CheckReport.Finding finding : report.findings()) {
            String text = finding.describe(settings.toString());
            if (finding.isFailure()) getLog().error(text);
            else getLog().info(text);
        }
        if (!report.failures().isEmpty()) {
            throw new MojoFailureException(report.summary(settings)
                + "; change <set>, <vmParameters> or what is named above" + WHERE_TO_CONFIGURE);
        }
    }
}
