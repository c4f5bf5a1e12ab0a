package io.github.tarnlauncher.plugin;

import java.io.IOException;
import java.io.InputStream;
import java.nio.file.Files;
import java.nio.file.LinkOption;
import java.nio.file.Path;
import java.security.MessageDigest;
import java.security.NoSuchAlgorithmException;

/** SHA-256 digests in hexadecimal. */
public final class Digests {
    private static final int BUFFER_SIZE = 1 << 16;

    private Digests() {}

    /** A new SHA-256 computation. */
    public static MessageDigest create() {
        try {
            return MessageDigest.getInstance("SHA-256");
        } catch (NoSuchAlgorithmException impossible) {
            throw new IllegalStateException(impossible);  // every Java platform has it
        }
    }

    /** Adds a file's content to a computation. */
    public static void update(MessageDigest digest, Path file) throws IOException {
        byte[] buffer = new byte[BUFFER_SIZE];
        try (InputStream content = Files.newInputStream(file)) {
            for (int size = content.read(buffer); size >= 0; size = content.read(buffer)) {
                digest.update(buffer, 0, size);
            }
        }
    }

    /** Ends a computation: 64 lower-case digits. */
    public static String finish(MessageDigest digest) {
        StringBuilder text = new StringBuilder();
        for (byte value : digest.digest()) text.append(String.format("%02x", value));
        return text.toString();
    }

    /** Whether a path is a regular file, no link, with this digest. */
    static boolean matches(Path file, String expected) throws IOException {
        if (!Files.isRegularFile(file, LinkOption.NOFOLLOW_LINKS)) return false;
        MessageDigest digest = create();
        update(digest, file);
        return finish(digest).equals(expected);
    }
}
