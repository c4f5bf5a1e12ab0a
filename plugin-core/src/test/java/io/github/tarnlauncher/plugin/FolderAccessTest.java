package io.github.tarnlauncher.plugin;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.attribute.PosixFilePermissions;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

class FolderAccessTest {
    // Neither the administrator nor, but by chance, the user who runs the tests.
    private static final int STRANGER = 54321;

    @TempDir
    Path folder;

    private Path with(String permissions) throws IOException {
        return Files.setPosixFilePermissions(folder, PosixFilePermissions.fromString(permissions));
    }

    // A folder of the administrator is accepted for everybody: he gives his away.
    private Path foreign() throws IOException {
        if (FolderAccess.currentUser() == 0) Files.setAttribute(folder, "unix:uid", STRANGER + 1);
        return folder;
    }

    @Test
    void theUserOwnsWhatHeCreates() throws IOException {
        assertTrue(FolderAccess.isOwn(folder, FolderAccess.currentUser()));
        assertFalse(FolderAccess.isOwn(folder, STRANGER));
    }

    @Test
    void aFolderThatOthersMayWriteToIsNotPrivate() throws IOException {
        int user = FolderAccess.currentUser();
        assertTrue(FolderAccess.isPrivate(with("rwxr-xr-x"), user));
        assertFalse(FolderAccess.isPrivate(with("rwxrwxr-x"), user));
        assertFalse(FolderAccess.isPrivate(with("rwxr-xrwx"), user));
    }

    @Test
    void aFolderOfAnotherUserIsNotPrivate() throws IOException {
        assertFalse(FolderAccess.isPrivate(foreign(), STRANGER));
    }

    @Test
    void aFolderOfTheAdministratorIsPrivateForEverybody() throws IOException {
        assertTrue(FolderAccess.isPrivate(Path.of("/"), STRANGER));
    }

    @Test
    void aStickyFolderProtectsItsEntriesAndIsNotPrivate() throws IOException {
        Path temporary = Path.of("/tmp");
        assertTrue(FolderAccess.protectsEntries(temporary, STRANGER));
        assertFalse(FolderAccess.isPrivate(temporary, STRANGER));
        assertFalse(FolderAccess.protectsEntries(with("rwxrwxrwx"), FolderAccess.currentUser()));
    }

    @Test
    void aRestrictedFolderIsForItsOwner() throws IOException {
        FolderAccess.restrict(with("rwxrwxrwx"));
        assertEquals("rwx------", PosixFilePermissions.toString(Files.getPosixFilePermissions(folder)));
    }
}
