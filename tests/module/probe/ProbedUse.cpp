#include "tests/module/probe/ProbedUse.h"

#include "tests/module/Plugin.h"
#include "tests/module/probe/EventProbe.h"

namespace {

/// Watches the one block of memory that a first call leaves in use: the service that it made.
void WatchService(void (*firstCall)(), const char* event) {
    EventProbe::BeginNotingBlocks();
    firstCall();
    if (EventProbe::WatchNotedBlocks(event) != 1)
        EventProbe::Report("a service is not one block");
}

}  // namespace

extern "C" {

TEST_EXPORT void ProbeReport(const char* event) {
    EventProbe::Report(event);
}

TEST_EXPORT void ProbeUseLibrary() {
    PluginSetSoftVersion(u"a version text that is too long for the object itself");
    EventProbe::WatchBlock(PluginSoftVersionUnits(), "soft version ends");
    EventProbe::WatchBackUpNames("backup names end");
    WatchService(PluginUseMajors, "majors end");
    WatchService(PluginUseConfigurationReader, "configuration reader ends");
    EventProbe::BeginNotingBlocks();
    PluginUseLog();  // which also opens a handle
    EventProbe::WatchFirstNotedBlock("log writer ends");
    WatchService(PluginUseVariables, "scanner of variables ends");
    WatchService(PluginUseUnitDecimals, "unit decimals end");
#if defined(PROBED_VIEWS)
    PluginSetTip(u"a tip");  // makes its window
    WatchService([] { PluginSetTip(u"a text of the tip that is too long for the object itself"); },
                 "tip ends");
#endif
    if (PluginUseCompanion(PROBED_INSTALLATION) != 7)
        EventProbe::Report("the companion doesn't answer");
    EventProbe::WatchBlock(PluginLibraryManager(), "library manager ends");
    EventProbe::WatchBlock(PluginLibraryDirectories(), "library directories end");
    EventProbe::WatchBlock(PluginProjectDirectories(), "project directories end");
    EventProbe::WatchBlock(PluginCommonDirectories(), "common directories end");
    EventProbe::WatchBlock(PluginKeptBlock(), "the host's data ends");
    EventProbe::WatchBlock(PluginAnalyser(), "analyser ends");
    EventProbe::WatchBlock(PluginXmlTool(), "XML tool ends");
}
}
