package io.github.tarnlauncher.plugin;

import java.io.IOException;
import java.nio.file.FileSystems;
import java.nio.file.Files;
import java.nio.file.LinkOption;
import java.nio.file.Path;
import java.nio.file.attribute.FileAttribute;
import java.nio.file.attribute.PosixFilePermissions;

/**
 * Who may change what is in a folder, by its owner and its permissions. On Windows, where a user's folders are protected
 * by inheritance, everything is taken for protected.
 */
final class FolderAccess {
    private static final boolean HAS_OWNERS = FileSystems.getDefault().supportedFileAttributeViews().contains("unix");
    private static final int ROOT = 0;
    private static final int STICKY = 01000;  // entries are renamed and deleted by their owners only
    private static final int WRITABLE_BY_OTHERS = 0022;

    private FolderAccess() {}

    /** The number of the user who runs the build. */
    static int currentUser() throws IOException {
        if (!HAS_OWNERS) return ROOT;
        // Java reports it only as the owner of a new file.
        Path own = Files.createTempFile("tarn-owner-", null);
        try {
            return ownerOf(own);
        } finally {
            Files.delete(own);
        }
    }

    /** Whether only a user and the administrator can change a file or folder; false for a link. */
    static boolean isPrivate(Path path, int user) throws IOException {
        return !HAS_OWNERS || (isOwnedBy(path, user) && (modeOf(path) & WRITABLE_BY_OTHERS) == 0);
    }

    /** Whether only their owner can replace the entries of a folder, as in a private folder or in {@code /tmp}. */
    static boolean protectsEntries(Path folder, int user) throws IOException {
        return isPrivate(folder, user) || (isOwnedBy(folder, user) && (modeOf(folder) & STICKY) != 0);
    }

    /** Creates a folder that is private, and those above it, where they are missing. */
    static void create(Path folder) throws IOException {
        // Java before version 20 takes a link to a folder for a file in the way.
        if (!Files.isDirectory(folder)) Files.createDirectories(folder, forOwner());
    }

    /** Restricts a file or folder to its owner. */
    static void restrict(Path path) throws IOException {
        if (HAS_OWNERS) Files.setPosixFilePermissions(path, PosixFilePermissions.fromString("rwx------"));
    }

    /** Whether the owner is a user, not counting the administrator. */
    static boolean isOwn(Path path, int user) throws IOException {
        return !HAS_OWNERS || ownerOf(path) == user;
    }

    private static boolean isOwnedBy(Path path, int user) throws IOException {
        int owner = ownerOf(path);
        return owner == user || owner == ROOT;
    }

    private static int ownerOf(Path path) throws IOException {
        return (int) Files.getAttribute(path, "unix:uid", LinkOption.NOFOLLOW_LINKS);
    }

    private static int modeOf(Path path) throws IOException {
        return (int) Files.getAttribute(path, "unix:mode", LinkOption.NOFOLLOW_LINKS);
    }

    private static FileAttribute<?>[] forOwner() {
        return HAS_OWNERS
            ? new FileAttribute<?>[] {PosixFilePermissions.asFileAttribute(PosixFilePermissions.fromString("rwx------"))}
            : new FileAttribute<?>[0];
    }
}
