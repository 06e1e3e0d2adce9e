// The tip's window when the module leaves the process.
#include <thread>

#include <windows.h>
#include <gtest/gtest.h>

#include "tests/ui/win32/views/FakeTip.h"

namespace {

/// The module as a host loads it; the tip is called by the names under which it is exported.
class LoadedTip {
public:
    LoadedTip() : m_module(::LoadLibraryA(QSUTILS_MODULE)) {}
    LoadedTip(const LoadedTip&) = delete;
    LoadedTip& operator=(const LoadedTip&) = delete;
    ~LoadedTip() { Unload(); }

    bool IsLoaded() const { return m_module != nullptr; }
    void Show(unsigned int delay) const {
        reinterpret_cast<void (*)(unsigned int)>(
            reinterpret_cast<void*>(::GetProcAddress(m_module, "_ZN7texttip15ShowWindowDelayEj")))(delay);
    }
    void Unload() {
        if (m_module != nullptr)
            ::FreeLibrary(m_module);
        m_module = nullptr;
    }

private:
    HMODULE m_module;
};

bool IsInProcess() {
    return ::GetModuleHandleW(L"QsUtils.dll") != nullptr;
}

TEST(ModuleEnd, TheTipGoesWithTheModule) {
    for (int load = 0; load < 20; ++load) {
        LoadedTip tip;
        ASSERT_TRUE(tip.IsLoaded());
        tip.Show(load % 2 == 0 ? 0 : 1);
        ASSERT_TRUE(TipOfThread().has_value());
        const HWND window = TipOfThread().value();
        EXPECT_EQ(::IsWindowVisible(window) != 0, load % 2 == 0);
        tip.Unload();
        EXPECT_FALSE(IsInProcess());
        EXPECT_FALSE(::IsWindow(window));
        ::Sleep(2);
        EXPECT_TRUE(PumpUntil([] { return true; }));
    }
}

TEST(ModuleEnd, AnotherThreadMayUnloadIt) {
    LoadedTip tip;
    ASSERT_TRUE(tip.IsLoaded());
    tip.Show(0);
    const HWND window = TipOfThread().value();
    std::atomic<bool> isOver{false};
    std::thread thread([&] {
        tip.Unload();
        isOver = true;
    });
    EXPECT_TRUE(PumpUntil([&] { return isOver.load(); }));
    thread.join();
    EXPECT_FALSE(IsInProcess());
    EXPECT_FALSE(::IsWindow(window));
}

TEST(ModuleEnd, AThreadThatDoesntLookKeepsAWindowThatDoesNothing) {
    LoadedTip tip;
    ASSERT_TRUE(tip.IsLoaded());
    tip.Show(0);
    tip.Show(1);
    const HWND window = TipOfThread().value();
    std::thread([&] { tip.Unload(); }).join();
    EXPECT_FALSE(IsInProcess());
    EXPECT_TRUE(PumpUntil([window] { return !::IsWindowVisible(window); }));
    ::Sleep(20);
    EXPECT_TRUE(PumpUntil([] { return true; }));
    ::DestroyWindow(window);
}

}  // namespace
