#include <algorithm>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "BillPricing.h"
#include "CommandLine.h"
#include "Commands.h"
#include "PriceJobs.h"

namespace Estimate {
namespace {

/// More threads than any machine has use for.
constexpr int MostJobs = 256;

}  // namespace

void AddPrice(CLI::App& app, const Streams& streams, int& status) {
    const Words words(streams.language);
    struct Arguments {
        PriceOptions options;
        std::vector<std::string> bills;
        unsigned jobs = std::max(std::thread::hardware_concurrency(), 1U);
    };
    auto arguments = std::make_shared<Arguments>();
    PriceOptions* const options = &arguments->options;
    CLI::App* command = app.add_subcommand("price", words(Text::HelpPrice));
    command->add_option("bill", arguments->bills, words(Text::HelpPriceBill))
        ->type_name(FileType)
        ->required();
    command->add_option("--jobs", arguments->jobs, words(Text::HelpPriceJobs))
        ->check(Between(1, MostJobs, streams.language))
        ->capture_default_str();
    command->add_option("--vars", options->variables, words(Text::HelpPriceVars))->type_name(FileType);
    auto* json = command->add_flag("--json", options->json, words(Text::HelpPriceJson));
    auto* csv = command->add_flag("--csv", options->csv, words(Text::HelpPriceCsv))->excludes(json);
    command->add_flag("--bom", options->mark, words(Text::HelpPriceBom))->needs(csv);
    command->add_flag("--features", options->features, words(Text::HelpPriceFeatures));
    command->add_option("--area", options->area, words(Text::HelpPriceArea));
    command->add_option("--name", options->name, words(Text::HelpPriceName));
    auto* extraCosts =
        command->add_option("--extra-costs", options->library, words(Text::HelpPriceExtraCosts));
    auto* family =
        command->add_option("-f,--family", options->family, words(Text::HelpPriceFamily))->needs(extraCosts);
    extraCosts->needs(family);
    command->add_option("--rates", options->rates, words(Text::HelpPriceRates))
        ->type_name(FileType)
        ->needs(extraCosts);
    command->add_option("-o,--output", options->output, words(Text::HelpOutput))->type_name(FileType);
    command->callback([arguments, &streams, &status] {
        PriceOptions& each = arguments->options;
        each.bill = arguments->bills.front();
        status = arguments->bills.size() == 1 ? PriceBill(each, streams)
                                              : PriceBills(each, arguments->bills, arguments->jobs, streams);
    });
}

}  // namespace Estimate
