// The questions of the work, put on the terminal with the system's own texts.
#pragma once

#include "app/cli/report.h"
#include "core/platform/prompts.h"

namespace mdlPLM::cli {

/// Asks on the error stream and reads the answer from standard input. Where there is no terminal to
/// ask at, every question gets its safe answer: No, Cancel, nothing.
class TerminalPrompts final : public Prompts {
public:
    /// `sayYes` answers every Yes/No question with Yes, asking nobody.
    TerminalPrompts(Console& console, Report& report, bool sayYes)
        : console_(console), report_(report), sayYes_(sayYes) {}

    Answer AskYesNo(const Message& question) override;
    Answer AskYesNoCancel(const Message& question) override;
    void Inform(const Message& message) override;
    void Critical(const Message& message) override;
    std::optional<Text> AskText(const Message& question) override;

    /// True when a question got its safe answer because nobody could be asked.
    [[nodiscard]] bool NobodyToAsk() const { return nobodyToAsk_; }

private:
    Answer Ask(const Message& question, bool withCancel);
    Answer AnswerForNobody(const Message& question);

    Console& console_;
    Report& report_;
    bool sayYes_ = false;
    bool nobodyToAsk_ = false;
};

/// For a plan: asks nobody, goes on as the run would after Yes, leaves existing targets alone, and
/// keeps the question for the record of the file it belongs to.
class PlanningPrompts final : public Prompts {
public:
    explicit PlanningPrompts(Report& report) : report_(report) {}

    Answer AskYesNo(const Message& question) override;
    Answer AskYesNoCancel(const Message& question) override;
    void Inform(const Message& message) override;
    void Critical(const Message& message) override;
    std::optional<Text> AskText(const Message& question) override;

    /// The question that has come up since the last call; empty when there was none.
    Text TakeQuestion();

private:
    Report& report_;
    Text question_;
};

}  // namespace mdlPLM::cli
