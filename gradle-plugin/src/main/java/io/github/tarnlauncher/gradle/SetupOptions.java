package io.github.tarnlauncher.gradle;

import org.gradle.api.file.DirectoryProperty;
import org.gradle.api.file.RegularFileProperty;
import org.gradle.api.provider.ListProperty;
import org.gradle.api.provider.Property;
import org.gradle.api.tasks.Input;
import org.gradle.api.tasks.InputFile;
import org.gradle.api.tasks.Internal;
import org.gradle.api.tasks.Optional;
import org.gradle.api.tasks.PathSensitive;
import org.gradle.api.tasks.PathSensitivity;

/**
 * The block {@code installer}: what the setup program of the task {@code tarnSetup} does. Name, version, vendor and description
 * are those of the executable.
 */
public interface SetupOptions {
    /** The id by which later versions recognise the product; must never change; by default from vendor and name. */
    @Input
    @Optional
    Property<String> getId();

    /** The license that users accept: a text in UTF-8, or RTF. */
    @InputFile
    @Optional
    @PathSensitive(PathSensitivity.NAME_ONLY)
    RegularFileProperty getLicense();

    /** Installs for all users, which requires an administrator. */
    @Input
    Property<Boolean> getPerMachine();

    /** Creates a shortcut on the desktop, too. */
    @Input
    Property<Boolean> getDesktopShortcut();

    /** File extensions that the application opens: {@code .EXT=TEXT,ICON}, the icon is optional. */
    @Input
    ListProperty<String> getAssociate();

    /** URL schemes that the application opens: {@code SCHEME=TEXT}. */
    @Input
    ListProperty<String> getProtocol();

    /** Creates an MSI with {@code wixl} (packages wixl and msitools) instead. */
    @Input
    Property<Boolean> getMsi();

    /** The address from which users download the result; with it, manifests for winget and scoop are written beside it. */
    @Input
    @Optional
    Property<String> getUrl();

    /** The home page in the manifests; by default the site of {@code url}. */
    @Input
    @Optional
    Property<String> getHomepage();

    /** The name of the license in the manifests, such as MIT. */
    @Input
    @Optional
    Property<String> getLicenseName();

    /** The shell command that signs a file in place. The file is its last argument. */
    @Input
    @Optional
    Property<String> getSign();

    /** A new folder in which the script for makensis and its inputs remain. */
    @Internal
    DirectoryProperty getScript();
}
