package shaded;

import org.apache.commons.lang3.StringUtils;

public final class Main {
    public static void main(String[] args) {
        System.out.println("shaded: " + StringUtils.capitalize("word"));
    }
}
