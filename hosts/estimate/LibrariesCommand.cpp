#include <algorithm>
#include <memory>
#include <set>

#include <nlohmann/json.hpp>

#include "CommandLine.h"
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
        WriteText(streams.out, tree, streams.language);
    if (!tree.families.empty())
        return AllDone;
    Refuse(streams, Say<Text::NoFamily>(tree.root));
    return SomeBad;
}

int Libraries(const LibrariesOptions& options, const Streams& streams) {
    const Message lack = WhatLibrariesLack();
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
    Refuse(streams, Say<Text::NoLibraryFile>(options.search.name));
    return SomeBad;
}

}  // namespace

void AddLibraries(CLI::App& app, const Streams& streams, int& status) {
    auto options = std::make_shared<LibrariesOptions>();
    const Words words(streams.language);
    CLI::App* command = app.add_subcommand("libraries", words(Text::HelpLibraries));
    CLI::Option* find = command->add_option("--find", options->search.name, words(Text::HelpFind));
    find->check([words](const std::string& name) {
        return name.empty() ? words(Text::NameAskedFor) : std::string();
    });
    command->add_option("--family", options->search.family, words(Text::HelpFindFamily))->needs(find);
    command->add_option("--section", options->search.section, words(Text::HelpFindSection))->needs(find);
    command->add_option("--item", options->search.item, words(Text::HelpFindItem))->needs(find);
    command->add_option("--kind", options->search.kind, words(Text::HelpFindKind))
        ->needs(find)
        ->check(OneOf(LibraryFileKinds(), streams.language));
    command->add_flag("--json", options->json, words(Text::HelpLibrariesJson));
    command->callback([options, &streams, &status] { status = Libraries(*options, streams); });
}

}  // namespace Estimate
