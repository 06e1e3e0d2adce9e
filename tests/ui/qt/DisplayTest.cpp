// What counts as a display.
#include <cstdlib>
#include <map>
#include <string>

#include <gtest/gtest.h>

#include "QsUtils/ui/qt/module/Display.h"

namespace {

/// Variables of the environment for one test.
class Display : public testing::Test {
protected:
    void SetUp() override {
        for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) {
            const char* const value = std::getenv(name);
            if (value != nullptr)
                m_before[name] = value;
            ::unsetenv(name);
        }
    }
    void TearDown() override {
        for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
            ::unsetenv(name);
        for (const auto& [name, value] : m_before)
            ::setenv(name.c_str(), value.c_str(), 1);
    }

private:
    std::map<std::string, std::string> m_before;
};

TEST_F(Display, WithoutASessionThereIsNone) {
    EXPECT_EQ(QsQt::FindPlatform().name, "");
    EXPECT_EQ(QsQt::FindPlatform().reason, u"there is no display.");
}

TEST_F(Display, AServerThatDoesntAnswerIsNone) {
    ::setenv("DISPLAY", ":48761", 1);
    EXPECT_EQ(QsQt::FindPlatform().name, "");
    EXPECT_EQ(QsQt::FindPlatform().reason, u"the display can't be used (xcb).");
    ::setenv("WAYLAND_DISPLAY", "/no such socket", 1);
    EXPECT_EQ(QsQt::FindPlatform().name, "");
}

TEST_F(Display, ThePlatformsThatAreNamedAreTriedInOrder) {
    ::setenv("QT_QPA_PLATFORM", "no such platform;xcb;offscreen", 1);
    EXPECT_EQ(QsQt::FindPlatform().name, "offscreen");
    ::setenv("QT_QPA_PLATFORM", "minimal:enable_fonts", 1);
    EXPECT_EQ(QsQt::FindPlatform().name, "minimal:enable_fonts");
    ::setenv("QT_QPA_PLATFORM", "eglfs", 1);
    EXPECT_EQ(QsQt::FindPlatform().name, "") << "it can't be asked beforehand";
}

}  // namespace
