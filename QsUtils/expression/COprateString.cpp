#include "QsUtils/expression/COprateString.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <unordered_set>

#include "QsUtils/platform/CodePage.h"
#include "QsUtils/text/Numbers.h"

namespace {

using View = std::u16string_view;

// A head goes away with its bracket. The order matters: "SIN(" goes before "ASIN(", so that "ASIN(1)" leaves
// an "A", which is a variable.
constexpr std::array<View, 12> FunctionHeads = {u"SIN(", u"COS(", u"ASIN(", u"ACOS(", u"SQRT(", u"ATAN(",
                                                u"TAN(", u"EXP(", u"LOG(",  u"SQR(",  u"RAD(",  u"LN("};

// "EXP" isn't among the names: the scans take it for a variable, though its head goes away above.
constexpr std::array<View, 11> FunctionNames = {u"SIN",  u"COS", u"ASIN", u"ACOS", u"TAN", u"ATAN",
                                                u"SQRT", u"LOG", u"SQR",  u"RAD",  u"LN"};

constexpr char16_t UpperCase(char16_t unit) {
    return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - u'a' + u'A') : unit;
}

bool IsAsciiLetter(char16_t unit) {
    const char16_t upper = UpperCase(unit);
    return upper >= u'A' && upper <= u'Z';
}

/// Only the low byte is asked for, so a hanzi is a letter or a separator by its place in its row.
bool IsLetter(char16_t unit) {
    return IsAsciiLetter(unit) || QsPlatform::IsLeadByte(static_cast<unsigned char>(unit));
}

bool EqualsUpper(View text, View upper) {
    return std::equal(text.begin(), text.end(), upper.begin(), upper.end(),
                      [](char16_t a, char16_t b) { return UpperCase(a) == b; });
}

bool IsFunctionName(View token) {
    return std::any_of(FunctionNames.begin(), FunctionNames.end(),
                       [token](View name) { return EqualsUpper(token, name); });
}

/// Deletes `token` from an upper-case text until it doesn't occur, also where a deletion brings it together.
void RemoveToken(std::u16string& text, View token) {
    std::size_t kept = 0;
    for (const char16_t unit : text) {
        text[kept++] = unit;
        if (kept >= token.size() && View(text).substr(kept - token.size(), token.size()) == token)
            kept -= token.size();
    }
    text.resize(kept);
}

/// Walks a formula and hands each token on where it ends: `AtBracket` at a "]", `AtSeparator` at any other
/// unit that no token holds, `AtEnd` behind the text. They clear the token unless it is to run on.
template <typename Ends>
void ScanTokens(View text, Ends& ends) {
    std::u16string token;
    bool inBraces = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (inBraces) {
            inBraces = unit != u'}';
        } else if (unit == u'{') {
            inBraces = true;
        } else if (IsLetter(unit) || unit == u'[' || (QsText::IsDigit(unit) && !token.empty())) {
            token += unit;
        } else if (unit == u']') {
            ends.AtBracket(token, i);
        } else if (!token.empty() && !QsText::IsDigit(unit)) {
            ends.AtSeparator(token, i);
        }
    }
    if (!token.empty() && !IsFunctionName(token))
        ends.AtEnd(token, text.size());
}

/// Collects variables in a list. A function's name and, when asked for, a repeated variable stay in the token
/// and run on into what follows.
class ListOfVariables {
public:
    ListOfVariables(std::list<CString>& out, bool unique) : m_out(out), m_unique(unique) {
        if (unique)
            for (const CString& variable : out)
                m_known.insert(variable.View());
    }

    void AtBracket(std::u16string& token, std::size_t) {
        if (IsFunctionName(token)) {
            Clear(token);
        } else if (token.size() == m_ranOn || IsRepeated(token)) {
            m_ranOn = token.size();
        } else {
            token += u']';
            Add(token);
        }
    }
    void AtSeparator(std::u16string& token, std::size_t) {
        // A token that ran on is looked at again only when it has grown.
        if (token.size() == m_ranOn)
            return;
        if (IsFunctionName(token) || IsRepeated(token))
            m_ranOn = token.size();
        else
            Add(token);
    }
    void AtEnd(std::u16string& token, std::size_t) {
        // Here a repeated variable is left out whether asked for or not.
        const bool held = m_unique ? IsRepeated(token)
                                   : std::any_of(m_out.begin(), m_out.end(), [&token](const CString& other) {
                                         return other.View() == token;
                                     });
        if (!held)
            Add(token);
    }

private:
    bool IsRepeated(View token) const { return m_unique && m_known.contains(token); }
    void Add(std::u16string& token) {
        m_out.emplace_back(View(token));
        if (m_unique)
            m_known.insert(m_out.back().View());
        Clear(token);
    }
    void Clear(std::u16string& token) {
        token.clear();
        m_ranOn = View::npos;
    }

