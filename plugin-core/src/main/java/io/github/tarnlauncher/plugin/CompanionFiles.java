package io.github.tarnlauncher.plugin;

import java.io.IOException;
import java.io.InputStream;
import java.nio.file.Files;
import java.nio.file.LinkOption;
import java.nio.file.Path;
import java.nio.file.StandardCopyOption;
import java.nio.file.attribute.PosixFileAttributes;
import java.nio.file.attribute.PosixFilePermission;
import java.nio.file.attribute.PosixFileAttributeView;
import java.util.Comparator;
import java.util.List;
import java.util.Properties;
import java.util.Set;
import java.util.TreeMap;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/**
 * Unpacks the companion program and the launcher, once for each version.
 *
 * <p>Builds of several projects run at the same time, and other users of the machine must not be able to replace the
 * program: the files are written to a new folder that only this user may enter, which then gets its final name. The name
 * contains the digest of the content, and the content is compared with it before each use.
 */
final class CompanionFiles {
    private static final String INDEX = "companion/index.properties";
    private static final String LAUNCHER = "launcher.exe";

    private final String platform;
    private final TreeMap<String, String> digests = new TreeMap<>();  // by file name

    /** The files for a platform, as this plugin carries them. */
    CompanionFiles(String platform) throws IOException {
        this.platform = platform;
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
    Path unpackBelow(Path cache) throws IOException {
        Path parent = cache.resolve("companion");
        Files.createDirectories(parent);
        Path folder = parent.resolve(platform + "-" + digests.get(Platform.programOn(platform)).substring(0, 16)
            + digests.get(LAUNCHER).substring(0, 16));
        Path program = folder.resolve(Platform.programOn(platform));
        if (isIntact(folder)) return program;

        // Only this user may enter a folder that is made like this.
        Path unfinished = Files.createTempDirectory(parent, "unpacking-");
        try {
            for (String name : digests.keySet()) unpack(name, unfinished.resolve(name));
            makeExecutable(unfinished.resolve(program.getFileName()));
            moveTo(folder, unfinished);
        } finally {
            deleteTree(unfinished);
        }
        if (!isIntact(folder)) {
            throw new PluginException(folder + " cannot be used for the companion program: its content changes, or "
                + "another user may write to it; delete it, or name another folder in the environment variable TARN_CACHE");
        }
        return program;
    }

    private boolean isIntact(Path folder) throws IOException {
        if (!Files.isDirectory(folder, LinkOption.NOFOLLOW_LINKS) || !isPrivate(folder)) return false;
        for (String name : digests.keySet()) {
            if (!Digests.matches(folder.resolve(name), digests.get(name))) return false;
        }
        return Files.isExecutable(folder.resolve(Platform.programOn(platform)));
    }

    // Whether only this user may write to the folder. Windows protects a user's folders by inheritance.
    private static boolean isPrivate(Path folder) throws IOException {
        PosixFileAttributeView view =
            Files.getFileAttributeView(folder, PosixFileAttributeView.class, LinkOption.NOFOLLOW_LINKS);
        if (view == null) return true;
        PosixFileAttributes attributes = view.readAttributes();
        Set<PosixFilePermission> permissions = attributes.permissions();
        if (permissions.contains(PosixFilePermission.GROUP_WRITE)
            || permissions.contains(PosixFilePermission.OTHERS_WRITE)) {
            return false;
        }
        // Java reports this user's id only as the owner of a new file.
        Path own = Files.createTempFile(folder.getParent(), "owner-", null);
        try {
            return Files.getOwner(own).equals(attributes.owner());
        } finally {
            Files.delete(own);
        }
    }

    private void unpack(String name, Path target) throws IOException {
        String resource = "companion/" + (name.equals(LAUNCHER) ? name : platform + "/" + name);
        try (InputStream content = CompanionFiles.class.getResourceAsStream(resource)) {
            if (content == null) throw new PluginException("the Tarn plugin lacks " + resource);
            Files.copy(content, target);  // fails if the file exists
        }
    }

    private static void makeExecutable(Path program) throws PluginException {
        if (!program.toFile().setExecutable(true) && !Files.isExecutable(program)) {
            throw new PluginException(program + " cannot be made executable");
        }
    }

    // A damaged folder is replaced. When another build has been faster, its folder stays.
    private void moveTo(Path folder, Path unfinished) throws IOException {
        if (Files.exists(folder, LinkOption.NOFOLLOW_LINKS) && !isIntact(folder)) {
            Path old = Files.createTempDirectory(folder.getParent(), "damaged-");
            Files.move(folder, old.resolve("content"), StandardCopyOption.ATOMIC_MOVE);
            deleteTree(old);
        }
        try {
            Files.move(unfinished, folder, StandardCopyOption.ATOMIC_MOVE);
        } catch (IOException failure) {
            if (!isIntact(folder)) throw failure;
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
