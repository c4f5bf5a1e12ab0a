package io.github.tarnlauncher.plugin;

import java.util.Locale;

/** Names the system that a build runs on, such as {@code linux-x86_64}. */
final class Platform {
    private Platform() {}

    /** The platform of this Java virtual machine. */
    static String current() throws PluginException {
        return of(System.getProperty("os.name", ""), System.getProperty("os.arch", ""));
    }

    /** The platform for values of the system properties {@code os.name} and {@code os.arch}. */
    static String of(String system, String processor) throws PluginException {
        String name = system.toLowerCase(Locale.ROOT);
        // Windows on ARM64 runs programs for x86-64.
        if (name.startsWith("windows")) return "windows-x86_64";
        String machine = processor.toLowerCase(Locale.ROOT);
        boolean isArm = machine.equals("aarch64") || machine.equals("arm64");
        boolean isIntel = machine.equals("amd64") || machine.equals("x86_64");
        if (isArm || isIntel) {
            String suffix = isArm ? "-aarch64" : "-x86_64";
            if (name.startsWith("linux")) return "linux" + suffix;
            if (name.startsWith("mac")) return "macos" + suffix;
        }
        throw new PluginException("Tarn has no companion program for " + system + " on " + processor
            + "; build on Linux or macOS (x86-64 or ARM64) or on Windows");
    }

    /** The file name of the companion program on a platform. */
    static String programOn(String platform) {
        return platform.startsWith("windows") ? "tarn.exe" : "tarn";
    }
}
