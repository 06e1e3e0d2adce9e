#include "QsUtils/ui/ExcelVersion.h"

#include <cstddef>
#include <optional>

#include "QsUtils/platform/ClassRegistry.h"

namespace QsUi {

namespace {

/// In bytes. A registered name that is longer is none of a spreadsheet.
constexpr std::size_t LargestValue = 255;

}  // namespace

CString GetExcelInstallVersion() {
    // "Excel.Application.16"
    const std::optional<CString> current =
        QsPlatform::ReadClassValue(u"Excel.Application", u"CurVer", LargestValue);
    return current ? current->Mid(current->ReverseFind(u'.') + 1) : CString();
}

}  // namespace QsUi
