// The plug-in, loaded for the life of an object; its functions by name.
#pragma once

#include "tests/module/Plugin.h"
#include "tests/support/SharedModule.h"

class LoadedPlugin : public SharedModule {
public:
    LoadedPlugin() : SharedModule(QSUTILS_PLUGIN) {}
};

#define PLUGIN_FUNCTION(plugin, name) ((plugin).Function<decltype(name)>(#name))
