package io.github.tarnlauncher.plugin;

import static org.junit.jupiter.api.Assertions.assertEquals;

import java.util.Optional;
import org.junit.jupiter.api.Test;

class WindowsClassifierTest {
    @Test
    void findsTheNameOfEachKind() {
        assertEquals(Optional.of("win"), WindowsClassifier.of("org.openjfx", "linux"));
        assertEquals(Optional.of("win"), WindowsClassifier.of("org.openjfx", "mac-aarch64"));
        assertEquals(Optional.of("natives-windows"), WindowsClassifier.of("org.lwjgl", "natives-linux"));
        assertEquals(Optional.of("natives-windows"), WindowsClassifier.of("org.lwjgl", "natives-macos-arm64"));
        assertEquals(Optional.of("windows-x86_64"), WindowsClassifier.of("io.netty", "osx-aarch_64"));
    }

    @Test
    void leavesOtherClassifiers() {
        for (String classifier : new String[] {null, "", "win", "windows-x86_64", "natives-windows", "sources", "linuxish"}) {
            assertEquals(Optional.empty(), WindowsClassifier.of("org.example", classifier), classifier);
        }
    }
}
