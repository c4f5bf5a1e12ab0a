package notes;

import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.Paths;

/**
 * Lets a script take a screenshot and then close the application. If the environment variable
 * SAMPLE_CLOSE_AFTER_SHOT is the name of a file, the application creates an empty file with that
 * name and the suffix ".ready" once its window is painted, and closes the window as soon as the file
 * itself exists.
 */
final class ScriptedRun {
    private ScriptedRun() {}

    static void start(NotesWindow window) throws IOException, InterruptedException {
        String name = System.getenv("SAMPLE_CLOSE_AFTER_SHOT");
        if (name == null || name.isEmpty()) {
            return;
        }
        window.awaitPainted();
        Files.write(Paths.get(name + ".ready"), new byte[0]);

        Path file = Paths.get(name);
        Thread watcher = new Thread(() -> {
            try {
                while (!Files.exists(file)) {
                    Thread.sleep(50);
                }
            } catch (InterruptedException e) {
                return;
            }
            window.close();
        }, "scripted run");
        watcher.setDaemon(true);
        watcher.start();
    }
}
