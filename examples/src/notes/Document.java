package notes;

import java.io.IOException;
import java.nio.ByteBuffer;
import java.nio.charset.CharacterCodingException;
import java.nio.charset.Charset;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.InvalidPathException;
import java.nio.file.Path;
import java.nio.file.Paths;

/** A text document, or the reason why it could not be read. */
final class Document {
    private static final long LARGEST_SIZE = 16L << 20;

    final String name;
    final String path;
    final String text;
    /** The name of the encoding, null if the document could not be read. */
    final String encoding;

    private Document(String name, String path, String text, String encoding) {
        this.name = name;
        this.path = path;
        this.text = text;
        this.encoding = encoding;
    }

    boolean wasRead() {
        return encoding != null;
    }

    long lineCount() {
        return text.isEmpty() ? 0 : text.chars().filter(c -> c == '\n').count()
                + (text.endsWith("\n") ? 0 : 1);
    }

    long wordCount() {
        String trimmed = text.trim();
        return trimmed.isEmpty() ? 0 : trimmed.split("\\s+").length;
    }

    static Document read(String argument) {
        try {
            Path path = Paths.get(argument).toAbsolutePath().normalize();
            Path fileName = path.getFileName();
            String name = fileName == null ? path.toString() : fileName.toString();
            try {
                if (Files.size(path) > LARGEST_SIZE) {
                    return failed(name, path.toString(), "The document is larger than 16 MiB.");
                }
                return decode(name, path.toString(), Files.readAllBytes(path));
            } catch (IOException e) {
                return failed(name, path.toString(), "The document could not be read.\n\n" + e);
            }
        } catch (InvalidPathException e) {
            return failed(argument, argument, "This is not a valid path.\n\n" + e.getMessage());
        }
    }

    private static Document failed(String name, String path, String reason) {
        return new Document(name, path, reason, null);
    }

    private static Document decode(String name, String path, byte[] bytes) {
        String text;
        String encoding;
        try {
            text = StandardCharsets.UTF_8.newDecoder().decode(ByteBuffer.wrap(bytes)).toString();
            encoding = "UTF-8";
        } catch (CharacterCodingException e) {
            text = new String(bytes, Charset.defaultCharset());
            encoding = Charset.defaultCharset().displayName();
        }
        if (text.startsWith("\uFEFF")) {
            text = text.substring(1);
        }
        return new Document(name, path, text.replace("\r\n", "\n"), encoding);
    }
}
