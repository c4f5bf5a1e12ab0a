package io.github.tarnlauncher.maven;

import java.io.File;
import java.io.IOException;
import java.io.OutputStream;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.StandardCopyOption;
import java.time.LocalDateTime;
import java.util.List;
import java.util.stream.Collectors;
import java.util.stream.Stream;
import java.util.zip.ZipEntry;
import java.util.zip.ZipOutputStream;

/** Packs a folder into a zip file. The same content gives the same bytes. */
final class ZipFolder {
    // The earliest time that every tool accepts, in whatever time zone it reads it.
    private static final LocalDateTime TIME = LocalDateTime.of(1980, 2, 1, 0, 0);

    private ZipFolder() {}

    static void write(Path folder, Path zip) throws IOException {
        List<Path> content;
        try (Stream<Path> below = Files.walk(folder)) {
            content = below.filter(path -> !path.equals(folder)).sorted().collect(Collectors.toList());
        }
        Path unfinished = Files.createTempFile(zip.getParent(), zip.getFileName().toString(), null);
        try {
            try (OutputStream file = Files.newOutputStream(unfinished); ZipOutputStream out = new ZipOutputStream(file)) {
                for (Path path : content) add(out, folder, path);
            }
            Files.move(unfinished, zip, StandardCopyOption.REPLACE_EXISTING);
        } finally {
            Files.deleteIfExists(unfinished);
        }
    }

    private static void add(ZipOutputStream out, Path folder, Path path) throws IOException {
        String name = folder.getParent().relativize(path).toString().replace(File.separatorChar, '/');
        boolean isFolder = Files.isDirectory(path);
        ZipEntry entry = new ZipEntry(isFolder ? name + "/" : name);
        entry.setTimeLocal(TIME);
        out.putNextEntry(entry);
        if (!isFolder) Files.copy(path, out);
        out.closeEntry();
    }
}
