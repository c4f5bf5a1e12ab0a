package io.github.tarnlauncher.gradle;

import io.github.tarnlauncher.plugin.WindowsClassifier;
import java.util.ArrayList;
import java.util.List;
import java.util.Optional;
import org.gradle.api.Plugin;
import org.gradle.api.Project;
import org.gradle.api.artifacts.ArtifactSelectionDetails;
import org.gradle.api.artifacts.Configuration;
import org.gradle.api.artifacts.DependencyArtifactSelector;
import org.gradle.api.artifacts.component.ModuleComponentSelector;
import org.gradle.api.attributes.Attribute;
import org.gradle.api.attributes.AttributeContainer;
import org.gradle.api.plugins.JavaApplication;
import org.gradle.api.plugins.JavaPlugin;
import org.gradle.api.plugins.JavaPluginExtension;
import org.gradle.api.provider.Provider;
import org.gradle.api.tasks.TaskProvider;
import org.gradle.api.tasks.bundling.Jar;
import org.gradle.api.tasks.bundling.Zip;
import org.gradle.jvm.toolchain.JavaToolchainService;
import org.gradle.nativeplatform.MachineArchitecture;
import org.gradle.nativeplatform.OperatingSystemFamily;

/** Adds the extension and the tasks to a project with the plugin {@code java}. */
public final class TarnPlugin implements Plugin<Project> {
    private static final String GROUP = "distribution";

    @Override
    public void apply(Project project) {
        WrapOptions options = project.getObjects().newInstance(WrapOptions.class);
        project.getExtensions().add(WrapOptions.class, "tarn", options);
        setDefaults(project, options);
        project.getPlugins().withType(JavaPlugin.class, plugin -> addTasks(project, options));
    }

    private static void setDefaults(Project project, WrapOptions options) {
        options.getName().convention(project.getName());
        options.getVersion().convention(project.provider(() -> project.getVersion().toString()));
        options.getDescription().convention(project.provider(project::getDescription));
        options.getAdmin().convention(false);
        options.getUtf8().convention(false);
        options.getIncludeDependencies().convention(true);
        options.getNoSplash().convention(false);
        options.getSingleInstance().convention(false);
        options.getSingleFile().convention(false);
        options.getKeepWorkingDir().convention(false);
        options.getFastStart().convention(false);
        options.getNoRuntimeArchive().convention(false);
        options.getInstaller().getPerMachine().convention(false);
        options.getInstaller().getDesktopShortcut().convention(false);
        options.getInstaller().getMsi().convention(false);
        project.getPlugins().withId("application", plugin -> options.getMainClass().convention(
            project.getExtensions().getByType(JavaApplication.class).getMainClass()));
    }

