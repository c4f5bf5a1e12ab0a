package demo.greeting;

public class Greeting {
    public static String text() {
        return "Hello";
    }
}
