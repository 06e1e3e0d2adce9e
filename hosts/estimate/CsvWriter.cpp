#include "CsvWriter.h"

#include <csv.h>

namespace Estimate {

void CsvWriter::Write(std::span<const std::string_view> fields) {
    bool first = true;
    for (const std::string_view field : fields) {
        if (!first)
            m_out << ',';
        first = false;
        WriteField(field);
    }
    m_out << "\r\n";
}

void CsvWriter::WriteField(std::string_view field) {
    m_quoted.resize(2 * field.size() + 2);
    const std::size_t length = csv_write(m_quoted.data(), m_quoted.size(), field.data(), field.size());
    m_out.write(m_quoted.data(), static_cast<std::streamsize>(length));
}

}  // namespace Estimate
