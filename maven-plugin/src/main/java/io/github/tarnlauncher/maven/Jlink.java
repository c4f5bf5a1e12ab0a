package io.github.tarnlauncher.maven;

import io.github.tarnlauncher.plugin.PluginException;
import io.github.tarnlauncher.plugin.RuntimeLink;
import java.io.File;
import java.io.IOException;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.util.List;
import org.apache.maven.execution.MavenSession;

/** The parameter {@code jlink}: a Java runtime that is linked from the modules of a JDK for Windows. */
public final class Jlink {
    /** The folder {@code jmods} of a JDK for Windows, of the version of the JDK that runs Maven. */
    private File jmods;

    /** The modules; by default those that jdeps finds. */
    private List<String> modules = List.of();

    /** Further options of jlink. */
    private List<String> options = List.of();

    private RuntimeLink link;

    Jlink completed(MavenSession session, Path application, List<Path> libraries) throws IOException {
        if (jmods == null) throw new PluginException("<jlink> requires <jmods>: the folder jmods of a JDK for Windows");
        String javaHome = session.getSystemProperties().getProperty("java.home", System.getProperty("java.home"));
        link = new RuntimeLink(Paths.get(javaHome), jmods.toPath());
        if (modules.isEmpty()) modules = link.modulesOf(application, libraries);
        return this;
    }

    void describeTo(Fingerprint fingerprint) throws IOException {
        fingerprint.addText(modules);
        fingerprint.addText(options);
        fingerprint.addText(List.of(System.getProperty("java.version")));
        for (String module : modules) fingerprint.addFiles(List.of(jmods.toPath().resolve(module + ".jmod")));
    }

    Path link(Path target) throws IOException {
        link.link(modules, options, target);
        return target;
    }
}
