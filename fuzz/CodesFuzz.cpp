// The compares and the sorts of item codes against the plain ones.
#include <algorithm>
#include <cstdlib>

#include "QsUtils/QsUtils.h"

#include "fuzz/FuzzText.h"
#include "tests/codes/PlainCodes.h"

namespace {

void Require(bool holds) {
    if (!holds)
        std::abort();
}

void RequireSameSort(const PlainCodes::Items& items, void (*ours)(PlainCodes::Items&),
                     void (*plain)(PlainCodes::Items&)) {
    PlainCodes::Items sorted = items;
    PlainCodes::Items expected = items;
    ours(sorted);
    plain(expected);
    Require(sorted == expected);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const CString text(TextFromBytes(data, size, u"0123456789;;;;-/.AaBe '\u571f\u7816"));
    CStringArray codes;
    IQsUtils::Split(text, codes, L';');
    PlainCodes::Items items;
    for (CString code : codes) {
        // A run of "~" stands for a code of the length at which the quota order gives up.
        code.Replace(u"~", CString(u'7', 250));
        items.emplace_back(code, reinterpret_cast<void*>(items.size()));
    }
    for (std::size_t i = 1; i < items.size(); ++i) {
        const CString& a = items[i - 1].first;
        const CString& b = items[i].first;
        Require(IQsUtils::CompareDECode(a, b) == PlainCodes::CompareDECode(a, b));
        Require(IQsUtils::CompareStringW(a, b) == PlainCodes::CompareNumbers(a, b));
        Require(IQsUtils::CompareStringW(a, b, L'/') == PlainCodes::CompareParts(a, b, L'/'));
        Require(IQsUtils::CompareStringW(a, b, L'-') == PlainCodes::CompareParts(a, b, L'-'));
        Require(IQsUtils::CompareQDCode(a, b) == -IQsUtils::CompareQDCode(b, a));
    }
    RequireSameSort(items, IQsUtils::SortDeItemCodes, PlainCodes::SortDe);
    RequireSameSort(items, IQsUtils::SortQdItemCodes, PlainCodes::SortQd);
    RequireSameSort(items, IQsUtils::SortItemCodes, PlainCodes::SortItems);
    return 0;
}
