// A module of a product that opens dialogs, loaded and unloaded by its host and the library with it.
#include <QsUtils/QsUtils.h>

/// Opens a picker, a browser of folders and the tip, one after the other; whether the user has chosen
/// anything.
extern "C" __attribute__((visibility("default"))) bool PluginOpenDialogs() {
    IQsUtils::SetSoftVersion(u"7.1");
    const CString picked = IQsUtils::GetReportTemplatePath(u"上海", u"2016预算定额", 1);
    const CString folder = IQsUtils::SelectFolder();
    texttip::SetShowText(u"综合脚手架");
    texttip::ShowWindowDelay(0);
    return !picked.IsEmpty() || !folder.IsEmpty();
}
