#include "bench/measure.h"

#include <malloc.h>
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <limits>

namespace mdlPLM::bench {

namespace {

std::string Formatted(const char* format, double value) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, format, value);
    return buffer;
}

double InSeconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

double ProcessorTime() {
    double seconds = 0;
    for (const auto who : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
        rusage usage{};
        ::getrusage(who, &usage);
        seconds += InSeconds(usage.ru_utime) + InSeconds(usage.ru_stime);
    }
    return seconds;
}

std::string Duration(double seconds) {
    if (seconds >= 1) return Formatted("%.2f s", seconds);
    if (seconds >= 1e-3) return Formatted("%.1f ms", seconds * 1e3);
    if (seconds >= 1e-7) return Formatted("%.1f µs", seconds * 1e6);
    return Formatted("%.1f ns", seconds * 1e9);
}

}  // namespace

void Column::Add(std::string measure, std::string value) {
    results_.emplace_back(std::move(measure), std::move(value));
}

void Column::AddTime(const std::string& measure, double seconds, std::size_t files) {
    const double each = files == 0 ? 0 : seconds / static_cast<double>(files);
    Add(measure, Duration(seconds) + " (" + Duration(each) + " a file)");
}

void Column::AddRatio(const std::string& measure, double seconds, double reference) {
    Add(measure, Formatted("%.2f x", seconds / reference));
}

double Seconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double ProcessorSeconds(const std::function<void()>& work) {
    const double start = ProcessorTime();
    work();
    return ProcessorTime() - start;
}

double Fastest(int rounds, const std::function<void()>& work,
               const std::function<void()>& prepare) {
    double fastest = std::numeric_limits<double>::max();
    for (int round = 0; round < rounds; ++round) {
        prepare();
        fastest = std::min(fastest, Seconds(work));
    }
    return fastest;
}

std::pair<double, double> FastestOfBoth(int rounds, const std::function<void()>& first,
                                        const std::function<void()>& second, Clock clock) {
    std::pair<double, double> fastest(std::numeric_limits<double>::max(),
                                      std::numeric_limits<double>::max());
    for (int round = 0; round < rounds; ++round) {
        fastest.first = std::min(fastest.first, clock(first));
        fastest.second = std::min(fastest.second, clock(second));
    }
    return fastest;
}

std::size_t AllocatedBytes() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

std::string Grouped(std::size_t number) {
    std::string digits = std::to_string(number);
    for (std::size_t end = digits.size(); end > 3; end -= 3) digits.insert(end - 3, ",");
    return digits;
}

std::string MarkdownTable(const std::vector<Column>& columns) {
    if (columns.empty()) return {};
    std::string table = "| |";
    std::string rule = "|---|";
    for (const Column& column : columns) {
        table += " " + Grouped(column.Files()) + " files |";
        rule += "---:|";
    }
    table += "\n" + rule + "\n";
    const std::size_t rows = columns.front().Results().size();
    for (std::size_t row = 0; row < rows; ++row) {
        table += "| " + columns.front().Results()[row].first + " |";
        for (const Column& column : columns) table += " " + column.Results()[row].second + " |";
        table += "\n";
    }
    return table;
}

}  // namespace mdlPLM::bench
