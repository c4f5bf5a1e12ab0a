package io.github.tarnlauncher.plugin;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.nio.file.Path;
import org.junit.jupiter.api.Test;

class CheckReportTest {
    private static CheckReport.Finding only(String line, String severity, String advice) throws PluginException {
        return CheckReport.parse("{\"schema\": 1, \"new\": [], \"findings\": [{\"line\": " + line + ", \"severity\": \""
            + severity + "\", \"id\": \"x\", \"message\": \"a \\\"b\\\" \\u00e4\", \"advice\": \"" + advice + "\"}]}")
            .findings().get(0);
    }

    @Test
    void describesAFindingWithFileAndLine() throws PluginException {
        assertEquals("app.ini:12: warning: a \"b\" \u00e4 (write c)", only("12", "warning", "write c").describe("app.ini"));
    }

    @Test
    void aFindingOfTheWholeFileHasNoLine() throws PluginException {
        assertEquals("app.ini: error: a \"b\" \u00e4", only("0", "error", "").describe("app.ini"));
    }

    @Test
    void warningsFailAStrictCheckAndNotesDoNot() throws PluginException {
        assertTrue(only("1", "error", "").isFailure());
        assertTrue(only("1", "warning", "").isFailure());
        assertFalse(only("1", "note", "").isFailure());
    }

    @Test
    void countsWhatFailsTheCheck() throws PluginException {
        String finding = "{\"line\": 1, \"severity\": \"%s\", \"message\": \"m\", \"advice\": \"\"}";
        CheckReport report = CheckReport.parse("{\"schema\": 1, \"findings\": [" + String.format(finding, "note") + ", "
            + String.format(finding, "error") + "]}");
        assertEquals(1, report.failures().size());
        assertEquals("app.ini: 1 finding", report.summary(Path.of("app.ini")));
    }

    @Test
    void whatIsNoReportIsAnError() {
        for (String text : new String[] {"", "null", "[]", "{", "{\"schema\": 2, \"findings\": []}", "{\"schema\": 1}"}) {
            assertThrows(PluginException.class, () -> CheckReport.parse(text), text);
        }
    }
}
