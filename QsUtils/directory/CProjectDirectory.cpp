#include "QsUtils/directory/CProjectDirectory.h"

namespace DirectoryManager {

CProjectDirectory::CProjectDirectory() {
    m_strSectionPath = u"DirectoryConfig/ProjectDirectory";
}

CString CProjectDirectory::GetDirectory(const CString& code) {
    const CString relativePath = GetDirectoryRelativePath(code);
    return GetCommonDirectoryManager()->GetExeDirectory() + relativePath;
}

CString CProjectDirectory::GetProjectTemplateDirectory() {
    return GetDirectory(u"ProjectTemplateDirectory");
}

CString CProjectDirectory::GetTemplateDirectory() {
    return GetDirectory(u"TemplateDirectory");
}

CString CProjectDirectory::GetConfigDirectory() {
    return GetDirectory(u"ConfigDirectory");
}

CString CProjectDirectory::GetTempFileDirectory() {
    return GetDirectory(u"TempFileDirectory");
}

CString CProjectDirectory::GetHelpDirectory() {
    return GetDirectory(u"HelpDirectory");
}

CString CProjectDirectory::GetProjectFileDirectory() {
    return GetDirectory(u"ProjectFileDirectory");
}

CString CProjectDirectory::GetProgramTemplateDirectory() {
    return GetDirectory(u"ProgramTemplateDirectory");
}

CString CProjectDirectory::GetReportDirectory() {
    return GetDirectory(u"ReportDirectory");
}

CString CProjectDirectory::GetReportTemplateDirectory() {
    return GetDirectory(u"ReportTemplateDirectory");
}

CString CProjectDirectory::GetBidTenderFileTemplateDirectory() {
    return GetDirectory(u"BidTenderFileTemplateDirectory");
}

CString CProjectDirectory::GetGraphSetDirectory() {
    return GetDirectory(u"GraphSetDirectory");
}

CString CProjectDirectory::GetSoftNetDirectory() {
    return GetDirectory(u"SoftNetDirectory");
}

CString CProjectDirectory::GetLibVisitorDirectory() {
    return GetDirectory(u"LibVisitor");
}

CString CProjectDirectory::GetFyhzTemplateDirectory() {
    return GetDirectory(u"FyhzTemplateDirectory");
}

CString CProjectDirectory::GetGfsjTemplateDirectory() {
    return GetDirectory(u"GfsjTemplateDirectory");
}

CString CProjectDirectory::GetCsxmTemplateDirectory() {
    return GetDirectory(u"CsxmTemplateDirectory");
}

CString CProjectDirectory::GetDjzcTemplateDirectory() {
    return GetDirectory(u"DjzcTemplateDirectory");
}

CString CProjectDirectory::GetLibraryDirectory() {
    return GetDirectory(u"LibraryDirectory");
}

CString CProjectDirectory::GetLogDirectory() {
    return GetDirectory(u"LogDirectory");
}

}  // namespace DirectoryManager
