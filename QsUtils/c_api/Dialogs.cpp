#include "QsUtils/c_api/Dialogs.h"

#include "QsUtils/c_api/Calls.h"
#include "QsUtils/frame/IQsUtils.h"
#include "QsUtils/ui/TextTip.h"

using QsCApi::Call;
using QsCApi::Give;
using QsCApi::TextOf;

// --- Templates

QsStatus QsGetProjectDbTemplate(QsString** path) {
    return Call([&] { Give(path, IQsUtils::GetProjectDbTemplate()); }, path);
}

QsStatus QsGetZhengTiReport(QsString** path) {
    return Call([&] { Give(path, IQsUtils::GetZhengTiReport()); }, path);
}

QsStatus QsGetFeeTemplatePath(const QsChar* family, std::int32_t familyLength, const QsChar* section,
                              std::int32_t sectionLength, std::int32_t isZeroVariant, QsString** path) {
    return Call(
        [&] {
            Give(path, IQsUtils::GetFeeTemplatePath(TextOf(family, familyLength),
                                                    TextOf(section, sectionLength), isZeroVariant != 0));
        },
        path);
}

QsStatus QsGetGfsjTemplatePath(const QsChar* family, std::int32_t familyLength, const QsChar* section,
                               std::int32_t sectionLength, std::int32_t isZeroVariant, QsString** path) {
    return Call(
        [&] {
            Give(path, IQsUtils::GetGfsjTemplatePath(TextOf(family, familyLength),
                                                     TextOf(section, sectionLength), isZeroVariant != 0));
        },
        path);
}

QsStatus QsGetCsxmTemplatePath(const QsChar* family, std::int32_t familyLength, const QsChar* section,
                               std::int32_t sectionLength, std::int32_t isZeroVariant, QsString** path) {
    return Call(
        [&] {
            Give(path, IQsUtils::GetCsxmTemplatePath(TextOf(family, familyLength),
                                                     TextOf(section, sectionLength), isZeroVariant != 0));
        },
        path);
}

QsStatus QsGetDjzcTemplatePath(const QsChar* family, std::int32_t familyLength, const QsChar* section,
                               std::int32_t sectionLength, QsString** path) {
    return Call(
        [&] {
            Give(path,
                 IQsUtils::GetDjzcTemplatePath(TextOf(family, familyLength), TextOf(section, sectionLength)));
        },
        path);
}

QsStatus QsGetReportTemplatePath(const QsChar* family, std::int32_t familyLength, const QsChar* section,
                                 std::int32_t sectionLength, std::int32_t reportType, QsString** path) {
    return Call(
        [&] {
            Give(path, IQsUtils::GetReportTemplatePath(TextOf(family, familyLength),
                                                       TextOf(section, sectionLength), reportType));
        },
        path);
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
