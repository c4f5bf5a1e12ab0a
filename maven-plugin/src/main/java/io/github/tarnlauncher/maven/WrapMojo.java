package io.github.tarnlauncher.maven;

import io.github.tarnlauncher.plugin.Companion;
import io.github.tarnlauncher.plugin.PluginCache;
import io.github.tarnlauncher.plugin.PluginException;
import io.github.tarnlauncher.plugin.WrapRequest;
import java.io.File;
import java.io.IOException;
import java.nio.file.Path;
import java.util.Collection;
import java.util.List;
import java.util.stream.Collectors;
import org.apache.maven.execution.MavenSession;
import org.apache.maven.plugin.MojoFailureException;
import org.apache.maven.plugins.annotations.Component;
import org.apache.maven.plugins.annotations.LifecyclePhase;
import org.apache.maven.plugins.annotations.Mojo;
import org.apache.maven.plugins.annotations.Parameter;
import org.apache.maven.plugins.annotations.ResolutionScope;
import org.apache.maven.project.MavenProjectHelper;
import org.apache.maven.toolchain.ToolchainManager;
import org.eclipse.aether.RepositorySystem;

/**
 * Creates {@code target/tarn/NAME} with a Windows executable, its settings, the project's jar, the dependencies of scope
 * runtime and, if wanted, a Java runtime. Runs on Linux, macOS and Windows. Nothing is done when nothing has changed.
 */
@Mojo(name = "wrap", defaultPhase = LifecyclePhase.PACKAGE, threadSafe = true,
    requiresDependencyResolution = ResolutionScope.RUNTIME)
public final class WrapMojo extends AbstractTarnMojo {
    private static final String SHADE_PLUGIN = "org.apache.maven.plugins:maven-shade-plugin";
    private static final String CLASSIFIER = "windows-x64";

    @Parameter(defaultValue = "${session}", readonly = true, required = true)
    private MavenSession session;

    @Component
    private RepositorySystem repositories;

    @Component
    private MavenProjectHelper projectHelper;

    @Component
    private ToolchainManager toolchains;

    /** The application's jar. The default is the project's. */
    @Parameter(property = "tarn.jar")
    private File jar;

    /** The main class. The default is that of the jar's manifest. */
    @Parameter(property = "tarn.mainClass")
    private String mainClass;

    /** The icon: an .ico file, or a .png of 256 pixels or more. */
    @Parameter(property = "tarn.icon")
    private File icon;

    /** The splash picture: PNG, GIF or JPEG. */
    @Parameter(property = "tarn.splash")
    private File splash;

    /** Ignores the jar's own splash picture. */
    @Parameter(property = "tarn.noSplash", defaultValue = "false")
    private boolean noSplash;

    /** A Java runtime for Windows that is shipped with the application. */
    @Parameter(property = "tarn.runtime")
    private File runtime;

    /**
     * Lets Java archive the application's classes at the end of the first run, so that later starts are faster. Requires
     * Java 21 or newer.
     */
    @Parameter(property = "tarn.fastStart", defaultValue = "false")
    private boolean fastStart;

    /** Makes no archive of the runtime's own classes, for the same bytes on every machine. */
    @Parameter(property = "tarn.noRuntimeArchive", defaultValue = "false")
    private boolean noRuntimeArchive;

    /**
     * Links the Java runtime that is shipped from a Windows JDK, instead of {@code runtime}:
     * {@code <jlink><jmods>FOLDER</jmods><modules>...</modules><options>...</options></jlink>}. Without modules, those
     * that {@code jdeps} finds are used.
     */
    @Parameter
    private Jlink jlink;

    /**
     * Whether the dependencies of scope runtime are copied to {@code lib}. The default is true, unless the project uses
     * the shade plugin, whose jar contains them.
     */
    @Parameter(property = "tarn.includeDependencies")
    private Boolean includeDependencies;

    /** Additional jars, or folders of jars, copied to {@code lib}. */
    @Parameter
    private List<File> classPath;

    /** Additional files and folders, copied beside the executable. */
    @Parameter
    private List<File> add;

    /** The application's version in the executable. */
    @Parameter(property = "tarn.version", defaultValue = "${project.version}")
    private String version;

    /** The application's name that users see. */
    @Parameter(property = "tarn.title", defaultValue = "${project.name}")
    private String title;

    /** The company's name. */
    @Parameter(property = "tarn.vendor", defaultValue = "${project.organization.name}")
    private String vendor;

    /** The description, which the task manager shows. The default is the title. */
    @Parameter(property = "tarn.description", defaultValue = "${project.description}")
    private String description;

    /** The copyright notice. The default is made of {@code inceptionYear} and the vendor. */
    @Parameter(property = "tarn.copyright")
    private String copyright;

    /** The oldest Java version, or "any". The default is the one that the classes need. */
    @Parameter(property = "tarn.minVersion")
    private String minVersion;

    /** The newest Java version. */
    @Parameter(property = "tarn.maxVersion")
    private String maxVersion;

    /** JVM options. One with a space needs quotes: {@code "-Dgreeting=Good morning"}. */
    @Parameter
    private List<String> vmParameters;

    /** Arguments that main always receives. */
    @Parameter(property = "tarn.arguments")
    private String arguments;

    /** Hands the arguments of a second start to the running instance. */
    @Parameter(property = "tarn.singleInstance", defaultValue = "false")
    private boolean singleInstance;

    /** When the process ends: {@code threads} (the default), {@code exit} or {@code main}. */
    @Parameter(property = "tarn.endsWith")
    private String endsWith;

