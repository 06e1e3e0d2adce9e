#include "Terminal.h"

#include <cstdio>
#include <memory>

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
}

Terminal::~Terminal() {
    if (m_codePage != 0)
        ::SetConsoleOutputCP(m_codePage);
}

bool Terminal::IsWatched() const {
    DWORD mode = 0;
    return ::GetConsoleMode(::GetStdHandle(STD_ERROR_HANDLE), &mode) != 0;
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
