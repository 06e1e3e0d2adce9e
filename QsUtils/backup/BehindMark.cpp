#include "QsUtils/backup/BehindMark.h"

#include <mutex>

#include "QsUtils/platform/EntryMoves.h"
#include "QsUtils/platform/Files.h"
#include "QsUtils/platform/FolderListing.h"
#include "QsUtils/platform/Folders.h"

namespace QsBackup {

BehindMark::BehindMark(const ProjectPlaces& places)
    : m_mark(places.savedGraphics + u".qsutils-behind"), m_versions(places.versions) {}

bool BehindMark::IsSet() const {
    return QsPlatform::FindEntry(m_mark).has_value() || Marks().Has(m_mark);
}

void BehindMark::Set() const {
    // A name is changed also on a disk that is full.
    if (QsPlatform::FindEntry(m_mark) || QsPlatform::CreateFolder(m_mark) ||
        QsPlatform::MoveEntry(m_versions, m_mark))
        Marks().Remove(m_mark);
    else
        Marks().Add(m_mark);
}

void BehindMark::Remove() const {
    Marks().Remove(m_mark);
    if (QsPlatform::RemoveFolder(m_mark) || QsPlatform::MoveEntry(m_mark, m_versions))
        return;
    // The version file has been made anew since.
    if (QsPlatform::MakeWritable(m_mark))
        QsPlatform::RemoveFile(m_mark);
}

void BehindMark::Settle() const {
    if (Marks().Has(m_mark))
        Set();
}

void RememberedMarks::Add(const CString& mark) {
    const std::lock_guard lock(m_lock);
    m_marks.insert(mark);
}

void RememberedMarks::Remove(const CString& mark) {
    const std::lock_guard lock(m_lock);
    m_marks.erase(mark);
}

bool RememberedMarks::Has(const CString& mark) const {
    const std::lock_guard lock(m_lock);
    return m_marks.count(mark) != 0;
}

}  // namespace QsBackup
