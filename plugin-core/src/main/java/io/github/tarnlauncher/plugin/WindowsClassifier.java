package io.github.tarnlauncher.plugin;

import java.util.Locale;
import java.util.Optional;
import java.util.regex.Matcher;
import java.util.regex.Pattern;

/** Finds the classifier of the artifact for 64-bit Windows that corresponds to another system's. */
public final class WindowsClassifier {
    private static final Pattern OTHER_SYSTEM = Pattern.compile(
        "(?<before>|natives-)(?<system>linux|macosx|macos|mac|osx)(?<processor>-(x86_64|amd64|x64|aarch64|aarch_64|arm64))?");

    private WindowsClassifier() {}

    /**
     * The corresponding classifier: {@code win} for {@code linux-aarch64} of JavaFX, {@code natives-windows} for
     * {@code natives-linux}, {@code windows-x86_64} for {@code osx-aarch_64}.
     *
     * @return empty if the classifier names none of the other systems
     */
    public static Optional<String> of(String groupId, String classifier) {
        Matcher match = OTHER_SYSTEM.matcher(classifier == null ? "" : classifier.toLowerCase(Locale.ROOT));
        if (!match.matches()) return Optional.empty();
        if (groupId.equals("org.openjfx")) return Optional.of("win");
        if (!match.group("before").isEmpty()) return Optional.of("natives-windows");
        return Optional.of(match.group("processor") == null ? "windows" : "windows-x86_64");
    }
}
