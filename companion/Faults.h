// What is wrong with a catalogue.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace Companion {

struct Fault {
    std::wstring file;     ///< in the library's form
    std::size_t line = 0;  ///< from 1 on; 0 when the file as a whole is meant
    std::string text;      ///< in UTF-8
};

class Faults {
public:
    void Add(const std::wstring& file, std::size_t line, std::string text) {
        m_list.push_back({file, line, std::move(text)});
    }
    const std::vector<Fault>& List() const noexcept { return m_list; }

private:
    std::vector<Fault> m_list;
};

/// One line a fault, "file:line: text".
std::string FaultLines(const Faults& faults);

/// Writes the lines to a file in place of what it held, or to standard error where no file is named or it
/// can't be written.
void Publish(const Faults& faults, const std::wstring& file);

}  // namespace Companion
