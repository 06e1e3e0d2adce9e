// Where no window can be made, these tests are skipped.
#include <windows.h>
#include <gtest/gtest.h>

namespace {

struct ScreenEnvironment final : testing::Environment {
    void SetUp() override {
        const HWND window =
            ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
        if (window == nullptr)
            GTEST_SKIP() << "there is no screen";
        ::DestroyWindow(window);
    }
};

const testing::Environment* const theEnvironment =
    testing::AddGlobalTestEnvironment(new ScreenEnvironment);  // owned by the framework

}  // namespace
