package onejar;

public final class Main {
    public static void main(String[] args) {
        System.out.println("one jar: " + System.getProperty("tests.first") + ", " + System.getProperty("tests.second"));
    }
}
