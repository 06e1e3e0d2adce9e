// A host whose events are watched. It loads the plug-in at run time, or, built with EVENT_HOST_LINKED, holds
// its code and is linked with the library. The argument says what it does:
//   idle     nothing but start and end
//   close    uses the library and unloads it before the end
//   exit     uses the library and ends with it loaded
//   noxml    as exit, with an XML platform that fails to start
#include <cstring>
#include <memory>

#include "tests/module/probe/EventProbe.h"
#ifdef EVENT_HOST_LINKED
#include "tests/module/Plugin.h"
#else
#include "tests/module/LoadedPlugin.h"
#endif

namespace {

struct HostStatic {
    ~HostStatic() { EventProbe::Report("host's static objects end"); }
} hostStatic;

#ifdef EVENT_HOST_LINKED
struct LoadedPlugin {};
#undef PLUGIN_FUNCTION
#define PLUGIN_FUNCTION(plugin, name) (&(name))
#endif

void UseLibrary([[maybe_unused]] const LoadedPlugin& plugin) {
    PLUGIN_FUNCTION(plugin, PluginSetSoftVersion)(u"a version text that is too long for the object itself");
    EventProbe::WatchBlock(PLUGIN_FUNCTION(plugin, PluginSoftVersionUnits)(), "soft version ends");
    const auto usesVariables = PLUGIN_FUNCTION(plugin, PluginHasVariable);
    EventProbe::BeginNotingBlocks();
    usesVariables();
    if (EventProbe::WatchNotedBlocks("scanner of variables ends") != 1)
        EventProbe::Report("the scanner of variables is not one block");
    EventProbe::WatchBlock(PLUGIN_FUNCTION(plugin, PluginAnalyser)(), "analyser ends");
    EventProbe::WatchBlock(PLUGIN_FUNCTION(plugin, PluginXmlTool)(), "XML tool ends");
}

}  // namespace

int main(int argc, char** argv) {
    const char* mode = argc > 1 ? argv[1] : "exit";
    EventProbe::Report("main begins");
    if (std::strcmp(mode, "noxml") == 0)
        EventProbe::MakeXmlFail();
    // Left alone on purpose unless it is to be closed: the module is then still loaded when the process ends.
    static LoadedPlugin* plugin = new LoadedPlugin;
    if (std::strcmp(mode, "idle") != 0)
        UseLibrary(*plugin);
    if (std::strcmp(mode, "close") == 0) {
        delete plugin;
        plugin = nullptr;
    }
    EventProbe::Report("main ends");
    return 0;
}
