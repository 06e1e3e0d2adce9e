// The life of the XML platform inside the module.
#pragma once

namespace QsXml {

/// Starts the platform by `initialise`, which may throw what the platform throws; its message is then shown,
/// and the module goes on without XML.
void StartXmlPlatform(void (*initialise)());
void StartXmlPlatform();

/// Ends the platform; does nothing when it didn't start.
void EndXmlPlatform();

/// Whether the platform runs: without it no other call of the XML library may be made.
bool IsXmlPlatformRunning() noexcept;

}  // namespace QsXml
