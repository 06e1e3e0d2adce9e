#include "Session.h"

#include <cstdio>
#include <memory>

#include <windows.h>
#include <shellapi.h>

namespace OpenBudget {

Session::Session() = default;

// Those of `main` are in the code page of the system, which lacks characters that a key may have.
std::vector<std::u16string> Session::Arguments(int, char**) {
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(&::LocalFree)> words(
        ::CommandLineToArgvW(::GetCommandLineW(), &count), ::LocalFree);
    std::vector<std::u16string> arguments;
    for (int i = 1; i < count; ++i)
        arguments.emplace_back(reinterpret_cast<const char16_t*>(words.get()[i]));
    return arguments;
}

void Session::WaitForEnd() {
    for (int byte = 0; byte != '\n' && byte != EOF;)
        byte = std::getchar();
}

}  // namespace OpenBudget
