package io.github.tarnlauncher.plugin;

import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Collection;
import java.util.LinkedHashMap;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Map;
import java.util.Set;

/**
 * The arguments of a command of the companion program. What is null or empty is left out, and the companion program
 * decides.
 *
 * @param <R> the command's own class, which each operation returns
 */
public abstract class CompanionRequest<R extends CompanionRequest<R>> {
    private final String command;
    private final Map<String, List<String>> values = new LinkedHashMap<>();  // by option, without "--"
    private final Set<String> flags = new LinkedHashSet<>();
    private final List<Path> inputs = new ArrayList<>();

    CompanionRequest(String command) {
        this.command = command;
    }

    abstract R self();

    /** Everything that is asked for, one option a line, as the companion program reads it from a file. */
    public String options() {
        return ArgumentFile.textOf(values, flags);
    }

    /**
     * Writes the options to a file. A command line would have to be short on Windows, and Java does not pass every quote.
     *
     * @return the arguments of the companion program, its command first
     */
    public List<String> writeTo(Path file) throws IOException {
        Files.createDirectories(file.toAbsolutePath().getParent());
        Files.writeString(file, options());
        List<String> arguments = new ArrayList<>(List.of(command, "--config=" + file));
        arguments.addAll(ArgumentFile.remainderOf(values));
        return arguments;
    }

    /** The files and folders that the result is made from. */
    public List<Path> inputs() {
        return List.copyOf(inputs);
    }

    R text(String option, String value) {
        if (value != null && !value.isEmpty()) values.computeIfAbsent(option, name -> new ArrayList<>()).add(value);
        return self();
    }

    R texts(String option, Collection<String> several) {
        if (several != null) several.forEach(value -> text(option, value));
        return self();
    }

    R flag(String option, boolean value) {
        if (value) flags.add(option);
        return self();
    }

    R input(String option, Path path) {
        if (path == null) return self();
        inputs.add(path);
        return text(option, path.toString());
    }

    R inputs(String option, Collection<Path> paths) {
        if (paths != null) paths.forEach(path -> input(option, path));
        return self();
    }
}
