import java.awt.BasicStroke;
import java.awt.Color;
import java.awt.Font;
import java.awt.GradientPaint;
import java.awt.Graphics2D;
import java.awt.RenderingHints;
import java.awt.geom.Path2D;
import java.awt.image.BufferedImage;
import java.io.File;
import javax.imageio.ImageIO;

/** Draws splash.png: java examples/SplashPicture.java examples/splash.png */
public final class SplashPicture {
    private static final int WIDTH = 480;
    private static final int HEIGHT = 270;
    private static final int SHORE = 172;

    public static void main(String[] arguments) throws Exception {
        BufferedImage picture = new BufferedImage(WIDTH, HEIGHT, BufferedImage.TYPE_INT_RGB);
        Graphics2D g = picture.createGraphics();
        g.setRenderingHint(RenderingHints.KEY_ANTIALIASING, RenderingHints.VALUE_ANTIALIAS_ON);
        g.setRenderingHint(RenderingHints.KEY_TEXT_ANTIALIASING,
                RenderingHints.VALUE_TEXT_ANTIALIAS_ON);
        g.setPaint(new GradientPaint(0, 0, new Color(0xEEF4F5), 0, SHORE, new Color(0xA9CBD3)));
        g.fillRect(0, 0, WIDTH, SHORE);

        fill(g, 0x8FB3BC, 150, SHORE, 300, 78, 452, SHORE);
        fill(g, 0xF7FAFA, 281, 90, 300, 78, 321, 92, 309, 97, 300, 91, 290, 98);
        fill(g, 0x5F8A96, 250, SHORE, 388, 58, 560, SHORE);
        fill(g, 0xF7FAFA, 363, 79, 388, 58, 418, 78, 403, 85, 390, 76, 376, 87);
        fill(g, 0x55808C, 60, SHORE, 190, 122, 330, SHORE);

        g.setPaint(new GradientPaint(0, SHORE, new Color(0x2A5F6E), 0, HEIGHT,
                new Color(0x1B3443)));
        g.fillRect(0, SHORE, WIDTH, HEIGHT - SHORE);
        g.setPaint(new Color(255, 255, 255, 26));
        g.fill(polygon(250, SHORE, 388, SHORE + 74, 560, SHORE));
        g.setStroke(new BasicStroke(2));
        g.setPaint(new Color(255, 255, 255, 60));
        int[][] ripples = {{300, 196, 390}, {352, 212, 470}, {40, 190, 118}, {270, 232, 350}};
        for (int[] ripple : ripples) {
            g.drawLine(ripple[0], ripple[1], ripple[2], ripple[1]);
        }

        g.setPaint(new Color(0x26465A));
        g.setFont(new Font("DejaVu Sans", Font.BOLD, 40));
        g.drawString("Tarn Notes", 30, 66);
        g.setFont(new Font("DejaVu Sans", Font.PLAIN, 14));
        g.drawString("text documents in tabs", 33, 92);
        g.setPaint(new Color(0xC9DDE2));
        g.setFont(new Font("DejaVu Sans", Font.PLAIN, 12));
        g.drawString("starting \u2026", 33, HEIGHT - 20);
        g.dispose();
        ImageIO.write(picture, "png", new File(arguments[0]));
    }

    private static void fill(Graphics2D g, int color, double... points) {
        g.setPaint(new Color(color));
        g.fill(polygon(points));
    }

    private static Path2D polygon(double... points) {
        Path2D path = new Path2D.Double();
        path.moveTo(points[0], points[1]);
        for (int i = 2; i < points.length; i += 2) {
            path.lineTo(points[i], points[i + 1]);
        }
        path.closePath();
        return path;
    }
}
