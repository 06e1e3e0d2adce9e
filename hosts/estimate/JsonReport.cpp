#include <string_view>

#include <nlohmann/json.hpp>

#include "Chapters.h"
#include "Report.h"
#include "Units.h"

namespace Estimate {
namespace {

using Json = nlohmann::ordered_json;

Json ItemJson(const Item& item) {
    return {{"code", item.code},
            {"name", item.name},
            {"unit", item.unit},
            {"formula", item.formula},
            {"quantity", ToDouble(item.quantity)},
            {"price", ToDouble({item.price, PriceDecimals})},
            {"amount", ToDouble({item.fen, 2})}};
}

Json BillItemJson(const Bill& bill, const BillItem& item) {
    Json json = ItemJson(item);
    json["features"] = item.features;
    json["composed"] = item.composed;
    json["quotaAmount"] = ToDouble({item.quotaFen, 2});
    Json quotas = Json::array();
    for (std::size_t i = 0; i < item.quotaCount; ++i)
        quotas.push_back(ItemJson(bill.quotas[item.firstQuota + i]));
    json["quotas"] = std::move(quotas);
    return json;
}

Json ChapterJson(const Chapter& chapter) {
    Json sections = Json::array();
    for (const Section& section : chapter.sections)
        sections.push_back({{"code", section.code},
                            {"name", ChapterName(section.code)},
                            {"amount", ToDouble({section.fen, 2})}});
    return {{"code", chapter.code},
            {"name", ChapterName(chapter.code)},
            {"amount", ToDouble({chapter.fen, 2})},
            {"sections", std::move(sections)}};
}

Json IndicatorJson(const IndicatorSum& sum) {
    const auto rounded = [&](double quantity) {
        const int decimals = UnitDecimals(sum.unit);
        const auto units = RoundToDecimals(quantity, decimals);
        return units ? ToDouble({*units, decimals}) : quantity;
    };
    return {{"unit", sum.unit},
            {"billQuantity", rounded(sum.billQuantity)},
            {"quotaQuantity", rounded(sum.quotaQuantity)}};
}

Json ResourceJson(const Resource& resource) {
    return {{"digest", resource.digest},
            {"code", resource.code},
            {"name", resource.name},
            {"unit", resource.unit},
            {"price", ToDouble({resource.price, PriceDecimals})},
            {"rows", resource.rows},
            {"quantity", ToDouble(resource.quantity)},
            {"amount", ToDouble({resource.fen, 2})}};
}

// A file that programs read has one language.
Json ProblemJson(const Message& file, const Problem& problem) {
    Json json = {{"file", file.In(Language::English)}};
    if (problem.place.line > 0) {
        json["line"] = problem.place.line;
        json["column"] = problem.column;
    } else {
        json["element"] = PlaceText(problem.place).In(Language::English);
    }
    json["heading"] = problem.heading ? WordingOf(*problem.heading).english : std::string_view();
    json["severity"] = problem.severity == Severity::Error ? "error" : "warning";
    json["reason"] = problem.reason.In(Language::English);
    return json;
}

Json ExtraCostJson(const ExtraCost& cost) {
    Json json = {{"name", cost.name}, {"code", cost.code}};
    json["base"] = ToDouble({cost.baseFen, 2});
    json["rate"] = cost.rate ? Json(ToDouble({*cost.rate, PriceDecimals})) : Json();
    json["amount"] = cost.rate ? Json(ToDouble({cost.fen, 2})) : Json();
    return json;
}

Json ExtraCostsJson(const ExtraCosts& extraCosts) {
    Json types = Json::array();
    for (const ExtraCostGroup& group : extraCosts.groups) {
        Json costs = Json::array();
        for (const ExtraCost& cost : group.costs)
            costs.push_back(ExtraCostJson(cost));
        types.push_back({{"type", KindName(group.kind)},
                         {"coefficient", KindText(group.kind)},
                         {"amount", ToDouble({group.fen, 2})},
                         {"costs", std::move(costs)}});
    }
    return {{"library", extraCosts.library},
            {"family", extraCosts.family},
            {"types", std::move(types)},
            {"amount", ToDouble({extraCosts.fen, 2})}};
}

Json TotalJson(const Report& report) {
    Json total = {{"items", report.bill.items.size()},
                  {"quotas", report.bill.quotas.size()},
                  {"quotaAmount", ToDouble({report.quotaFen, 2})},
                  {"amount", ToDouble({report.bill.fen, 2})}};
    if (report.extraCosts) {
        total["extraCosts"] = ToDouble({report.extraCosts->fen, 2});
        total["amountWithExtraCosts"] = ToDouble({TotalFen(report), 2});
    }
    total["capital"] = CapitalText(TotalFen(report));
    if (report.area > 0)
        total["amountPerArea"] = ToDouble({FenPerArea(TotalFen(report), report.area), 2});
    return total;
}

/// Writes an array element by element: a long bill is never held as one JSON value.
class ArrayWriter {
public:
    ArrayWriter(std::ostream& out, std::string_view name) : m_out(out) { m_out << "  \"" << name << "\": ["; }
    ArrayWriter(const ArrayWriter&) = delete;
    ArrayWriter& operator=(const ArrayWriter&) = delete;
    ~ArrayWriter() { m_out << (m_first ? "],\n" : "\n  ],\n"); }

    void Add(const Json& element) {
        m_out << (m_first ? "\n    " : ",\n    ")
              << element.dump(-1, ' ', false, Json::error_handler_t::replace);
        m_first = false;
    }

private:
    std::ostream& m_out;
    bool m_first = true;
};

}  // namespace

void WriteJson(std::ostream& out, const Report& report) {
    out << "{\n";
    if (!report.name.empty())
        out << "  \"name\": " << Json(report.name).dump(-1, ' ', false, Json::error_handler_t::replace)
            << ",\n";
    {
        ArrayWriter items(out, "items");
        for (const BillItem& item : report.bill.items)
            items.Add(BillItemJson(report.bill, item));
    }
    {
        ArrayWriter chapters(out, "chapters");
        for (const Chapter& chapter : report.chapters)
            chapters.Add(ChapterJson(chapter));
    }
    {
        ArrayWriter indicators(out, "indicators");
        for (const IndicatorSum& sum : report.indicators)
            indicators.Add(IndicatorJson(sum));
    }
    {
        ArrayWriter resources(out, "resources");
        for (const Resource& resource : report.resources)
            resources.Add(ResourceJson(resource));
    }
    if (report.extraCosts)
        out << "  \"extraCosts\": "
            << ExtraCostsJson(*report.extraCosts).dump(-1, ' ', false, Json::error_handler_t::replace)
            << ",\n";
    {
        ArrayWriter problems(out, "problems");
        for (const Problems& file : report.problems)
            for (const Problem& problem : file.found)
                problems.Add(ProblemJson(file.file, problem));
    }
    out << "  \"total\": " << TotalJson(report).dump() << "\n}\n";
}

}  // namespace Estimate
