package io.github.tarnlauncher.plugin;

import java.io.IOException;
import java.io.InputStream;
import java.io.UncheckedIOException;
import java.nio.file.DirectoryIteratorException;
import java.nio.file.DirectoryStream;
import java.nio.file.Files;
import java.nio.file.LinkOption;
import java.nio.file.Path;
import java.nio.file.StandardCopyOption;
import java.time.Duration;
import java.time.Instant;
import java.util.Comparator;
import java.util.List;
import java.util.Properties;
import java.util.TreeMap;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/**
 * Unpacks the companion program and the launcher, once for each version.
 *
 * <p>Builds of several projects run at the same time, and other users of the machine must not be able to replace the
 * program: the files are written to a new folder that only this user may enter, which then gets its final name. The name
 * contains the digest of the content, and the content is compared with it before each use. A folder whose entries another
 * user may exchange is refused. The folders above the cache are trusted.
 */
final class CompanionFiles {
    private static final String INDEX = "companion/index.properties";
    private static final String LAUNCHER = "launcher.exe";
    private static final String UNFINISHED = "unpacking-";
    private static final int MOST_FOLDERS = 20;
    private static final String ANOTHER_FOLDER = ", or name another folder in the environment variable TARN_CACHE";

    private final String platform;
    private final int user;
    private final TreeMap<String, String> digests = new TreeMap<>();  // by file name

    /** The files for a platform, as this plugin carries them. */
    CompanionFiles(String platform) throws IOException {
        this(platform, FolderAccess.currentUser());
    }

    /** The same for a user of a certain number. */
    CompanionFiles(String platform, int user) throws IOException {
        this.platform = platform;
        this.user = user;
        Properties index = new Properties();
        try (InputStream content = CompanionFiles.class.getResourceAsStream(INDEX)) {
            if (content == null) throw new PluginException("this build of the Tarn plugin carries no companion program");
            index.load(content);
        }
        String program = Platform.programOn(platform);
        String digest = index.getProperty(platform + "/" + program);
        if (digest == null) {
            String carried = index.stringPropertyNames().stream().filter(name -> name.contains("/"))
                .map(name -> name.substring(0, name.indexOf('/'))).sorted().collect(Collectors.joining(", "));
            throw new PluginException("this build of the Tarn plugin carries no companion program for " + platform
                + ", only for " + carried);
        }
        digests.put(program, digest);
        digests.put(LAUNCHER, index.getProperty(LAUNCHER));
    }

    /** Unpacks the files below a folder where necessary. Returns the program. */
    Path unpackBelow(Path cache) throws PluginException {
        try {
            return unpackIn(protectedFolderIn(cache));
        } catch (PluginException failure) {
            throw failure;
        } catch (IOException failure) {
            throw new PluginException("the companion program cannot be unpacked to " + cache + ": "
                + PluginException.describe(failure) + ANOTHER_FOLDER, failure);
        }
    }

    // A private folder in the cache, where only this user can exchange it.
    private Path protectedFolderIn(Path cache) throws IOException {
        FolderAccess.create(cache);
        Path real = cache.toRealPath();
        if (!FolderAccess.protectsEntries(real, user)) {
            throw new PluginException(real + " belongs to another user, or others may write to it: chmod go-w, if it is "
                + "yours" + ANOTHER_FOLDER);
        }
        Path folder = real.resolve("companion");
        if (!Files.exists(folder, LinkOption.NOFOLLOW_LINKS)) FolderAccess.create(folder);
        boolean isFolder = Files.isDirectory(folder, LinkOption.NOFOLLOW_LINKS);
        if (isFolder && !FolderAccess.isPrivate(folder, user) && FolderAccess.isOwn(folder, user)) {
            FolderAccess.restrict(folder);
        }
        if (!isFolder || !FolderAccess.isPrivate(folder, user)) {
            throw new PluginException(folder + " belongs to another user, or is a link: delete it" + ANOTHER_FOLDER);
        }
        return folder;
    }

