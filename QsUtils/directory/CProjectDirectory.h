// The folders that an installation chooses.
#pragma once

#include "QsUtils/directory/CDirConfigLoad.h"
#include "QsUtils/directory/DirectoryManager.h"

namespace DirectoryManager {

/// Every getter goes through the virtual `GetDirectory`, so that an override of that one reaches them all.
class CProjectDirectory : public IProjectDirectory, public CDirConfigLoad {
public:
    CProjectDirectory();

    CString GetDirectory(const CString& code) override;
    CString GetProjectTemplateDirectory() override;
    CString GetTemplateDirectory() override;
    CString GetConfigDirectory() override;
    CString GetTempFileDirectory() override;
    CString GetHelpDirectory() override;
    CString GetProjectFileDirectory() override;
    CString GetProgramTemplateDirectory() override;
    CString GetReportDirectory() override;
    CString GetReportTemplateDirectory() override;
    CString GetBidTenderFileTemplateDirectory() override;
    CString GetGraphSetDirectory() override;
    CString GetSoftNetDirectory() override;
    CString GetLibVisitorDirectory() override;
    CString GetFyhzTemplateDirectory() override;
    CString GetGfsjTemplateDirectory() override;
    CString GetCsxmTemplateDirectory() override;
    CString GetDjzcTemplateDirectory() override;
    CString GetLibraryDirectory() override;
    CString GetLogDirectory() override;
};

}  // namespace DirectoryManager
