package application;

import library.Greeting;

public final class Main {
    public static void main(String[] args) {
        System.out.println("multi-module: " + Greeting.text());
    }
}
