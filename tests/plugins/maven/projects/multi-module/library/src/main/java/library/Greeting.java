package library;

public final class Greeting {
    public static String text() {
        return "from another module";
    }
}
