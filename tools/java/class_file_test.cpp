#include "tools/java/class_file.h"

#include <gmock/gmock.h>

#include "tools/common/whole_file.h"
#include "tools/java/class_of.h"

namespace tarn::tools {
namespace {

using testing::ElementsAre;

std::optional<ClassFile> Read(std::string_view content) {
    return ReadClassFile(AsBytes(content));
}

TEST(ClassFileTest, NamesTheClassItsSuperclassAndReferences) {
    const auto file = Read(ClassOf("a/B", "c/D").Refers("[[Le/F;").Refers("[I").Content());
    ASSERT_TRUE(file);
    EXPECT_EQ(file->name, "a/B");
    EXPECT_EQ(file->superclass, "c/D");
    EXPECT_THAT(file->references, ElementsAre("a/B", "c/D", "e/F"));
    EXPECT_FALSE(file->module);
    EXPECT_EQ(Read(ClassOf("java/lang/Object", "").Content())->superclass, "");
}

TEST(ClassFileTest, DeclaresAModule) {
    const auto file = Read(ClassOf::Module("demo.app")
                               .Requires("java.base", 0x8000)
                               .Requires("demo.optional", 0x40)
                               .Exports("demo/api")
                               .Exports("demo/internal", {"demo.friend"})
                               .Main("demo/app/Main")
                               .Content());
    ASSERT_TRUE(file && file->module);
    const ModuleDeclaration& module = *file->module;
    EXPECT_EQ(module.name, "demo.app");
    EXPECT_EQ(module.mainClass, "demo.app.Main");
    ASSERT_EQ(module.requirements.size(), 2U);
    EXPECT_EQ(module.requirements[0].module, "java.base");
    EXPECT_FALSE(module.requirements[0].isOptional);
    EXPECT_EQ(module.requirements[1].module, "demo.optional");
    EXPECT_TRUE(module.requirements[1].isOptional);
    EXPECT_THAT(module.exports, ElementsAre("demo.api"));
}

TEST(ClassFileTest, RejectsTruncatedFiles) {
    const std::string whole =
        ClassOf::Module("m").Requires("n").Exports("p", {"q"}).Main("a/B").Content();
    ASSERT_TRUE(Read(whole));
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_FALSE(Read(std::string_view(whole).substr(0, size))) << size;
    }
}

TEST(ClassFileTest, RejectsReferencesToOtherEntries) {
    const std::string whole = ClassOf("a/B").Content();
    for (std::size_t at = 10; at < whole.size(); ++at) {
        std::string broken = whole;
        broken[at] = '\x7F';
        Read(broken);  // whatever the outcome, nothing beyond the bytes is read
    }
    EXPECT_FALSE(Read("text"));
    EXPECT_FALSE(Read(""));
}

TEST(ClassNamesTest, HaveAPackage) {
    EXPECT_EQ(PackageOf("a/b/C.class"), "a/b");
    EXPECT_EQ(PackageOf("C"), "");
    EXPECT_EQ(DottedName("a/b/C"), "a.b.C");
}

}  // namespace
}  // namespace tarn::tools
