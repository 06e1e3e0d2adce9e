#include "tests/module/probe/ProbedUse.h"

#include "tests/module/Plugin.h"
#include "tests/module/probe/EventProbe.h"

extern "C" {

TEST_EXPORT void ProbeReport(const char* event) {
    EventProbe::Report(event);
}

TEST_EXPORT void ProbeUseLibrary() {
    PluginSetSoftVersion(u"a version text that is too long for the object itself");
    EventProbe::WatchBlock(PluginSoftVersionUnits(), "soft version ends");
    EventProbe::BeginNotingBlocks();
    PluginHasVariable();
    if (EventProbe::WatchNotedBlocks("scanner of variables ends") != 1)
        EventProbe::Report("the scanner of variables is not one block");
    EventProbe::WatchBlock(PluginAnalyser(), "analyser ends");
    EventProbe::WatchBlock(PluginXmlTool(), "XML tool ends");
}
}
