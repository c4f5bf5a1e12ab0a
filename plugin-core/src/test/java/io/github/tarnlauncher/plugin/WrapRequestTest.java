package io.github.tarnlauncher.plugin;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.io.IOException;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.util.List;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

class WrapRequestTest {
    @TempDir
    Path folder;

    private final WrapRequest request = new WrapRequest(Paths.get("a b.jar"), Paths.get("out"));

    @Test
    void leavesOutWhatIsNotSet() {
        request.name(null).title("").icon(null).classPath(null).vmParameters(null).set(null).allow(null).singleFile(false);
        assertEquals("jar = 'a b.jar'\nout = 'out'\nreplace = true\n", request.options());
    }

    @Test
    void repeatsAnOptionForEachValueInOrder() {
        request.set(List.of("A/B=1", "C/D=2"));
        assertTrue(request.options().contains("set = 'A/B=1'\nset = 'C/D=2'\n"), request.options());
    }

    @Test
    void quotesWhatTheFileCanHold() throws IOException {
        request.title("it's").vmParameters(List.of("-Da=\"b c\"")).arguments("c:\\x");
        assertTrue(request.options().contains("title = \"it's\"\n"), request.options());
        assertTrue(request.options().contains("vm-parameters = '-Da=\"b c\"'\n"), request.options());
        assertTrue(request.options().contains("arguments = 'c:\\x'\n"), request.options());
        assertEquals(2, request.writeTo(folder.resolve("options")).size());
    }

    @Test
    void anOptionThatTheFileCannotHoldIsAnArgumentWithAllItsValues() throws IOException {
        request.set(List.of("A/B=1", "A/C='\""));
        assertEquals(List.of("--set=A/B=1", "--set=A/C='\""), request.writeTo(folder.resolve("options")).subList(2, 4));
        assertFalse(request.options().contains("set = "), request.options());
    }

    @Test
    void aLineBreakInANameAddsNoOption() throws IOException {
        String name = "a.jar'\nlauncher = 'evil.exe";
        request.classPath(List.of(Paths.get(name)));
        assertFalse(request.options().contains("launcher"), request.options());
        assertEquals(List.of("--class-path=" + name), request.writeTo(folder.resolve("options")).subList(2, 3));
    }

    @Test
    void quotesAroundAValueArePassedOn() throws IOException {
        request.vmParameters(List.of("\"-Da=b c\""));
        assertEquals(List.of("--vm-parameters=\"-Da=b c\""), request.writeTo(folder.resolve("options")).subList(2, 3));
    }

    @Test
    void theCompanionReadsEveryOption() throws IOException {
        request.name("n").icon(Paths.get("i")).splash(Paths.get("s")).noSplash(true).runtime(Paths.get("r"))
            .classPath(List.of(Paths.get("c"))).add(List.of(Paths.get("a"))).mainClass("m").version("1").title("t")
            .vendor("v").minVersion("8").maxVersion("9").vmParameters(List.of("-ea", "-esa")).arguments("x")
            .singleInstance(true).endsWith("exit").startAs("module").singleFile(true).keepWorkingDir(true).set(List.of("A/B=1"))
            .fastStart(true).noRuntimeArchive(true)
            .allow(List.of("flag")).setString(List.of("1=x")).description("d").copyright("c").manifest(Paths.get("m"))
            .admin(true).utf8(true).launcher(Paths.get("l"));
        CompanionRun run = Companion.unpackBelow(folder).run(request.writeTo(folder.resolve("options")), folder);
        // Some of these exclude each other: it read them all before it says so.
        assertFalse(run.failure("", "").contains("not an option"), run.failure("", ""));
        assertTrue(run.failure("", "").contains("exclude"), run.failure("", ""));
    }

    @Test
    void everyFileIsAnInput() {
        Path icon = Paths.get("i.png");
        Path library = Paths.get("l.jar");
        request.icon(icon).classPath(List.of(library));
        assertEquals(List.of(Paths.get("a b.jar"), icon, library), request.inputs());
    }
}
