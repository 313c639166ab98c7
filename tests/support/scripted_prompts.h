// The questions and messages of the work, answered by a script and kept for the test to look at.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <vector>

#include "core/platform/prompts.h"

namespace mdlPLM {

enum class PromptKind { YesNo, YesNoCancel, Inform, Critical, AskText };

struct Asked {
    PromptKind Kind;
    Message What;
};

/// A question that the script has no answer for throws: no test passes by luck.
class ScriptedPrompts : public Prompts {
public:
    ScriptedPrompts() = default;
    explicit ScriptedPrompts(std::deque<Answer> answers) : Answers(std::move(answers)) {}

    Answer AskYesNo(const Message& question) override;
    Answer AskYesNoCancel(const Message& question) override;
    void Inform(const Message& message) override;
    void Critical(const Message& message) override;
    std::optional<Text> AskText(const Message& question) override;

    /// The bodies of everything that was put, in order.
    [[nodiscard]] std::vector<Text> Bodies() const;

    std::deque<Answer> Answers;                 ///< for the questions, in order
    std::deque<std::optional<Text>> Texts;      ///< for the input boxes, in order
    std::vector<Asked> Log;                     ///< everything that was put
    std::function<void(const Asked&)> OnAsked;  ///< called before a question is answered

private:
    Answer Next(PromptKind kind, const Message& question);
    void Note(PromptKind kind, const Message& message);
};

}  // namespace mdlPLM
