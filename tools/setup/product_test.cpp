#include "tools/setup/product.h"

#include "tools/common/failure.h"
#include "tools/common/folder_fixture.h"
#include "tools/image/small_executable.h"
#include "tools/stamp/stamp.h"

namespace tarn::tools {
namespace {

class ProductTest : public FolderTest {
  protected:
    void PutLauncher(const char* name, StampChanges changes = {}) const {
        changes.strings = {{207, "a"}, {210, "b"}, {230, "c"}};  // by which launchers are known
        std::vector<std::string> warnings;
        Put(name,
            Stamp(SmallExecutable({".text", ".rsrc", ".reloc"}).Content(), changes, warnings));
    }
    SetupRequest Request() const {
        SetupRequest request;
        request.folder = folder_;
        return request;
    }
};

TEST_F(ProductTest, IsWhatTheVersionInformationSays) {
    StampChanges changes;
    changes.version = "2.1.3";
    changes.versionTexts = {{"ProductName", "Demo: Viewer"},
                            {"CompanyName", "Acme"},
                            {"FileDescription", "Shows demos"},
                            {"LegalCopyright", "(c) Acme"}};
    PutLauncher("viewer.exe", changes);
    const Product product = ReadProduct(Request());
    EXPECT_EQ(product.executable, "viewer.exe");
    EXPECT_EQ(product.name, "Demo: Viewer");
    EXPECT_EQ(product.fileName, "Demo_ Viewer");
    EXPECT_EQ(product.version, "2.1.3");
    EXPECT_EQ(VersionText(product.number), "2.1.3.0");
    EXPECT_EQ(product.vendor, "Acme");
    EXPECT_EQ(product.description, "Shows demos");
    EXPECT_EQ(product.copyright, "(c) Acme");
    EXPECT_TRUE(product.id.starts_with("Acme.DemoViewer-")) << product.id;
    EXPECT_TRUE(product.icon.empty());
}

TEST_F(ProductTest, IsWhatTheRequestSaysInstead) {
    PutLauncher("viewer.exe");
    SetupRequest request = Request();
    request.name = "Viewer";
    request.version = "3";
    request.vendor = "Acme";
    const Product product = ReadProduct(request);
    EXPECT_EQ(product.name, "Viewer");
    EXPECT_EQ(product.description, "Viewer");
    EXPECT_EQ(product.id, "Acme.Viewer");
    request.id = "my-id";
    EXPECT_EQ(ReadProduct(request).id, "my-id");
}

TEST_F(ProductTest, IsRefusedWithoutALauncherOrWithTwo) {
    Put("other.exe", "text");
    EXPECT_THROW(ReadProduct(Request()), Failure);
    PutLauncher("a.exe");
    EXPECT_EQ(ReadProduct(Request()).executable, "a.exe");
    PutLauncher("b.exe");
    EXPECT_THROW(ReadProduct(Request()), Failure);
    SetupRequest request = Request();
    request.executable = "b.exe";
    EXPECT_EQ(ReadProduct(request).executable, "b.exe");
    request.executable = "other.exe";
    EXPECT_THROW(ReadProduct(request), Failure);
}

TEST_F(ProductTest, IsRefusedForTextsThatAreTooLongAndBadIds) {
    PutLauncher("a.exe");
    SetupRequest request = Request();
    request.name = std::string(129, 'a');
    EXPECT_THROW(ReadProduct(request), Failure);
    request.name = "a\nb";
    EXPECT_THROW(ReadProduct(request), Failure);
    request.name.clear();
    for (const char* const id : {"a\\b", ".a", "a.", "a b", "a..b"}) {
        request.id = id;
        EXPECT_THROW(ReadProduct(request), Failure) << id;
    }
}

TEST(ComparableVersion, EndsAtTheFirstTextSoThatAReleaseIsNoOlderThanItsPreviews) {
    EXPECT_EQ(VersionText(ComparableVersion("2.1-beta3")), "2.1.0.0");
    EXPECT_EQ(VersionText(ComparableVersion("1.2.3.4.5")), "1.2.3.4");
    EXPECT_EQ(VersionText(ComparableVersion("1..2")), "1.0.0.0");
    EXPECT_EQ(VersionText(ComparableVersion("99999999999.1")), "65535.1.0.0");
    EXPECT_EQ(VersionText(ComparableVersion("v1")), "0.0.0.0");
}

TEST(DerivedId, DistinguishesNamesThatLookTheSameWithoutTheirOtherCharacters) {
    EXPECT_EQ(DerivedId("Acme", "Viewer"), "Acme.Viewer");
    EXPECT_EQ(DerivedId("", "Viewer"), "Viewer");
    EXPECT_NE(DerivedId("Acme", "Demo Viewer"), DerivedId("Acme", "DemoViewer"));
    EXPECT_NE(DerivedId("Acme", "\xC3\xA4"), DerivedId("Acme", "\xC3\xB6"));
    EXPECT_FALSE(DerivedId("", "\xC3\xA4").empty());
}

TEST(FileNameOf, IsAcceptedByWindows) {
    EXPECT_EQ(FileNameOf("A/B: \"C\"?"), "A_B_ _C__");
    EXPECT_EQ(FileNameOf(" name. . "), "name");
    EXPECT_EQ(FileNameOf("con"), "_con");
    EXPECT_EQ(FileNameOf("..."), "_");
}

}  // namespace
}  // namespace tarn::tools
