// Somebody who never wants a file replaced, and how often that was asked.
#pragma once

#include "core/platform/prompts.h"

namespace mdlPLM::test {

class SaysNo final : public Prompts {
public:
    Answer AskYesNo(const Message& /*question*/) override { return Answer::Yes; }
    Answer AskYesNoCancel(const Message& /*question*/) override {
        ++Asked;
        return Answer::No;
    }
    void Inform(const Message& /*message*/) override {}
    void Critical(const Message& /*message*/) override {}
    std::optional<Text> AskText(const Message& /*question*/) override { return std::nullopt; }

    int Asked = 0;
};

}  // namespace mdlPLM::test
