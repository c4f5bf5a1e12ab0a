package io.github.tarnlauncher.gradle;

import io.github.tarnlauncher.plugin.SetupRequest;
import java.nio.file.Path;
import org.gradle.api.DefaultTask;
import org.gradle.api.file.DirectoryProperty;
import org.gradle.api.file.RegularFile;
import org.gradle.api.provider.Property;
import org.gradle.api.provider.Provider;
import org.gradle.api.tasks.CacheableTask;
import org.gradle.api.tasks.Input;
import org.gradle.api.tasks.InputDirectory;
import org.gradle.api.tasks.Internal;
import org.gradle.api.tasks.Nested;
import org.gradle.api.tasks.OutputDirectory;
import org.gradle.api.tasks.PathSensitive;
import org.gradle.api.tasks.PathSensitivity;
import org.gradle.api.tasks.TaskAction;

/** Creates a Windows setup program from a wrapped application, with {@code makensis}, which must be installed. */
@CacheableTask
public abstract class TarnSetup extends DefaultTask {
    /** The application's folder; by default that of {@code tarnWrap}. */
    @InputDirectory
    @PathSensitive(PathSensitivity.RELATIVE)
    public abstract DirectoryProperty getApplication();

    /** The name of the executable, without its extension. */
    @Input
    public abstract Property<String> getExecutableName();

    /** What the setup program does; by default the block {@code installer} of the extension. */
    @Nested
    public abstract Property<SetupOptions> getOptions();

    /** The name of the setup program; by default NAME-VERSION-setup.exe or NAME-VERSION.msi. */
    @Input
    public abstract Property<String> getFileName();

    /** The folder for the setup program and the manifests; by default {@code build/tarn-setup}. */
    @OutputDirectory
    public abstract DirectoryProperty getDestination();

    /** The setup program, for a publication. */
    @Internal
    public Provider<RegularFile> getSetupFile() {
        return getDestination().file(getFileName());
    }

    /** Runs the companion program. */
    @TaskAction
    public void createSetup() {
        SetupOptions options = getOptions().get();
        Path folder = getApplication().get().getAsFile().toPath();
        Path file = CompanionTask.pathOf(getSetupFile());
        SetupRequest request =
            new SetupRequest(folder, getExecutableName().get() + ".exe", file)
                .id(options.getId().getOrNull()).license(CompanionTask.pathOf(options.getLicense()))
                .perMachine(options.getPerMachine().get()).desktopShortcut(options.getDesktopShortcut().get())
                .associate(options.getAssociate().get()).protocol(options.getProtocol().get())
                .msi(options.getMsi().get()).url(options.getUrl().getOrNull()).homepage(options.getHomepage().getOrNull())
                .licenseName(options.getLicenseName().getOrNull()).sign(options.getSign().getOrNull())
                .script(CompanionTask.pathOf(options.getScript()));
        CompanionTask.run(this, request);
    }
}
