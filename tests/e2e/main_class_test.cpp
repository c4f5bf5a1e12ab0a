// Finding the main class and calling main: the JNI calls in order, and the result when one of them
// fails.

#include "tests/support/fake_jvm_fixture.h"

namespace tarn::test {
namespace {

using testing::Contains;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

using Calls = std::vector<std::string>;

Calls operator+(Calls left, const Calls& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

// The calls that create a Java string.
Calls MakeString(const std::string& text) {
    const std::string length = std::to_string(text.size());
    return {"FindClass(\"java/lang/String\")",
            "GetMethodID(class java/lang/String, \"<init>\", \"([C)V\")",
            "NewCharArray(" + length + ')',
            "SetCharArrayRegion(0, " + length + ", \"" + text + "\")",
            "NewObject(java/lang/String.<init>([C)V, char[" + length + "])"};
}

const Calls kFindHelper = {"JVM_FindClassFromBootLoader(\"sun/launcher/LauncherHelper\")"};
const Calls kFindLoad = {
    "GetStaticMethodID(class sun/launcher/LauncherHelper, \"checkAndLoadMain\", "
    "\"(ZILjava/lang/String;)Ljava/lang/Class;\")"};
const Calls kLoad = MakeString("com.example.Main") +
                    Calls{
                        "CallStaticObjectMethod(sun/launcher/LauncherHelper.checkAndLoadMain"
                        "(ZILjava/lang/String;)Ljava/lang/Class;, true, 1, \"com.example.Main\")"};
const Calls kFallBack =
    MakeString("com/example/Main") + Calls{"GetStringUTFChars(\"com/example/Main\")",
                                           "FindClass(\"com/example/Main\")",
                                           "ReleaseStringUTFChars(\"com/example/Main\")"};
const Calls kMain = {
    "GetStaticMethodID(class com/example/Main, \"main\", \"([Ljava/lang/String;)V\")",
    "FindClass(\"java/lang/String\")", "NewObjectArray(0, class java/lang/String, null)",
    "CallStaticVoidMethod(com/example/Main.main([Ljava/lang/String;)V, [])"};
const Calls kDetach = {"DetachCurrentThread()"};
const Calls kClear = {"ExceptionClear()"};

class MainClass : public FakeJvmFixture {
  protected:
    /// Runs with the script, expects success and compares all calls.
    void ExpectCalls(std::string_view script, const Calls& expected) {
        app.WriteScript(script);
        EXPECT_EQ(Run(), 0);
        EXPECT_THAT(app.Log().Calls(), ElementsAreArray(expected));
    }

    bool MainWasCalled() const { return app.Log().Count("CallStaticVoidMethod") != 0; }
};

TEST_F(MainClass, IsLoadedByTheRuntimesHelper) {
    ExpectCalls("", kFindHelper + kFindLoad + kLoad + kMain + kDetach);
}

TEST_F(MainClass, MayBeWrittenWithSlashes) {
    settings.Runtime(L"Main Class", L"com/example/Main");
    ExpectCalls("", kFindHelper + kFindLoad + kLoad + kMain + kDetach);
}

TEST_F(MainClass, IsFoundWithoutTheBootLoaderEntry) {
    app.AddRuntime(L"jre", kJvmWithoutBootLoader);
    ExpectCalls("", kFallBack + kMain + kDetach);
}

TEST_F(MainClass, IsFoundWithoutTheHelperClass) {
    ExpectCalls("no_boot_class sun/launcher/LauncherHelper",
                kFindHelper + kFallBack + kMain + kDetach);
}

TEST_F(MainClass, IsFoundWhenFindingTheHelperThrows) {
    ExpectCalls("throw JVM_FindClassFromBootLoader",
                Calls{"JVM_FindClassFromBootLoader(\"sun/launcher/LauncherHelper\") throws",
                      "ExceptionClear()"} +
                    kFallBack + kMain + kDetach);
}

TEST_F(MainClass, IsFoundWithoutTheHelpersMethod) {
    ExpectCalls("no_method_silent checkAndLoadMain",
                kFindHelper + kFindLoad + kFallBack + kMain + kDetach);
}

TEST_F(MainClass, IsFoundWhenFindingTheHelpersMethodThrows) {
    ExpectCalls("no_method checkAndLoadMain",
                kFindHelper + kFindLoad + kClear + kFallBack + kMain + kDetach);
}

TEST_F(MainClass, IsFoundWhenTheHelperReturnsNull) {
    ExpectCalls("load_and_main = null",
                kFindHelper + kFindLoad + kLoad + kFallBack + kMain + kDetach);
}

TEST_F(MainClass, IsFoundWhenTheHelperThrows) {
    ExpectCalls("load_and_main = throw",
                kFindHelper + kFindLoad + kLoad + kClear + kFallBack + kMain + kDetach);
}

TEST_F(MainClass, IsFoundWithoutAStringForTheHelper) {
    for (const char* script :
         {"fail NewCharArray 1", "throw NewCharArray 1", "throw NewObject 1",
          "throw SetCharArrayRegion 1", "throw FindClass 1", "throw GetMethodID 1"}) {
        SCOPED_TRACE(script);
        DeleteFileW(app.LogFile().c_str());
        app.WriteScript(script);
        EXPECT_EQ(Run(), 0);
        EXPECT_THAT(app.Log().Calls(), Not(Contains(StartsWith("CallStaticObjectMethod"))));
        EXPECT_THAT(app.Log().Calls(), Contains("FindClass(\"com/example/Main\")"));
        EXPECT_TRUE(MainWasCalled());
    }
}

TEST_F(MainClass, WithoutAStringForItsNameIsReported) {
    app.WriteScript("fail NewCharArray");
    EXPECT_EQ(RunWithErrorBox(L"Failed to load Main Class: com/example/Main.\n"), -1);
    EXPECT_FALSE(MainWasCalled());
}

TEST_F(MainClass, WhoseNameCannotBeReadIsDescribedOnly) {
    app.WriteScript("load_and_main = null\nthrow GetStringUTFChars");
    EXPECT_EQ(Run(), -1);
    EXPECT_THAT(app.Log().Calls().back(), "ExceptionDescribe()");
    EXPECT_THAT(ReadFileBytes(app.ErrorFile()), HasSubstr("OutOfMemoryError"));
}

TEST_F(MainClass, ThatIsMissingIsDescribedAndReported) {
    app.WriteScript("load_and_main = null\nno_class com/example/Main");
    EXPECT_EQ(RunWithErrorBox(L"Could not find the main class com/example/Main.\n"), -1);
    EXPECT_THAT(app.Log().Calls(), Contains("ExceptionDescribe()"));
    EXPECT_THAT(ReadFileBytes(app.ErrorFile()),
                HasSubstr("NoClassDefFoundError: com/example/Main"));
}

TEST_F(MainClass, ThatIsMissingIsReportedWithLettersOfAnyScript) {
    settings.Runtime(L"Main Class", L"a.\u8A66\xD83D\xDE00");
    app.WriteScript("load_and_main = null\nfail FindClass 3");
    EXPECT_EQ(RunWithErrorBox(L"Could not find the main class a/\u8A66\xD83D\xDE00.\n"), -1);
}

TEST_F(MainClass, WithALongNameIsReportedCompletely) {
    const std::wstring name = Repeated(L"n", 700);
    settings.Runtime(L"Main Class", name);
    app.WriteScript("load_and_main = null\nfail FindClass 3");
    EXPECT_EQ(RunWithErrorBox(L"Could not find the main class " + name + L".\n"), -1);
}

TEST_F(MainClass, WithoutMainIsReportedWhenNoExceptionIsPending) {
    app.WriteScript("no_method_silent main");
    EXPECT_EQ(RunWithErrorBox(L"No main method found in specified class.\n"), -1);
    EXPECT_THAT(app.Log().Calls(), Not(Contains("ExceptionDescribe()")));
}

TEST_F(MainClass, WithoutMainIsDescribedOnlyWhenAnExceptionIsPending) {
    app.WriteScript("no_method main");
    EXPECT_EQ(Run(), -1);
    EXPECT_EQ(app.Log().Calls().back(), "ExceptionDescribe()");
    EXPECT_THAT(ReadFileBytes(app.ErrorFile()), HasSubstr("NoSuchMethodError: main"));
}

TEST_F(MainClass, IsNotRunWithoutItsArguments) {
    for (const char* script :
         {"throw NewObjectArray", "fail NewObjectArray", "throw NewCharArray 2",
          "throw NewObject 3", "throw SetObjectArrayElement 2", "throw FindClass 2"}) {
        SCOPED_TRACE(script);
        DeleteFileW(app.LogFile().c_str());
        app.WriteScript(script);
        EXPECT_EQ(Run(L"one two"), -1);
        EXPECT_FALSE(MainWasCalled());
        EXPECT_EQ(app.Log().Calls().back(), "ExceptionDescribe()");
    }
}

}  // namespace
}  // namespace tarn::test
