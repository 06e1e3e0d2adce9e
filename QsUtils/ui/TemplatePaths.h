// The paths of templates. `IQsUtils` documents the operations of the same names; this is what they share.
#pragma once

#include "QsUtils/text/CString.h"
#include "QsUtils/ui/TemplateKinds.h"
#include "QsUtils/ui/Views.h"

namespace QsUi {

CString GetProjectDbTemplate();
CString GetZhengTiReport();

/// What a user picks with these views; empty when the user picks nothing. The variant that the kind doesn't
/// have isn't looked at.
CString PickTemplate(IViews* views, TemplateKind kind, const CString& family, const CString& section,
                     bool isZeroVariant, int reportType);

}  // namespace QsUi
