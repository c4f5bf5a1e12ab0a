package io.github.tarnlauncher.maven;

import io.github.tarnlauncher.plugin.PluginException;
import io.github.tarnlauncher.plugin.RuntimeLink;
import java.io.File;
import java.io.IOException;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.util.List;
import org.apache.maven.execution.MavenSession;
import org.apache.maven.plugin.logging.Log;
import org.apache.maven.toolchain.Toolchain;
import org.apache.maven.toolchain.ToolchainManager;

/** The parameter {@code jlink}: a Java runtime that is linked from the modules of a JDK for Windows. */
public final class Jlink {
    /**
     * The folder {@code jmods} of a JDK for Windows, of the version of the project's toolchain, else of the JDK that runs
     * Maven.
     */
    private File jmods;

    /** The modules; by default those that jdeps finds. */
    private List<String> modules = List.of();

    /** Further options of jlink. */
    private List<String> options = List.of();

    private Path javaHome;
    private RuntimeLink link;

    Jlink completed(ToolchainManager toolchains, MavenSession session, Path application, List<Path> libraries)
        throws IOException {
        if (jmods == null) throw new PluginException("<jlink> requires <jmods>: the folder jmods of a JDK for Windows");
        javaHome = javaHome(toolchains, session);
        link = new RuntimeLink(javaHome, jmods.toPath());
        if (modules.isEmpty()) modules = link.modulesOf(application, libraries);
        return this;
    }

    private static Path javaHome(ToolchainManager toolchains, MavenSession session) {
        Toolchain jdk = toolchains.getToolchainFromBuildContext("jdk", session);
        String tool = jdk == null ? null : jdk.findTool("jlink");
        if (tool != null) return Paths.get(tool).toAbsolutePath().getParent().getParent();
        return Paths.get(session.getSystemProperties().getProperty("java.home", System.getProperty("java.home")));
    }

    void describeTo(Fingerprint fingerprint) throws IOException {
        fingerprint.addText(modules);
        fingerprint.addText(options);
        // Names the version of jlink.
        fingerprint.addFiles(List.of(javaHome.resolve("release")));
        for (String module : modules) fingerprint.addFiles(List.of(jmods.toPath().resolve(module + ".jmod")));
    }

    Path link(Path target, Log log) throws IOException {
        log.info("linking a runtime of " + String.join(", ", modules) + " with the jlink of " + javaHome);
        link.link(modules, options, target);
        return target;
    }
}
