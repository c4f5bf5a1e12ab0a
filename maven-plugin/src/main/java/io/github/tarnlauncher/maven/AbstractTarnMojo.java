package io.github.tarnlauncher.maven;

import io.github.tarnlauncher.plugin.Companion;
import io.github.tarnlauncher.plugin.CompanionRun;
import io.github.tarnlauncher.plugin.PluginException;
import java.io.File;
import java.io.IOException;
import java.nio.file.Path;
import java.util.List;
import java.util.stream.Collectors;
import org.apache.maven.plugin.AbstractMojo;
import org.apache.maven.plugin.MojoExecutionException;
import org.apache.maven.plugin.MojoFailureException;
import org.apache.maven.plugins.annotations.Parameter;
import org.apache.maven.project.MavenProject;

/** What the goals share: where the result is, how the companion program is run, and what a failure becomes. */
abstract class AbstractTarnMojo extends AbstractMojo {
    /** Ends a message that names a parameter. */
    static final String WHERE_TO_CONFIGURE = " in the <configuration> of tarn-maven-plugin";

    @Parameter(defaultValue = "${project}", readonly = true, required = true)
    MavenProject project;

    /**
     * The name of the executable and of its folder. The default is the project's {@code finalName} if the POM sets one,
     * else its artifact ID.
     */
    @Parameter(property = "tarn.name")
    String name;

    /** The folder in which the application's folder NAME is created. */
    @Parameter(property = "tarn.outputDirectory", defaultValue = "${project.build.directory}/tarn", required = true)
    File outputDirectory;

    /** Skips the goal. */
    @Parameter(property = "tarn.skip", defaultValue = "false")
    boolean skip;

    /** Runs the goal unless it is skipped. */
    @Override
    public final void execute() throws MojoExecutionException, MojoFailureException {
        if (skip) {
            getLog().info("skipped");
            return;
        }
        try {
            run();
        } catch (IOException failure) {
            throw new MojoExecutionException(PluginException.describe(failure), failure);
        }
    }

    abstract void run() throws IOException, MojoFailureException;

    /**
     * Runs a command of the companion program in the project's folder. Its errors become the build's failure.
     *
     * @return the lines that it printed, which are the paths of what it created
     */
    List<String> runCompanion(Companion companion, List<String> arguments) throws IOException, MojoFailureException {
        CompanionRun run = companion.run(arguments, project.getBasedir().toPath());
        for (String warning : run.warnings("<", ">")) getLog().warn(warning);
        if (run.exitCode() != 0) throw new MojoFailureException(run.failure("<", ">") + WHERE_TO_CONFIGURE);
        return run.output().lines().collect(Collectors.toList());
    }

    /** A file of the goals' own beside the application's folder, named after the executable. */
    Path besideFolder(String suffix) {
        return outputDirectory.toPath().resolve(executableName() + suffix);
    }

    /** The folder with the executable. */
    Path applicationFolder() {
        return outputDirectory.toPath().resolve(executableName());
    }

    /** A parameter as a path; null if it is not set. */
    static Path pathOf(File file) {
        return file == null ? null : file.toPath();
    }

    String executableName() {
        if (name != null && !name.isEmpty()) return name;
        String finalName = project.getBuild().getFinalName();
        boolean isDefault = finalName.equals(project.getArtifactId() + "-" + project.getVersion());
        return isDefault ? project.getArtifactId() : finalName;
    }
}
