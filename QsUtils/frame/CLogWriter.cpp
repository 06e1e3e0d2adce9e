#include "QsUtils/frame/CLogWriter.h"

#include <charconv>
#include <string>

#include "QsUtils/frame/TextFile.h"
#include "QsUtils/frame/TimeText.h"
#include "QsUtils/platform/AppendedFile.h"
#include "QsUtils/platform/CodePage.h"
#include "QsUtils/platform/LocalTime.h"
#include "QsUtils/platform/NativePath.h"
#include "QsUtils/platform/Process.h"
#include "QsUtils/platform/Threads.h"
#include "QsUtils/tasks/CAutoSetSignal.h"

namespace QsFrame {

namespace {

/// What the products' own buffer for a path holds, in bytes, with its NUL.
constexpr std::size_t PathBuffer = 256;

/// With the line feed at its end, and the message's own, as they are in memory.
std::string Line(std::string_view message) {
    const QsPlatform::LocalTime now = QsPlatform::LocalTimeNow().value_or(QsPlatform::LocalTime{});
    std::string line;
    line.reserve(message.size() + 48);
    AppendMoment(line, now);
    AppendDecimals(line += ':', now.millisecond, 3);
    char id[8];
    const auto end = std::to_chars(id, id + sizeof id, QsPlatform::CurrentThreadId(), 16).ptr;
    return ((line += " TID:0x").append(id, end) += ' ').append(message) += '\n';
}

/// Gives the file to write to, or the operation's result without one.
int MakeReady(QsPlatform::AppendedFile& file) {
    using QsPlatform::AppendedFile;
    if (file.Opened() == AppendedFile::State::NotCreated)
        return CLogWriter::NotCreated;
    // By the low word alone: a file of four gigabytes counts as an empty one.
    if (static_cast<std::uint32_t>(file.Size()) > CLogWriter::LargestFile) {
        switch (file.Renew()) {
            case AppendedFile::Renewal::NotRemoved:
                return CLogWriter::Done;
            case AppendedFile::Renewal::NotCreated:
                return CLogWriter::NotCreated;
            case AppendedFile::Renewal::Done:
                return 0;
        }
    }
    return file.Opened() == AppendedFile::State::Open ? 0 : CLogWriter::NotOpened;
}

}  // namespace

CString CLogWriter::PathBeside(const CString& executable) {
    const int last = executable.ReverseFind(u'\\');
    const bool isUsable = last >= 1 && QsPlatform::EncodeAnsi(executable.View()).size() < PathBuffer;
    return (isUsable ? executable.Left(last + 1) : CString(u"c:\\")) + u"Log\\Tallyman.log";
}

CLogWriter::CLogWriter() : CLogWriter(PathBeside(QsPlatform::ExecutablePath())) {}

CLogWriter::CLogWriter(const CString& path) : m_path(ToNativePath(path)), m_hMutex(QsPlatform::NewMutex()) {}

CLogWriter::~CLogWriter() {
    ::CloseHandle(m_hMutex);
}

int CLogWriter::Write(std::string_view message) {
    const QsTasks::CAutoSetSignal release(m_hMutex, QsTasks::CAutoSetSignal::Mutex);
    ::WaitForSingleObject(m_hMutex, INFINITE);
    if (message.empty())
        return EmptyMessage;
    const std::string line = WithReturns(Line(message));
    QsPlatform::AppendedFile file(m_path);
    if (const int result = MakeReady(file); result != 0)
        return result;
    file.Write(line.data(), line.size());
    return Done;
}

}  // namespace QsFrame
