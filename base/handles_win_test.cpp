#include "base/handles.h"

#include <gtest/gtest.h>

#include <vector>

namespace tarn {
namespace {

std::vector<int> closed;

struct NumberTraits {
    using Value = int;
    static Value None() { return -1; }
    static void Close(Value value) { closed.push_back(value); }
};
using Number = UniqueResource<NumberTraits>;

class UniqueResourceTest : public testing::Test {
  protected:
    void SetUp() override { closed.clear(); }
};

TEST_F(UniqueResourceTest, IsInitiallyEmptyAndClosesNothing) {
    {
        Number number;
        EXPECT_FALSE(number);
        EXPECT_EQ(number.get(), -1);
    }
    EXPECT_TRUE(closed.empty());
}

TEST_F(UniqueResourceTest, ClosesItsResourceOnce) {
    {
        Number number(3);
        EXPECT_TRUE(number);
    }
    EXPECT_EQ(closed, std::vector<int>({3}));
}

TEST_F(UniqueResourceTest, ZeroIsAValidValueUnlessTheTraitsSayOtherwise) {
    { Number number(0); }
    EXPECT_EQ(closed, std::vector<int>({0}));
}

TEST_F(UniqueResourceTest, MovingTransfersOwnership) {
    {
        Number first(4);
        Number second(std::move(first));
        EXPECT_EQ(second.get(), 4);
        Number third(5);
        third = std::move(second);
        EXPECT_EQ(closed, std::vector<int>({5}));
    }
    EXPECT_EQ(closed, std::vector<int>({5, 4}));
}

TEST_F(UniqueResourceTest, ReleaseLeavesTheResourceOpen) {
    Number number(6);
    EXPECT_EQ(number.release(), 6);
    number.reset();
    EXPECT_TRUE(closed.empty());
}

TEST_F(UniqueResourceTest, PutClosesTheOldResourceFirst) {
    Number number(7);
    *number.put() = 8;
    EXPECT_EQ(closed, std::vector<int>({7}));
    EXPECT_EQ(number.get(), 8);
}

}  // namespace
}  // namespace tarn
