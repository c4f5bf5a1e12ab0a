package notes;

import java.awt.BorderLayout;
import java.awt.Color;
import java.awt.Dimension;
import java.awt.EventQueue;
import java.awt.Font;
import java.awt.Toolkit;
import java.awt.event.ContainerAdapter;
import java.awt.event.ContainerEvent;
import java.awt.event.WindowAdapter;
import java.awt.event.WindowEvent;
import java.util.concurrent.CountDownLatch;
import javax.swing.BorderFactory;
import javax.swing.JFrame;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JTabbedPane;
import javax.swing.SwingConstants;
import javax.swing.SwingUtilities;
import javax.swing.UIManager;
import javax.swing.UnsupportedLookAndFeelException;

/** The one window: a header, a tab for each document, and a status line for the selected one. */
final class NotesWindow {
    private final JFrame frame = new JFrame("Tarn Notes");
    private final JTabbedPane tabs = new JTabbedPane(SwingConstants.TOP,
            JTabbedPane.SCROLL_TAB_LAYOUT);
    private final JLabel status = new JLabel(" ");
    private final CountDownLatch closed = new CountDownLatch(1);

    /** Sets colours and fonts for all windows; call it before creating the first one. */
    static void useLook() {
        try {
            UIManager.setLookAndFeel("javax.swing.plaf.nimbus.NimbusLookAndFeel");
        } catch (ReflectiveOperationException | UnsupportedLookAndFeelException e) {
            return;  // the default will do
        }
        UIManager.put("control", Colors.PAPER);
        UIManager.put("nimbusBase", Colors.WATER);
        UIManager.put("nimbusBlueGrey", new Color(0xC3CED1));
        UIManager.put("nimbusFocus", Colors.LIGHT_WATER);
        UIManager.put("nimbusSelectionBackground", Colors.WATER);
        // Nimbus reads its font from its own defaults only.
        UIManager.getLookAndFeelDefaults().put("defaultFont", Fonts.text(Font.PLAIN, 13));
    }

    NotesWindow() {
        status.setBorder(BorderFactory.createEmptyBorder(6, 14, 6, 14));
        status.setForeground(Colors.QUIET_TEXT);

        JLabel empty = new JLabel("Start Tarn Notes with a document, or drop one on its icon.",
                SwingConstants.CENTER);
        empty.setForeground(Colors.QUIET_TEXT);
        JPanel documents = new JPanel(new BorderLayout());
        documents.setBorder(BorderFactory.createEmptyBorder(8, 8, 0, 8));
        documents.add(empty);

        tabs.addChangeListener(event -> showStatus());
        tabs.addContainerListener(new ContainerAdapter() {
            @Override
            public void componentAdded(ContainerEvent event) {
                if (tabs.getParent() == null) {
                    documents.remove(empty);
                    documents.add(tabs);
                    documents.revalidate();
                }
            }
        });

        frame.setDefaultCloseOperation(JFrame.DISPOSE_ON_CLOSE);
        frame.addWindowListener(new WindowAdapter() {
            @Override
            public void windowClosed(WindowEvent event) {
                closed.countDown();
            }
        });
        frame.setIconImage(Header.icon(32));
        frame.add(new Header(), BorderLayout.NORTH);
        frame.add(documents, BorderLayout.CENTER);
        frame.add(status, BorderLayout.SOUTH);
        showStatus();
    }

    void setTitle(String title) {
        frame.setTitle(title + " - Tarn Notes");
    }

    void show() {
        frame.setPreferredSize(new Dimension(860, 600));
        frame.pack();
        frame.setLocationRelativeTo(null);
        frame.setVisible(true);
    }

    void open(Document document) {
        DocumentView view = new DocumentView(document);
        tabs.addTab(document.name, null, view, document.path);
        tabs.setSelectedComponent(view);
        showStatus();
    }

    void bringToFront() {
        frame.setExtendedState(frame.getExtendedState() & ~JFrame.ICONIFIED);
        frame.toFront();
        frame.requestFocus();
    }

    void close() {
        SwingUtilities.invokeLater(frame::dispose);
    }

    void awaitClosed() throws InterruptedException {
        closed.await();
    }

    /** Waits until all pending changes are painted. */
    void awaitPainted() throws InterruptedException {
        // Each round processes the events that the previous one has queued.
        for (int round = 0; round < 3; round++) {
            CountDownLatch quiet = new CountDownLatch(1);
            EventQueue.invokeLater(() -> {
                frame.getRootPane().paintImmediately(0, 0, frame.getWidth(), frame.getHeight());
                Toolkit.getDefaultToolkit().sync();
                quiet.countDown();
            });
            quiet.await();
        }
    }

    private void showStatus() {
        String java = "Java " + System.getProperty("java.version");
        DocumentView view = (DocumentView) tabs.getSelectedComponent();
        status.setText(view == null ? java : view.describe() + "     " + java);
    }
}
