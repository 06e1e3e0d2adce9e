// Where there is no screen, these tests are skipped.
#include <gtest/gtest.h>

#include "QsUtils/platform/win32/Screen.h"

namespace {

struct ScreenEnvironment final : testing::Environment {
    void SetUp() override {
        if (!QsPlatform::HasScreen())
            GTEST_SKIP() << "there is no screen";
    }
};

const testing::Environment* const theEnvironment =
    testing::AddGlobalTestEnvironment(new ScreenEnvironment);  // owned by the framework

}  // namespace
