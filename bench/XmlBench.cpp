// Project files of 50 MB: the tree beside the parser's DOM, in time and in memory; and the tree's way back.
#include <cstdio>
#include <memory>
#include <string>

#include <benchmark/benchmark.h>
#include <xercesc/framework/LocalFileFormatTarget.hpp>

#include "QsUtils/QsUtils.h"

#include "bench/XmlDom.h"
#include "bench/XmlProject.h"

namespace {

constexpr std::size_t projectBytes = 50'000'000;

const XmlProject& LargeProject() {
    static const XmlProject project(projectBytes);
    return project;
}

std::wstring ProjectPath() {
    return FromNativePath(LargeProject().Path()).ToWide();
}

// What is compared is the reading. A host keeps what it has read, and frees it when nobody waits.
void LoadTreeOurs(benchmark::State& state) {
    for (auto _ : state) {
        std::unique_ptr<XMLNode> root(LoadXMLNode(ProjectPath()));
        if (root == nullptr)
            state.SkipWithError("no tree");
        state.PauseTiming();
        root.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(LoadTreeOurs)->Name("Xml/LoadTree/ours")->Unit(benchmark::kMillisecond);

void LoadTreeXerces(benchmark::State& state) {
    for (auto _ : state) {
        const XmlDom dom(LargeProject().Path());
        if (!dom.HasRoot())
            state.SkipWithError("no document");
        state.PauseTiming();
        dom.Release();
        state.ResumeTiming();
    }
}
BENCHMARK(LoadTreeXerces)->Name("Xml/LoadTree/xerces")->Unit(benchmark::kMillisecond);

void FreeTree(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        std::unique_ptr<XMLNode> root(LoadXMLNode(ProjectPath()));
        state.ResumeTiming();
        root.reset();
    }
}
BENCHMARK(FreeTree)->Name("Xml/FreeTree/ours")->Unit(benchmark::kMillisecond);

/// The peak of a process that does nothing else. It is told as items per second, the reciprocal of a cost,
/// which is what ratios are taken of.
void PeakMemory(benchmark::State& state, const std::string& way) {
    const std::string command =
        std::string(XML_PEAK) + " " + way + " '" + LargeProject().Path().string() + "'";
    double bytes = 0;
    for (auto _ : state) {
        std::FILE* const pipe = popen(command.c_str(), "r");
        if (pipe == nullptr || std::fscanf(pipe, "%lf", &bytes) != 1)
            state.SkipWithError("no figure");
        if (pipe != nullptr && pclose(pipe) != 0)
            state.SkipWithError("the file can't be read");
    }
    state.counters["items_per_second"] = 1e9 / bytes;
    state.counters["MB"] = bytes / 1e6;
}
BENCHMARK_CAPTURE(PeakMemory, ours, "tree")->Name("Xml/PeakMemory/ours")->Iterations(1);
BENCHMARK_CAPTURE(PeakMemory, xerces, "dom")->Name("Xml/PeakMemory/xerces")->Iterations(1);

/// Both write to the same kind of place, a temporary folder.
void SaveTreeOurs(benchmark::State& state) {
    const std::unique_ptr<XMLNode> root(LoadXMLNode(ProjectPath()));
    const std::wstring path = ProjectPath() + L".saved";
    for (auto _ : state) {
        if (!SaveXMLNode(root.get(), path, false))
            state.SkipWithError("not saved");
    }
    std::filesystem::remove(ToNativePath(CString(path)));
}
BENCHMARK(SaveTreeOurs)->Name("Xml/SaveTree/ours")->Unit(benchmark::kMillisecond);

void SaveTreeXerces(benchmark::State& state) {
    using namespace xercesc;
    const XmlDom dom(LargeProject().Path());
    DOMImplementation* const implementation = XmlDom::Implementation();
    DOMLSSerializer* const serializer = implementation->createLSSerializer();
    const std::string path = LargeProject().Path().string() + ".saved";
    for (auto _ : state) {
        DOMLSOutput* const output = implementation->createLSOutput();
        LocalFileFormatTarget target(path.c_str());
        output->setByteStream(&target);
        serializer->write(dom.Document(), output);
        output->release();
    }
    serializer->release();
    dom.Release();
    std::filesystem::remove(path);
}
BENCHMARK(SaveTreeXerces)->Name("Xml/SaveTree/xerces")->Unit(benchmark::kMillisecond);

}  // namespace
