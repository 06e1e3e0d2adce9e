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
/// Makes the writer of the log, which has no folder to write to.
void PluginUseLog();

/// Sets the text of the tip, which gets its window with it.
void PluginSetTip(const char16_t* text);

/// A block of the host's own that the library has been given.
void* PluginKeptBlock();

/// The analyser as the library hands it out.
void* PluginAnalyser();

/// The services as the library hands them out.
void* PluginCommonDirectories();
void* PluginProjectDirectories();
void* PluginLibraryDirectories();
void* PluginLibraryManager();

/// Loads the companion of an installation, to be called first; gives its series.
int PluginUseCompanion(const char* installation);

/// A new XML tool, which nobody removes.
void* PluginXmlTool();

void PluginSetSoftVersion(const char16_t* version);
bool PluginSoftVersionIs(const char16_t* version);
/// The address of the version text's units.
const void* PluginSoftVersionUnits();

/// Whether an exception thrown inside the library arrives here as what it is.
bool PluginCatchesByType();
}
