#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <thread>

#include "tools/common/child_process.h"
#include "tools/common/failure.h"

namespace tarn::tools {
namespace {

// POSIX cannot wait for the end of a program with a timeout, so its state is polled.
constexpr std::chrono::milliseconds kPollInterval(20);

class Descriptor {
  public:
    explicit Descriptor(int descriptor) : descriptor_(descriptor) {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Get() const { return descriptor_; }
    void Close() {
        if (descriptor_ >= 0) close(descriptor_);
        descriptor_ = -1;
    }

  private:
    int descriptor_;
};

std::string ReadToEnd(const Descriptor& descriptor) {
    std::string text;
    std::array<char, 4096> part;
    for (;;) {
        const ssize_t size = read(descriptor.Get(), part.data(), part.size());
        if (size < 0 && errno == EINTR) continue;
        if (size <= 0) return text;
        text.append(part.data(), static_cast<std::size_t>(size));
    }
}

struct Pipe {
    Descriptor reading;
    Descriptor writing;
};

// A program that is started inherits neither end.
Pipe OpenPipe(const std::filesystem::path& program) {
    std::array<int, 2> ends = {-1, -1};
    if (pipe(ends.data()) != 0) throw Failure(program, "cannot be started");
    for (const int end : ends) fcntl(end, F_SETFD, FD_CLOEXEC);
    return {Descriptor(ends[0]), Descriptor(ends[1])};
}

// In the child between fork and exec: only calls that are safe after a signal.
[[noreturn]] void Execute(char** words, const char* folder, int output, int failure) {
    const int input = open("/dev/null", O_RDONLY);
    const bool isReady = input >= 0 && dup2(input, STDIN_FILENO) >= 0 &&
                         dup2(output, STDOUT_FILENO) >= 0 && dup2(output, STDERR_FILENO) >= 0 &&
                         (*folder == '\0' || chdir(folder) == 0);
    if (isReady) execv(words[0], words);
    // The parent learns of it from any byte at all.
    static_cast<void>(!write(failure, "!", 1));
    _exit(127);
}

struct Child {
    pid_t id;
    bool isStarted;
};

// Starts a program whose output goes to `output`.
Child Start(const std::filesystem::path& program, const std::vector<std::string>& arguments,
            const std::filesystem::path& workingFolder, const Descriptor& output) {
    std::vector<std::string> texts = {FindProgram(program).string()};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> words;
    words.reserve(texts.size() + 1);
    for (std::string& text : texts) words.push_back(text.data());
    words.push_back(nullptr);

    Pipe failure = OpenPipe(program);
    const pid_t child = fork();
    if (child < 0) throw Failure(program, "cannot be started");
    if (child == 0) {
        Execute(words.data(), workingFolder.c_str(), output.Get(), failure.writing.Get());
    }
    failure.writing.Close();
    return {child, ReadToEnd(failure.reading).empty()};
}

// Whether the child has ended; with `options` 0, waits until it has.
bool TakeExitCode(const Child& child, int options, ProcessResult& result) {
    int status = 0;
    pid_t ended = 0;
    do ended = waitpid(child.id, &status, options);
    while (ended < 0 && errno == EINTR);
    if (ended == child.id && WIFEXITED(status)) result.exitCode = WEXITSTATUS(status);
    return ended != 0;
}

}  // namespace

ProcessResult RunProgram(const std::filesystem::path& program,
                         const std::vector<std::string>& arguments,
                         const std::filesystem::path& workingFolder) {
    Pipe output = OpenPipe(program);
    const Child child = Start(program, arguments, workingFolder, output.writing);
    output.writing.Close();
    ProcessResult result;
    result.isStarted = child.isStarted;
    result.output = ReadToEnd(output.reading);
    TakeExitCode(child, 0, result);
    return result;
}

ProcessResult RunSilently(const std::filesystem::path& program,
                          const std::vector<std::string>& arguments,
                          const std::filesystem::path& workingFolder,
                          std::chrono::milliseconds timeLimit) {
    const Descriptor nowhere(open("/dev/null", O_WRONLY | O_CLOEXEC));
    const auto end = std::chrono::steady_clock::now() + timeLimit;
    const Child child = Start(program, arguments, workingFolder, nowhere);
    ProcessResult result;
    result.isStarted = child.isStarted;
    while (!TakeExitCode(child, WNOHANG, result)) {
        result.isTimedOut = std::chrono::steady_clock::now() >= end;
        if (result.isTimedOut) {
            kill(child.id, SIGKILL);
            TakeExitCode(child, 0, result);
            break;
        }
        std::this_thread::sleep_for(kPollInterval);
    }
    return result;
}

ProcessResult RunShellCommand(const std::string& command, const std::filesystem::path& file) {
    return RunProgram("/bin/sh", {"-c", command + " \"$0\"", file.string()});
}

}  // namespace tarn::tools
