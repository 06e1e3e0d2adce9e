#include "QsUtils/ui/OpenBudgets.h"

#include <optional>
#include <string_view>

#include "QsUtils/material/MaterialDigest.h"
#include "QsUtils/platform/SharedText.h"

namespace QsUi {

namespace {

constexpr const char16_t* Normal = u"Normal";
constexpr const char16_t* SongShen = u"SongShen";
constexpr const char16_t* ShenDing = u"ShenDing";

}  // namespace

bool IsListed(const CString& list, const CString& item) {
    std::u16string_view rest = list.View();
    for (std::size_t end = rest.find(u'&'); end != rest.npos; end = rest.find(u'&')) {
        if (rest.substr(0, end) == item.View())
            return true;
        rest.remove_prefix(end + 1);
    }
    return false;
}

int IsYsOpen(const CString& key, const CString& item) {
    const std::optional<CString> list = QsPlatform::ReadSharedText(u"OPEN_YS:" + QsMaterial::StreamMd5(key));
    return list && IsListed(*list, item) ? 1 : 0;
}

CString YsTypeToString(eYsType type) {
    switch (type) {
        case eYsType_SongShen:
            return SongShen;
        case eYsType_ShenDing:
            return ShenDing;
        case eYsType_Normal:
            break;
    }
    return Normal;
}

eYsType StringToYsType(const CString& text) {
    if (text == SongShen)
        return eYsType_SongShen;
    return text == ShenDing ? eYsType_ShenDing : eYsType_Normal;
}

}  // namespace QsUi