    /** How the main class is started: {@code module}, or {@code class-path}. The default depends on the jar. */
    @Parameter(property = "tarn.startAs")
    private String startAs;

    /** Embeds the jar and the settings in the executable. */
    @Parameter(property = "tarn.singleFile", defaultValue = "false")
    private boolean singleFile;

    /** Starts in the caller's directory instead of the application's folder. */
    @Parameter(property = "tarn.keepWorkingDir", defaultValue = "false")
    private boolean keepWorkingDir;

    /** Other settings: {@code <setting>SECTION/KEY=VALUE</setting>}. */
    @Parameter
    private List<String> set;

    /** The ids of findings of {@code tarn check} that are accepted. Any other error or warning fails the goal. */
    @Parameter
    private List<String> allow;

    /** Other texts for the launcher's messages: {@code <text>ID=TEXT</text>}. */
    @Parameter
    private List<String> setString;

    /** A Windows manifest instead of the launcher's. */
    @Parameter(property = "tarn.manifest")
    private File manifest;

    /** Lets Windows start the application as administrator only. */
    @Parameter(property = "tarn.admin", defaultValue = "false")
    private boolean admin;

    /** Makes UTF-8 the code page of the process, from Windows 10 version 1903 on. */
    @Parameter(property = "tarn.utf8", defaultValue = "false")
    private boolean utf8;

    /** Another launcher than the one that the plugin carries. */
    @Parameter(property = "tarn.launcher")
    private File launcher;

    /** Attaches the folder as a zip artifact with the classifier {@code windows-x64}. */
    @Parameter(property = "tarn.attach", defaultValue = "false")
    private boolean attach;

    @Override
    void run() throws IOException, MojoFailureException {
        Path application = applicationJar();
        List<Path> libraries = libraries();
        Path folder = applicationFolder();
        Companion companion = Companion.unpackBelow(PluginCache.ofUser());
        WrapRequest request = request(application, libraries, folder);
        Jlink linked = jlink == null ? null : jlink.completed(toolchains, session, application, libraries);
        Fingerprint fingerprint = new Fingerprint(besideFolder(".inputs"));
        fingerprint.addRequest(companion, request);
        if (linked != null) linked.describeTo(fingerprint);

        if (fingerprint.isUnchanged()) {
            getLog().info(folder + " is up to date");
        } else {
            if (linked != null) request.runtime(linked.link(besideFolder(".runtime"), getLog()));
            runCompanion(companion, request.writeTo(besideFolder(".toml")));
            fingerprint.store(List.of(folder.toString()));
            getLog().info("created " + folder);
        }
        if (attach) attachZip(folder);
    }

    private WrapRequest request(Path application, List<Path> libraries, Path folder) throws MojoFailureException {
        if (runtime != null && jlink != null) {
            throw new MojoFailureException("<runtime> and <jlink> exclude each other: remove one of them"
                + WHERE_TO_CONFIGURE);
        }
        return new WrapRequest(application, folder).name(executableName()).mainClass(mainClass).icon(pathOf(icon))
            .splash(pathOf(splash)).noSplash(noSplash).runtime(pathOf(runtime)).classPath(libraries)
            .classPath(pathsOf(classPath)).add(pathsOf(add)).version(version).title(title).vendor(vendor)
            .description(oneLine(description)).copyright(copyrightNotice())
            .minVersion(minVersion).maxVersion(maxVersion).vmParameters(vmParameters).arguments(arguments)
            .singleInstance(singleInstance).endsWith(endsWith).startAs(startAs).singleFile(singleFile)
            .keepWorkingDir(keepWorkingDir)
            .set(set).allow(allow).setString(setString).manifest(pathOf(manifest)).admin(admin).utf8(utf8)
            .launcher(pathOf(launcher)).fastStart(fastStart).noRuntimeArchive(noRuntimeArchive);
    }

    private String copyrightNotice() {
        boolean isSet = copyright != null && !copyright.isEmpty();
        if (isSet || project.getInceptionYear() == null || vendor == null) return copyright;
        return "Copyright (C) " + project.getInceptionYear() + " " + vendor;
    }

    // Descriptions in POMs are often broken into lines.
    private static String oneLine(String text) {
        return text == null ? null : text.strip().replaceAll("\\s+", " ");
    }

    private Path applicationJar() throws MojoFailureException {
        File file = jar != null ? jar : project.getArtifact().getFile();
        if (file != null && file.isFile()) return file.toPath();
        if (jar != null) {
            throw new MojoFailureException(jar + " does not exist: <jar>" + WHERE_TO_CONFIGURE
                + " names the application's jar");
        }
        // Before the phase package it is null or the folder of classes.
        throw new MojoFailureException("the project has no jar yet: run the goal in the phase package or later "
            + "(mvn package), or name a jar in <jar>" + WHERE_TO_CONFIGURE);
    }

    private List<Path> libraries() throws PluginException {
        boolean included =
            includeDependencies != null ? includeDependencies : project.getPlugin(SHADE_PLUGIN) == null;
        if (!included) return List.of();
        return new RuntimeLibraries(repositories, session.getRepositorySession(), project, getLog()).files();
    }

    private void attachZip(Path folder) throws IOException {
        Path zip = outputDirectory.toPath().resolve(
            project.getArtifactId() + "-" + project.getVersion() + "-" + CLASSIFIER + ".zip");
        ZipFolder.write(folder, zip);
        projectHelper.attachArtifact(project, "zip", CLASSIFIER, zip.toFile());
    }

    private static Collection<Path> pathsOf(List<File> files) {
        return files == null ? List.of() : files.stream().map(File::toPath).collect(Collectors.toList());
    }
}
