#include "tests/support/win32/ProgramStart.h"

#include <map>

#include <windows.h>

namespace {

std::wstring Wide(const std::string& utf8) {
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end())).wstring();
}

/// One argument as the C runtime of the program takes it apart again.
std::wstring Quoted(const std::wstring& argument) {
    std::wstring text = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t character : argument) {
        if (character == L'"')
            text.append(backslashes + 1, L'\\');
        backslashes = character == L'\\' ? backslashes + 1 : 0;
        text += character;
    }
    return text.append(backslashes, L'\\') + L"\"";
}

}  // namespace

std::wstring CommandLine(const ProgramCall& call) {
    std::wstring line = Quoted(call.program.wstring());
    for (const std::string& argument : call.arguments)
        line += L" " + Quoted(Wide(argument));
    return line;
}

std::wstring EnvironmentBlock(const ProgramCall& call) {
    std::map<std::wstring, std::wstring> variables;
    wchar_t* const block = ::GetEnvironmentStringsW();
    for (const wchar_t* entry = block; *entry != L'\0';
         entry += std::char_traits<wchar_t>::length(entry) + 1) {
        const std::wstring text = entry;
        const std::size_t sign = text.find(L'=', 1);
        variables[text.substr(0, sign)] = sign == std::wstring::npos ? L"" : text.substr(sign + 1);
    }
    ::FreeEnvironmentStringsW(block);
    for (const auto& [name, value] : call.environment)
        variables[Wide(name)] = Wide(value);
    std::wstring text;
    for (const auto& [name, value] : variables)
        text.append(name).append(L"=").append(value).append(1, L'\0');
    return text + L'\0';
}
