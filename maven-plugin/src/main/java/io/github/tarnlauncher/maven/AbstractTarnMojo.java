package io.github.tarnlauncher.maven;

import java.io.File;
import org.apache.maven.plugin.AbstractMojo;
import org.apache.maven.plugins.annotations.Parameter;
import org.apache.maven.project.MavenProject;

/** What the goals share: where the result is. */
abstract class AbstractTarnMojo extends AbstractMojo {
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

    String executableName() {
        if (name != null && !name.isEmpty()) return name;
        String finalName = project.getBuild().getFinalName();
        boolean isDefault = finalName.equals(project.getArtifactId() + "-" + project.getVersion());
        return isDefault ? project.getArtifactId() : finalName;
    }
}
