package io.github.tarnlauncher.gradle;

import static io.github.tarnlauncher.gradle.CompanionTask.pathOf;

import io.github.tarnlauncher.plugin.PluginException;
import io.github.tarnlauncher.plugin.RuntimeLink;
import io.github.tarnlauncher.plugin.WrapRequest;
import java.io.File;
import java.io.IOException;
import java.nio.file.Path;
import java.util.Collection;
import java.util.List;
import java.util.stream.Collectors;
import org.gradle.api.DefaultTask;
import org.gradle.api.GradleException;
import org.gradle.api.file.ConfigurableFileCollection;
import org.gradle.api.file.DirectoryProperty;
import org.gradle.api.provider.Property;
import org.gradle.api.tasks.CacheableTask;
import org.gradle.api.tasks.Input;
import org.gradle.api.tasks.InputFiles;
import org.gradle.api.tasks.Nested;
import org.gradle.api.tasks.Optional;
import org.gradle.api.tasks.OutputDirectory;
import org.gradle.api.tasks.PathSensitive;
import org.gradle.api.tasks.PathSensitivity;
import org.gradle.api.tasks.TaskAction;
import org.gradle.jvm.toolchain.JavaLauncher;

/** Creates a folder with a Windows executable, its settings, the application's jars and, if wanted, a Java runtime. */
@CacheableTask
public abstract class TarnWrap extends DefaultTask {
    /** What to wrap; by default the extension {@code tarn}. */
    @Nested
    public abstract Property<WrapOptions> getOptions();

    /** The jars of the runtime class path. */
    @InputFiles
    @PathSensitive(PathSensitivity.NAME_ONLY)
    public abstract ConfigurableFileCollection getLibraries();

    /** The names of these jars, in the order of the class path. */
    @Input
    public List<String> getLibraryNames() {
        return getLibraries().getFiles().stream().map(File::getName).collect(Collectors.toList());
    }

    /** The JDK whose jlink links the runtime; by default the project's toolchain. */
    @Nested
    @Optional
    public abstract Property<JavaLauncher> getJavaLauncher();

    /** The application's folder; by default {@code build/tarn/NAME}. It is replaced if it contains NAME.exe or nothing. */
    @OutputDirectory
    public abstract DirectoryProperty getDestination();

    /** Runs the companion program. */
    @TaskAction
    public void wrap() {
        try {
            CompanionTask.run(this, request());
        } catch (IOException failure) {
            throw new GradleException(PluginException.describe(failure), failure);
        }
    }

    private WrapRequest request() throws IOException {
        WrapOptions options = getOptions().get();
        boolean included = options.getIncludeDependencies().get();
        Collection<Path> libraries = included ? pathsOf(getLibraries()) : List.of();
        Path jar = pathOf(options.getJar());
        return new WrapRequest(jar, pathOf(getDestination())).name(options.getName().get())
            .mainClass(options.getMainClass().getOrNull()).icon(pathOf(options.getIcon()))
            .splash(pathOf(options.getSplash())).noSplash(options.getNoSplash().get())
            .runtime(runtimeFor(jar, libraries)).classPath(libraries).classPath(pathsOf(options.getClassPath()))
            .add(pathsOf(options.getAdd())).version(options.getVersion().getOrNull())
            .title(options.getTitle().getOrNull()).vendor(options.getVendor().getOrNull())
            .minVersion(options.getMinVersion().getOrNull()).maxVersion(options.getMaxVersion().getOrNull())
            .vmParameters(options.getVmParameters().get()).arguments(options.getArguments().getOrNull())
            .singleInstance(options.getSingleInstance().get()).endsWith(options.getEndsWith().getOrNull())
            .startAs(options.getStartAs().getOrNull())
            .singleFile(options.getSingleFile().get()).keepWorkingDir(options.getKeepWorkingDir().get())
            .set(options.getSet().get()).allow(options.getAllow().get()).setString(options.getSetString().get())
            .description(options.getDescription().getOrNull()).copyright(options.getCopyright().getOrNull())
            .manifest(pathOf(options.getManifest())).admin(options.getAdmin().get()).utf8(options.getUtf8().get())
            .launcher(pathOf(options.getLauncher())).fastStart(options.getFastStart().get())
            .noRuntimeArchive(options.getNoRuntimeArchive().get());
    }

    private Path runtimeFor(Path jar, Collection<Path> libraries) throws IOException {
        WrapOptions options = getOptions().get();
        JlinkOptions jlink = options.getJlink();
        if (!jlink.getJmods().isPresent()) return pathOf(options.getRuntime());
        if (options.getRuntime().isPresent()) {
            throw new GradleException("runtime and jlink exclude each other: remove one of them from the block tarn { }");
        }
        Path javaHome = pathOf(getJavaLauncher().map(launcher -> launcher.getMetadata().getInstallationPath()));
        RuntimeLink link = new RuntimeLink(javaHome, pathOf(jlink.getJmods()));
        List<String> modules = jlink.getModules().get();
        Path target = getTemporaryDir().toPath().resolve("runtime");
        link.link(modules.isEmpty() ? link.modulesOf(jar, libraries) : modules, jlink.getOptions().get(), target);
        return target;
    }

    private static Collection<Path> pathsOf(ConfigurableFileCollection files) {
        return files.getFiles().stream().map(File::toPath).collect(Collectors.toList());
    }
}
