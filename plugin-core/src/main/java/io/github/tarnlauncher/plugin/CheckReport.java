package io.github.tarnlauncher.plugin;

import com.google.gson.JsonElement;
import com.google.gson.JsonObject;
import com.google.gson.JsonParseException;
import com.google.gson.JsonParser;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import java.util.stream.Collectors;

/** The findings of {@code tarn check --json}. */
public final class CheckReport {
    private static final int SCHEMA = 1;

    private final List<Finding> findings = new ArrayList<>();

    private CheckReport() {}

    /**
     * Reads what {@code tarn check --json} printed.
     *
     * @throws PluginException if that is no such report
     */
    public static CheckReport parse(String text) throws PluginException {
        CheckReport report = new CheckReport();
        try {
            JsonObject root = JsonParser.parseString(text).getAsJsonObject();
            if (root.get("schema").getAsInt() != SCHEMA) throw new JsonParseException("another schema");
            for (JsonElement element : root.getAsJsonArray("findings")) {
                report.findings.add(findingOf(element.getAsJsonObject()));
            }
        } catch (RuntimeException failure) {
            throw new PluginException("the companion program's report cannot be read: " + text.strip(), failure);
        }
        return report;
    }

    /** The findings in the order of the file's lines. */
    public List<Finding> findings() {
        return List.copyOf(findings);
    }

    /** The findings that fail the check. */
    public List<Finding> failures() {
        return findings.stream().filter(Finding::isFailure).collect(Collectors.toList());
    }

    /** How many findings fail the check of a file, such as {@code app.ini: 2 findings}. */
    public String summary(Path file) {
        int count = failures().size();
        return file + ": " + count + (count == 1 ? " finding" : " findings");
    }

    private static Finding findingOf(JsonObject object) {
        return new Finding(object.get("line").getAsInt(), object.get("severity").getAsString(),
            object.get("message").getAsString(), object.get("advice").getAsString());
    }

    /** A mistake in a settings file. */
    public static final class Finding {
        private final int line;
        private final String severity;
        private final String message;
        private final String advice;

        Finding(int line, String severity, String message, String advice) {
            this.line = line;
            this.severity = severity;
            this.message = message;
            this.advice = advice;
        }

        /** Whether it fails a strict check: an error or a warning, not a note. */
        public boolean isFailure() {
            return !severity.equals("note");
        }

        /** File, line if there is one, message and remedy in one line. */
        public String describe(String file) {
            String place = line > 0 ? file + ":" + line : file;
            return place + ": " + severity + ": " + message + (advice.isEmpty() ? "" : " (" + advice + ")");
        }
    }
}
