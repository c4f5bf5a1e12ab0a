#include "jvm/vm_parameters.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

TEST(ReadMemorySizes, ReadsPhysicalMemoryAndAddressSpace) {
    const MemorySizes memory = ReadMemorySizes();
    EXPECT_GT(memory.totalPhysical, std::uint64_t{64} << 20);
    EXPECT_GT(memory.availableVirtual, memory.totalPhysical);
}

TEST(TransformVmParameter, RemovesQuotes) {
    std::uint64_t stackSize = 0;
    EXPECT_EQ(TransformVmParameter(L"-Dname=\"a b\"", stackSize), L"-Dname=a b");
}

TEST(TransformVmParameter, ResolvesAPercentageOfThisMachinesMemory) {
    std::uint64_t stackSize = 0;
    EXPECT_EQ(TransformVmParameter(L"-Xmx50p", stackSize),
              ResolvePercentage(L"-Xmx50p", ReadMemorySizes()));
}

TEST(TransformVmParameter, ReadsTheStackSizeFromTheLastXss) {
    std::uint64_t stackSize = 0;
    EXPECT_EQ(TransformVmParameter(L"-Xss512k", stackSize), L"-Xss512k");
    EXPECT_EQ(stackSize, 524'288U);
    TransformVmParameter(L"-Xss1m", stackSize);
    EXPECT_EQ(stackSize, 1'048'576U);
}

TEST(TransformVmParameter, ReadsTheStackSizeFromXssOnly) {
    std::uint64_t stackSize = 7;
    TransformVmParameter(L"-Xmx1m", stackSize);
    TransformVmParameter(L"-xss1m", stackSize);
    EXPECT_EQ(stackSize, 7U);
}

TEST(TransformVmParameter, ReadsTheStackSizeAfterThePercentage) {
    std::uint64_t stackSize = 0;
    const std::wstring option = TransformVmParameter(L"-Xss0:1p", stackSize);
    EXPECT_EQ(option, L"-Xss1024K");
    EXPECT_EQ(stackSize, 1'048'576U);
}

}  // namespace
}  // namespace tarn
