#include "app/cli/terminal_prompts.h"

#include <utility>

#include "core/text/code_page.h"
#include "core/text/letter_case.h"

namespace mdlPLM::cli {

namespace {

// The words of the buttons; the first letter will do.
bool IsWord(TextView answer, TextView word) {
    return !answer.empty() && StartsWith(LCase(word), LCase(Trim(answer)));
}

Text Whole(const Message& message) {
    const Text body = Replace(message.Body, CrLf, u"\n");
    return message.Detail.empty() ? body : body + u"\n" + Replace(message.Detail, CrLf, u"\n");
}

}  // namespace

Answer TerminalPrompts::AskYesNo(const Message& question) {
    if (sayYes_) return Answer::Yes;
    return Ask(question, false);
}

Answer TerminalPrompts::AskYesNoCancel(const Message& question) { return Ask(question, true); }

// "No" leaves the one file as it is, and the others have their turn.
Answer TerminalPrompts::AnswerForNobody(const Message& question) {
    nobodyToAsk_ = true;
    report_.Fail(Whole(question) + u"\n(There is no terminal to ask at.)");
    return Answer::No;
}

Answer TerminalPrompts::Ask(const Message& question, bool withCancel) {
    if (!console_.Kinds().Ask) return AnswerForNobody(question);
    report_.EndProgress();
    console_.Errors(ToUtf8(Harmless(Whole(question))));
    const BytesView choices = withCancel ? " [Yes/No/Cancel] " : " [Yes/No] ";
    for (;;) {
        console_.Errors(choices);
        Bytes line;
        // An empty line, the end of the input and Ctrl-C give the safe answer, as Escape does.
        const bool read = console_.ReadLine(line);
        const Text answer = Trim(FromUtf8(line));
        if (!read) console_.Errors("\n");
        if (answer.empty()) return withCancel ? Answer::Cancel : Answer::No;
        if (IsWord(answer, u"Yes")) return Answer::Yes;
        if (IsWord(answer, u"No")) return Answer::No;
        if (withCancel && IsWord(answer, u"Cancel")) return Answer::Cancel;
    }
}

void TerminalPrompts::Inform(const Message& message) { report_.Fail(Whole(message)); }

void TerminalPrompts::Critical(const Message& message) { report_.Fail(Whole(message)); }

std::optional<Text> TerminalPrompts::AskText(const Message& question) {
    if (!console_.Kinds().Ask) {
        AnswerForNobody(question);
        return std::nullopt;
    }
    report_.EndProgress();
    console_.Errors(ToUtf8(Harmless(Whole(question))));
    Bytes line;
    if (!console_.ReadLine(line)) return std::nullopt;
    return FromUtf8(line);
}

Answer PlanningPrompts::AskYesNo(const Message& question) {
    question_ = Whole(question);
    return Answer::Yes;
}

Answer PlanningPrompts::AskYesNoCancel(const Message& question) {
    question_ = Whole(question);
    return Answer::No;
}

void PlanningPrompts::Inform(const Message& message) { report_.Fail(Whole(message)); }

void PlanningPrompts::Critical(const Message& message) { report_.Fail(Whole(message)); }

std::optional<Text> PlanningPrompts::AskText(const Message& question) {
    question_ = Whole(question);
    return std::nullopt;
}

Text PlanningPrompts::TakeQuestion() { return std::exchange(question_, Text()); }

}  // namespace mdlPLM::cli
