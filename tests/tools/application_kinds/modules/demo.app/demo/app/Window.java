package demo.app;

import demo.greeting.Greeting;
import javax.swing.JFrame;
import javax.swing.JLabel;
import javax.swing.SwingUtilities;

/** A modular application: two modules, of which one has the main class. */
public class Window {
    public static void main(String[] arguments) throws Exception {
        SwingUtilities.invokeAndWait(() -> {
            JFrame frame = new JFrame(Greeting.text() + " from " + Greeting.class.getModule() + " to "
                    + Window.class.getModule() + " on Java " + Runtime.version().feature());
            frame.setDefaultCloseOperation(JFrame.EXIT_ON_CLOSE);
            frame.add(new JLabel("A label"));
            frame.setSize(600, 200);
            frame.setVisible(true);
        });
    }
}
