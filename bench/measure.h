// Clock, memory and the column of results that a benchmark fills.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace mdlPLM::bench {

/// The results for one size of the collection, in the order in which they were measured.
class Column {
public:
    explicit Column(std::size_t files) : files_(files) {}
    [[nodiscard]] std::size_t Files() const { return files_; }

    void Add(std::string measure, std::string value);
    /// A duration for the whole collection, with what that is per file.
    void AddTime(const std::string& measure, double seconds, std::size_t files);
    /// How much longer one duration is than another, such as "1.62 x".
    void AddRatio(const std::string& measure, double seconds, double reference);
    [[nodiscard]] const std::vector<std::pair<std::string, std::string>>& Results() const {
        return results_;
    }

private:
    std::size_t files_;
    std::vector<std::pair<std::string, std::string>> results_;
};

/// How long one piece of work takes.
double Seconds(const std::function<void()>& work);

/// How long processors work on it, in this process, in its children that end meanwhile, and in the
/// system for both: the same where nothing is waited for, and undisturbed by other programs.
double ProcessorSeconds(const std::function<void()>& work);

using Clock = double (*)(const std::function<void()>& work);

/// Seconds of the fastest of `rounds` runs: the one that other programs disturbed least. `prepare`
/// is run before each and not counted.
double Fastest(
    int rounds, const std::function<void()>& work, const std::function<void()>& prepare = [] {});

/// Two pieces of work measured in turns, so that both meet the machine in the same moods.
std::pair<double, double> FastestOfBoth(int rounds, const std::function<void()>& first,
                                        const std::function<void()>& second, Clock clock = Seconds);

/// Bytes the program has allocated at this moment.
std::size_t AllocatedBytes();

/// A whole number with "," between groups of three digits.
std::string Grouped(std::size_t number);

/// The columns side by side as a Markdown table.
std::string MarkdownTable(const std::vector<Column>& columns);

/// Keeps the compiler from leaving out work whose result nobody looks at.
template <class Value>
void Keep(const Value& value) {
    asm volatile("" : : "g"(&value) : "memory");
}

}  // namespace mdlPLM::bench
