// A host that knows nothing of Qt: calls dialogs, and tells what they answered and whether Qt has come into
// its process.
#include <clocale>
#include <cstdio>
#include <string>

#include <QsUtils/QsUtils.h>
#include <dlfcn.h>

namespace {

std::string Utf8(const CString& text) {
    return ToNativePath(text).string();
}

const char* IsQtThere() {
    void* const qt = ::dlopen("libQt6Core.so.6", RTLD_LAZY | RTLD_NOLOAD);
    return qt != nullptr ? "Qt is there" : "no Qt";
}

void Tip() {
    CRect cell(0, 0, 10, 10);
    texttip::SetShowText(u"综合脚手架");
    std::printf("longer: %d\n", texttip::IsTextLonger(cell) ? 1 : 0);
    texttip::SetWindowPosition({10, 100});
    texttip::ShowWindowDelay(0);
    texttip::CloseWindowNow();
}

}  // namespace

/// ACTION...: texts, tip, close, fee, report, folder, locale
int main(int count, char** arguments) {
    std::setlocale(LC_ALL, "C");
    for (int at = 1; at < count; ++at) {
        const std::string action = arguments[at];
        if (action == "texts")
            std::printf("%s\n", Utf8(IQsUtils::DoubleToCString(1.5, 2, false)).c_str());
        else if (action == "tip")
            Tip();
        else if (action == "close")
            texttip::CloseWindowNow();
        else if (action == "fee")
            std::printf("fee: [%s]\n", Utf8(IQsUtils::GetFeeTemplatePath(u"a", u"b", false)).c_str());
        else if (action == "report")
            std::printf("report: [%s]\n", Utf8(IQsUtils::GetReportTemplatePath(u"a", u"b", 1)).c_str());
        else if (action == "folder")
            std::printf("folder: [%s]\n", Utf8(IQsUtils::SelectFolder()).c_str());
        else if (action == "locale")
            std::printf("locale: %s\n", std::setlocale(LC_ALL, nullptr));
        else if (action == "qt")
            std::printf("%s\n", IsQtThere());
    }
    return 0;
}
