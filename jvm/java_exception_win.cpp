#include "jvm/java_exception.h"

#include <string>

#include "base/ansi_text.h"
#include "base/windows.h"
#include "jvm/jni_util.h"
#include "resources/ids.h"
#include "ui/geometry/anchored_layout.h"

namespace tarn {
namespace {

// `EM_SETEXTENDEDSTYLE` and `ES_EX_ALLOWEOL_ALL` of newer SDKs: a line feed alone ends a line.
constexpr UINT kEmSetExtendedStyle = 0x150A;
constexpr WPARAM kEsExAllowEolAll = 0x0003;

// Posted when the monitor's scale changes: the dialog manager then places the controls itself, and
// the layout must follow it.
constexpr UINT kLayOutAgain = WM_APP;

class JavaExceptionDialog {
  public:
    explicit JavaExceptionDialog(const std::wstring& trace) : trace_(trace) {}
    JavaExceptionDialog(const JavaExceptionDialog&) = delete;
    JavaExceptionDialog& operator=(const JavaExceptionDialog&) = delete;

    // Returns the id of the button that ended the dialog, -1 when it could not be created.
    INT_PTR Show(HWND owner) {
        return DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_JAVA_EXCEPTION),
                               owner, &Procedure, reinterpret_cast<LPARAM>(this));
    }

  private:
    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam,
                                      LPARAM lParam) noexcept {
        if (message == WM_INITDIALOG) SetWindowLongPtrW(window, DWLP_USER, lParam);
        auto* const dialog =
            reinterpret_cast<JavaExceptionDialog*>(GetWindowLongPtrW(window, DWLP_USER));
        // Some messages arrive before WM_INITDIALOG, which carries the object. Without the object
        // the dialog would never end.
        if (dialog == nullptr) return message == WM_INITDIALOG ? EndDialog(window, -1) : FALSE;
        return dialog->Handle(window, message, wParam, lParam) ? TRUE : FALSE;
    }

    bool Handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        switch (message) {
            case WM_INITDIALOG:
                Fill(window);
                return true;
            case WM_COMMAND:
                // Escape and the close box send IDCANCEL.
                if (LOWORD(wParam) != IDOK && LOWORD(wParam) != IDCANCEL) return false;
                EndDialog(window, LOWORD(wParam));
                return true;
            case WM_GETMINMAXINFO:
                controls_.LimitSize(*reinterpret_cast<MINMAXINFO*>(lParam));
                return true;
            case WM_SIZE:
                if (wParam != SIZE_MINIMIZED) controls_.LayOut();
                return true;
            case WM_DPICHANGED:
                PostMessageW(window, kLayOutAgain, 0, 0);
                return false;
            case kLayOutAgain:
                controls_.LayOut();
                return true;
            default:
                return false;
        }
    }

    void Fill(HWND window) {
        // The taskbar button shows the application's icon.
        const auto icon = reinterpret_cast<LPARAM>(
            LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_LAUNCHER)));
        SendMessageW(window, WM_SETICON, ICON_BIG, icon);
        SendMessageW(window, WM_SETICON, ICON_SMALL, icon);
        SendDlgItemMessageW(window, IDC_EXCEPTION_ICON, STM_SETICON,
                            reinterpret_cast<WPARAM>(LoadIconW(nullptr, IDI_ERROR)), 0);
        const HWND edit = GetDlgItem(window, IDC_EXCEPTION_TRACE);
        SendMessageW(edit, EM_SETLIMITTEXT, 0, 0);  // the largest possible size
        // Java ends lines with CR and LF on Windows, but an exception's message may contain LF
        // only.
        SendMessageW(edit, kEmSetExtendedStyle, kEsExAllowEolAll, kEsExAllowEolAll);
        const UINT tabStop = 16;  // dialog units; the default is 32
        SendMessageW(edit, EM_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&tabStop));
        SetWindowTextW(edit, trace_.c_str());
        SendMessageW(edit, EM_SETREADONLY, TRUE, 0);

        controls_.Begin(window);
        const Anchor corner{.movesRight = true, .movesDown = true};
        const Anchor area{.growsRight = true, .growsDown = true};
        const Anchor lineAbove{.growsRight = true};
        const Anchor lineBelow{.movesDown = true, .growsRight = true};
        controls_.Add(IDOK, corner);
        controls_.Add(IDCANCEL, corner);
        controls_.Add(IDC_EXCEPTION_GRIP, corner);
        controls_.Add(IDC_EXCEPTION_FRAME, area);
        controls_.Add(IDC_EXCEPTION_TRACE, area);
        controls_.Add(IDC_EXCEPTION_ICON, {});
        controls_.Add(IDC_EXCEPTION_THROWN, lineAbove);
        controls_.Add(IDC_EXCEPTION_CHOICE, lineBelow);
        controls_.Add(IDC_EXCEPTION_WARNING, lineBelow);
    }

    const std::wstring& trace_;
    AnchoredControls controls_;
};

