#include "tools/explain/program_file.h"

#include "resources/ids.h"
#include "tools/common/failure.h"
#include "ui/messages/message_text.h"

namespace tarn::tools {
namespace {

std::wstring FullPath(const std::wstring& path) {
    const DWORD size = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    std::wstring full(size, L'\0');
    full.resize(GetFullPathNameW(path.c_str(), size, full.data(), nullptr));
    return full;
}

}  // namespace

ProgramFile::ProgramFile(const std::filesystem::path& path) {
    program_.path = FullPath(path.wstring());
    image_.reset(LoadLibraryExW(program_.path.c_str(), nullptr,
                                LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE));
    if (!image_) {
        const DWORD error = GetLastError();
        if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND) {
            throw Failure(path, "does not exist; specify the application's executable");
        }
        throw Failure(path, "is not a readable Windows executable (error " + std::to_string(error) +
                                "); specify the application's executable");
    }
    program_.module = image_.get();
    OverrideProgram(&program_);
}

ProgramFile::~ProgramFile() {
    OverrideProgram(nullptr);
}

bool ProgramFile::IsLauncher() const {
    return !LoadMessageText(IDS_JRE_NOT_FOUND).empty();
}

}  // namespace tarn::tools
