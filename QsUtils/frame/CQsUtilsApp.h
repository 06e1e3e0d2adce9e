// The module object: what happens when the library enters a process and when it leaves it.
#pragma once

/// One static object of the module. Its two operations run once each, called by the module itself.
class CQsUtilsApp {
public:
    /// Runs when all static objects stand. Always true: without XML the module is still of use.
    bool InitInstance();
    /// Ends the services in their fixed order, before any static object is destroyed; returns 0.
    int ExitInstance();
};
