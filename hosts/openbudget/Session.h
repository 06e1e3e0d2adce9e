// What the program has of its system: its arguments, and the moment at which it is to end.
#pragma once

#include <string>
#include <vector>

namespace OpenBudget {

class Session {
public:
    /// From now on a signal that asks the program to end is kept for `WaitForEnd`.
    Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session() = default;

    /// The arguments of `main` without the program's own name. Raises `std::exception` for one that is no
    /// text.
    static std::vector<std::u16string> Arguments(int argc, char** argv);

    /// Comes back when the user presses Enter, when standard input ends, or when the program is asked to end
    /// (SIGINT, SIGTERM, SIGHUP). On Windows such a request ends the program at once.
    void WaitForEnd();
};

}  // namespace OpenBudget
