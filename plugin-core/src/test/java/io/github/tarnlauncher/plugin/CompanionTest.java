package io.github.tarnlauncher.plugin;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.attribute.FileTime;
import java.nio.file.attribute.PosixFilePermissions;
import java.util.ArrayList;
import java.util.HashSet;
import java.util.List;
import java.util.Set;
import java.util.concurrent.Callable;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;
import java.util.concurrent.Future;
import java.util.stream.Collectors;
import java.util.stream.Stream;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

class CompanionTest {
    @TempDir
    Path cache;

    private static List<Path> below(Path folder) throws IOException {
        try (Stream<Path> content = Files.walk(folder)) {
            return content.filter(Files::isRegularFile).collect(Collectors.toList());
        }
    }

    @Test
    void runsTheProgramThatItUnpacks() throws IOException {
        CompanionRun run = Companion.unpackBelow(cache).run(List.of("--version"), cache);
        assertEquals(0, run.exitCode());
        assertTrue(run.output().startsWith("tarn "), run.output());
    }

    @Test
    void unpacksOnce() throws IOException {
        Path program = Companion.unpackBelow(cache).program();
        FileTime marked = FileTime.fromMillis(1_000_000_000_000L);
        Files.setLastModifiedTime(program, marked);
        assertEquals(program, Companion.unpackBelow(cache).program());
        assertEquals(marked, Files.getLastModifiedTime(program));
    }

    @Test
    void leavesNothingBesideTheProgramAndTheLauncher() throws IOException {
        Path program = Companion.unpackBelow(cache).program();
        Companion.unpackBelow(cache);
        assertEquals(Set.of(program, program.resolveSibling("launcher.exe")), new HashSet<>(below(cache)));
    }

    @Test
    void replacesAChangedProgram() throws IOException {
        Path program = Companion.unpackBelow(cache).program();
        byte[] genuine = Files.readAllBytes(program);
        Files.delete(program);
        Files.writeString(program, "#!/bin/sh\necho stranger\n");
        assertTrue(program.toFile().setExecutable(true));
        Companion.unpackBelow(cache);
        assertEquals(List.of(), difference(genuine, Files.readAllBytes(program)));
    }

    @Test
    void replacesALinkAndLeavesItsTarget() throws IOException {
        Path program = Companion.unpackBelow(cache).program();
        Path elsewhere = Files.createDirectory(cache.resolve("elsewhere"));
        Path moved = Files.move(program.getParent(), elsewhere.resolve("moved"));
        Files.createSymbolicLink(program.getParent(), moved);
        Companion.unpackBelow(cache);
        assertFalse(Files.isSymbolicLink(program.getParent()));
        assertTrue(Files.exists(moved.resolve(program.getFileName())));
    }

    @Test
    void replacesAFolderThatOthersMayWriteTo() throws IOException {
        Path folder = Companion.unpackBelow(cache).program().getParent();
        Files.setPosixFilePermissions(folder, PosixFilePermissions.fromString("rwxrwxrwx"));
        Companion.unpackBelow(cache);
        assertEquals("rwx------", PosixFilePermissions.toString(Files.getPosixFilePermissions(folder)));
    }

    @Test
    void severalBuildsUnpackAtTheSameTime() throws Exception {
        ExecutorService builds = Executors.newFixedThreadPool(8);
        try {
            List<Callable<Path>> calls = new ArrayList<>();
            for (int i = 0; i < 8; ++i) calls.add(() -> Companion.unpackBelow(cache).program());
            Set<Path> programs = new HashSet<>();
            for (Future<Path> result : builds.invokeAll(calls)) programs.add(result.get());
            assertEquals(1, programs.size());
        } finally {
            builds.shutdownNow();
        }
        assertEquals(2, below(cache).size());
    }

    @Test
    void aCacheThatIsAFileIsAnError() throws IOException {
        Path file = Files.createFile(cache.resolve("file"));
        assertThrows(IOException.class, () -> Companion.unpackBelow(file));
        assertEquals(0, Files.size(file));
    }

    @Test
    void reportsAFailureWithItsReason() throws IOException {
        CompanionRun run = Companion.unpackBelow(cache).run(List.of("wrap", "no such.jar"), cache);
        assertNotEquals(0, run.exitCode());
        assertTrue(run.failure("<", ">").contains("no such.jar"), run.failure("<", ">"));
    }

    private static List<String> difference(byte[] expected, byte[] actual) {
        return java.util.Arrays.equals(expected, actual) ? List.of() : List.of("the bytes differ");
    }
}
