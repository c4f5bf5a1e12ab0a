#include "tools/wrap/runtime_folder.h"

#include <gmock/gmock.h>

#include "tools/common/failure.h"
#include "tools/common/folder_fixture.h"
#include "tools/image/small_executable.h"

namespace tarn::tools {
namespace {

using testing::HasSubstr;

class RuntimeFolder : public FolderTest {
  protected:
    std::string Problem() const {
        try {
            CheckRuntime(folder_);
        } catch (const Failure& failure) {
            return failure.what();
        }
        return "";
    }
};

TEST_F(RuntimeFolder, IsAcceptedFor64BitWindows) {
    EXPECT_THAT(Problem(), HasSubstr("contains no Java runtime"));
    SmallExecutable library({".text"});
    Put("bin/client/jvm.dll", library.Content());
    EXPECT_EQ(Problem(), "");
    Put("bin/server/jvm.dll", library.Set16(SmallExecutable::kPeHeader + 4, 0x14C).Content());
    EXPECT_THAT(Problem(), HasSubstr("64-bit"));
    Put("bin/server/jvm.dll", "text");
    EXPECT_THAT(Problem(), HasSubstr("not a Windows executable"));
}

TEST_F(RuntimeFolder, IsRejectedForAnotherSystem) {
    Put("lib/server/libjvm.so", "x");
    EXPECT_THAT(Problem(), HasSubstr("another system"));
}

}  // namespace
}  // namespace tarn::tools
