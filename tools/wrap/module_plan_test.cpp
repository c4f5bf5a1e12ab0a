#include "tools/wrap/module_plan.h"

#include <gmock/gmock.h>

#include "tools/common/failure.h"
#include "tools/common/folder_fixture.h"
#include "tools/java/class_of.h"
#include "tools/java/zip_of.h"

namespace tarn::tools {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ModulePlanTest : public FolderTest {
  protected:
    void Add(const char* name, const ZipOf& zip) {
        const bool isFirst = jars_.empty();
        jars_.emplace_back(ClassPathFile{Put(name, zip.Content()),
                                         isFirst ? std::string(name) : "lib/" + std::string(name)});
    }

    // A jar with a class that extends JavaFX's Application by way of one in another package.
    void AddFxApplication() {
        Add("app.jar",
            ZipOf()
                .Add("demo/Main.class", ClassOf("demo/Main", "demo/base/Base").Content())
                .Add("demo/base/Base.class",
                     ClassOf("demo/base/Base", "javafx/application/Application").Content()));
    }

    void AddFx(const char* fileName, const char* module, const char* required = "java.base") {
        std::string package = module;
        std::replace(package.begin(), package.end(), '.', '/');
        const std::string internal = "com/sun/" + package;
        Add(fileName,
            ZipOf()
                .Add("module-info.class",
                     ClassOf::Module(module).Requires(required).Exports(package).Content())
                .Add(package + "/Api.class", ClassOf(package + "/Api").Content())
                .Add(internal + "/Impl.class", ClassOf(internal + "/Impl").Content()));
    }

    static ZipOf ModularJar() {
        return ZipOf()
            .Add("demo/Main.class", ClassOf("demo/Main").Content())
            .Add("module-info.class", ClassOf::Module("demo.app")
                                          .Requires("java.base")
                                          .Requires("demo.lib")
                                          .Requires("demo.absent", 0x40)
                                          .Main("demo/Main")
                                          .Content());
    }

    static ZipOf LibraryJar(const char* package = "lib") {
        const std::string name = std::string(package) + "/Lib";
        return ZipOf()
            .Add("module-info.class", ClassOf::Module("demo.lib").Content())
            .Add(name + ".class", ClassOf(name).Content());
    }

    ModulePlan Plan(const std::set<std::string>& runtimeModules = {}) {
        return PlanModules(jars_, request_, "demo.Main", runtimeModules, warnings_);
    }

    std::string Problem() {
        try {
            Plan();
        } catch (const Failure& failure) {
            return failure.what();
        }
        return "";
    }

    std::vector<std::string> Targets() const {
        std::vector<std::string> targets;
        for (const ApplicationJar& jar : jars_) targets.push_back(jar.file.target);
        return targets;
    }

