#include "tools/explain/jvm_report.h"

#include <gtest/gtest.h>

namespace tarn::tools {
namespace {

TEST(EmptyClassPathElementTest, IsFoundAtTheEndAndInside) {
    EXPECT_TRUE(HasEmptyClassPathElement({"-Djava.class.path=a.jar;"}));
    EXPECT_TRUE(HasEmptyClassPathElement({"-Djava.class.path=a.jar;;b.jar"}));
    EXPECT_TRUE(HasEmptyClassPathElement({"-Djava.class.path=;a.jar"}));
    EXPECT_TRUE(HasEmptyClassPathElement({"-Djava.class.path="}));
    EXPECT_FALSE(HasEmptyClassPathElement({"-Djava.class.path=a.jar;b.jar"}));
    EXPECT_FALSE(HasEmptyClassPathElement({"-Xmx1g"}));
}

TEST(EmptyClassPathElementTest, CountsInTheLastDefinition) {
    EXPECT_FALSE(HasEmptyClassPathElement({"-Djava.class.path=a.jar;", "-Djava.class.path=b.jar"}));
}

}  // namespace
}  // namespace tarn::tools
