// The groups of an overview's fields. Older files name a group without the path in front of it.
#include <algorithm>
#include <iterator>

#include "QsUtils/config/OverviewFile.h"

namespace QsConfig {

namespace {

struct Group {
    const char16_t* path;
    const char16_t* name;
};

// From 1 on.
constexpr Group Groups[] = {{u"工程概况/工程信息", u"工程信息"},
                            {u"工程概况/工程特征内容", u"工程特征内容"},
                            {u"工程概况/电子招投标信息", u"电子招投标信息"}};
constexpr const char16_t* OtherGroup = u"其他信息";

}  // namespace

bool IsOverviewGroup(const CString& text) {
    return text.Find(u"工程概况") >= 0 || GroupOfText(text) != 0;
}

int GroupOfText(const CString& text) {
    const auto found = std::find_if(std::begin(Groups), std::end(Groups), [&](const Group& group) {
        return text == group.path || text == group.name;
    });
    return found == std::end(Groups) ? 0 : static_cast<int>(found - std::begin(Groups)) + 1;
}

CString TextOfGroup(int group) {
    return group >= 1 && group <= static_cast<int>(std::size(Groups)) ? Groups[group - 1].path : OtherGroup;
}

}  // namespace QsConfig
