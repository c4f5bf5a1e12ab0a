#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "tools/common/child_process.h"
#include "tools/common/failure.h"

namespace tarn::tools {
namespace {

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

// In the child between fork and exec: only calls that are safe after a signal.
[[noreturn]] void Execute(char** words, const char* folder, int output, int failure) {
    const int input = open("/dev/null", O_RDONLY);
    const bool isReady = input >= 0 && dup2(input, STDIN_FILENO) >= 0 &&
                         dup2(output, STDOUT_FILENO) >= 0 && dup2(output, STDERR_FILENO) >= 0 &&
                         (*folder == '\0' || chdir(folder) == 0);
    if (isReady) execvp(words[0], words);
    // The parent learns of it from any byte at all.
    static_cast<void>(!write(failure, "!", 1));
    _exit(127);
}

}  // namespace

ProcessResult RunProgram(const std::filesystem::path& program,
                         const std::vector<std::string>& arguments,
                         const std::filesystem::path& workingFolder) {
    std::vector<std::string> texts = {program.string()};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> words;
    words.reserve(texts.size() + 1);
    for (std::string& text : texts) words.push_back(text.data());
    words.push_back(nullptr);

    std::array<int, 2> pipes = {-1, -1};
    if (pipe(pipes.data()) != 0) throw Failure(program, "cannot be started");
    const Descriptor output(pipes[0]);
    Descriptor childOutput(pipes[1]);
    if (pipe(pipes.data()) != 0) throw Failure(program, "cannot be started");
    const Descriptor failure(pipes[0]);
    Descriptor childFailure(pipes[1]);
    for (const int descriptor :
         {output.Get(), childOutput.Get(), failure.Get(), childFailure.Get()}) {
        fcntl(descriptor, F_SETFD, FD_CLOEXEC);
    }

    const pid_t child = fork();
    if (child < 0) throw Failure(program, "cannot be started");
    if (child == 0) {
        Execute(words.data(), workingFolder.c_str(), childOutput.Get(), childFailure.Get());
    }
    childOutput.Close();
    childFailure.Close();
    ProcessResult result;
    result.isStarted = ReadToEnd(failure).empty();
    result.output = ReadToEnd(output);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) continue;
    if (WIFEXITED(status)) result.exitCode = WEXITSTATUS(status);
    return result;
}

ProcessResult RunShellCommand(const std::string& command, const std::filesystem::path& file) {
    return RunProgram("sh", {"-c", command + " \"$0\"", file.string()});
}

}  // namespace tarn::tools
