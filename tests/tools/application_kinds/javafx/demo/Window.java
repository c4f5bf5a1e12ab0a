package demo;

import javafx.application.Application;
import javafx.scene.Scene;
import javafx.scene.control.Button;
import javafx.scene.control.DatePicker;
import javafx.scene.layout.VBox;
import javafx.stage.Stage;

/** A JavaFX application as the documentation of JavaFX recommends it: its main class extends Application. */
public class Window extends Base {
    public static void main(String[] arguments) {
        launch(arguments);
    }

    @Override
    public void start(Stage stage) {
        stage.setTitle("JavaFX " + System.getProperty("javafx.version") + " on Java "
                + Runtime.version().feature() + " in " + Button.class.getModule());
        stage.setScene(new Scene(new VBox(10, new Button("A button"), new DatePicker()), 400, 300));
        stage.show();
    }
}

/** Only the second superclass is one of JavaFX. */
abstract class Base extends Application {
}
