#include "QsUtils/backup/FilePutBack.h"

#include "QsUtils/material/MaterialDigest.h"
#include "QsUtils/platform/Files.h"
#include "QsUtils/platform/FolderListing.h"

namespace QsBackup {

FilePutBack::FilePutBack(const CString& target, const CString& aside)
    : m_target(target), m_aside(aside + u"\\" + QsMaterial::StreamMd5(target) + u".qsutils-file") {}

void FilePutBack::Recover() const {
    if (!QsPlatform::FindEntry(m_aside) ||
        QsPlatform::RewriteFile(m_aside, m_target) == QsPlatform::Rewriting::Unfinished)
        return;
    QsPlatform::MakeWritable(m_aside);
    QsPlatform::RemoveFile(m_aside);
}

void FilePutBack::CopyFrom(const CString& source) const {
    bool lacksRoom = false;
    if (QsPlatform::CopyOneFile(source, m_target, &lacksRoom) || lacksRoom ||
        !QsPlatform::IsRewritable(m_target))
        return;
    if (QsPlatform::CopyOneFile(source, m_aside))
        Recover();
}

}  // namespace QsBackup
