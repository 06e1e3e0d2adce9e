#include "QsUtils/text/Paths.h"

#include <algorithm>
#include <stdexcept>
#include <utility>
#include <vector>

#include "QsUtils/text/Numbers.h"
#include "QsUtils/text/Segments.h"

namespace QsText {

namespace {

int Compare(int a, int b) {
    return a < b ? -1 : a > b ? 1 : 0;
}

/// The number before the first "." of a version; without one it is 0.
int FirstPart(const CString& version) {
    return ReadInt(version.Left(version.Find(u'.')).View());
}

/// The text behind the first "."; without one the whole text, which is then read once more.
CString BehindPart(const CString& version) {
    return version.Mid(version.Find(u'.') + 1);
}

/// The number that a rest begins with: reading ends at the "." anyway.
int NextPart(const CString& rest) {
    return ReadInt(rest.View());
}

}  // namespace

int VersionBig(const CString& a, const CString& b, bool withThirdPart) {
    if (a == b)
        return 0;
    if (a.IsEmpty() || b.IsEmpty())
        return a.IsEmpty() ? -1 : 1;
    if (const int order = Compare(FirstPart(a), FirstPart(b)); order != 0)
        return order;
    const CString restA = BehindPart(a);
    const CString restB = BehindPart(b);
    const int order = Compare(NextPart(restA), NextPart(restB));
    if (order != 0 || !withThirdPart)
        return order;
    return Compare(NextPart(BehindPart(restA)), NextPart(BehindPart(restB)));
}

CString PickFileNameFromPath(const CString& path) {
    CString name = path.Mid(path.ReverseFind(u'\\') + 1);
    if (const int point = name.ReverseFind(u'.'); point >= 0)
        name.Truncate(point);
    return name;
}

CString RemoveRelativeDirectoryFromPath(const CString& path) {
    return path.Find(u".\\") < 0 ? path : RemoveRelativeDirectory(path);  // "..\" holds it as well
}

// Hosts rest on the error too: a part "." and a ".." at the end that takes a part with it are refused. All
// "..", the innermost first, take the next part before them that is none, so those that are left over stand
// in front.
CString RemoveRelativeDirectory(const CString& path) {
    std::vector<CString> parts;
    TransStrToAry(path, u"\\", parts);
    const auto isUp = [](const CString& part) { return part == u".."; };
    if (std::find(parts.begin(), parts.end(), u".") != parts.end() ||
        (!parts.empty() && isUp(parts.back()) && !std::all_of(parts.begin(), parts.end(), isUp)))
        throw std::out_of_range("invalid vector<T> subscript");
    std::vector<CString> left;
    for (CString& part : parts) {
        if (isUp(part) && !left.empty() && !isUp(left.back()))
            left.pop_back();
        else
            left.push_back(std::move(part));
    }
    CString joined;
    TransAryToStr(left, joined, u"\\");
    return path.Right(1) == u"\\" ? joined + u'\\' : joined;
}

}  // namespace QsText
