#include "ExtraCosts.h"

#include <algorithm>
#include <functional>
#include <list>
#include <tuple>
#include <utility>

#include <QsUtils/QsUtils.h>

#include "Utf8.h"

namespace Estimate {
namespace {

ExtraCostKind KindOfType(eExtraCost_CoefficientType type) {
    switch (type) {
        case eExtraCost_ItemCoefficient:
            return ExtraCostKind::Item;
        case eExtraCost_ProjectCoefficient:
            return ExtraCostKind::Project;
        case eExtraCost_CompositeCoefficient:
            return ExtraCostKind::Composite;
        case eExtraCost_Unknown:
            break;
    }
    return ExtraCostKind::Unknown;
}

class Charging {
public:
    Charging(const Bill& bill, const LibraryCharges& charges, const std::vector<ExtraCostRate>& rates)
        : m_bill(bill), m_charges(charges) {
        for (const ExtraCostRate& rate : rates) {
            std::vector<ExtraCost>& costs =
                rate.kind == ExtraCostKind::OverHeight ? m_overHeight : m_types[rate.name];
            costs.push_back({rate.kind, rate.name, rate.code, 0, rate.rate, 0});
        }
        SortByCode(m_overHeight);
        for (auto& [name, costs] : m_types)
            SortByCode(costs);
    }

    ExtraCosts Run() {
        m_result.library = m_charges.library;
        m_result.family = m_charges.family;
        ChargeItems(m_overHeight);
        AddGroup({ExtraCostKind::OverHeight, m_overHeight, 0});
        ChargeTypes(ExtraCostKind::Item);
        ChargeTypes(ExtraCostKind::Project);
        ChargeTypes(ExtraCostKind::Composite);
        ChargeTypes(ExtraCostKind::Unknown);
        return std::move(m_result);
    }

private:
    static void SortByCode(std::vector<ExtraCost>& costs) {
        std::ranges::sort(costs, {}, [](const ExtraCost& cost) { return std::tie(cost.code, cost.name); });
    }

    /// Each item goes to the cost with the longest code that the item's begins with.
    void ChargeItems(std::vector<ExtraCost>& costs) const {
        std::map<std::string_view, ExtraCost*> byCode;
        std::set<std::size_t, std::greater<>> lengths;
        for (ExtraCost& cost : costs) {
            byCode.emplace(cost.code, &cost);
            lengths.insert(cost.code.size());
        }
        for (const BillItem& item : m_bill.items) {
            for (const std::size_t length : lengths) {
                const auto found = byCode.find(item.code.substr(0, length));
                if (found == byCode.end())
                    continue;
                ExtraCost& cost = *found->second;
                AddTo(cost.baseFen, item.fen);
                AddTo(cost.fen, ShareInFen(item.fen, cost.rate.value_or(0)));
                break;
            }
        }
    }

    void ChargeTypes(ExtraCostKind kind) {
        ExtraCostGroup group{kind, {}, 0};
        // A kind's costs aren't charged on each other.
        std::int64_t base = m_bill.fen;
        if (kind == ExtraCostKind::Composite)
            AddTo(base, m_result.fen);
        for (const auto& [name, typeKind] : m_charges.types) {
            if (typeKind != kind)
                continue;
            std::vector<ExtraCost> costs = m_types[name];
            if (costs.empty())
                costs.push_back({kind, name, {}, 0, {}, 0});
            if (kind == ExtraCostKind::Item)
                ChargeItems(costs);
            else if (kind != ExtraCostKind::Unknown)
                ChargeSum(costs, base);
            group.costs.insert(group.costs.end(), costs.begin(), costs.end());
        }
        AddGroup(std::move(group));
    }

    static void ChargeSum(std::vector<ExtraCost>& costs, std::int64_t base) {
        for (ExtraCost& cost : costs) {
            cost.baseFen = base;
            cost.fen = ShareInFen(base, cost.rate.value_or(0));
        }
    }

    void AddGroup(ExtraCostGroup group) {
        if (group.costs.empty())
            return;
        for (const ExtraCost& cost : group.costs)
            AddTo(group.fen, cost.fen);
        AddTo(m_result.fen, group.fen);
        m_result.groups.push_back(std::move(group));
    }

    const Bill& m_bill;
    const LibraryCharges& m_charges;
    std::vector<ExtraCost> m_overHeight;
    std::map<std::string, std::vector<ExtraCost>> m_types;  // by name
    ExtraCosts m_result;
};

}  // namespace

std::string_view KindName(ExtraCostKind kind) {
    constexpr std::string_view names[] = {"over-height", "item", "project", "composite", "unknown"};
    return names[static_cast<std::size_t>(kind)];
}

std::string_view KindText(ExtraCostKind kind) {
    constexpr std::string_view texts[] = {"超高增加", "子目系数", "工程系数", "综合系数", "未知系数"};
    return texts[static_cast<std::size_t>(kind)];
}

std::optional<ExtraCostKind> LibraryCharges::KindOf(const std::string& name) const {
    if (const auto found = types.find(name); found != types.end())
        return found->second;
    return overHeight.contains(name) ? std::optional(ExtraCostKind::OverHeight) : std::nullopt;
}

std::optional<LibraryCharges> ChargesOf(const std::string& library, const std::string& family) {
    const CString file = FromUtf8(library);
    const CString group = FromUtf8(family);
    const std::list<CString>* const heights = IQsUtils1::GetOverHeightList(file, group);
    const std::map<CString, CString>* const types = IQsUtils1::GetExtraCostTypeList(file, group);
    if (heights == nullptr || types == nullptr)
        return std::nullopt;
    LibraryCharges charges{library, family, {}, {}};
    for (const CString& height : *heights)
        charges.overHeight.insert(ToUtf8(height));
    for (const auto& [name, coefficient] : *types)
        charges.types.emplace(ToUtf8(name), KindOfType(IQsUtils1::GetExtraCostCalType(file, name, group)));
    return charges;
}

ExtraCosts ChargeExtraCosts(const Bill& bill, const LibraryCharges& charges,
                            const std::vector<ExtraCostRate>& rates) {
    return Charging(bill, charges, rates).Run();
}

}  // namespace Estimate
