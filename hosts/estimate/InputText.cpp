#include "InputText.h"

#include <utility>
#include <vector>

#include <QsUtils/QsUtils.h>

#include "Utf8.h"

namespace Estimate {
namespace {

constexpr std::size_t PieceSize = 1 << 18;
constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view Utf16Mark = "\xFF\xFE";
constexpr std::string_view SwappedMark = "\xFE\xFF";

struct Contents {
    std::string head;
    bool utf8 = true;
    bool hasNul = false;
    std::uint64_t size = 0;
};

std::size_t MarkLength(std::string_view bytes) {
    for (const std::string_view mark : {Utf8Mark, Utf16Mark, SwappedMark})
        if (bytes.starts_with(mark))
            return mark.size();
    return 0;
}

Contents Scan(std::istream& in) {
    Contents contents;
    Utf8Check check;
    std::vector<char> piece(PieceSize);
    while (in.read(piece.data(), static_cast<std::streamsize>(piece.size())), in.gcount() > 0) {
        const std::string_view bytes(piece.data(), static_cast<std::size_t>(in.gcount()));
        if (contents.size == 0)
            contents.head = bytes.substr(0, Utf8Mark.size());
        contents.size += bytes.size();
        contents.hasNul = contents.hasNul || bytes.find('\0') != std::string_view::npos;
        check.Feed(bytes);
    }
    contents.utf8 = check.IsValid();
    return contents;
}

}  // namespace

InputText DetectText(std::istream& in) {
    const Contents contents = Scan(in);
    InputText text;
    text.size = contents.size;
    if (contents.head.starts_with(Utf16Mark) || contents.head.starts_with(SwappedMark))
        text.refusal = Say<Text::TextUtf16>();
    else if (contents.hasNul)
        text.refusal = Say<Text::TextBinary>();
    text.encoding = contents.utf8 ? Encoding::Utf8 : Encoding::Gbk;
    in.clear();
    in.seekg(contents.utf8 && contents.head == Utf8Mark ? static_cast<std::streamoff>(Utf8Mark.size()) : 0);
    return text;
}

bool IsMarkup(std::istream& in) {
    // The NUL bytes are halves of UTF-16.
    constexpr std::string_view blanks(" \t\r\n\0", 5);
    std::vector<char> piece(PieceSize);
    bool first = true;
    std::size_t at = std::string_view::npos;
    std::string_view bytes;
    while (at == std::string_view::npos) {
        in.read(piece.data(), static_cast<std::streamsize>(piece.size()));
        bytes = {piece.data(), static_cast<std::size_t>(in.gcount())};
        if (bytes.empty())
            break;
        if (std::exchange(first, false))
            bytes.remove_prefix(MarkLength(bytes));
        at = bytes.find_first_not_of(blanks);
    }
    in.clear();
    in.seekg(0);
    return at != std::string_view::npos && bytes[at] == '<';
}

std::string DecodeField(std::string_view bytes, Encoding encoding) {
    if (encoding == Encoding::Utf8)
        return std::string(bytes);
    return ToUtf8(CString(IQsUtils::AnsiToUnicode(std::string(bytes))));
}

}  // namespace Estimate