    private Path unpackIn(Path parent) throws IOException {
        String name = platform + "-" + digests.get(Platform.programOn(platform)).substring(0, 16)
            + digests.get(LAUNCHER).substring(0, 16);
        for (int attempt = 1; attempt <= MOST_FOLDERS; ++attempt) {
            Path folder = parent.resolve(attempt == 1 ? name : name + "-" + attempt);
            if (!Files.exists(folder, LinkOption.NOFOLLOW_LINKS)) create(folder);
            // Read only now: another build may have created the folder since it was missing. A damaged folder stays,
            // because other builds may be replacing or using it at this moment.
            if (isIntact(folder)) return folder.resolve(Platform.programOn(platform));
        }
        throw new PluginException("the content of " + parent + " changes: delete it" + ANOTHER_FOLDER);
    }

    // Unpacks to a folder, unless another build is faster.
    private void create(Path folder) throws IOException {
        removeAbandoned(folder.getParent());
        // Only this user may enter a folder that is made like this.
        Path unfinished = Files.createTempDirectory(folder.getParent(), UNFINISHED);
        try {
            for (String name : digests.keySet()) unpack(name, unfinished.resolve(name));
            makeExecutable(unfinished.resolve(Platform.programOn(platform)));
            Files.move(unfinished, folder, StandardCopyOption.ATOMIC_MOVE);
        } catch (IOException failure) {
            if (!Files.exists(folder, LinkOption.NOFOLLOW_LINKS)) throw failure;
        } finally {
            deleteTree(unfinished);
        }
    }

    // Removes what builds that were killed have left. A younger folder may be that of a build that is still running.
    private static void removeAbandoned(Path parent) {
        Instant yesterday = Instant.now().minus(Duration.ofDays(1));
        try (DirectoryStream<Path> folders = Files.newDirectoryStream(parent, UNFINISHED + "*")) {
            for (Path folder : folders) {
                Instant modified = Files.getLastModifiedTime(folder, LinkOption.NOFOLLOW_LINKS).toInstant();
                if (modified.isBefore(yesterday)) deleteTree(folder);
            }
        } catch (IOException | DirectoryIteratorException | UncheckedIOException ignored) {
            // They only take up space: the next build that unpacks tries again.
        }
    }

    private boolean isIntact(Path folder) throws IOException {
        if (!Files.isDirectory(folder, LinkOption.NOFOLLOW_LINKS) || !FolderAccess.isPrivate(folder, user)) return false;
        for (String name : digests.keySet()) {
            Path file = folder.resolve(name);
            if (!Digests.matches(file, digests.get(name)) || !FolderAccess.isPrivate(file, user)) return false;
        }
        return Files.isExecutable(folder.resolve(Platform.programOn(platform)));
    }

    private void unpack(String name, Path target) throws IOException {
        String resource = "companion/" + (name.equals(LAUNCHER) ? name : platform + "/" + name);
        try (InputStream content = CompanionFiles.class.getResourceAsStream(resource)) {
            if (content == null) throw new PluginException("the Tarn plugin lacks " + resource);
            Files.copy(content, target);  // fails if the file exists
        }
        FolderAccess.restrict(target);
    }

    private static void makeExecutable(Path program) throws PluginException {
        if (!program.toFile().setExecutable(true) && !Files.isExecutable(program)) {
            throw new PluginException(program + " cannot be made executable");
        }
    }

    /** Deletes a folder with its contents, if there is one; of a link, the link. */
    static void deleteTree(Path folder) throws IOException {
        if (!Files.exists(folder, LinkOption.NOFOLLOW_LINKS)) return;
        List<Path> content;
        try (Stream<Path> below = Files.walk(folder)) {
            content = below.sorted(Comparator.reverseOrder()).collect(Collectors.toList());
        }
        for (Path path : content) Files.deleteIfExists(path);
    }
}
