#include "instance/hand_off.h"

#include <memory>
#include <new>

#include "base/ansi_text.h"
#include "base/thread.h"
#include "jvm/jni_util.h"

namespace tarn {
namespace {

struct Request {
    HandOffServer& server;
    DWORD senderThread;
};

DWORD WINAPI ServeRequest(void* parameter) noexcept {
    const std::unique_ptr<Request> request(static_cast<Request*>(parameter));
    return request->server.HandOff(request->senderThread) ? 0 : 1;
}

// Drops the request when memory or a thread is missing: the listener must stay available.
void Dispatch(HandOffServer& server, DWORD senderThread) {
    std::unique_ptr<Request> request(new (std::nothrow) Request{server, senderThread});
    if (request == nullptr) return;
    const UniqueHandle worker(CreateThread(nullptr, 0, ServeRequest, request.get(), 0, nullptr));
    if (worker) static_cast<void>(request.release());
}

}  // namespace

bool HandOffServer::HandOff(DWORD senderThread) {
    if (WaitForSingleObject(readyEvent_, INFINITE) != WAIT_OBJECT_0) return false;
    const std::optional<Application> application = ReadTarget();
    if (!application || application->javaVm == nullptr) return false;

    JNIEnv* env = nullptr;
    JavaVM* const javaVm = application->javaVm;
    if (javaVm->AttachCurrentThread(reinterpret_cast<void**>(&env), nullptr) != JNI_OK) {
        return false;
    }
    const bool done = CallSecondaryMain(env, application->ansiMainClass, senderThread);
    // Not with IBM runtimes: docs/developer/compatibility.md.
    if (application->detach) javaVm->DetachCurrentThread();
    return done;
}

void HandOffServer::Close() {
    AcquireSRWLockExclusive(&lock_);
    closed_ = true;
    ReleaseSRWLockExclusive(&lock_);
}

std::optional<HandOffServer::Application> HandOffServer::ReadTarget() {
    std::optional<Application> application;
    AcquireSRWLockExclusive(&lock_);
    if (!closed_) {
        const Settings& settings = target_.settings;
        application = Application{target_.javaVm, ToThreadAnsi(settings.mainClass),
                                  !IbmInPolicy(settings.policy)};
    }
    ReleaseSRWLockExclusive(&lock_);
    return application;
}

std::optional<std::vector<std::wstring>> HandOffServer::ReadArguments() {
    std::optional<std::vector<std::wstring>> arguments;
    AcquireSRWLockExclusive(&lock_);
    if (!closed_) {
        // Copied first: the next second instance may overwrite the area at any time.
        const auto area = block_.arguments;
        arguments = DecodeArguments(area);
    }
    ReleaseSRWLockExclusive(&lock_);
    return arguments;
}

bool HandOffServer::CallSecondaryMain(JNIEnv* env, const std::string& ansiMainClass,
                                      DWORD senderThread) {
    jclass const mainClass = env->FindClass(ansiMainClass.c_str());
    if (mainClass == nullptr) return false;

    bool returnsInt = false;
    jmethodID method = env->GetStaticMethodID(mainClass, "secondaryMain", "([Ljava/lang/String;)V");
    if (env->ExceptionCheck()) env->ExceptionClear();
    if (method == nullptr) {
        returnsInt = true;
        method = env->GetStaticMethodID(mainClass, "secondaryMain", "([Ljava/lang/String;)I");
    }
    if (method == nullptr) {
        if (env->ExceptionCheck()) env->ExceptionDescribe();
        return false;
    }

    const std::optional<std::vector<std::wstring>> arguments = ReadArguments();
    if (!arguments) return false;
    jobjectArray const array = MakeStringArray(env, *arguments);
    if (array == nullptr) return false;

    if (returnsInt) {
        const jint result = env->CallStaticIntMethod(mainClass, method, array);
        PostAnswer(senderThread, result);
    } else {
        // The second instance ends before the call: docs/developer/compatibility.md.
        PostAnswer(senderThread, 0);
        env->CallStaticVoidMethod(mainClass, method, array);
    }
    if (!env->ExceptionCheck()) return true;
    env->ExceptionDescribe();
    return false;
}

// The result is ignored: the thread may have ended, and its id comes from an untrusted message.
void HandOffServer::PostAnswer(DWORD senderThread, jint result) const {
    PostThreadMessageW(senderThread, messageId_, static_cast<WPARAM>(result), 0);
}

bool Listener::Start(HandOffServer& server, DWORD* threadId) {
    listenerThread_.reset(CreateThread(nullptr, 0, Listen, &server, 0, threadId));
    return static_cast<bool>(listenerThread_);
}

void Listener::Stop() {
    if (!listenerThread_) return;
    // Not with the id in the shared block, which other processes can change.
    QuitAndJoin(listenerThread_.get(), 0);
    listenerThread_.reset();
}

DWORD WINAPI Listener::Listen(void* parameter) noexcept {
    HandOffServer& server = *static_cast<HandOffServer*>(parameter);
    MSG message;
    while (const BOOL result = GetMessageW(&message, nullptr, 0, 0)) {
        // -1 is an error without a message; the listener continues.
        if (result > 0 && message.message == server.messageId()) {
            Dispatch(server, static_cast<DWORD>(message.wParam));
        }
    }
    return 0;
}

}  // namespace tarn
