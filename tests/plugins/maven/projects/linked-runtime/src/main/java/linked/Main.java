package linked;

public final class Main {
    public static void main(String[] args) {
        System.out.println("linked: " + System.getProperty("java.version"));
    }
}
