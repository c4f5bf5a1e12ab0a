package io.github.tarnlauncher.plugin;

import java.nio.file.Path;
import java.util.Collection;

/**
 * The arguments of {@code tarn setup}. Each operation corresponds to the option of the same name, which
 * {@code tarn setup --help} describes. Name, version, vendor and description are those of the executable.
 */
public final class SetupRequest extends CompanionRequest<SetupRequest> {
    /**
     * Asks for a setup program.
     *
     * @param folder the folder that {@code tarn wrap} has created
     * @param executable the file name of the application's executable in the folder
     * @param out the setup program or MSI to create or to replace
     */
    public SetupRequest(Path folder, String executable, Path out) {
        super("setup");
        input("folder", folder);
        text("executable", executable);
        text("out", out.toString());
        flag("replace", true);
    }

    @Override
    SetupRequest self() {
        return this;
    }

    public SetupRequest id(String value) { return text("id", value); }
    public SetupRequest license(Path file) { return input("license", file); }
    public SetupRequest perMachine(boolean value) { return flag("per-machine", value); }
    public SetupRequest desktopShortcut(boolean value) { return flag("desktop-shortcut", value); }
    public SetupRequest msi(boolean value) { return flag("msi", value); }
    public SetupRequest url(String value) { return text("url", value); }
    public SetupRequest homepage(String value) { return text("homepage", value); }
    public SetupRequest licenseName(String value) { return text("license-name", value); }
    public SetupRequest sign(String command) { return text("sign", command); }

    /** The folder in which the script for the packaging tool and its inputs remain; it must not exist. */
    public SetupRequest script(Path folder) {
        return text("script", folder == null ? null : folder.toString());
    }

    /** Extensions that the application opens: {@code .EXT=TEXT[,ICON]}. */
    public SetupRequest associate(Collection<String> extensions) {
        return texts("associate", extensions);
    }

    /** URL schemes that the application opens: {@code SCHEME=TEXT}. */
    public SetupRequest protocol(Collection<String> schemes) {
        return texts("protocol", schemes);
    }
}
