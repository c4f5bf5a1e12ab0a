package io.github.tarnlauncher.plugin;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
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
import java.time.Duration;
import java.time.Instant;
import java.util.HashSet;
import java.util.List;
import java.util.Set;
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
    void removesWhatBuildsKilledLongAgoHaveLeft() throws IOException {
        Path companions = Companion.unpackBelow(cache).program().getParent().getParent();
        Path elsewhere = Files.createDirectory(cache.resolve("elsewhere"));
        Files.writeString(elsewhere.resolve("file"), "");
        Path old = abandoned(companions.resolve("unpacking-1"), Duration.ofHours(25));
        Files.createSymbolicLink(old.resolve("link"), elsewhere);
        Files.setLastModifiedTime(old, ago(Duration.ofHours(25)));
        Path young = abandoned(companions.resolve("unpacking-2"), Duration.ofHours(23));
        Path other = abandoned(companions.resolve("other-1"), Duration.ofHours(25));

        Files.delete(Companion.unpackBelow(cache).program());  // which is then unpacked again
        Companion.unpackBelow(cache);
        assertFalse(Files.exists(old));
        assertTrue(Files.exists(young.resolve("launcher.exe")));
        assertTrue(Files.exists(other.resolve("launcher.exe")));
        assertTrue(Files.exists(elsewhere.resolve("file")));
    }

    private static Path abandoned(Path folder, Duration age) throws IOException {
        Files.createDirectory(folder);
        Files.writeString(folder.resolve("launcher.exe"), "half");
        return Files.setLastModifiedTime(folder, ago(age));
    }

    private static FileTime ago(Duration age) {
        return FileTime.from(Instant.now().minus(age));
    }

    @Test
    void doesNotUseAChangedProgram() throws IOException {
        Path program = Companion.unpackBelow(cache).program();
        byte[] genuine = Files.readAllBytes(program);
        Files.delete(program);
        Files.writeString(program, "#!/bin/sh\necho stranger\n");
        assertTrue(program.toFile().setExecutable(true));
        assertArrayEquals(genuine, Files.readAllBytes(Companion.unpackBelow(cache).program()));
    }

    @Test
    void unpacksAgainOnceAfterAChange() throws IOException {
        Path changed = Companion.unpackBelow(cache).program();
        Files.delete(changed);
        Path second = Companion.unpackBelow(cache).program();
        assertNotEquals(changed, second);
        assertEquals(second, Companion.unpackBelow(cache).program());
    }

    @Test
    void doesNotUseALinkAndLeavesItsTarget() throws IOException {
        Path program = Companion.unpackBelow(cache).program();
        Path elsewhere = Files.createDirectory(cache.resolve("elsewhere"));
        Path moved = Files.move(program.getParent(), elsewhere.resolve("moved"));
        Files.createSymbolicLink(program.getParent(), moved);
        assertFalse(Files.isSymbolicLink(Companion.unpackBelow(cache).program().getParent()));
        assertTrue(Files.exists(moved.resolve(program.getFileName())));
    }

    @Test
    void doesNotUseAFolderThatOthersMayWriteTo() throws IOException {
        Path folder = Companion.unpackBelow(cache).program().getParent();
        Files.setPosixFilePermissions(folder, PosixFilePermissions.fromString("rwxrwxrwx"));
        Path second = Companion.unpackBelow(cache).program().getParent();
        assertEquals("rwx------", PosixFilePermissions.toString(Files.getPosixFilePermissions(second)));
    }

    @Test
    void aFolderWhoseContentKeepsChangingIsAnError() throws IOException {
        for (int i = 1; i <= 20; ++i) Files.delete(Companion.unpackBelow(cache).program());
        assertTrue(failureBelow(cache).contains("changes: delete it"), failureBelow(cache));
    }

    @Test
    void aCacheThatIsAFileIsAnErrorThatNamesTheVariable() throws IOException {
        Path file = Files.createFile(cache.resolve("file"));
        assertTrue(failureBelow(file).contains("TARN_CACHE"), failureBelow(file));
        assertEquals(0, Files.size(file));
    }

    @Test
    void aCacheThatOthersMayWriteToIsRefused() throws IOException {
        Files.setPosixFilePermissions(cache, PosixFilePermissions.fromString("rwxrwxrwx"));
        assertTrue(failureBelow(cache).contains("others may write to it: chmod go-w"), failureBelow(cache));
        assertEquals(List.of(), below(cache));
    }

    @Test
    void aFolderOfAnotherUserIsRefused() throws IOException {
        int user = FolderAccess.currentUser();
        Path companions = Files.createDirectory(cache.resolve("companion"));
        // The administrator's folders are accepted for everybody, so he gives his away.
        if (user == 0) Files.setAttribute(companions, "unix:uid", 54321);
        CompanionFiles files = new CompanionFiles(Platform.current(), user == 0 ? 0 : user + 1);
        String message = assertThrows(PluginException.class, () -> files.unpackBelow(cache)).getMessage();
        assertTrue(message.contains("belongs to another user"), message);
        assertEquals(List.of(), below(cache));
    }

    @Test
    void aLinkInPlaceOfTheFolderIsRefused() throws IOException {
        Path elsewhere = Files.createDirectory(cache.resolve("elsewhere"));
        Files.createSymbolicLink(cache.resolve("companion"), elsewhere);
        assertTrue(failureBelow(cache).contains("is a link"), failureBelow(cache));
        assertEquals(List.of(), below(elsewhere));
    }

    @Test
    void aLinkToTheCacheIsFollowed() throws IOException {
        Path elsewhere = Files.createDirectory(cache.resolve("elsewhere"));
        Path link = Files.createSymbolicLink(cache.resolve("link"), elsewhere);
        assertTrue(Companion.unpackBelow(link).program().startsWith(elsewhere.toRealPath()));
    }

    @Test
    void nobodyElseMayEnterTheFolder() throws IOException {
        Path folder = cache.resolve("new").resolve("cache");
        Path program = Companion.unpackBelow(folder).program();
        for (Path path : List.of(folder, program.getParent().getParent(), program.getParent(), program)) {
            assertEquals("rwx------", PosixFilePermissions.toString(Files.getPosixFilePermissions(path)), path.toString());
        }
    }

    private static String failureBelow(Path folder) {
        return assertThrows(PluginException.class, () -> Companion.unpackBelow(folder)).getMessage();
    }

    @Test
    void reportsAFailureWithItsReason() throws IOException {
        CompanionRun run = Companion.unpackBelow(cache).run(List.of("wrap", "no such.jar"), cache);
        assertNotEquals(0, run.exitCode());
        assertTrue(run.failure("<", ">").contains("no such.jar"), run.failure("<", ">"));
    }
}
