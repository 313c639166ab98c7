// Questions and messages as boxes over the active window.
#pragma once

#include "core/platform/errors.h"
#include "core/platform/prompts.h"

namespace mdlPLM {

/// Texts are shown as they stand, never taken for markup. A message without a title carries the
/// application's name. The answer that changes nothing is the one that Escape, closing the box and
/// the Enter key give.
class QtPrompts : public Prompts {
public:
    Answer AskYesNo(const Message& question) override;
    Answer AskYesNoCancel(const Message& question) override;
    void Inform(const Message& message) override;
    void Critical(const Message& message) override;
    std::optional<Text> AskText(const Message& question) override;
};

/// Reports each error in a critical box, the file in the line below the message.
class BoxErrors : public ErrorSink {
public:
    explicit BoxErrors(Prompts& ask) : ask_(ask) {}
    void Report(ErrorNumber number, TextView path) override;

private:
    Prompts& ask_;
};

/// A text of many lines cut down to what a box can show; `Rest` is the whole text when it was cut.
struct BoxText {
    Text Shown;
    Text Rest;
};
BoxText FitIntoBox(TextView text);

}  // namespace mdlPLM
