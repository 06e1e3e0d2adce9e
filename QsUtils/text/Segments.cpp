#include "QsUtils/text/Segments.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "QsUtils/text/TextSearch.h"
#include "QsUtils/text/WideText.h"

namespace QsText {

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

/// The last of the matches from the left without overlap, so that "aaa" holds "aa" at 0 and not at 1.
std::size_t FindLastMatch(std::u16string_view text, std::u16string_view sep) {
    std::size_t last = npos;
    for (std::size_t match = FindText(text, sep); match != npos;
         match = FindText(text, sep, match + sep.size()))
        last = match;
    return last;
}

/// Calls `take` with each piece of `text` between separators but for a last empty one.
template <typename Take>
void ForEachPiece(std::u16string_view text, std::u16string_view sep, Take take) {
    std::size_t begin = 0;
    for (std::size_t match = FindText(text, sep); match != npos; match = FindText(text, sep, begin)) {
        take(text.substr(begin, match - begin));
        begin = match + sep.size();
    }
    if (begin < text.size())
        take(text.substr(begin));
}

}  // namespace

// The four differ in what they answer for an empty text, and hosts rely on each as it is.

bool CutFirstSegment(CString& text, const CString& sep) {
    if (sep.IsEmpty())
        return true;
    const std::size_t match = FindText(text.View(), sep.View());
    if (match == npos)
        return false;
    text.Delete(0, static_cast<int>(match) + sep.GetLength());
    return true;
}

bool CutLastSegment(CString& text, const CString& sep) {
    if (sep.IsEmpty() || text.IsEmpty())
        return true;
    const std::size_t match = FindLastMatch(text.View(), sep.View());
    if (match == npos)
        return false;
    text.Truncate(static_cast<int>(match));
    return true;
}

bool GetFirstSegment(CString& text, const CString& sep) {
    if (sep.IsEmpty() || text.IsEmpty())
        return true;
    const std::size_t match = FindText(text.View(), sep.View());
    if (match == npos)
        return false;
    text.Truncate(static_cast<int>(match));
    return true;
}

bool GetLastSegment(CString& text, const CString& sep) {
    if (sep.IsEmpty())
        return true;
    const std::size_t match = FindLastMatch(text.View(), sep.View());
    if (match == npos)
        return false;
    text.Delete(0, static_cast<int>(match) + sep.GetLength());
    return true;
}

int FindInCStringArray(const CString& text, const CStringArray& array) {
    if (text.IsEmpty())
        return -1;
    const auto found = std::find(array.begin(), array.end(), text);
    return found == array.end() ? -1 : static_cast<int>(found - array.begin());
}

bool StringArrayContains(const CStringArray& array, const wchar_t* text) {
    const CString wanted(text);
    return std::any_of(array.begin(), array.end(),
                       [&wanted](const CString& element) { return element.CompareNoCase(wanted) == 0; });
}

int FindSpecStringCount(const CString& text, const CString& sub, CUIntArray& positions) {
    if (text.IsEmpty() || sub.IsEmpty())
        return 0;
    std::size_t match = FindText(text.View(), sub.View());
    if (match == npos)
        return 0;
    positions.RemoveAll();
    for (; match != npos; match = FindText(text.View(), sub.View(), match + sub.View().size()))
        positions.Add(static_cast<unsigned int>(match));
    return positions.GetSize();
}

void Split(const CString& text, CStringArray& out, wchar_t sep) {
    std::u16string separator;
    AppendCharacter(separator, static_cast<char32_t>(sep));
    ForEachPiece(text.View(), separator, [&out](std::u16string_view piece) { out.Add(piece); });
}

void TransStrToAry(const CString& text, const CString& sep, std::vector<CString>& out) {
    if (sep.IsEmpty())
        return;
    // Text and separator may be elements of the output.
    std::vector<CString> pieces;
    ForEachPiece(text.View(), sep.View(),
                 [&pieces](std::u16string_view piece) { pieces.emplace_back(piece); });
    out = std::move(pieces);
}

void TransAryToStr(const std::vector<CString>& array, CString& out, const CString& sep) {
    std::size_t length = 0;
    for (const CString& element : array)
        length += element.View().size() + sep.View().size();
    std::u16string joined;
    joined.reserve(length);
    for (const CString& element : array) {
        if (&element != &array.front())
            joined += sep.View();
        joined += element.View();
    }
    out = std::move(joined);
}

void ChangeSBCtoDBC(CString&) {
    // Nothing, on purpose: the conversion was written for bytes, and on wide units its test for the lead byte
    // of the full-width block never holds. The comparisons were tuned with full-width digits left as they
    // are.
}

CString TakeOutJxxzString(CString& text) {
    const int mark = text.Find(u'&');
    if (mark < 0)
        return CString();
    const int skip = text.Find(u"&!") >= 0 ? 1 : 2;
    const std::size_t stop = text.View().find_first_of(u"@#?$| ", static_cast<std::size_t>(mark));
    if (stop == npos) {
        CString part = text.Mid(mark).Mid(skip);
        text.Truncate(mark);
        return part;
    }
    const int marked = static_cast<int>(stop) - mark;
    CString part = text.Mid(mark).Left(marked).Mid(skip);
    text.Delete(mark, marked);
    return part;
}

std::wstring CStringToWstring(const CString& text) {
    return Utf16ToWide(UpToNul(text.View()));
}

}  // namespace QsText
