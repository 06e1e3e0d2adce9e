// Where in an input a row stands.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>

#include "Message.h"

namespace Estimate {

/// A line of a table, or an element of a document, which has no lines: the numbers of the bill item and of
/// the quota row in it, or that of the variable. All count from 1; 0 means that there is none.
struct Place {
    std::size_t line = 0;
    std::uint32_t item = 0;
    std::uint32_t quota = 0;
    std::uint32_t variable = 0;

    auto operator<=>(const Place&) const = default;
};

/// "line 12", "item 3", "item 3, quota 2", "variable 4"; empty for the input as a whole.
Message PlaceText(const Place& place);
/// The same behind a preposition: "on line 12", "at item 3".
Message AtPlace(const Place& place);

}  // namespace Estimate
