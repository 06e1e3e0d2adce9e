/// @file
/// The two facts about the system that every public header needs: how a symbol crosses the module's
/// boundary, and what the unit of a text is called on this system. Compiles as C, too.
#pragma once

#if defined(_WIN32)
#if defined(QSUTILS_BUILDING)
#define QSUTILS_API __declspec(dllexport)
#elif defined(QSUTILS_STATIC)
#define QSUTILS_API
#else
#define QSUTILS_API __declspec(dllimport)
#endif
#else
/// Marks what crosses the boundary of the module.
#define QSUTILS_API __attribute__((visibility("default")))
#endif

#if defined(__cplusplus)
namespace QsPlatform {

/// The 16-bit unit in which hosts on this system write wide text: the type of `CString::XCHAR`.
#if defined(_WIN32)
using TextUnit = wchar_t;
#else
using TextUnit = char16_t;
#endif

}  // namespace QsPlatform
#endif
