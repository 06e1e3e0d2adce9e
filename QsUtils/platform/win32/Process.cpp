#include "QsUtils/platform/Process.h"

#include <cstdio>
#include <exception>
#include <string>

#include "QsUtils/platform/win32/Screen.h"
#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

namespace {

/// What a message box has in its title: the name of the program, as the framework does it.
std::wstring ProgramName() {
    const CString path = ExecutablePath();
    CString name = path.Mid(path.ReverseFind(u'\\') + 1);
    if (const int point = name.ReverseFind(u'.'); point > 0)
        name.Truncate(point);
    return name.ToWide();
}

std::string EncodeUtf8(const std::wstring& text) {
    const int length = static_cast<int>(text.size());
    std::string bytes(3 * text.size(), '\0');
    bytes.resize(static_cast<std::size_t>(
        ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), 3 * length, nullptr, nullptr)));
    return bytes;
}

void WriteToStandardError(const std::wstring& line) {
    const HANDLE console = ::GetStdHandle(STD_ERROR_HANDLE);
    DWORD ignored = 0;
    // A console takes characters, whatever its code page; a file or a pipe gets UTF-8, as on every system.
    if (::GetConsoleMode(console, &ignored) != 0) {
        ::WriteConsoleW(console, line.data(), static_cast<DWORD>(line.size()), &ignored, nullptr);
        return;
    }
    const std::string bytes = EncodeUtf8(line);
    static_cast<void>(std::fwrite(bytes.data(), 1, bytes.size(), stderr));
}

}  // namespace

CString ExecutablePath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size())
            return CString(path.data(), static_cast<int>(length));
        path.resize(2 * path.size());
    }
}

std::uint32_t TickCount() noexcept {
    return ::GetTickCount();
}

void ShowMessage(const CString& text) noexcept {
    try {
        const std::wstring message = text.ToWide();
        // No box at all is told by 0, or by -1 where there are no windows to be had.
        if (!HasScreen() || ::MessageBoxW(::GetActiveWindow(), message.c_str(), ProgramName().c_str(),
                                          MB_OK | MB_ICONEXCLAMATION | MB_TASKMODAL) <= 0)
            WriteToStandardError(message + L'\n');
    } catch (const std::exception&) {
        static_cast<void>(std::fputs("QsUtils: out of memory\n", stderr));
    }
}

}  // namespace QsPlatform
