#include "Variables.h"

#include <cmath>
#include <string_view>
#include <utility>

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

Message WhyNoName(const CString& name) {
    if (name.IsEmpty())
        return Say<Text::NameEmpty>();
    if (name.FindOneOf(CString(u"+-*/^()[]{}%‰×÷ \t\r\n")) >= 0)
        return Say<Text::VariableOperator>();
    const char16_t first = name.View().front();
    if ((first >= u'0' && first <= u'9') || first == u'.')
        return Say<Text::VariableDigit>();
    if (name.CompareNoCase(u"Q") == 0)
        return Say<Text::VariableQ>();
    const CString function = FunctionPrefix(name);
    if (!function.IsEmpty())
        return Say<Text::VariableFunction>(ToUtf8(function));
    return {};
}

}  // namespace

VariableFault Variables::Add(const CString& name, const CString& value) {
    const CString plain = PlainFormula(name);
    if (Message reason = WhyNoName(plain); !reason.empty())
        return {std::move(reason)};
    CString number = PlainFormula(value);
    const std::optional<double> parsed = ParseNumber(number);
    if (!parsed || std::fabs(*parsed) >= ValueLimit)
        return {Say<Text::ValueNoNumber>(ToUtf8(value)), VariableColumn::Value};
    number.Trim();
    number.Remove(u',');
    if (!m_values.emplace(Lower(plain), number).second)
        return {Say<Text::VariableTaken>()};
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
    const auto note = [&](std::size_t column, std::optional<Text> heading, Message reason) {
        problems.found.push_back({Severity::Error, row.place, column, heading, std::move(reason)});
        ++problems.badRows;
    };
    if (!row.fault.empty())
        return note(0, {}, row.fault);
    VariableFault fault = variables.Add(FromUtf8(row.fields[Name]), FromUtf8(row.fields[Value]));
    if (!fault.reason.empty())
        note(columns.Number(fault.column), columns.Title(fault.column), std::move(fault.reason));
}

Message ReadVariableRows(std::istream& in, Columns& columns, const VariableRowHandler& handler) {
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
    return columns.IsKnown() ? Message() : Say<Text::ColumnsMissing>(columns.Missing());
}

Message ReadVariables(std::istream& in, Variables& variables, Problems& problems) {
    Columns columns(VariableColumn::Specs);
    return ReadVariableRows(in, columns,
                            [&](const VariableRow& row) { AddVariable(row, columns, variables, problems); });
}

}  // namespace Estimate
