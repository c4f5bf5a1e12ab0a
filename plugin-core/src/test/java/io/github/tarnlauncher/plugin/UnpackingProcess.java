package io.github.tarnlauncher.plugin;

import java.io.BufferedReader;
import java.io.IOException;
import java.io.InputStreamReader;
import java.nio.charset.StandardCharsets;
import java.nio.file.Path;

/**
 * A build in a process of its own: unpacks the companion program below each folder that a line of its input names, and
 * prints the program's path. Its first line says that it is ready.
 */
final class UnpackingProcess {
    private UnpackingProcess() {}

    public static void main(String[] arguments) throws IOException {
        System.out.println("ready");
        BufferedReader folders = new BufferedReader(new InputStreamReader(System.in, StandardCharsets.UTF_8));
        for (String folder = folders.readLine(); folder != null; folder = folders.readLine()) {
            System.out.println(Companion.unpackBelow(Path.of(folder)).program());
        }
    }
}
