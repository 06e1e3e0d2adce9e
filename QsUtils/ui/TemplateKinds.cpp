#include "QsUtils/ui/TemplateKinds.h"

#include <cstddef>
#include <iterator>

#include "QsUtils/directory/DirectoryManager.h"

namespace QsUi {

namespace {

using DirectoryManager::ILibraryDirectory;
using DirectoryManager::IProjectDirectory;

struct KindRule {
    const char16_t* extension;
    const char16_t* zeroExtension;
    CString (IProjectDirectory::*ownFolder)();
    const char16_t* libraryWord;
};

// By their numbers; the extensions and the words of reports depend on their type.
constexpr KindRule Kinds[] = {
    {u".fyt", u".zfyt", &IProjectDirectory::GetFyhzTemplateDirectory, u"费用汇总模板\\"},
    {nullptr, nullptr, &IProjectDirectory::GetReportTemplateDirectory, nullptr},
    {u".gst", u".zgst", &IProjectDirectory::GetGfsjTemplateDirectory, u"规费税金模板\\"},
    {u".cst", u".zcst", &IProjectDirectory::GetCsxmTemplateDirectory, u"措施项目模板\\"},
    {u".flt", u".flt", &IProjectDirectory::GetDjzcTemplateDirectory, u"综合单价组成模板\\"},
};

struct ReportRule {
    const char16_t* extension;
    const char16_t* word;
};

constexpr ReportRule Reports[] = {{u".xbb", u"项目\\"}, {u".qbb", u"单位工程\\"}, {u".dbb", u"单位工程\\"}};

template <std::size_t N>
bool IsIndex(int number) {
    return number >= 0 && static_cast<std::size_t>(number) < N;
}

}  // namespace

TemplatePlaces PlacesOfTemplates(int kind, bool isZeroVariant, int reportType, const CString& family,
                                 const CString& section) {
    TemplatePlaces places;
    if (!IsIndex<std::size(Kinds)>(kind) || (kind == Report && !IsIndex<std::size(Reports)>(reportType)))
        return places;
    const LibraryKey key{family, section, CString()};
    ILibraryDirectory& library = *DirectoryManager::GetLibraryDirectoryManager();
    const KindRule& rule = Kinds[kind];
    places.ownFolder = (DirectoryManager::GetProjectDirectoryManager()->*rule.ownFolder)();
    if (kind == Report) {
        const ReportRule& report = Reports[reportType];
        places.extension = report.extension;
        places.ownFolder += report.word;
        places.libraryFolder = library.GetReportTemplateLibraryDirectory(key) + report.word;
        places.isOwnFirst = true;
        return places;
    }
    places.extension = isZeroVariant ? rule.zeroExtension : rule.extension;
    places.libraryFolder = library.GetFeeTemplateLibraryDirectory(key) + rule.libraryWord;
    places.isOwnMade = true;
    return places;
}

}  // namespace QsUi
