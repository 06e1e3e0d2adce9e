// What the plug-in of the host tests exports: a module as products have them, linked with the library, loaded
// and unloaded at run time. Plain C, so that the test reaches everything by name without being linked itself.
#pragma once

#include <cstddef>

extern "C" {

/// Calls every family of functions once. Returns null, or the first call whose answer is wrong.
const char* PluginUseEveryService();

/// How many of the library's services there are, and one service called by its number, with its answer
/// checked.
std::size_t PluginServiceCount();
bool PluginCallService(std::size_t index);

/// Calls that make one service each and nothing else that stays; there are no files for them to read.
void PluginUseVariables();
void PluginUseConfigurationReader();
void PluginUseMajors();
void PluginUseUnitDecimals();

/// The analyser as the library hands it out.
void* PluginAnalyser();

/// A new XML tool, which nobody removes.
void* PluginXmlTool();

void PluginSetSoftVersion(const char16_t* version);
bool PluginSoftVersionIs(const char16_t* version);
/// The address of the version text's units.
const void* PluginSoftVersionUnits();

/// Whether an exception thrown inside the library arrives here as what it is.
bool PluginCatchesByType();
}
