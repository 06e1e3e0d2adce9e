// Commands about the folders of an installation:
//   use FOLDER      names the installation; yes or no
//   chdir FOLDER    changes the current folder; no answer
//   set NAME=PATH   changes the environment; no answer
//   exe, temp, current, documents    a folder of the system
//   folder CODE     the folder of a code
//   folders         those of all getters, one answer each
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <string>

#include "tests/installation/ProbeCommands.h"

namespace {

using DirectoryManager::IProjectDirectory;

constexpr CString (IProjectDirectory::*Getters[])() = {
    &IProjectDirectory::GetProjectTemplateDirectory,
    &IProjectDirectory::GetTemplateDirectory,
    &IProjectDirectory::GetConfigDirectory,
    &IProjectDirectory::GetTempFileDirectory,
    &IProjectDirectory::GetHelpDirectory,
    &IProjectDirectory::GetProjectFileDirectory,
    &IProjectDirectory::GetProgramTemplateDirectory,
    &IProjectDirectory::GetReportDirectory,
    &IProjectDirectory::GetReportTemplateDirectory,
    &IProjectDirectory::GetBidTenderFileTemplateDirectory,
    &IProjectDirectory::GetGraphSetDirectory,
    &IProjectDirectory::GetSoftNetDirectory,
    &IProjectDirectory::GetLibVisitorDirectory,
    &IProjectDirectory::GetFyhzTemplateDirectory,
    &IProjectDirectory::GetGfsjTemplateDirectory,
    &IProjectDirectory::GetCsxmTemplateDirectory,
    &IProjectDirectory::GetDjzcTemplateDirectory,
    &IProjectDirectory::GetLibraryDirectory,
    &IProjectDirectory::GetLogDirectory,
};

/// The environment keeps the text itself.
void SetVariable(const CString& assignment) {
    static std::deque<std::string> kept;
    ::putenv(kept.emplace_back(ToNativePath(assignment).string()).data());
}

}  // namespace

bool DoFolders(const CString& command, Arguments& arguments) {
    if (command == u"use") {
        Answer(DirectoryManager::UseInstallation(arguments.Next()));
    } else if (command == u"chdir") {
        std::filesystem::current_path(ToNativePath(arguments.Next()));
    } else if (command == u"set") {
        SetVariable(arguments.Next());
    } else if (command == u"exe") {
        Answer(DirectoryManager::GetCommonDirectoryManager()->GetExeDirectory());
    } else if (command == u"temp") {
        Answer(DirectoryManager::GetCommonDirectoryManager()->GetTempDirectory());
    } else if (command == u"current") {
        Answer(DirectoryManager::GetCommonDirectoryManager()->GetCurrentWorkDirectory());
    } else if (command == u"documents") {
        Answer(DirectoryManager::GetCommonDirectoryManager()->GetDocumentsDirectory());
    } else if (command == u"folder") {
        Answer(DirectoryManager::GetProjectDirectoryManager()->GetDirectory(arguments.Next()));
    } else if (command == u"folders") {
        for (const auto getter : Getters)
            Answer((DirectoryManager::GetProjectDirectoryManager()->*getter)());
    } else {
        return false;
    }
    return true;
}
