#include "QsUtils/c_api/Dialogs.h"

#include "QsUtils/c_api/Calls.h"
#include "QsUtils/frame/IQsUtils.h"
#include "QsUtils/ui/TextTip.h"

using QsCApi::Argument;
using QsCApi::Call;
using QsCApi::Give;
using QsCApi::TextOf;

namespace {

/// Lets the user pick a template by one of the functions that do so; the variant is the one of its kind.
template <typename Function, typename... Variant>
QsStatus Pick(Function function, Argument family, Argument section, QsString** path, Variant... variant) {
    return Call([&] { Give(path, function(TextOf(family), TextOf(section), variant...)); }, path);
}

}  // namespace

// --- Templates

QsStatus QsGetProjectDbTemplate(QsString** path) {
    return Call([&] { Give(path, IQsUtils::GetProjectDbTemplate()); }, path);
}

QsStatus QsGetZhengTiReport(QsString** path) {
    return Call([&] { Give(path, IQsUtils::GetZhengTiReport()); }, path);
}

QsStatus QsGetFeeTemplatePath(const QsChar* family, std::int32_t familyLength, const QsChar* section,
                              std::int32_t sectionLength, std::int32_t isZeroVariant, QsString** path) {
    return Pick(IQsUtils::GetFeeTemplatePath, {family, familyLength}, {section, sectionLength}, path,
                isZeroVariant != 0);
}

QsStatus QsGetGfsjTemplatePath(const QsChar* family, std::int32_t familyLength, const QsChar* section,
                               std::int32_t sectionLength, std::int32_t isZeroVariant, QsString** path) {
    return Pick(IQsUtils::GetGfsjTemplatePath, {family, familyLength}, {section, sectionLength}, path,
                isZeroVariant != 0);
}

QsStatus QsGetCsxmTemplatePath(const QsChar* family, std::int32_t familyLength, const QsChar* section,
                               std::int32_t sectionLength, std::int32_t isZeroVariant, QsString** path) {
    return Pick(IQsUtils::GetCsxmTemplatePath, {family, familyLength}, {section, sectionLength}, path,
                isZeroVariant != 0);
}

QsStatus QsGetDjzcTemplatePath(const QsChar* family, std::int32_t familyLength, const QsChar* section,
                               std::int32_t sectionLength, QsString** path) {
    return Pick(IQsUtils::GetDjzcTemplatePath, {family, familyLength}, {section, sectionLength}, path);
}

QsStatus QsGetReportTemplatePath(const QsChar* family, std::int32_t familyLength, const QsChar* section,
                                 std::int32_t sectionLength, std::int32_t reportType, QsString** path) {
    return Pick(IQsUtils::GetReportTemplatePath, {family, familyLength}, {section, sectionLength}, path,
                reportType);
}

QsStatus QsSelectFolder(QsString** path) {
    return Call([&] { Give(path, IQsUtils::SelectFolder()); }, path);
}

// --- The text tip

QsStatus QsTextTip_SetTextColor(std::uint32_t color) {
    return Call([&] { texttip::SetTextColor(color); });
}

QsStatus QsTextTip_SetBackgroundColor(std::uint32_t color) {
    return Call([&] { texttip::SetBackgroundColor(color); });
}

QsStatus QsTextTip_SetShowText(const QsChar* text, std::int32_t length) {
    return Call([&] { texttip::SetShowText(TextOf(text, length)); });
}

QsStatus QsTextTip_IsTextLonger(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom,
                                std::int32_t* isLonger) {
    return Call(
        [&] {
            CRect rect(left, top, right, bottom);
            *isLonger = texttip::IsTextLonger(rect);
        },
        isLonger);
}

QsStatus QsTextTip_SetWindowPosition(std::int32_t x, std::int32_t y) {
    return Call([&] { texttip::SetWindowPosition(POINT{x, y}); });
}

QsStatus QsTextTip_ShowWindowDelay(std::uint32_t milliseconds) {
    return Call([&] { texttip::ShowWindowDelay(milliseconds); });
}

QsStatus QsTextTip_CloseWindowNow() {
    return Call([] { texttip::CloseWindowNow(); });
}
