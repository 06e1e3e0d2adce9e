// The module enters a process and leaves it, as often as a host likes.
#include <gtest/gtest.h>

#include "tests/module/LoadedPlugin.h"
#include "tests/support/RepeatedLoads.h"

namespace {

void LoadUseAndUnload() {
    {
        const LoadedPlugin plugin;
        ASSERT_TRUE(IsInProcess(QSUTILS_MODULE));
        const char* wrong = PLUGIN_FUNCTION(plugin, PluginUseEveryService)();
        ASSERT_EQ(wrong, nullptr) << wrong;
    }
    ASSERT_FALSE(IsInProcess(QSUTILS_MODULE)) << "the module has not left the process";
}

TEST(ModuleLife, EveryServiceAnswersAndTheModuleLeaves) {
    LoadUseAndUnload();
}

TEST(ModuleLife, AHundredLoadsLeaveNothingBehind) {
    EXPECT_TRUE(LeavesNothingBehind(LoadUseAndUnload));
}

TEST(ModuleLife, LoadingWithoutAnyCallLeavesNothingEither) {
    { const LoadedPlugin plugin; }
    EXPECT_FALSE(IsInProcess(QSUTILS_MODULE));
}

TEST(ModuleLife, TheSoftVersionIsEmptyUntilSet) {
    const LoadedPlugin plugin;
    EXPECT_TRUE(PLUGIN_FUNCTION(plugin, PluginSoftVersionIs)(u""));
    PLUGIN_FUNCTION(plugin, PluginSetSoftVersion)(u"V10.2.3");
    EXPECT_TRUE(PLUGIN_FUNCTION(plugin, PluginSoftVersionIs)(u"V10.2.3"));
}

TEST(ModuleLife, AReloadedModuleRemembersNothing) {
    for (int cycle = 0; cycle < 3; ++cycle) {
        const LoadedPlugin plugin;
        EXPECT_TRUE(PLUGIN_FUNCTION(plugin, PluginSoftVersionIs)(u""));
        PLUGIN_FUNCTION(plugin, PluginSetSoftVersion)
        (u"a version text that is too long for the object itself");
    }
}

TEST(ModuleLife, TwoLoadsShareOneModule) {
    const LoadedPlugin first;
    const LoadedPlugin second;
    EXPECT_EQ(PLUGIN_FUNCTION(first, PluginAnalyser)(), PLUGIN_FUNCTION(second, PluginAnalyser)());
    PLUGIN_FUNCTION(first, PluginSetSoftVersion)(u"shared");
    EXPECT_TRUE(PLUGIN_FUNCTION(second, PluginSoftVersionIs)(u"shared"));
}

TEST(ModuleLife, TheAnalyserIsAlwaysTheSame) {
    const LoadedPlugin plugin;
    const auto analyser = PLUGIN_FUNCTION(plugin, PluginAnalyser);
    void* const first = analyser();
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(analyser(), first);
}

TEST(ModuleLife, ExceptionsCrossTheBoundaryByType) {
    const LoadedPlugin plugin;
    EXPECT_TRUE(PLUGIN_FUNCTION(plugin, PluginCatchesByType)());
}

}  // namespace