jmethodID FindMethod(JNIEnv* env, jobject object, const char* name, const char* signature) {
    const jclass type = env->GetObjectClass(object);
    return type != nullptr ? env->GetMethodID(type, name, signature) : nullptr;
}

// False when the method is missing. An exception thrown by the method is only described: what it
// has printed by then is still shown.
bool PrintStackTrace(JNIEnv* env, jthrowable exception, jobject stream) {
    const jmethodID print =
        FindMethod(env, exception, "printStackTrace", "(Ljava/io/PrintStream;)V");
    if (print == nullptr) return false;
    env->CallVoidMethod(exception, print, stream);
    DescribePending(env);
    return true;
}

jstring CallToString(JNIEnv* env, jobject object) {
    const jmethodID toString = FindMethod(env, object, "toString", "()Ljava/lang/String;");
    if (toString == nullptr) return nullptr;
    const jobject text = env->CallObjectMethod(object, toString);
    DescribePending(env);
    return static_cast<jstring>(text);
}

// What `printStackTrace` prints; empty on any failure. No exception may be pending.
std::wstring ExceptionTrace(JNIEnv* env, jthrowable exception) {
    const jobject buffer = NewJavaObject(env, "java/io/ByteArrayOutputStream", "()V");
    if (buffer == nullptr) return {};
    const jobject stream = NewPrintStream(env, buffer);
    if (stream == nullptr || !PrintStackTrace(env, exception, stream)) return {};
    const jstring text = CallToString(env, buffer);
    if (text == nullptr) return {};
    const char* characters = env->GetStringUTFChars(text, nullptr);
    if (characters == nullptr) return {};
    // Modified UTF-8 read as ANSI text: docs/developer/compatibility.md.
    std::wstring trace = FromThreadAnsi(characters);
    env->ReleaseStringUTFChars(text, characters);
    return trace;
}

bool UserStops(JNIEnv* env, jthrowable exception) {
    const std::wstring trace = ExceptionTrace(env, exception);
    return !trace.empty() && ShowJavaException(trace) == JavaExceptionAnswer::Stop;
}

// Calls `System.exit`, which runs the shutdown hooks and ends the process. Returns on a failure
// only. No exception may be pending.
void ExitJavaApplication(JNIEnv* env, jint code) {
    CallSystemMethod(env, "exit", "(I)V", code);
    DescribePending(env);
}

}  // namespace

void HandleUncaughtException(JNIEnv* env, bool failureCheck) {
    if (!failureCheck) return;
    // JNI allows no calls of methods while an exception is pending.
    const jthrowable exception = env->ExceptionOccurred();
    if (exception == nullptr) return;
    env->ExceptionClear();
    if (UserStops(env, exception)) ExitJavaApplication(env, -1);
}

JavaExceptionAnswer ShowJavaException(const std::wstring& trace) {
    const INT_PTR result = JavaExceptionDialog(trace).Show(GetActiveWindow());
    if (result == -1) SetLastError(ERROR_OUTOFMEMORY);
    return result == IDOK ? JavaExceptionAnswer::Ignore : JavaExceptionAnswer::Stop;
}

}  // namespace tarn
