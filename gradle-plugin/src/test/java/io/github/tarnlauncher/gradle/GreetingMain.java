package io.github.tarnlauncher.gradle;

/** The application of the projects that the tests build; its class file is copied there. */
final class GreetingMain {
    private GreetingMain() {}

    public static void main(String[] arguments) {
        System.out.println("Good morning");
    }
}
