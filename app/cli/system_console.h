// The streams of the process.
#pragma once

#include <csignal>

#include "app/cli/console.h"

namespace mdlPLM::cli {

class SystemConsole final : public Console {
public:
    /// `interrupted` is what the program's signal handler sets; it outlives the object.
    explicit SystemConsole(const volatile std::sig_atomic_t& interrupted);
    ~SystemConsole() override;
    SystemConsole(const SystemConsole&) = delete;
    SystemConsole& operator=(const SystemConsole&) = delete;

    [[nodiscard]] Terminals Kinds() const override { return kinds_; }
    void Out(BytesView bytes) override;
    void Flush() override;
    [[nodiscard]] bool OutFailed() const override { return outFailed_; }
    void Errors(BytesView bytes) override;
    bool ReadLine(Bytes& line) override;
    Bytes ReadAll() override;
    [[nodiscard]] bool Interrupted() const override { return interrupted_ != 0; }

private:
    bool ReadByte(char& byte);

    const volatile std::sig_atomic_t& interrupted_;
    Terminals kinds_;
    Bytes held_;
    bool outFailed_ = false;
};

}  // namespace mdlPLM::cli
