// Formatting: each conversion is checked against its argument here, and {fmt} puts the fields together.
#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <vector>

#include <fmt/printf.h>

#include "QsUtils/text/CString.h"
#include "QsUtils/text/DoubleText.h"
#include "QsUtils/text/WideText.h"

namespace {

using QsText::FormatArgument;
using Kind = FormatArgument::Kind;
using Context = fmt::basic_printf_context_t<char16_t>;
using Value = fmt::basic_format_arg<Context>;
using TextView = fmt::basic_string_view<char16_t>;

/// Wider fields than any document has; a wrong argument for "*" shall not eat the memory.
constexpr int LargestField = 1'000'000;

[[noreturn]] void ThrowInvalidArgument() {
    throw CAtlException(CAtlException::InvalidArgument);
}

bool IsInteger(const FormatArgument& argument) {
    return argument.kind <= Kind::UInt64 || argument.kind == Kind::Character;
}

/// The argument as C reads it through "%d" and through "%u".
long long SignedValue(const FormatArgument& argument, bool half) {
    if (half)
        return static_cast<std::int16_t>(argument.natural);
    return argument.kind == Kind::UInt32 ? static_cast<std::int32_t>(argument.natural) : argument.integer;
}

unsigned long long UnsignedValue(const FormatArgument& argument, bool half) {
    if (half)
        return static_cast<std::uint16_t>(argument.natural);
    return argument.kind == Kind::Int32 ? static_cast<std::uint32_t>(argument.natural) : argument.natural;
}

/// One conversion: "%", flags, width, precision, type.
struct Conversion {
    std::u16string flags;
    std::optional<int> width;
    std::optional<int> precision;
    bool half = false;
    char16_t type = u'\0';

    bool Has(char16_t flag) const { return flags.find(flag) != flags.npos; }
    void KeepFlags(std::u16string_view kept) {
        std::erase_if(flags, [kept](char16_t flag) { return kept.find(flag) == kept.npos; });
    }
};

/// The unread rest of a format with the arguments that it has not asked for yet.
class FormatReader {
public:
    FormatReader(std::u16string_view format, std::initializer_list<FormatArgument> arguments)
        : m_rest(format), m_next(arguments.begin()), m_end(arguments.end()) {}

    bool AtEnd() const { return m_rest.empty(); }

    bool Skip(std::u16string_view word) {
        if (m_rest.substr(0, word.size()) != word)
            return false;
        m_rest.remove_prefix(word.size());
        return true;
    }

    /// The units up to the next "%".
    std::u16string_view TakeLiteral() {
        const std::u16string_view literal = m_rest.substr(0, m_rest.find(u'%'));
        m_rest.remove_prefix(literal.size());
        return literal;
    }

    const FormatArgument& TakeArgument() {
        if (m_next == m_end)
            ThrowInvalidArgument();
        return *m_next++;
    }

    /// What stands behind a "%".
    Conversion TakeConversion() {
        Conversion conversion;
        while (IsOneOf(u"-+ #0"))
            conversion.flags += TakeUnit();
        conversion.width = TakeField();
        if (conversion.width.value_or(0) < 0) {
            conversion.flags += u'-';
            conversion.width = -*conversion.width;
        }
        if (Skip(u".")) {
            const bool star = !m_rest.empty() && m_rest.front() == u'*';
            conversion.precision = TakeField();
            if (!conversion.precision)
                conversion.precision = 0;
            else if (star && *conversion.precision < 0)
                conversion.precision.reset();
        }
        conversion.half = SkipLengthWord();
        if (AtEnd())
            ThrowInvalidArgument();
        conversion.type = TakeUnit();
        return conversion;
    }

private:
    bool IsOneOf(std::u16string_view set) const {
        return !m_rest.empty() && set.find(m_rest.front()) != set.npos;
    }

    char16_t TakeUnit() {
        const char16_t unit = m_rest.front();
        m_rest.remove_prefix(1);
        return unit;
    }

    /// A width or a precision, in digits or as "*"; below 0 only by "*".
    std::optional<int> TakeField() {
        if (Skip(u"*")) {
            const FormatArgument& argument = TakeArgument();
            if (!IsInteger(argument))
                ThrowInvalidArgument();
            return Checked(SignedValue(argument, false));
        }
        if (!IsOneOf(u"0123456789"))
            return std::nullopt;
        int field = 0;
        while (IsOneOf(u"0123456789"))
            field = Checked(field * 10 + (TakeUnit() - u'0'));
        return field;
    }

    static int Checked(long long field) {
        if (field < -LargestField || field > LargestField)
            ThrowInvalidArgument();
        return static_cast<int>(field);
    }

    /// Whether the length word is "h"; the others say nothing that the argument doesn't know itself.
    bool SkipLengthWord() {
        if (Skip(u"I64") || Skip(u"I32") || Skip(u"ll") || Skip(u"l"))
            return false;
        return Skip(u"h");
    }

    std::u16string_view m_rest;
    const FormatArgument* m_next;
    const FormatArgument* m_end;
};

/// A format and its values as {fmt} takes them, built conversion by conversion.
class FormatWriter {
public:
    explicit FormatWriter(std::size_t arguments) {
        m_values.reserve(arguments);
        m_texts.reserve(arguments);
    }

    void AddLiteral(std::u16string_view text) { m_format += text; }

