package bench;

import java.awt.AWTEvent;
import java.awt.Toolkit;
import java.awt.event.AWTEventListener;
import java.awt.event.WindowEvent;
import java.io.IOException;
import java.lang.reflect.Method;
import java.util.Arrays;
import java.util.concurrent.atomic.AtomicBoolean;

/**
 * Runs another application, whose main class is the first argument, until its first window is open: notes the moment
 * and then ends the process, as {@link Stamp} does.
 */
public final class FirstWindow {
    private FirstWindow() {
    }

    public static void main(String[] arguments) throws Exception {
        AtomicBoolean noted = new AtomicBoolean();
        AWTEventListener listener = event -> {
            if (event.getID() == WindowEvent.WINDOW_OPENED && noted.compareAndSet(false, true)) {
                endAfterNoting(System.nanoTime());
            }
        };
        Toolkit.getDefaultToolkit().addAWTEventListener(listener, AWTEvent.WINDOW_EVENT_MASK);
        Method main = Class.forName(arguments[0]).getMethod("main", String[].class);
        main.invoke(null, (Object) Arrays.copyOfRange(arguments, 1, arguments.length));
    }

    // On a thread of its own, because the window is painted on the one that delivers the event.
    private static void endAfterNoting(long opened) {
        Thread thread = new Thread(() -> {
            try {
                Stamp.note(opened);
                System.exit(0);
            } catch (IOException | InterruptedException e) {
                System.exit(1);
            }
        }, "first window");
        thread.start();
    }
}
