// Questions that are announced: a window can show what a question is about before it covers it.
#pragma once

#include <functional>
#include <utility>

#include "core/platform/prompts.h"

namespace mdlPLM {

class AnnouncedPrompts final : public Prompts {
public:
    AnnouncedPrompts(Prompts& ask, std::function<void()> announce)
        : ask_(ask), announce_(std::move(announce)) {}

    Answer AskYesNo(const Message& question) override { return Announced().AskYesNo(question); }
    Answer AskYesNoCancel(const Message& question) override {
        return Announced().AskYesNoCancel(question);
    }
    void Inform(const Message& message) override { Announced().Inform(message); }
    void Critical(const Message& message) override { Announced().Critical(message); }
    std::optional<Text> AskText(const Message& question) override {
        return Announced().AskText(question);
    }

private:
    Prompts& Announced() {
        announce_();
        return ask_;
    }

    Prompts& ask_;
    std::function<void()> announce_;
};

}  // namespace mdlPLM
