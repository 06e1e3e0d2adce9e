#include <algorithm>
#include <memory>
#include <set>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <nlohmann/json.hpp>

#include "Commands.h"
#include "Files.h"
#include "Libraries.h"
#include "LibrarySearch.h"
#include "Refusal.h"

namespace Estimate {
namespace {

struct LibrariesOptions {
    LibrarySearch search;
    bool json = false;
};

void WriteHits(std::ostream& out, const std::vector<LibraryHit>& hits, bool json, bool hasKind) {
    if (json) {
        nlohmann::ordered_json list = nlohmann::ordered_json::array();
        for (const LibraryHit& hit : hits)
            list.push_back({{"kind", hit.kind}, {"family", hit.family}, {"path", hit.path}});
        out << list.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
        return;
    }
    // A script that asks for one kind gets paths alone.
    for (const LibraryHit& hit : hits)
        out << (hasKind ? std::string() : hit.kind + '\t') << hit.path << '\n';
}

int List(const LibrariesOptions& options, const Streams& streams) {
    const LibraryTree tree = ReadLibraries();
    if (options.json)
        WriteJson(streams.out, tree);
    else
        WriteText(streams.out, tree);
    if (!tree.families.empty())
        return AllDone;
    Refuse(streams, "no family in " + tree.root + " offers a quota library");
    return SomeBad;
}

int Libraries(const LibrariesOptions& options, const Streams& streams) {
    const std::string lack = WhatLibrariesLack();
    if (!lack.empty()) {
        Refuse(streams, lack);
        return CannotRun;
    }
    if (options.search.name.empty())
        return List(options, streams);
    const std::vector<LibraryHit> hits = Find(options.search);
    WriteHits(streams.out, hits, options.json, !options.search.kind.empty());
    if (!hits.empty())
        return AllDone;
    Refuse(streams, "no library file is found: " + options.search.name);
    return SomeBad;
}

}  // namespace

void AddLibraries(CLI::App& app, const Streams& streams, int& status) {
    auto options = std::make_shared<LibrariesOptions>();
    CLI::App* command = app.add_subcommand("libraries", "List the cost libraries, or find a file of them");
    CLI::Option* find = command->add_option("--find", options->search.name,
                                            "Print where the file of this name is, or the library's");
    find->check([](const std::string& name) { return name.empty() ? "a name is asked for" : ""; });
    command->add_option("--family", options->search.family, "In this family; in all by default")->needs(find);
    command->add_option("--section", options->search.section, "In this section; in all by default")
        ->needs(find);
    command->add_option("--item", options->search.item, "Below this item; below all by default")->needs(find);
    command->add_option("--kind", options->search.kind, "Only files of this kind")
        ->needs(find)
        ->check(CLI::IsMember(LibraryFileKinds()));
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([options, &streams, &status] { status = Libraries(*options, streams); });
}

}  // namespace Estimate
