package io.github.tarnlauncher.plugin;

import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Collection;
import java.util.List;

/**
 * The arguments of {@code tarn wrap}. What is null or empty is left out, and the companion program decides; each operation
 * corresponds to the option of the same name, which {@code tarn wrap --help} describes.
 */
public final class WrapRequest {
    private final List<String> arguments = new ArrayList<>();
    private final List<Path> inputs = new ArrayList<>();

    /**
     * Asks to wrap a jar.
     *
     * @param jar the application's jar
     * @param out the folder to create, or to replace if it contains this application
     */
    public WrapRequest(Path jar, Path out) {
        arguments.add("wrap");
        arguments.add(jar.toString());
        inputs.add(jar);
        text("--out", out.toString());
        flag("--replace", true);
    }

    /** The arguments of the companion program, its command first. */
    public List<String> arguments() {
        return List.copyOf(arguments);
    }

    /** The files and folders that the result is made from. */
    public List<Path> inputs() {
        return List.copyOf(inputs);
    }

    public WrapRequest name(String value) { return text("--name", value); }
    public WrapRequest icon(Path file) { return input("--icon", file); }
    public WrapRequest splash(Path file) { return input("--splash", file); }
    public WrapRequest noSplash(boolean value) { return flag("--no-splash", value); }
    public WrapRequest runtime(Path folder) { return input("--runtime", folder); }
    public WrapRequest classPath(Collection<Path> jars) { return inputs("--class-path", jars); }
    public WrapRequest add(Collection<Path> paths) { return inputs("--add", paths); }
    public WrapRequest mainClass(String value) { return text("--main-class", value); }
    public WrapRequest version(String value) { return text("--version", value); }
    public WrapRequest title(String value) { return text("--title", value); }
    public WrapRequest vendor(String value) { return text("--vendor", value); }
    public WrapRequest minVersion(String value) { return text("--min-version", value); }
    public WrapRequest maxVersion(String value) { return text("--max-version", value); }
    public WrapRequest arguments(String value) { return text("--arguments", value); }
    public WrapRequest singleInstance(boolean value) { return flag("--single-instance", value); }
    public WrapRequest endsWith(String value) { return text("--ends-with", value); }
    public WrapRequest startAs(String value) { return text("--start-as", value); }
    public WrapRequest singleFile(boolean value) { return flag("--single-file", value); }
    public WrapRequest keepWorkingDir(boolean value) { return flag("--keep-working-dir", value); }
    public WrapRequest launcher(Path file) { return input("--launcher", file); }

    /** JVM options, in the order given. */
    public WrapRequest vmParameters(Collection<String> values) {
        return text("--vm-parameters", values == null ? null : String.join(" ", values));
    }

    /** Other settings: {@code SECTION/KEY=VALUE}. */
    public WrapRequest set(Collection<String> values) {
        if (values != null) values.forEach(value -> text("--set", value));
        return this;
    }

    /** The ids of findings of {@code tarn check} that are accepted. */
    public WrapRequest allow(Collection<String> ids) {
        if (ids != null) ids.forEach(id -> text("--allow", id));
        return this;
    }

    private WrapRequest text(String option, String value) {
        // One word: a value that begins with "-" is no option.
        if (value != null && !value.isEmpty()) arguments.add(option + "=" + value);
        return this;
    }

    private WrapRequest flag(String option, boolean value) {
        if (value) arguments.add(option);
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
