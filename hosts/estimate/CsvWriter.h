// Rows written as CSV.
#pragma once

#include <initializer_list>
#include <ostream>
#include <span>
#include <string>
#include <string_view>

namespace Estimate {

/// Writes fields in quotes and lines that end with CR LF (RFC 4180).
class CsvWriter {
public:
    explicit CsvWriter(std::ostream& out) : m_out(out) {}

    void Write(std::span<const std::string_view> fields);
    void Write(std::initializer_list<std::string_view> fields) {
        Write(std::span(fields.begin(), fields.size()));
    }

private:
    void WriteField(std::string_view field);

    std::ostream& m_out;
    std::string m_quoted;
};

}  // namespace Estimate