    std::list<CString>& m_out;
    std::unordered_set<View> m_known;  // views of the list's own texts, which stay where they are
    std::size_t m_ranOn = View::npos;  // the length of a token that was let run on
    bool m_unique;
};

/// Collects variables under the index of their last unit.
class MapOfVariables {
public:
    explicit MapOfVariables(std::map<int, CString>& out) : m_out(out) {}

    void AtBracket(std::u16string& token, std::size_t index) {
        if (!IsFunctionName(token)) {
            token += u']';
            m_out[static_cast<int>(index)] = CString(View(token));
        }
        token.clear();
    }
    void AtSeparator(std::u16string& token, std::size_t index) {
        if (!IsFunctionName(token))
            m_out[static_cast<int>(index) - 1] = CString(View(token));
        token.clear();
    }
    void AtEnd(std::u16string& token, std::size_t length) {
        m_out[static_cast<int>(length) - 1] = CString(View(token));
    }

private:
    std::map<int, CString>& m_out;
};

}  // namespace

bool COprateString::IsVariable(const CString& text) const {
    const View units = text.View();
    if (units.find(u'[') != View::npos && units.find(u']') != View::npos)
        return true;
    const bool mayHoldHead = units.size() > 1 && units.find(u'(') != View::npos;
    if (!mayHoldHead || std::none_of(units.begin(), units.end(), IsAsciiLetter))
        return std::any_of(units.begin(), units.end(), IsLetter);
    std::u16string rest(units);
    std::transform(rest.begin(), rest.end(), rest.begin(), UpperCase);
    for (const View head : FunctionHeads)
        RemoveToken(rest, head);
    return std::any_of(rest.begin(), rest.end(), IsLetter);
}

bool COprateString::FindVariable(const CString& text, std::list<CString>& out, bool unique) const {
    if (!IsVariable(text))
        return false;
    ListOfVariables variables(out, unique);
    ScanTokens(text.View(), variables);
    return true;
}

bool COprateString::FindVariable(const CString& text, std::map<int, CString>& out) const {
    if (!IsVariable(text))
        return false;
    MapOfVariables variables(out);
    ScanTokens(text.View(), variables);
    return true;
}

bool COprateString::IsIncludeQ(const CString& text) const {
    std::list<CString> variables;
    if (!FindVariable(text, variables, false))
        return false;
    return std::any_of(variables.begin(), variables.end(), [](const CString& variable) {
        return EqualsUpper(variable.View(), u"Q") || EqualsUpper(variable.View(), u"[Q]");
    });
}

void COprateString::ReplaceQWithProjectAmount(CString& text, const CString& amount) const {
    CString trimmed = amount;
    TrimTrailingZeros(trimmed);
    for (const char16_t* variable : {u"Q", u"q", u"[Q]", u"[q]"})
        ReplaceVarString(text, variable, trimmed);
}

void COprateString::ReplaceVarString(CString& text, const CString& variable, const CString& value) const {
    std::map<int, CString> variables;
    if (variable.IsEmpty() || !FindVariable(text, variables))
        return;
    const View units = text.View();
    const auto length = static_cast<std::size_t>(variable.GetLength());
    std::u16string replaced;
    std::size_t copied = 0;
    for (const auto& [last, found] : variables) {
        if (found != variable)
            continue;
        const std::size_t end = static_cast<std::size_t>(last) + 1;
        replaced += units.substr(copied, end - length - copied);
        replaced += value.View();
        copied = end;
    }
    replaced += units.substr(copied);
    text = CString(std::move(replaced));
}

bool COprateString::TrimTrailingZeros(CString& text) {
    if (text.Find(u'.') < 0)
        return false;
    text.TrimRight(u'0');
    if (text.View().back() == u'.')
        text.Truncate(text.GetLength() - 1);
    return true;
}
