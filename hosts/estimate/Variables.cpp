#include "Variables.h"

#include <array>
#include <cmath>
#include <string_view>

#include "Columns.h"
#include "Decimal.h"
#include "FormulaText.h"
#include "InputText.h"
#include "Utf8.h"

namespace Estimate {
namespace {

constexpr std::string_view NameHeadings[] = {"name",     "variable", "变量", "变量名",
                                             "变量名称", "名称",     "代码"};
constexpr std::string_view ValueHeadings[] = {"value", "值", "变量值", "数值"};
constexpr std::array Specs = {ColumnSpec{"name", NameHeadings}, ColumnSpec{"value", ValueHeadings}};
enum Column : std::size_t { Name, Value };

constexpr double ValueLimit = 1e9;

CString Lower(const CString& name) {
    return CString(name).MakeLower();
}

std::string WhyNoName(const CString& name) {
    if (name.IsEmpty())
        return "the name is empty";
    if (name.FindOneOf(CString(u"+-*/^()[]{}%‰×÷ \t\r\n")) >= 0)
        return "a name holds no operator, bracket, percent sign or blank";
    const char16_t first = name.View().front();
    if ((first >= u'0' && first <= u'9') || first == u'.')
        return "a name doesn't begin with a digit or a point";
    if (name.CompareNoCase(u"Q") == 0)
        return "Q stands for the quantity of the bill item";
    const CString function = FunctionPrefix(name);
    if (!function.IsEmpty())
        return "in a formula the name would be read as the function " + ToUtf8(function);
    return {};
}

}  // namespace

std::string Variables::Add(const CString& name, const CString& value) {
    const CString plain = PlainFormula(name);
    std::string reason = WhyNoName(plain);
    if (!reason.empty())
        return reason;
    CString number = PlainFormula(value);
    const std::optional<double> parsed = ParseNumber(number);
    if (!parsed || std::fabs(*parsed) >= ValueLimit)
        return "the value is no number: \"" + ToUtf8(value) + "\"";
    number.Trim();
    number.Remove(u',');
    if (!m_values.emplace(Lower(plain), number).second)
        return "the name stands in the table already (names don't differ by case)";
    return {};
}

const CString* Variables::Find(const CString& name) const {
    const auto found = m_values.find(Lower(name));
    return found == m_values.end() ? nullptr : &found->second;
}

std::string ReadVariables(std::istream& in, Variables& variables, Problems& problems) {
    const InputText text = DetectText(in);
    if (!text.refusal.empty())
        return text.refusal;
    Columns columns(Specs);
    const auto take = [&](const CsvRow& row) {
        if (!columns.IsKnown()) {
            columns.TryHeadings(row);
            return;
        }
        const CString name = FromUtf8(columns.Field(row, Name));
        const CString value = FromUtf8(columns.Field(row, Value));
        std::string reason = variables.Add(name, value);
        if (!reason.empty()) {
            const std::size_t column = reason.starts_with("the value") ? Value : Name;
            problems.found.push_back({Severity::Error, row.line, columns.Number(column),
                                      columns.Title(column), std::move(reason)});
            ++problems.badRows;
        }
    };
    const CsvBreak end = ReadCsv(in, text.encoding, take);
    if (!end.reason.empty()) {
        problems.found.push_back({Severity::Error, end.line, 0, {}, end.reason});
        ++problems.badRows;
    }
    return columns.IsKnown() ? std::string() : "no row names the columns: " + columns.Missing();
}

}  // namespace Estimate
