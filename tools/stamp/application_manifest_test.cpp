#include "tools/stamp/application_manifest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tools/common/failure.h"

namespace tarn::tools {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

const std::string kRoot = "<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\">";

std::string Changed(const std::string& manifest, bool admin, bool utf8) {
    const Bytes changed = ChangedManifest(AsBytes(manifest), {admin, utf8});
    return std::string(AsText(changed));
}

TEST(ApplicationManifestTest, RejectsWhatWindowsWouldNotAccept) {
    for (const char* const text :
         {"", "text", "<assembly/>", "<assembly", "<a></b>", "<?xml version=\"1.0\"?>", "<!--",
          "<other xmlns=\"urn:schemas-microsoft-com:asm.v1\"/>",
          "<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\">"}) {
        EXPECT_THROW(ChangedManifest(AsBytes(text), {}), Failure) << text;
    }
    EXPECT_THROW(ChangedManifest(AsBytes(kRoot + "</assembly>" + kRoot + "</assembly>"), {}),
                 Failure);
    EXPECT_NO_THROW(ChangedManifest(AsBytes(kRoot + "</assembly>"), {}));
}

TEST(ApplicationManifestTest, AcceptsPrefixes) {
    EXPECT_NO_THROW(
        ChangedManifest(AsBytes("<a:assembly xmlns:a=\"urn:schemas-microsoft-com:asm.v1\"/>"), {}));
    EXPECT_THROW(
        ChangedManifest(AsBytes("<a:assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\"/>"), {}),
        Failure);
}

TEST(ApplicationManifestTest, KeepsTheBytesWithoutChanges) {
    const std::string manifest = kRoot + " <!-- c -->\r\n </assembly>";
    EXPECT_EQ(Changed(manifest, false, false), manifest);
}

TEST(ApplicationManifestTest, AddsMissingElements) {
    EXPECT_THAT(Changed(kRoot + "<description>x</description></assembly>", true, true),
                AllOf(HasSubstr("<description>x</description>"),
                      HasSubstr("<trustInfo xmlns=\"urn:schemas-microsoft-com:asm.v3\">"),
                      HasSubstr("<requestedExecutionLevel uiAccess=\"false\" "
                                "level=\"requireAdministrator\" />"),
                      HasSubstr("<application xmlns=\"urn:schemas-microsoft-com:asm.v3\">"),
                      HasSubstr("<activeCodePage "
                                "xmlns=\"http://schemas.microsoft.com/SMI/2019/WindowsSettings\">"
                                "UTF-8</activeCodePage>")));
}

TEST(ApplicationManifestTest, ChangesExistingElementsWithAnyPrefix) {
    const std::string manifest =
        kRoot +
        "<v3:trustInfo xmlns:v3=\"urn:schemas-microsoft-com:asm.v3\"><v3:security>"
        "<v3:requestedPrivileges><v3:requestedExecutionLevel level=\"asInvoker\"/>"
        "</v3:requestedPrivileges></v3:security></v3:trustInfo>"
        "<application><windowsSettings><dpiAware>true</dpiAware></windowsSettings></application>"
        "</assembly>";
    const std::string changed = Changed(manifest, true, true);
    EXPECT_THAT(changed,
                AllOf(HasSubstr("<v3:requestedExecutionLevel level=\"requireAdministrator\" />"),
                      HasSubstr("<dpiAware>true</dpiAware>"), Not(HasSubstr("asInvoker"))));
    EXPECT_EQ(changed.find("<trustInfo"), std::string::npos);
    EXPECT_EQ(changed.find("<windowsSettings>"), changed.rfind("<windowsSettings>"));
    EXPECT_EQ(Changed(changed, true, true), changed);
}

TEST(ApplicationManifestTest, WritesUtf8ForUtf16) {
    const std::u16string text =
        u"\xFEFF<?xml version=\"1.0\" standalone=\"yes\"?>"
        u"<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\"><description>\u00E4</description>"
        u"</assembly>";
    ByteWriter writer;
    writer.Text(text);
    const Bytes changed = ChangedManifest(writer.Take(), {true, false});
    EXPECT_THAT(std::string(AsText(changed)),
                AllOf(HasSubstr("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>"),
                      HasSubstr("\xC3\xA4")));
}

}  // namespace
}  // namespace tarn::tools
