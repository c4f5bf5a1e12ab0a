package io.github.tarnlauncher.plugin;

import static org.junit.jupiter.api.Assertions.assertEquals;

import java.io.BufferedReader;
import java.io.IOException;
import java.io.InputStreamReader;
import java.nio.channels.FileChannel;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.StandardOpenOption;
import java.util.ArrayList;
import java.util.Collections;
import java.util.HashSet;
import java.util.List;
import java.util.Set;
import java.util.concurrent.Callable;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;
import java.util.concurrent.Future;
import java.util.concurrent.FutureTask;
import java.util.concurrent.TimeUnit;
import java.util.stream.Stream;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

class ConcurrentBuildsTest {
    private static final int BUILDS = 8;

    @TempDir
    Path cache;

    private final ExecutorService threads = Executors.newFixedThreadPool(BUILDS);

    private <T> List<T> atTheSameTime(Callable<T> build) throws Exception {
        List<T> results = new ArrayList<>();
        for (Future<T> result : threads.invokeAll(Collections.nCopies(BUILDS, build))) results.add(result.get());
        return results;
    }

    private void assertUnpacked(int times) throws IOException {
        try (Stream<Path> content = Files.walk(cache)) {
            // The program and the launcher.
            assertEquals(2 * times, content.filter(Files::isRegularFile).count());
        }
    }

    @Test
    void threadsUnpackTheProgramOnce() throws Exception {
        assertEquals(1, new HashSet<>(atTheSameTime(() -> Companion.unpackBelow(cache).program())).size());
        assertUnpacked(1);
    }

    @Test
    void threadsReplaceADamagedProgramOnce() throws Exception {
        Path program = Companion.unpackBelow(cache).program();
        Files.writeString(program.resolveSibling("launcher.exe"), "damaged");
        for (CompanionRun run : atTheSameTime(() -> Companion.unpackBelow(cache).run(List.of("--version"), cache))) {
            assertEquals(0, run.exitCode(), run.failure("", ""));
        }
        assertUnpacked(2);
    }

    @Test
    void processesUnpackTheProgramOnce() throws Exception {
        List<Process> builds = new ArrayList<>();
        try {
            List<BufferedReader> outputs = new ArrayList<>();
            for (int i = 0; i < 4; ++i) {
                builds.add(new ProcessBuilder(Path.of(System.getProperty("java.home"), "bin", "java").toString(), "-cp",
                    System.getProperty("java.class.path"), UnpackingProcess.class.getName())
                    .redirectError(ProcessBuilder.Redirect.INHERIT).start());
                outputs.add(new BufferedReader(
                    new InputStreamReader(builds.get(i).getInputStream(), StandardCharsets.UTF_8)));
            }
            for (BufferedReader output : outputs) assertEquals("ready", output.readLine());
            for (Process build : builds) {
                build.getOutputStream().write((cache + "\n").getBytes(StandardCharsets.UTF_8));
                build.getOutputStream().close();
            }
            Set<String> programs = new HashSet<>();
            for (BufferedReader output : outputs) programs.add(output.readLine());
            assertEquals(Set.of(Companion.unpackBelow(cache).program().toString()), programs);
        } finally {
            builds.forEach(Process::destroyForcibly);
        }
        assertUnpacked(1);
    }

    // A process that another thread starts inherits, for a moment, the file that is being written.
    @Test
    void aProgramThatIsOpenForWritingIsStartedOnceItIsClosed() throws Exception {
        Companion companion = Companion.unpackBelow(cache);
        FutureTask<CompanionRun> run = new FutureTask<>(() -> companion.run(List.of("--version"), cache));
        Thread build = new Thread(run);
        FileChannel open = FileChannel.open(companion.program(), StandardOpenOption.WRITE);
        try {
            build.start();
            long end = System.nanoTime() + TimeUnit.SECONDS.toNanos(30);
            while (build.getState() != Thread.State.TIMED_WAITING && !run.isDone() && System.nanoTime() < end) {
                Thread.onSpinWait();
            }
        } finally {
            open.close();
        }
        assertEquals(0, run.get(30, TimeUnit.SECONDS).exitCode());
    }
}
