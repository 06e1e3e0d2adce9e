// A progress bar for long inputs.
#pragma once

#include <cstdint>
#include <ostream>

namespace Estimate {

/// Draws a bar on one line of a terminal and wipes it off at the end. Draws nothing where there is no
/// terminal and for inputs that are read in a blink.
class Progress {
public:
    Progress(std::ostream& out, bool terminal, std::uint64_t totalBytes);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress();

    void Show(std::uint64_t bytes);

private:
    std::ostream& m_out;
    std::uint64_t m_total;
    bool m_enabled;
    bool m_drawn = false;
    int m_percent = -1;
};

}  // namespace Estimate
