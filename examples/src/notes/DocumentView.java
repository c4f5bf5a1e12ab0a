package notes;

import java.awt.BorderLayout;
import java.awt.Color;
import java.awt.Font;
import javax.swing.BorderFactory;
import javax.swing.JPanel;
import javax.swing.JScrollPane;
import javax.swing.JTextArea;

/** The text of a document, with line numbers. */
final class DocumentView extends JPanel {
    private static final long serialVersionUID = 1L;

    private final transient Document document;

    DocumentView(Document document) {
        super(new BorderLayout());
        this.document = document;

        Font font = Fonts.document();
        JTextArea text = area(document.text, font, Color.WHITE,
                document.wasRead() ? Colors.TEXT : Colors.QUIET_TEXT);
        JScrollPane scroll = new JScrollPane(text);
        scroll.setBorder(BorderFactory.createEmptyBorder());
        if (document.wasRead()) {
            scroll.setRowHeaderView(area(lineNumbers(), font, Colors.PAPER, Colors.QUIET_TEXT));
        }
        add(scroll);
    }

    String describe() {
        if (!document.wasRead()) {
            return document.path;
        }
        return document.path + "     " + document.lineCount() + " lines, "
                + document.wordCount() + " words     " + document.encoding;
    }

    private String lineNumbers() {
        StringBuilder numbers = new StringBuilder();
        for (long line = 1; line <= Math.max(1, document.lineCount()); line++) {
            numbers.append(String.format("%4d%n", line));
        }
        return numbers.toString();
    }

    private static JTextArea area(String text, Font font, Color background, Color foreground) {
        JTextArea area = new JTextArea(text);
        area.setEditable(false);
        area.setFont(font);
        area.setOpaque(true);
        area.setBackground(background);
        area.setForeground(foreground);
        area.setBorder(BorderFactory.createEmptyBorder(10, 10, 10, 10));
        area.setCaretPosition(0);
        return area;
    }
}
