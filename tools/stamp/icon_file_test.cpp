#include "tools/stamp/icon_file.h"

#include <gmock/gmock.h>

#include "tools/common/failure.h"
#include "tools/common/folder_fixture.h"

namespace tarn::tools {
namespace {

using testing::HasSubstr;
using testing::Not;

class IconFileTest : public FolderTest {
  protected:
    std::string ProblemOf(const char* name, std::string_view content) const {
        try {
            ReadIconFile(Put(name, content));
        } catch (const Failure& failure) {
            return failure.what();
        }
        return "";
    }
};

TEST_F(IconFileTest, TellsHowToConvertADrawing) {
    for (const char* const text : {"<svg xmlns=\"http://www.w3.org/2000/svg\"/>",
                                   "<?xml version=\"1.0\"?>\n<!-- c -->\n<svg></svg>"}) {
        const std::string problem = ProblemOf("icon.svg", text);
        EXPECT_THAT(problem, HasSubstr("icon.svg: is an SVG drawing"));
        EXPECT_THAT(problem, HasSubstr("rsvg-convert"));
        EXPECT_THAT(problem, HasSubstr("icon.png\""));
    }
}

TEST_F(IconFileTest, NamesTheFileOfAnotherFormat) {
    const std::string problem = ProblemOf("icon.svg", "text");
    EXPECT_THAT(problem, HasSubstr("icon.svg: "));
    EXPECT_THAT(problem, Not(HasSubstr("drawing")));
}

}  // namespace
}  // namespace tarn::tools
