// Reads questions to profile files, one a line, and writes them with what the system's calls answer. See
// README.md.
#include <cstdio>
#include <iostream>
#include <string>
#include <vector>

#include <windows.h>

namespace {

/// The bytes of a file: printable ASCII as it is, everything else as \xHH.
std::string Bytes(const std::string& field) {
    std::string bytes;
    for (std::size_t i = 0; i < field.size(); ++i) {
        if (field[i] == '\\') {
            bytes += static_cast<char>(std::stoi(field.substr(i + 2, 2), nullptr, 16));
            i += 3;
        } else {
            bytes += field[i];
        }
    }
    return bytes;
}

/// A text: printable ASCII as it is, every other unit as \uXXXX.
std::wstring Text(const std::string& field) {
    std::wstring text;
    for (std::size_t i = 0; i < field.size(); ++i) {
        if (field[i] == '\\') {
            text += static_cast<wchar_t>(std::stoi(field.substr(i + 2, 4), nullptr, 16));
            i += 5;
        } else {
            text += static_cast<wchar_t>(field[i]);
        }
    }
    return text;
}

std::string Field(const std::wstring& text) {
    std::string field;
    for (const wchar_t unit : text) {
        char escaped[8];
        if (unit >= L' ' && unit < 0x7F && unit != L'\\')
            field += static_cast<char>(unit);
        else
            field.append(escaped, static_cast<std::size_t>(std::snprintf(escaped, sizeof(escaped), "\\u%04X",
                                                                         static_cast<unsigned>(unit))));
    }
    return field;
}

std::vector<std::string> Split(const std::string& line) {
    std::vector<std::string> fields(1);
    for (const char each : line) {
        if (each == '\t')
            fields.emplace_back();
        else
            fields.back() += each;
    }
    return fields;
}

/// A new name each time: the system remembers files by name and time.
std::wstring MakeFile(const std::string& field) {
    static int count = 0;
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    const std::wstring path = folder + (L"profile" + std::to_wstring(GetCurrentProcessId())) + L"-" +
                              std::to_wstring(++count) + L".ini";
    DeleteFileW(path.c_str());
    if (field == "(none)")
        return path;
    const std::string bytes = Bytes(field);
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(file);
    return path;
}

std::string Read(const std::wstring& path, const std::wstring& section, const std::wstring& key,
                 const std::wstring& otherwise, std::size_t size) {
    std::vector<wchar_t> buffer(size + 1, L'\x7777');
    const DWORD length = GetPrivateProfileStringW(section.c_str(), key.c_str(), otherwise.c_str(),
                                                  buffer.data(), static_cast<DWORD>(size), path.c_str());
    return Field(std::wstring(buffer.data(), length));
}

}  // namespace

int main() {
    std::string line;
    while (std::getline(std::cin, line)) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        const std::vector<std::string> f = Split(line);
        const std::wstring path = MakeFile(f.at(1));
        std::string answer;
        if (f.at(0) == "read") {
            answer = Read(path, Text(f.at(2)), Text(f.at(3)), Text(f.at(4)), std::stoul(f.at(5)));
        } else {
            WritePrivateProfileStringW(Text(f.at(2)).c_str(), Text(f.at(3)).c_str(), Text(f.at(4)).c_str(),
                                       path.c_str());
            answer = Read(path, Text(f.at(5)), Text(f.at(6)), L"(default)", 128);
        }
        DeleteFileW(path.c_str());
        std::printf("%s\t%s\n", line.c_str(), answer.c_str());
    }
    return 0;
}
