package demo;

/** Requires the manifest's Add-Opens; writes its result to System.err. */
public class Opened {
    public static void main(String[] arguments) throws Exception {
        String.class.getDeclaredField("value").setAccessible(true);
        System.err.println("opened on Java " + System.getProperty("java.version"));
    }
}
