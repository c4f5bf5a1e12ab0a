package io.github.tarnlauncher.plugin;

import java.io.ByteArrayOutputStream;
import java.io.IOException;
import java.io.InputStream;
import java.nio.charset.StandardCharsets;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Collection;
import java.util.List;
import java.util.concurrent.CompletableFuture;
import java.util.concurrent.TimeUnit;
import java.util.regex.Pattern;

/** The companion program {@code tarn}, which the plugins carry and run. */
public final class Companion {
    // ETXTBSY of Linux: "error=26, Text file busy", and since Java 21 "error: 26 (Text file busy)".
    private static final Pattern TEXT_FILE_BUSY = Pattern.compile("\\berror[=:] ?26\\b");
    private static final long MOST_NANOSECONDS_BUSY = TimeUnit.SECONDS.toNanos(10);

    private final Path program;

    private Companion(Path program) {
        this.program = program;
    }

    /**
     * Unpacks the program for this system below a folder, unless it is there.
     *
     * @param cache the folder, see {@link PluginCache}; it is created if it is missing
     * @throws IOException if there is no program for this system, or the folder cannot be used
     */
    public static Companion unpackBelow(Path cache) throws IOException {
        return new Companion(new CompanionFiles(Platform.current()).unpackBelow(cache));
    }

    /** The executable file. */
    public Path program() {
        return program;
    }

    /**
     * Runs a command to its end.
     *
     * @param arguments the arguments, the command first
     * @param folder the current directory, to which relative paths refer
     * @throws IOException if the program cannot be started, or the thread is interrupted
     */
    public CompanionRun run(List<String> arguments, Path folder) throws IOException {
        List<String> command = new ArrayList<>();
        command.add(program.toString());
        command.addAll(arguments);
        try {
            return finish(start(new ProcessBuilder(command).directory(folder.toFile())));
        } catch (InterruptedException interruption) {
            Thread.currentThread().interrupt();
            throw new PluginException("interrupted while running " + program, interruption);
        }
    }

    private static CompanionRun finish(Process process) throws IOException, InterruptedException {
        try {
            process.getOutputStream().close();
            CompletableFuture<String> errors = CompletableFuture.supplyAsync(() -> readAll(process.getErrorStream()));
            String output = readAll(process.getInputStream());
            return new CompanionRun(process.waitFor(), output, errors.join());
        } finally {
            process.destroy();
        }
    }

    /**
     * Checks a settings file strictly, as {@code tarn check --strict}.
     *
     * @param settings the file, with its folder
     * @param allowed the ids of findings that are accepted; may be null
     * @throws IOException if it cannot be checked
     */
    public CheckReport check(Path settings, Collection<String> allowed) throws IOException {
        List<String> arguments = new ArrayList<>(List.of("check", "--strict", "--json"));
        if (allowed != null) allowed.forEach(id -> arguments.add("--allow=" + id));
        arguments.add(settings.toString());
        CompanionRun run = run(arguments, settings.getParent());
        if (run.output().isBlank()) throw new PluginException(run.failure("", ""));
        CheckReport report = CheckReport.parse(run.output());
        if (run.exitCode() != 0 && report.failures().isEmpty()) throw new PluginException(run.failure("", ""));
        return report;
    }

    private Process start(ProcessBuilder builder) throws PluginException, InterruptedException {
        long end = System.nanoTime() + MOST_NANOSECONDS_BUSY;
        while (true) {
            try {
                return builder.start();
            } catch (IOException failure) {
                // A process that another thread was starting while the program was being unpacked has inherited the open
                // file, and keeps it until it runs its own program.
                boolean isBusy = TEXT_FILE_BUSY.matcher(failure.getMessage()).find();
                if (!isBusy || System.nanoTime() > end) {
                    throw new PluginException(failure.getMessage() + "; if the file system of " + program.getParent()
                        + " does not allow programs, name another folder in the environment variable TARN_CACHE", failure);
                }
            }
            TimeUnit.MILLISECONDS.sleep(10);
        }
    }

    private static String readAll(InputStream stream) {
        ByteArrayOutputStream content = new ByteArrayOutputStream();
        try (stream) {
            stream.transferTo(content);
        } catch (IOException ended) {
            // The process has ended; what it wrote until then is what there is.
            return content.toString(StandardCharsets.UTF_8);
        }
        return content.toString(StandardCharsets.UTF_8);
    }
}
