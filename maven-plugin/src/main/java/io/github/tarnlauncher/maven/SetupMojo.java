package io.github.tarnlauncher.maven;

import io.github.tarnlauncher.plugin.Companion;
import io.github.tarnlauncher.plugin.PluginCache;
import io.github.tarnlauncher.plugin.SetupRequest;
import java.io.File;
import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import org.apache.maven.plugin.MojoFailureException;
import org.apache.maven.plugins.annotations.Component;
import org.apache.maven.plugins.annotations.LifecyclePhase;
import org.apache.maven.plugins.annotations.Mojo;
import org.apache.maven.plugins.annotations.Parameter;
import org.apache.maven.project.MavenProjectHelper;

/**
 * Creates a Windows setup program from the result of the goal wrap, with {@code makensis}, which must be installed (package
 * nsis), or an MSI. Name, version, vendor and description are those of the executable. Nothing is done when nothing has changed.
 */
@Mojo(name = "setup", defaultPhase = LifecyclePhase.PACKAGE, threadSafe = true)
public final class SetupMojo extends AbstractTarnMojo {
    private static final String CLASSIFIER = "setup";

    @Component
    private MavenProjectHelper projectHelper;

    /** The file to create. The default is NAME-VERSION-setup.exe or NAME-VERSION.msi in {@code outputDirectory}. */
    @Parameter(property = "tarn.setupFile")
    private File setupFile;

    /**
     * The id by which later versions recognise the product. It must never change. The default is derived from vendor and
     * name.
     */
    @Parameter(property = "tarn.id")
    private String id;

    /** The license that users accept: a text in UTF-8, or RTF. */
    @Parameter(property = "tarn.license")
    private File license;

    /** Installs for all users, which requires an administrator. */
    @Parameter(property = "tarn.perMachine", defaultValue = "false")
    private boolean perMachine;

    /** Creates a shortcut on the desktop, too. */
    @Parameter(property = "tarn.desktopShortcut", defaultValue = "false")
    private boolean desktopShortcut;

    /** File extensions that the application opens: {@code <extension>.EXT=TEXT,ICON</extension>}, the icon is optional. */
    @Parameter
    private List<String> associate;

    /** URL schemes that the application opens: {@code <scheme>SCHEME=TEXT</scheme>}. */
    @Parameter
    private List<String> protocol;

    /** Creates an MSI with {@code wixl} (packages wixl and msitools) instead. */
    @Parameter(property = "tarn.msi", defaultValue = "false")
    private boolean msi;

    /**
     * The address from which users download the result. With it, manifests for winget and scoop are written beside the
     * result.
     */
    @Parameter(property = "tarn.url")
    private String url;

    /** The home page in the manifests. The default is the project's {@code url}, else the site of {@code url}. */
    @Parameter(property = "tarn.homepage", defaultValue = "${project.url}")
    private String homepage;

    /** The name of the license in the manifests, such as MIT. The default is that of the project's first license. */
    @Parameter(property = "tarn.licenseName")
    private String licenseName;

    /** The shell command that signs a file in place. The file is its last argument. */
    @Parameter(property = "tarn.sign")
    private String sign;

    /** A new folder in which the script for makensis and its inputs remain. */
    @Parameter(property = "tarn.script")
    private File script;

    /** Attaches the setup program as an artifact of type exe or msi with the classifier {@code setup}. */
    @Parameter(property = "tarn.attachSetup", defaultValue = "false")
    private boolean attachSetup;

    @Override
    void run() throws IOException, MojoFailureException {
        String executable = executableName() + ".exe";
        if (!Files.isRegularFile(applicationFolder().resolve(executable))) {
            throw new MojoFailureException(applicationFolder().resolve(executable) + " is missing: run the goal tarn:wrap "
                + "before tarn:setup, with the same <name> and <outputDirectory>" + WHERE_TO_CONFIGURE);
        }
        Path file = setupFile != null ? setupFile.toPath()
            : besideFolder("-" + project.getVersion() + (msi ? ".msi" : "-setup.exe"));
        Companion companion = Companion.unpackBelow(PluginCache.ofUser());
        SetupRequest request = new SetupRequest(applicationFolder(), executable, file).id(id).license(pathOf(license))
            .perMachine(perMachine).desktopShortcut(desktopShortcut).associate(associate).protocol(protocol).sign(sign)
            .script(pathOf(script)).msi(msi).url(url).homepage(url == null ? null : homepage)
            .licenseName(url == null ? null : nameOfLicense());
        // Two executions of the goal may make both kinds.
        String kind = msi ? ".msi" : ".setup";
        Fingerprint fingerprint = new Fingerprint(besideFolder(kind + ".inputs"));
        fingerprint.addRequest(companion, request);
        if (fingerprint.isUnchanged()) {
            getLog().info(file + " is up to date");
        } else {
            Files.createDirectories(file.toAbsolutePath().getParent());
            // The manifests, too.
            fingerprint.store(runCompanion(companion, request.writeTo(besideFolder(kind + ".toml"))));
            getLog().info("created " + file);
        }
        if (attachSetup) projectHelper.attachArtifact(project, msi ? "msi" : "exe", CLASSIFIER, file.toFile());
    }

    private String nameOfLicense() {
        boolean isSet = licenseName != null && !licenseName.isEmpty();
        return isSet || project.getLicenses().isEmpty() ? licenseName : project.getLicenses().get(0).getName();
    }
}