    private static void addTasks(Project project, WrapOptions options) {
        options.getJar().convention(
            project.getTasks().named(JavaPlugin.JAR_TASK_NAME, Jar.class).flatMap(Jar::getArchiveFile));
        Configuration libraries = windowsClasspath(project);
        JavaToolchainService toolchains = project.getExtensions().getByType(JavaToolchainService.class);
        JavaPluginExtension java = project.getExtensions().getByType(JavaPluginExtension.class);

        TaskProvider<TarnWrap> wrap = project.getTasks().register("tarnWrap", TarnWrap.class, task -> {
            task.setGroup(GROUP);
            task.setDescription("Creates a folder with a Windows executable of the application.");
            task.getOptions().set(options);
            task.getLibraries().from(libraries);
            task.getJavaLauncher().convention(
                options.getJlink().getJmods().flatMap(jmods -> toolchains.launcherFor(java.getToolchain())));
            task.getDestination().convention(
                project.getLayout().getBuildDirectory().dir(options.getName().map(name -> "tarn/" + name)));
        });
        TaskProvider<TarnCheck> check = project.getTasks().register("tarnCheck", TarnCheck.class, task -> {
            task.setGroup("verification");
            task.setDescription("Checks the settings of the Windows executable.");
            task.getApplication().convention(wrap.flatMap(TarnWrap::getDestination));
            task.getExecutableName().convention(options.getName());
            task.getAllow().convention(options.getAllow());
            task.getReport().convention(project.getLayout().getBuildDirectory().file("reports/tarn/check.txt"));
        });
        project.getTasks().register("tarnSetup", TarnSetup.class, task -> {
            task.setGroup(GROUP);
            task.setDescription("Creates a setup program for Windows with makensis.");
            task.getApplication().convention(wrap.flatMap(TarnWrap::getDestination));
            task.getExecutableName().convention(options.getName());
            task.getOptions().set(options.getInstaller());
            Provider<String> ending = options.getInstaller().getMsi().map(msi -> msi ? ".msi" : "-setup.exe");
            task.getFileName().convention(options.getName().zip(options.getVersion(), (name, version) -> name + "-" + version)
                .zip(ending, (name, end) -> name + end));
            task.getDestination().convention(project.getLayout().getBuildDirectory().dir("tarn-setup"));
        });
        project.getTasks().register("tarnZip", Zip.class, task -> {
            task.setGroup(GROUP);
            task.setDescription("Packs the folder of tarnWrap.");
            task.from(wrap, copy -> copy.into(options.getName()));
            task.getArchiveBaseName().convention(options.getName());
            task.getArchiveClassifier().convention("windows-x64");
            task.getDestinationDirectory().convention(project.getLayout().getBuildDirectory().dir("distributions"));
            task.setPreserveFileTimestamps(false);
            task.setReproducibleFileOrder(true);
        });
        project.getTasks().named("assemble", task -> task.dependsOn(wrap));
        project.getTasks().named("check", task -> task.dependsOn(check));
    }

    // The runtime class path as it is on Windows: variants for that system, and its classifiers.
    private static Configuration windowsClasspath(Project project) {
        Configuration runtime = project.getConfigurations().getByName(JavaPlugin.RUNTIME_CLASSPATH_CONFIGURATION_NAME);
        return project.getConfigurations().create("tarnClasspath", configuration -> {
            configuration.setDescription("The runtime class path of the application on Windows.");
            configuration.setCanBeConsumed(false);
            configuration.setCanBeResolved(true);
            configuration.extendsFrom(runtime);
            AttributeContainer attributes = configuration.getAttributes();
            for (Attribute<?> attribute : runtime.getAttributes().keySet()) copy(runtime, attributes, attribute);
            attributes.attribute(OperatingSystemFamily.OPERATING_SYSTEM_ATTRIBUTE,
                project.getObjects().named(OperatingSystemFamily.class, OperatingSystemFamily.WINDOWS));
            attributes.attribute(MachineArchitecture.ARCHITECTURE_ATTRIBUTE,
                project.getObjects().named(MachineArchitecture.class, MachineArchitecture.X86_64));
            configuration.getResolutionStrategy().getDependencySubstitution().all(dependency -> {
                if (!(dependency.getRequested() instanceof ModuleComponentSelector)) return;
                String group = ((ModuleComponentSelector) dependency.getRequested()).getGroup();
                dependency.artifactSelection(selection -> selectForWindows(group, selection));
            });
        });
    }

    private static <T> void copy(Configuration from, AttributeContainer to, Attribute<T> attribute) {
        to.attribute(attribute, from.getAttributes().getAttribute(attribute));
    }

    private static void selectForWindows(String group, ArtifactSelectionDetails selection) {
        List<DependencyArtifactSelector> requested = new ArrayList<>(selection.getRequestedSelectors());
        if (requested.stream().noneMatch(one -> WindowsClassifier.of(group, one.getClassifier()).isPresent())) return;
        selection.withoutArtifactSelectors();
        for (DependencyArtifactSelector one : requested) {
            Optional<String> classifier = WindowsClassifier.of(group, one.getClassifier());
            selection.selectArtifact(one.getType(), one.getExtension(), classifier.orElse(one.getClassifier()));
        }
    }
}
