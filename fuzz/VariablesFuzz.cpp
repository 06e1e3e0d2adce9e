// The scans for variables against the plain ones.
#include <cstdlib>

#include "QsUtils/expression/COprateString.h"

#include "fuzz/FuzzText.h"
#include "tests/expression/PlainVariables.h"

namespace {

void Require(bool holds) {
    if (!holds)
        std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const CString text(TextFromBytes(data, size, u"AbQq12+-*().[]{}SINCOSATQRELGDXsin\u5bbd\u4e2d"));
    const CString variable = text.Left(static_cast<int>(size % 3));
    const CString value = text.Right(static_cast<int>(size % 5));
    const COprateString variables;
    Require(variables.IsVariable(text) == PlainVariables::IsVariable(text));
    for (const bool unique : {false, true}) {
        std::list<CString> ours{u"A"};
        std::list<CString> plain = ours;
        Require(variables.FindVariable(text, ours, unique) ==
                PlainVariables::FindVariable(text, plain, unique));
        Require(ours == plain);
    }
    std::map<int, CString> ours;
    std::map<int, CString> plain;
    Require(variables.FindVariable(text, ours) == PlainVariables::FindVariable(text, plain));
    Require(ours == plain);
    CString replaced = text;
    CString expected = text;
    variables.ReplaceVarString(replaced, variable, value);
    PlainVariables::ReplaceVarString(expected, variable, value);
    Require(replaced == expected);
    variables.ReplaceQWithProjectAmount(replaced, value);
    variables.IsIncludeQ(text);
    return 0;
}
