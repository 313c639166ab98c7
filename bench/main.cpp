// Measures the program's core on a generated collection and prints one table.
//
//   plm_bench                     everything, on 1,000, 10,000 and 100,000 files
//   plm_bench 5000                everything, on 5,000 files
//   plm_bench names 5000          one benchmark
#include <algorithm>
#include <cstdio>
#include <exception>
#include <list>
#include <string>
#include <vector>

#include "bench/benchmarks.h"
#include "core/text/text.h"

namespace {

using namespace mdlPLM;
using namespace mdlPLM::bench;

struct Request {
    std::vector<std::size_t> Counts;
    std::vector<Benchmark> Chosen;
    bool Understood = true;
};

Request ParseRequest(int count, char** arguments) {
    Request request;
    for (int i = 1; i < count; ++i) {
        const std::string argument = arguments[i];
        const auto named = std::find_if(Benchmarks.begin(), Benchmarks.end(),
                                        [&](const Benchmark& b) { return argument == b.Name; });
        if (named != Benchmarks.end()) {
            request.Chosen.push_back(*named);
        } else if (IsAllDigits(BytesView(argument)) && argument.size() < 9) {
            request.Counts.push_back(std::stoul(argument));
        } else {
            request.Understood = false;
        }
    }
    if (request.Counts.empty()) request.Counts = {1000, 10000, 100000};
    if (request.Chosen.empty()) request.Chosen.assign(Benchmarks.begin(), Benchmarks.end());
    return request;
}

Column Measure(const Collection& collection, const std::vector<Benchmark>& chosen) {
    Column column(collection.Paths().size());
    for (const Benchmark& benchmark : chosen) {
        std::fprintf(stderr, "  measuring %s\n", benchmark.Name);
        benchmark.Measure(collection, column);
    }
    return column;
}

int Usage() {
    std::fprintf(stderr, "usage: plm_bench [BENCHMARK ...] [NUMBER OF FILES ...]\nbenchmarks:");
    for (const Benchmark& benchmark : Benchmarks) std::fprintf(stderr, " %s", benchmark.Name);
    std::fprintf(stderr, "\n");
    return 2;
}

}  // namespace

int main(int count, char** arguments) try {
    const Request request = ParseRequest(count, arguments);
    if (!request.Understood) return Usage();
    // No collection goes before the end: see Targets in collection.h.
    std::list<Collection> collections;
    std::vector<Column> columns;
    for (const std::size_t files : request.Counts) {
        std::fprintf(stderr, "making %s files ...\n", Grouped(files).c_str());
        columns.push_back(Measure(collections.emplace_back(files), request.Chosen));
    }
    std::printf("%s", MarkdownTable(columns).c_str());
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "plm_bench: %s\n", error.what());
    return 1;
}
