#include "QsUtils/expression/FormulaText.h"

namespace ExpressionAnalyse {

namespace {

enum UnitClass : std::uint8_t { Plain, Blank, SumUnit, ProductUnit, OpenUnit, CloseUnit = OpenUnit + 3 };

/// The classes of the units up to U+00FF; all others are plain.
constexpr auto UnitClasses = [] {
    std::array<std::uint8_t, 256> classes{};
    classes[u' '] = Blank;
    for (const char16_t unit : {u'+', u'-'})
        classes[unit] = SumUnit;
    for (const char16_t unit : {u'*', u'/', u'^', u'×', u'÷'})
        classes[unit] = ProductUnit;
    constexpr std::u16string_view Brackets = u"([{)]}";
    for (std::size_t i = 0; i < Brackets.size(); ++i)
        classes[Brackets[i]] = static_cast<std::uint8_t>(OpenUnit + i);
    return classes;
}();

std::uint8_t ClassOf(char16_t unit) {
    return unit < UnitClasses.size() ? UnitClasses[unit] : static_cast<std::uint8_t>(Plain);
}

char16_t ProductOperator(char16_t unit) {
    return unit == u'×' ? u'*' : unit == u'÷' ? u'/' : unit;
}

}  // namespace

FormulaText::FormulaText(std::u16string_view text) {
    char16_t* const units = m_units.Reserve(text.size());
    Mark* const marks = m_marks.Reserve(text.size() + 1);  // memory behind the last one stays untouched
    std::uint32_t length = 0;
    std::uint32_t count = 0;
    std::uint32_t lastProduct = Mark::None;
    for (const char16_t unit : text) {
        const std::uint8_t unitClass = ClassOf(unit);
        units[length] = unit;
        if (unitClass == Plain) {
            ++length;
            continue;
        }
        if (unitClass == Blank)
            continue;
        marks[count] = {length, Mark::None, lastProduct, MarkKind::Sum, 0};
        if (unitClass == ProductUnit) {
            units[length] = ProductOperator(unit);
            marks[count].kind = MarkKind::Product;
            lastProduct = count;
        } else if (unitClass >= CloseUnit) {
            AddClosing(count, unitClass - CloseUnit);
        } else if (unitClass >= OpenUnit) {
            AddOpening(count, unitClass - OpenUnit);
        }
        ++length;
        ++count;
    }
    marks[count] = {length, Mark::None, lastProduct, MarkKind::End, 0};
    m_length = length;
    m_markCount = count;
    m_isNested = m_isNested && m_innermost == Mark::None;
}

void FormulaText::AddOpening(std::uint32_t index, int bracket) noexcept {
    Mark& mark = m_marks.Data()[index];
    mark.kind = MarkKind::Open;
    mark.bracket = static_cast<std::uint8_t>(bracket);
    mark.partner = m_innermost;
    m_innermost = index;
    ++m_leftOpen[mark.bracket];
    ++m_openBrackets;
    m_hasBrackets = true;
}

void FormulaText::AddClosing(std::uint32_t index, int bracket) noexcept {
    Mark* const marks = m_marks.Data();
    marks[index].kind = MarkKind::Close;
    marks[index].bracket = static_cast<std::uint8_t>(bracket);
    --m_leftOpen[marks[index].bracket];
    m_hasBrackets = true;
    if (m_innermost == Mark::None || marks[m_innermost].bracket != marks[index].bracket) {
        m_isNested = false;
        m_innermost = Mark::None;
        return;
    }
    const std::uint32_t outer = marks[m_innermost].partner;
    marks[m_innermost].partner = index;
    m_innermost = outer;
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
    m_isCounted = true;
}

int FormulaText::BracketError() const noexcept {
    constexpr int FirstError = 2;
    for (std::size_t kind = 0; kind < m_leftOpen.size(); ++kind)
        if (m_leftOpen[kind] != 0)
            return FirstError + static_cast<int>(kind);
    return 0;
}

}  // namespace ExpressionAnalyse
