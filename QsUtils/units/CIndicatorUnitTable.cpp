#include "QsUtils/units/CIndicatorUnitTable.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "QsUtils/text/Numbers.h"
#include "QsUtils/text/TextSearch.h"

namespace QsUnits {

namespace {

enum class Group : unsigned char { Mass, Volume, Area, Bricks };

struct UnitForm {
    char16_t name[4];
    unsigned char length;
    Group group;
    unsigned short size;  // in the smallest form of the group

    constexpr std::u16string_view Name() const { return {name, length}; }
};

// Ascending by code unit, for the binary search. Factors join the forms of one group only, so the pairs need
// no table of their own.
constexpr std::array<UnitForm, 18> Forms = {{
    {u"KG", 2, Group::Mass, 1},
    {u"M2", 2, Group::Area, 1},
    {u"M3", 2, Group::Volume, 1},
    {u"T", 1, Group::Mass, 1000},
    {u"kg", 2, Group::Mass, 1},
    {u"m2", 2, Group::Area, 1},
    {u"m3", 2, Group::Volume, 1},
    {u"t", 1, Group::Mass, 1000},
    {u"万块", 2, Group::Bricks, 10000},
    {u"公斤", 2, Group::Mass, 1},
    {u"千块", 2, Group::Bricks, 1000},
    {u"吨", 1, Group::Mass, 1000},
    {u"块", 1, Group::Bricks, 1},
    {u"平方", 2, Group::Area, 1},
    {u"平方米", 3, Group::Area, 1},
    {u"百块", 2, Group::Bricks, 100},
    {u"立方", 2, Group::Volume, 1},
    {u"立方米", 3, Group::Volume, 1},
}};

static_assert(std::is_sorted(Forms.begin(), Forms.end(),
                             [](const UnitForm& a, const UnitForm& b) { return a.Name() < b.Name(); }));

constexpr const char16_t* CanonicalUnit(Group group) {
    switch (group) {
        case Group::Mass:
            return u"吨";
        case Group::Volume:
            return u"m3";
        case Group::Area:
            return u"m2";
        case Group::Bricks:
            break;
    }
    return u"千块";
}

const UnitForm* FindForm(std::u16string_view name) {
    const auto* form =
        std::lower_bound(Forms.begin(), Forms.end(), name,
                         [](const UnitForm& a, std::u16string_view b) { return a.Name() < b; });
    return form != Forms.end() && form->Name() == name ? form : nullptr;
}

/// The one piece that a text has between separators, an empty last one not counted; empty when there are
/// more.
std::u16string_view OnlyPiece(std::u16string_view text, std::u16string_view separator) {
    if (separator.empty())
        return {};
    const std::size_t match = QsText::FindText(text, separator);
    if (match == text.npos)
        return text;
    return match + separator.size() == text.size() ? text.substr(0, match) : std::u16string_view();
}

/// The value of a multiple that is all digits; 0 for any other text.
double MultipleOf(std::u16string_view piece) {
    return std::all_of(piece.begin(), piece.end(), QsText::IsDigit) ? QsText::ReadDouble(piece) : 0.0;
}

constexpr double LeastMultiple = 1e-6;

/// The factor between a unit and a multiple of it.
bool MultipleFactor(const CString& first, const CString& second, double& factor) {
    factor = 1.0;
    if (first.CompareNoCase(second) == 0)
        return true;
    const std::u16string_view a = first.View();
    const std::u16string_view b = second.View();
    // The two ways are unlike on purpose: prices rest on a first unit with a multiple being refused, and on
    // the search for the length as a character that refuses it.
    const bool firstLonger = a.size() > b.size();
    if (firstLonger && (b.size() > 0xFFFF || a.find(static_cast<char16_t>(b.size())) == a.npos))
        return false;
    if (!firstLonger && QsText::FindText(b, a) == b.npos)
        return false;
    const double multiple = MultipleOf(firstLonger ? OnlyPiece(a, b) : OnlyPiece(b, a));
    if (std::fabs(multiple) < LeastMultiple)
        return false;
    factor = firstLonger ? multiple : 1.0 / multiple;
    return true;
}

}  // namespace

const CIndicatorUnitTable& CIndicatorUnitTable::Instance() noexcept {
    static constexpr CIndicatorUnitTable table;
    return table;
}

bool CIndicatorUnitTable::GetIndicatorsUnit(const CString& unit, CString& indicatorUnit) const {
    const UnitForm* form = FindForm(unit.View());
    if (form == nullptr)
        return false;
    indicatorUnit = CanonicalUnit(form->group);
    return true;
}

bool CIndicatorUnitTable::GetIndicatorsFactor(const CString& first, const CString& second,
                                              double& factor) const {
    const UnitForm* a = FindForm(first.View());
    const UnitForm* b = a == nullptr ? nullptr : FindForm(second.View());
    if (b == nullptr || a->group != b->group)
        return MultipleFactor(first, second, factor);
    factor = static_cast<double>(a->size) / b->size;
    return true;
}

}  // namespace QsUnits
