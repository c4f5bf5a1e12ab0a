package io.github.tarnlauncher.plugin;

import java.io.IOException;

/** The companion program cannot do what a build asks for. The message is one line for the build's user. */
public final class PluginException extends IOException {
    private static final long serialVersionUID = 1L;

    /** Creates an exception with a message for the build's user. */
    public PluginException(String message) {
        super(message);
    }

    /** Creates an exception with a message for the build's user, and its cause. */
    public PluginException(String message, Throwable cause) {
        super(message, cause);
    }

    /** A failure in one line. The message of the system's exceptions is often the file's name alone. */
    public static String describe(IOException failure) {
        boolean isOurs = failure instanceof PluginException;
        return isOurs ? failure.getMessage() : failure.getClass().getSimpleName() + ": " + failure.getMessage();
    }
}
