#include "Variables.h"

#include <cmath>
#include <string_view>

#include "Decimal.h"
#include "FormulaText.h"
#include "InputText.h"
#include "Utf8.h"

namespace Estimate {
namespace {

constexpr double ValueLimit = 1e9;

CString Lower(CString name) {
    return name.MakeLower();
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
        return "the name is taken already (names don't differ by case)";
    return {};
}

const CString* Variables::Find(const CString& name) const {
    const auto found = m_values.find(Lower(name));
    return found == m_values.end() ? nullptr : &found->second;
}

CString VariableKey(const CString& name) {
    return Lower(PlainFormula(name));
}

void AddVariable(const VariableRow& row, const Columns& columns, Variables& variables, Problems& problems) {
    using namespace VariableColumn;
    const auto note = [&](std::size_t column, std::string_view heading, std::string reason) {
        problems.found.push_back({Severity::Error, row.place, column, heading, std::move(reason)});
        ++problems.badRows;
    };
    if (!row.fault.empty())
        return note(0, {}, row.fault);
    std::string reason = variables.Add(FromUtf8(row.fields[Name]), FromUtf8(row.fields[Value]));
    if (reason.empty())
        return;
    const std::size_t column = reason.starts_with("the value") ? Value : Name;
    note(columns.Number(column), columns.Title(column), std::move(reason));
}

std::string ReadVariableRows(std::istream& in, Columns& columns, const VariableRowHandler& handler) {
    const InputText text = DetectText(in);
    if (!text.refusal.empty())
        return text.refusal;
    const auto take = [&](const CsvRow& fields) {
        if (!columns.IsKnown()) {
            columns.TryHeadings(fields);
            return;
        }
        VariableRow row;
        row.place.line = fields.line;
        for (std::size_t i = 0; i < row.fields.size(); ++i)
            row.fields[i] = columns.Field(fields, i);
        handler(row);
    };
    const CsvBreak end = ReadCsv(in, text.encoding, take);
    if (!end.reason.empty()) {
        VariableRow remains;
        remains.place.line = end.line;
        remains.fault = end.reason;
        handler(remains);
    }
    return columns.IsKnown() ? std::string() : "no row names the columns: " + columns.Missing();
}

std::string ReadVariables(std::istream& in, Variables& variables, Problems& problems) {
    Columns columns(VariableColumn::Specs);
    return ReadVariableRows(in, columns,
                            [&](const VariableRow& row) { AddVariable(row, columns, variables, problems); });
}

}  // namespace Estimate
