// What happens when the application's main ends with an exception.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "resources/ids.h"
#include "tests/support/fake_jvm_fixture.h"
#include "tests/support/wait.h"

namespace tarn::test {
namespace {

using testing::HasSubstr;

constexpr char kThrows[] = "main = throw java/lang/IllegalStateException: boom\n";
constexpr wchar_t kDialogClass[] = L"#32770";

/// The text as the launcher decodes it: bytes in the code page of the system's locale.
std::wstring FromSystemCodePage(std::string_view bytes) {
    wchar_t page[8] = {};
    GetLocaleInfoW(GetSystemDefaultLCID(), LOCALE_IDEFAULTANSICODEPAGE, page, 8);
    const UINT codePage = static_cast<UINT>(std::stoi(page));
    std::wstring text(bytes.size(), L'\0');
    const int length =
        MultiByteToWideChar(codePage, 0, bytes.data(), static_cast<int>(bytes.size()), text.data(),
                            static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

class JavaException : public FakeJvmFixture {
  protected:
    void SetUp() override { settings.Application(L"Failure Check", L"Yes"); }

    /// Starts the application and waits for the dialog; null when none appears.
    HWND OpenDialog(std::string_view script = kThrows) {
        app.WriteScript(script);
        process_ = Start();
        const HWND dialog = WaitForWindow(*process_, kDialogClass);
        EXPECT_NE(dialog, nullptr);
        EXPECT_EQ(dialog != nullptr ? WindowText(dialog) : L"", L"Java Exception");
        return dialog;
    }

    std::int32_t ExitCode() const { return process_->ExitCode().value_or(kNoExitCode); }

    std::unique_ptr<LaunchedProcess> process_;
};

TEST_F(JavaException, DialogShowsTheTrace) {
    const HWND dialog =
        OpenDialog(std::string(kThrows) + "trace = java.lang.Error: a\\r\\n\\tat b.C\\r\\n");
    EXPECT_EQ(WindowText(Child(dialog, IDC_EXCEPTION_TRACE)),
              L"java.lang.Error: a\r\n\tat b.C\r\n");
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), nullptr);
    PressButton(dialog, IDOK);
    EXPECT_EQ(ExitCode(), 0);
}

TEST_F(JavaException, IgnoreClearsTheExceptionAndContinues) {
    PressButton(OpenDialog(), IDOK);
    EXPECT_EQ(ExitCode(), 0);
    EXPECT_EQ(app.Log().Count("ExceptionClear"), 1U);
    EXPECT_EQ(app.Log().Count("DetachCurrentThread"), 1U);
    EXPECT_EQ(app.Log().Count("CallStaticVoidMethod(java/lang/System.exit"), 0U);
}

TEST_F(JavaException, StopEndsTheProcessThroughSystemExit) {
    PressButton(OpenDialog(), IDCANCEL);
    EXPECT_EQ(ExitCode(), -1);
    EXPECT_TRUE(app.Log().Has("CallStaticVoidMethod(java/lang/System.exit(I)V, -1)"));
    EXPECT_EQ(app.Log().Count("DetachCurrentThread"), 0U);
}

TEST_F(JavaException, CloseBoxStops) {
    PostMessageW(OpenDialog(), WM_SYSCOMMAND, SC_CLOSE, 0);
    EXPECT_EQ(ExitCode(), -1);
}

TEST_F(JavaException, EscapeStops) {
    PostMessageW(OpenDialog(), WM_KEYDOWN, VK_ESCAPE, 0);
    EXPECT_EQ(ExitCode(), -1);
}

TEST_F(JavaException, SettingIsCaseInsensitive) {
    settings.Application(L"Failure Check", L"yes");
    PressButton(OpenDialog(), IDOK);
    EXPECT_EQ(ExitCode(), 0);
}

TEST_F(JavaException, WithoutTheSettingTheExceptionStaysPending) {
    settings.Application(L"Failure Check", L"no");
    app.WriteScript(kThrows);
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(app.Log().Count("ExceptionDescribe"), 0U);
    EXPECT_EQ(app.Log().Count("ExceptionClear"), 0U);
    EXPECT_EQ(app.Log().Count("FindClass(\"java/io"), 0U);
    EXPECT_EQ(app.Log().Count("DetachCurrentThread"), 1U);
}

TEST_F(JavaException, NoDialogWithoutAnException) {
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(app.Log().Count("ExceptionClear"), 0U);
}

TEST_F(JavaException, TraceIsPrintedAndReadBeforeTheExit) {
    PressButton(OpenDialog(), IDCANCEL);
    EXPECT_EQ(ExitCode(), -1);
    // Classes and methods may be looked up at any time before their use.
    const auto isStep = [](const std::string& name) {
        return name.starts_with("Call") || name.starts_with("NewObject") ||
               name.starts_with("GetStringUTF");
    };
    std::vector<std::string> steps;
    for (const std::string& call : app.Log().Calls()) {
        const std::string name = call.substr(0, call.find('('));
        if (name == "ExceptionClear") steps = {name};
        if (isStep(name)) steps.push_back(name);
    }
    EXPECT_THAT(steps, testing::ElementsAre("ExceptionClear", "NewObject", "NewObject",
                                            "CallVoidMethod", "CallObjectMethod",
                                            "GetStringUTFChars", "CallStaticVoidMethod"));
    EXPECT_EQ(app.Log().Count("ReleaseStringUTFChars"), 1U);
}

TEST_F(JavaException, TraceIsReadInTheSystemsCodePage) {
    const std::string bytes = "Gr\xC3\xBC\xC3\x9F \xE4\xB8\x96";
    const HWND dialog = OpenDialog(std::string(kThrows) + "trace = " + bytes);
    EXPECT_EQ(WindowText(Child(dialog, IDC_EXCEPTION_TRACE)), FromSystemCodePage(bytes));
    PressButton(dialog, IDOK);
    EXPECT_EQ(ExitCode(), 0);
}

TEST_F(JavaException, TraceOfSeveralHundredKilobytesIsNotTruncated) {
    std::string script = std::string(kThrows) + "trace = ";
    std::wstring trace;
    for (int line = 0; trace.size() < 300'000; ++line) {
        const std::string text = "at com.example.Deep.call(Deep.java:" + std::to_string(line) + ")";
        script += "\\t" + text + "\\r\\n";
        trace += L"\t" + FromUtf8(text) + L"\r\n";
    }
    const HWND dialog = OpenDialog(script);
    EXPECT_TRUE(WindowText(Child(dialog, IDC_EXCEPTION_TRACE)) == trace);
    PressButton(dialog, IDOK);
    EXPECT_EQ(ExitCode(), 0);
}

TEST_F(JavaException, TraceThatThrowsIsDescribedAndShownInPart) {
    const HWND dialog =
        OpenDialog(std::string(kThrows) + "trace = part\nprint_stack_trace = throw");
    EXPECT_EQ(WindowText(Child(dialog, IDC_EXCEPTION_TRACE)), L"part");
    EXPECT_EQ(app.Log().Count("ExceptionDescribe"), 1U);
    PressButton(dialog, IDOK);
    EXPECT_EQ(ExitCode(), 0);
}

TEST_F(JavaException, TextThatThrowsIsDescribedAndShowsNoDialog) {
    app.WriteScript(std::string(kThrows) + "throw CallObjectMethod");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(app.Log().Count("ExceptionDescribe"), 1U);
    EXPECT_EQ(app.Log().Count("GetStringUTFChars("), 0U);
}

/// A failure that leaves no trace to show.
struct MissingStep {
    const char* name;
    const char* script;
};

class MissingTrace : public JavaException, public testing::WithParamInterface<MissingStep> {};

TEST_P(MissingTrace, ShowsNoDialogAndCountsAsIgnore) {
    app.WriteScript(std::string(kThrows) + GetParam().script);
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(app.Log().Count("CallStaticVoidMethod(java/lang/System.exit"), 0U);
    EXPECT_EQ(app.Log().Count("DetachCurrentThread"), 1U);
}

INSTANTIATE_TEST_SUITE_P(
    Trace, MissingTrace,
    testing::Values(
        MissingStep{"BufferClassThrows", "no_class java/io/ByteArrayOutputStream"},
        MissingStep{"BufferClassFails", "no_class_silent java/io/ByteArrayOutputStream"},
        MissingStep{"BufferConstructorThrows", "no_method <init> ()V"},
        MissingStep{"BufferConstructorFails", "no_method_silent <init> ()V"},
        MissingStep{"BufferThrows", "throw NewObject 2"},
        MissingStep{"BufferFails", "fail NewObject 2"},
        MissingStep{"PrintStreamClassThrows", "no_class java/io/PrintStream"},
        MissingStep{"PrintStreamClassFails", "no_class_silent java/io/PrintStream"},
        MissingStep{"PrintStreamConstructorThrows", "no_method <init> (Ljava/io/OutputStream;)V"},
        MissingStep{"PrintStreamConstructorFails",
                    "no_method_silent <init> (Ljava/io/OutputStream;)V"},
        MissingStep{"PrintStreamThrows", "throw NewObject 3"},
        MissingStep{"PrintStreamFails", "fail NewObject 3"},
        MissingStep{"ExceptionsClassFails", "fail GetObjectClass 1"},
        MissingStep{"PrintStackTraceThrows", "no_method printStackTrace"},
        MissingStep{"PrintStackTraceFails", "no_method_silent printStackTrace"},
        MissingStep{"BuffersClassFails", "fail GetObjectClass 2"},
        MissingStep{"ToStringThrows", "no_method toString"},
        MissingStep{"ToStringFails", "no_method_silent toString"},
        MissingStep{"TextIsNull", "fail CallObjectMethod"},
        MissingStep{"CharactersThrow", "throw GetStringUTFChars"},
        MissingStep{"CharactersFail", "fail GetStringUTFChars"},
        MissingStep{"TraceIsEmpty", "trace ="}),
    [](const testing::TestParamInfo<MissingStep>& each) { return each.param.name; });

/// A failure of System.exit.
class FailedExit : public JavaException, public testing::WithParamInterface<MissingStep> {};

TEST_P(FailedExit, ContinuesAsAfterIgnore) {
    PressButton(OpenDialog(std::string(kThrows) + GetParam().script), IDCANCEL);
    EXPECT_EQ(ExitCode(), 0);
    EXPECT_EQ(app.Log().Count("DetachCurrentThread"), 1U);
}

INSTANTIATE_TEST_SUITE_P(
    Exit, FailedExit,
    testing::Values(MissingStep{"ClassThrows", "no_class java/lang/System"},
                    MissingStep{"ClassFails", "no_class_silent java/lang/System"},
                    MissingStep{"MethodThrows", "no_method exit"},
                    MissingStep{"MethodFails", "no_method_silent exit"},
                    MissingStep{"CallThrows", "throw CallStaticVoidMethod 2"},
                    MissingStep{"CallReturns", "system_exit = log came back"}),
    [](const testing::TestParamInfo<MissingStep>& each) { return each.param.name; });

TEST_F(JavaException, ExitThatThrowsIsDescribed) {
    PressButton(OpenDialog(std::string(kThrows) + "system_exit = throw"), IDCANCEL);
    EXPECT_EQ(ExitCode(), 0);
    EXPECT_EQ(app.Log().Count("ExceptionDescribe"), 1U);
}

TEST_F(JavaException, DialogThatCannotBeShownStops) {
    // A template with a window class that does not exist.
    std::vector<WORD> words(sizeof(DLGTEMPLATE) / sizeof(WORD), 0);
    words.push_back(0);  // no menu
    for (const char c : std::string("TarnNoSuchClass")) words.push_back(static_cast<WORD>(c));
    words.insert(words.end(), 4, 0);
    const HANDLE update = BeginUpdateResourceW(app.Executable().c_str(), FALSE);
    ASSERT_NE(update, nullptr);
    EXPECT_TRUE(UpdateResourceW(update, MAKEINTRESOURCEW(5) /* dialogs */,
                                MAKEINTRESOURCEW(IDD_JAVA_EXCEPTION),
                                MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), words.data(),
                                static_cast<DWORD>(words.size() * sizeof(WORD))));
    ASSERT_TRUE(EndUpdateResourceW(update, FALSE));
    app.WriteScript(kThrows);
    EXPECT_EQ(Run(), -1);
    EXPECT_TRUE(app.Log().Has("CallStaticVoidMethod(java/lang/System.exit(I)V, -1)"));
}

TEST_F(JavaException, DialogIsShownOnTheJavaThread) {
    const HWND dialog = OpenDialog();
    unsigned long javaThread = 0;
    for (const FakeJvmLog::Line& line : app.Log().Lines()) {
        if (line.text.find("CallStaticVoidMethod(com/example/Main.main") == 0)
            javaThread = line.thread;
    }
    EXPECT_EQ(GetWindowThreadProcessId(dialog, nullptr), javaThread);
    PressButton(dialog, IDOK);
    EXPECT_EQ(ExitCode(), 0);
}

TEST_F(JavaException, HooksReturnAtOnceWithoutAListener) {
    app.WriteScript("main = call_exit_hook 5\nmain = call_abort_hook\n");
    EXPECT_EQ(Run(), 0);
    EXPECT_TRUE(app.Log().Has("exit hook returned"));
    EXPECT_TRUE(app.Log().Has("abort hook returned"));
}

}  // namespace
}  // namespace tarn::test
