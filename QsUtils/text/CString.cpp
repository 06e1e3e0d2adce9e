#include "QsUtils/text/CString.h"

#include <algorithm>
#include <limits>

#include "QsUtils/platform/CodePage.h"
#include "QsUtils/text/Numbers.h"
#include "QsUtils/text/TextSearch.h"
#include "QsUtils/text/WideText.h"

namespace {

/// The length of a text that the caller gives by pointer and length.
std::size_t CheckedLength(const void* text, int length) {
    if (length < 0 || (text == nullptr && length > 0))
        throw CAtlException(CAtlException::InvalidArgument);
    return static_cast<std::size_t>(length);
}

std::size_t NotNegative(int count) {
    return count < 0 ? 0 : static_cast<std::size_t>(count);
}

constexpr char16_t ToLower(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 0x20) : unit;
}
constexpr char16_t ToUpper(char16_t unit) {
    return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 0x20) : unit;
}

int Position(std::size_t position) {
    return position == std::u16string_view::npos ? -1 : static_cast<int>(position);
}

}  // namespace

// --- Construction

CString::CString(const wchar_t* text)
    : m_units(text == nullptr ? std::u16string() : QsText::WideToUtf16(text)) {}

CString::CString(const char16_t* text, int length) {
    const std::size_t count = CheckedLength(text, length);
    if (count > 0)
        m_units.assign(text, count);
}

CString::CString(const wchar_t* text, int length) {
    const std::size_t count = CheckedLength(text, length);
    if (count > 0)
        m_units = QsText::WideToUtf16({text, count});
}

CString::CString(const std::wstring& text) : m_units(QsText::WideToUtf16(text)) {}

CString::CString(char16_t unit, int repeat) : m_units(NotNegative(repeat), unit) {}

CString::CString(wchar_t character, int repeat) {
    const auto code = static_cast<char32_t>(character);
    if (code < 0x10000) {
        m_units.assign(NotNegative(repeat), static_cast<char16_t>(code));
        return;
    }
    for (std::size_t i = NotNegative(repeat); i > 0; --i)
        QsText::AppendCharacter(m_units, code);
}

CString::CString(char character, int repeat) : m_units(NotNegative(repeat), AnsiUnit(character)) {}

CString::CString(const char* text)
    : m_units(text == nullptr ? std::u16string() : QsPlatform::DecodeAnsi(text)) {}

CString::CString(const char* text, int length) {
    const std::size_t count = CheckedLength(text, length);
    if (count > 0)
        m_units = QsPlatform::DecodeAnsi({text, count});
}

CString& CString::operator=(CString&& other) noexcept {
    if (this != &other) {
        m_units = std::move(other.m_units);
        other.m_units.clear();
    }
    return *this;
}

char16_t CString::AnsiUnit(char byte) {
    if (static_cast<unsigned char>(byte) < 0x80)
        return static_cast<char16_t>(byte);
    const std::u16string decoded = QsPlatform::DecodeAnsi({&byte, 1});
    return decoded.empty() ? u'?' : decoded.front();
}

// --- What it holds

std::wstring CString::ToWide() const {
    return QsText::Utf16ToWide(m_units);
}

void CString::ThrowInvalidArgument() {
    throw CAtlException(CAtlException::InvalidArgument);
}

void CString::SetAt(int index, XCHAR unit) {
    if (index < 0 || index >= GetLength())
        ThrowInvalidArgument();
    m_units[static_cast<std::size_t>(index)] = static_cast<char16_t>(unit);
}

void CString::Preallocate(int length) {
    m_units.reserve(CheckedLength(m_units.data(), length));
}

void CString::Truncate(int length) {
    if (CheckedLength(m_units.data(), length) < m_units.size())
        m_units.resize(static_cast<std::size_t>(length));
}

CString::PXSTR CString::GetBuffer(int minimum) {
    const std::size_t count = CheckedLength(m_units.data(), minimum);
    if (count > m_units.size())
        m_units.resize(count);
    return Native(m_units.data());
}

void CString::ReleaseBuffer(int length) {
    if (length < -1 || length > GetLength())
        ThrowInvalidArgument();
    const std::size_t end = length == -1 ? m_units.find(u'\0') : static_cast<std::size_t>(length);
    if (end < m_units.size())
        m_units.resize(end);
}

int CString::CompareNoCase(const CString& other) const noexcept {
    const std::size_t common = std::min(m_units.size(), other.m_units.size());
    for (std::size_t i = 0; i < common; ++i) {
        const char16_t a = ToLower(m_units[i]);
        const char16_t b = ToLower(other.m_units[i]);
        if (a != b)
            return a < b ? -1 : 1;
    }
    return m_units.size() == other.m_units.size() ? 0 : m_units.size() < other.m_units.size() ? -1 : 1;
}

// --- Parts

CString CString::Left(int count) const {
    return CString(View().substr(0, NotNegative(count)));
}

CString CString::Right(int count) const {
    const std::size_t taken = std::min(NotNegative(count), m_units.size());
    return CString(View().substr(m_units.size() - taken));
}

