#include "QsUtils/platform/EntryMoves.h"

#include "QsUtils/platform/win32/SystemPath.h"
#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

namespace {

/// How often and how long something in use is waited for.
constexpr int Tries = 12;
constexpr DWORD WaitMilliseconds = 30;

bool IsInUse(DWORD error) noexcept {
    return error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION;
}

bool Move(const CString& from, const CString& to, DWORD flags) {
    const std::wstring source = SystemPath(from);
    const std::wstring target = SystemPath(to);
    for (int tries = 1; !::MoveFileExW(source.c_str(), target.c_str(), flags | MOVEFILE_WRITE_THROUGH);
         ++tries) {
        if (tries == Tries || !IsInUse(::GetLastError()))
            return false;
        ::Sleep(WaitMilliseconds);
    }
    return true;
}

}  // namespace

bool MoveEntry(const CString& from, const CString& to) {
    return Move(from, to, 0);
}

bool MoveFileOver(const CString& from, const CString& to) {
    return Move(from, to, MOVEFILE_REPLACE_EXISTING);
}

bool ExchangeEntries(const CString&, const CString&) {
    return false;  // there is no such call
}

bool FlushFileSystem(const CString&) {
    return false;  // that is an administrator's right
}

}  // namespace QsPlatform
