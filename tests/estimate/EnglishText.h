// Messages beside the English texts that tests expect. What the Chinese ones say, MessagesTest looks at.
#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include "Message.h"
#include "Problem.h"

namespace Estimate {

inline bool operator==(const Message& message, std::string_view english) {
    return message.In(Language::English) == english;
}
inline std::ostream& operator<<(std::ostream& out, const Message& message) {
    return out << message.In(Language::English);
}

inline std::string EnglishText(const std::string& file, const Problem& problem) {
    return ProblemText(Message::Same(file), problem, Language::English);
}

}  // namespace Estimate
