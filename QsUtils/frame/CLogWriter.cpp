#include "QsUtils/frame/CLogWriter.h"

#include <fmt/format.h>

#include "QsUtils/frame/TextFile.h"
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

std::string Line(std::string_view message) {
    const QsPlatform::LocalTime now = QsPlatform::LocalTimeNow().value_or(QsPlatform::LocalTime{});
    return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02}:{:03} TID:0x{:x} {}\n", now.year, now.month,
                       now.day, now.hour, now.minute, now.second, now.millisecond,
                       QsPlatform::CurrentThreadId(), message);
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
