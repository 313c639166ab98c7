// Every benchmark, in the order of the table. A new one is a source of its own and a line here.
#pragma once

#include <array>

#include "bench/collection.h"
#include "bench/measure.h"

namespace mdlPLM::bench {

void MeasureNames(const Collection& collection, Column& column);
void MeasureListing(const Collection& collection, Column& column);
void MeasureList(const Collection& collection, Column& column);
void MeasureCopying(const Collection& collection, Column& column);
void MeasureTagging(const Collection& collection, Column& column);
void MeasureWhole(const Collection& collection, Column& column);
void MeasureProgram(const Collection& collection, Column& column);

struct Benchmark {
    const char* Name;
    void (*Measure)(const Collection& collection, Column& column);
};

inline constexpr std::array<Benchmark, 7> Benchmarks = {{{"names", MeasureNames},
                                                         {"listing", MeasureListing},
                                                         {"list", MeasureList},
                                                         {"copying", MeasureCopying},
                                                         {"tagging", MeasureTagging},
                                                         {"whole", MeasureWhole},
                                                         {"program", MeasureProgram}}};

}  // namespace mdlPLM::bench
