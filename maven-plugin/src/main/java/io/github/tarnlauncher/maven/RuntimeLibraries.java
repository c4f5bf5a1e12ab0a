package io.github.tarnlauncher.maven;

import io.github.tarnlauncher.plugin.PluginException;
import io.github.tarnlauncher.plugin.WindowsClassifier;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Optional;
import java.util.Set;
import org.apache.maven.artifact.Artifact;
import org.apache.maven.plugin.logging.Log;
import org.apache.maven.project.MavenProject;
import org.eclipse.aether.RepositorySystem;
import org.eclipse.aether.RepositorySystemSession;
import org.eclipse.aether.artifact.DefaultArtifact;
import org.eclipse.aether.resolution.ArtifactRequest;
import org.eclipse.aether.resolution.ArtifactResolutionException;

/** The jars of a project's dependencies of scope runtime, those for Windows instead of those for the build's system. */
final class RuntimeLibraries {
    private final RepositorySystem repositories;
    private final RepositorySystemSession session;
    private final MavenProject project;
    private final Log log;

    RuntimeLibraries(RepositorySystem repositories, RepositorySystemSession session, MavenProject project, Log log) {
        this.repositories = repositories;
        this.session = session;
        this.project = project;
        this.log = log;
    }

    /** The jars in the order of the class path, each once. */
    List<Path> files() throws PluginException {
        Set<Path> files = new LinkedHashSet<>();
        for (Artifact artifact : project.getArtifacts()) {
            if (!artifact.getArtifactHandler().isAddedToClasspath()) continue;
            Optional<String> classifier = WindowsClassifier.of(artifact.getGroupId(), artifact.getClassifier());
            Path file = classifier.isPresent() ? windowsFile(artifact, classifier.get()) : fileOf(artifact);
            files.add(file);
        }
        return new ArrayList<>(files);
    }

    private static Path fileOf(Artifact artifact) throws PluginException {
        if (artifact.getFile() == null || artifact.getFile().isDirectory()) {
            throw new PluginException(artifact + " has no jar yet: build the whole project with mvn package");
        }
        return artifact.getFile().toPath();
    }

    // The artifact of the build's system comes along if there is none for Windows; the companion program warns of it.
    private Path windowsFile(Artifact artifact, String classifier) throws PluginException {
        ArtifactRequest request = new ArtifactRequest(
            new DefaultArtifact(artifact.getGroupId(), artifact.getArtifactId(), classifier, artifact.getType(),
                artifact.getVersion()),
            project.getRemoteProjectRepositories(), null);
        try {
            return repositories.resolveArtifact(session, request).getArtifact().getFile().toPath();
        } catch (ArtifactResolutionException failure) {
            log.warn(artifact + " is for another system than Windows, and there is none with the classifier "
                + classifier + ": " + failure.getMessage());
            return fileOf(artifact);
        }
    }
}
