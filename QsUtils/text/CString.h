/// @file
/// CString, the text of every exported signature: a counted sequence of UTF-16 code units.
#pragma once

#include <compare>
#include <concepts>
#include <cstddef>
#include <initializer_list>
#include <iosfwd>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "QsUtils/platform/Api.h"
#include "QsUtils/text/CAtlException.h"
#include "QsUtils/text/FormatArgument.h"

/// A text of UTF-16 code units, with the members and the edge behaviour of the framework class of that name.
///
/// Positions and lengths count code units from 0 and are `int`. Comparisons and searches are by code unit;
/// case folding is ASCII's alone. White space is that of the wide C runtime: U+0009-000D, 0020, 00A0, 1680,
/// 2000-200A, 2028, 2029, 202F, 205F, 3000. A null pointer stands for the empty text. Texts of up to seven
/// units need no allocation, and moving never allocates. One object is for one thread at a time; different
/// objects are independent.
class QSUTILS_API CString {
public:
    using XCHAR = QsPlatform::TextUnit;  ///< a unit: `char16_t`, on Windows `wchar_t`
    using PXSTR = XCHAR*;                ///< units to be written
    using PCXSTR = const XCHAR*;         ///< units to be read

    constexpr CString() noexcept = default;  ///< The empty text.
    CString(const CString&) = default;       ///< The same text.
    /// Takes the text over; `other` is empty afterwards.
    CString(CString&& other) noexcept : m_units(std::move(other.m_units)) { other.m_units.clear(); }
    ~CString() = default;

    /// A text up to its NUL. On a system whose `wchar_t` has 32 bits the text is encoded to UTF-16; a lone
    /// surrogate passes unchanged.
    CString(const char16_t* text) : m_units(Safe(text)) {}
    CString(const wchar_t* text);  ///< Likewise.
    /// The empty text.
    CString(std::nullptr_t) noexcept {}

    /// The first `length` units of a text, NULs among them. A negative length raises `CAtlException`, and so
    /// does a null pointer with a length above 0.
    CString(const char16_t* text, int length);
    CString(const wchar_t* text, int length);  ///< Likewise, counted in wide characters.

    /// The whole text, NULs among it.
    CString(const std::u16string& text) : m_units(text) {}
    /// The whole text, taken over.
    CString(std::u16string&& text) noexcept : m_units(std::move(text)) {}
    /// The whole text, NULs among it.
    CString(std::u16string_view text) : m_units(text) {}
    CString(const std::wstring& text);  ///< Likewise, encoded to UTF-16.

    /// `repeat` times one character; none when `repeat` is below 1.
    explicit CString(char16_t unit, int repeat = 1);
    explicit CString(wchar_t character, int repeat = 1);  ///< Likewise, two units beyond U+FFFF.
    explicit CString(char character, int repeat = 1);     ///< Likewise, a byte of the ANSI code page.

    /// A narrow text, up to its NUL, in the ANSI code page (936).
    explicit CString(const char* text);
    CString(const char* text, int length);  ///< The first `length` bytes of one, likewise.

    CString& operator=(const CString&) = default;  ///< Becomes the same text.
    CString& operator=(CString&& other) noexcept;  ///< Takes the text over; `other` is empty afterwards.
    /// Becomes a text up to its NUL.
    // Templates, so that `text = {}` has one meaning.
    template <QsText::CharacterUnit C>
    CString& operator=(const C* text) {
        return *this = CString(text);
    }
    /// Becomes one character.
    template <QsText::CharacterUnit C>
    CString& operator=(C character) {
        return *this = CString(character);
    }

    // --- What it holds

    /// How many units there are.
    int GetLength() const noexcept { return static_cast<int>(m_units.size()); }
    /// Whether there are none.
    bool IsEmpty() const noexcept { return m_units.empty(); }
    /// The units, NUL-terminated; valid until the text changes.
    PCXSTR GetString() const noexcept { return Native(m_units.data()); }
    /// The same as `GetString`.
    operator PCXSTR() const noexcept { return GetString(); }
    /// The units as a view; valid until the text changes.
    std::u16string_view View() const noexcept { return m_units; }
    /// The whole text as a wide string; NULs and lone surrogates pass unchanged.
    std::wstring ToWide() const;
    /// The unit at `index`; at the length it is NUL, and elsewhere outside `CAtlException` is raised.
    XCHAR GetAt(int index) const { return At(static_cast<std::size_t>(index)); }
    /// The same as `GetAt`.
    template <std::integral I>
    XCHAR operator[](I index) const {
        return At(static_cast<std::size_t>(index));
    }
    /// Replaces the unit at `index`; outside of the text `CAtlException` is raised.
    void SetAt(int index, XCHAR unit);

