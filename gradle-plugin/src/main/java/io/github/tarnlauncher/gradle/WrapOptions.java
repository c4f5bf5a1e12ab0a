package io.github.tarnlauncher.gradle;

import org.gradle.api.Action;
import org.gradle.api.file.ConfigurableFileCollection;
import org.gradle.api.file.DirectoryProperty;
import org.gradle.api.file.RegularFileProperty;
import org.gradle.api.provider.ListProperty;
import org.gradle.api.provider.Property;
import org.gradle.api.tasks.Input;
import org.gradle.api.tasks.InputDirectory;
import org.gradle.api.tasks.InputFile;
import org.gradle.api.tasks.InputFiles;
import org.gradle.api.tasks.Nested;
import org.gradle.api.tasks.Optional;
import org.gradle.api.tasks.PathSensitive;
import org.gradle.api.tasks.PathSensitivity;

/** The extension {@code tarn}: what the application is called, starts with and comes with. */
public interface WrapOptions {
    /** The application's jar; by default that of the task {@code jar}. */
    @InputFile
    @PathSensitive(PathSensitivity.NAME_ONLY)
    RegularFileProperty getJar();

    /** The name of the executable and of its folder; by default the project's. */
    @Input
    Property<String> getName();

    /** The main class; by default that of the plugin {@code application}, else of the jar's manifest. */
    @Input
    @Optional
    Property<String> getMainClass();

    /** The icon: an .ico file, or a .png of 256 pixels or more. */
    @InputFile
    @Optional
    @PathSensitive(PathSensitivity.NONE)
    RegularFileProperty getIcon();

    /** The splash picture: PNG, GIF or JPEG. */
    @InputFile
    @Optional
    @PathSensitive(PathSensitivity.NONE)
    RegularFileProperty getSplash();

    /** Ignores the jar's own splash picture. */
    @Input
    Property<Boolean> getNoSplash();

    /** A Java runtime for Windows that is shipped with the application. */
    @InputDirectory
    @Optional
    @PathSensitive(PathSensitivity.RELATIVE)
    DirectoryProperty getRuntime();

    /** Lets Java archive the application's classes at the end of the first run, for faster starts (Java 21 and newer). */
    @Input
    Property<Boolean> getFastStart();

    /** Makes no archive of the runtime's own classes, for the same bytes on every machine. */
    @Input
    Property<Boolean> getNoRuntimeArchive();

    /** Links the runtime that is shipped from a Windows JDK, instead of {@code runtime}. */
    @Nested
    JlinkOptions getJlink();

    /** Whether the runtime class path is copied to {@code lib}; by default true. A jar that contains it needs false. */
    @Input
    Property<Boolean> getIncludeDependencies();

    /** Additional jars, or folders of jars, copied to {@code lib}. */
    @InputFiles
    @PathSensitive(PathSensitivity.RELATIVE)
    ConfigurableFileCollection getClassPath();

    /** Additional files and folders, copied beside the executable. */
    @InputFiles
    @PathSensitive(PathSensitivity.RELATIVE)
    ConfigurableFileCollection getAdd();

    /** The application's version in the executable; by default the project's. */
    @Input
    @Optional
    Property<String> getVersion();

    /** The application's name that users see; by default that of the executable. */
    @Input
    @Optional
    Property<String> getTitle();

    /** The company's name. */
    @Input
    @Optional
    Property<String> getVendor();

    /** The description, which the task manager shows; by default the project's, else the title. */
    @Input
    @Optional
    Property<String> getDescription();

    /** The copyright notice; by default the vendor. */
    @Input
    @Optional
    Property<String> getCopyright();

    /** The oldest Java version, or "any"; by default the one that the classes need. */
    @Input
    @Optional
    Property<String> getMinVersion();

    /** The newest Java version. */
    @Input
    @Optional
    Property<String> getMaxVersion();

    /** JVM options. One with a space needs quotes: {@code '"-Dgreeting=Good morning"'}. */
    @Input
    ListProperty<String> getVmParameters();

    /** Arguments that main always receives. */
    @Input
    @Optional
    Property<String> getArguments();

    /** Hands the arguments of a second start to the running instance. */
    @Input
    Property<Boolean> getSingleInstance();

    /** When the process ends: {@code threads} (the default), {@code exit} or {@code main}. */
    @Input
    @Optional
    Property<String> getEndsWith();

    /** How the main class is started: {@code module}, or {@code class-path}; by default it depends on the jar. */
    @Input
    @Optional
    Property<String> getStartAs();

    /** Embeds the jar and the settings in the executable. */
    @Input
    Property<Boolean> getSingleFile();

    /** Starts in the caller's directory instead of the application's folder. */
    @Input
    Property<Boolean> getKeepWorkingDir();

    /** Other settings: {@code SECTION/KEY=VALUE}. */
    @Input
    ListProperty<String> getSet();

    /** The ids of findings of {@code tarn check} that are accepted. Any other error or warning fails the task. */
    @Input
    ListProperty<String> getAllow();

    /** Other texts for the launcher's messages: {@code ID=TEXT}. */
    @Input
    ListProperty<String> getSetString();

    /** A Windows manifest instead of the launcher's. */
    @InputFile
    @Optional
    @PathSensitive(PathSensitivity.NONE)
    RegularFileProperty getManifest();

    /** Lets Windows start the application as administrator only. */
    @Input
    Property<Boolean> getAdmin();

    /** Makes UTF-8 the code page of the process, from Windows 10 version 1903 on. */
    @Input
    Property<Boolean> getUtf8();

    /** Another launcher than the one that the plugin carries. */
    @InputFile
    @Optional
    @PathSensitive(PathSensitivity.NONE)
    RegularFileProperty getLauncher();

    /** Configures the linked runtime. */
    default void jlink(Action<? super JlinkOptions> action) {
        action.execute(getJlink());
    }

    /** What the task {@code tarnSetup} makes. */
    @Nested
    SetupOptions getInstaller();

    /** Configures the setup program. Gradle takes a method whose name begins with "set" for a property's. */
    default void installer(Action<? super SetupOptions> action) {
        action.execute(getInstaller());
    }
}
