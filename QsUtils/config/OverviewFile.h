// The fields of a project overview in files.
#pragma once

#include <list>

#include "QsUtils/config/ProjectOverview.h"
#include "QsUtils/text/CString.h"

namespace QsConfig {

/// Where the fields stand in a file.
enum class OverviewSource {
    Offer,    ///< `FieldChoose.cos`: below the root; they are numbered in their order
    Project,  ///< a project's file: below the first `CProjectOverView` of the root
};

/// Appends the fields of a file as new records, which are the caller's. Nothing is added when the file can't
/// be read or parsed or has no fields. Any thread may call it.
void ReadOverview(const CString& path, OverviewSource source,
                  std::list<QS_ProjectOverView::stuColInfo*>& fields);

/// Appends a `CProjectOverView` with these fields to the root of the XML file at `path`, which is replaced
/// whole. Returns whether the file could be opened; why not is shown to the user. A null field is passed
/// over. The XML tool stays open until the module ends. Any thread may call it.
bool WriteOverview(const CString& path, const std::list<QS_ProjectOverView::stuColInfo*>& fields);

/// Whether a field with this `BelongType` belongs to an overview; all others are passed over by the readers.
bool IsOverviewGroup(const CString& text);

/// The group that a text names, 0 for an unknown one; and the text of a group.
int GroupOfText(const CString& text);
CString TextOfGroup(int group);

}  // namespace QsConfig
