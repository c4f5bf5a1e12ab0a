package early;

public final class Main {
    public static void main(String[] args) {
        System.out.println("never started");
    }
}
