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
    WatchService(PluginUseVariables, "scanner of variables ends");
    WatchService(PluginUseUnitDecimals, "unit decimals end");
    EventProbe::WatchBlock(PluginAnalyser(), "analyser ends");
    EventProbe::WatchBlock(PluginXmlTool(), "XML tool ends");
}
}
