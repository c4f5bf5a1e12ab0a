package notes;

import java.awt.BasicStroke;
import java.awt.Color;
import java.awt.Dimension;
import java.awt.Font;
import java.awt.GradientPaint;
import java.awt.Graphics;
import java.awt.Graphics2D;
import java.awt.RenderingHints;
import java.awt.geom.Ellipse2D;
import java.awt.geom.Path2D;
import java.awt.image.BufferedImage;
import javax.swing.JComponent;

/** The band at the top: a lake between mountains, and the application's name. */
final class Header extends JComponent {
    private static final long serialVersionUID = 1L;
    private static final int HEIGHT = 84;

    Header() {
        setPreferredSize(new Dimension(10, HEIGHT));
    }

    @Override
    protected void paintComponent(Graphics graphics) {
        Graphics2D g = (Graphics2D) graphics.create();
        g.setRenderingHint(RenderingHints.KEY_ANTIALIASING, RenderingHints.VALUE_ANTIALIAS_ON);
        g.setRenderingHint(RenderingHints.KEY_TEXT_ANTIALIASING,
                RenderingHints.VALUE_TEXT_ANTIALIAS_ON);
        int width = getWidth();
        g.setPaint(new GradientPaint(0, 0, new Color(0xDCE9EC), 0, HEIGHT, new Color(0x9FC3CC)));
        g.fillRect(0, 0, width, HEIGHT);

        g.setPaint(new Color(0x7FA6B0));
        g.fill(mountain(width - 330, 52, 36, 250));
        g.setPaint(new Color(0x55808C));
        g.fill(mountain(width - 190, 58, 46, 240));
        g.setPaint(new GradientPaint(0, 58, Colors.WATER, 0, HEIGHT, Colors.ROCK));
        g.fillRect(0, 58, width, HEIGHT - 58);
        g.setStroke(new BasicStroke(1.5f));
        g.setPaint(new Color(255, 255, 255, 70));
        g.drawLine(width - 260, 68, width - 150, 68);
        g.drawLine(width - 210, 75, width - 60, 75);

        g.setPaint(Colors.WATER);
        g.setFont(Fonts.text(Font.BOLD, 24));
        g.drawString("Tarn Notes", 20, 38);
        g.dispose();
    }

    /** The icon of the window and its taskbar button. */
    static BufferedImage icon(int size) {
        BufferedImage picture = new BufferedImage(size, size, BufferedImage.TYPE_INT_ARGB);
        Graphics2D g = picture.createGraphics();
        g.setRenderingHint(RenderingHints.KEY_ANTIALIASING, RenderingHints.VALUE_ANTIALIAS_ON);
        g.setClip(new Ellipse2D.Double(0, 0, size, size));
        g.setPaint(new Color(0xDCE9EC));
        g.fillRect(0, 0, size, size);
        g.setPaint(new Color(0x55808C));
        g.fill(mountain(size * 0.5, size * 0.6, size * 0.42, size));
        g.setPaint(Colors.WATER);
        g.fillRect(0, (int) (size * 0.6), size, size);
        g.dispose();
        return picture;
    }

    /** A triangle on a base line: centre of its base, base line, height and width. */
    private static Path2D mountain(double middle, double foot, double height, double width) {
        Path2D path = new Path2D.Double();
        path.moveTo(middle - width / 2, foot);
        path.lineTo(middle, foot - height);
        path.lineTo(middle + width / 2, foot);
        path.closePath();
        return path;
    }
}
