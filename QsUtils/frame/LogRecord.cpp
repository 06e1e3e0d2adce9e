#include "QsUtils/frame/LogRecord.h"

#include <filesystem>
#include <string>

#include "QsUtils/frame/TextFile.h"
#include "QsUtils/frame/TimeText.h"
#include "QsUtils/platform/AppendedFile.h"
#include "QsUtils/platform/CodePage.h"
#include "QsUtils/platform/LocalTime.h"
#include "QsUtils/platform/NativePath.h"
#include "QsUtils/text/TextSearch.h"

namespace QsFrame {

void RecordLogInfo(const CString& text, const CString& filePath) {
    if (filePath.IsEmpty() || text.IsEmpty())
        return;
    const auto now = QsPlatform::LocalTimeNow();
    if (!now)
        throw CAtlException(CAtlException::InvalidArgument);
    std::string record;
    AppendMoment(record, *now);
    ((record += '\t') += QsPlatform::EncodeAnsi(QsText::UpToNul(text.View()))) += "\r\n";
    const std::filesystem::path path = ToNativePath(CString(QsText::UpToNul(filePath.View())));
    QsPlatform::AppendedFile file(path);
    if (file.Opened() != QsPlatform::AppendedFile::State::Open)
        return;
    // The stream is a text stream, and the record brings its own return along: each ends in CR CR LF.
    const std::string bytes = WithReturns(record);
    file.Write(bytes.data(), bytes.size());
}

}  // namespace QsFrame
