#include "tests/library/TestInstallation.h"

#include <fstream>
#include <memory>

#include "QsUtils/directory/DirectoryManager.h"
#include "QsUtils/platform/NativePath.h"

#include "tests/support/SharedModule.h"
#include "tests/support/TemporaryFolder.h"

namespace TestInstallation {

namespace {

/// Two sections beside the one that the library reads, for loaders of other sections.
constexpr const char* directoryConfig =
    "<DirectoryConfig><ProjectDirectory><DirectoryItem Code=\"LibVisitor\" RelativePath=\"Visitor\"/>"
    "<DirectoryItem Code=\"ReportDirectory\" RelativePath=\"Report\\\\\"/>"
    "<DirectoryItem Code=\"FyhzTemplateDirectory\" RelativePath=\"own\\fyhz\"/>"
    "<DirectoryItem Code=\"GfsjTemplateDirectory\" RelativePath=\"own\\gfsj\"/>"
    "<DirectoryItem Code=\"CsxmTemplateDirectory\" RelativePath=\"own\\csxm\"/>"
    "<DirectoryItem Code=\"DjzcTemplateDirectory\" RelativePath=\"own\\djzc\"/>"
    "<DirectoryItem Code=\"ReportTemplateDirectory\" RelativePath=\"own\\report\"/></ProjectDirectory>"
    "<Other><DirectoryItem Code=\"A\" RelativePath=\"of other\"/></Other>"
    "<Empty/></DirectoryConfig>";

class Environment : public testing::Environment {
public:
    void SetUp() override {
        m_folder = std::make_unique<TemporaryFolder>();
        m_folder->Write("DirectoryConfig.xml", directoryConfig);
        const std::filesystem::path companion(SCRIPTED_COMPANION);
        std::filesystem::create_directories(m_folder->File("Visitor"));
        std::filesystem::create_directories(m_folder->File("work"));
        const std::filesystem::path copy = m_folder->File("Visitor") / companion.filename();
        std::filesystem::copy_file(companion, copy);
        m_companion = std::make_unique<SharedModule>(copy);
        m_before = std::filesystem::current_path();
        std::filesystem::current_path(m_folder->File("work"));
        ASSERT_TRUE(DirectoryManager::UseInstallation(FromNativePath(m_folder->Path())));
    }
    void TearDown() override {
        std::filesystem::current_path(m_before);
        m_companion.reset();
        m_folder.reset();
    }

    const TemporaryFolder& Folder() const { return *m_folder; }
    const SharedModule& Companion() const { return *m_companion; }

private:
    std::unique_ptr<TemporaryFolder> m_folder;
    std::unique_ptr<SharedModule> m_companion;
    std::filesystem::path m_before;
};

Environment* const theEnvironment = [] {
    auto environment = std::make_unique<Environment>();
    testing::AddGlobalTestEnvironment(environment.get());
    return environment.release();  // the framework's from now on
}();

}  // namespace

std::filesystem::path Folder() {
    return theEnvironment->Folder().Path();
}

CString Directory() {
    return FromNativePath(Folder()) + u"\\";
}

std::wstring Base() {
    return (Directory() + u"libraries\\").ToWide();
}

void ClearLibraries() {
    for (const char* name : {"libraries", "work"}) {
        std::filesystem::create_directories(Folder() / name);
        for (const auto& entry : std::filesystem::directory_iterator(Folder() / name))
            std::filesystem::remove_all(entry.path());
    }
}

void Make(const std::wstring& path) {
    const std::filesystem::path native = ToNativePath(path);
    std::filesystem::create_directories(native.parent_path());
    if (!path.ends_with(L'\\'))
        std::ofstream(native).flush();
}

void Use(CompanionScript& script) {
    theEnvironment->Companion().Function<decltype(UseCompanionScript)>("UseCompanionScript")(&script);
}

}  // namespace TestInstallation

void Libraries::SetUp() {
    TestInstallation::ClearLibraries();
    TestInstallation::Use(script);
    // What is asked but once in a process is out of the way.
    static_cast<void>(DirectoryManager::GetLibraryDirectoryManager()->GetLibraryRootDirectory());
    Calls();
}

void Libraries::Make(int kind, const std::wstring& family, const std::wstring& section,
                     const std::wstring& file) {
    TestInstallation::Make(script.PathOf(kind, family, section, {}) + file);
}

CString Libraries::PathOf(int kind, const std::wstring& family, const std::wstring& section,
                          const std::wstring& file) const {
    return script.PathOf(kind, family, section, {}) + file;
}
