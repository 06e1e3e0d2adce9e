// Reads pairs of texts, one pair a line, and writes them with what lstrcmpW answers. See README.md.
#include <cstdio>
#include <iostream>
#include <string>

#include <windows.h>

namespace {

/// A text of the fixture: UTF-8, where \uXXXX stands for a unit that doesn't show.
std::wstring Read(const std::string& field) {
    std::wstring raw(field.size() + 1, L'\0');
    raw.resize(static_cast<std::size_t>(MultiByteToWideChar(
        CP_UTF8, 0, field.data(), static_cast<int>(field.size()), raw.data(), static_cast<int>(raw.size()))));
    std::wstring text;
    for (std::size_t i = 0; i < raw.size(); ++i) {
        if (raw[i] == L'\\') {
            text += static_cast<wchar_t>(std::stoi(raw.substr(i + 2, 4), nullptr, 16));
            i += 5;
        } else {
            text += raw[i];
        }
    }
    return text;
}

}  // namespace

int main() {
    std::string line;
    while (std::getline(std::cin, line)) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        const std::size_t tab = line.find('\t');
        const int order = lstrcmpW(Read(line.substr(0, tab)).c_str(), Read(line.substr(tab + 1)).c_str());
        std::printf("%c\t%s\n", order < 0 ? '<' : order > 0 ? '>' : '=', line.c_str());
    }
    return 0;
}
