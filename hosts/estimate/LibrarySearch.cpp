#include "LibrarySearch.h"

#include <map>

#include <QsUtils/QsUtils.h>

#include "Files.h"
#include "Utf8.h"

namespace Estimate {
namespace {

using DirectoryManager::GetLibraryDirectoryManager;
using LibraryManager::GetLibraryManager;

struct SearchPlace {
    CString family;
    CString section;
    CString item;
};

CString FindBill(const SearchPlace& place, const CString& name) {
    return GetLibraryManager()->FindBillLibraryFile(place.family, place.section, name);
}

/// The manager knows quota libraries by their names; whoever looks at a folder sees their files.
CString FindQuota(const SearchPlace& place, const CString& name) {
    CString path = GetLibraryManager()->FindQuotaLibraryFile(place.family, place.section, name);
    if (!path.IsEmpty())
        return path;
    std::map<CString, CString> paths;
    GetLibraryManager()->GetQuotaLibraries(place.family, paths);
    for (const auto& [library, file] : paths) {
        if (file.Mid(file.ReverseFind(u'\\') + 1) != name)
            continue;
        path = GetLibraryManager()->FindQuotaLibraryFile(place.family, place.section, library);
        if (!path.IsEmpty())
            return path;
    }
    return CString();
}

CString FindDrt(const SearchPlace& place, const CString& name) {
    return GetLibraryManager()->FindDrtFile(place.family, place.section, name);
}

CString FindConfig(const SearchPlace& place, const CString& name) {
    return GetLibraryManager()->FindConfigFile(place.family, place.section, name);
}

CString FindSub(const SearchPlace& place, const CString& name) {
    return GetLibraryManager()->FindSubLibraryFile(place.family, place.section, place.item, name);
}

CString FindEnterprise(const SearchPlace& place, const CString& name) {
    return GetLibraryManager()->GetEnterpriseBillLibraryFile(place.family, name);
}

struct Kind {
    const char* name;
    CString (*find)(const SearchPlace& place, const CString& name);
};

constexpr Kind Kinds[] = {{"bill", FindBill},     {"quota", FindQuota}, {"drt", FindDrt},
                          {"config", FindConfig}, {"sub", FindSub},     {"enterprise", FindEnterprise}};

std::vector<CString> FamiliesOf(const LibrarySearch& search) {
    std::vector<CString> families;
    if (search.family.empty())
        GetLibraryManager()->GetLibraryFamilies(families);
    else
        families.push_back(FromUtf8(search.family));
    return families;
}

}  // namespace

const std::vector<std::string>& LibraryFileKinds() {
    static const std::vector<std::string> names = [] {
        std::vector<std::string> all;
        for (const Kind& kind : Kinds)
            all.emplace_back(kind.name);
        return all;
    }();
    return names;
}

std::vector<LibraryHit> Find(const LibrarySearch& search) {
    const CString name = FromUtf8(search.name);
    std::vector<LibraryHit> hits;
    for (const CString& family : FamiliesOf(search)) {
        const SearchPlace place{family, FromUtf8(search.section), FromUtf8(search.item)};
        for (const Kind& kind : Kinds) {
            if (!search.kind.empty() && search.kind != kind.name)
                continue;
            const CString path = kind.find(place, name);
            // A bare name was found in the current folder, in place of a folder that the libraries lack.
            if (path.Find(u'\\') >= 0)
                hits.push_back({kind.name, ToUtf8(family), ShownPath(path)});
        }
    }
    return hits;
}

}  // namespace Estimate
