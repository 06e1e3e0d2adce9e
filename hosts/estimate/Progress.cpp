#include "Progress.h"

#include <algorithm>
#include <string>

namespace Estimate {
namespace {

constexpr std::uint64_t LongInput = 4 << 20;
constexpr int BarWidth = 40;
constexpr const char* WipeLine = "\r\x1B[K";

}  // namespace

Progress::Progress(std::ostream& out, bool terminal, std::uint64_t totalBytes, std::string_view activity)
    : m_out(out), m_activity(activity), m_total(totalBytes), m_enabled(terminal && totalBytes >= LongInput) {}

Progress::~Progress() {
    if (m_drawn)
        m_out << WipeLine << std::flush;
}

void Progress::Show(std::uint64_t bytes) {
    const int percent = m_enabled ? static_cast<int>(100 * std::min(bytes, m_total) / m_total) : m_percent;
    if (percent == m_percent)
        return;
    m_percent = percent;
    m_drawn = true;
    const int full = BarWidth * percent / 100;
    m_out << WipeLine << m_activity << " [" << std::string(static_cast<std::size_t>(full), '#')
          << std::string(static_cast<std::size_t>(BarWidth - full), '.') << "] " << percent << " %"
          << std::flush;
}

}  // namespace Estimate
