package demo;

import java.awt.Frame;
import java.awt.Label;
import java.io.File;

/** Shows the name of its document in its title, also of one that a second instance has handed over. */
public final class Viewer {
    private static Frame frame;

    private Viewer() {}

    public static void main(String[] arguments) {
        frame = new Frame("Viewer: " + title(arguments));
        frame.add(new Label("Tarn"));
        frame.setSize(300, 120);
        frame.setVisible(true);
    }

    public static void secondaryMain(String[] arguments) {
        frame.setTitle("Viewer again: " + title(arguments));
    }

    private static String title(String[] arguments) {
        return arguments.length == 0 ? "nothing" : new File(arguments[0]).getName();
    }
}
