package io.github.tarnlauncher.plugin;

import java.nio.file.Path;
import java.util.Collection;

/**
 * The arguments of {@code tarn wrap}. Each operation corresponds to the option of the same name, which
 * {@code tarn wrap --help} describes.
 */
public final class WrapRequest extends CompanionRequest<WrapRequest> {
    /**
     * Asks to wrap a jar.
     *
     * @param jar the application's jar
     * @param out the folder to create, or to replace if it contains this application
     */
    public WrapRequest(Path jar, Path out) {
        super("wrap");
        input("jar", jar);
        text("out", out.toString());
        flag("replace", true);
    }

    @Override
    WrapRequest self() {
        return this;
    }

    public WrapRequest name(String value) { return text("name", value); }
    public WrapRequest icon(Path file) { return input("icon", file); }
    public WrapRequest splash(Path file) { return input("splash", file); }
    public WrapRequest noSplash(boolean value) { return flag("no-splash", value); }
    public WrapRequest runtime(Path folder) { return input("runtime", folder); }
    public WrapRequest fastStart(boolean value) { return flag("fast-start", value); }
    public WrapRequest noRuntimeArchive(boolean value) { return flag("no-runtime-archive", value); }
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
}