CString CString::Mid(int first) const {
    return CString(View().substr(std::min(NotNegative(first), m_units.size())));
}

CString CString::Mid(int first, int count) const {
    const int from = std::max(first, 0);
    const int taken = std::max(count, 0);
    if (taken > std::numeric_limits<int>::max() - from)
        ThrowInvalidArgument();
    return CString(
        View().substr(std::min(NotNegative(from), m_units.size()), static_cast<std::size_t>(taken)));
}

CString CString::SpanIncluding(const CString& set) const {
    return CString(View().substr(0, View().find_first_not_of(set.View())));
}

CString CString::SpanExcluding(const CString& set) const {
    return CString(View().substr(0, View().find_first_of(set.View())));
}

CString CString::Tokenize(const CString& separators, int& start) const {
    if (start < 0)
        ThrowInvalidArgument();
    const std::u16string_view text = View();
    const auto from = static_cast<std::size_t>(start);
    if (separators.IsEmpty()) {
        if (from < text.size())
            return CString(text.substr(from));
    } else {
        const std::size_t first = text.find_first_not_of(separators.View(), from);
        if (first != text.npos) {
            const std::size_t end = std::min(text.find_first_of(separators.View(), first), text.size());
            start = static_cast<int>(end) + 1;
            return CString(text.substr(first, end - first));
        }
    }
    start = -1;
    return CString();
}

// --- Searching

int CString::Find(const CString& part, int start) const noexcept {
    if (start < 0 || start > GetLength())
        return -1;
    return Position(QsText::FindText(m_units, part.m_units, static_cast<std::size_t>(start)));
}

int CString::FindCharacter(char32_t character, int start) const noexcept {
    if (start < 0 || start >= GetLength())
        return -1;
    const auto from = static_cast<std::size_t>(start);
    if (character < 0x10000)
        return Position(m_units.find(static_cast<char16_t>(character), from));
    std::u16string units;
    QsText::AppendCharacter(units, character);
    return Position(m_units.find(units, from));
}

int CString::ReverseFindCharacter(char32_t character) const noexcept {
    if (character < 0x10000)
        return Position(m_units.rfind(static_cast<char16_t>(character)));
    std::u16string units;
    QsText::AppendCharacter(units, character);
    return Position(m_units.rfind(units));
}

int CString::FindOneOf(const CString& set) const noexcept {
    return Position(View().find_first_of(set.View()));
}

// --- Changing in place

int CString::Delete(int index, int count) {
    const std::size_t first = NotNegative(index);
    if (first < m_units.size())
        m_units.erase(first, NotNegative(count));
    return GetLength();
}

int CString::Insert(int index, const CString& text) {
    m_units.insert(std::min(NotNegative(index), m_units.size()), text.m_units);
    return GetLength();
}

int CString::Replace(const CString& oldPart, const CString& newPart) {
    const std::u16string_view text = View();
    const std::u16string_view wanted = oldPart.View();
    if (wanted.empty())
        return 0;
    std::size_t match = QsText::FindText(text, wanted);
    if (match == text.npos)
        return 0;
    std::u16string result;
    result.reserve(text.size());
    std::size_t copied = 0;
    int count = 0;
    for (; match != text.npos; match = QsText::FindText(text, wanted, copied)) {
        result.append(text, copied, match - copied);
        result += newPart.m_units;
        copied = match + wanted.size();
        ++count;
    }
    result.append(text, copied);
    m_units = std::move(result);
    return count;
}

CString& CString::MakeUpper() noexcept {
    std::transform(m_units.begin(), m_units.end(), m_units.begin(), ToUpper);
    return *this;
}

CString& CString::MakeLower() noexcept {
    std::transform(m_units.begin(), m_units.end(), m_units.begin(), ToLower);
    return *this;
}

CString& CString::MakeReverse() noexcept {
    std::reverse(m_units.begin(), m_units.end());
    return *this;
}

CString& CString::Trim() {
    return TrimRight().TrimLeft();
}

CString& CString::TrimLeft() {
    m_units.erase(m_units.begin(), std::find_if_not(m_units.begin(), m_units.end(), QsText::IsSpace));
    return *this;
}

CString& CString::TrimRight() {
    m_units.erase(std::find_if_not(m_units.rbegin(), m_units.rend(), QsText::IsSpace).base(), m_units.end());
    return *this;
}

CString& CString::Trim(const CString& set) {
    return TrimRight(set).TrimLeft(set);
}

CString& CString::TrimLeft(const CString& set) {
    m_units.erase(0, std::min(View().find_first_not_of(set.View()), m_units.size()));
    return *this;
}

CString& CString::TrimRight(const CString& set) {
    m_units.erase(View().find_last_not_of(set.View()) + 1);
    return *this;
}

CString CString::Join(std::u16string_view a, std::u16string_view b) {
    std::u16string units;
    units.reserve(a.size() + b.size());
    units.append(a).append(b);
    return CString(std::move(units));
}
