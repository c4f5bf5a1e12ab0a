package io.github.tarnlauncher.maven;

import io.github.tarnlauncher.plugin.Companion;
import io.github.tarnlauncher.plugin.CompanionRequest;
import io.github.tarnlauncher.plugin.Digests;
import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.security.MessageDigest;
import java.util.Collection;
import java.util.List;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/**
 * Tells whether a result is still what its inputs give: the content of all inputs and of the result are what they were
 * when it was made. Sizes and times are not relied on, because a reproducible build gives different jars equal ones.
 */
final class Fingerprint {
    private final Path file;
    private final Path result;
    private final MessageDigest inputs = Digests.create();
    private String inputsDigest;

    /**
     * Creates the fingerprint of no inputs.
     *
     * @param file the file that remembers it between builds
     * @param result the file or folder that is made from the inputs
     */
    Fingerprint(Path file, Path result) {
        this.file = file;
        this.result = result;
    }

    void addText(Collection<String> texts) {
        for (String text : texts) update(inputs, text);
        update(inputs, "");
    }

    /** Adds a request with its inputs, and the programs that carry it out. */
    void addRequest(Companion companion, CompanionRequest<?> request) throws IOException {
        addText(List.of(request.options()));
        addFiles(request.inputs());
        addFiles(List.of(companion.program(), companion.program().resolveSibling("launcher.exe")));
    }

    /** Adds the content of files and of all files below folders. A missing one counts as such. */
    void addFiles(Collection<Path> paths) throws IOException {
        for (Path path : paths) addTree(inputs, path);
    }

    boolean isUnchanged() throws IOException {
        inputsDigest = Digests.finish(inputs);
        return Files.isRegularFile(file) && Files.exists(result)
            && Files.readString(file).equals(inputsDigest + "\n" + resultDigest() + "\n");
    }

    /** Remembers the inputs and the present content of the result; after {@link #isUnchanged}. */
    void store() throws IOException {
        Files.writeString(file, inputsDigest + "\n" + resultDigest() + "\n");
    }

    private String resultDigest() throws IOException {
        MessageDigest digest = Digests.create();
        addTree(digest, result);
        return Digests.finish(digest);
    }

    private static void addTree(MessageDigest digest, Path path) throws IOException {
        if (!Files.exists(path)) {
            update(digest, "missing");
            return;
        }
        List<Path> content;
        try (Stream<Path> below = Files.walk(path, java.nio.file.FileVisitOption.FOLLOW_LINKS)) {
            content = below.sorted().collect(Collectors.toList());
        }
        for (Path entry : content) {
            update(digest, path.relativize(entry).toString());
            if (Files.isDirectory(entry)) {
                update(digest, "folder");
            } else {
                update(digest, Long.toString(Files.size(entry)));
                Digests.update(digest, entry);
            }
        }
    }

    // With its length, so that two texts are not taken for one.
    private static void update(MessageDigest digest, String text) {
        byte[] bytes = text.getBytes(StandardCharsets.UTF_8);
        digest.update((bytes.length + ":").getBytes(StandardCharsets.US_ASCII));
        digest.update(bytes);
    }
}
