// The variables of quantity formulas: names and values.
#pragma once

#include <istream>
#include <map>
#include <string>

#include <QsUtils/QsUtils.h>

#include "Problem.h"

namespace Estimate {

/// Names without regard to ASCII case, since the argument of a function is read in lower case. "Q" is no
/// name: it stands for the quantity of the bill item.
class Variables {
public:
    /// Adds a variable, or says why it can't be one. The value is a number as tables write it.
    std::string Add(const CString& name, const CString& value);
    /// The value as a number text that binds to a formula's leaf; null for an unknown name.
    const CString* Find(const CString& name) const;
    std::size_t Count() const noexcept { return m_values.size(); }

private:
    std::map<CString, CString> m_values;  // by lower-case name
};

/// Reads a table with the columns name and value. Bad rows are noted in `problems` and left out. The result
/// is empty, or says why the table can't be read at all.
std::string ReadVariables(std::istream& in, Variables& variables, Problems& problems);

}  // namespace Estimate
