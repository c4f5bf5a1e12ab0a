package io.github.tarnlauncher.plugin;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.nio.file.Paths;
import java.util.Map;
import org.junit.jupiter.api.Test;

class PluginCacheTest {
    @Test
    void theVariableDecides() throws PluginException {
        assertEquals(Paths.get("/c"), PluginCache.of(Map.of("TARN_CACHE", "/c", "XDG_CACHE_HOME", "/x"), "Linux", "/h"));
    }

    @Test
    void eachSystemHasItsFolderForCaches() throws PluginException {
        assertEquals(Paths.get("/h/.cache/tarn"), PluginCache.of(Map.of(), "Linux", "/h"));
        assertEquals(Paths.get("/x/tarn"), PluginCache.of(Map.of("XDG_CACHE_HOME", "/x"), "Linux", "/h"));
        assertEquals(Paths.get("/h/Library/Caches/tarn"), PluginCache.of(Map.of(), "Mac OS X", "/h"));
        assertEquals(Paths.get("/l/tarn"), PluginCache.of(Map.of("LOCALAPPDATA", "/l"), "Windows 11", "/h"));
    }

    @Test
    void aUserWithoutAHomeIsToldOfTheVariable() {
        PluginException failure = assertThrows(PluginException.class, () -> PluginCache.of(Map.of(), "Linux", "?"));
        assertTrue(failure.getMessage().contains("TARN_CACHE"), failure.getMessage());
    }
}
