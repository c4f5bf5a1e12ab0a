package com.example.hello;

import java.awt.BorderLayout;
import java.awt.Dimension;
import java.awt.event.WindowAdapter;
import java.awt.event.WindowEvent;
import javax.swing.JFrame;
import javax.swing.JLabel;
import javax.swing.SwingConstants;
import javax.swing.SwingUtilities;
import org.apache.commons.lang3.StringUtils;

/** Shows a greeting in a window; the first argument is the name of whoever is greeted. */
public final class Hello {
    private Hello() {}

    public static void main(String[] args) {
        String name = args.length > 0 ? args[0] : "world";
        SwingUtilities.invokeLater(() -> show("Hello, " + StringUtils.capitalize(name) + "!"));
    }

    private static void show(String greeting) {
        JFrame window = new JFrame("Hello Example");
        window.setDefaultCloseOperation(JFrame.DISPOSE_ON_CLOSE);
        window.add(new JLabel(greeting, SwingConstants.CENTER), BorderLayout.CENTER);
        window.setPreferredSize(new Dimension(400, 200));
        window.addWindowListener(new WindowAdapter() {
            @Override
            public void windowOpened(WindowEvent event) {
                System.out.println(greeting);
            }
        });
        window.pack();
        window.setLocationRelativeTo(null);
        window.setVisible(true);
    }
}
