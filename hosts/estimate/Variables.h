// The variables of quantity formulas: names and values.
#pragma once

#include <istream>
#include <map>
#include <string>

#include <QsUtils/QsUtils.h>

#include "Columns.h"
#include "Problem.h"
#include "VariableRow.h"

namespace Estimate {

/// Why something can't be a variable; the reason is empty when it can.
struct VariableFault {
    Message reason;
    VariableColumn::Column column = VariableColumn::Name;  ///< what the reason is about
};

/// Names without regard to ASCII case, since the argument of a function is read in lower case. "Q" is no
/// name: it stands for the quantity of the bill item.
class Variables {
public:
    /// Adds a variable, or says why it can't be one. The value is a number as tables write it.
    VariableFault Add(const CString& name, const CString& value);
    /// The value as a number text that binds to a formula's leaf; null for an unknown name.
    const CString* Find(const CString& name) const;
    /// Adds those variables of `others` whose names aren't here.
    void AddMissing(const Variables& others) {
        m_values.insert(others.m_values.begin(), others.m_values.end());
    }
    std::size_t Count() const noexcept { return m_values.size(); }

private:
    std::map<CString, CString> m_values;  // by lower-case name
};

/// What the names of a variable have in common: plain characters in lower case.
CString VariableKey(const CString& name);

/// Adds the variable of a row, or notes what is wrong with it.
void AddVariable(const VariableRow& row, const Columns& columns, Variables& variables, Problems& problems);

/// Hands the rows of a table with the columns name and value to `handler`, as they are written; `columns` is
/// known from the first row on. Where the table breaks off, a row with a fault tells why. The result is
/// empty, or says why the table can't be read at all.
Message ReadVariableRows(std::istream& in, Columns& columns, const VariableRowHandler& handler);

/// Reads a table with the columns name and value. Bad rows are noted in `problems` and left out. The result
/// is empty, or says why the table can't be read at all.
Message ReadVariables(std::istream& in, Variables& variables, Problems& problems);

}  // namespace Estimate
