// The command line and the standard streams, which each system has in its own way.
#pragma once

#include <string>
#include <vector>

namespace Estimate {

/// Makes the standard streams carry UTF-8 and every byte as it is written, for the life of the object.
class Terminal {
public:
    Terminal();
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
    ~Terminal();

    /// Whether somebody looks at what is written to standard error, on a terminal that can wipe a line.
    bool IsWatched() const;
    /// The arguments of `main` in UTF-8, without the program's own name.
    static std::vector<std::string> Arguments(int argc, char** argv);

private:
    /// What a console was set to before; 0 where there is nothing to set back.
    [[maybe_unused]] unsigned m_codePage = 0;
    [[maybe_unused]] unsigned m_inputCodePage = 0;
    [[maybe_unused]] unsigned long m_mode = 0;
    /// Whether the terminal takes escape sequences.
    [[maybe_unused]] bool m_isDrawable = false;
};

}  // namespace Estimate
