// The questions and messages that the work itself puts to the user, as an interface: the window
// shows boxes, the command line asks at the terminal, a test answers from a script.
#pragma once

#include <optional>

#include "core/text/text.h"

namespace mdlPLM {

enum class Answer { Yes, No, Cancel };

/// A box with fixed texts. `Detail` stands beside the text where the text itself does not name the
/// file (an informative line).
struct Message {
    Text Title;
    Text Body;
    Text Detail;
};

class Prompts {
public:
    virtual ~Prompts() = default;
    /// Yes/No question; Escape and closing the box give No.
    virtual Answer AskYesNo(const Message& question) = 0;
    /// Yes/No/Cancel question; Escape and closing the box give Cancel.
    virtual Answer AskYesNoCancel(const Message& question) = 0;
    /// Information icon, one button.
    virtual void Inform(const Message& message) = 0;
    /// Critical icon, one button.
    virtual void Critical(const Message& message) = 0;
    /// Input box; nothing when it was cancelled.
    virtual std::optional<Text> AskText(const Message& question) = 0;
};

}  // namespace mdlPLM
