package fx;

import javafx.application.Application;
import javafx.application.Platform;
import javafx.scene.Group;
import javafx.scene.Scene;
import javafx.stage.Stage;

public final class Main extends Application {
    public static void main(String[] args) {
        launch(args);
    }

    @Override
    public void start(Stage stage) {
        stage.setScene(new Scene(new Group(), 200, 100));
        stage.setOnShown(event -> {
            System.out.println("JavaFX: shown");
            Platform.exit();
        });
        stage.show();
    }
}
