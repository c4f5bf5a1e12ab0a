package nomain;

public final class Library {}
