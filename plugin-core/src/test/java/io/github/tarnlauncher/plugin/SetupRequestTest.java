package io.github.tarnlauncher.plugin;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.io.IOException;
import java.nio.file.Path;
import java.util.List;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

class SetupRequestTest {
    @TempDir
    Path folder;

    private final SetupRequest request = new SetupRequest(Path.of("App"), "App.exe", Path.of("App-setup.exe"));

    @Test
    void leavesOutWhatIsNotSet() {
        request.id(null).license(null).perMachine(false).associate(null).script(null);
        assertEquals("folder = 'App'\nexecutable = 'App.exe'\nout = 'App-setup.exe'\nreplace = true\n", request.options());
    }

    @Test
    void theFolderAndTheLicenseAreInputs() {
        request.license(Path.of("LICENSE"));
        assertEquals(List.of(Path.of("App"), Path.of("LICENSE")), request.inputs());
    }

    @Test
    void theCompanionReadsEveryOption() throws IOException {
        request.id("i").perMachine(true).desktopShortcut(true).msi(true).url("https://example.com/a.msi")
            .homepage("https://example.com").licenseName("MIT").sign("s \"a b\" 'c'")
            .script(Path.of("t")).associate(List.of(".a=A", ".b=B,icon.ico")).protocol(List.of("acme=Acme"));
        CompanionRun run = Companion.unpackBelow(folder).run(request.writeTo(folder.resolve("options")), folder);
        // The folder is missing: it read all options before it says so.
        assertFalse(run.failure("", "").contains("not an option"), run.failure("", ""));
        assertTrue(run.failure("", "").contains("App"), run.failure("", ""));
    }
}
