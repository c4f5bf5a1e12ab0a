package io.github.tarnlauncher.gradle;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.io.File;
import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import org.gradle.api.Project;
import org.gradle.api.plugins.JavaApplication;
import org.gradle.testfixtures.ProjectBuilder;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

class TarnPluginTest {
    @TempDir
    File folder;

    private Project project;

    @BeforeEach
    void createProject() {
        project = ProjectBuilder.builder().withProjectDir(folder).withName("hello").build();
        project.getPluginManager().apply("io.github.tarn-launcher.tarn");
    }

    private WrapOptions options() {
        return project.getExtensions().getByType(WrapOptions.class);
    }

    private TarnWrap wrapTask() {
        return (TarnWrap) project.getTasks().getByName("tarnWrap");
    }

    @Test
    void aProjectWithoutJavaHasNoTasks() {
        assertNull(project.getTasks().findByName("tarnWrap"));
    }

    @Test
    void theJarOfTheProjectIsWrapped() {
        project.getPluginManager().apply("java");
        assertEquals(new File(folder, "build/libs/hello.jar"), options().getJar().get().getAsFile());
    }

    @Test
    void namesAndVersionAreTheProjects() {
        project.setVersion("2.1.0");
        project.getPluginManager().apply("java");
        assertEquals("hello", options().getName().get());
        assertEquals("2.1.0", options().getVersion().get());
        assertEquals(new File(folder, "build/tarn/hello"), wrapTask().getDestination().get().getAsFile());
    }

    @Test
    void theDestinationFollowsALaterName() {
        project.getPluginManager().apply("java");
        TarnWrap task = wrapTask();
        options().getName().set("Later");
        assertEquals(new File(folder, "build/tarn/Later"), task.getDestination().get().getAsFile());
    }

    @Test
    void theMainClassIsTheApplications() {
        project.getPluginManager().apply("application");
        project.getExtensions().getByType(JavaApplication.class).getMainClass().set("com.example.Main");
        assertEquals("com.example.Main", options().getMainClass().get());
    }

    @Test
    void dependenciesOfAnotherSystemAreReplacedByThoseForWindows() throws IOException {
        Path repository = folder.toPath().resolve("repository");
        Path module = Files.createDirectories(repository.resolve("org/openjfx/window/1"));
        Files.writeString(module.resolve("window-1.pom"), "<project><modelVersion>4.0.0</modelVersion>"
            + "<groupId>org.openjfx</groupId><artifactId>window</artifactId><version>1</version></project>");
        Files.createFile(module.resolve("window-1-linux.jar"));
        Files.createFile(module.resolve("window-1-win.jar"));
        project.getPluginManager().apply("java");
        project.getRepositories().maven(maven -> maven.setUrl(repository.toUri()));
        project.getDependencies().add("implementation", "org.openjfx:window:1:linux");
        assertEquals(List.of("window-1-win.jar"), wrapTask().getLibraryNames());
    }

    @Test
    void assembleAndCheckIncludeTheTasks() {
        project.getPluginManager().apply("java");
        assertTrue(project.getTasks().getByName("assemble").getTaskDependencies().getDependencies(null)
            .contains(wrapTask()));
        assertTrue(project.getTasks().getByName("check").getTaskDependencies().getDependencies(null)
            .contains(project.getTasks().getByName("tarnCheck")));
    }
}
