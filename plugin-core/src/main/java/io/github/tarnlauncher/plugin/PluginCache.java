package io.github.tarnlauncher.plugin;

import java.nio.file.Path;
import java.nio.file.Paths;
import java.util.Locale;
import java.util.Map;

/** Finds the folder in which a user's builds keep the unpacked companion program. */
public final class PluginCache {
    private PluginCache() {}

    /**
     * The folder for this user and system: the environment variable {@code TARN_CACHE}, or {@code tarn} in the system's
     * folder for caches.
     *
     * @throws PluginException if the user has no home folder
     */
    public static Path ofUser() throws PluginException {
        return of(System.getenv(), System.getProperty("os.name", ""), System.getProperty("user.home", ""));
    }

    static Path of(Map<String, String> environment, String system, String home) throws PluginException {
        String chosen = environment.getOrDefault("TARN_CACHE", "");
        if (!chosen.isEmpty()) return Paths.get(chosen).toAbsolutePath();
        String name = system.toLowerCase(Locale.ROOT);
        String caches = environment.getOrDefault(name.startsWith("windows") ? "LOCALAPPDATA" : "XDG_CACHE_HOME", "");
        if (!caches.isEmpty() && Paths.get(caches).isAbsolute()) return Paths.get(caches, "tarn");
        // Java reports "?" for a user without an entry in the system's list, as in some containers.
        if (!Paths.get(home).isAbsolute()) {
            throw new PluginException("there is no home folder to unpack the companion program in: "
                + "name a folder in the environment variable TARN_CACHE");
        }
        if (name.startsWith("windows")) return Paths.get(home, "AppData", "Local", "tarn");
        return name.startsWith("mac") ? Paths.get(home, "Library", "Caches", "tarn") : Paths.get(home, ".cache", "tarn");
    }
}
