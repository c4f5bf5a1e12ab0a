module demo.app {
    requires demo.greeting;
    requires java.desktop;
}