    WrapRequest request_;
    ApplicationJars jars_;
    std::vector<std::string> warnings_;
};

TEST_F(ModulePlanTest, PutsJavaFxOnTheModulePath) {
    AddFxApplication();
    AddFx("javafx-base-17-win.jar", "javafx.base");
    AddFx("javafx-graphics-17-win.jar", "javafx.graphics", "javafx.base");
    const ModulePlan plan = Plan();
    EXPECT_EQ(plan.mainModule, "");
    EXPECT_THAT(plan.vmParameters,
                ElementsAre("--module-path=modules", "--add-modules=javafx.base,javafx.graphics"));
    EXPECT_THAT(Targets(), ElementsAre("app.jar", "modules/javafx-base-17-win.jar",
                                       "modules/javafx-graphics-17-win.jar"));
    EXPECT_EQ(jars_[0].file.placement, Placement::ClassPath);
    EXPECT_EQ(jars_[1].file.placement, Placement::ModulePath);
    EXPECT_THAT(warnings_, IsEmpty());
}

TEST_F(ModulePlanTest, ExportsInternalPackagesOfJavaFxToTheirUsers) {
    AddFxApplication();
    AddFx("javafx-base-17-win.jar", "javafx.base");
    Add("controls.jar",
        ZipOf().Add("c/C.class", ClassOf("c/C").Refers("com/sun/javafx/base/Impl").Content()));
    EXPECT_THAT(Plan().vmParameters,
                Contains("--add-exports=javafx.base/com.sun.javafx.base=ALL-UNNAMED"));
}

TEST_F(ModulePlanTest, OmitsJavaFxForOtherSystemsBesideThatForWindows) {
    AddFxApplication();
    AddFx("javafx-base-17-linux.jar", "javafx.base");
    AddFx("javafx-base-17-win.jar", "javafx.base");
    EXPECT_THAT(Plan().vmParameters, Contains("--add-modules=javafx.base"));
    EXPECT_EQ(jars_[1].file.placement, Placement::Omitted);
    EXPECT_THAT(warnings_, ElementsAre(HasSubstr("javafx-base-17-linux.jar: is omitted")));
}

TEST_F(ModulePlanTest, WarnsAboutJavaFxThatIsMissingOrIncomplete) {
    AddFxApplication();
    Plan();
    EXPECT_THAT(warnings_, ElementsAre(HasSubstr("no jar contains JavaFX")));
    warnings_.clear();
    Plan({"java.base", "javafx.graphics"});
    EXPECT_THAT(warnings_, IsEmpty());
    AddFx("javafx-controls-17-win.jar", "javafx.controls", "javafx.graphics");
    Plan();
    EXPECT_THAT(warnings_,
                ElementsAre(HasSubstr("javafx.controls requires the module javafx.graphics")));
}

TEST_F(ModulePlanTest, WarnsAboutJavaFxInsideTheJar) {
    AddFxApplication();
    Add("all.jar", ZipOf().Add("javafx/application/Application.class",
                               ClassOf("javafx/application/Application").Content()));
    Plan();
    EXPECT_THAT(warnings_, ElementsAre(HasSubstr("the jar contains JavaFX itself")));
}

TEST_F(ModulePlanTest, RejectsJavaFxWithoutAModulePath) {
    AddFxApplication();
    AddFx("javafx-graphics-17-win.jar", "javafx.graphics");
    request_.keepsWorkingDirectory = true;
    EXPECT_THAT(Problem(), HasSubstr("omit --keep-working-dir"));
    request_.keepsWorkingDirectory = false;
    request_.startsAs = StartsAs::ClassPath;
    EXPECT_THAT(Problem(), HasSubstr("omit --start-as class-path"));
}

TEST_F(ModulePlanTest, StartsAModuleWithWhatItRequires) {
    Add("app.jar", ModularJar());
    Add("lib.jar", LibraryJar());
    Add("other.jar", ZipOf().Add("o/O.class", ClassOf("o/O").Content()));
    const ModulePlan plan = Plan();
    EXPECT_EQ(plan.mainModule, "demo.app");
    EXPECT_THAT(plan.vmParameters,
                ElementsAre("--module-path=app.jar;modules", "--add-modules=demo.app"));
    EXPECT_THAT(Targets(), ElementsAre("app.jar", "modules/lib.jar", "lib/other.jar"));
    EXPECT_EQ(jars_[0].file.placement, Placement::Both);
    EXPECT_EQ(jars_[2].file.placement, Placement::ClassPath);
    EXPECT_THAT(warnings_, IsEmpty());
}

TEST_F(ModulePlanTest, QuotesAModulePathWithSpaces) {
    Add("my app.jar",
        ZipOf()
            .Add("demo/Main.class", ClassOf("demo/Main").Content())
            .Add("module-info.class", ClassOf::Module("demo.app").Main("demo/Main").Content()));
    EXPECT_THAT(Plan().vmParameters, Contains("--module-path=\"my app.jar\""));
}

TEST_F(ModulePlanTest, KeepsAModuleWithoutAMainClassOnTheClassPath) {
    const ZipOf jar = ZipOf()
                          .Add("demo/Main.class", ClassOf("demo/Main").Content())
                          .Add("module-info.class", ClassOf::Module("demo.app").Content());
    Add("app.jar", jar);
    EXPECT_THAT(Plan().vmParameters, IsEmpty());
    EXPECT_THAT(warnings_, IsEmpty());
    request_.startsAs = StartsAs::Module;
    EXPECT_EQ(Plan().mainModule, "demo.app");
}

TEST_F(ModulePlanTest, KeepsAnIncompleteModuleOnTheClassPath) {
    Add("app.jar", ModularJar());
    EXPECT_THAT(Plan().vmParameters, IsEmpty());
    EXPECT_THAT(warnings_, ElementsAre(HasSubstr("demo.app requires the module demo.lib")));
    request_.startsAs = StartsAs::Module;
    EXPECT_THAT(Problem(), HasSubstr("requires the module demo.lib"));
}

TEST_F(ModulePlanTest, KeepsAModuleWithASplitPackageOnTheClassPath) {
    Add("app.jar", ModularJar());
    Add("lib.jar", LibraryJar("org/w3c/dom"));
    Plan();
    EXPECT_THAT(warnings_, ElementsAre(HasSubstr("the package org.w3c.dom")));
    jars_.pop_back();
    warnings_.clear();
    Add("lib.jar", LibraryJar());
    Add("other.jar", ZipOf().Add("lib/O.class", ClassOf("lib/O").Content()));
    Plan();
    EXPECT_THAT(warnings_, ElementsAre(HasSubstr("the package lib is in more than one jar")));
}

TEST_F(ModulePlanTest, KeepsAModuleInASingleFileOnTheClassPath) {
    Add("app.jar", ModularJar());
    Add("lib.jar", LibraryJar());
    request_.singleFile = true;
    EXPECT_THAT(Plan().vmParameters, IsEmpty());
    EXPECT_THAT(warnings_, ElementsAre(HasSubstr("--single-file")));
    warnings_.clear();
    request_.singleFile = false;
    request_.startsAs = StartsAs::ClassPath;
    EXPECT_THAT(Plan().vmParameters, IsEmpty());
    EXPECT_THAT(warnings_, IsEmpty());
}

}  // namespace
}  // namespace tarn::tools
