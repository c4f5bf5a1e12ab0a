package io.github.tarnlauncher.plugin;

import java.io.IOException;
import java.nio.charset.Charset;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Collection;
import java.util.List;
import java.util.stream.Collectors;

/** Creates a Java runtime for Windows from the modules of a JDK for Windows, with this system's {@code jlink}. */
public final class RuntimeLink {
    private final Path tools;
    private final Path modulePath;

    /**
     * Names the JDKs.
     *
     * @param javaHome a JDK for this system, whose tools are run
     * @param jmods the folder {@code jmods} of a JDK for Windows of the same version
     * @throws PluginException if one of them is not what it should be
     */
    public RuntimeLink(Path javaHome, Path jmods) throws PluginException {
        tools = javaHome.resolve("bin");
        modulePath = jmods;
        if (!Files.isRegularFile(jmods.resolve("java.base.jmod"))) {
            throw new PluginException(jmods + " contains no java.base.jmod: name the folder jmods of a JDK for Windows");
        }
    }

    /** The modules that an application uses, as {@code jdeps} finds them. */
    public List<String> modulesOf(Path jar, Collection<Path> classPath) throws IOException {
        List<String> command = new ArrayList<>(List.of(tool("jdeps"), "--print-module-deps", "--ignore-missing-deps",
            "--multi-release", "base"));
        if (!classPath.isEmpty()) {
            command.add("--class-path");
            command.add(classPath.stream().map(Path::toString).collect(Collectors.joining(java.io.File.pathSeparator)));
        }
        command.add(jar.toString());
        classPath.forEach(library -> command.add(library.toString()));
        return List.of(run(command).strip().split(","));
    }

    /**
     * Links a runtime.
     *
     * @param modules the names of the modules
     * @param options further options of {@code jlink}
     * @param target the folder to create; one that is there is replaced
     */
    public void link(Collection<String> modules, Collection<String> options, Path target) throws IOException {
        CompanionFiles.deleteTree(target);
        List<String> command = new ArrayList<>(List.of(tool("jlink"), "--module-path", modulePath.toString(),
            "--add-modules", String.join(",", modules), "--no-header-files", "--no-man-pages",
            "--strip-java-debug-attributes"));
        command.addAll(options);
        command.addAll(List.of("--output", target.toString()));
        run(command);
        if (!Files.isRegularFile(target.resolve("bin/server/jvm.dll"))) {
            throw new PluginException("the modules in " + modulePath + " are not for Windows: name the folder jmods of a JDK "
                + "for Windows");
        }
    }

    private String tool(String name) throws PluginException {
        for (String file : List.of(name, name + ".exe")) {
            if (Files.isRegularFile(tools.resolve(file))) return tools.resolve(file).toString();
        }
        throw new PluginException(tools + " contains no " + name + ": run the build with a JDK");
    }

    private static String run(List<String> command) throws IOException {
        Process process = new ProcessBuilder(command).redirectErrorStream(true).start();
        try {
            process.getOutputStream().close();
            String output = new String(process.getInputStream().readAllBytes(), Charset.defaultCharset());
            if (process.waitFor() == 0) return output;
            throw new PluginException(command.get(0) + " failed: " + output.strip().replaceAll("\\s*\\R\\s*", "; "));
        } catch (InterruptedException interruption) {
            Thread.currentThread().interrupt();
            throw new PluginException("interrupted while running " + command.get(0), interruption);
        } finally {
            process.destroy();
        }
    }
}
