// The streams of a test.
#pragma once

#include <deque>
#include <functional>
#include <utility>

#include "app/cli/console.h"

namespace mdlPLM::cli {

class FakeConsole final : public Console {
public:
    [[nodiscard]] Terminals Kinds() const override { return Streams; }
    void Out(BytesView bytes) override {
        if (OutTakes) Printed += bytes;
    }
    void Flush() override {}
    [[nodiscard]] bool OutFailed() const override { return !OutTakes; }
    void Errors(BytesView bytes) override { Told += bytes; }
    bool ReadLine(Bytes& line) override {
        if (Lines.empty()) return false;
        line = Lines.front();
        Lines.pop_front();
        return true;
    }
    Bytes ReadAll() override { return Input; }
    [[nodiscard]] bool Interrupted() const override { return Stop && Stop(); }

    /// What has been printed and told since the last call.
    Bytes TakePrinted() { return std::exchange(Printed, {}); }
    Bytes TakeTold() { return std::exchange(Told, {}); }

    Terminals Streams;
    bool OutTakes = true;
    std::deque<Bytes> Lines;     ///< answers, in order
    Bytes Input;                 ///< all of standard input
    std::function<bool()> Stop;  ///< true once the user has interrupted
    Bytes Printed;
    Bytes Told;
};

}  // namespace mdlPLM::cli
