module demo.greeting {
    exports demo.greeting;
}
