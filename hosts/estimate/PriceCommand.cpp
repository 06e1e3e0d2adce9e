#include <algorithm>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include "BillPricing.h"
#include "Commands.h"
#include "PriceJobs.h"

namespace Estimate {
namespace {

/// More threads than any machine has use for.
constexpr unsigned MostJobs = 256;

}  // namespace

void AddPrice(CLI::App& app, const Streams& streams, int& status) {
    struct Arguments {
        PriceOptions options;
        std::vector<std::string> bills;
        unsigned jobs = std::max(std::thread::hardware_concurrency(), 1U);
    };
    auto arguments = std::make_shared<Arguments>();
    PriceOptions* const options = &arguments->options;
    CLI::App* command = app.add_subcommand("price", "Price a bill of quantities");
    command
        ->add_option("bill", arguments->bills,
                     "The bill: CSV in UTF-8 or GBK, \"-\" for standard input, or a project in an XML file; "
                     "several are priced at the same time")
        ->required();
    command->add_option("--jobs", arguments->jobs, "How many of several bills are priced at a time")
        ->check(CLI::Range(1U, MostJobs))
        ->capture_default_str();
    command->add_option("--vars", options->variables,
                        "The variables of the formulas: CSV with name and value; they go before those of a "
                        "project");
    auto* json = command->add_flag("--json", options->json, "Write JSON instead of text");
    auto* csv = command->add_flag("--csv", options->csv, "Write CSV instead of text")->excludes(json);
    command->add_flag("--bom", options->mark, "Begin the CSV with a byte-order mark, for spreadsheets")
        ->needs(csv);
    command->add_flag("--features", options->features, "Show the features of bill items in the text");
    command->add_option("--area", options->area,
                        "The floor area in m2, a number or formula, for costs per m2");
    command->add_option("--name", options->name, "The project's name, for the report");
    auto* extraCosts =
        command->add_option("--extra-costs", options->library,
                            "Charge what this library charges on top; the name of a library file of an item");
    auto* family =
        command->add_option("-f,--family", options->family, "The family of that library")->needs(extraCosts);
    extraCosts->needs(family);
    command
        ->add_option(
            "--rates", options->rates,
            "The rates of the extra costs: CSV with name, rate in percent and, for some items only, code")
        ->needs(extraCosts);
    command->add_option("-o,--output", options->output, "Write to this file instead of standard output");
    command->callback([arguments, &streams, &status] {
        PriceOptions& each = arguments->options;
        each.bill = arguments->bills.front();
        status = arguments->bills.size() == 1 ? PriceBill(each, streams)
                                              : PriceBills(each, arguments->bills, arguments->jobs, streams);
    });
}

}  // namespace Estimate
