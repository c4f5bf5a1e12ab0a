package io.github.tarnlauncher.maven;

import io.github.tarnlauncher.plugin.Companion;
import io.github.tarnlauncher.plugin.CompanionRequest;
import io.github.tarnlauncher.plugin.Digests;
import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.security.MessageDigest;
import java.util.ArrayList;
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
    private final MessageDigest inputs = Digests.create();
    private String inputsDigest;

    /**
     * Creates the fingerprint of no inputs.
     *
     * @param file the file that remembers it between builds
     */
    Fingerprint(Path file) {
        this.file = file;
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
        if (!Files.isRegularFile(file)) return false;
        List<String> lines = Files.readAllLines(file);
        // The digests, and the results.
        return lines.size() > 2 && lines.equals(linesFor(lines.subList(2, lines.size())));
    }

    /** Remembers the inputs, and the files and folders that were made from them; after {@link #isUnchanged}. */
    void store(List<String> results) throws IOException {
        Files.write(file, linesFor(results));
    }

    private List<String> linesFor(List<String> results) throws IOException {
        MessageDigest digest = Digests.create();
        for (String result : results) addTree(digest, Path.of(result));
        List<String> lines = new ArrayList<>(List.of(inputsDigest, Digests.finish(digest)));
        lines.addAll(results);
        return lines;
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
