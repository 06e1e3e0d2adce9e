#include "QsUtils/platform/FolderCopying.h"

#include "QsUtils/platform/win32/FileCopy.h"
#include "QsUtils/platform/win32/HeldFolder.h"
#include "QsUtils/platform/win32/LinkTarget.h"
#include "QsUtils/platform/win32/TemporaryName.h"
#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

void MakeEntryWritable(const HeldFolder& folder, const NativeName& name) {
    const std::wstring path = folder.Entry(name);
    if (!IsLinkPath(path))
        SetNormal(path);
}

bool FillsFoldersUnseen() noexcept {
    return false;
}

NativeName UnseenName() {
    return TemporaryName();
}

bool RenameFolder(const HeldFolder& parent, const NativeName& from, const NativeName& to) {
    return ::MoveFileExW(parent.Entry(from).c_str(), parent.Entry(to).c_str(), 0) != 0;
}

FileCopier::FileCopier(bool copiesMarks)
    : m_copiesMarks(copiesMarks) {}  // the system has memory of its own for it

FileCopier::~FileCopier() = default;

CopyOutcome FileCopier::Copy(const HeldFolder& source, const CopiedFile& file, const HeldFolder& target,
                             bool isUnseen) {
    if (!file.isLink)
        SetNormal(source.Entry(file.name));
    const CopyOutcome outcome = CopyBetween(source.Entry(file.name), target.Entry(file.name), isUnseen);
    if (outcome == CopyOutcome::Copied && !m_copiesMarks)
        TakeMarkOff(target.Entry(file.name));
    return outcome;
}

}  // namespace QsPlatform
