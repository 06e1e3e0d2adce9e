#include "QsUtils/expression/FormulaText.h"

namespace ExpressionAnalyse {

namespace {

enum UnitClass : std::uint8_t { Plain, Blank, SumUnit, ProductUnit, OpenUnit, CloseUnit = OpenUnit + 3 };

constexpr auto UnitClasses = [] {
    std::array<std::uint8_t, 128> classes{};
    classes[u' '] = Blank;
    for (const char16_t unit : {u'+', u'-'})
        classes[unit] = SumUnit;
    for (const char16_t unit : {u'*', u'/', u'^'})
        classes[unit] = ProductUnit;
    constexpr std::u16string_view Brackets = u"([{)]}";
    for (std::size_t i = 0; i < Brackets.size(); ++i)
        classes[Brackets[i]] = static_cast<std::uint8_t>(OpenUnit + i);
    return classes;
}();

std::uint8_t ClassOf(char16_t unit) {
    return unit < UnitClasses.size() ? UnitClasses[unit] : static_cast<std::uint8_t>(Plain);
}

}  // namespace

FormulaText::FormulaText(std::u16string_view text) {
    m_markCount = CopyUnits(text);
    AddMarks();
    if (m_hasBrackets)
        CountBrackets();
}

/// Copies what stays of the text and returns how many marks it has.
std::uint32_t FormulaText::CopyUnits(std::u16string_view text) {
    char16_t* const units = m_units.Reserve(text.size());
    std::uint32_t length = 0;
    std::uint32_t marks = 0;
    for (char16_t unit : text) {
        if (unit >= UnitClasses.size()) {
            if (unit == u'×')
                unit = u'*';
            else if (unit == u'÷')
                unit = u'/';
        }
        const std::uint8_t unitClass = ClassOf(unit);
        units[length] = unit;
        length += unitClass != Blank;
        marks += unitClass > Blank;
    }
    m_length = length;
    return marks;
}

void FormulaText::AddMarks() {
    Mark* const marks = m_marks.Reserve(m_markCount + std::size_t{1});
    const char16_t* const units = m_units.Data();
    Mark* mark = marks;
    std::uint32_t lastProduct = Mark::None;
    std::uint32_t innermost = Mark::None;  // the open brackets, linked through their partners
    for (std::uint32_t i = 0; i < m_length; ++i) {
        const std::uint8_t unitClass = ClassOf(units[i]);
        if (unitClass == Plain)
            continue;
        const auto index = static_cast<std::uint32_t>(mark - marks);
        *mark = {i, Mark::None, lastProduct, MarkKind::Sum, 0};
        if (unitClass == ProductUnit) {
            mark->kind = MarkKind::Product;
            lastProduct = index;
        } else if (unitClass >= CloseUnit) {
            mark->kind = MarkKind::Close;
            mark->bracket = static_cast<std::uint8_t>(unitClass - CloseUnit);
            if (innermost == Mark::None || marks[innermost].bracket != mark->bracket) {
                m_isNested = false;
                innermost = Mark::None;
            } else {
                const std::uint32_t outer = marks[innermost].partner;
                marks[innermost].partner = index;
                innermost = outer;
            }
        } else if (unitClass >= OpenUnit) {
            mark->kind = MarkKind::Open;
            mark->bracket = static_cast<std::uint8_t>(unitClass - OpenUnit);
            mark->partner = innermost;
            innermost = index;
            m_hasBrackets = true;
            ++m_openBrackets;
        }
        m_hasBrackets = m_hasBrackets || unitClass >= OpenUnit;
        ++mark;
    }
    *mark = {m_length, Mark::None, lastProduct, MarkKind::End, 0};
    m_isNested = m_isNested && innermost == Mark::None;
}

void FormulaText::CountBrackets() {
    OpenCounts* const counts = m_counts.Reserve(m_markCount + std::size_t{1});
    OpenCounts open{};
    for (std::uint32_t i = 0; i <= m_markCount; ++i) {
        const Mark& mark = m_marks.Data()[i];
        counts[i] = open;
        if (mark.kind == MarkKind::Open)
            ++open[mark.bracket];
        else if (mark.kind == MarkKind::Close)
            --open[mark.bracket];
    }
}

int FormulaText::BracketError() const noexcept {
    if (!m_hasBrackets)
        return 0;
    const OpenCounts& open = CountsAt(m_markCount);
    constexpr int FirstError = 2;
    for (std::size_t kind = 0; kind < open.size(); ++kind)
        if (open[kind] != 0)
            return FirstError + static_cast<int>(kind);
    return 0;
}

}  // namespace ExpressionAnalyse
