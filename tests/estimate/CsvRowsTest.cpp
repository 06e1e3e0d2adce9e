#include <algorithm>
#include <random>
#include <sstream>
#include <stdexcept>

#include <gtest/gtest.h>

#include "CsvRows.h"
#include "EnglishText.h"

using namespace Estimate;

namespace {

struct ReadRow {
    std::size_t line;
    std::vector<std::string> fields;
    bool operator==(const ReadRow&) const = default;
};

std::vector<ReadRow> Rows(const std::string& text, CsvBreak* end = nullptr,
                          Encoding encoding = Encoding::Utf8) {
    std::istringstream in(text);
    std::vector<ReadRow> rows;
    const CsvBreak result = ReadCsv(in, encoding, [&](const CsvRow& row) {
        rows.push_back({row.line, {row.fields.begin(), row.fields.end()}});
    });
    if (end != nullptr)
        *end = result;
    return rows;
}

std::ostream& operator<<(std::ostream& out, const ReadRow& row) {
    out << row.line << ':';
    for (const std::string& field : row.fields)
        out << '[' << field << ']';
    return out;
}

}  // namespace

TEST(CsvRows, FieldsAndLines) {
    EXPECT_EQ(Rows("a,b\nc,d\n"), (std::vector<ReadRow>{{1, {"a", "b"}}, {2, {"c", "d"}}}));
    EXPECT_EQ(Rows("a,b\r\nc,d\r\n"), (std::vector<ReadRow>{{1, {"a", "b"}}, {2, {"c", "d"}}}));
    EXPECT_EQ(Rows("a,b\rc,d"), (std::vector<ReadRow>{{1, {"a", "b"}}, {2, {"c", "d"}}}));
    EXPECT_EQ(Rows(""), std::vector<ReadRow>{});
    EXPECT_EQ(Rows("a,,\n"), (std::vector<ReadRow>{{1, {"a", "", ""}}}));
}

TEST(CsvRows, BlankLinesCountButAreNoRows) {
    EXPECT_EQ(Rows("\n\na\n\n \t\n,,\nb\n"), (std::vector<ReadRow>{{3, {"a"}}, {7, {"b"}}}));
    EXPECT_EQ(Rows("\r\n\r\na\r\n\r\nb"), (std::vector<ReadRow>{{3, {"a"}}, {5, {"b"}}}));
}

TEST(CsvRows, QuotesHoldCommasQuotesAndLines) {
    EXPECT_EQ(Rows("\"a,b\",\"say \"\"x\"\"\"\n"), (std::vector<ReadRow>{{1, {"a,b", "say \"x\""}}}));
    EXPECT_EQ(Rows("x,\"1.土\n2.方\r\n3.量\",y\nz\n"),
              (std::vector<ReadRow>{{1, {"x", "1.土\n2.方\r\n3.量", "y"}}, {4, {"z"}}}));
    EXPECT_EQ(Rows("DN50 2\"管,b\n"), (std::vector<ReadRow>{{1, {"DN50 2\"管", "b"}}}));
}

TEST(CsvRows, WhiteSpaceAroundAFieldFallsAway) {
    EXPECT_EQ(Rows("  a\t, \" b \" ,c \n"), (std::vector<ReadRow>{{1, {"a", " b ", "c"}}}));
}

TEST(CsvRows, AQuoteWithoutEndBreaksOff) {
    CsvBreak end;
    EXPECT_EQ(Rows("a,b\n\nc,\"d\ne,f\n", &end), (std::vector<ReadRow>{{1, {"a", "b"}}}));
    EXPECT_EQ(end.line, 3u);
    EXPECT_EQ(end.reason, "a quote opened in this row is never closed");
    Rows("a,\"b\"", &end);
    EXPECT_EQ(end.reason, "");
}

TEST(CsvRows, FieldsInGbk) {
    EXPECT_EQ(Rows("\xCD\xC1,\"\xB7\xBD\"\n", nullptr, Encoding::Gbk),
              (std::vector<ReadRow>{{1, {"土", "方"}}}));
}

TEST(CsvRows, ExceptionsOfTheHandlerPassThrough) {
    std::istringstream in("a\nb\nc\n");
    const RowHandler raise = [](const CsvRow&) { throw std::runtime_error("stop"); };
    EXPECT_THROW(ReadCsv(in, Encoding::Utf8, raise), std::runtime_error);
}

TEST(CsvRows, ProgressReachesTheSize) {
    const std::string text(700'000, 'x');
    std::istringstream in(text);
    std::uint64_t last = 0;
    ReadCsv(
        in, Encoding::Utf8, [](const CsvRow&) {},
        [&](std::uint64_t bytes) {
            EXPECT_GT(bytes, last);
            last = bytes;
        });
    EXPECT_EQ(last, text.size());
}

// Written tables come back, with the line that a count of line ends gives.
TEST(CsvRows, RandomTablesComeBack) {
    std::mt19937 random(11);
    constexpr const char* ends[] = {"\n", "\r\n", "\r"};
    constexpr const char* pieces[] = {"a", "土方", ",", "\"", "\n", "\r\n", " ", "9"};
    for (int round = 0; round < 20'000; ++round) {
        const char* end = ends[random() % 3];
        std::string text;
        std::vector<ReadRow> expected;
        std::size_t line = 1;
        for (std::size_t row = random() % 6; row > 0; --row) {
            ReadRow& written = expected.emplace_back(ReadRow{line, {}});
            for (std::size_t field = random() % 4 + 1; field > 0; --field) {
                std::string value = "k";
                for (std::size_t piece = random() % 5; piece > 0; --piece)
                    value += pieces[random() % std::size(pieces)];
                line += static_cast<std::size_t>(std::ranges::count(value, '\n'));
                text += written.fields.empty() ? "\"" : ",\"";
                for (const char byte : value)
                    text += byte == '"' ? "\"\"" : std::string(1, byte);
                text += '"';
                written.fields.push_back(std::move(value));
            }
            text += end;
            ++line;
            for (std::size_t blank = random() % 3; blank > 1; --blank, ++line)
                text += end;
        }
        ASSERT_EQ(Rows(text), expected) << text;
    }
}

TEST(CsvRows, LineEndsAcrossReadBoundariesCountOnce) {
    for (std::size_t shift = 0; shift < 3; ++shift) {
        const std::string filler((1 << 18) - 1 - shift, 'x');
        EXPECT_EQ(Rows(filler + "\r\nb\r\nc\r\n").back(), (ReadRow{3, {"c"}}));
    }
}
