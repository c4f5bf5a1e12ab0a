package notes;

import java.awt.Color;

/** The application's colours: those of its icon. */
final class Colors {
    static final Color WATER = new Color(0x26465A);
    static final Color LIGHT_WATER = new Color(0x5C93A8);
    static final Color ROCK = new Color(0x2A5F6E);
    static final Color PAPER = new Color(0xF4F6F6);
    static final Color TEXT = new Color(0x1E2B31);
    static final Color QUIET_TEXT = new Color(0x66777E);

    private Colors() {}
}
