#include "ui/splash/window_thunk.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

struct Received {
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
};

LRESULT CALLBACK Record(void* object, UINT message, WPARAM wParam, LPARAM lParam) {
    *static_cast<Received*>(object) = {message, wParam, lParam};
    return 0x123456789;
}

HWND AnyWindow() {
    return reinterpret_cast<HWND>(std::intptr_t{0x10001});
}

TEST(WindowThunkTest, BringsEachMessageToItsOwnObject) {
    Received first;
    Received second;
    WindowThunk firstThunk;
    WindowThunk secondThunk;
    ASSERT_TRUE(firstThunk.Make(&first, Record));
    ASSERT_TRUE(secondThunk.Make(&second, Record));

    EXPECT_EQ(firstThunk.procedure()(AnyWindow(), WM_APP, ~WPARAM{0}, -7), 0x123456789);
    EXPECT_EQ(secondThunk.procedure()(AnyWindow(), WM_APP + 1, 3, 4), 0x123456789);

    EXPECT_EQ(first.message, static_cast<UINT>(WM_APP));
    EXPECT_EQ(first.wParam, ~WPARAM{0});
    EXPECT_EQ(first.lParam, -7);
    EXPECT_EQ(second.message, static_cast<UINT>(WM_APP + 1));
}

TEST(WindowThunkTest, IsNeverWritableOnceItCanRun) {
    Received object;
    WindowThunk thunk;
    ASSERT_TRUE(thunk.Make(&object, Record));
    MEMORY_BASIC_INFORMATION memory{};
    ASSERT_NE(VirtualQuery(reinterpret_cast<void*>(thunk.procedure()), &memory, sizeof(memory)),
              0U);
    EXPECT_EQ(memory.Protect, static_cast<DWORD>(PAGE_EXECUTE_READ));
}

TEST(WindowThunkTest, IsMadeOnlyOnce) {
    Received object;
    WindowThunk thunk;
    EXPECT_EQ(thunk.procedure(), nullptr);
    ASSERT_TRUE(thunk.Make(&object, Record));
    const WNDPROC made = thunk.procedure();
    ASSERT_TRUE(thunk.Make(&object, Record));
    EXPECT_EQ(thunk.procedure(), made);
}

TEST(WindowThunkTest, GivesItsMemoryBack) {
    Received object;
    void* code = nullptr;
    {
        WindowThunk thunk;
        ASSERT_TRUE(thunk.Make(&object, Record));
        code = reinterpret_cast<void*>(thunk.procedure());
    }
    MEMORY_BASIC_INFORMATION memory{};
    ASSERT_NE(VirtualQuery(code, &memory, sizeof(memory)), 0U);
    EXPECT_NE(memory.Protect, static_cast<DWORD>(PAGE_EXECUTE_READ));
}

}  // namespace
}  // namespace tarn
