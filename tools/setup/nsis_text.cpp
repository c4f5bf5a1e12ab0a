#include "tools/setup/nsis_text.h"

#include <algorithm>

namespace tarn::tools {
namespace {

struct OwnTexts {
    const char* applicationRuns;
    const char* newerInstalled;
    const char* pathTooLong;
    const char* removeSettings;
    const char* confirmRemoval;
};

constexpr OwnTexts kEnglish = {
    "$(^Name) is running. Close it, then select Retry.",
    "A newer version of $(^Name) is installed. Remove it before you install this version.",
    "The path of the folder is too long. Select another folder.",
    "Also remove the settings file that was changed",
    "$(^Name) will be removed from this computer. Files that you added to its folder remain.",
};

struct Language {
    const char* name;  // of NSIS
    OwnTexts texts;
};

// NSIS has the wizard's texts in all of these; ours are English in languages without a translation.
constexpr Language kLanguages[] = {
    {"English", kEnglish},
    {"German",
     {"$(^Name) wird gerade ausgeführt. Beenden Sie das Programm und wählen Sie dann Wiederholen.",
      "Eine neuere Version von $(^Name) ist installiert. Entfernen Sie sie, bevor Sie diese "
      "Version installieren.",
      "Der Pfad des Ordners ist zu lang. Wählen Sie einen anderen Ordner.",
      "Auch die geänderte Einstellungsdatei entfernen",
      "$(^Name) wird von diesem Computer entfernt. Dateien, die Sie dem Ordner hinzugefügt haben, "
      "bleiben erhalten."}},
    {"French",
     {"$(^Name) est en cours d’exécution. Fermez l’application, puis cliquez sur Recommencer.",
      "Une version plus récente de $(^Name) est installée. Désinstallez-la avant d’installer cette "
      "version.",
      "Le chemin du dossier est trop long. Choisissez un autre dossier.",
      "Supprimer aussi le fichier de paramètres modifié",
      "$(^Name) va être désinstallé de cet ordinateur. Les fichiers que vous avez ajoutés à son "
      "dossier sont conservés."}},
    {"Spanish",
     {"$(^Name) se está ejecutando. Cierre la aplicación y, a continuación, seleccione Reintentar.",
      "Hay instalada una versión más reciente de $(^Name). Desinstálela antes de instalar esta "
      "versión.",
      "La ruta de la carpeta es demasiado larga. Seleccione otra carpeta.",
      "Quitar también el archivo de configuración modificado",
      "$(^Name) se desinstalará de este equipo. Los archivos que haya añadido a su carpeta se "
      "conservan."}},
    {"Italian",
     {"$(^Name) è in esecuzione. Chiudere l’applicazione, quindi scegliere Riprova.",
      "È installata una versione più recente di $(^Name). Disinstallarla prima di installare "
      "questa "
      "versione.",
      "Il percorso della cartella è troppo lungo. Scegliere un’altra cartella.",
      "Rimuovi anche il file delle impostazioni modificato",
      "$(^Name) verrà disinstallato da questo computer. I file aggiunti alla sua cartella "
      "rimangono."}},
    {"Dutch",
     {"$(^Name) wordt uitgevoerd. Sluit het programma en kies daarna Opnieuw.",
      "Er is een nieuwere versie van $(^Name) geïnstalleerd. Verwijder die voordat u deze versie "
      "installeert.",
      "Het pad van de map is te lang. Kies een andere map.",
      "Ook het gewijzigde instellingenbestand verwijderen",
      "$(^Name) wordt van deze computer verwijderd. Bestanden die u aan de map hebt toegevoegd, "
      "blijven behouden."}},
    {"PortugueseBR",
     {"O $(^Name) está em execução. Feche o aplicativo e selecione Repetir.",
      "Uma versão mais recente do $(^Name) está instalada. Remova-a antes de instalar esta versão.",
      "O caminho da pasta é longo demais. Selecione outra pasta.",
      "Remover também o arquivo de configurações alterado",
      "O $(^Name) será removido deste computador. Os arquivos que você adicionou à pasta dele "
      "serão mantidos."}},
    {"Portuguese",
     {"O $(^Name) está em execução. Feche a aplicação e selecione Repetir.",
      "Está instalada uma versão mais recente do $(^Name). Remova-a antes de instalar esta versão.",
      "O caminho da pasta é demasiado longo. Selecione outra pasta.",
      "Remover também o ficheiro de definições alterado",
      "O $(^Name) será removido deste computador. Os ficheiros que adicionou à respetiva pasta são "
      "mantidos."}},
    {"Danish",
     {"$(^Name) kører. Luk programmet, og vælg derefter Prøv igen.",
      "En nyere version af $(^Name) er installeret. Fjern den, før du installerer denne version.",
      "Stien til mappen er for lang. Vælg en anden mappe.",
      "Fjern også den ændrede indstillingsfil",
      "$(^Name) fjernes fra denne computer. Filer, som du har føjet til mappen, bevares."}},
    {"Swedish",
     {"$(^Name) körs. Stäng programmet och välj sedan Försök igen.",
      "En nyare version av $(^Name) är installerad. Ta bort den innan du installerar den här "
      "versionen.",
      "Sökvägen till mappen är för lång. Välj en annan mapp.",
      "Ta även bort den ändrade inställningsfilen",
      "$(^Name) tas bort från den här datorn. Filer som du har lagt till i mappen finns kvar."}},
    {"Norwegian",
     {"$(^Name) kjører. Lukk programmet, og velg deretter Prøv på nytt.",
      "En nyere versjon av $(^Name) er installert. Fjern den før du installerer denne versjonen.",
      "Banen til mappen er for lang. Velg en annen mappe.",
      "Fjern også den endrede innstillingsfilen",
      "$(^Name) fjernes fra denne datamaskinen. Filer som du har lagt til i mappen, beholdes."}},
    {"Finnish", kEnglish},
    {"Polish",
     {"Program $(^Name) jest uruchomiony. Zamknij go, a następnie wybierz przycisk Ponów próbę.",
      "Zainstalowana jest nowsza wersja programu $(^Name). Usuń ją przed zainstalowaniem tej "
      "wersji.",
      "Ścieżka folderu jest za długa. Wybierz inny folder.", "Usuń również zmieniony plik ustawień",
      "Program $(^Name) zostanie usunięty z tego komputera. Pliki dodane do jego folderu "
      "pozostaną."}},
    {"Czech", kEnglish},
    {"Slovak", kEnglish},
    {"Hungarian", kEnglish},
    {"Romanian", kEnglish},
    {"Greek", kEnglish},
    {"Turkish", kEnglish},
    {"Russian",
     {"Программа $(^Name) запущена. Закройте её и нажмите кнопку «Повторить».",
      "Установлена более новая версия $(^Name). Удалите её перед установкой этой версии.",
      "Слишком длинный путь к папке. Выберите другую папку.",
      "Удалить также изменённый файл настроек",
      "Программа $(^Name) будет удалена с этого компьютера. Файлы, добавленные вами в её папку, "
      "останутся."}},
    {"Ukrainian", kEnglish},
    {"Japanese",
     {"$(^Name) は実行中です。終了してから [再試行] を選択してください。",
      "新しいバージョンの $(^Name) がインストールされています。先にそれを削除してください。",
      "フォルダーのパスが長すぎます。別のフォルダーを選択してください。",
      "変更された設定ファイルも削除する",
      "$(^Name) をこのコンピューターから削除します。フォルダーに追加されたファイルは残ります。"}},
    {"Korean", kEnglish},
    {"SimpChinese",
     {"$(^Name) 正在运行。请先将其关闭，然后选择“重试”。",
      "已安装更新版本的 $(^Name)。请先将其卸载，再安装此版本。",
      "文件夹的路径太长。请选择其他文件夹。", "同时删除已更改的设置文件",
      "将从此计算机中删除 $(^Name)。您添加到其文件夹中的文件会保留。"}},
    {"TradChinese", kEnglish},
};

// Replaces each '$' and what cannot be written in a quoted string.
std::string Escaped(std::string_view text, std::string_view dollar) {
    std::string escaped;
    for (const char character : text) {
        switch (character) {
            case '$':
                escaped += dollar;
                break;
            case '"':
                escaped += "$\\\"";
                break;
            case '\n':
                escaped += "$\\n";
                break;
            case '\r':
                escaped += "$\\r";
                break;
            case '\t':
                escaped += "$\\t";
                break;
            default:
                escaped += character;
        }
    }
    return escaped;
}

std::string LangString(const char* name, const char* language, const char* text) {
    std::string upper = language;
    std::transform(upper.begin(), upper.end(), upper.begin(), [](char letter) {
        return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    });
    return std::string("LangString ") + name + " ${LANG_" + upper + "} \"" + text + "\"\n";
}

}  // namespace

// "$$" would not protect "$%NAME%" and "${NAME}", which makensis replaces first; it does not look
// again at what a character code has produced.
std::string NsisString(std::string_view text) {
    return Escaped(text, "${U+24}${U+24}");
}

std::string NsisLiteral(std::string_view text) {
    return Escaped(text, "${U+24}");
}

std::string NsisPath(std::string_view path) {
    std::string text(path);
    std::replace(text.begin(), text.end(), '/', '\\');
    return NsisString(text);
}

std::string NsisLanguages() {
    std::string script;
    for (const Language& language : kLanguages) {
        script += std::string("!insertmacro MUI_LANGUAGE \"") + language.name + "\"\n";
    }
    for (const Language& language : kLanguages) {
        const OwnTexts& texts = language.texts;
        script += LangString("ApplicationRuns", language.name, texts.applicationRuns);
        script += LangString("NewerInstalled", language.name, texts.newerInstalled);
        script += LangString("PathTooLong", language.name, texts.pathTooLong);
        script += LangString("RemoveSettings", language.name, texts.removeSettings);
        script += LangString("ConfirmRemoval", language.name, texts.confirmRemoval);
    }
    return script;
}

}  // namespace tarn::tools
