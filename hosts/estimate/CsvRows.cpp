#include "CsvRows.h"

#include <exception>
#include <new>
#include <string_view>
#include <vector>

#include <csv.h>

namespace Estimate {
namespace {

constexpr std::size_t CsvPieceSize = 1 << 18;

class Reader {
public:
    Reader(Encoding encoding, const RowHandler& handler) : m_encoding(encoding), m_handler(handler) {
        // Blank lines are reported too: the count of lines rests on it.
        if (csv_init(&m_parser, CSV_REPALL_NL) != 0)
            throw std::bad_alloc();
    }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;
    ~Reader() { csv_free(&m_parser); }

    void Feed(std::string_view bytes) {
        while (!bytes.empty()) {
            const std::size_t end = bytes.find_first_of("\r\n");
            const std::size_t length = end == std::string_view::npos ? bytes.size() : end + 1;
            FeedLine(bytes.substr(0, length));
            bytes.remove_prefix(length);
        }
    }

    std::size_t RowLine() const noexcept { return m_rowLine; }

    CsvBreak Finish() {
        csv_set_opts(&m_parser, CSV_REPALL_NL | CSV_STRICT | CSV_STRICT_FINI);
        if (csv_fini(&m_parser, OnField, OnRow, this) != 0)
            return {m_rowLine, Say<Text::QuoteOpen>()};
        Rethrow();
        return {};
    }

private:
    /// A line with its terminator, or a part of one. LF behind CR belongs to the line that CR has ended.
    void FeedLine(std::string_view bytes) {
        const bool tail = m_lineEnded && m_endedByReturn && bytes == "\n";
        if (m_lineEnded && !tail)
            ++m_line;
        const std::size_t taken = csv_parse(&m_parser, bytes.data(), bytes.size(), OnField, OnRow, this);
        Rethrow();
        if (taken != bytes.size())
            throw std::bad_alloc();
        m_lineEnded = bytes.back() == '\n' || bytes.back() == '\r';
        m_endedByReturn = bytes.back() == '\r';
    }

    // An exception must not pass through the C parser, so it waits here until the parser has returned.
    template <typename Action>
    void Guarded(const Action& action) noexcept {
        if (m_failure)
            return;
        try {
            action();
        } catch (...) {
            m_failure = std::current_exception();
        }
    }
    void Rethrow() {
        if (m_failure)
            std::rethrow_exception(m_failure);
    }

    void AddField(std::string_view bytes) {
        if (m_count == m_fields.size())
            m_fields.emplace_back();
        if (m_encoding == Encoding::Utf8)
            m_fields[m_count].assign(bytes);
        else
            m_fields[m_count] = DecodeField(bytes, m_encoding);
        ++m_count;
    }

    bool IsBlank() const {
        for (std::size_t i = 0; i < m_count; ++i)
            if (!m_fields[i].empty())
                return false;
        return true;
    }

    void EndRow() {
        const CsvRow row{m_rowLine, {m_fields.data(), m_count}};
        m_rowLine = m_line + 1;
        if (!IsBlank())
            m_handler(row);
        m_count = 0;
    }

    static void OnField(void* bytes, std::size_t length, void* self) {
        auto& reader = *static_cast<Reader*>(self);
        reader.Guarded([&] { reader.AddField({static_cast<const char*>(bytes), length}); });
    }
    static void OnRow(int, void* self) {
        auto& reader = *static_cast<Reader*>(self);
        reader.Guarded([&] { reader.EndRow(); });
    }

    csv_parser m_parser{};
    Encoding m_encoding;
    const RowHandler& m_handler;
    std::vector<std::string> m_fields;  // kept from row to row for their memory
    std::size_t m_count = 0;
    std::size_t m_line = 1;
    std::size_t m_rowLine = 1;
    bool m_lineEnded = false;
    bool m_endedByReturn = false;
    std::exception_ptr m_failure;
};

}  // namespace

CsvBreak ReadCsv(std::istream& in, Encoding encoding, const RowHandler& handler,
                 const ByteProgress& progress) {
    Reader reader(encoding, handler);
    std::vector<char> piece(CsvPieceSize);
    std::uint64_t bytes = 0;
    while (in.read(piece.data(), static_cast<std::streamsize>(piece.size())), in.gcount() > 0) {
        const auto count = static_cast<std::size_t>(in.gcount());
        reader.Feed({piece.data(), count});
        bytes += count;
        if (progress)
            progress(bytes);
    }
    if (in.bad())
        return {reader.RowLine(), Say<Text::InputBroken>()};
    return reader.Finish();
}

}  // namespace Estimate