    void Add(Conversion conversion, const FormatArgument& argument) {
        switch (conversion.type) {
            case u'd':
            case u'i':
                return AddSigned(conversion, argument);
            case u'u':
            case u'o':
            case u'x':
            case u'X':
                return AddUnsigned(conversion, argument);
            case u'f':
            case u'F':
            case u'e':
            case u'E':
            case u'g':
            case u'G':
                return AddDouble(conversion, argument);
            case u'c':
                return AddCharacter(conversion, argument);
            case u's':
                return AddText(conversion, argument);
            case u'p':
                Require(argument.kind == Kind::Pointer || argument.IsText());
                conversion.KeepFlags(u"-");
                conversion.precision.reset();
                return Put(conversion, fmt::detail::make_arg<Context>(argument.pointer));
            default:
                ThrowInvalidArgument();
        }
    }

    std::u16string Write() const {
        fmt::basic_memory_buffer<char16_t> buffer;
        fmt::detail::vprintf(
            buffer, TextView(m_format.data(), m_format.size()),
            fmt::basic_format_args<Context>(m_values.data(), static_cast<int>(m_values.size())));
        return {buffer.data(), buffer.size()};
    }

private:
    static void Require(bool fits) {
        if (!fits)
            ThrowInvalidArgument();
    }

    void Put(const Conversion& conversion, const Value& value) {
        m_format += u'%';
        m_format += conversion.flags;
        if (conversion.width)
            AddNumber(*conversion.width);
        if (conversion.precision) {
            m_format += u'.';
            AddNumber(*conversion.precision);
        }
        m_format += conversion.type;
        m_values.push_back(value);
    }

    void AddNumber(int number) {
        std::array<char, 12> digits;
        m_format.append(digits.data(),
                        std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr);
    }

    void PutText(Conversion& conversion, std::u16string_view text) {
        conversion.type = u's';
        conversion.KeepFlags(u"-");
        Put(conversion, fmt::detail::make_arg<Context>(TextView(text.data(), text.size())));
    }

    void AddText(Conversion& conversion, const FormatArgument& argument) {
        const bool nothing = argument.kind == Kind::Pointer && argument.pointer == nullptr;
        Require(argument.IsText() || nothing);
        PutText(conversion, argument.Text());
    }

    void AddCharacter(Conversion& conversion, const FormatArgument& argument) {
        Require(IsInteger(argument));
        m_texts.emplace_back();
        QsText::AppendCharacter(m_texts.back(), static_cast<char32_t>(argument.natural));
        conversion.precision.reset();
        PutText(conversion, m_texts.back());
    }

    // Not by {fmt}, whose version 9 drops decimals behind the 766th and misplaces the zeros of "%#g".
    void AddDouble(Conversion& conversion, const FormatArgument& argument) {
        Require(argument.kind == Kind::Double);
        QsText::DoubleStyle style;
        style.type = conversion.type;
        style.precision = conversion.precision.value_or(style.precision);
        style.plus = conversion.Has(u'+') ? u'+' : conversion.Has(u' ') ? u' ' : u'\0';
        style.alternate = conversion.Has(u'#');
        if (conversion.Has(u'0') && !conversion.Has(u'-'))
            style.zeroWidth = conversion.width.value_or(0);
        m_texts.push_back(QsText::WriteDouble(argument.real, style));
        conversion.precision.reset();
        PutText(conversion, m_texts.back());
    }

    void AddSigned(Conversion& conversion, const FormatArgument& argument) {
        Require(IsInteger(argument));
        const long long number = SignedValue(argument, conversion.half);
        if (number == 0 && conversion.precision == 0) {
            // C writes no digit here, but the sign all the same.
            conversion.precision.reset();
            return PutText(conversion, conversion.Has(u'+') ? u"+" : conversion.Has(u' ') ? u" " : u"");
        }
        conversion.type = u'd';
        conversion.KeepFlags(u"-+ 0");
        Put(conversion, fmt::detail::make_arg<Context>(number));
    }

    void AddUnsigned(Conversion& conversion, const FormatArgument& argument) {
        Require(IsInteger(argument));
        const unsigned long long number = UnsignedValue(argument, conversion.half);
        if (number == 0 && conversion.precision == 0) {
            conversion.precision.reset();
            return PutText(conversion, conversion.type == u'o' && conversion.Has(u'#') ? u"0" : u"");
        }
        conversion.KeepFlags(conversion.type == u'u' ? u"-0" : u"-#0");
        Put(conversion, fmt::detail::make_arg<Context>(number));
    }

    std::u16string m_format;
    std::vector<Value> m_values;
    std::vector<std::u16string> m_texts;  // never grows beyond its reserve: the values point into it
};

}  // namespace

CString CString::Formatted(const CString& format, std::initializer_list<FormatArgument> arguments) {
    FormatReader reader(format.View(), arguments);
    FormatWriter writer(arguments.size());
    while (!reader.AtEnd()) {
        if (reader.Skip(u"%%")) {
            writer.AddLiteral(u"%%");
        } else if (reader.Skip(u"%")) {
            const Conversion conversion = reader.TakeConversion();
            writer.Add(conversion, reader.TakeArgument());
        } else {
            writer.AddLiteral(reader.TakeLiteral());
        }
    }
    return CString(writer.Write());
}
