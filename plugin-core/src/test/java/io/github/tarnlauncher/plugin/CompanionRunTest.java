package io.github.tarnlauncher.plugin;

import static org.junit.jupiter.api.Assertions.assertEquals;

import java.util.List;
import org.junit.jupiter.api.Test;

class CompanionRunTest {
    @Test
    void separatesErrorsFromWarnings() {
        CompanionRun run = new CompanionRun(2, "", "tarn: warning: a.jar: old\ntarn: error: b.jar: broken\n");
        assertEquals(List.of("a.jar: old"), run.warnings("", ""));
        assertEquals("b.jar: broken", run.failure("", ""));
    }

    @Test
    void namesParametersInsteadOfOptions() {
        CompanionRun run = new CompanionRun(2, "", "tarn: error: specify --main-class, see --help\n");
        assertEquals("specify <mainClass>, see --help", run.failure("<", ">"));
        assertEquals("specify mainClass, see --help", run.failure("", ""));
    }

    @Test
    void leavesTheOptionsOfTheJvm() {
        CompanionRun run = new CompanionRun(2, "", "tarn: warning: --add-opens needs \"=\"\n");
        assertEquals(List.of("--add-opens needs \"=\""), run.warnings("<", ">"));
    }

    @Test
    void aMessageOfSeveralLinesBecomesOne() {
        CompanionRun run = new CompanionRun(2, "", "tarn: error: first\r\n  second\r\n");
        assertEquals("first second", run.failure("", ""));
    }

    @Test
    void aProgramThatSaysNothingIsNamedByItsCode() {
        assertEquals("the companion program ended with code 139", new CompanionRun(139, "", "").failure("", ""));
    }
}
