// What the program has to say to somebody, before it is known in which language.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include <fmt/format.h>

#include "Texts.h"

namespace Estimate {

/// A text in every language. Whoever shows it to people asks for theirs; files that programs read have the
/// English one wherever they are written.
class Message {
public:
    Message() = default;
    Message(std::string english, std::string chinese) : m_texts{std::move(english), std::move(chinese)} {}

    /// A text that is the same in all languages, such as the name of a file.
    static Message Same(const std::string& text) { return {text, text}; }

    /// A text without arguments.
    static Message Of(Text text) {
        return {std::string(WordingOf(text).english), std::string(WordingOf(text).chinese)};
    }

    const std::string& In(Language language) const noexcept {
        return m_texts[static_cast<std::size_t>(language)];
    }
    bool empty() const noexcept { return m_texts.front().empty(); }

private:
    std::array<std::string, 2> m_texts;  // by `Language`
};

namespace MessageArgument {

template <typename T>
const T& In(const T& argument, Language) noexcept {
    return argument;
}
inline const std::string& In(const Message& message, Language language) noexcept {
    return message.In(language);
}
inline std::string_view In(Text text, Language language) noexcept {
    return WordingOf(text).In(language);
}

template <typename T>
using Shown = decltype(In(std::declval<const T&>(), Language::English));

}  // namespace MessageArgument

/// The message of a text with its arguments, which are numbers, strings, other texts and other messages. That
/// both wordings take them is checked when this is compiled.
template <Text text, typename... Arguments>
Message Say(const Arguments&... arguments) {
    using MessageArgument::In;
    static_assert(ArgumentCount(WordingOf(text).english) == sizeof...(Arguments));
    static_assert(ArgumentCount(WordingOf(text).chinese) == sizeof...(Arguments));
    constexpr fmt::format_string<MessageArgument::Shown<Arguments>...> english(WordingOf(text).english);
    constexpr fmt::format_string<MessageArgument::Shown<Arguments>...> chinese(WordingOf(text).chinese);
    return {fmt::format(english, In(arguments, Language::English)...),
            fmt::format(chinese, In(arguments, Language::Chinese)...)};
}

/// Texts without arguments in one language, for whoever needs many of them.
class Words {
public:
    explicit Words(Language language) : m_language(language) {}
    std::string operator()(Text text) const { return std::string(WordingOf(text).In(m_language)); }

private:
    Language m_language;
};

}  // namespace Estimate
