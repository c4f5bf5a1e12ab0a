package notes;

import java.awt.Font;
import java.awt.GraphicsEnvironment;
import java.util.Arrays;
import java.util.HashSet;
import java.util.Set;

/** The first available font of each kind. */
final class Fonts {
    private static final Set<String> families = new HashSet<>(Arrays.asList(
            GraphicsEnvironment.getLocalGraphicsEnvironment().getAvailableFontFamilyNames()));

    private Fonts() {}

    static Font text(int style, int size) {
        return new Font(first("Segoe UI", "DejaVu Sans", Font.SANS_SERIF), style, size);
    }

    static Font document() {
        return new Font(first("Consolas", "DejaVu Sans Mono", Font.MONOSPACED), Font.PLAIN, 14);
    }

    private static String first(String... names) {
        for (String name : names) {
            if (families.contains(name)) {
                return name;
            }
        }
        return names[names.length - 1];
    }
}
