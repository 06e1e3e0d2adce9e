// A progress bar for long inputs.
#pragma once

#include <cstdint>
#include <ostream>
#include <string_view>

namespace Estimate {

/// Draws a bar on one line of a terminal and wipes it off at the end. Draws nothing where there is no
/// terminal and for inputs that are read in a blink.
class Progress {
public:
    /// `activity` stands in front of the bar and outlives it.
    Progress(std::ostream& out, bool terminal, std::uint64_t totalBytes, std::string_view activity);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress();

    void Show(std::uint64_t bytes);

private:
    std::ostream& m_out;
    std::string_view m_activity;
    std::uint64_t m_total;
    bool m_enabled;
    bool m_drawn = false;
    int m_percent = -1;
};

}  // namespace Estimate
