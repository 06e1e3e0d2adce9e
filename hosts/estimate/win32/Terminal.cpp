#include "Terminal.h"

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>

#include <windows.h>
#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

namespace Estimate {
namespace {

std::string Utf8(const wchar_t* text) {
    const int size = ::WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, text, -1, bytes.data(), size, nullptr, nullptr);
    bytes.resize(bytes.size() - 1);
    return bytes;
}

}  // namespace

Terminal::Terminal() {
    // The same bytes on every system: no line end is turned into two.
    for (std::FILE* const stream : {stdin, stdout, stderr})
        _setmode(_fileno(stream), _O_BINARY);
    m_codePage = ::GetConsoleOutputCP();
    ::SetConsoleOutputCP(CP_UTF8);
    m_inputCodePage = ::GetConsoleCP();
    ::SetConsoleCP(CP_UTF8);
    // A console takes escape sequences when it is asked to; older ones can't.
    const HANDLE err = ::GetStdHandle(STD_ERROR_HANDLE);
    if (::GetConsoleMode(err, &m_mode) != 0)
        m_isDrawable = ::SetConsoleMode(err, m_mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

Terminal::~Terminal() {
    if (m_codePage != 0)
        ::SetConsoleOutputCP(m_codePage);
    if (m_inputCodePage != 0)
        ::SetConsoleCP(m_inputCodePage);
    if (m_isDrawable)
        ::SetConsoleMode(::GetStdHandle(STD_ERROR_HANDLE), m_mode);
}

bool Terminal::IsWatched() const {
    const char* const kind = std::getenv("TERM");
    return m_isDrawable && (kind == nullptr || std::string_view(kind) != "dumb");
}

// Those of `main` are in the code page of the system, which lacks characters that a name may have.
std::vector<std::string> Terminal::Arguments(int, char**) {
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(&::LocalFree)> words(
        ::CommandLineToArgvW(::GetCommandLineW(), &count), ::LocalFree);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i)
        arguments.push_back(Utf8(words.get()[i]));
    return arguments;
}

}  // namespace Estimate
