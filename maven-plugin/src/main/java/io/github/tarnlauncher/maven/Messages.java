package io.github.tarnlauncher.maven;

/** Texts of errors. */
final class Messages {
    /** Ends a message that names a parameter. */
    static final String WHERE_TO_CONFIGURE = " in the <configuration> of tarn-maven-plugin";

    private Messages() {}

    /** A failure in one line. The system's exceptions have the file's name alone as their message. */
    static String of(Exception failure) {
        boolean isOurs = failure instanceof io.github.tarnlauncher.plugin.PluginException;
        return isOurs ? failure.getMessage() : failure.getClass().getSimpleName() + ": " + failure.getMessage();
    }
}
