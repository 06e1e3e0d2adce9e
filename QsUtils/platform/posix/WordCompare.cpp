#include "QsUtils/platform/WordCompare.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>

#include "QsUtils/platform/posix/WordKey.h"
#include "QsUtils/platform/posix/WordWeights.h"
#include "QsUtils/text/TextSearch.h"

namespace QsPlatform {

namespace {

constexpr int Sign(bool less) {
    return less ? -1 : 1;
}

/// Holds the key of one text, without an allocation for texts of usual length.
class WordKey {
public:
    explicit WordKey(std::u16string_view text) {
        std::uint8_t* to = m_short.data();
        if (WordKeyLimit(text.size()) > m_short.size()) {
            m_long = std::make_unique_for_overwrite<std::uint8_t[]>(WordKeyLimit(text.size()));
            to = m_long.get();
        }
        m_size = WriteWordKey(text, to);
    }
    std::string_view Bytes() const {
        return {reinterpret_cast<const char*>(m_long ? m_long.get() : m_short.data()), m_size};
    }

private:
    std::array<std::uint8_t, WordKeyLimit(48)> m_short;
    std::unique_ptr<std::uint8_t[]> m_long;
    std::size_t m_size = 0;
};

int CompareKeys(std::u16string_view a, std::u16string_view b) {
    const int order = WordKey(QsText::UpToNul(a)).Bytes().compare(WordKey(QsText::UpToNul(b)).Bytes());
    return order == 0 ? 0 : Sign(order < 0);
}

/// Reads an ASCII text letter by letter. It ends at the end, at a NUL, and at the first unit beyond ASCII.
class AsciiReader {
public:
    explicit AsciiReader(std::u16string_view text) : m_next(text.data()), m_end(text.data() + text.size()) {}

    /// The primary weight of the next letter, 0 behind the last one; what only breaks ties is passed over.
    unsigned Next() {
        for (; m_next != m_end && *m_next < 0x80; ++m_next) {
            m_unit = *m_next;
            if (const unsigned primary = AsciiPrimaries[m_unit]) {
                ++m_next;
                return primary;
            }
            if (m_unit == 0)
                return 0;
            m_passed = true;
        }
        m_foreign = m_next != m_end;
        return 0;
    }
    /// The letter itself.
    char16_t Unit() const { return m_unit; }
    /// Whether it stopped before a unit beyond ASCII.
    bool IsForeign() const { return m_foreign; }
    /// Whether anything was passed over.
    bool HasPassed() const { return m_passed; }

private:
    const char16_t* m_next;
    const char16_t* m_end;
    char16_t m_unit = 0;
    bool m_foreign = false;
    bool m_passed = false;
};

}  // namespace

int CompareWords(std::u16string_view a, std::u16string_view b) {
    AsciiReader readA(a);
    AsciiReader readB(b);
    int caseOrder = 0;
    for (;;) {
        const unsigned letterA = readA.Next();
        const unsigned letterB = readB.Next();
        if (readA.IsForeign() || readB.IsForeign())
            return CompareKeys(a, b);
        if (letterA != letterB)
            return Sign(letterA < letterB);
        if (letterA == 0)
            break;
        // Letters that are alike differ in case alone, and lower case has the higher code.
        if (caseOrder == 0 && readA.Unit() != readB.Unit())
            caseOrder = Sign(readA.Unit() > readB.Unit());
    }
    if (caseOrder != 0)
        return caseOrder;
    return readA.HasPassed() || readB.HasPassed() ? CompareKeys(a, b) : 0;
}

void AppendWordKey(std::u16string_view text, std::string& key) {
    key += WordKey(QsText::UpToNul(text)).Bytes();
}

}  // namespace QsPlatform
