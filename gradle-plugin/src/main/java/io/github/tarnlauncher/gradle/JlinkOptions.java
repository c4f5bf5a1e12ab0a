package io.github.tarnlauncher.gradle;

import org.gradle.api.file.DirectoryProperty;
import org.gradle.api.provider.ListProperty;
import org.gradle.api.tasks.Input;
import org.gradle.api.tasks.InputDirectory;
import org.gradle.api.tasks.Optional;
import org.gradle.api.tasks.PathSensitive;
import org.gradle.api.tasks.PathSensitivity;

/** The block {@code jlink}: a Java runtime that is linked from the modules of a JDK for Windows. */
public interface JlinkOptions {
    /** The folder {@code jmods} of a JDK for Windows, of the version of the project's toolchain. */
    @InputDirectory
    @Optional
    @PathSensitive(PathSensitivity.RELATIVE)
    DirectoryProperty getJmods();

    /** The modules; by default those that jdeps finds. */
    @Input
    ListProperty<String> getModules();

    /** Further options of jlink. */
    @Input
    ListProperty<String> getOptions();
}
