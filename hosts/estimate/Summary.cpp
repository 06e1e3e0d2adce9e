#include "Summary.h"

#include <map>
#include <unordered_map>
#include <utility>

#include <QsUtils/QsUtils.h>

#include "Chapters.h"
#include "Units.h"
#include "Utf8.h"

namespace Estimate {
namespace {

struct UnitSum {
    Decimal bill;
    Decimal quota;
};

void Add(Decimal& sum, Decimal quantity) {
    sum.decimals = quantity.decimals;  // the same for all quantities of a unit
    AddTo(sum.units, quantity.units);
}

std::string DigestOf(const QuotaItem& quota) {
    CommonMaterialKey key;
    key.strKeyText1 = FromUtf8(quota.code);
    key.strKeyText2 = FromUtf8(quota.name);
    key.strKeyText3 = FromUtf8(quota.unit);
    key.strKeyText4 = FromUtf8(PriceText(quota.price, false));
    return ToUtf8(IQsUtils1::GenerateMaterialMD5(&key));
}

void SortByCode(std::vector<Resource>& resources) {
    std::vector<std::pair<CString, void*>> codes;
    codes.reserve(resources.size());
    for (Resource& resource : resources)
        codes.emplace_back(FromUtf8(resource.code), &resource);
    IQsUtils::SortDeItemCodes(codes);
    std::vector<Resource> sorted;
    sorted.reserve(resources.size());
    for (const auto& code : codes)
        sorted.push_back(std::move(*static_cast<Resource*>(code.second)));
    resources = std::move(sorted);
}

}  // namespace

std::vector<Chapter> ChaptersOf(const Bill& bill) {
    std::vector<Chapter> chapters;
    for (std::size_t i = 0; i < bill.items.size(); ++i) {
        const BillItem& item = bill.items[i];
        const std::string_view code = item.code.substr(0, ChapterLength);
        const std::string_view section = item.code.substr(0, SectionLength);
        if (chapters.empty() || chapters.back().code != code)
            chapters.push_back({code, i, 0, 0, {}});
        Chapter& chapter = chapters.back();
        ++chapter.count;
        AddTo(chapter.fen, item.fen);
        if (chapter.sections.empty() || chapter.sections.back().code != section)
            chapter.sections.push_back({section, 0});
        AddTo(chapter.sections.back().fen, item.fen);
    }
    return chapters;
}

std::vector<IndicatorSum> IndicatorsOf(const Bill& bill) {
    std::map<std::string_view, UnitSum> units;
    for (const BillItem& item : bill.items)
        Add(units[item.unit].bill, item.quantity);
    for (const QuotaItem& quota : bill.quotas)
        Add(units[quota.unit].quota, quota.quantity);
    std::map<std::string, IndicatorSum> sums;
    for (const auto& [unit, sum] : units) {
        const IndicatorUnit canonical = IndicatorUnitOf(unit);
        IndicatorSum& total = sums[canonical.unit];
        total.unit = canonical.unit;
        total.billQuantity += ToDouble(sum.bill) * canonical.factor;
        total.quotaQuantity += ToDouble(sum.quota) * canonical.factor;
    }
    std::vector<IndicatorSum> result;
    for (auto& [unit, sum] : sums)
        result.push_back(std::move(sum));
    return result;
}

std::vector<Resource> ResourcesOf(const Bill& bill) {
    std::vector<Resource> resources;
    std::unordered_map<std::string, std::size_t> places;
    for (const QuotaItem& quota : bill.quotas) {
        std::string digest = DigestOf(quota);
        const auto [place, added] = places.try_emplace(digest, resources.size());
        if (added)
            resources.push_back({std::move(digest),
                                 quota.code,
                                 quota.name,
                                 quota.unit,
                                 quota.price,
                                 0,
                                 {0, quota.quantity.decimals},
                                 0});
        Resource& resource = resources[place->second];
        ++resource.rows;
        AddTo(resource.quantity.units, quota.quantity.units);
        AddTo(resource.fen, quota.fen);
    }
    SortByCode(resources);
    return resources;
}

}  // namespace Estimate
