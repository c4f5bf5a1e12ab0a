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
 * The arguments of {@code tarn wrap}. What is null or empty is left out, and the companion program decides; each operation
 * corresponds to the option of the same name, which {@code tarn wrap --help} describes.
 */
public final class WrapRequest {
    private final Map<String, List<String>> values = new LinkedHashMap<>();  // by option, without "--"
    private final Set<String> flags = new LinkedHashSet<>();
    private final List<Path> inputs = new ArrayList<>();

    /**
     * Asks to wrap a jar.
     *
     * @param jar the application's jar
     * @param out the folder to create, or to replace if it contains this application
     */
    public WrapRequest(Path jar, Path out) {
        inputs.add(jar);
        text("jar", jar.toString());
        text("out", out.toString());
        flag("replace", true);
    }

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
        List<String> arguments = new ArrayList<>(List.of("wrap", "--config=" + file));
        arguments.addAll(ArgumentFile.remainderOf(values));
        return arguments;
    }

    /** The files and folders that the result is made from. */
    public List<Path> inputs() {
        return List.copyOf(inputs);
    }

    public WrapRequest name(String value) { return text("name", value); }
    public WrapRequest icon(Path file) { return input("icon", file); }
    public WrapRequest splash(Path file) { return input("splash", file); }
    public WrapRequest noSplash(boolean value) { return flag("no-splash", value); }
    public WrapRequest runtime(Path folder) { return input("runtime", folder); }
    public WrapRequest classPath(Collection<Path> jars) { return inputs("class-path", jars); }
    public WrapRequest add(Collection<Path> paths) { return inputs("add", paths); }
    public WrapRequest mainClass(String value) { return text("main-class", value); }
    public WrapRequest version(String value) { return text("version", value); }
    public WrapRequest title(String value) { return text("title", value); }
    public WrapRequest vendor(String value) { return text("vendor", value); }
    public WrapRequest minVersion(String value) { return text("min-version", value); }
    public WrapRequest maxVersion(String value) { return text("max-version", value); }
    public WrapRequest arguments(String value) { return text("arguments", value); }
    public WrapRequest singleInstance(boolean value) { return flag("single-instance", value); }
    public WrapRequest endsWith(String value) { return text("ends-with", value); }
    public WrapRequest startAs(String value) { return text("start-as", value); }
    public WrapRequest singleFile(boolean value) { return flag("single-file", value); }
    public WrapRequest keepWorkingDir(boolean value) { return flag("keep-working-dir", value); }
    public WrapRequest description(String value) { return text("description", value); }
    public WrapRequest copyright(String value) { return text("copyright", value); }
    public WrapRequest manifest(Path file) { return input("manifest", file); }
    public WrapRequest admin(boolean value) { return flag("admin", value); }
    public WrapRequest utf8(boolean value) { return flag("utf8", value); }
    public WrapRequest launcher(Path file) { return input("launcher", file); }

    /** JVM options, in the order given. */
    public WrapRequest vmParameters(Collection<String> options) {
        return texts("vm-parameters", options);
    }

    /** Other settings: {@code SECTION/KEY=VALUE}. */
    public WrapRequest set(Collection<String> settings) {
        return texts("set", settings);
    }

    /** Other texts for the launcher's messages: {@code ID=TEXT}. */
    public WrapRequest setString(Collection<String> strings) {
        return texts("set-string", strings);
    }

    /** The ids of findings of {@code tarn check} that are accepted. */
    public WrapRequest allow(Collection<String> ids) {
        return texts("allow", ids);
    }

    private WrapRequest text(String option, String value) {
        if (value != null && !value.isEmpty()) values.computeIfAbsent(option, name -> new ArrayList<>()).add(value);
        return this;
    }

    private WrapRequest texts(String option, Collection<String> several) {
        if (several != null) several.forEach(value -> text(option, value));
        return this;
    }

    private WrapRequest flag(String option, boolean value) {
        if (value) flags.add(option);
        return this;
    }

    private WrapRequest input(String option, Path path) {
        if (path == null) return this;
        inputs.add(path);
        return text(option, path.toString());
    }

    private WrapRequest inputs(String option, Collection<Path> paths) {
        if (paths != null) paths.forEach(path -> input(option, path));
        return this;
    }
}