    /// Leaves the empty text, and gives its memory back.
    void Empty() noexcept { m_units = std::u16string(); }
    /// Becomes that text.
    void SetString(const CString& text) { *this = text; }
    /// Becomes the first `length` units of that text.
    void SetString(PCXSTR text, int length) { *this = CString(text, length); }
    /// Makes room for `length` units in all; a negative length raises `CAtlException`.
    void Preallocate(int length);
    /// Gives back what isn't used.
    void FreeExtra() { m_units.shrink_to_fit(); }
    /// Cuts the text to `length` units; a longer `length` changes nothing, a negative one raises
    /// `CAtlException`.
    void Truncate(int length);

    /// A buffer of at least `minimum` units and a NUL, for writing; it begins with the text. Call
    /// `ReleaseBuffer` before anything else. A negative `minimum` raises `CAtlException`.
    PXSTR GetBuffer(int minimum = 0);
    /// Ends the writing: the text has `length` units, or reaches to its first NUL when `length` is -1. A
    /// length beyond the buffer or below -1 raises `CAtlException`.
    void ReleaseBuffer(int length = -1);

    // --- Comparison: negative, 0 or positive, as -1, 0, 1

    /// By code unit.
    int Compare(const CString& other) const noexcept { return CompareUnits(other.m_units); }
    /// ASCII letters compare in lower case, so "_" stands before "A".
    int CompareNoCase(const CString& other) const noexcept;

    /// By code unit.
    friend bool operator==(const CString& a, const CString& b) noexcept { return a.m_units == b.m_units; }
    /// By code unit.
    friend bool operator==(const CString& a, const char16_t* b) noexcept { return a.m_units == Safe(b); }
    /// By code unit.
    friend bool operator==(const CString& a, const wchar_t* b) { return a == CString(b); }
    /// By code unit.
    friend std::strong_ordering operator<=>(const CString& a, const CString& b) noexcept {
        return a.CompareUnits(b.m_units) <=> 0;
    }
    /// By code unit.
    friend std::strong_ordering operator<=>(const CString& a, const char16_t* b) noexcept {
        return a.CompareUnits(Safe(b)) <=> 0;
    }
    /// By code unit.
    friend std::strong_ordering operator<=>(const CString& a, const wchar_t* b) { return a <=> CString(b); }
    // Beside `<=>`, because `std::less<void>` and `std::ranges::less` compare the pointers that two texts
    // convert to unless they find these by name.
    /// By code unit.
    friend bool operator<(const CString& a, const CString& b) noexcept {
        return a.CompareUnits(b.m_units) < 0;
    }
    /// By code unit.
    friend bool operator>(const CString& a, const CString& b) noexcept {
        return a.CompareUnits(b.m_units) > 0;
    }
    /// By code unit.
    friend bool operator<=(const CString& a, const CString& b) noexcept {
        return a.CompareUnits(b.m_units) <= 0;
    }
    /// By code unit.
    friend bool operator>=(const CString& a, const CString& b) noexcept {
        return a.CompareUnits(b.m_units) >= 0;
    }

    // --- Parts

    /// The first `count` units; none below 0, all beyond the length.
    CString Left(int count) const;
    /// The last `count` units; none below 0, all beyond the length.
    CString Right(int count) const;
    /// The units from `first` on; all below 0, none beyond the length.
    CString Mid(int first) const;
    /// At most `count` units from `first` on, both clamped to the text. A `first` and a `count` whose sum
    /// passes the range of int raise `CAtlException`.
    CString Mid(int first, int count) const;
    /// The longest head made of units that are in `set`.
    CString SpanIncluding(const CString& set) const;
    /// The longest head made of units that are not in `set`.
    CString SpanExcluding(const CString& set) const;
    /// The next piece between units of `separators` at or behind `start`, which moves on; when there is none
    /// the result is empty and `start` becomes -1. A negative `start` raises `CAtlException`.
    CString Tokenize(const CString& separators, int& start) const;

    // --- Searching: a position, or -1

    /// The first occurrence from `start` on; a `start` outside of the text finds nothing, except the empty
    /// text at the very end.
    int Find(const CString& part, int start = 0) const noexcept;
    /// The first place of a character from `start` on.
    template <QsText::CharacterUnit C>
    int Find(C character, int start = 0) const {
        return FindCharacter(CodePoint(character), start);
    }
    /// The last place of a character.
    template <QsText::CharacterUnit C>
    int ReverseFind(C character) const {
        return ReverseFindCharacter(CodePoint(character));
    }
    /// The first position that holds a unit of `set`.
    int FindOneOf(const CString& set) const noexcept;

    // --- Changing in place

