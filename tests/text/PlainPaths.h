// The operations on texts of paths and versions, step by step.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "QsUtils/text/CString.h"
#include "QsUtils/text/Numbers.h"

namespace PlainPaths {

inline std::vector<CString> Split(const CString& text) {
    std::vector<CString> parts;
    int begin = 0;
    for (int end = text.Find(u'\\'); end >= 0; end = text.Find(u'\\', begin)) {
        parts.push_back(text.Mid(begin, end - begin));
        begin = end + 1;
    }
    if (begin < text.GetLength())
        parts.push_back(text.Mid(begin));
    return parts;
}

inline CString RemoveRelativeDirectory(const CString& path) {
    using Offset = std::vector<CString>::difference_type;
    const bool endsInBackslash = path.Right(1) == u"\\";
    std::vector<CString> parts = Split(path);
    const int last = static_cast<int>(parts.size()) - 1;
    for (int i = last; i >= 0; --i) {
        if (parts[static_cast<std::size_t>(i)] == u".")
            parts.erase(parts.begin() + i);
    }
    for (int i = last; i >= 0; --i) {
        if (parts.at(static_cast<std::size_t>(i)) != u".." || i < 1)
            continue;
        int below = i - 1;
        while (below >= 0 && parts[static_cast<std::size_t>(below)] == u"..")
            --below;
        if (below >= 0) {
            parts.erase(parts.begin() + Offset{i});
            parts.erase(parts.begin() + Offset{below});
        }
    }
    CString joined;
    for (std::size_t i = 0; i < parts.size(); ++i)
        joined += i == 0 ? parts[i] : u"\\" + parts[i];
    return endsInBackslash ? joined + u"\\" : joined;
}

inline CString RemoveRelativeDirectoryFromPath(const CString& path) {
    if (path.IsEmpty() || (path.Find(u".\\") < 0 && path.Find(u"..\\") < 0))
        return path;
    return RemoveRelativeDirectory(path);
}

/// The part before the next point, which is taken out together with it.
inline CString CutPart(CString& version) {
    const int point = version.Find(u'.');
    const CString part = point < 0 ? CString() : version.Left(point);
    if (point >= 0)
        version = version.Mid(point + 1);
    return part;
}

inline int VersionBig(CString a, CString b, bool withThirdPart) {
    if (a == b)
        return 0;
    if (a.IsEmpty())
        return -1;
    if (b.IsEmpty())
        return 1;
    int numberA = QsText::ReadInt(CutPart(a).View());
    int numberB = QsText::ReadInt(CutPart(b).View());
    if (numberA != numberB)
        return numberA > numberB ? 1 : -1;
    const bool pointA = a.Find(u'.') >= 0;
    const bool pointB = b.Find(u'.') >= 0;
    numberA = QsText::ReadInt(pointA ? CutPart(a).View() : a.View());
    numberB = QsText::ReadInt(pointB ? CutPart(b).View() : b.View());
    if (numberA != numberB)
        return numberA > numberB ? 1 : -1;
    if (!withThirdPart)
        return 0;
    numberA = QsText::ReadInt(a.View());
    numberB = QsText::ReadInt(b.View());
    return numberA == numberB ? 0 : numberA > numberB ? 1 : -1;
}

}  // namespace PlainPaths
