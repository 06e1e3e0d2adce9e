#include "QsUtils/platform/posix/UserDirs.h"

#include <utility>

namespace QsPlatform {

namespace {

bool IsShellBlank(char c) {
    return c == ' ' || c == '\t';
}

std::string_view WithoutBlanks(std::string_view text) {
    while (!text.empty() && IsShellBlank(text.front()))
        text.remove_prefix(1);
    return text;
}

bool Skip(std::string_view& text, std::string_view head) {
    if (!text.starts_with(head))
        return false;
    text.remove_prefix(head.size());
    return true;
}

/// Reads one word of the shell's language.
class Word {
public:
    Word(std::string_view text, std::string_view home) : m_text(text), m_home(home) {}

    /// The word; nothing when it isn't all of the line, or more than quotes and HOME.
    std::optional<std::string> Read() {
        while (!m_text.empty() && !(m_quote == 0 && IsShellBlank(m_text.front()))) {
            if (!ReadPart())
                return std::nullopt;
        }
        const std::string_view rest = WithoutBlanks(m_text);
        if (m_quote != 0 || !(rest.empty() || rest.front() == '#'))
            return std::nullopt;
        return std::move(m_word);
    }

private:
    bool ReadPart() {
        const char c = m_text.front();
        if (m_quote == '\'')
            return c == '\'' ? EndQuote() : Take();
        if (c == '$')
            return ReadHome();
        if (c == '\\')
            return ReadEscape();
        if (c == '"')
            return m_quote == 0 ? BeginQuote() : EndQuote();
        if (c == '`')
            return false;
        if (m_quote == 0 && c == '\'')
            return BeginQuote();
        // Outside of quotes these end the word and begin something else.
        if (m_quote == 0 && std::string_view(";&|<>()*?[").find(c) != std::string_view::npos)
            return false;
        return Take();
    }

    bool Take() {
        if (m_text.front() == '\0')
            return false;  // no name has one
        m_word += m_text.front();
        m_text.remove_prefix(1);
        return true;
    }

    bool BeginQuote() {
        m_quote = m_text.front();
        m_text.remove_prefix(1);
        return true;
    }

    bool EndQuote() {
        m_quote = 0;
        m_text.remove_prefix(1);
        return true;
    }

    bool ReadHome() {
        if (m_home.empty())
            return false;
        if (!Skip(m_text, "${HOME}")) {
            if (!Skip(m_text, "$HOME"))
                return false;
            // "$HOMEPAGE" is another variable.
            if (!m_text.empty() && IsPartOfName(m_text.front()))
                return false;
        }
        m_word += m_home;
        return true;
    }

    static bool IsPartOfName(char c) {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
    }

    bool ReadEscape() {
        m_text.remove_prefix(1);
        if (m_text.empty())
            return false;  // the word goes on in the next line
        // Between quotes a backslash before anything else is one.
        if (m_quote != 0 && std::string_view("$`\"\\").find(m_text.front()) == std::string_view::npos)
            m_word += '\\';
        return Take();
    }

    std::string_view m_text;
    std::string_view m_home;
    std::string m_word;
    char m_quote = 0;
};

std::string_view NextLine(std::string_view& file) {
    const std::size_t end = file.find('\n');
    const std::string_view line = file.substr(0, end);
    file.remove_prefix(end == std::string_view::npos ? file.size() : end + 1);
    return line.ends_with('\r') ? line.substr(0, line.size() - 1) : line;
}

}  // namespace

std::optional<std::string> UserDirectory(std::string_view file, std::string_view variable,
                                         std::string_view home) {
    std::optional<std::string> found;
    while (!file.empty()) {
        std::string_view line = WithoutBlanks(NextLine(file));
        if (!Skip(line, variable) || !Skip(line, "="))
            continue;
        std::optional<std::string> value = Word(line, home).Read();
        if (value && value->starts_with('/'))
            found = std::move(value);
    }
    return found;
}

}  // namespace QsPlatform
