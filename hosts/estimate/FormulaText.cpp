#include "FormulaText.h"

#include <array>
#include <string_view>

namespace Estimate {
namespace {

constexpr std::array<std::u16string_view, 7> Functions = {u"fabs", u"sin",  u"cos", u"tan",
                                                          u"ln",   u"sqrt", u"exp"};

bool IsOpening(char16_t unit) {
    return unit == u'(' || unit == u'[' || unit == u'{';
}
bool IsClosing(char16_t unit) {
    return unit == u')' || unit == u']' || unit == u'}';
}
bool IsAdditive(char16_t unit) {
    return unit == u'+' || unit == u'-';
}
bool IsProduct(char16_t unit) {
    return unit == u'*' || unit == u'/' || unit == u'^' || unit == u'×' || unit == u'÷';
}

/// Follows a formula from left to right and remembers for each open bracket whether its sum has a minus.
class Watcher {
public:
    void See(char16_t unit, int position) {
        if (IsOpening(unit))
            m_minus.push_back(false);
        else if (IsClosing(unit) && m_minus.size() > 1)
            m_minus.pop_back();
        else if (IsProduct(unit))
            SeeProduct(unit, position);
        else if (IsAdditive(unit) && m_afterOperand)
            SeeAdditive(unit, position);
        m_afterOperand = !IsOpening(unit) && !IsAdditive(unit) && !IsProduct(unit);
    }

    std::vector<FormulaRemark> remarks;

private:
    void SeeProduct(char16_t unit, int position) {
        if (m_minus.size() > 1 && !m_product) {
            m_product = true;
            remarks.push_back({Severity::Error, Say<Text::ProductInBrackets>(position)});
        }
        if (unit == u'^' && !m_power) {
            m_power = true;
            remarks.push_back({Severity::Warning, Say<Text::PowerMultiplies>(position)});
        }
    }

    void SeeAdditive(char16_t unit, int position) {
        if (m_minus.back() && !m_chain) {
            m_chain = true;
            remarks.push_back({Severity::Warning, Say<Text::MinusChain>(position)});
        }
        m_minus.back() = m_minus.back() || unit == u'-';
    }

    std::vector<bool> m_minus = {false};
    bool m_afterOperand = false;
    bool m_product = false;
    bool m_power = false;
    bool m_chain = false;
};

}  // namespace

CString PlainFormula(const CString& formula) {
    std::u16string plain(formula.View());
    for (char16_t& unit : plain) {
        if (unit >= u'\uFF01' && unit <= u'\uFF5E')
            unit = static_cast<char16_t>(unit - 0xFEE0);
        else if (unit == u'【')
            unit = u'[';
        else if (unit == u'】')
            unit = u']';
        else if (unit == u'\u3000' || unit == u'\u00A0' || (unit >= u'\t' && unit <= u'\r'))
            unit = u' ';
    }
    return CString(std::move(plain));
}

CString FunctionPrefix(const CString& operand) {
    CString lower = operand;
    lower.MakeLower();
    for (const std::u16string_view function : Functions)
        if (lower.View().starts_with(function))
            return CString(function);
    return CString();
}

std::vector<FormulaRemark> RemarksOn(const CString& formula) {
    Watcher watcher;
    int position = 0;
    for (const char16_t unit : formula.View()) {
        ++position;
        if (unit != u' ')
            watcher.See(unit, position);
    }
    return std::move(watcher.remarks);
}

}  // namespace Estimate