    /// Removes up to `count` units from `index` on and returns the new length. An `index` below 0 counts as
    /// 0.
    int Delete(int index, int count = 1);
    /// Puts a text in front of `index`, which is clamped to the text; returns the new length.
    int Insert(int index, const CString& text);
    /// The same with a character.
    template <QsText::CharacterUnit C>
    int Insert(int index, C character) {
        return Insert(index, CString(character));
    }
    /// Replaces every occurrence, from the left and without overlap; returns how many there were.
    int Replace(const CString& oldPart, const CString& newPart);
    /// The same with characters.
    template <QsText::CharacterUnit C>
    int Replace(C oldCharacter, C newCharacter) {
        return oldCharacter == newCharacter ? 0 : Replace(CString(oldCharacter), CString(newCharacter));
    }
    /// Removes every occurrence of a character; returns how many there were.
    template <QsText::CharacterUnit C>
    int Remove(C character) {
        return Replace(CString(character), CString());
    }

    CString& MakeUpper() noexcept;    ///< ASCII letters only.
    CString& MakeLower() noexcept;    ///< ASCII letters only.
    CString& MakeReverse() noexcept;  ///< By unit, which takes surrogate pairs apart.

    CString& Trim();       ///< Takes white space off both ends.
    CString& TrimLeft();   ///< Takes it off the beginning.
    CString& TrimRight();  ///< Takes it off the end.
    /// Takes units of `set` off both ends; an empty set takes off nothing.
    CString& Trim(const CString& set);
    CString& TrimLeft(const CString& set);   ///< Takes them off the beginning.
    CString& TrimRight(const CString& set);  ///< Takes them off the end.
    /// Takes one character off both ends.
    template <QsText::CharacterUnit C>
    CString& Trim(C character) {
        return Trim(CString(character));
    }
    /// Takes it off the beginning.
    template <QsText::CharacterUnit C>
    CString& TrimLeft(C character) {
        return TrimLeft(CString(character));
    }
    /// Takes it off the end.
    template <QsText::CharacterUnit C>
    CString& TrimRight(C character) {
        return TrimRight(CString(character));
    }

    // --- Joining

    /// Puts a text behind this one.
    void Append(const CString& text) { m_units += text.m_units; }
    /// Puts the first `length` units of a text behind this one.
    void Append(PCXSTR text, int length) { *this += CString(text, length); }
    /// Puts one character behind the text.
    template <QsText::CharacterUnit C>
    void AppendChar(C character) {
        *this += character;
    }
    /// Puts a text behind this one.
    CString& operator+=(const CString& text) {
        m_units += text.m_units;
        return *this;
    }
    /// Puts a text up to its NUL behind this one.
    template <QsText::CharacterUnit C>
    CString& operator+=(const C* text) {
        if constexpr (std::is_same_v<C, char16_t>)
            m_units += Safe(text);
        else
            m_units += CString(text).m_units;
        return *this;
    }
    /// Puts one character behind the text.
    template <QsText::CharacterUnit C>
    CString& operator+=(C character) {
        if constexpr (std::is_same_v<C, char16_t>)
            m_units += character;
        else
            m_units += CString(character).m_units;
        return *this;
    }

    /// The two behind one another.
    friend CString operator+(const CString& a, const CString& b) { return Join(a.m_units, b.m_units); }
    /// The two behind one another.
    friend CString operator+(CString&& a, const CString& b) { return std::move(a += b); }
    /// The two behind one another.
    template <QsText::CharacterUnit C>
    friend CString operator+(const CString& a, const C* b) {
        return Join(a.m_units, Units(b));
    }
    /// The two behind one another.
    template <QsText::CharacterUnit C>
    friend CString operator+(CString&& a, const C* b) {
        return std::move(a += b);
    }
    /// The two behind one another.
    template <QsText::CharacterUnit C>
    friend CString operator+(const C* a, const CString& b) {
        return Join(Units(a), b.m_units);
    }
    /// The two behind one another.
    template <QsText::CharacterUnit C>
    friend CString operator+(const CString& a, C b) {
        return Join(a.m_units, CString(b).m_units);
    }
    /// The two behind one another.
    template <QsText::CharacterUnit C>
    friend CString operator+(CString&& a, C b) {
        return std::move(a += b);
    }
    /// The two behind one another.
    template <QsText::CharacterUnit C>
    friend CString operator+(C a, const CString& b) {
        return Join(CString(a).m_units, b.m_units);
    }

    // --- Formatting, by the rules of printf

