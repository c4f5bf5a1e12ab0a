package io.github.tarnlauncher.plugin;

import java.util.ArrayList;
import java.util.List;
import java.util.Locale;
import java.util.Set;
import java.util.regex.Matcher;
import java.util.regex.Pattern;

/** What a finished command of the companion program reported. */
public final class CompanionRun {
    private static final String ERROR = "tarn: error: ";
    private static final String WARNING = "tarn: warning: ";
    private static final Pattern OPTION = Pattern.compile("--([a-z][a-z0-9]*(?:-[a-z0-9]+)*)");
    private static final Pattern NEXT_WORD = Pattern.compile("-([a-z0-9])");

    // Those of WrapRequest and SetupRequest. Other options in messages are the JVM's.
    static final Set<String> PARAMETERS = Set.of("name", "icon", "splash", "noSplash", "runtime", "classPath", "add",
        "fastStart", "noRuntimeArchive", "mainClass", "version", "title", "vendor", "minVersion", "maxVersion",
        "vmParameters", "arguments",
        "singleInstance", "endsWith", "startAs", "singleFile", "keepWorkingDir", "set", "allow", "setString", "description",
        "copyright", "manifest", "admin", "utf8", "launcher", "id", "license", "perMachine", "desktopShortcut", "sign",
        "script", "associate", "protocol", "msi", "url", "homepage", "licenseName");

    private final int exitCode;
    private final String output;
    private final List<String> errors = new ArrayList<>();
    private final List<String> warnings = new ArrayList<>();

    CompanionRun(int exitCode, String output, String messages) {
        this.exitCode = exitCode;
        this.output = output;
        List<String> list = errors;
        for (String line : messages.split("\\R")) {
            if (line.startsWith(ERROR)) {
                list = errors;
                list.add(line.substring(ERROR.length()));
            } else if (line.startsWith(WARNING)) {
                list = warnings;
                list.add(line.substring(WARNING.length()));
            } else if (!line.isBlank()) {
                // A message of several lines, or one of the system's about the program.
                if (list.isEmpty()) list.add(line.strip());
                else list.set(list.size() - 1, list.get(list.size() - 1) + " " + line.strip());
            }
        }
    }

    /** Zero if the command has done what it was asked to do. */
    public int exitCode() {
        return exitCode;
    }

    /** What the command wrote to its standard output. */
    public String output() {
        return output;
    }

    /** The warnings, in terms of a build script: {@code mainClass} instead of {@code --main-class}. */
    public List<String> warnings(String before, String after) {
        List<String> renamed = new ArrayList<>();
        for (String warning : warnings) renamed.add(inTermsOfScript(warning, before, after));
        return renamed;
    }

    /**
     * The reason of a failure in one line, in terms of a build script.
     *
     * @param before what precedes the name of a parameter, such as {@code <} in a POM
     * @param after what follows it
     */
    public String failure(String before, String after) {
        String reason = errors.isEmpty() ? "the companion program ended with code " + exitCode : String.join("; ", errors);
        return inTermsOfScript(reason, before, after);
    }

    // The parameters of both plugins have the names of the options: vmParameters for --vm-parameters.
    private static String inTermsOfScript(String message, String before, String after) {
        return OPTION.matcher(message).replaceAll(option -> {
            String parameter =
                NEXT_WORD.matcher(option.group(1)).replaceAll(word -> word.group(1).toUpperCase(Locale.ROOT));
            boolean isParameter = PARAMETERS.contains(parameter);
            return Matcher.quoteReplacement(isParameter ? before + parameter + after : option.group());
        });
    }
}
