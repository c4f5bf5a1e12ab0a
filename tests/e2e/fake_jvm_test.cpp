// The scripted jvm.dll, called directly in the test's process.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <jni.h>

#include "tests/support/installed_application.h"
#include "tests/support/paths.h"
#include "tests/support/text.h"

namespace tarn::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ScriptedJvm : public testing::Test {
  protected:
    using Create = jint(JNICALL*)(JavaVM**, void**, void*);
    using FindBootClass = jclass(JNICALL*)(JNIEnv*, const char*);

    void SetUp() override {
        SetEnvironmentVariableW(L"FAKE_JVM_LOG", app_.LogFile().c_str());
        SetEnvironmentVariableW(L"FAKE_JVM_SCRIPT",
                                app_.environment.at(L"FAKE_JVM_SCRIPT")->c_str());
    }

    void TearDown() override { FreeLibrary(library_); }

    // Reads the script and returns the VM; its options are one text and the two hooks' names.
    jint CreateVm(std::string_view script) {
        app_.WriteScript(script);
        library_ = LoadLibraryW((GetPaths().fakeJvms + L"\\full\\jvm.dll").c_str());
        const auto create = reinterpret_cast<Create>(
            reinterpret_cast<void*>(GetProcAddress(library_, "JNI_CreateJavaVM")));
        std::string text = "-Dname=\xE9\"\\";
        std::string abortName = "abort";
        std::string exitName = "exit";
        JavaVMOption options[] = {
            {text.data(), nullptr}, {abortName.data(), this}, {exitName.data(), this}};
        JavaVMInitArgs arguments{0x10002, 3, options, JNI_FALSE};
        return create(&vm_, reinterpret_cast<void**>(&env_), &arguments);
    }

    InstalledApplication app_;
    HMODULE library_ = nullptr;
    JavaVM* vm_ = nullptr;
    JNIEnv* env_ = nullptr;
};

TEST_F(ScriptedJvm, LogsCreationAndCallsWithTheirArguments) {
    ASSERT_EQ(CreateVm("main = log inside"), JNI_OK);
    const jclass mainClass = env_->FindClass("com/example/Main");
    const jmethodID method = env_->GetStaticMethodID(mainClass, "main", "([Ljava/lang/String;)V");
    const jclass stringClass = env_->FindClass("java/lang/String");
    const jobjectArray array = env_->NewObjectArray(2, stringClass, nullptr);
    const jcharArray units = env_->NewCharArray(2);
    const jchar pair[] = {0xD83D, 0xDE00};
    env_->SetCharArrayRegion(units, 0, 2, pair);
    const jmethodID constructor = env_->GetMethodID(stringClass, "<init>", "([C)V");
    const jobject text = env_->NewObject(stringClass, constructor, units);
    env_->DeleteLocalRef(units);
    env_->SetObjectArrayElement(array, 1, text);
    env_->CallStaticVoidMethod(mainClass, method, array);
    vm_->DetachCurrentThread();

    const FakeJvmLog log = app_.Log();
    EXPECT_TRUE(log.Has("JNI_CreateJavaVM(version=0x10002, options=3, ignoreUnrecognized=false)"));
    EXPECT_THAT(log.Options(), ElementsAre(R"("-Dname=\xE9"\")"));
    EXPECT_TRUE(log.Has("option 2 \"exit\" with extraInfo"));
    EXPECT_TRUE(log.Has("inside"));
    EXPECT_THAT(log.Violations(), IsEmpty());
    EXPECT_THAT(
        log.Calls(),
        ElementsAre(
            "FindClass(\"com/example/Main\")",
            "GetStaticMethodID(class com/example/Main, \"main\", \"([Ljava/lang/String;)V\")",
            "FindClass(\"java/lang/String\")", "NewObjectArray(2, class java/lang/String, null)",
            "NewCharArray(2)", "SetCharArrayRegion(0, 2, \"\xF0\x9F\x98\x80\")",
            "GetMethodID(class java/lang/String, \"<init>\", \"([C)V\")",
            "NewObject(java/lang/String.<init>([C)V, char[2])",
            "SetObjectArrayElement(1, \"\xF0\x9F\x98\x80\")",
            "CallStaticVoidMethod(com/example/Main.main([Ljava/lang/String;)V, "
            "[null, \"\xF0\x9F\x98\x80\"])",
            "DetachCurrentThread()"));
}

TEST_F(ScriptedJvm, FailsAndThrowsOnDemand) {
    ASSERT_EQ(CreateVm("fail NewCharArray 2\nthrow FindClass 1\nno_class a/B\nno_method m ()V"),
              JNI_OK);
    EXPECT_EQ(env_->FindClass("x/Y"), nullptr);
    EXPECT_TRUE(env_->ExceptionCheck());
    env_->ExceptionClear();
    EXPECT_NE(env_->NewCharArray(1), nullptr);
    EXPECT_EQ(env_->NewCharArray(1), nullptr);
    EXPECT_FALSE(env_->ExceptionCheck());
    EXPECT_EQ(env_->FindClass("a/B"), nullptr);
    EXPECT_TRUE(env_->ExceptionCheck());
    env_->ExceptionDescribe();
    EXPECT_FALSE(env_->ExceptionCheck());
    const jclass other = env_->FindClass("a/C");
    EXPECT_NE(env_->GetStaticMethodID(other, "m", "()I"), nullptr);
    EXPECT_EQ(env_->GetStaticMethodID(other, "m", "()V"), nullptr);
    EXPECT_TRUE(app_.Log().Has("FindClass(\"x/Y\") throws"));
    EXPECT_TRUE(app_.Log().Has("NewCharArray(1) fails"));
    EXPECT_THAT(app_.Log().Violations(), IsEmpty());
}

TEST_F(ScriptedJvm, LogsViolations) {
    ASSERT_EQ(CreateVm("throw FindClass 1"), JNI_OK);
    env_->FindClass("x/Y");
    env_->FindClass("x/Z");
    env_->ExceptionClear();
    const jobject local = env_->NewStringUTF("gone");
    env_->DeleteLocalRef(local);
    env_->DeleteLocalRef(local);
    EXPECT_NE(env_->GetObjectClass(local), nullptr);
    vm_->DetachCurrentThread();
    env_->FindClass("x/A");
    EXPECT_THAT(app_.Log().Violations(),
                ElementsAre(HasSubstr("FindClass with an exception pending"),
                            HasSubstr("second deletion of a reference to \"gone\""),
                            HasSubstr("use of a deleted reference to \"gone\""),
                            HasSubstr("FindClass on a thread that is not attached")));
}

TEST_F(ScriptedJvm, ReturnsTheScriptedResultOfCreation) {
    EXPECT_EQ(CreateVm("create = -4"), -4);
    EXPECT_EQ(env_, nullptr);
    EXPECT_THAT(app_.Log().Texts(), Contains("JNI_CreateJavaVM returns -4"));
}

}  // namespace
}  // namespace tarn::test
