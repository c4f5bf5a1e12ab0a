package io.github.tarnlauncher.plugin;

import java.util.ArrayList;
import java.util.List;
import java.util.Map;
import java.util.Set;

/**
 * The format of the file that {@code tarn wrap --config} reads: a line {@code option = 'value'} for each value, without
 * escapes.
 */
final class ArgumentFile {
    private ArgumentFile() {}

    /** The file's text. An option with a value that the format cannot hold is left out. */
    static String textOf(Map<String, List<String>> values, Set<String> flags) {
        StringBuilder text = new StringBuilder();
        values.forEach((option, several) -> {
            if (!isQuotable(several)) return;
            for (String value : several) text.append(option).append(" = ").append(quoted(value)).append('\n');
        });
        for (String flag : flags) text.append(flag).append(" = true\n");
        return text.toString();
    }

    /** The options that are left out, as arguments of the command line. */
    static List<String> remainderOf(Map<String, List<String>> values) {
        List<String> arguments = new ArrayList<>();
        values.forEach((option, several) -> {
            if (isQuotable(several)) return;
            // One word: a value that begins with "-" is no option.
            for (String value : several) arguments.add("--" + option + "=" + value);
        });
        return arguments;
    }

    // An option is in one of both places, because the command line takes precedence for all its values.
    private static boolean isQuotable(List<String> several) {
        return several.stream().allMatch(value -> quoted(value) != null);
    }

    // Null for a value that would be read as another one. Quotes around a value inside quotes are removed as well.
    private static String quoted(String value) {
        boolean isInQuotes = value.matches("(?s)\".*\"|'.*'");
        if (isInQuotes || value.indexOf('\n') >= 0 || value.indexOf('\r') >= 0) return null;
        if (value.indexOf('\'') < 0) return value.indexOf('\\') >= 0 && value.indexOf('"') >= 0 ? null : "'" + value + "'";
        return value.indexOf('"') < 0 && value.indexOf('\\') < 0 ? '"' + value + '"' : null;
    }
}
