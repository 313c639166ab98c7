// What killed runs have left behind: temporary files of this program that never took their name.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <utility>
#include <vector>

#include "core/text/text.h"

namespace mdlPLM {

/// Removes them from the folders that a run works in: regular files of the user that are called
/// plm-<16 hexadecimal digits>.tmp, have not been changed for an hour, and that no process holds
/// locked, as whoever writes such a file does. A folder is listed when it is first named, and
/// again when an hour has passed: a look for every file would make large folders slow, and sooner
/// there is nothing new to be removed.
class LeftOvers {
public:
    /// Seconds since 1970.
    using Clock = std::function<std::int64_t()>;
    LeftOvers();
    explicit LeftOvers(Clock clock) : clock_(std::move(clock)) {}

    /// A folder, with or without its trailing separator; "" is the current one. What cannot be
    /// listed or removed is passed over.
    void LookIn(TextView folder);
    /// The folder of a file that is to be written anew; a symbolic link is followed.
    void LookBeside(TextView file);
    /// What was removed since the last call (paths).
    std::vector<Text> TakeRemoved() { return std::exchange(removed_, {}); }

private:
    void LookNow(TextView folder, std::int64_t now);

    Clock clock_;
    std::map<Text, std::int64_t, std::less<>> looked_;
    std::vector<Text> removed_;
};

}  // namespace mdlPLM
