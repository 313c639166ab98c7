#include "tests/support/scripted_prompts.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include "core/text/code_page.h"

namespace mdlPLM {

namespace {

template <class T>
T TakeFirst(std::deque<T>& script, const Message& question) {
    if (script.empty())
        throw std::logic_error("a question without an answer: " + ToUtf8(question.Body));
    T first = std::move(script.front());
    script.pop_front();
    return first;
}

}  // namespace

Answer ScriptedPrompts::AskYesNo(const Message& question) {
    return Next(PromptKind::YesNo, question);
}

Answer ScriptedPrompts::AskYesNoCancel(const Message& question) {
    return Next(PromptKind::YesNoCancel, question);
}

void ScriptedPrompts::Inform(const Message& message) { Note(PromptKind::Inform, message); }

void ScriptedPrompts::Critical(const Message& message) { Note(PromptKind::Critical, message); }

std::optional<Text> ScriptedPrompts::AskText(const Message& question) {
    Note(PromptKind::AskText, question);
    return TakeFirst(Texts, question);
}

std::vector<Text> ScriptedPrompts::Bodies() const {
    std::vector<Text> bodies;
    std::transform(Log.begin(), Log.end(), std::back_inserter(bodies),
                   [](const Asked& asked) { return asked.What.Body; });
    return bodies;
}

Answer ScriptedPrompts::Next(PromptKind kind, const Message& question) {
    Note(kind, question);
    return TakeFirst(Answers, question);
}

void ScriptedPrompts::Note(PromptKind kind, const Message& message) {
    Log.push_back({kind, message});
    if (OnAsked) OnAsked(Log.back());
}

}  // namespace mdlPLM
