#include "tools/common/sha256.h"

#include "tools/common/failure.h"
#include "tools/common/folder_fixture.h"

namespace tarn::tools {
namespace {

using Sha256File = FolderTest;

// The examples of FIPS 180-4 and of its validation programme.
TEST(Sha256, IsThatOfThePublishedExamples) {
    EXPECT_EQ(HexOf(Sha256Of("")),
              "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(HexOf(Sha256Of("abc")),
              "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(HexOf(Sha256Of("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq")),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
    EXPECT_EQ(HexOf(Sha256Of(std::string(1'000'000, 'a'))),
              "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

TEST(Sha256, DoesNotDependOnThePartsThatTheDataArrivesIn) {
    const std::string text(1000, 'x');
    for (const std::size_t size : {1U, 7U, 63U, 64U, 65U, 200U}) {
        Sha256 sha256;
        for (std::size_t at = 0; at < text.size(); at += size) sha256.Add(text.substr(at, size));
        EXPECT_EQ(sha256.Finish(), Sha256Of(text)) << size;
    }
}

TEST_F(Sha256File, IsThatOfItsContent) {
    const std::string text(200'000, 'y');
    EXPECT_EQ(Sha256OfFile(Put("file", text)), Sha256Of(text));
}

TEST_F(Sha256File, CannotBeReadIfItIsMissing) {
    EXPECT_THROW(Sha256OfFile(folder_ / "missing"), Failure);
}

}  // namespace
}  // namespace tarn::tools
