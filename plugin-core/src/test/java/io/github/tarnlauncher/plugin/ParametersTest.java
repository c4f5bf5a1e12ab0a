package io.github.tarnlauncher.plugin;

import static org.junit.jupiter.api.Assertions.assertEquals;

import java.io.IOException;
import java.lang.reflect.Modifier;
import java.nio.file.Path;
import java.util.Arrays;
import java.util.List;
import java.util.Locale;
import java.util.Set;
import java.util.TreeSet;
import java.util.regex.Pattern;
import java.util.stream.Collectors;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

/** The parameters of the plugins are the options of the companion program. */
class ParametersTest {
    // What a plugin decides by itself.
    private static final Set<String> OF_PLUGINS = Set.of("help", "out", "replace", "config");
    // What the executable contains already, as tarn wrap has written it.
    private static final Set<String> OF_EXECUTABLE = Set.of("executable", "name", "version", "vendor", "description");

    @TempDir
    Path folder;

    private Set<String> optionsOf(String command, Set<String> without) throws IOException {
        String help = Companion.unpackBelow(folder).run(List.of(command, "--help"), folder).output();
        return Pattern.compile("(?m)^  (?:-\\w,)?--([a-z0-9-]+)").matcher(help).results()
            .map(option -> option.group(1))
            .filter(option -> !OF_PLUGINS.contains(option) && !without.contains(option))
            .map(option -> Pattern.compile("-([a-z0-9])").matcher(option)
                .replaceAll(word -> word.group(1).toUpperCase(Locale.ROOT)))
            .collect(Collectors.toSet());
    }

    private static Set<String> operationsOf(Class<?> request) {
        return Arrays.stream(request.getDeclaredMethods())
            .filter(method -> Modifier.isPublic(method.getModifiers()) && method.getReturnType() == request)
            .map(method -> method.getName()).collect(Collectors.toSet());
    }

    @Test
    void everyOptionOfWrapIsAParameter() throws IOException {
        assertEquals(optionsOf("wrap", Set.of()), operationsOf(WrapRequest.class));
    }

    @Test
    void everyOptionOfSetupIsAParameter() throws IOException {
        assertEquals(optionsOf("setup", OF_EXECUTABLE), operationsOf(SetupRequest.class));
    }

    @Test
    void messagesNameEveryParameter() {
        Set<String> operations = new TreeSet<>(operationsOf(WrapRequest.class));
        operations.addAll(operationsOf(SetupRequest.class));
        assertEquals(operations, new TreeSet<>(CompanionRun.PARAMETERS));
    }
}
