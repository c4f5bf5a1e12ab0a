package io.github.tarnlauncher.plugin;

import static org.junit.jupiter.api.Assertions.assertEquals;

import java.lang.reflect.Method;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.util.Arrays;
import java.util.List;
import java.util.Set;
import java.util.stream.Collectors;
import org.junit.jupiter.api.Test;

class WrapRequestTest {
    private final WrapRequest request = new WrapRequest(Paths.get("a b.jar"), Paths.get("out"));

    @Test
    void leavesOutWhatIsNotSet() {
        request.name(null).title("").icon(null).classPath(null).vmParameters(null).set(null).allow(null).singleFile(false);
        assertEquals(List.of("wrap", "a b.jar", "--out=out", "--replace"), request.arguments());
    }

    @Test
    void aValueThatLooksLikeAnOptionStaysAValue() {
        assertEquals("--vm-parameters=-Xmx1g -ea",
            request.vmParameters(List.of("-Xmx1g", "-ea")).arguments().get(4));
    }

    @Test
    void repeatsAnOptionForEachValueInOrder() {
        request.set(List.of("A/B=1", "C/D=2"));
        assertEquals(List.of("--set=A/B=1", "--set=C/D=2"), request.arguments().subList(4, 6));
    }

    @Test
    void everyFileIsAnInput() {
        Path icon = Paths.get("i.png");
        Path library = Paths.get("l.jar");
        request.icon(icon).classPath(List.of(library));
        assertEquals(List.of(Paths.get("a b.jar"), icon, library), request.inputs());
    }

    @Test
    void messagesNameEveryParameter() {
        Set<String> operations = Arrays.stream(WrapRequest.class.getMethods())
            .filter(method -> method.getReturnType() == WrapRequest.class).map(Method::getName)
            .collect(Collectors.toSet());
        assertEquals(operations, CompanionRun.PARAMETERS);
    }
}
