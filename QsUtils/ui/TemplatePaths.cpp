#include "QsUtils/ui/TemplatePaths.h"

#include "QsUtils/directory/DirectoryManager.h"
#include "QsUtils/ui/CSelectTemplateDlg.h"
#include "QsUtils/ui/DialogTexts.h"

namespace QsUi {

CString GetProjectDbTemplate() {
    return DirectoryManager::GetCommonDirectoryManager()->GetExeDirectory() + u"project.db";
}

CString GetZhengTiReport() {
    return DirectoryManager::GetCommonDirectoryManager()->GetExeDirectory() + u"ZhengTiReport.xml";
}

CString PickTemplate(IViews* views, TemplateKind kind, const CString& family, const CString& section,
                     bool isZeroVariant, int reportType) {
    CSelectTemplateDlg dialog(kind, family, section);
    dialog.m_bZeroVariant = isZeroVariant;
    dialog.m_nReportType = reportType;
    return dialog.DoModal(views) == IdOk ? dialog.m_strSelectedPath : CString();
}

}  // namespace QsUi
