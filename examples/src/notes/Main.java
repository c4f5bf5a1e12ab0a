package notes;

import java.io.FileDescriptor;
import java.io.FileOutputStream;
import java.io.PrintStream;
import java.io.UnsupportedEncodingException;
import java.util.concurrent.CountDownLatch;
import javax.swing.SwingUtilities;

/**
 * Tarn Notes: shows text documents in tabs. A small application for the launcher, with a main
 * method that waits and a secondaryMain.
 *
 * <p>The process ends when {@link #main} returns, even while a window is open, so main waits until
 * the window is closed. (The alternative is "Application Type"=service in the settings file: the
 * launcher then waits for the last non-daemon thread.)
 */
public final class Main {
    private static final String TITLE = "--title=";

    private static final CountDownLatch windowShown = new CountDownLatch(1);
    private static volatile NotesWindow window;

    private Main() {}

    public static void main(String[] arguments) throws Exception {
        // The output is UTF-8, whatever the system's code page is.
        System.setOut(utf8(FileDescriptor.out));
        System.setErr(utf8(FileDescriptor.err));
        printFacts(arguments);

        NotesWindow.useLook();
        SwingUtilities.invokeAndWait(() -> {
            window = new NotesWindow();
            openAll(arguments);
            window.show();
        });
        windowShown.countDown();
        ScriptedRun.start(window);

        window.awaitClosed();
        System.out.println("window closed");
        System.out.flush();
    }

    /**
     * Called by the launcher in the running application for a second launch if "Single Instance" is
     * on. Runs on a thread of its own, possibly while main still opens the window.
     *
     * @return the second process's exit code: 0, or 1 if a document could not be read
     */
    public static int secondaryMain(String[] arguments) throws Exception {
        windowShown.await();
        final boolean[] allRead = new boolean[1];
        SwingUtilities.invokeAndWait(() -> {
            allRead[0] = openAll(arguments);
            window.bringToFront();
        });
        window.awaitPainted();
        return allRead[0] ? 0 : 1;
    }

    /** Opens a tab for each argument that is not an option. Returns true if all could be read. */
    private static boolean openAll(String[] arguments) {
        boolean allRead = true;
        for (String argument : arguments) {
            if (argument.startsWith(TITLE)) {
                window.setTitle(argument.substring(TITLE.length()));
            } else if (!argument.startsWith("-") && !argument.equals("/nosplash")) {
                Document document = Document.read(argument);
                window.open(document);
                allRead &= document.wasRead();
            }
        }
        return allRead;
    }

    private static void printFacts(String[] arguments) {
        System.out.println("Tarn Notes on Java " + System.getProperty("java.version")
                + " (" + System.getProperty("java.vm.name") + ")");
        System.out.println("TARN_JVM_HOME=" + System.getenv("TARN_JVM_HOME"));
        System.out.println(arguments.length + " arguments");
        for (int i = 0; i < arguments.length; i++) {
            System.out.println("  " + (i + 1) + ": " + arguments[i]);
        }
        System.out.flush();
    }

    private static PrintStream utf8(FileDescriptor descriptor) throws UnsupportedEncodingException {
        return new PrintStream(new FileOutputStream(descriptor), true, "UTF-8");
    }
}
