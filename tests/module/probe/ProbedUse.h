// The plug-in's look at the module from inside.
#pragma once

extern "C" {

void ProbeReport(const char* event);

/// Uses the library and watches what of it has to end.
void ProbeUseLibrary();
}