    /// Replaces the text by the formatted one. "%s" takes a `CString`, a wide, a UTF-16 or a narrow text;
    /// numbers are written with no regard to the locale and round as IEEE 754 says; the length words of the
    /// C runtime ("h", "l", "ll", "I32", "I64") are taken and only "h" has an effect: an integer is cut to 16
    /// bits. The conversions are d i u x X o c s f F e E g G p. A format that is unfinished, asks for what it
    /// isn't given, or for a width or precision above a million raises `CAtlException` and leaves the text as
    /// it was; arguments left over are ignored. The text itself may be among the arguments.
    template <typename... Arguments>
    void Format(const CString& format, const Arguments&... arguments) {
        *this = Formatted(format, {FormatArgumentOf(arguments)...});
    }
    /// The same, behind the text that is there.
    template <typename... Arguments>
    void AppendFormat(const CString& format, const Arguments&... arguments) {
        *this += Formatted(format, {FormatArgumentOf(arguments)...});
    }

    /// Exchanges two texts.
    friend void swap(CString& a, CString& b) noexcept { a.m_units.swap(b.m_units); }

private:
    // Where the two types differ, they are one to the compiler of that system: both alias `short`.
    static PCXSTR Native(const char16_t* units) noexcept { return reinterpret_cast<PCXSTR>(units); }
    static PXSTR Native(char16_t* units) noexcept { return reinterpret_cast<PXSTR>(units); }
    static std::u16string_view Safe(const char16_t* text) noexcept {
        return text == nullptr ? std::u16string_view() : std::u16string_view(text);
    }
    [[noreturn]] static void ThrowInvalidArgument();
    XCHAR At(std::size_t index) const {
        // A negative index has become a large one.
        if (index > m_units.size())
            ThrowInvalidArgument();
        return static_cast<XCHAR>(m_units[index]);
    }
    static CString Join(std::u16string_view a, std::u16string_view b);

    static std::u16string_view Units(const char16_t* text) noexcept { return Safe(text); }
    template <typename C>
    static std::u16string Units(const C* text) {
        return std::move(CString(text).m_units);
    }

    template <QsText::CharacterUnit C>
    static char32_t CodePoint(C character) {
        if constexpr (std::is_same_v<C, char>)
            return AnsiUnit(character);
        else
            return static_cast<char32_t>(character);
    }
    static char16_t AnsiUnit(char byte);

    int CompareUnits(std::u16string_view other) const noexcept {
        const int order = std::u16string_view(m_units).compare(other);
        return order < 0 ? -1 : order > 0 ? 1 : 0;
    }
    int FindCharacter(char32_t character, int start) const noexcept;
    int ReverseFindCharacter(char32_t character) const noexcept;

    template <typename T>
    static QsText::FormatArgument FormatArgumentOf(const T& value);
    static CString Formatted(const CString& format, std::initializer_list<QsText::FormatArgument> arguments);

    std::u16string m_units;
};

/// Writes the text in UTF-8; a lone surrogate becomes U+FFFD.
QSUTILS_API std::ostream& operator<<(std::ostream& stream, const CString& text);

template <typename T>
QsText::FormatArgument CString::FormatArgumentOf(const T& value) {
    using Kind = QsText::FormatArgument::Kind;
    using V = std::decay_t<T>;
    QsText::FormatArgument argument;
    if constexpr (std::is_same_v<V, CString>) {
        argument.SetText(value.View());
    } else if constexpr (std::is_same_v<V, std::nullptr_t>) {
        argument.kind = Kind::Pointer;
        argument.pointer = nullptr;
    } else if constexpr (std::is_enum_v<V>) {
        return FormatArgumentOf(static_cast<std::underlying_type_t<V>>(value));
    } else if constexpr (std::is_same_v<V, const char16_t*> || std::is_same_v<V, char16_t*>) {
        argument.SetText(Safe(value));
        argument.pointer = value;
    } else if constexpr (std::is_convertible_v<const T&, std::u16string_view>) {
        argument.SetText(value);
    } else if constexpr (QsText::CharacterUnit<V>) {
        argument.kind = Kind::Character;
        argument.natural = CodePoint(value);
    } else if constexpr (std::is_floating_point_v<V>) {
        argument.kind = Kind::Double;
        argument.real = static_cast<double>(value);
    } else if constexpr (std::is_integral_v<V> && std::is_signed_v<V>) {
        argument.kind = sizeof(V) > 4 ? Kind::Int64 : Kind::Int32;
        argument.integer = value;
    } else if constexpr (std::is_integral_v<V>) {
        argument.kind = sizeof(V) > 4 ? Kind::UInt64 : Kind::UInt32;
        argument.natural = value;
    } else if constexpr (std::is_constructible_v<CString, const T&>) {
        argument.converted = std::move(CString(value).m_units);
        argument.SetConverted();
        if constexpr (std::is_pointer_v<V>)
            argument.pointer = value;
    } else {
        static_assert(std::is_pointer_v<V>, "a format takes texts, characters, numbers and pointers");
        argument.kind = Kind::Pointer;
        argument.pointer = value;
    }
    return argument;
}
