package io.github.tarnlauncher.plugin;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import org.junit.jupiter.api.Test;

class PlatformTest {
    @Test
    void namesTheSystemsThatTheCompanionIsBuiltFor() throws PluginException {
        assertEquals("linux-x86_64", Platform.of("Linux", "amd64"));
        assertEquals("linux-aarch64", Platform.of("Linux", "aarch64"));
        assertEquals("macos-aarch64", Platform.of("Mac OS X", "aarch64"));
        assertEquals("macos-x86_64", Platform.of("Mac OS X", "x86_64"));
        assertEquals("windows-x86_64", Platform.of("Windows 11", "amd64"));
    }

    @Test
    void windowsOnArmRunsTheProgramForIntel() throws PluginException {
        assertEquals("windows-x86_64", Platform.of("Windows 11", "aarch64"));
    }

    @Test
    void anotherSystemIsNamedInTheError() {
        PluginException failure = assertThrows(PluginException.class, () -> Platform.of("Linux", "riscv64"));
        assertTrue(failure.getMessage().contains("Linux on riscv64"), failure.getMessage());
    }
}
