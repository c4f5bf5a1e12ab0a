package bench;

import java.io.IOException;

/** An application that stays until it is ended, and notes when a second launch has reached it. */
public final class Second {
    private static final long LONGEST_STAY_MILLISECONDS = 900_000;

    private Second() {
    }

    public static void main(String[] arguments) throws IOException, InterruptedException {
        Stamp.main(arguments);
        Thread.sleep(LONGEST_STAY_MILLISECONDS);
    }

    public static int secondaryMain(String[] arguments) throws IOException, InterruptedException {
        Stamp.main(arguments);
        return 0;
    }
}
