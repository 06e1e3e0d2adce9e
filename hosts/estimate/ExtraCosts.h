// What a cost library charges on top of a priced bill.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "Bill.h"

namespace Estimate {

/// On what an extra cost is charged.
enum class ExtraCostKind {
    OverHeight,  ///< each bill item that it is chosen for
    Item,        ///< each bill item
    Project,     ///< the bill's sum
    Composite,   ///< the bill's sum with all extra costs of the kinds above
    Unknown,     ///< the library doesn't say
};

/// The kind in English words and in those of the library's files.
std::string_view KindName(ExtraCostKind kind);
std::string_view KindText(ExtraCostKind kind);

/// The names of what a library charges. How much of it a project takes, the library leaves to the project.
struct LibraryCharges {
    std::string library;
    std::string family;
    std::set<std::string> overHeight;
    std::map<std::string, ExtraCostKind> types;  ///< by name; never over-height

    /// The kind of a name, none when the library has no such name. Types go before options.
    std::optional<ExtraCostKind> KindOf(const std::string& name) const;
};

/// Asks the library's files; none when there is no such library with extra costs in the family. Any thread.
std::optional<LibraryCharges> ChargesOf(const std::string& library, const std::string& family);

/// At what rate a project takes an extra cost.
struct ExtraCostRate {
    ExtraCostKind kind = ExtraCostKind::Unknown;
    std::string name;
    std::string code;       ///< with which the codes of the items begin; empty for all items
    std::int64_t rate = 0;  ///< in percent, in steps of PriceDecimals
};

struct ExtraCost {
    ExtraCostKind kind = ExtraCostKind::Unknown;
    std::string name;
    std::string code;
    std::int64_t baseFen = 0;          ///< the sum that it is charged on
    std::optional<std::int64_t> rate;  ///< none when the project gives none; then nothing is charged
    std::int64_t fen = 0;
};

/// The extra costs of one kind.
struct ExtraCostGroup {
    ExtraCostKind kind = ExtraCostKind::Unknown;
    std::vector<ExtraCost> costs;
    std::int64_t fen = 0;
};

struct ExtraCosts {
    std::string library;
    std::string family;
    std::vector<ExtraCostGroup> groups;  ///< in the order of the kinds, none of them empty
    std::int64_t fen = 0;
};

/// Charges a sorted and summed bill. Of the rates of one extra cost, and of all over-height options, an item
/// takes the one with the longest code. What is charged on items is rounded to fen for each item. Over-height
/// options without a rate are left out; types without one are listed with what they would be charged on.
ExtraCosts ChargeExtraCosts(const Bill& bill, const LibraryCharges& charges,
                            const std::vector<ExtraCostRate>& rates);

}  // namespace Estimate
