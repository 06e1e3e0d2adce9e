#include "companion/Paths.h"

#include <algorithm>
#include <vector>

#include "companion/System.h"

namespace Companion {

namespace {

/// The names of a path behind its root.
void AppendNames(std::wstring_view path, std::vector<std::wstring_view>& names) {
    for (std::size_t begin = 0; begin < path.size();) {
        const std::size_t end = std::min(path.find(L'\\', begin), path.size());
        const std::wstring_view name = path.substr(begin, end - begin);
        if (name == L"..") {
            if (!names.empty())
                names.pop_back();
        } else if (!name.empty() && name != L".") {
            names.push_back(name);
        }
        begin = end + 1;
    }
}

}  // namespace

std::wstring AsFolder(std::wstring path) {
    if (!path.ends_with(L'\\'))
        path += L'\\';
    return path;
}

std::wstring Resolve(std::wstring_view folder, std::wstring_view path) {
    std::wstring own(path);
    std::replace(own.begin(), own.end(), L'/', L'\\');
    const std::size_t ownRoot = RootLength(own);
    const std::wstring_view base = ownRoot > 0 ? std::wstring_view(own) : folder;
    const std::size_t root = RootLength(base);
    std::vector<std::wstring_view> names;
    if (ownRoot == 0)
        AppendNames(folder.substr(root), names);
    AppendNames(std::wstring_view(own).substr(ownRoot), names);
    std::wstring resolved(base.substr(0, root));
    for (const std::wstring_view name : names) {
        if (!resolved.empty() && !resolved.ends_with(L'\\'))
            resolved += L'\\';
        resolved += name;
    }
    return resolved;
}

}  // namespace Companion
