// Indicator units as two maps and a fallback, the plain way, for the comparison with the table.
#pragma once

#include <cmath>
#include <map>
#include <vector>

#include "QsUtils/text/CString.h"
#include "QsUtils/text/Numbers.h"

class PlainIndicatorUnits {
public:
    PlainIndicatorUnits() {
        AddUnits({u"吨", u"T", u"t", u"公斤", u"KG", u"kg"}, u"吨");
        AddUnits({u"立方", u"立方米", u"m3", u"M3"}, u"m3");
        AddUnits({u"平方", u"平方米", u"m2", u"M2"}, u"m2");
        AddUnits({u"块", u"百块", u"千块", u"万块"}, u"千块");
        AddFactors({{u"吨", 1000}, {u"T", 1000}, {u"t", 1000}, {u"公斤", 1}, {u"KG", 1}, {u"kg", 1}});
        AddFactors({{u"立方", 1}, {u"立方米", 1}, {u"m3", 1}, {u"M3", 1}});
        AddFactors({{u"平方", 1}, {u"平方米", 1}, {u"m2", 1}, {u"M2", 1}});
        AddFactors({{u"块", 1}, {u"百块", 100}, {u"千块", 1000}, {u"万块", 10000}});
    }

    bool GetUnit(const CString& unit, CString& result) const {
        const auto found = m_units.find(unit);
        if (found == m_units.end())
            return false;
        result = found->second;
        return true;
    }

    bool GetFactor(const CString& first, const CString& second, double& factor) const {
        const auto found = m_factors.find(first + u"-" + second);
        if (found == m_factors.end())
            return GetMultiple(first, second, factor);
        factor = found->second;
        return true;
    }

    const std::map<CString, CString>& Units() const { return m_units; }
    const std::map<CString, double>& Factors() const { return m_factors; }

private:
    struct Form {
        const char16_t* name;
        int size;
    };

    void AddUnits(std::initializer_list<const char16_t*> forms, const char16_t* unit) {
        for (const char16_t* form : forms)
            m_units[form] = unit;
    }

    void AddFactors(std::initializer_list<Form> forms) {
        static const std::map<int, double> downwards = {
            {1, 1}, {10, 0.1}, {100, 0.01}, {1000, 0.001}, {10000, 0.0001}};
        for (const Form& a : forms)
            for (const Form& b : forms)
                m_factors[CString(a.name) + u"-" + b.name] =
                    a.size >= b.size ? a.size / b.size : downwards.at(b.size / a.size);
    }

    static std::vector<CString> Pieces(CString text, const CString& separator) {
        std::vector<CString> pieces;
        if (separator.IsEmpty())
            return pieces;
        while (!text.IsEmpty()) {
            const int match = text.Find(separator);
            if (match < 0) {
                pieces.push_back(text);
                break;
            }
            pieces.push_back(text.Left(match));
            text = text.Mid(match + separator.GetLength());
        }
        return pieces;
    }

    static bool GetMultiple(const CString& first, const CString& second, double& factor) {
        factor = 1.0;
        if (first.CompareNoCase(second) == 0)
            return true;
        const int a = first.GetLength();
        const int b = second.GetLength();
        if (a > b ? first.Find(static_cast<char16_t>(b)) < 0 : second.Find(first) < 0)
            return false;
        const std::vector<CString> pieces = a > b ? Pieces(first, second) : Pieces(second, first);
        if (pieces.size() != 1)
            return false;
        for (const char16_t unit : pieces[0].View())
            if (unit < u'0' || unit > u'9')
                return false;
        const double value = QsText::ReadDouble(pieces[0].View());
        if (std::fabs(value) < 1e-6)
            return false;
        factor = a > b ? value : 1.0 / value;
        return true;
    }

    std::map<CString, CString> m_units;
    std::map<CString, double> m_factors;
};
