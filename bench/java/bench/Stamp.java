package bench;

import java.io.File;
import java.io.FileOutputStream;
import java.io.IOException;
import java.io.OutputStream;

/**
 * Notes when main was reached. On Windows System.nanoTime is the performance counter in nanoseconds, so the benchmark
 * can compare it with its own reading from before the process started (it checks that it lies between start and end).
 */
public final class Stamp {
    private Stamp() {
    }

    public static void main(String[] arguments) throws IOException, InterruptedException {
        note(System.nanoTime());
    }

    /** Writes the moment down, and waits until the benchmark allows the process to end. */
    static void note(long reached) throws IOException, InterruptedException {
        try (OutputStream out = new FileOutputStream(System.getenv("TARN_BENCH_STAMP"))) {
            out.write((reached + "\n").getBytes("US-ASCII"));
        }
        String hold = System.getenv("TARN_BENCH_HOLD");
        if (hold != null) {
            File released = new File(hold);
            for (int i = 0; i < 6000 && !released.exists(); i++) {
                Thread.sleep(10);
            }
        }
    }
}
